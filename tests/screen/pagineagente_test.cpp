#include "platform/controls/checkbox.h"
#include "platform/controls/combobox.h"
#include "platform/controls/connectionpool.h"
#include "platform/controls/field.h"
#include "platform/controls/gridnavigator.h"
#include "platform/controls/keycodes.h"
#include "platform/controls/navigatorbar.h"
#include "schermatafixture.h"
#include "src/detail/dettagliagente.h"
#include "src/detail/tentatavendita.h"

namespace tarvello::test {

namespace {

using agenti::FRMMG_AGENTI;
using controls::Field;
namespace Key = controls::Key;
namespace KeyModifier = controls::KeyModifier;
namespace FrameStatus = frame::FrameStatus;

constexpr int StileAvviso = 48;

// The partners, maturation-days and van-sales pages of an agent of company 1.
class PagineAgenteTest : public SchermataTest {
protected:
    void SetUp() override
    {
        SchermataTest::SetUp();
        agente = inserisciAgente(QStringLiteral("A001"));
    }

    void socio(int codice, const QString& nome)
    {
        db().run(QStringLiteral("INSERT INTO MG18_AGENTISOCI (MG18_DITTA_CG18, MG18_IDAGENTE_MG17, "
                                "MG18_CODSOCIO, MG18_NOMECOGN, MG18_PERQUOTA) VALUES (1, ?, ?, ?, "
                                "50)"),
                 {agente, codice, nome});
    }

    // Opens the screen on the agent with its details, then forgets the statements and prompts
    // so far.
    void apriSuAgente()
    {
        apri();
        const db::RecordsetPtr agenti = gestione(FRMMG_AGENTI::Agenti).recordset();
        agenti->moveFirst();
        ASSERT_TRUE(agenti->find(QStringLiteral("MG17_AGENTE = 'A001'")));
        schermata().dettagli().ShowChild();
        schermata().Gcon_Connect()->log().clear();
        giaMostrati = prompts.history().size();
    }

    Field& campo(QStringView nome) const { return controllo<Field>(nome); }
    controls::GridNavigator& navigatoreSoci() const
    {
        return controllo<controls::GridNavigator>(u"GRIDNAV_AGENTISOCI");
    }
    // The buttons a navigator was pressed with, in order.
    QStringList& pulsantiDi(controls::Navigator& navigatore)
    {
        QObject::connect(&navigatore, &controls::Navigator::buttonClicked,
                         [this](const QString& chiave) { premuti << chiave; });
        return premuti;
    }

    // The prompts shown since the screen was opened on the agent.
    QList<services::PromptRecord> mostrati() const { return prompts.history().mid(giaMostrati); }

    controls::ConnectionPool connessioni;
    qsizetype giaMostrati = 0;
    qint64 agente = 0;
    QStringList premuti;
};

TEST_F(PagineAgenteTest, ATaxCodeIsUpperCasedAndAWrongOneWarnsWithoutStoppingTheRow)
{
    apriSuAgente();
    frame::GestAnagrafica& soci = gestione(FRMMG_AGENTI::Soci);
    schermata().SelezionaTab(1);
    ASSERT_TRUE(soci.addNew());
    campo(u"TXT_CODSOCIO").setText(QStringLiteral("1"));
    campo(u"TXT_NOMECOGN").setText(QStringLiteral("ROSSI MARIO"));
    campo(u"TXT_PERQUOTA").setText(QStringLiteral("100"));
    Field& codice = campo(u"TXT_CODFISOCIO");

    ASSERT_TRUE(codice.setFocus());
    codice.typeText(QStringLiteral("rssmra85t10a562s"));
    ASSERT_TRUE(campo(u"TXT_PERQUOTA").setFocus());
    EXPECT_EQ(codice.text(), QStringLiteral("RSSMRA85T10A562S"));
    EXPECT_TRUE(mostrati().isEmpty());
    EXPECT_TRUE(codice.isAccepted());

    ASSERT_TRUE(codice.setFocus());
    codice.typeText(QStringLiteral("rssmra85t10a562t"));
    ASSERT_TRUE(campo(u"TXT_PERQUOTA").setFocus()) << "the validation is not cancelled";
    ASSERT_EQ(mostrati().size(), 1);
    EXPECT_EQ(mostrati().first().text, QStringLiteral("Formato codice fiscale errato !!!"));
    EXPECT_EQ(mostrati().first().title, QStringLiteral("Errore"));
    EXPECT_EQ(mostrati().first().style, StileAvviso);
    EXPECT_EQ(codice.text(), QStringLiteral("RSSMRA85T10A562T"));
    EXPECT_FALSE(codice.isAccepted());

    ASSERT_TRUE(soci.save());
    EXPECT_EQ(soci.status(), FrameStatus::Browse);
    EXPECT_EQ(soci.recordset()->value(u"MG18_CODFISOCIO").toString(),
              QStringLiteral("RSSMRA85T10A562T"));
}

TEST_F(PagineAgenteTest, NoTaxCodeIsCheckedInSearchEntryOrWhenEmpty)
{
    socio(1, QStringLiteral("ROSSI MARIO"));
    apriSuAgente();
    frame::GestAnagrafica& soci = gestione(FRMMG_AGENTI::Soci);
    schermata().SelezionaTab(1);
    Field& codice = campo(u"TXT_CODFISOCIO");

    controls::CancelArgs args;
    codice.setText(QString());
    Q_EMIT codice.validate(args);
    EXPECT_TRUE(mostrati().isEmpty());

    soci.setStatus(FrameStatus::Search);
    codice.setText(QStringLiteral("abc"));
    Q_EMIT codice.validate(args);
    EXPECT_EQ(codice.text(), QStringLiteral("ABC")) << "upper case in every status";
    EXPECT_TRUE(mostrati().isEmpty());
    EXPECT_TRUE(codice.isAccepted());
}

TEST_F(PagineAgenteTest, TheExitKeyOnTheLastPartnerFieldConfirmsOrStartsAnotherRow)
{
    socio(1, QStringLiteral("ROSSI MARIO"));
    apriSuAgente();
    frame::GestAnagrafica& soci = gestione(FRMMG_AGENTI::Soci);
    QStringList& pulsanti = pulsantiDi(navigatoreSoci());
    Field& ultimo = campo(u"TXT_DATACESS");

    ASSERT_EQ(soci.status(), FrameStatus::Browse);
    EXPECT_EQ(ultimo.pressKey(Key::Enter), Key::None);
    EXPECT_EQ(pulsanti, QStringList{controls::NavigatorKey::Confirm});

    pulsanti.clear();
    ASSERT_TRUE(soci.addNew());
    campo(u"TXT_CODSOCIO").setText(QStringLiteral("2"));
    campo(u"TXT_NOMECOGN").setText(QStringLiteral("BIANCHI LUCA"));
    campo(u"TXT_PERQUOTA").setText(QStringLiteral("10"));
    EXPECT_EQ(ultimo.pressKey(Key::Tab), Key::None);
    EXPECT_EQ(pulsanti, QStringList{controls::NavigatorKey::New});
    EXPECT_EQ(soci.recordset()->recordCount(), 3) << "the row entered stays, a new one follows";
    EXPECT_EQ(soci.status(), FrameStatus::New);

    // With a modifier held, or in search entry, the key is left alone.
    pulsanti.clear();
    EXPECT_EQ(ultimo.pressKey(Key::Enter, KeyModifier::Shift), Key::Enter);
    EXPECT_EQ(ultimo.pressKey(Key::Tab, KeyModifier::Ctrl), Key::Tab);
    EXPECT_EQ(ultimo.pressKey(Key::F1), Key::F1);
    soci.setStatus(FrameStatus::Search);
    EXPECT_EQ(ultimo.pressKey(Key::Enter), Key::Enter);
    EXPECT_TRUE(pulsanti.isEmpty());
}

TEST_F(PagineAgenteTest, TheExitKeyOnTheMaturationDaysFollowsTheFrameStatus)
{
    apriSuAgente();
    frame::GestAnagrafica& maturazione = gestione(FRMMG_AGENTI::Maturazione);
    QStringList& pulsanti = pulsantiDi(controllo<controls::GridNavigator>(u"GRIDNAV_AGENTIMAT"));
    Field& giorni = campo(u"TXT_GGMAT");

    ASSERT_TRUE(maturazione.addNew());
    controllo<controls::ComboBox>(u"CBO_TIPOEFF").setValue(1);
    giorni.setText(QStringLiteral("30"));
    EXPECT_EQ(giorni.pressKey(Key::Enter), Key::None);
    ASSERT_EQ(pulsanti, QStringList{controls::NavigatorKey::New});
    EXPECT_EQ(maturazione.recordset()->recordCount(), 2);

    pulsanti.clear();
    ASSERT_TRUE(maturazione.undo());
    ASSERT_TRUE(maturazione.moveFirst());
    ASSERT_EQ(maturazione.status(), FrameStatus::Browse);
    EXPECT_EQ(giorni.pressKey(Key::Enter), Key::None);
    EXPECT_EQ(pulsanti, QStringList{controls::NavigatorKey::Confirm});
    pulsanti.clear();
    EXPECT_EQ(giorni.pressKey(Key::Enter, KeyModifier::Alt), Key::Enter);
    EXPECT_TRUE(pulsanti.isEmpty());
}

// A key typed into a new row that another row already has brings that row up, so the same
// partner or payment type cannot be entered twice.
TEST_F(PagineAgenteTest, AKeyAlreadyTakenBringsItsRowUpOnlyWhileANewRowIsEntered)
{
    socio(4, QStringLiteral("ROSSI MARIO"));
    apriSuAgente();
    frame::GestAnagrafica& soci = gestione(FRMMG_AGENTI::Soci);
    ASSERT_TRUE(soci.addNew());
    campo(u"TXT_CODSOCIO").setText(QStringLiteral("4"));
    controls::CancelArgs args;
    Q_EMIT campo(u"TXT_CODSOCIO").validate(args);
    EXPECT_EQ(soci.status(), FrameStatus::Browse);
    EXPECT_EQ(campo(u"TXT_NOMECOGN").text(), QStringLiteral("ROSSI MARIO"));
    EXPECT_EQ(soci.recordset()->recordCount(), 1);

    ASSERT_TRUE(soci.addNew());
    campo(u"TXT_CODSOCIO").setText(QStringLiteral("5"));
    Q_EMIT campo(u"TXT_CODSOCIO").validate(args);
    EXPECT_EQ(soci.status(), FrameStatus::New) << "a free key stays on the new row";

    db().run(QStringLiteral("INSERT INTO MG16_AGENTIMAT (MG16_DITTA_CG18, MG16_IDAGENTE_MG17, "
                            "MG16_TIPOEFF, MG16_GGMATUR) VALUES (1, ?, 2, 60)"),
             {agente});
    schermata().dettagli().ShowChild();
    frame::GestAnagrafica& maturazione = gestione(FRMMG_AGENTI::Maturazione);
    auto& tipo = controllo<controls::ComboBox>(u"CBO_TIPOEFF");
    ASSERT_TRUE(maturazione.addNew());
    tipo.setValue(2);
    Q_EMIT tipo.validate(args);
    EXPECT_EQ(maturazione.status(), FrameStatus::Browse);
    EXPECT_EQ(campo(u"TXT_GGMAT").text(), QStringLiteral("60"));
}

TEST_F(PagineAgenteTest, TheExitKeyOnTheLastVanSalesFieldGoesBackOnTheInnerNavigator)
{
    apriSuAgente();
    QStringList& pulsanti = pulsantiDi(controllo<controls::NavigatorBar>(u"INTERNAV"));
    auto& casella = controllo<controls::CheckBox>(u"CHK_TVINDXH");

    EXPECT_EQ(casella.pressKey(Key::Tab, KeyModifier::Shift), Key::Tab);
    EXPECT_TRUE(pulsanti.isEmpty());
    EXPECT_EQ(casella.pressKey(Key::Enter), Key::None);
    EXPECT_EQ(pulsanti, QStringList{controls::NavigatorKey::Back});
}

TEST_F(PagineAgenteTest, DepotAndRegisterAreDecodedInTheCompanyAndListedAsDescribed)
{
    db().run(QStringLiteral("INSERT INTO MG58_DEPOSITI (MG58_DITTA_CG18, MG58_CODDEP, "
                            "MG58_DESCRDEP) VALUES (1, '02', 'SECONDO'), (1, '01', 'PRIMO'), "
                            "(2, '03', 'ALTRA DITTA')"));
    db().run(QStringLiteral("INSERT INTO CG68_NUMERDESC (CG68_DITTA_CG18, CG68_SEZIONALE, "
                            "CG68_DESCSEZ) VALUES (1, 'B', 'BOLLE'), (1, 'A', 'FATTURE')"));
    apriSuAgente();
    Field& deposito = campo(u"TXT_TVDEP");

    deposito.setText(QStringLiteral("02"));
    EXPECT_EQ(deposito.decode(), Field::DecodeOutcome::Found);
    EXPECT_EQ(controllo<controls::DataControl>(u"TXT_DESCDEP").value().toString(),
              QStringLiteral("SECONDO"));
    deposito.setText(QStringLiteral("03"));
    EXPECT_EQ(deposito.decode(), Field::DecodeOutcome::NotFound) << "another company's depot";
    EXPECT_FALSE(deposito.isValid());
    // No depot is no mistake: nothing runs and the description goes.
    deposito.setText(QString());
    EXPECT_EQ(deposito.decode(), Field::DecodeOutcome::NotRun);
    EXPECT_TRUE(deposito.isValid());
    EXPECT_TRUE(controllo<controls::DataControl>(u"TXT_DESCDEP").isBlank());

    Field& sezionale = campo(u"TXT_TVSEZ");
    sezionale.setText(QStringLiteral("A'"));
    EXPECT_EQ(sezionale.decode(), Field::DecodeOutcome::NotFound) << "the quote stays quoted";
    sezionale.setText(QStringLiteral("A"));
    EXPECT_EQ(sezionale.decode(), Field::DecodeOutcome::Found);
    EXPECT_EQ(controllo<controls::DataControl>(u"TXT_DESCSEZ").value().toString(),
              QStringLiteral("FATTURE"));

    const QStringList attese{
        QStringLiteral(" SELECT  MG58_DESCRDEP FROM MG58_DEPOSITI WHERE MG58_DITTA_CG18 = 1 AND "
                       "MG58_CODDEP = '02'"),
        QStringLiteral(" SELECT  MG58_DESCRDEP FROM MG58_DEPOSITI WHERE MG58_DITTA_CG18 = 1 AND "
                       "MG58_CODDEP = '03'"),
        QStringLiteral("SELECT * FROM CG68_NUMERDESC WHERE CG68_DITTA_CG18 = 1 AND "
                       "CG68_SEZIONALE = 'A'''"),
        QStringLiteral("SELECT * FROM CG68_NUMERDESC WHERE CG68_DITTA_CG18 = 1 AND "
                       "CG68_SEZIONALE = 'A'"),
    };
    EXPECT_EQ(istruzioni(), attese);

    controls::LookupArgs depositi;
    depositi.cancel = true;
    Q_EMIT deposito.lookupRequested(depositi);
    EXPECT_FALSE(depositi.cancel);
    EXPECT_EQ(depositi.sql,
              QStringLiteral(" SELECT  MG58_CODDEP, MG58_DESCRDEP, MG58_INDIDEP, MG58_CAPDEP, "
                             "MG58_LOCDEP, MG58_PROVDEP, MG58_TELNUMDEP, MG58_FAXNUMDEP FROM "
                             "MG58_DEPOSITI WHERE MG58_DITTA_CG18 = 1 ORDER BY MG58_CODDEP"));
    EXPECT_EQ(depositi.columns.size(), 8);
    EXPECT_EQ(depositi.columns.value(4), QStringLiteral("Localita'"));
    EXPECT_EQ(depositi.title, QStringLiteral("Elenco depositi"));
    EXPECT_EQ(depositi.connectionString, schermata().Gstr_Connect());
    EXPECT_EQ(deposito.lookupId(), QStringLiteral("Lkp_Depositi"));

    controls::LookupArgs sezionali;
    Q_EMIT sezionale.lookupRequested(sezionali);
    EXPECT_EQ(sezionali.sql, QStringLiteral("SELECT CG68_SEZIONALE, CG68_DESCSEZ FROM "
                                            "CG68_NUMERDESC WHERE CG68_DITTA_CG18 = 1"));
    EXPECT_EQ(sezionali.columns,
              (QStringList{QStringLiteral("Codice"), QStringLiteral("Descrizione")}));
    EXPECT_EQ(sezionali.title, QStringLiteral("Elenco Sezionali"));
    EXPECT_EQ(sezionale.lookupId(), QStringLiteral("Lkp_Sezionali"));
}

TEST_F(PagineAgenteTest, TheDepotAndRegisterManagementsHandTheirChoiceBackAndTheHostToTheScreen)
{
    db().run(QStringLiteral("INSERT INTO MG58_DEPOSITI (MG58_DITTA_CG18, MG58_CODDEP, "
                            "MG58_DESCRDEP) VALUES (1, '01', 'PRIMO'), (1, '02', 'SECONDO')"));
    db().run(QStringLiteral("INSERT INTO CG68_NUMERDESC (CG68_DITTA_CG18, CG68_SEZIONALE, "
                            "CG68_DESCSEZ) VALUES (1, 'A', 'FATTURE')"));
    apriSuAgente();
    Field& deposito = campo(u"TXT_TVDEP");
    deposito.setText(QStringLiteral("01"));
    // Another module was the host's active one while the management was open.
    host->setActiveModule(nullptr);
    modulo->setIsActive(false);

    prompts.queue(services::PromptAnswer::codes({QStringLiteral("02")}));
    ASSERT_TRUE(deposito.pressManagementKey());

    ASSERT_EQ(mostrati().size(), 1);
    EXPECT_EQ(mostrati().first().kind, services::PromptKind::Management);
    EXPECT_EQ(mostrati().first().text, QStringLiteral("Depositi"));
    EXPECT_EQ(mostrati().first().details, QStringLiteral("01"));
    EXPECT_EQ(deposito.text(), QStringLiteral("02"));
    EXPECT_EQ(controllo<controls::DataControl>(u"TXT_DESCDEP").value().toString(),
              QStringLiteral("SECONDO"));
    EXPECT_TRUE(modulo->IsActive());
    EXPECT_EQ(host->activeModule(), modulo.get());
    EXPECT_EQ(schermata().dettagli().tentataVendita().Gcls_ConnectMagazzino(), nullptr);

    Field& sezionale = campo(u"TXT_TVSEZ");
    prompts.queue(services::PromptAnswer::codes({QStringLiteral("A")}));
    ASSERT_TRUE(sezionale.pressManagementKey());
    ASSERT_EQ(mostrati().size(), 2);
    EXPECT_EQ(mostrati().last().text, QStringLiteral("Sezionali"));
    EXPECT_EQ(sezionale.text(), QStringLiteral("A"));
    EXPECT_EQ(controllo<controls::DataControl>(u"TXT_DESCSEZ").value().toString(),
              QStringLiteral("FATTURE"));
    EXPECT_EQ(schermata().dettagli().tentataVendita().Gcls_Sezionali(), nullptr);

    // Closed without a choice, the management leaves the field as it was.
    ASSERT_TRUE(sezionale.pressManagementKey());
    EXPECT_EQ(sezionale.text(), QStringLiteral("A"));
}

} // namespace

} // namespace tarvello::test
