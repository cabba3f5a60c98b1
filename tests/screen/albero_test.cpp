#include "platform/controls/field.h"
#include "platform/controls/navigatorbar.h"
#include "platform/controls/tabstrip.h"
#include "platform/controls/treegrid.h"
#include "platform/db/runtimeerror.h"
#include "schermatafixture.h"
#include "src/host/calledmodule.h"
#include "src/tree/alberoagenti.h"
#include "src/tree/navigazioneagenti.h"

namespace tarvello::test {

namespace {

using agenti::FRMMG_AGENTI;

class ValoriRestituiti final : public host::DataTransferEvents {
public:
    void DataTransfer(const db::Value& Data) override { valori << Data; }
    QList<db::Value> valori;
};

class AlberoAgentiTest : public SchermataTest {
protected:
    QString agenteMostrato() const { return controllo<controls::Field>(u"TXT_AGENTE").text(); }
    frame::FrameStatus statoAgenti() const { return gestione(FRMMG_AGENTI::Agenti).status(); }
    db::Recordset& recordsetAlbero() const { return *schermata().albero().Grst_AlberoAgenti(); }
    // The code of the tree's selected row; empty when none is selected.
    QString selezioneAlbero() const
    {
        const auto& albero = controllo<controls::TreeGrid>(u"GRD_AGENTI");
        return albero.value(albero.selectedRow(), u"MG17_AGENTE").toString();
    }
    int rigaDi(const QString& codice) const
    {
        const auto& albero = controllo<controls::TreeGrid>(u"GRD_AGENTI");
        for (int riga = 0; riga < albero.rowCount(); ++riga) {
            if (albero.value(riga, u"MG17_AGENTE").toString() == codice)
                return riga;
        }
        return -1;
    }
    void clicca(const QString& codice)
    {
        const int riga = rigaDi(codice);
        ASSERT_GE(riga, 0) << qPrintable(codice) << " is not in the tree";
        ASSERT_TRUE(controllo<controls::TreeGrid>(u"GRD_AGENTI").clickRow(riga));
    }
    void premi(const QString& chiave)
    {
        controllo<controls::NavigatorBar>(u"INTERNAV").press(chiave);
    }
    int pagina() const { return controllo<controls::TabStrip>(u"TAB_AGENTI").currentPage(); }
};

// The mirror of the walk past the last agent, which a scenario shows.
TEST_F(AlberoAgentiTest, BeforeTheFirstAgentTheFirstStaysAndNextShowsItAgain)
{
    inserisciAgente(QStringLiteral("A1"));
    inserisciAgente(QStringLiteral("A2"));
    apri();
    schermata().PrimoAgente();
    schermata().NextAgente();
    EXPECT_EQ(agenteMostrato(), QStringLiteral("A2"));

    schermata().PreviousAgente();
    schermata().PreviousAgente();
    EXPECT_TRUE(recordsetAlbero().bof());
    EXPECT_EQ(agenteMostrato(), QStringLiteral("A1"));
    schermata().PreviousAgente();
    schermata().PrimoAgente();
    EXPECT_TRUE(recordsetAlbero().bof());
    EXPECT_EQ(selezioneAlbero(), QString());

    schermata().NextAgente();
    EXPECT_EQ(agenteMostrato(), QStringLiteral("A1"));
    EXPECT_EQ(selezioneAlbero(), QStringLiteral("A1"));
}

TEST_F(AlberoAgentiTest, TheClickKeepsTheWindowBusyOnlyWhileItWorks)
{
    inserisciAgente(QStringLiteral("A001"));
    inserisciAgente(QStringLiteral("A002"));
    apri();
    QList<bool> occupata;
    QObject::connect(&gestione(FRMMG_AGENTI::Agenti), &frame::GestAnagrafica::ChangeStatus,
                     &schermata(), [&] { occupata << schermata().isBusy(); });

    clicca(QStringLiteral("A002"));
    ASSERT_FALSE(occupata.isEmpty());
    EXPECT_TRUE(occupata.first());
    EXPECT_FALSE(schermata().isBusy());
}

TEST_F(AlberoAgentiTest, AnEmptyTreeIgnoresClicksAndMoves)
{
    apri();
    const frame::FrameStatus stato = statoAgenti();
    controllo<controls::TreeGrid>(u"GRD_AGENTI").selectCurrentRow();
    schermata().NextAgente();
    schermata().UltimoAgente();
    schermata().PrimoAgente();
    EXPECT_EQ(statoAgenti(), stato);
    EXPECT_EQ(agenteMostrato(), QString());
}

// The third button is relabelled at activation, so only code presses "Stampa" now.
TEST_F(AlberoAgentiTest, StampaStartsTheAgentsPrintouts)
{
    inserisciAgente(QStringLiteral("A001"));
    apri();
    const qsizetype avvii = host->moduleStarts().size();
    try {
        schermata().navigazione().INTERNAV_ButtonClick(QStringLiteral("Stampa"));
    } catch (const db::RuntimeError&) {
        // No printouts module is installed here: only the attempt counts.
    }
    EXPECT_EQ(host->moduleStarts().size(), avvii + 1);
    EXPECT_EQ(pagina(), 0);
}

TEST_F(AlberoAgentiTest, AfterANewAgentIsStartedTheFirstPageAndTheCodeTakeOver)
{
    inserisciAgente(QStringLiteral("A001"));
    apri();
    schermata().SelezionaTab(3);
    ASSERT_TRUE(gestione(FRMMG_AGENTI::Agenti).addNew());

    schermata().navigazione().INTERNAV_AfterAction(false, QStringLiteral("Nuovo"));
    EXPECT_EQ(pagina(), 3);
    schermata().navigazione().INTERNAV_AfterAction(true, QStringLiteral("Nuovo"));
    EXPECT_EQ(pagina(), 0);
    EXPECT_EQ(fuoco(), QStringLiteral("TXT_AGENTE"));
}

class Esportazione : public AlberoAgentiTest {
protected:
    void TearDown() override
    {
        if (modulo)
            modulo->dataTransfer().unsubscribe(&restituiti);
        AlberoAgentiTest::TearDown();
    }
    void apriChiamato(const Apertura& apertura)
    {
        apri(apertura);
        modulo->dataTransfer().subscribe(&restituiti);
    }
    ValoriRestituiti restituiti;
};

TEST_F(Esportazione, PendingChangesRefusedHandBackNothing)
{
    inserisciAgente(QStringLiteral("A001"));
    Apertura apertura;
    apertura.codiceChiamato = QStringLiteral("A001");
    apriChiamato(apertura);
    controllo<controls::Field>(u"TXT_MATRENASARCO").setFocus();
    controllo<controls::Field>(u"TXT_MATRENASARCO").setText(QStringLiteral("123"));
    gestione(FRMMG_AGENTI::Agenti).notifyChange();
    rispondi(2); // Cancel

    premi(QStringLiteral("Esporta"));
    EXPECT_TRUE(restituiti.valori.isEmpty());
    EXPECT_TRUE(schermata().isLoaded());
}

} // namespace

} // namespace tarvello::test
