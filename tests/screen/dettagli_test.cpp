#include "platform/controls/field.h"
#include "platform/controls/grid.h"
#include "platform/controls/gridnavigator.h"
#include "schermatafixture.h"
#include "src/detail/dettagliagente.h"
#include "src/detail/girivisite.h"
#include "src/host/errorlog.h"

namespace tarvello::test {

namespace {

using agenti::FRMMG_AGENTI;
using controls::NavigatorKey::New;

constexpr int Si = 6;

// The agents screen on one agent with rows in each detail table.
class DettagliTest : public SchermataTest {
protected:
    void SetUp() override
    {
        SchermataTest::SetUp();
        agente = inserisciAgente(QStringLiteral("A001"));
        altro = inserisciAgente(QStringLiteral("A002"));
    }

    void maturazione(qint64 id, int tipo, int giorni)
    {
        db().run(QStringLiteral("INSERT INTO MG16_AGENTIMAT (MG16_DITTA_CG18, MG16_IDAGENTE_MG17, "
                                "MG16_TIPOEFF, MG16_GGMATUR) VALUES (1, ?, ?, ?)"),
                 {id, tipo, giorni});
    }
    qint64 conta(const QString& sql) { return db().query(sql).rows.value(0).value(0).toInt64(); }

    agenti::DettagliAgente& dettagli() const { return schermata().dettagli(); }
    db::RecordsetPtr righe(int numero) const { return schermata().Grst_GestAnagrafica(numero); }
    QList<qint64> agentiDelleRighe(int numero, const QString& colonna) const
    {
        QList<qint64> ids;
        const db::RecordsetPtr lettore = righe(numero)->clone();
        for (lettore->moveFirst(); !lettore->eof(); lettore->moveNext())
            ids << lettore->value(colonna).toInt64();
        return ids;
    }

    qint64 agente = 0;
    qint64 altro = 0;
};

QString sociDi(qint64 id)
{
    return QStringLiteral("SELECT  ROW_NUMBER() OVER (ORDER BY MG18_DITTA_CG18) AS ID, * FROM "
                          "MG18_AGENTISOCI WHERE MG18_DITTA_CG18 = 1 AND MG18_IDAGENTE_MG17 = ") +
           QString::number(id);
}

QString maturazioneDi(qint64 id)
{
    return QStringLiteral("SELECT  ROW_NUMBER() OVER (ORDER BY MG16_DITTA_CG18) AS ID, * FROM "
                          "MG16_AGENTIMAT WHERE MG16_DITTA_CG18 = 1 AND MG16_IDAGENTE_MG17 = ") +
           QString::number(id);
}

QString tentataVenditaDi(qint64 id)
{
    return QStringLiteral("SELECT  * FROM MG34_AGENTITV WHERE MG34_DITTA_CG18 = 1 AND "
                          "MG34_IDAGENTE_MG17 = ") +
           QString::number(id);
}

QString giriDi(qint64 id)
{
    return QStringLiteral("SELECT ROW_NUMBER() OVER (ORDER BY MG1I_DITTA_CG18) AS ID, * FROM "
                          "MG1I_DETTAGLIOGIRI WITH (NOLOCK)  WHERE MG1I_DITTA_CG18 = 1 AND "
                          "MG1I_IDAGENTE_MG17 = ") +
           QString::number(id);
}

// Partners entered for an agent not saved yet follow it: their agent column becomes 0 until
// the agent's save gives them the real id.
TEST_F(DettagliTest, RefreshChildOnANewAgentKeysEveryHeldRowToZeroWithoutWriting)
{
    socio(agente, 1, QStringLiteral("ROSSI MARIO"));
    maturazione(agente, 1, 30);
    apriSu(QStringLiteral("A001"));
    ASSERT_TRUE(gestione(FRMMG_AGENTI::Agenti).addNew());
    const db::RecordsetPtr soci = righe(FRMMG_AGENTI::Soci);
    soci->addNew();
    soci->setValue(u"MG18_IDAGENTE_MG17", agente);
    soci->setValue(u"MG18_CODSOCIO", 7);
    soci->update();
    schermata().Gcon_Connect()->log().clear();

    dettagli().RefreshChild();

    EXPECT_TRUE(istruzioni().isEmpty()) << istruzioni().join(u'\n').toStdString();
    EXPECT_EQ(schermata().Gstr_GestAnagrafica(FRMMG_AGENTI::Soci), sociDi(0));
    EXPECT_EQ(gestione(FRMMG_AGENTI::Soci).sql(), sociDi(0));
    EXPECT_EQ(gestione(FRMMG_AGENTI::Maturazione).sql(), maturazioneDi(0));
    EXPECT_EQ(gestione(FRMMG_AGENTI::TentataVendita).sql(), tentataVenditaDi(0));
    EXPECT_EQ(gestione(FRMMG_AGENTI::DettaglioGiri).sql(),
              giriDi(0) + QStringLiteral(" AND MG1I_GIRO_MG1H = ''"));
    const QList<qint64> idSoci = agentiDelleRighe(FRMMG_AGENTI::Soci, "MG18_IDAGENTE_MG17");
    EXPECT_FALSE(idSoci.isEmpty());
    EXPECT_EQ(idSoci, QList<qint64>(idSoci.size(), 0));
    for (qint64 id : agentiDelleRighe(FRMMG_AGENTI::Maturazione, "MG16_IDAGENTE_MG17"))
        EXPECT_EQ(id, 0);
    EXPECT_EQ(conta(QStringLiteral("SELECT COUNT(*) FROM MG18_AGENTISOCI WHERE "
                                   "MG18_IDAGENTE_MG17 = 0")),
              0);
    EXPECT_EQ(controllo<controls::Grid>(u"GRID_AGENTISOCI").dataSource(), soci);
}

// A route code comes from what the person typed: a quote in it must not end the text.
TEST_F(DettagliTest, TheRouteTypedGoesIntoTheRouteFilterQuoted)
{
    apriSu(QStringLiteral("A001"));
    controllo<controls::Field>(u"TXT_GIRO").setText(QStringLiteral("A'B"));

    dettagli().RefreshChild();
    dettagli().giri().CaricaDettaglioGiro();

    const QString filtro = giriDi(agente) + QStringLiteral(" AND MG1I_GIRO_MG1H = 'A''B'");
    EXPECT_EQ(gestione(FRMMG_AGENTI::DettaglioGiri).sql(), filtro);
    EXPECT_EQ(istruzioni(), QStringList{filtro});
    EXPECT_EQ(righe(FRMMG_AGENTI::DettaglioGiri)->recordCount(), 0);
}

TEST_F(DettagliTest, UndoingTheOnlyNewPartnerReadsThePartnersAgainAndFocusesTheCode)
{
    apriSu(QStringLiteral("A001"));
    schermata().SelezionaTab(1);
    ASSERT_TRUE(controllo<controls::GridNavigator>(u"GRIDNAV_AGENTISOCI").press(New));
    ASSERT_EQ(righe(FRMMG_AGENTI::Soci)->recordCount(), 1);
    controllo<controls::Field>(u"TXT_NOMECOGN").setText(QStringLiteral("NERI PAOLO"));
    controllo<controls::Control>(u"TAB_AGENTI").setFocus();
    schermata().Gcon_Connect()->log().clear();

    ASSERT_TRUE(gestione(FRMMG_AGENTI::Soci).undo());

    EXPECT_EQ(istruzioni(), QStringList{sociDi(agente)});
    EXPECT_EQ(righe(FRMMG_AGENTI::Soci)->recordCount(), 0);
    EXPECT_TRUE(gestione(FRMMG_AGENTI::Soci).isAttached());
    EXPECT_EQ(fuoco(), QStringLiteral("TXT_CODSOCIO"));
}

// A partner row still being entered when the agent is saved is never written: the save
// drops it and clears what the partners' query finds in the database (here a row another
// user added meanwhile), without asking the person anything.
TEST_F(DettagliTest, SavingPartnersWithOnlyANewRowDropsItAndClearsTheStoredOnes)
{
    apriSu(QStringLiteral("A001"));
    frame::GestAnagrafica& soci = gestione(FRMMG_AGENTI::Soci);
    ASSERT_TRUE(controllo<controls::GridNavigator>(u"GRIDNAV_AGENTISOCI").press(New));
    controllo<controls::Field>(u"TXT_NOMECOGN").setText(QStringLiteral("NERI PAOLO"));
    socio(agente, 4, QStringLiteral("GIALLI ANNA"));
    socio(altro, 1, QStringLiteral("VERDI ANNA"));

    soci.updateBatch();

    EXPECT_EQ(conta(QStringLiteral("SELECT COUNT(*) FROM MG18_AGENTISOCI WHERE "
                                   "MG18_IDAGENTE_MG17 = ") +
                    QString::number(agente)),
              0);
    EXPECT_EQ(conta(QStringLiteral("SELECT COUNT(*) FROM MG18_AGENTISOCI")), 1);
    EXPECT_EQ(righe(FRMMG_AGENTI::Soci)->recordCount(), 0);
    EXPECT_EQ(righe(FRMMG_AGENTI::Soci)->pendingCount(), 0);
    EXPECT_FALSE(soci.changeFlag());
    EXPECT_FALSE(soci.secondChangeFlag());
    EXPECT_TRUE(soci.followsRowMoves());
    EXPECT_EQ(soci.status(), frame::FrameStatus::New);
    EXPECT_TRUE(prompts.history().isEmpty()) << prompts.history().value(0).text.toStdString();
}

// The route list and the route lookup come from the route definitions of the host.
TEST_F(DettagliTest, TheRouteFieldListsTheCompanysRoutes)
{
    giro(QStringLiteral("G02"), QStringLiteral("Giro del martedì"));
    apriSu(QStringLiteral("A001"));
    auto& campo = controllo<controls::Field>(u"TXT_GIRO");
    controls::LookupArgs richiesta;
    Q_EMIT campo.lookupRequested(richiesta);
    EXPECT_FALSE(richiesta.cancel);
    EXPECT_EQ(db().query(richiesta.sql).rows.size(), 1);
    EXPECT_EQ(richiesta.connectionString, schermata().Gstr_Connect());
    EXPECT_FALSE(richiesta.title.isEmpty());
    EXPECT_EQ(campo.lookupId(), QStringLiteral("Lkp_Giri"));

    // An emptied route field describes nothing and runs no statement.
    controllo<controls::Field>(u"TXT_DESCGIRO").setText(QStringLiteral("Giro del martedì"));
    campo.setText(QString());
    controls::DecodeArgs decodifica;
    Q_EMIT campo.decodeRequested(decodifica);
    EXPECT_TRUE(decodifica.sql.isEmpty());
    EXPECT_TRUE(controllo<controls::Field>(u"TXT_DESCGIRO").text().isEmpty());
}

// Another user deleted the row meanwhile: the save is refused, and the person must learn it
// while the change stays in the recordset for a later attempt.
TEST_F(DettagliTest, AFailingDetailSaveKeepsTheRowsPendingAndTellsThePerson)
{
    maturazione(agente, 1, 30);
    socio(agente, 1, QStringLiteral("ROSSI MARIO"));
    apriSu(QStringLiteral("A001"));
    controllo<controls::Field>(u"TXT_GGMAT").setText(QStringLiteral("45"));
    ASSERT_TRUE(controllo<controls::GridNavigator>(u"GRIDNAV_AGENTIMAT")
                    .press(controls::NavigatorKey::Confirm));
    controllo<controls::Field>(u"TXT_NOMECOGN").setText(QStringLiteral("ROSSI MARIA"));
    ASSERT_TRUE(gestione(FRMMG_AGENTI::Soci).save());
    db().executeNonQuery(QStringLiteral("DELETE FROM MG16_AGENTIMAT"));
    db().executeNonQuery(QStringLiteral("DELETE FROM MG18_AGENTISOCI"));

    gestione(FRMMG_AGENTI::Maturazione).updateBatch();
    gestione(FRMMG_AGENTI::Soci).updateBatch();

    ASSERT_EQ(prompts.history().size(), 2);
    EXPECT_TRUE(prompts.history().at(0).text.startsWith(
        QStringLiteral("Impossibile salvare i giorni di maturazione dell'agente")));
    EXPECT_TRUE(prompts.history().at(1).text.startsWith(
        QStringLiteral("Impossibile salvare i soci dell'agente")));
    EXPECT_EQ(prompts.history().at(0).style, host::Exclamation);
    EXPECT_EQ(righe(FRMMG_AGENTI::Maturazione)->pendingCount(), 1);
    EXPECT_EQ(righe(FRMMG_AGENTI::Soci)->pendingCount(), 1);
    EXPECT_EQ(righe(FRMMG_AGENTI::Maturazione)->value(u"MG16_GGMATUR").toInt(), 45);
    EXPECT_TRUE(gestione(FRMMG_AGENTI::Maturazione).changeFlag());
    EXPECT_TRUE(gestione(FRMMG_AGENTI::Soci).changeFlag()) << "the next save tries again";
    EXPECT_EQ(controllo<controls::Grid>(u"GRID_AGENTIMAT").dataSource(),
              righe(FRMMG_AGENTI::Maturazione));
}

} // namespace

} // namespace tarvello::test
