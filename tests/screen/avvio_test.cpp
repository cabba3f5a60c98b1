#include "platform/controls/archivelinkfield.h"
#include "platform/controls/combobox.h"
#include "platform/controls/datacontrol.h"
#include "platform/controls/field.h"
#include "platform/controls/grid.h"
#include "platform/controls/gridnavigator.h"
#include "platform/controls/menubutton.h"
#include "platform/controls/navigatorbar.h"
#include "schermatafixture.h"
#include "src/host/errorlog.h"
#include "src/tree/alberoagenti.h"

namespace tarvello::test {

namespace {

using agenti::FRMMG_AGENTI;

// The order matters: a later statement that read a recordset of an earlier one would fail.
const QStringList istruzioniApertura{
    QStringLiteral("SELECT  * FROM MG17_AGENTI WHERE MG17_DITTA_CG18 = 1"),
    QStringLiteral("SELECT ROW_NUMBER() OVER (ORDER BY MG18_DITTA_CG18) AS ID, * FROM "
                   "MG18_AGENTISOCI WHERE 1 = 0"),
    QStringLiteral("SELECT ROW_NUMBER() OVER (ORDER BY MG16_DITTA_CG18) AS ID, * FROM "
                   "MG16_AGENTIMAT WHERE 1 = 0"),
    QStringLiteral("SELECT * FROM MG34_AGENTITV WHERE 1 = 0"),
    QStringLiteral("SELECT ROW_NUMBER() OVER (ORDER BY MG1I_DITTA_CG18) AS ID, * FROM "
                   "MG1I_DETTAGLIOGIRI WITH (NOLOCK)  WHERE MG1I_DITTA_CG18 = 1"),
    // Once every frame is bound, the first agent is shown again for the screen's answers:
    // its registry name, then its details and its routes. The agents come in code order.
    QStringLiteral("SELECT CG16_RAGSOANAG FROM CG16_ANAGGEN WHERE CG16_CODICE = 102"),
    QStringLiteral("SELECT  ROW_NUMBER() OVER (ORDER BY MG18_DITTA_CG18) AS ID, * FROM "
                   "MG18_AGENTISOCI WHERE MG18_DITTA_CG18 = 1 AND MG18_IDAGENTE_MG17 = 2"),
    QStringLiteral("SELECT  ROW_NUMBER() OVER (ORDER BY MG16_DITTA_CG18) AS ID, * FROM "
                   "MG16_AGENTIMAT WHERE MG16_DITTA_CG18 = 1 AND MG16_IDAGENTE_MG17 = 2"),
    QStringLiteral("SELECT  * FROM MG34_AGENTITV WHERE MG34_DITTA_CG18 = 1 AND "
                   "MG34_IDAGENTE_MG17 = 2"),
    QStringLiteral("SELECT ROW_NUMBER() OVER (ORDER BY MG1I_DITTA_CG18) AS ID, * FROM "
                   "MG1I_DETTAGLIOGIRI WITH (NOLOCK)  WHERE MG1I_DITTA_CG18 = 1 AND "
                   "MG1I_IDAGENTE_MG17 = 2"),
    QStringLiteral("SELECT DISTINCT MG1H_GIRO, MG1H_DESCRIZIONE FROM MG1I_DETTAGLIOGIRI WITH "
                   "(NOLOCK)  INNER JOIN MG1H_GIRI WITH (NOLOCK)     ON  MG1I_DITTA_CG18 = "
                   "MG1H_DITTA_CG18     AND MG1H_GIRO = MG1I_GIRO_MG1H  WHERE MG1I_DITTA_CG18 = 1 "
                   "  AND MG1I_IDAGENTE_MG17 = 2"),
    QStringLiteral("SELECT ROW_NUMBER() OVER (ORDER BY MG1I_DITTA_CG18) AS ID, * FROM "
                   "MG1I_DETTAGLIOGIRI WITH (NOLOCK)  WHERE MG1I_DITTA_CG18 = 1 AND "
                   "MG1I_IDAGENTE_MG17 = 2 AND MG1I_GIRO_MG1H = ''"),
    // The priority table's code, from the id the agent has (none).
    QStringLiteral("SELECT LP09_CODICE FROM LP09_TESTATAPRIORITA WHERE LP09_ID = 0"),
    QStringLiteral("IF OBJECT_ID('TEMPDB.DBO.#TAB_TREEVIEW') IS NOT NULL DROP TABLE #TAB_TREEVIEW"),
    QStringLiteral(" SELECT      MG17_AGENTE       ,MG17_IDAGENTE       ,CG16_RAGSOANAG      "
                   ",MG17_IDAGERIF_MG17      ,MG17_INDTIPOAGE  INTO      #TAB_TREEVIEW  FROM  "
                   "     MG17_AGENTI WITH (NOLOCK) INNER JOIN       CG16_ANAGGEN WITH (NOLOCK) "
                   "ON       CG16_CODICE = MG17_ANAGEN_CG16  WHERE       MG17_DITTA_CG18 =  1  "
                   "   ORDER BY MG17_AGENTE"),
    QStringLiteral("SELECT RTRIM(MG17_AGENTE) + ' - ' + CG16_RAGSOANAG AS AGENTE, MG17_AGENTE, "
                   "CG16_RAGSOANAG, MG17_IDAGENTE, MG17_IDAGERIF_MG17, MG17_INDTIPOAGE FROM "
                   "#TAB_TREEVIEW "),
};

using AvvioSchermata = SchermataTest;

TEST_F(AvvioSchermata, OpensOnTheCompanysAgentsWithTheStartUpStatementsInOrder)
{
    inserisciAgente(QStringLiteral("A002"));
    inserisciAgente(QStringLiteral("A001"));
    inserisciAgente(QStringLiteral("B001"), dittaSemplice);
    apri();

    EXPECT_EQ(istruzioni(), istruzioniApertura);
    EXPECT_TRUE(prompts.history().isEmpty()) << prompts.history().first().text.toStdString();
    EXPECT_EQ(gestione(FRMMG_AGENTI::Agenti).recordset()->recordCount(), 2);
    EXPECT_EQ(gestione(FRMMG_AGENTI::Agenti).recordset()->value(u"MG17_AGENTE").toString(),
              QStringLiteral("A001"));
    const db::RecordsetPtr albero = schermata().albero().Grst_AlberoAgenti();
    ASSERT_TRUE(albero);
    EXPECT_EQ(albero->recordCount(), 2);
    EXPECT_EQ(albero->value(u"AGENTE").toString(), QStringLiteral("A001 - AGENTE A001"));
}

TEST_F(AvvioSchermata, PublishesItsOwnConnectionAndTheAgentFrameToTheHost)
{
    agenti::CLSMG_AGENTI& aperto = apri();

    ASSERT_NE(aperto.Connection(), nullptr);
    EXPECT_NE(aperto.Connection(), &db());
    EXPECT_EQ(aperto.Connection(), schermata().Gcon_Connect());
    EXPECT_EQ(aperto.Connection()->connectionString(), m_database->connectionString());
    EXPECT_EQ(aperto.ActiveFrame(), &gestione(FRMMG_AGENTI::Agenti));
    EXPECT_TRUE(toolbar->isRegistered(&aperto));
    EXPECT_EQ(host->activeModule(), &aperto);
    EXPECT_EQ(toolbar->scriptLog().lines().size(), 1);
    ASSERT_TRUE(host->application().has_value());
    EXPECT_EQ(host->application()->title, QStringLiteral("Anagrafica agenti"));
}

// The host finds the frames as children of the screen, by their names.
TEST_F(AvvioSchermata, BindsTheFiveRecordFramesAsTheHostExpectsThem)
{
    apri();
    FRMMG_AGENTI& aperta = schermata();
    for (int numero = FRMMG_AGENTI::Agenti; numero <= FRMMG_AGENTI::DettaglioGiri; ++numero) {
        const QString nome = QStringLiteral("FME_GestAnagrafica%1").arg(numero);
        EXPECT_EQ(aperta.findChild<frame::GestAnagrafica*>(nome), &gestione(numero)) << numero;
        EXPECT_EQ(gestione(numero).recordset(), aperta.Grst_GestAnagrafica(numero)) << numero;
        EXPECT_EQ(gestione(numero).sql(), aperta.Gstr_GestAnagrafica(numero)) << numero;
        EXPECT_EQ(gestione(numero).writeMode() == frame::GestAnagrafica::WriteMode::AtOnce,
                  numero == FRMMG_AGENTI::Agenti)
            << numero;
    }
    frame::GestAnagrafica& agenti = gestione(FRMMG_AGENTI::Agenti);
    EXPECT_EQ(agenti.description(), QStringLiteral("la gestione anagrafica agenti"));
    EXPECT_EQ(agenti.keyField(), &controllo<controls::DataControl>(u"TXT_AGENTE"));
    EXPECT_EQ(agenti.navigator(), &controllo<controls::Navigator>(u"INTERNAV"));
    EXPECT_EQ(agenti.grid(), nullptr);
    EXPECT_EQ(agenti.detailFrames(),
              (QList<frame::GestAnagrafica*>{&gestione(FRMMG_AGENTI::Soci),
                                             &gestione(FRMMG_AGENTI::Maturazione),
                                             &gestione(FRMMG_AGENTI::TentataVendita),
                                             &gestione(FRMMG_AGENTI::DettaglioGiri)}));
    EXPECT_EQ(gestione(FRMMG_AGENTI::Soci).keyField(),
              &controllo<controls::DataControl>(u"TXT_CODSOCIO"));
    EXPECT_EQ(gestione(FRMMG_AGENTI::Soci).grid(), &controllo<controls::Grid>(u"GRID_AGENTISOCI"));
    EXPECT_EQ(gestione(FRMMG_AGENTI::Maturazione).keyField(),
              &controllo<controls::DataControl>(u"CBO_TIPOEFF"));
    EXPECT_EQ(gestione(FRMMG_AGENTI::TentataVendita).navigator(), nullptr);
    EXPECT_EQ(gestione(FRMMG_AGENTI::DettaglioGiri).grid(),
              &controllo<controls::Grid>(u"GRD_DETTAGLIOGIRI"));
    EXPECT_EQ(gestione(FRMMG_AGENTI::DettaglioGiri).status(), frame::FrameStatus::New);
    EXPECT_EQ(controllo<controls::GridNavigator>(u"GRIDNAV_AGENTISOCI").grid(),
              &controllo<controls::Grid>(u"GRID_AGENTISOCI"));
    EXPECT_EQ(controllo<controls::GridNavigator>(u"GRIDNAV_AGENTIMAT").grid(),
              &controllo<controls::Grid>(u"GRID_AGENTIMAT"));
}

// A misspelt column in the layout would leave a field silently unbound.
TEST_F(AvvioSchermata, EveryRegisteredFieldIsBoundToAColumnOfItsFrame)
{
    apri();
    int registrati = 0;
    for (int numero = FRMMG_AGENTI::Agenti; numero <= FRMMG_AGENTI::DettaglioGiri; ++numero) {
        const db::RecordsetPtr righe = gestione(numero).recordset();
        for (const controls::DataControl* campo : gestione(numero).fields()) {
            ++registrati;
            if (!campo->dataField().isEmpty()) {
                EXPECT_TRUE(righe->hasField(campo->dataField()))
                    << campo->name().toStdString() << " " << campo->dataField().toStdString();
            }
        }
    }
    EXPECT_EQ(registrati, 45 + 7 + 2 + 5 + 3);
    const QList<controls::DataControl*> agenti = gestione(FRMMG_AGENTI::Agenti).fields();
    EXPECT_EQ(agenti.first()->name(), QStringLiteral("TXT_AGENTE"));
    EXPECT_EQ(agenti.last()->name(), QStringLiteral("TXT_ARCHELESOS1"));
    EXPECT_EQ(controllo<controls::ArchiveLinkField>(u"TXT_ARCHELESOS1").archiveKind(), 9);
}

TEST_F(AvvioSchermata, OffersDivisionalDataOnlyForACompanyThatKeepsThem)
{
    apri({}, dittaDivisionale);
    QStringList chiavi;
    for (const controls::MenuButton::Item& voce :
         controllo<controls::MenuButton>(u"CMD_GESTCOLL").items())
        chiavi << voce.key;
    EXPECT_EQ(chiavi, (QStringList{QStringLiteral("key_anagrafica"),
                                   QStringLiteral("Key_DatiDivisionali")}));
    EXPECT_EQ(
        controllo<controls::MenuButton>(u"CMD_GESTCOLL").item(u"Key_DatiDivisionali")->caption,
        QStringLiteral("Dati divisionali"));

    schermata().unload();
    apri({}, dittaSemplice);
    const QList<controls::MenuButton::Item>& voci =
        controllo<controls::MenuButton>(u"CMD_GESTCOLL").items();
    ASSERT_EQ(voci.size(), 1);
    EXPECT_EQ(voci.first().key, QStringLiteral("key_anagrafica"));
    EXPECT_EQ(voci.first().caption, QStringLiteral("Varia dati anagrafici"));
}

TEST_F(AvvioSchermata, GivesTheRegistryNameFieldItsExtraMenuItem)
{
    apri();
    const QList<controls::Field::MenuItem>& voci =
        controllo<controls::Field>(u"TXT_RAGSOANAG").menuItems();
    ASSERT_EQ(voci.size(), 1);
    EXPECT_EQ(voci.first().key, QStringLiteral("1"));
    EXPECT_EQ(voci.first().caption, QStringLiteral("Solo anagrafiche generali"));
    EXPECT_TRUE(voci.first().enabled);
}

TEST_F(AvvioSchermata, ConfiguresTheManagerFieldsToFindAgentsOfTheCompanyById)
{
    agenti::CLSMG_AGENTI& aperto = apri({}, dittaSemplice);
    const agenti::ImpostazioniCampoId capoArea = schermata().impostazioniCampoId(u"TXT_CAPOAREA");
    EXPECT_EQ(capoArea.modulo, &aperto);
    EXPECT_EQ(capoArea.ditta, dittaSemplice);
    EXPECT_TRUE(capoArea.filtroDitta);
    EXPECT_EQ(capoArea.colonnaLegata, QStringLiteral("MG17_IDCAPOAREA_MG17"));
    EXPECT_EQ(capoArea.colonnaId, QStringLiteral("MG17_IDAGENTE"));
    EXPECT_EQ(schermata().impostazioniCampoId(u"TXT_CAPOZONA").colonnaLegata,
              QStringLiteral("MG17_IDCAPOZONA_MG17"));

    schermata().unload();
    EXPECT_EQ(schermata().impostazioniCampoId(u"TXT_CAPOAREA").modulo, nullptr);
}

// The module error of a failed start-up is answered 1: the screen must go.
TEST_F(AvvioSchermata, UnloadsWhenTheStartUpFailsAndTheErrorIsAnsweredAbandon)
{
    host->setConnectionString(QStringLiteral("DRIVER={NoSuchDriver};SERVER=nowhere"));
    rispondi(host::Ok);
    apri();

    ASSERT_FALSE(prompts.history().isEmpty());
    EXPECT_FALSE(schermata().isLoaded());
    EXPECT_EQ(modulo->ActiveDll(), nullptr);
}

} // namespace
} // namespace tarvello::test
