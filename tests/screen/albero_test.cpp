#include "platform/controls/field.h"
#include "platform/controls/gridnavigator.h"
#include "platform/controls/navigatorbar.h"
#include "platform/controls/picture.h"
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
    int statoAgenti() const { return gestione(FRMMG_AGENTI::Agenti).status(); }
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
    // Walks with the next button and collects the agents shown after each press.
    QStringList avanti(int volte)
    {
        QStringList mostrati;
        for (int i = 0; i < volte; ++i) {
            schermata().NextAgente();
            mostrati << agenteMostrato();
        }
        return mostrati;
    }
    qint64 agenteSenzaAnagrafica(const QString& codice)
    {
        return db()
            .insertRow(QStringLiteral("MG17_AGENTI"),
                       {QStringLiteral("MG17_DITTA_CG18"), QStringLiteral("MG17_AGENTE"),
                        QStringLiteral("MG17_ANAGEN_CG16")},
                       {dittaDivisionale, codice, 9999}, QStringLiteral("MG17_IDAGENTE"))
            .toInt64();
    }
    void premi(const QString& chiave)
    {
        controllo<controls::NavigatorBar>(u"INTERNAV").press(chiave);
    }
    int pagina() const { return controllo<controls::TabStrip>(u"TAB_AGENTI").currentPage(); }
    bool attivo(const QString& chiave) const
    {
        return controllo<controls::NavigatorBar>(u"INTERNAV").button(chiave)->enabled;
    }
};

// Two branches whose codes interleave: the walk must follow the codes, not the drawing.
class NavigazioneTraRami : public AlberoAgentiTest {
protected:
    void SetUp() override
    {
        AlberoAgentiTest::SetUp();
        const qint64 capo1 = inserisciAgente(QStringLiteral("C1"));
        const qint64 capo2 = inserisciAgente(QStringLiteral("C2"));
        inserisciAgente(QStringLiteral("A1"), dittaDivisionale, capo2);
        inserisciAgente(QStringLiteral("A2"), dittaDivisionale, capo1);
        inserisciAgente(QStringLiteral("A3"), dittaDivisionale, capo2);
        apri();
        schermata().PrimoAgente();
    }
};

TEST_F(NavigazioneTraRami, NextAndPreviousFollowTheCodesAcrossBranches)
{
    // The tree draws C1 > A2 and C2 > A1, A3; the walk goes by code all the same.
    EXPECT_EQ(rigaDi(QStringLiteral("A2")), rigaDi(QStringLiteral("C1")) + 1);
    EXPECT_EQ(agenteMostrato(), QStringLiteral("A1"));
    EXPECT_EQ(avanti(4), (QStringList{QStringLiteral("A2"), QStringLiteral("A3"),
                                      QStringLiteral("C1"), QStringLiteral("C2")}));
    schermata().PreviousAgente();
    EXPECT_EQ(agenteMostrato(), QStringLiteral("C1"));
    EXPECT_EQ(selezioneAlbero(), QStringLiteral("C1"));
    EXPECT_EQ(statoAgenti(), frame::FrameStatus::Browse);
}

TEST_F(NavigazioneTraRami, PastTheLastAgentTheLastStaysAndPreviousShowsItAgain)
{
    schermata().UltimoAgente();
    EXPECT_EQ(agenteMostrato(), QStringLiteral("C2"));

    schermata().NextAgente();
    EXPECT_TRUE(recordsetAlbero().eof());
    EXPECT_EQ(agenteMostrato(), QStringLiteral("C2"));
    schermata().NextAgente();
    EXPECT_TRUE(recordsetAlbero().eof());
    // Last does nothing while the tree stands past its end.
    schermata().UltimoAgente();
    EXPECT_TRUE(recordsetAlbero().eof());
    EXPECT_EQ(agenteMostrato(), QStringLiteral("C2"));

    schermata().PreviousAgente();
    EXPECT_FALSE(recordsetAlbero().eof());
    EXPECT_EQ(agenteMostrato(), QStringLiteral("C2"));
    EXPECT_EQ(selezioneAlbero(), QStringLiteral("C2"));
}

TEST_F(NavigazioneTraRami, BeforeTheFirstAgentTheFirstStaysAndNextShowsItAgain)
{
    schermata().NextAgente();
    EXPECT_EQ(agenteMostrato(), QStringLiteral("A2"));
    schermata().PreviousAgente();
    schermata().PreviousAgente();
    EXPECT_TRUE(recordsetAlbero().bof());
    EXPECT_EQ(agenteMostrato(), QStringLiteral("A1"));
    schermata().PrimoAgente();
    EXPECT_TRUE(recordsetAlbero().bof());
    schermata().NextAgente();
    EXPECT_EQ(agenteMostrato(), QStringLiteral("A1"));
    EXPECT_EQ(selezioneAlbero(), QStringLiteral("A1"));
}

TEST_F(NavigazioneTraRami, BranchMovesMoveNothing)
{
    schermata().NextAgente();
    schermata().ProssimoRamoAgente();
    EXPECT_EQ(agenteMostrato(), QStringLiteral("A2"));
    EXPECT_EQ(recordsetAlbero().value(u"MG17_AGENTE").toString(), QStringLiteral("A2"));
    schermata().PrecedenteRamoAgente();
    EXPECT_EQ(recordsetAlbero().value(u"MG17_AGENTE").toString(), QStringLiteral("A2"));
}

TEST_F(NavigazioneTraRami, CollapseAndExpandAllByThePictures)
{
    auto& albero = controllo<controls::TreeGrid>(u"GRD_AGENTI");
    ASSERT_EQ(albero.rowCount(), 5);
    controllo<controls::Picture>(u"IMG_COMPRIMI").click();
    EXPECT_EQ(albero.rowCount(), 2);
    controllo<controls::Picture>(u"IMG_ESPANDI").click();
    EXPECT_EQ(albero.rowCount(), 5);
}

TEST_F(AlberoAgentiTest, AnAgentWithoutRegistryEntryIsNotInTheTreeAndIsSkipped)
{
    inserisciAgente(QStringLiteral("A1"));
    agenteSenzaAnagrafica(QStringLiteral("A2"));
    inserisciAgente(QStringLiteral("A3"));
    apri();

    EXPECT_EQ(controllo<controls::TreeGrid>(u"GRD_AGENTI").rowCount(), 2);
    EXPECT_EQ(rigaDi(QStringLiteral("A2")), -1);
    schermata().PrimoAgente();
    EXPECT_EQ(avanti(1), QStringList{QStringLiteral("A3")});
}

TEST_F(AlberoAgentiTest, ClickOnACodeWithAQuoteShowsThatAgent)
{
    inserisciAgente(QStringLiteral("A001"));
    inserisciAgente(QStringLiteral("O'NEIL"));
    apri();

    clicca(QStringLiteral("O'NEIL"));
    EXPECT_EQ(agenteMostrato(), QStringLiteral("O'NEIL"));
    EXPECT_EQ(statoAgenti(), frame::FrameStatus::Browse);
    EXPECT_EQ(fuoco(), QStringLiteral("GRD_AGENTI"));
    EXPECT_TRUE(controllo<controls::GridNavigator>(u"GRIDNAV_AGENTISOCI").isEnabled());
    EXPECT_TRUE(controllo<controls::GridNavigator>(u"GRIDNAV_AGENTIMAT").isEnabled());
}

// The frame's rows were read at load; an agent added since is reached through its search.
TEST_F(AlberoAgentiTest, ClickOnAnAgentTheFrameHasNotReadStillShowsIt)
{
    inserisciAgente(QStringLiteral("A001"));
    apri();
    inserisciAgente(QStringLiteral("B002"));
    schermata().albero().CaricaTabTreeview();
    schermata().albero().CaricaAlberoAgenti();
    const db::RecordsetPtr letti = gestione(FRMMG_AGENTI::Agenti).recordset()->clone();
    letti->setFilter(QStringLiteral("MG17_AGENTE = 'B002'"));
    ASSERT_EQ(letti->recordCount(), 0);

    clicca(QStringLiteral("B002"));
    EXPECT_EQ(agenteMostrato(), QStringLiteral("B002"));
    EXPECT_EQ(statoAgenti(), frame::FrameStatus::Browse);
    EXPECT_EQ(gestione(FRMMG_AGENTI::Agenti).recordset()->value(u"MG17_AGENTE").toString(),
              QStringLiteral("B002"));
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
    const int stato = statoAgenti();
    controllo<controls::TreeGrid>(u"GRD_AGENTI").selectCurrentRow();
    schermata().NextAgente();
    schermata().UltimoAgente();
    schermata().PrimoAgente();
    EXPECT_EQ(statoAgenti(), stato);
    EXPECT_EQ(agenteMostrato(), QString());
}

TEST_F(AlberoAgentiTest, RebuiltAfterASaveTheTreeStandsOnTheAgentOnView)
{
    inserisciAgente(QStringLiteral("A001"));
    apri();
    inserisciAgente(QStringLiteral("D'ORO"));
    controllo<controls::Field>(u"TXT_AGENTE").setText(QStringLiteral("D'ORO"));

    schermata().albero().AggiornaAlberoAgente();
    EXPECT_EQ(controllo<controls::TreeGrid>(u"GRD_AGENTI").rowCount(), 2);
    EXPECT_EQ(recordsetAlbero().value(u"MG17_AGENTE").toString(), QStringLiteral("D'ORO"));
    EXPECT_EQ(selezioneAlbero(), QStringLiteral("D'ORO"));
}

TEST_F(AlberoAgentiTest, ForwardAndBackPageThroughTheTabs)
{
    inserisciAgente(QStringLiteral("A001"));
    apri();
    ASSERT_EQ(pagina(), 0);

    premi(QStringLiteral("Avanti"));
    EXPECT_EQ(pagina(), 1);
    EXPECT_TRUE(attivo(QStringLiteral("Indietro")));
    premi(QStringLiteral("Avanti"));
    premi(QStringLiteral("Avanti"));
    EXPECT_EQ(pagina(), 3);
    EXPECT_TRUE(attivo(QStringLiteral("Avanti")));
    premi(QStringLiteral("Avanti"));
    EXPECT_EQ(pagina(), 4);
    EXPECT_FALSE(attivo(QStringLiteral("Avanti")));

    premi(QStringLiteral("Indietro"));
    EXPECT_EQ(pagina(), 3);
    EXPECT_TRUE(attivo(QStringLiteral("Avanti")));
    schermata().SelezionaTab(1);
    premi(QStringLiteral("Indietro"));
    EXPECT_EQ(pagina(), 0);
    EXPECT_FALSE(attivo(QStringLiteral("Indietro")));
}

TEST_F(AlberoAgentiTest, IndietroOnTheFirstPageChangesNothing)
{
    inserisciAgente(QStringLiteral("A001"));
    apri();
    schermata().navigazione().INTERNAV_ButtonClick(QStringLiteral("Indietro"));
    EXPECT_EQ(pagina(), 0);
    EXPECT_TRUE(attivo(QStringLiteral("Avanti")));
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

TEST_F(Esportazione, OpenedByIdHandsBackTheIdAndCloses)
{
    inserisciAgente(QStringLiteral("A001"));
    const qint64 id = inserisciAgente(QStringLiteral("A002"));
    Apertura apertura;
    apertura.idChiamato = id;
    apriChiamato(apertura);
    ASSERT_EQ(agenteMostrato(), QStringLiteral("A002"));

    premi(QStringLiteral("Esporta"));
    ASSERT_EQ(restituiti.valori.size(), 1);
    EXPECT_EQ(restituiti.valori.first().toArray(), db::ValueList{db::Value(qint32(id))});
    EXPECT_FALSE(schermata().isLoaded());
}

TEST_F(Esportazione, OpenedByCodeHandsBackTheCodeWithoutTrailingBlanks)
{
    inserisciAgente(QStringLiteral("A001  "));
    Apertura apertura;
    apertura.codiceChiamato = QStringLiteral("A001  ");
    apriChiamato(apertura);

    premi(QStringLiteral("Esporta"));
    ASSERT_EQ(restituiti.valori.size(), 1);
    EXPECT_EQ(restituiti.valori.first().toArray(),
              db::ValueList{db::Value(QStringLiteral("A001"))});
}

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
