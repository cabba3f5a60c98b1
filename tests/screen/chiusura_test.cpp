#include "platform/controls/field.h"
#include "platform/controls/tabstrip.h"
#include "schermatafixture.h"
#include "src/host/errorlog.h"
#include "src/tree/alberoagenti.h"

#include <QCoreApplication>
#include <QEvent>
#include <QPointer>

namespace tarvello::test {

namespace {

using agenti::FRMMG_AGENTI;

class SchedeSchermata : public SchermataTest {
protected:
    void SetUp() override
    {
        SchermataTest::SetUp();
        inserisciAgente(QStringLiteral("A001"));
        apri();
        ASSERT_EQ(fuoco(), QStringLiteral("CBO_REGPROV"));
    }
    controls::TabStrip& schede() const { return controllo<controls::TabStrip>(u"TAB_AGENTI"); }
};

TEST_F(SchedeSchermata, ClickingAPageFocusesItsFirstField)
{
    ASSERT_TRUE(schede().selectPage(3));
    EXPECT_EQ(fuoco(), QStringLiteral("TXT_TVTARGA"));
    ASSERT_TRUE(schede().selectPage(4));
    EXPECT_EQ(fuoco(), QStringLiteral("TXT_GIRO"));
    ASSERT_TRUE(schede().selectPage(1));
    EXPECT_EQ(fuoco(), QStringLiteral("TXT_CODSOCIO"));
    ASSERT_TRUE(schede().selectPage(2));
    EXPECT_EQ(fuoco(), QStringLiteral("CBO_TIPOEFF"));
    ASSERT_TRUE(schede().selectPage(5));
    EXPECT_EQ(fuoco(), QStringLiteral("CBO_TIPOEFF"));
    ASSERT_TRUE(schede().selectPage(0));
    EXPECT_EQ(fuoco(), QStringLiteral("CBO_REGPROV"));
}

TEST_F(SchedeSchermata, TheMaturationPageWithRowsFocusesItsGrid)
{
    gestione(FRMMG_AGENTI::Maturazione).recordset()->addNew();
    ASSERT_TRUE(schede().selectPage(2));
    EXPECT_EQ(fuoco(), QStringLiteral("GRID_AGENTIMAT"));
}

TEST_F(SchedeSchermata, SelezionaTabSelectsThePageWithoutMovingTheFocus)
{
    controllo<controls::Control>(u"TXT_FOR").setFocus();
    ASSERT_EQ(fuoco(), QStringLiteral("TXT_FOR"));
    schermata().SelezionaTab(3);
    EXPECT_EQ(schede().currentPage(), 3);
    EXPECT_EQ(fuoco(), QStringLiteral("TXT_FOR"));
    EXPECT_FALSE(schermata().CambioTabDaCodice());

    schermata().SelezionaTab(1);
    EXPECT_EQ(fuoco(), QStringLiteral("TXT_FOR"));

    // Page 0 always takes the focus to the commission regime.
    schermata().SelezionaTab(0);
    EXPECT_EQ(schede().currentPage(), 0);
    EXPECT_EQ(fuoco(), QStringLiteral("CBO_REGPROV"));
}

using ChiusuraSchermata = SchermataTest;

TEST_F(ChiusuraSchermata, IsRefusedWhileTheAgentHasChangesTheUserKeeps)
{
    inserisciAgente(QStringLiteral("A001"));
    apri();
    ASSERT_TRUE(controllo<controls::Field>(u"TXT_PERPROV").typeText(QStringLiteral("12")));
    rispondi(host::Cancel);

    EXPECT_FALSE(schermata().requestClose());

    EXPECT_TRUE(schermata().isLoaded());
    ASSERT_EQ(prompts.history().size(), 1);
    EXPECT_EQ(prompts.history().first().answer, QStringLiteral("cancel"));
    EXPECT_EQ(modulo->ActiveDll(), modulo.get());
    EXPECT_EQ(toolbar->scriptLog().lines().size(), 2) << "tsClose is told even when refused";
}

TEST_F(ChiusuraSchermata, ClosesWhenTheUserDropsTheChanges)
{
    inserisciAgente(QStringLiteral("A001"));
    apri();
    ASSERT_TRUE(controllo<controls::Field>(u"TXT_PERPROV").typeText(QStringLiteral("12")));
    rispondi(host::No);

    EXPECT_TRUE(schermata().requestClose());
    EXPECT_FALSE(schermata().isLoaded());
    EXPECT_EQ(
        db().query(QStringLiteral("SELECT MG17_PERPROV FROM MG17_AGENTI")).rows.first().first(),
        db::Value(0));
}

TEST_F(ChiusuraSchermata, ClosesWithoutAskingWhenNothingChanged)
{
    inserisciAgente(QStringLiteral("A001"));
    apri();
    EXPECT_TRUE(schermata().requestClose());
    EXPECT_TRUE(prompts.history().isEmpty());
}

TEST_F(ChiusuraSchermata, UnloadLetsGoOfEverythingAndOfTheModule)
{
    agenti::CLSMG_AGENTI& aperto = apri();
    QPointer<frame::GestAnagrafica> agenti = &gestione(FRMMG_AGENTI::Agenti);

    schermata().unload();

    EXPECT_EQ(schermata().Gcon_Connect(), nullptr);
    EXPECT_EQ(schermata().Gcls_Log(), nullptr);
    EXPECT_EQ(schermata().FME_GestAnagrafica(FRMMG_AGENTI::Agenti), nullptr);
    EXPECT_EQ(schermata().Grst_GestAnagrafica(FRMMG_AGENTI::Agenti), nullptr);
    EXPECT_EQ(schermata().albero().Grst_AlberoAgenti(), nullptr);
    EXPECT_EQ(schermata().ActiveInterface(), nullptr);
    EXPECT_EQ(schermata().ActiveClass(), nullptr);
    EXPECT_EQ(aperto.ActiveDll(), nullptr);
    EXPECT_EQ(host->activeModule(), nullptr);
    EXPECT_EQ(toolbar->scriptObject(), nullptr);
    EXPECT_TRUE(toolbar->scriptLog().lines().last().contains(menu.key()));
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(agenti.isNull());
}

} // namespace
} // namespace tarvello::test
