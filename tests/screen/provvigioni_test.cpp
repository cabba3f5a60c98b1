#include "platform/controls/checkbox.h"
#include "platform/controls/field.h"
#include "schermatafixture.h"
#include "src/screen/provvigioni.h"

namespace tarvello::test {

namespace {

using agenti::FRMMG_AGENTI;

const QString ModuloTabProvv = QStringLiteral("Caspello.CLSPA_PROVVSCONTI");

class Provvigioni : public SchermataTest {
protected:
    void SetUp() override
    {
        SchermataTest::SetUp();
        db().run(QStringLiteral("INSERT INTO LP09_TESTATAPRIORITA (LP09_CODICE, LP09_DESCRIZIONE) "
                                "VALUES ('PRI1', 'Prima'), ('PRI2', 'Seconda')"));
        inserisciAgente(QStringLiteral("A001"));
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
    agenti::Provvigioni& provvigioni() const { return schermata().provvigioni(); }
};

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
