#include "platform/controls/field.h"
#include "platform/controls/grid.h"
#include "platform/controls/navigatorbar.h"
#include "platform/controls/panel.h"
#include "platform/controls/treegrid.h"
#include "schermatafixture.h"
#include "src/tree/alberoagenti.h"

#include <QTimer>

namespace tarvello::test {

namespace {

using agenti::FRMMG_AGENTI;

class AttivazioneSchermata : public SchermataTest {
protected:
    QString agenteMostrato() const { return controllo<controls::Field>(u"TXT_AGENTE").text(); }
    int statoAgenti() const { return gestione(FRMMG_AGENTI::Agenti).status(); }
    QString agenteDellAlbero() const
    {
        const db::RecordsetPtr albero = schermata().albero().Grst_AlberoAgenti();
        if (!albero || albero->bof() || albero->eof())
            return {};
        return albero->value(u"MG17_AGENTE").toString();
    }
    QStringList chiaviInternav() const
    {
        QStringList chiavi;
        for (const controls::Navigator::Button& pulsante :
             controllo<controls::NavigatorBar>(u"INTERNAV").buttons()) {
            if (pulsante.visible)
                chiavi << pulsante.key;
        }
        return chiavi;
    }
};

TEST_F(AttivazioneSchermata, OpenedByTheHostShowsTheFirstAgentAndFocusesTheRegime)
{
    inserisciAgente(QStringLiteral("A001"));
    apri();

    EXPECT_EQ(statoAgenti(), frame::FrameStatus::Browse);
    EXPECT_EQ(agenteMostrato(), QStringLiteral("A001"));
    // The code of an agent already stored cannot be changed: the focus skips it.
    EXPECT_FALSE(controllo<controls::Field>(u"TXT_AGENTE").isEnabled());
    EXPECT_EQ(fuoco(), QStringLiteral("CBO_REGPROV"));
    EXPECT_FALSE(controllo<controls::NavigatorBar>(u"INTERNAV").isCalledMode());
    EXPECT_EQ(chiaviInternav(),
              (QStringList{QStringLiteral("Nuovo"), QStringLiteral("Indietro"),
                           QStringLiteral("Avanti"), QStringLiteral("Conferma")}));
    EXPECT_EQ(toolbar->scriptLog().lines().size(), 1);
    EXPECT_TRUE(schermata().Gbol_AlreadyLoaded());
}

TEST_F(AttivazioneSchermata, HidesAndDisablesTheQuestionPanel)
{
    apri();
    const auto& pannello = controllo<controls::Panel>(u"FRAME_MESSAGGIO");
    EXPECT_FALSE(pannello.isVisible());
    EXPECT_FALSE(pannello.isEnabled());
}

TEST_F(AttivazioneSchermata, SetsUpTheDetailGridsAndTheTree)
{
    apri();
    EXPECT_EQ(controllo<controls::Grid>(u"GRID_AGENTISOCI").columnCount(), 7);
    EXPECT_EQ(controllo<controls::Grid>(u"GRID_AGENTISOCI").keyColumn(), QStringLiteral("ID"));
    EXPECT_EQ(controllo<controls::Grid>(u"GRID_AGENTIMAT").keyColumn(),
              QStringLiteral("MG16_GGMATUR"));
    EXPECT_EQ(controllo<controls::Grid>(u"GRD_DETTAGLIOGIRI").columnCount(), 2);
    EXPECT_EQ(controllo<controls::Grid>(u"GRD_GIRI").columnCount(), 2);
    const auto& albero = controllo<controls::TreeGrid>(u"GRD_AGENTI");
    EXPECT_EQ(albero.nodeKeyColumn(), QStringLiteral("MG17_IDAGENTE"));
    EXPECT_EQ(albero.parentColumn(), QStringLiteral("MG17_IDAGERIF_MG17"));
    ASSERT_EQ(albero.columnCount(), 5);
    EXPECT_TRUE(albero.columns().last().isPicture());
    EXPECT_EQ(albero.dataSource(), schermata().albero().Grst_AlberoAgenti());
}

// The requested code is written into the search with its quote doubled; a single quote
// would end the text early and find nothing (or fail).
TEST_F(AttivazioneSchermata, CalledByCodeWithAQuoteShowsThatAgentInFrameAndTree)
{
    inserisciAgente(QStringLiteral("A001"));
    inserisciAgente(QStringLiteral("O'NEIL"));
    inserisciAgente(QStringLiteral("Z001"));
    Apertura apertura;
    apertura.codiceChiamato = QStringLiteral("O'NEIL");
    apri(apertura);

    EXPECT_EQ(statoAgenti(), frame::FrameStatus::Browse);
    EXPECT_EQ(agenteMostrato(), QStringLiteral("O'NEIL"));
    EXPECT_EQ(gestione(FRMMG_AGENTI::Agenti).recordset()->value(u"MG17_AGENTE").toString(),
              QStringLiteral("O'NEIL"));
    EXPECT_EQ(agenteDellAlbero(), QStringLiteral("O'NEIL"));
    EXPECT_TRUE(controllo<controls::NavigatorBar>(u"INTERNAV").isCalledMode());
    EXPECT_TRUE(chiaviInternav().contains(QStringLiteral("Esporta")));
    EXPECT_FALSE(chiaviInternav().contains(QStringLiteral("Stampa")));
}

TEST_F(AttivazioneSchermata, CalledByIdShowsTheAgentWithThatId)
{
    inserisciAgente(QStringLiteral("A001"));
    const qint64 id = inserisciAgente(QStringLiteral("A002"));
    Apertura apertura;
    apertura.idChiamato = id;
    apri(apertura);

    EXPECT_TRUE(istruzioni().contains(
        QStringLiteral("SELECT MG17_AGENTE FROM MG17_AGENTI WITH (NOLOCK) WHERE MG17_IDAGENTE = ") +
        QString::number(id)));
    EXPECT_EQ(agenteMostrato(), QStringLiteral("A002"));
    EXPECT_EQ(agenteDellAlbero(), QStringLiteral("A002"));
}

TEST_F(AttivazioneSchermata, ProgramModeOutsideZeroToTwoLeavesTheFrameAsItIs)
{
    inserisciAgente(QStringLiteral("A001"));
    Apertura apertura;
    apertura.programMode = 5;
    apri(apertura);
    EXPECT_EQ(statoAgenti(), frame::FrameStatus::Browse);
    EXPECT_EQ(agenteMostrato(), QStringLiteral("A001"));
}

TEST_F(AttivazioneSchermata, ProgramModeOnePutsTheFrameInSearchEntry)
{
    inserisciAgente(QStringLiteral("A001"));
    Apertura apertura;
    apertura.programMode = frame::FrameStatus::Search;
    apri(apertura);
    EXPECT_EQ(statoAgenti(), frame::FrameStatus::Search);
    EXPECT_EQ(agenteMostrato(), QString());
}

TEST_F(AttivazioneSchermata, ALaterActivationNeitherRepositionsNorRebuildsTheTree)
{
    inserisciAgente(QStringLiteral("A001"));
    inserisciAgente(QStringLiteral("A002"));
    Apertura apertura;
    apertura.codiceChiamato = QStringLiteral("A001");
    apri(apertura);
    ASSERT_EQ(agenteMostrato(), QStringLiteral("A001"));
    ASSERT_TRUE(gestione(FRMMG_AGENTI::Agenti).moveNext());
    ASSERT_EQ(agenteMostrato(), QStringLiteral("A002"));
    const qsizetype inviate = istruzioni().size();
    const db::RecordsetPtr albero = schermata().albero().Grst_AlberoAgenti();

    schermata().deactivate();
    host->setActiveModule(nullptr);
    schermata().activate();

    EXPECT_EQ(agenteMostrato(), QStringLiteral("A002"));
    EXPECT_EQ(istruzioni().size(), inviate);
    EXPECT_EQ(schermata().albero().Grst_AlberoAgenti(), albero);
    EXPECT_EQ(host->activeModule(), modulo.get());
    EXPECT_EQ(modulo->ActiveFrame(), &gestione(FRMMG_AGENTI::Agenti));
    EXPECT_EQ(toolbar->scriptLog().lines().size(), 1);
}

TEST_F(AttivazioneSchermata, AModalScreenOpensAtItsDesignSizeAndWaitsUntilItCloses)
{
    Apertura apertura;
    apertura.modale = true;
    apertura.top = 120;
    apertura.left = 240;
    bool apertaDuranteLAttesa = false;
    QTimer::singleShot(0, [this, &apertaDuranteLAttesa] {
        apertaDuranteLAttesa = schermata().isShown() && schermata().isModal();
        schermata().requestClose();
    });
    apri(apertura);

    EXPECT_TRUE(apertaDuranteLAttesa);
    EXPECT_FALSE(schermata().isLoaded());
    EXPECT_EQ(schermata().bounds(), QRect(240, 120, 14865, 9195));
}

TEST_F(AttivazioneSchermata, TellsTheToolbarTheStatusOfTheAgentFrame)
{
    Apertura apertura;
    apertura.programMode = frame::FrameStatus::New;
    apri(apertura);
    ASSERT_EQ(statoAgenti(), frame::FrameStatus::New);
    EXPECT_EQ(toolbar->shownStatus(), frame::FrameStatus::New);

    inserisciAgente(QStringLiteral("A001"));
    gestione(FRMMG_AGENTI::Agenti).enterSearch();
    schermata().AggiornaNavigatore();
    EXPECT_EQ(toolbar->shownStatus(), frame::FrameStatus::Search);
}

} // namespace
} // namespace tarvello::test
