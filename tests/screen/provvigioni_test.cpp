#include "platform/controls/checkbox.h"
#include "platform/controls/combobox.h"
#include "platform/controls/field.h"
#include "platform/controls/keycodes.h"
#include "schermatafixture.h"
#include "src/host/calledmodule.h"
#include "src/host/modulecontract.h"
#include "src/screen/provvigioni.h"

namespace tarvello::test {

namespace {

using agenti::FRMMG_AGENTI;
using controls::ComboBox;

const QString ModuloTabProvv = QStringLiteral("Caspello.CLSPA_PROVVSCONTI");

// The discount-tables management: notes what it was opened with and how the host stood.
class TabProvvDiProva final : public host::ModuleContract, public host::CalledModule {
public:
    struct Visto {
        db::ValueList dati;
        bool schermataAttiva = true;
        bool chiamata = false;
        bool eLaAttiva = false;
    };
    TabProvvDiProva(host::Cinterface& agenti, std::optional<Visto>& visto, bool fallisce)
        : m_agenti(agenti)
        , m_visto(visto)
        , m_fallisce(fallisce)
    {}
    host::Cinterface& contract() override { return *this; }
    void setCallingData(const db::ValueList& data) override { m_dati = data; }
    host::EventSource<host::DataTransferEvents>& dataTransfer() override { return m_eventi; }
    db::Value TransferData(const db::Value&) override { return {}; }
    db::Value ShowForm() override
    {
        host::GlobalContext* globale = ClsGlobal();
        m_visto = Visto{m_dati, m_agenti.IsActive(), IsCalled(),
                        globale && globale->activeModule() == this};
        if (m_fallisce)
            throw db::RuntimeError(5, QStringLiteral("Invalid procedure call"),
                                   QStringLiteral("CLSPA_PROVVSCONTI"));
        return {};
    }

private:
    host::Cinterface& m_agenti;
    std::optional<Visto>& m_visto;
    bool m_fallisce;
    db::ValueList m_dati;
    host::EventSource<host::DataTransferEvents> m_eventi;
};

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
    QStringList voci(QStringView nome) const
    {
        QStringList codici;
        for (const ComboBox::Item& voce : lista(nome).items())
            codici << voce.code.toString();
        return codici;
    }
    bool abilitato(QStringView nome) const
    {
        return controllo<controls::Control>(nome).isEnabled();
    }
    bool richiesto(QStringView nome) const
    {
        return controllo<controls::DataControl>(nome).isRequired();
    }
    db::Value idNellaRiga() const
    {
        return schermata().Grst_GestAnagrafica(FRMMG_AGENTI::Agenti)->value(u"MG17_ID_LP09");
    }
    agenti::Provvigioni& provvigioni() const { return schermata().provvigioni(); }

    qint64 m_idAgente = 0;
};

TEST_F(Provvigioni, AFixedListRegimeAsksForTheKindAndLocksTheCompositeTable)
{
    apri();
    scegli(u"CBO_REGPROV", 12);
    scegli(u"CBO_IDENTIFTAB", 1);

    scegli(u"CBO_REGPROV", 5);

    EXPECT_TRUE(richiesto(u"CBO_INDTIPOLISFIX"));
    EXPECT_TRUE(abilitato(u"CBO_INDTIPOLISFIX"));
    // The kind "0" is no item of the list: its own rule leaves the number off.
    EXPECT_EQ(lista(u"CBO_INDTIPOLISFIX").text(), QStringLiteral("0"));
    EXPECT_EQ(lista(u"CBO_INDTIPOLISFIX").currentIndex(), -1);
    EXPECT_FALSE(abilitato(u"TXT_NUMLISTFIX"));
    for (const char* nome : {"CBO_IDENTIFTAB", "CBO_IDENTIFRIGA", "CBO_IDENTIFCOL"}) {
        EXPECT_FALSE(abilitato(QString::fromLatin1(nome))) << nome;
        EXPECT_EQ(lista(QString::fromLatin1(nome)).text(), QStringLiteral("-1")) << nome;
    }

    scegli(u"CBO_INDTIPOLISFIX", 2);
    EXPECT_TRUE(richiesto(u"TXT_NUMLISTFIX"));
    EXPECT_TRUE(abilitato(u"TXT_NUMLISTFIX"));

    // Saved without a kind chosen, the kind is stored as 0, not Null.
    scegli(u"CBO_REGPROV", 7);
    campo(u"TXT_NUMLISTFIX").setText(QString());
    ASSERT_TRUE(gestione(FRMMG_AGENTI::Agenti).save());
    EXPECT_EQ(db().query(QStringLiteral("SELECT MG17_INDTIPOLISFIX, MG17_REGIMEPROV FROM "
                                        "MG17_AGENTI WHERE MG17_AGENTE = 'A001'"))
                  .rows.first(),
              db::ValueList({0, 7}));
}

TEST_F(Provvigioni, CompositeTablesOpenTheirIdentifiersAndEmptyTheFixedList)
{
    apri();
    scegli(u"CBO_REGPROV", 5);
    scegli(u"CBO_INDTIPOLISFIX", 1);
    campo(u"TXT_NUMLISTFIX").setText(QStringLiteral("3"));

    scegli(u"CBO_REGPROV", 11);
    EXPECT_FALSE(richiesto(u"CBO_INDTIPOLISFIX"));
    EXPECT_FALSE(abilitato(u"CBO_INDTIPOLISFIX"));
    EXPECT_FALSE(richiesto(u"TXT_NUMLISTFIX"));
    EXPECT_FALSE(abilitato(u"TXT_NUMLISTFIX"));
    EXPECT_EQ(campo(u"TXT_NUMLISTFIX").text(), QString());
    EXPECT_EQ(lista(u"CBO_INDTIPOLISFIX").text(), QStringLiteral("-1"));
    EXPECT_FALSE(abilitato(u"CBO_IDENTIFTAB"));
    EXPECT_TRUE(abilitato(u"CBO_IDENTIFRIGA"));
    EXPECT_TRUE(abilitato(u"CBO_IDENTIFCOL"));
    // No table entity: the rows may take any of the three.
    EXPECT_EQ(voci(u"CBO_IDENTIFRIGA"), QStringList({QStringLiteral("-1"), QStringLiteral("0"),
                                                     QStringLiteral("1"), QStringLiteral("2")}));
    scegli(u"CBO_IDENTIFRIGA", 2);
    EXPECT_EQ(voci(u"CBO_IDENTIFCOL"),
              QStringList({QStringLiteral("-1"), QStringLiteral("0"), QStringLiteral("1")}));

    scegli(u"CBO_REGPROV", 12);
    EXPECT_TRUE(abilitato(u"CBO_IDENTIFTAB"));
    EXPECT_EQ(lista(u"CBO_IDENTIFRIGA").text(), QStringLiteral("-1"));
}

TEST_F(Provvigioni, RowsAndColumnsOfferOnlyTheEntitiesNotYetUsed)
{
    apri();
    scegli(u"CBO_REGPROV", 12);

    scegli(u"CBO_IDENTIFTAB", 0);
    EXPECT_EQ(voci(u"CBO_IDENTIFRIGA"),
              QStringList({QStringLiteral("-1"), QStringLiteral("1"), QStringLiteral("2")}));
    scegli(u"CBO_IDENTIFRIGA", 1);
    EXPECT_EQ(voci(u"CBO_IDENTIFCOL"), QStringList({QStringLiteral("-1"), QStringLiteral("2")}));

    // A new table entity reloads both lists; the column list keeps its last entities until a
    // row is chosen again.
    scegli(u"CBO_IDENTIFTAB", 2);
    EXPECT_EQ(voci(u"CBO_IDENTIFRIGA"),
              QStringList({QStringLiteral("-1"), QStringLiteral("0"), QStringLiteral("1")}));
    EXPECT_EQ(voci(u"CBO_IDENTIFCOL"), QStringList({QStringLiteral("-1"), QStringLiteral("2")}));
    scegli(u"CBO_IDENTIFRIGA", 0);
    EXPECT_EQ(voci(u"CBO_IDENTIFCOL"), QStringList({QStringLiteral("-1"), QStringLiteral("1")}));
    // Row and table on the same entity: the columns stay as they were.
    lista(u"CBO_IDENTIFRIGA").setText(QStringLiteral("2"));
    EXPECT_EQ(voci(u"CBO_IDENTIFCOL"), QStringList({QStringLiteral("-1"), QStringLiteral("1")}));
}

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

TEST_F(Provvigioni, ThePriorityTableIsKeptInTheRowByItsId)
{
    db().run(QStringLiteral("UPDATE MG17_AGENTI SET MG17_REGIMEPROV = 15, MG17_ID_LP09 = %1 "
                            "WHERE MG17_AGENTE = 'A001'")
                 .arg(idPriorita("PRI2")));
    db().run(QStringLiteral("INSERT INTO LS01_LISTINI (LS01_DITTA_CG18, LS01_NUMLIS, "
                            "LS01_DESCRLIS) VALUES (1, 4, 'Listino quattro')"));
    db().run(
        QStringLiteral("UPDATE MG17_AGENTI SET MG17_NUMLISFIX = 4 WHERE MG17_AGENTE = 'A001'"));
    apri();
    EXPECT_EQ(campo(u"TXT_TABPRIORITA").text(), QStringLiteral("PRI2"));
    EXPECT_TRUE(abilitato(u"TXT_TABPRIORITA"));
    // Unbound, the two codes are decoded as the agent is shown, and again for the next one.
    EXPECT_EQ(campo(u"TXT_TABPRIORITA_DESCR").text(), QStringLiteral("Seconda"));
    EXPECT_EQ(campo(u"TXT_DESLISTFIX").text(), QStringLiteral("Listino quattro"));
    gestione(FRMMG_AGENTI::Agenti).moveNext();
    EXPECT_EQ(campo(u"TXT_TABPRIORITA_DESCR").text(), QString());
    EXPECT_EQ(campo(u"TXT_DESLISTFIX").text(), QString());
    gestione(FRMMG_AGENTI::Agenti).movePrevious();

    digita(u"TXT_TABPRIORITA", QStringLiteral("PRI1"));
    EXPECT_EQ(provvigioni().PrioritaPrecedente(), QStringLiteral("PRI2"));
    EXPECT_EQ(idNellaRiga(), db::Value(idPriorita("PRI1")));
    EXPECT_TRUE(gestione(FRMMG_AGENTI::Agenti).secondChangeFlag());
    EXPECT_EQ(campo(u"TXT_TABPRIORITA_DESCR").text(), QStringLiteral("Prima"));

    controls::LookupArgs elenco;
    Q_EMIT campo(u"TXT_TABPRIORITA").lookupRequested(elenco);
    EXPECT_TRUE(elenco.sql.contains(u"FROM LP09_TESTATAPRIORITA"));
    EXPECT_EQ(campo(u"TXT_TABPRIORITA").lookupId(), QStringLiteral("Lkp_TabPriorita"));

    // A code no table has is stored as 0, without a word.
    const qsizetype prompts0 = prompts.history().size();
    digita(u"TXT_TABPRIORITA", QStringLiteral("NONE"));
    EXPECT_EQ(idNellaRiga(), db::Value(0));
    EXPECT_EQ(prompts.history().size(), prompts0);

    // A quote in the code stays inside the literal.
    digita(u"TXT_TABPRIORITA", QStringLiteral("X'Y"));
    EXPECT_TRUE(istruzioni().contains(
        QStringLiteral("SELECT LP09_ID FROM LP09_TESTATAPRIORITA WHERE LP09_CODICE = 'X''Y'")));

    digita(u"TXT_TABPRIORITA", QStringLiteral("PRI1"));
    ASSERT_TRUE(gestione(FRMMG_AGENTI::Agenti).save());
    EXPECT_EQ(db().query(QStringLiteral("SELECT MG17_ID_LP09 FROM MG17_AGENTI WHERE MG17_AGENTE "
                                        "= 'A001'"))
                  .rows.first()
                  .first(),
              db::Value(idPriorita("PRI1")));
}

TEST_F(Provvigioni, LeavingTheParametricRegimeKeepsOrDropsThePriorityTable)
{
    db().run(QStringLiteral("UPDATE MG17_AGENTI SET MG17_REGIMEPROV = 15, MG17_ID_LP09 = %1 "
                            "WHERE MG17_AGENTE = 'A001'")
                 .arg(idPriorita("PRI2")));
    apri();
    for (const int regime : {5, 7, 11, 12}) {
        SCOPED_TRACE(regime);
        scegli(u"CBO_REGPROV", regime);
        EXPECT_EQ(campo(u"TXT_TABPRIORITA").text(), QStringLiteral("PRI2"));
        EXPECT_TRUE(abilitato(u"TXT_TABPRIORITA"));
        EXPECT_EQ(idNellaRiga(), db::Value(idPriorita("PRI2")));
    }
    scegli(u"CBO_REGPROV", 3);
    EXPECT_EQ(campo(u"TXT_TABPRIORITA").text(), QString());
    EXPECT_FALSE(abilitato(u"TXT_TABPRIORITA"));
    EXPECT_EQ(idNellaRiga(), db::Value(0));
    scegli(u"CBO_REGPROV", 15);
    EXPECT_TRUE(abilitato(u"TXT_TABPRIORITA"));
    EXPECT_EQ(campo(u"TXT_TABPRIORITA").text(), QString());
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

TEST_F(Provvigioni, TheFixedListKindDecidesTheListNumber)
{
    apri();
    scegli(u"CBO_REGPROV", 5);
    scegli(u"CBO_INDTIPOLISFIX", 1);
    EXPECT_TRUE(abilitato(u"TXT_NUMLISTFIX"));
    campo(u"TXT_NUMLISTFIX").setText(QStringLiteral("4"));
    ASSERT_TRUE(lista(u"CBO_INDTIPOLISFIX").setFocus());
    ASSERT_TRUE(controllo<controls::Control>(u"CBO_REGPROV").setFocus());
    EXPECT_EQ(campo(u"TXT_NUMLISTFIX").text(), QStringLiteral("4"));

    scegli(u"CBO_INDTIPOLISFIX", 6);
    EXPECT_FALSE(abilitato(u"TXT_NUMLISTFIX"));
    EXPECT_FALSE(richiesto(u"TXT_NUMLISTFIX"));
    EXPECT_EQ(campo(u"TXT_NUMLISTFIX").text(), QStringLiteral("4"));
    ASSERT_TRUE(controllo<controls::Control>(u"CBO_REGPROV").setFocus());
    EXPECT_EQ(campo(u"TXT_NUMLISTFIX").text(), QString());
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

TEST_F(Provvigioni, TheDiscountTableIsDecodedAndListedAmongSalesTables)
{
    db().run(QStringLiteral("INSERT INTO PA10_PROVSCANAG (PA10_DITTA_CG18, PA10_CODPROVSC, "
                            "PA10_DESCPROVSC, PA10_FLGVENACQ) VALUES (1, 'T1', 'Vendite', 0), "
                            "(1, 'T2', 'Acquisti', 1)"));
    apri();
    controllo<controls::CheckBox>(u"CHK_FLGADEGUAMSCMAG").setValue(1);
    digita(u"TXT_CODPROVSC", QStringLiteral("T1"));
    EXPECT_EQ(campo(u"TXT_DESPROVSC").text(), QStringLiteral("Vendite"));
    EXPECT_TRUE(istruzioni().contains(QStringLiteral(
        " SELECT  PA10_DESCPROVSC FROM PA10_PROVSCANAG WHERE PA10_DITTA_CG18 = 1 AND "
        "PA10_CODPROVSC = 'T1' AND PA10_FLGVENACQ = 0")));
    digita(u"TXT_CODPROVSC", QStringLiteral("T2"));
    EXPECT_FALSE(campo(u"TXT_CODPROVSC").isValid());
    digita(u"TXT_CODPROVSC", QStringLiteral("O'K"));
    EXPECT_TRUE(istruzioni().last().contains(u"PA10_CODPROVSC = 'O''K'"));

    controls::LookupArgs args;
    Q_EMIT campo(u"TXT_CODPROVSC").lookupRequested(args);
    EXPECT_EQ(args.sql, QStringLiteral(" SELECT  PA10_CODPROVSC, PA10_DESCPROVSC FROM "
                                       "PA10_PROVSCANAG WHERE PA10_DITTA_CG18 = 1 AND "
                                       "PA10_FLGVENACQ = 0"));
    EXPECT_EQ(args.columns,
              QStringList({QStringLiteral("Codice tabella"), QStringLiteral("Descrizione")}));
    EXPECT_EQ(args.title, QStringLiteral("Elenco tabelle provvigioni/sconti"));
    EXPECT_EQ(campo(u"TXT_CODPROVSC").lookupId(), QStringLiteral("Lkp_CodProvSconti"));
}

TEST_F(Provvigioni, TheAdjustmentSwitchesTheDiscountSettingsKeepingTheirValues)
{
    apri();
    auto& adegua = controllo<controls::CheckBox>(u"CHK_FLGADEGUAMSCMAG");
    adegua.setValue(1);
    campo(u"TXT_CODPROVSC").setText(QStringLiteral("T1"));
    for (const char* nome :
         {"TXT_CODPROVSC", "CBO_INDCALCSCMAG", "CBO_INDBASEIMPSC", "CBO_INDBASEIMPMAG"})
        EXPECT_TRUE(abilitato(QString::fromLatin1(nome))) << nome;
    adegua.setValue(0);
    for (const char* nome :
         {"TXT_CODPROVSC", "CBO_INDCALCSCMAG", "CBO_INDBASEIMPSC", "CBO_INDBASEIMPMAG"})
        EXPECT_FALSE(abilitato(QString::fromLatin1(nome))) << nome;
    EXPECT_EQ(campo(u"TXT_CODPROVSC").text(), QStringLiteral("T1"));
}

TEST_F(Provvigioni, TheDiscountTablesManagementRunsWithTheHostHandedToItAndBack)
{
    std::optional<TabProvvDiProva::Visto> visto;
    bool fallisce = false;
    apri();
    host->modules().add(ModuloTabProvv, [&] {
        return std::make_unique<TabProvvDiProva>(*modulo, visto, fallisce);
    });
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
    fallisce = true;
    const qsizetype prima = prompts.history().size();
    campo(u"TXT_CODPROVSC").pressManagementKey();
    EXPECT_EQ(prompts.history().size(), prima);
    EXPECT_TRUE(modulo->IsActive());
    EXPECT_EQ(host->activeModule(), modulo.get());
}

TEST_F(Provvigioni, ANegativeMinimumAmountBecomesZero)
{
    apri();
    for (const auto& [digitato, atteso] :
         {std::pair{"-5", "0"}, std::pair{"0", "0"}, std::pair{"12.5", "12.5"}}) {
        SCOPED_TRACE(digitato);
        ASSERT_TRUE(campo(u"TXT_IMPMINFATT").setFocus());
        campo(u"TXT_IMPMINFATT").setText(QString::fromLatin1(digitato));
        ASSERT_TRUE(controllo<controls::Control>(u"CBO_REGPROV").setFocus());
        EXPECT_EQ(campo(u"TXT_IMPMINFATT").text(), QString::fromLatin1(atteso));
    }
}

TEST_F(Provvigioni, TabOnTheLastFieldMarksTheRowChangedAndMovesOn)
{
    apri();
    auto& prefStampa = controllo<controls::Control>(u"CBO_INDPREFSTDOC");
    ASSERT_TRUE(prefStampa.setFocus());
    frame::GestAnagrafica& agente = gestione(FRMMG_AGENTI::Agenti);
    ASSERT_FALSE(agente.secondChangeFlag());

    EXPECT_EQ(prefStampa.pressKey(controls::Key::Tab, controls::KeyModifier::Shift),
              controls::Key::Tab);
    EXPECT_FALSE(agente.secondChangeFlag());

    EXPECT_EQ(prefStampa.pressKey(controls::Key::Enter), 0);
    EXPECT_TRUE(agente.secondChangeFlag());
}

} // namespace

} // namespace tarvello::test
