#include "platform/controls/connectionpool.h"
#include "platform/controls/field.h"
#include "platform/controls/navigatorbar.h"
#include "platform/frame/frameeventargs.h"
#include "schermatafixture.h"
#include "src/detail/clientigiro.h"
#include "src/detail/controllorigagiro.h"
#include "src/detail/dettagliagente.h"
#include "src/detail/girivisite.h"
#include "src/detail/ordinegiro.h"
#include "src/detail/righegiro.h"
#include "src/host/errorlog.h"
#include "src/host/warehouseconnection.h"

namespace tarvello::test {

namespace {

using agenti::FRMMG_AGENTI;

// The routes page of one agent (A001), with customers 10 to 13 of the company linked to it.
class GiriTest : public SchermataTest {
protected:
    void SetUp() override
    {
        SchermataTest::SetUp();
        agente = inserisciAgente(QStringLiteral("A001"));
        altro = inserisciAgente(QStringLiteral("A002"));
        giro(QStringLiteral("G01"), QStringLiteral("Giro G01"));
        giro(QStringLiteral("G02"), QStringLiteral("Giro G02"));
        for (int cliente = 10; cliente <= 13; ++cliente) {
            db().run(QStringLiteral("INSERT INTO CG16_ANAGGEN (CG16_CODICE, CG16_RAGSOANAG) "
                                    "VALUES (?, ?)"),
                     {5000 + cliente, QStringLiteral("CLIENTE %1").arg(cliente)});
            db().run(QStringLiteral("INSERT INTO CG44_CLIFOR (CG44_DITTA_CG18, CG44_TIPOCF, "
                                    "CG44_CLIFOR, CG44_CODICE_CG16) VALUES (1, 0, ?, ?)"),
                     {cliente, 5000 + cliente});
            db().run(QStringLiteral("INSERT INTO MG1C_CLIFORAGEMUL (MG1C_DITTA_CG18, "
                                    "MG1C_TIPOCF_CG44, MG1C_CLIFOR_CG44, MG1C_IDAGENTE_MG17) "
                                    "VALUES (1, 0, ?, ?)"),
                     {cliente, agente});
        }
    }

    agenti::GiriVisite& giri() const { return schermata().dettagli().giri(); }
    frame::GestAnagrafica& tappe() const { return gestione(FRMMG_AGENTI::DettaglioGiri); }
    db::RecordsetPtr righe() const
    {
        return schermata().Grst_GestAnagrafica(FRMMG_AGENTI::DettaglioGiri);
    }

    // The customers of the route on view in the recordset's order, as "customer@position".
    QStringList ordine() const
    {
        QStringList visti;
        const db::RecordsetPtr lettore = righe()->clone();
        for (lettore->moveFirst(); !lettore->eof(); lettore->moveNext())
            visti << QStringLiteral("%1@%2").arg(lettore->value(u"MG1I_CLIFOR_CG44").toString(),
                                                 lettore->value(u"MG1I_PROGRESSIVO").toString());
        return visti;
    }
    // Puts a route on view as typing it in TXT_GIRO and leaving would.
    void suGiro(const QString& codice)
    {
        controllo<controls::Field>(u"TXT_GIRO").setText(codice);
        giri().prendiGiroDalCampo();
        giri().Refresh_VF_MG1H(true);
    }
    void nuovoCliente(int cliente)
    {
        ASSERT_TRUE(tappe().addNew());
        controllo<controls::Field>(u"TXT_CLIENTE").setText(QString::number(cliente));
    }

    controls::ConnectionPool connessioni;
    qint64 agente = 0;
    qint64 altro = 0;
};

// The route argument is not looked at: any route of the agent counts, as stored.
TEST_F(GiriTest, ACustomerIsPresentForTheAgentWithTheSameDestinationOnAnyRoute)
{
    tappa(agente, QStringLiteral("G01"), 1, 10);
    tappa(agente, QStringLiteral("G02"), 1, 11, QStringLiteral("X'Y"));
    tappa(altro, QStringLiteral("G01"), 1, 12);
    apriSu(QStringLiteral("A001"));
    agenti::ControlloRigaGiro& controllo = giri().controllo();

    EXPECT_TRUE(controllo.ClienteGiaPresente(10, QStringLiteral("G02"), db::Value::null()));
    EXPECT_TRUE(controllo.ClienteGiaPresente(10, QString(), QString()));
    EXPECT_FALSE(controllo.ClienteGiaPresente(10, QStringLiteral("G01"), QStringLiteral("D1")));
    EXPECT_TRUE(controllo.ClienteGiaPresente(11, QStringLiteral("G01"), QStringLiteral("X'Y ")));
    EXPECT_FALSE(controllo.ClienteGiaPresente(11, QStringLiteral("G02"), db::Value::null()));
    EXPECT_FALSE(controllo.ClienteGiaPresente(12, QStringLiteral("G01"), db::Value::null()));

    const QStringList inviate = istruzioni();
    ASSERT_EQ(inviate.size(), 6);
    EXPECT_EQ(inviate.first(),
              QStringLiteral(" SELECT    MG1I_PROGRESSIVO  FROM    MG1I_DETTAGLIOGIRI WHERE    "
                             "MG1I_DITTA_CG18 = 1        AND MG1I_CLIFOR_CG44 = 10    AND "
                             "MG1I_TIPOCF_CG44 = 0    AND MG1I_IDAGENTE_MG17 = %1 AND "
                             "MG1I_CODDEST_MG22 IS NULL ")
                  .arg(agente));
    EXPECT_TRUE(inviate.at(3).endsWith(QStringLiteral(" AND MG1I_CODDEST_MG22 = 'X''Y'")))
        << inviate.at(3).toStdString();
}

TEST_F(GiriTest, ARowWithoutARouteOnViewIsRefusedAndOneWithoutACustomerPassesUnnumbered)
{
    tappa(agente, QStringLiteral("G01"), 1, 10);
    apriSu(QStringLiteral("A001"));
    ASSERT_TRUE(tappe().addNew());
    frame::CancelArgs args;
    controllo<controls::Field>(u"TXT_GIRO").setText(QString());
    giri().controllo().FME_GestAnagrafica5_BeforeUpdate(args);
    EXPECT_TRUE(args.fbol_Cancel);

    controllo<controls::Field>(u"TXT_GIRO").setText(QStringLiteral("G01"));
    frame::CancelArgs senzaCliente;
    giri().controllo().FME_GestAnagrafica5_BeforeUpdate(senzaCliente);
    EXPECT_FALSE(senzaCliente.fbol_Cancel);
    EXPECT_TRUE(righe()->value(u"MG1I_PROGRESSIVO").isNull());
    EXPECT_TRUE(prompts.history().isEmpty());
    EXPECT_TRUE(istruzioni().isEmpty());
}

// A row being entered moves up only once it is accepted; it never moves down.
TEST_F(GiriTest, ARowBeingEnteredMovesUpOnceAcceptedAndNeverDown)
{
    tappa(agente, QStringLiteral("G01"), 1, 10);
    tappa(agente, QStringLiteral("G01"), 2, 11);
    apriSu(QStringLiteral("A001"));
    agenti::OrdineGiro& ordineGiro = giri().ordine();

    nuovoCliente(12);
    ordineGiro.CMD_DOWN_ButtonClick();
    EXPECT_EQ(tappe().status(), frame::FrameStatus::New);

    ordineGiro.CMD_UP_ButtonClick();
    EXPECT_EQ(ordine(), (QStringList{QStringLiteral("10@1"), QStringLiteral("12@2"),
                                     QStringLiteral("11@3")}));
    EXPECT_EQ(righe()->value(u"MG1I_CLIFOR_CG44").toInt64(), 12);
    EXPECT_TRUE(tappe().changeFlag());

    // Already in the route: refused with a message, and nothing moves.
    nuovoCliente(10);
    prompts.queue(services::PromptAnswer::button(host::Ok));
    ordineGiro.CMD_UP_ButtonClick();
    EXPECT_EQ(prompts.history().last().text,
              QStringLiteral("Cliente già inserito nel giro corrente!"));
    EXPECT_EQ(tappe().status(), frame::FrameStatus::New);
    EXPECT_EQ(righe()->value(u"MG1I_CLIFOR_CG44").toInt64(), 10);
    EXPECT_EQ(righe()->absolutePosition(), 4);
    EXPECT_EQ(ordine().mid(0, 3), (QStringList{QStringLiteral("10@1"), QStringLiteral("12@2"),
                                               QStringLiteral("11@3")}));
}

// A row opened and left without a customer makes way for the customers of the list.
TEST_F(GiriTest, TheCustomerListTakesThePlaceOfAnEmptyRowLeftOpen)
{
    tappa(agente, QStringLiteral("G01"), 1, 10);
    apriSu(QStringLiteral("A001"));
    ASSERT_TRUE(tappe().addNew());
    prompts.queue(services::PromptAnswer::customers(
        {{QStringLiteral("10"), QString()}, {QStringLiteral("13"), QStringLiteral("D9")}}));
    giri().clienti().CMD_MULTICLI_ButtonClick();

    EXPECT_EQ(ordine(), (QStringList{QStringLiteral("10@1"), QStringLiteral("13@2")}));
    EXPECT_TRUE(tappe().changeFlag());
    ASSERT_NE(giri().clienti().Grst_ElencoClienti(), nullptr);
    EXPECT_EQ(giri().clienti().Grst_ElencoClienti()->recordCount(), 2);
}

TEST_F(GiriTest, ARouteHandedBackGoesOnViewAndOtherOperationsDoNothing)
{
    tappa(agente, QStringLiteral("G01"), 1, 10);
    tappa(agente, QStringLiteral("G02"), 1, 11);
    apriSu(QStringLiteral("A001"));
    host::WarehouseTransfer altra;
    altra.operation = 45;
    altra.value = QStringLiteral("G02");
    giri().clienti().Gcls_ConnectMagazzino_DataTransfer(altra);
    EXPECT_EQ(giri().GiroCorrente(), QStringLiteral("G01"));

    host::WarehouseTransfer giro;
    giro.operation = host::WarehouseTransfer::Route;
    giro.value = QStringLiteral("G02");
    giri().clienti().Gcls_ConnectMagazzino_DataTransfer(giro);
    EXPECT_EQ(controllo<controls::Field>(u"TXT_GIRO").text(), QStringLiteral("G02"));
    EXPECT_EQ(giri().GiroCorrente(), QStringLiteral("G02"));
    EXPECT_EQ(ordine(), QStringList{QStringLiteral("11@1")});
}

// A row being entered that is refused and only taken back stays in entry: nothing is
// deleted. Back on a stored row, the route on view is emptied and the others are kept.
TEST_F(GiriTest, ClearingTheRouteStopsAtARefusedNewRowAndOtherwiseDeletesTheRouteOnViewOnly)
{
    tappa(agente, QStringLiteral("G01"), 1, 10);
    tappa(agente, QStringLiteral("G01"), 2, 11);
    tappa(agente, QStringLiteral("G02"), 1, 12);
    apriSu(QStringLiteral("A001"));
    nuovoCliente(10);
    prompts.queue(services::PromptAnswer::button(host::Ok));
    prompts.queue(services::PromptAnswer::button(host::Yes));
    giri().righe().CMD_AZZERRAGIRO_ButtonClick();
    ASSERT_EQ(prompts.history().size(), 2);
    EXPECT_EQ(tappe().status(), frame::FrameStatus::New);
    EXPECT_FALSE(controllo<controls::NavigatorBar>(u"INTERNAV").changeIndicator());

    ASSERT_TRUE(tappe().moveFirst());
    giri().righe().CMD_AZZERRAGIRO_ButtonClick();
    EXPECT_EQ(righe()->recordCount(), 0);
    EXPECT_TRUE(controllo<controls::NavigatorBar>(u"INTERNAV").changeIndicator());
    tappe().updateBatch();
    const db::ResultSet rimasti =
        db().query(QStringLiteral("SELECT MG1I_CLIFOR_CG44 FROM MG1I_DETTAGLIOGIRI"));
    ASSERT_EQ(rimasti.rows.size(), 1);
    EXPECT_EQ(rimasti.rows.first().value(0).toInt64(), 12);
}

// A "never" given to the question about another agent's route also refuses the same
// customer with a destination, without asking.
TEST_F(GiriTest, ANeverAboutAnotherAgentsRouteRefusesTheDestinationCaseWithoutAsking)
{
    tappa(altro, QStringLiteral("G02"), 1, 12);
    tappa(altro, QStringLiteral("G02"), 2, 12, QStringLiteral("D1"));
    apriSu(QStringLiteral("A001"));
    suGiro(QStringLiteral("G01"));
    nuovoCliente(12);
    prompts.queue(services::PromptAnswer::question(services::QuestionAnswer::Mai));
    EXPECT_FALSE(tappe().save());
    ASSERT_FALSE(prompts.history().isEmpty());
    EXPECT_EQ(prompts.history().last().text,
              QStringLiteral("Il cliente 12 - CLIENTE 12 è già presente nel giro G02 - Giro G02 "
                             "dell'agente A002 - AGENTE A002. Inserirlo comunque?"));

    const qsizetype chiesti = prompts.history().size();
    controllo<controls::Field>(u"TXT_MG1I_CODDEST_MG22").setText(QStringLiteral("D1"));
    EXPECT_FALSE(tappe().save());
    EXPECT_EQ(prompts.history().size(), chiesti);
    EXPECT_EQ(tappe().status(), frame::FrameStatus::New);
}

} // namespace
} // namespace tarvello::test
