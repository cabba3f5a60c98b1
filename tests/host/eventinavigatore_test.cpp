#include "platform/services/hostcontext.h"
#include "platform/services/hostnavigator.h"
#include "platform/services/objectmodels.h"
#include "platform/services/scriptedprompts.h"
#include "src/screen/clsmg_agenti.h"
#include "testscreen.h"

#include <gtest/gtest.h>

using namespace tarvello;
using agenti::CLSMG_AGENTI;
using services::HostNavigator;
using test::TestScreen;

namespace {

// The module object subscribed to the host's toolbar, with one test screen shown.
class NavigatorEvents : public ::testing::Test {
protected:
    void SetUp() override
    {
        module.setClsGlobal(&context);
        module.setActiveNavigator(&toolbar);
        module.ShowForm();
        screen = screens.front();
        screen->calls.clear();
        module.setIsActive(true);
    }

    // A press as the module alone sees it, with the flag other modules left.
    bool pressed(qint32 button, bool cancel = false)
    {
        module.ButtonPressed(cancel, button);
        return cancel;
    }

    services::ScriptedPrompts prompts;
    services::HostContext context{
        prompts, QStringLiteral("Driver=none"), {1, QStringLiteral("Uno")}};
    HostNavigator toolbar{context};
    std::vector<TestScreen*> screens;
    CLSMG_AGENTI module{[this] {
        auto created = std::make_unique<TestScreen>();
        screens.push_back(created.get());
        return created;
    }};
    TestScreen* screen = nullptr;
};

TEST_F(NavigatorEvents, TheRecordMovesWalkTheTreeAndTakeThePressOver)
{
    const std::pair<qint32, const char*> moves[] = {
        {HostNavigator::First, "PrimoAgente"},
        {HostNavigator::PreviousBranch, "PrecedenteRamoAgente"},
        {HostNavigator::Previous, "PreviousAgente"},
        {HostNavigator::Next, "NextAgente"},
        {HostNavigator::NextBranch, "ProssimoRamoAgente"},
        {HostNavigator::Last, "UltimoAgente"},
    };
    for (const auto& [button, move] : moves) {
        screen->calls.clear();
        EXPECT_EQ(toolbar.press(button), HostNavigator::Press::TakenOver) << move;
        EXPECT_EQ(screen->calls, QStringList{QString::fromLatin1(move)});
    }
}

TEST_F(NavigatorEvents, PressesTheModuleDoesNotHandleLeaveTheFlagAlone)
{
    module.setIsActive(false);
    EXPECT_EQ(toolbar.press(HostNavigator::Next), HostNavigator::Press::Done);
    EXPECT_FALSE(pressed(HostNavigator::Next));
    // A flag another module set stays set.
    EXPECT_TRUE(pressed(HostNavigator::Next, true));
    EXPECT_TRUE(screen->calls.isEmpty());

    // Once its screen has let go of the module object, the module is no longer active.
    module.setIsActive(true);
    module.setActiveDll(nullptr);
    EXPECT_FALSE(pressed(HostNavigator::First));
    EXPECT_TRUE(screen->calls.isEmpty());

    // Button fourteen and unknown buttons are never handled, even by the active module.
    module.setActiveDll(&module);
    for (const qint32 button : {14, 1, 18, 24, 26}) {
        EXPECT_FALSE(pressed(button)) << button;
        EXPECT_TRUE(pressed(button, true)) << button;
    }
    EXPECT_TRUE(screen->calls.isEmpty());
}

TEST_F(NavigatorEvents, TheMultimediaButtonWithoutARecordFrameOpensNothing)
{
    QObject notAFrame;
    for (QObject* frame : {static_cast<QObject*>(nullptr), &notAFrame}) {
        module.setActiveFrame(frame);
        EXPECT_FALSE(pressed(HostNavigator::Multimedia));
    }
    EXPECT_EQ(module.CHyperMedia(), nullptr);
    EXPECT_TRUE(prompts.history().isEmpty());
    EXPECT_TRUE(screen->calls.isEmpty());
}

TEST_F(NavigatorEvents, TheExportGetsTheModuleTitleOnlyFromTheActiveModule)
{
    EXPECT_EQ(toolbar.exportToOffice(), QStringLiteral("Anagrafica agenti"));
    module.setIsActive(false);
    EXPECT_EQ(toolbar.exportToOffice(), QString());
}

TEST_F(NavigatorEvents, TheLayoutModelGetsTheScreenAndTheTwoGrids)
{
    QObject partners(&screen->form);
    partners.setObjectName(QStringLiteral("GRID_AGENTISOCI"));
    QObject maturation(&screen->form);
    maturation.setObjectName(QStringLiteral("GRID_AGENTIMAT"));

    services::ObjectModel layout;
    toolbar.initializeLayoutObjectModel(layout);
    ASSERT_EQ(layout.entries().size(), 3);
    EXPECT_EQ(layout.entries().at(0).caption, QStringLiteral("Anagrafica agenti"));
    EXPECT_EQ(layout.entries().at(0).object, &screen->form);
    EXPECT_EQ(layout.entries().at(1).caption, QStringLiteral("Griglia agenti soci"));
    EXPECT_EQ(layout.entries().at(1).object, &partners);
    EXPECT_EQ(layout.entries().at(2).caption, QStringLiteral("Griglia giorni di maturazione"));
    EXPECT_EQ(layout.entries().at(2).object, &maturation);

    module.setIsActive(false);
    services::ObjectModel unused;
    toolbar.initializeLayoutObjectModel(unused);
    EXPECT_TRUE(unused.entries().isEmpty());
}

TEST_F(NavigatorEvents, TheScriptModelGetsTheScreenAndTheActiveFrameUnderItsScriptName)
{
    screen->form.setObjectName(QStringLiteral("FRMMG_AGENTI"));
    QObject frame;
    frame.setObjectName(QStringLiteral("FME_GestAnagrafica1"));
    module.setActiveFrame(&frame);

    services::ObjectModel script;
    toolbar.initializeScriptObjectModel(script);
    ASSERT_EQ(script.entries().size(), 2);
    const auto& form = script.entries().at(0);
    EXPECT_EQ(form.name, QStringLiteral("FRMMG_AGENTI"));
    EXPECT_EQ(form.object, &screen->form);
    EXPECT_EQ(form.kind, 0);
    EXPECT_EQ(form.caption, QStringLiteral("Anagrafica agenti"));
    const auto& registered = script.entries().at(1);
    EXPECT_EQ(registered.name, QStringLiteral("DTS_Anagrafica_agenti"));
    EXPECT_EQ(registered.object, &frame);
    EXPECT_EQ(registered.kind, 3);
    EXPECT_EQ(registered.caption, QStringLiteral("DTS_Anagrafica_agenti"));
    EXPECT_EQ(frame.property("Name").toString(), QStringLiteral("DTS_Anagrafica_agenti"));
    // The screen still finds its frame by its object name.
    EXPECT_EQ(frame.objectName(), QStringLiteral("FME_GestAnagrafica1"));
}

TEST_F(NavigatorEvents, ACompanyChangeIsAskedOfTheScreenWhetherActiveOrNot)
{
    module.setIsActive(false);
    screen->confirmsCompanyChange = false;
    EXPECT_FALSE(toolbar.changeCompany({2, QStringLiteral("Due")}));
    EXPECT_EQ(context.company().code, 1);
    EXPECT_EQ(screen->calls, QStringList{QStringLiteral("ConfermaCambioDitta")});

    screen->calls.clear();
    screen->confirmsCompanyChange = true;
    EXPECT_TRUE(toolbar.changeCompany({2, QStringLiteral("Due")}));
    EXPECT_EQ(screen->calls, (QStringList{QStringLiteral("ConfermaCambioDitta"),
                                          QStringLiteral("CambiaDitta 2")}));

    // The answer replaces what an earlier module left in the flag.
    bool cancel = true;
    module.BeforeChangeDitta(cancel);
    EXPECT_FALSE(cancel);

    // The new company is read from the host, not from the event.
    screen->calls.clear();
    context.setCompany({7, QStringLiteral("Sette")});
    module.ChangeDitta(3);
    EXPECT_EQ(screen->calls, QStringList{QStringLiteral("CambiaDitta 7")});
}

TEST(NavigatorEventsWithoutAScreen, CompanyEventsChangeNothingAndAFailedMoveStillTakesThePress)
{
    CLSMG_AGENTI module{[] { return std::make_unique<TestScreen>(); }};
    bool cancel = true;
    module.BeforeChangeDitta(cancel);
    EXPECT_TRUE(cancel);
    module.ChangeDitta(2);

    // A move that fails is skipped, as every failing step of a press is: the press is still
    // taken over.
    module.setIsActive(true);
    bool flag = false;
    module.ButtonPressed(flag, HostNavigator::Next);
    EXPECT_TRUE(flag);
}

} // namespace
