#include "platform/controls/checkbox.h"
#include "platform/controls/combobox.h"
#include "platform/controls/field.h"
#include "platform/controls/keycodes.h"
#include "schermatafixture.h"
#include "src/screen/provvigioni.h"

namespace tarvello::test {

namespace {

using agenti::FRMMG_AGENTI;
using controls::ComboBox;

const QString ModuloTabProvv = QStringLiteral("Caspello.CLSPA_PROVVSCONTI");

class Provvigioni : public SchermataTest {
protected:
    void SetUp() override
    {
        SchermataTest::SetUp();
        db().run(QStringLiteral("INSERT INTO LP09_TESTATAPRIORITA (LP09_CODICE, LP09_DESCRIZIONE) "
                                "VALUES ('PRI1', 'Prima'), ('PRI2', 'Seconda')"));
        m_idAgente = inserisciAgente(QStringLiteral("A001"));
        inserisciAgente(QStringLiteral("A002"));
    }

    qint64 idPriorita(const char* codice)
    {
        return db()
            .query(QStringLiteral("SELECT LP09_ID FROM LP09_TESTATAPRIORITA WHERE LP09_CODICE = "
                                  "'%1'")
                       .arg(QString::fromLatin1(codice)))
            .rows.first()
            .first()
            .toInt64();
    }
    controls::Field& campo(QStringView nome) const { return controllo<controls::Field>(nome); }
    ComboBox& lista(QStringView nome) const { return controllo<ComboBox>(nome); }
    // As a person chooses an item: the focus on the list first.
    void scegli(QStringView nome, int codice)
    {
        ASSERT_TRUE(lista(nome).setFocus());
        ASSERT_TRUE(lista(nome).chooseCode(codice));
    }
    void digita(QStringView nome, const QString& testo)
    {
        ASSERT_TRUE(campo(nome).setFocus());
        campo(nome).setText(testo);
        ASSERT_TRUE(controllo<controls::Control>(u"TXT_IMPMINFATT").setFocus());
    }
    bool abilitato(QStringView nome) const
    {
        return controllo<controls::Control>(nome).isEnabled();
    }
    bool richiesto(QStringView nome) const
    {
        return controllo<controls::DataControl>(nome).isRequired();
    }
    agenti::Provvigioni& provvigioni() const { return schermata().provvigioni(); }

    qint64 m_idAgente = 0;
};

TEST_F(Provvigioni, AShownAgentGetsItsIdentifiersInOrderWithEachListComplete)
{
    db().run(
        QStringLiteral("UPDATE MG17_AGENTI SET MG17_REGIMEPROV = 12, MG17_IDENTIFTAB = 1, "
                       "MG17_IDENTIFRIGA = 2, MG17_IDENTIFCOL = 0 WHERE MG17_AGENTE = 'A002'"));
    apri();
    gestione(FRMMG_AGENTI::Agenti).moveNext();
    ASSERT_EQ(campo(u"TXT_AGENTE").text(), QStringLiteral("A002"));
    EXPECT_EQ(lista(u"CBO_IDENTIFTAB").text(), QStringLiteral("1"));
    EXPECT_EQ(lista(u"CBO_IDENTIFRIGA").text(), QStringLiteral("2"));
    EXPECT_EQ(lista(u"CBO_IDENTIFCOL").text(), QStringLiteral("0"));
    EXPECT_EQ(lista(u"CBO_IDENTIFRIGA").currentIndex(), 2);
    EXPECT_EQ(lista(u"CBO_IDENTIFCOL").currentIndex(), 1);
    EXPECT_TRUE(abilitato(u"CBO_IDENTIFTAB"));
}

TEST_F(Provvigioni, PriorityCodesAndIdsConvertBothWays)
{
    apri();
    const qint16 id = qint16(idPriorita("PRI1"));
    EXPECT_EQ(provvigioni().Get_LP09_CODICE(id), QStringLiteral("PRI1"));
    EXPECT_EQ(provvigioni().Get_LP09_CODICE(999), QString());
    EXPECT_EQ(provvigioni().Get_MG17_ID_LP09(QStringLiteral("PRI1  ")), id);
    EXPECT_EQ(provvigioni().Get_MG17_ID_LP09(QStringLiteral("NONE")), 0);
    EXPECT_EQ(agenti::Provvigioni::idPriorita(db::Value::null()), 0);
    EXPECT_EQ(agenti::Provvigioni::idPriorita(32767), 32767);
    EXPECT_THROW(agenti::Provvigioni::idPriorita(32768), db::RuntimeError);

    db().run(QStringLiteral("DROP TABLE LP09_TESTATAPRIORITA"));
    try {
        provvigioni().Get_LP09_CODICE(id);
        ADD_FAILURE() << "no error";
    } catch (const db::RuntimeError& e) {
        EXPECT_TRUE(e.source().startsWith(QStringLiteral("Get_LP09_CODICE:\r\n")))
            << e.source().toStdString();
    }
}

TEST_F(Provvigioni, AnIdBeyondSixteenBitsShowsNoPriorityTableAndNoMessage)
{
    db().run(QStringLiteral("UPDATE MG17_AGENTI SET MG17_REGIMEPROV = 15, MG17_ID_LP09 = 40000 "
                            "WHERE MG17_AGENTE = 'A001'"));
    apri();
    EXPECT_EQ(campo(u"TXT_AGENTE").text(), QStringLiteral("A001"));
    EXPECT_EQ(campo(u"TXT_TABPRIORITA").text(), QString());
    EXPECT_TRUE(prompts.history().isEmpty()) << prompts.history().first().text.toStdString();
}

TEST_F(Provvigioni, TheFixedListIsLookedUpAndDecodedAmongTheCompanysLists)
{
    db().run(QStringLiteral("INSERT INTO LS01_LISTINI (LS01_DITTA_CG18, LS01_NUMLIS, "
                            "LS01_DESCRLIS) VALUES (1, 3, 'Listino base'), (2, 3, 'Altro')"));
    apri();
    scegli(u"CBO_REGPROV", 5);
    scegli(u"CBO_INDTIPOLISFIX", 1);
    digita(u"TXT_NUMLISTFIX", QStringLiteral("3"));
    EXPECT_EQ(campo(u"TXT_DESLISTFIX").text(), QStringLiteral("Listino base"));
    EXPECT_TRUE(campo(u"TXT_NUMLISTFIX").isValid());
    digita(u"TXT_NUMLISTFIX", QStringLiteral("9"));
    EXPECT_FALSE(campo(u"TXT_NUMLISTFIX").isValid());

    controls::LookupArgs args;
    Q_EMIT campo(u"TXT_NUMLISTFIX").lookupRequested(args);
    EXPECT_TRUE(args.sql.contains(u"LS01_DITTA_CG18 = 1"));
    EXPECT_EQ(args.title, QStringLiteral("Elenco listini"));
    EXPECT_EQ(campo(u"TXT_NUMLISTFIX").lookupId(), QStringLiteral("Lkp_NumListFix"));
}

TEST_F(Provvigioni, TheDiscountTablesManagementRunsWithTheHostHandedToItAndBack)
{
    apri();
    registraModulo(ModuloTabProvv);
    controllo<controls::CheckBox>(u"CHK_FLGADEGUAMSCMAG").setValue(1);
    campo(u"TXT_CODPROVSC").setText(QStringLiteral("T1"));

    Q_EMIT campo(u"TXT_CODPROVSC").managementKeyPressed(QStringLiteral("Kpers1"));
    EXPECT_FALSE(visto.has_value());

    campo(u"TXT_CODPROVSC").pressManagementKey();
    ASSERT_TRUE(visto.has_value());
    EXPECT_EQ(visto->dati, db::ValueList({db::Value(), QStringLiteral("T1")}));
    EXPECT_FALSE(visto->schermataAttiva);
    EXPECT_TRUE(visto->chiamata);
    EXPECT_TRUE(visto->eLaAttiva);
    EXPECT_EQ(host->moduleStarts().last().programmaticIdentifier, ModuloTabProvv);
    EXPECT_TRUE(modulo->IsActive());
    EXPECT_EQ(host->activeModule(), modulo.get());

    // A failing management is left without a word and the host is taken back.
    registraModulo(ModuloTabProvv, std::nullopt, true);
    const qsizetype prima = prompts.history().size();
    campo(u"TXT_CODPROVSC").pressManagementKey();
    EXPECT_EQ(prompts.history().size(), prima);
    EXPECT_TRUE(modulo->IsActive());
    EXPECT_EQ(host->activeModule(), modulo.get());
}

} // namespace

} // namespace tarvello::test
