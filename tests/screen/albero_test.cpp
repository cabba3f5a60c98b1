#include "platform/controls/field.h"
#include "platform/controls/tabstrip.h"
#include "platform/controls/treegrid.h"
#include "platform/db/runtimeerror.h"
#include "schermatafixture.h"
#include "src/tree/navigazioneagenti.h"

namespace tarvello::test {

namespace {

using agenti::FRMMG_AGENTI;

using AlberoAgentiTest = SchermataTest;

TEST_F(AlberoAgentiTest, TheClickKeepsTheWindowBusyOnlyWhileItWorks)
{
    inserisciAgente(QStringLiteral("A001"));
    inserisciAgente(QStringLiteral("A002"));
    apri();
    QList<bool> occupata;
    QObject::connect(&gestione(FRMMG_AGENTI::Agenti), &frame::GestAnagrafica::ChangeStatus,
                     &schermata(), [&] { occupata << schermata().isBusy(); });

    auto& albero = controllo<controls::TreeGrid>(u"GRD_AGENTI");
    ASSERT_EQ(albero.value(1, u"MG17_AGENTE").toString(), QStringLiteral("A002"));
    ASSERT_TRUE(albero.clickRow(1));
    ASSERT_FALSE(occupata.isEmpty());
    EXPECT_TRUE(occupata.first());
    EXPECT_FALSE(schermata().isBusy());
}

TEST_F(AlberoAgentiTest, AnEmptyTreeIgnoresClicksAndMoves)
{
    apri();
    const frame::FrameStatus stato = gestione(FRMMG_AGENTI::Agenti).status();
    controllo<controls::TreeGrid>(u"GRD_AGENTI").selectCurrentRow();
    schermata().NextAgente();
    schermata().UltimoAgente();
    schermata().PrimoAgente();
    EXPECT_EQ(gestione(FRMMG_AGENTI::Agenti).status(), stato);
    EXPECT_EQ(controllo<controls::Field>(u"TXT_AGENTE").text(), QString());
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
    EXPECT_EQ(controllo<controls::TabStrip>(u"TAB_AGENTI").currentPage(), 0);
}

} // namespace

} // namespace tarvello::test
