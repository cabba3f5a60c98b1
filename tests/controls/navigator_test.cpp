#include "platform/controls/form.h"
#include "platform/controls/grid.h"
#include "platform/controls/gridnavigator.h"
#include "platform/controls/navigatorbar.h"
#include "platform/controls/navigatortarget.h"
#include "rows.h"

#include <gtest/gtest.h>

namespace tarvello::controls {
namespace {

// A record frame stand-in: acts on "Nuovo" and "Conferma", with a chosen outcome.
class FrameStandIn : public NavigatorTarget {
public:
    QStringList* log = nullptr;
    bool succeeds = true;

    std::optional<bool> navigatorAction(Navigator&, const QString& key) override
    {
        if (key != NavigatorKey::New && key != NavigatorKey::Confirm)
            return std::nullopt;
        *log << "frame " + key;
        return succeeds;
    }
};

class NavigatorTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        frame.log = &log;
        navigator->setTarget(&frame);
        QObject::connect(navigator, &Navigator::beforeButton, [this](NavigatorButtonArgs& args) {
            log << "before " + args.key;
            args.cancel = refuse.contains(args.key);
        });
        QObject::connect(navigator, &Navigator::buttonClicked,
                         [this](const QString& key) { log << "click " + key; });
        QObject::connect(
            navigator, &Navigator::afterButton, [this](bool success, const QString& key) {
                log << QStringLiteral("after %1 %2").arg(key, success ? "ok" : "failed");
            });
    }

    Form form{QStringLiteral("FRM")};
    GridNavigator* navigator = form.add<GridNavigator>(QStringLiteral("GRIDNAV_GIRI"));
    FrameStandIn frame;
    QStringList log;
    QStringList refuse;
};

TEST_F(NavigatorTest, PressRaisesBeforeClickActionAndAfterInOrder)
{
    EXPECT_TRUE(navigator->press(NavigatorKey::New));
    frame.succeeds = false;
    EXPECT_FALSE(navigator->press(NavigatorKey::Confirm));

    EXPECT_EQ(log, QStringList({"before Nuovo", "click Nuovo", "frame Nuovo", "after Nuovo ok",
                                "before Conferma", "click Conferma", "frame Conferma",
                                "after Conferma failed"}));
}

// The new-row switch takes "Nuovo" from the person; a screen pressing it on the person's
// behalf still reaches beforeButton, where it decides and can say why.
TEST_F(NavigatorTest, EnabledSettingsAndTheNewRowSwitchStopPresses)
{
    QList<bool> switched;
    QObject::connect(navigator, &Navigator::newRowAllowedChanged,
                     [&](bool allowed) { switched << allowed; });
    navigator->setNewRowAllowed(false);
    navigator->setNewRowAllowed(false);
    EXPECT_EQ(switched, QList<bool>{false});
    EXPECT_FALSE(navigator->isAvailable(NavigatorKey::New));
    EXPECT_FALSE(navigator->press(NavigatorKey::New));
    refuse << NavigatorKey::New;
    EXPECT_FALSE(navigator->pressFromCode(NavigatorKey::New));
    EXPECT_TRUE(navigator->press(NavigatorKey::Confirm));

    navigator->setButtonEnabled(NavigatorKey::Confirm, false);
    EXPECT_FALSE(navigator->press(NavigatorKey::Confirm));
    navigator->setButtonEnabled(NavigatorKey::Confirm, true);
    navigator->setButtonVisible(NavigatorKey::Confirm, false);
    EXPECT_FALSE(navigator->press(NavigatorKey::Confirm));
    navigator->setButtonVisible(NavigatorKey::Confirm, true);
    navigator->setEnabled(false);
    EXPECT_FALSE(navigator->press(NavigatorKey::Confirm));
    EXPECT_FALSE(navigator->press(QStringLiteral("Stampa"))) << "no such button";

    EXPECT_EQ(log, QStringList({"before Nuovo", "before Conferma", "click Conferma",
                                "frame Conferma", "after Conferma ok"}));
}

// A screen may leave a button off its bar and press it from a key shortcut: code reaches a
// hidden button, never a disabled one.
TEST_F(NavigatorTest, CodeCanPressAHiddenButtonButNotADisabledOne)
{
    navigator->setButtonVisible(NavigatorKey::Confirm, false);
    EXPECT_TRUE(navigator->pressFromCode(NavigatorKey::Confirm));
    navigator->setButtonEnabled(NavigatorKey::Confirm, false);
    EXPECT_FALSE(navigator->pressFromCode(NavigatorKey::Confirm));
    navigator->setButtonEnabled(NavigatorKey::Confirm, true);
    navigator->setEnabled(false);
    EXPECT_FALSE(navigator->pressFromCode(NavigatorKey::Confirm));
    EXPECT_FALSE(navigator->pressFromCode(QStringLiteral("Stampa"))) << "no such button";

    EXPECT_EQ(log, QStringList({"before Conferma", "click Conferma", "frame Conferma",
                                "after Conferma ok"}));
}

TEST_F(NavigatorTest, MovesLeftByTheTargetMoveTheGridRecordset)
{
    db::RecordsetPtr rows = test::memoryRows({"MG1H_GIRO"}, {{"G01"}, {"G02"}, {"G03"}});
    Grid* grid = form.add<Grid>(QStringLiteral("GRD_GIRI"));
    grid->setDataSource(rows);
    navigator->setGrid(grid);

    navigator->press(NavigatorKey::Last);
    EXPECT_EQ(grid->selectedRow(), 2);
    navigator->press(NavigatorKey::Next);
    EXPECT_EQ(grid->selectedRow(), 2) << "next on the last row stays there";
    navigator->press(NavigatorKey::First);
    navigator->press(NavigatorKey::Previous);
    EXPECT_EQ(grid->selectedRow(), 0);
    navigator->press(NavigatorKey::Next);
    EXPECT_EQ(rows->value(u"MG1H_GIRO"), db::Value("G02"));
}

TEST(NavigatorBarTest, RelabelledButtonReportsItsNewKey)
{
    Form form(QStringLiteral("FRM"));
    NavigatorBar* bar = form.add<NavigatorBar>(QStringLiteral("INTERNAV"));
    QStringList clicked;
    QObject::connect(bar, &Navigator::buttonClicked,
                     [&clicked](const QString& k) { clicked << k; });

    ASSERT_TRUE(
        bar->relabelButton(NavigatorKey::Print, NavigatorKey::Export, NavigatorKey::Export));
    EXPECT_FALSE(bar->relabelButton(NavigatorKey::Export, NavigatorKey::New, QStringLiteral("x")))
        << "two buttons cannot share a key";

    EXPECT_FALSE(bar->press(NavigatorKey::Print));
    EXPECT_TRUE(bar->press(NavigatorKey::Export));
    bar->setButtonEnabled(NavigatorKey::Forward, false);
    EXPECT_FALSE(bar->press(NavigatorKey::Forward));
    EXPECT_TRUE(bar->press(NavigatorKey::Back));

    EXPECT_EQ(clicked, QStringList({"Esporta", "Indietro"}));
    EXPECT_EQ(bar->button(NavigatorKey::Export)->caption, QStringLiteral("Esporta"));
}

} // namespace
} // namespace tarvello::controls
