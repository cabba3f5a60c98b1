#include "agentsshell.h"
#include "platform/controls/form.h"
#include "platform/controls/navigatorbar.h"
#include "platform/controls/tabstrip.h"
#include "platform/db/demodata.h"
#include "platform/gui/formbinder.h"
#include "platform/gui/navigatorview.h"
#include "platform/gui/shellhost.h"
#include "platform/gui/shellwindow.h"
#include "platform/services/scriptedprompts.h"
#include "src/host/errorlog.h"
#include "support/testdatabase.h"
#include "widgettesting.h"

#include <QComboBox>
#include <QFileInfo>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QToolButton>
#include <gtest/gtest.h>

namespace tarvello::gui {
namespace {

TEST(TabStripViewTest, PagesFollowTheModelWhichMayRefuseAPick)
{
    controls::Form form(QStringLiteral("FRM_PROVA"));
    auto* strip = form.add<controls::TabStrip>(QStringLiteral("TAB_AGENTI"));
    strip->addPage(QStringLiteral("Dati &generali"));
    strip->addPage(QStringLiteral("Agenti &soci"));
    strip->selectPage(0);
    bool refuse = true;
    QObject::connect(strip, &controls::TabStrip::beforePageChange, strip,
                     [&refuse](controls::TabChangeArgs& args) { args.cancel = refuse; });
    QTabWidget tabs;
    tabs.setObjectName(QStringLiteral("TAB_AGENTI"));
    tabs.addTab(new QWidget, QStringLiteral("designer caption"));
    form.load();
    FormBinder::bind(form, tabs);

    ASSERT_EQ(tabs.count(), 2) << "a page the model has beyond the designer's comes empty";
    EXPECT_EQ(tabs.tabText(0), QStringLiteral("Dati &generali"));
    tabs.setCurrentIndex(1);
    EXPECT_EQ(tabs.currentIndex(), 0) << "the model refused the page";
    refuse = false;
    tabs.setCurrentIndex(1);
    EXPECT_EQ(strip->currentPage(), 1);
    strip->selectPage(0);
    EXPECT_EQ(tabs.currentIndex(), 0);
}

TEST(NavigatorViewTest, ButtonsPressTheModelByKeyAndFollowItsAvailability)
{
    controls::Form form(QStringLiteral("FRM_PROVA"));
    auto* bar = form.add<controls::NavigatorBar>(QStringLiteral("INTERNAV"));
    QStringList pressed;
    QObject::connect(bar, &controls::Navigator::buttonClicked, bar,
                     [&pressed](const QString& key) { pressed << key; });
    QWidget widget;
    widget.setObjectName(QStringLiteral("INTERNAV"));
    form.load();
    FormBinder::bind(form, widget);
    auto* view = widget.findChild<NavigatorView*>();
    ASSERT_NE(view, nullptr);

    QToolButton* next = view->buttonFor(controls::NavigatorKey::Next);
    ASSERT_NE(next, nullptr);
    EXPECT_EQ(next->focusPolicy(), Qt::NoFocus);
    next->click();
    EXPECT_EQ(pressed, QStringList{controls::NavigatorKey::Next});

    bar->setButtonEnabled(controls::NavigatorKey::Next, false);
    EXPECT_FALSE(view->buttonFor(controls::NavigatorKey::Next)->isEnabled());
    bar->setButtonVisible(controls::NavigatorKey::New, false);
    EXPECT_EQ(view->buttonFor(controls::NavigatorKey::New), nullptr);
}

// A module that keeps unsaved changes refuses the company change, and the switcher goes back.
class CompanyGuard final : public host::NavigatorEvents {
public:
    void BeforeChangeDitta(bool& Cancel) override { Cancel = refuse; }
    void ChangeDitta(qint32 company) override { changedTo = company; }
    bool refuse = true;
    qint32 changedTo = 0;
};

using AssembledShellTest = test::AgentsShellTest;

TEST_F(AssembledShellTest, CompanySwitcherGoesThroughTheBeforeChangeAndChangeEvents)
{
    ASSERT_EQ(host->context().company().code, db::DemoCompanies::divisional);
    CompanyGuard guard;
    host->navigator().events().subscribe(&guard);
    QComboBox& switcher = shell->companySwitcher();
    const int plain = switcher.findData(db::DemoCompanies::plain);
    ASSERT_GE(plain, 0);

    Q_EMIT switcher.activated(plain);
    EXPECT_EQ(host->context().company().code, db::DemoCompanies::divisional);
    EXPECT_EQ(switcher.currentData().toInt(), db::DemoCompanies::divisional);
    EXPECT_EQ(guard.changedTo, 0);

    guard.refuse = false;
    switcher.setCurrentIndex(plain);
    Q_EMIT switcher.activated(plain);
    EXPECT_EQ(host->context().company().code, db::DemoCompanies::plain);
    EXPECT_EQ(guard.changedTo, db::DemoCompanies::plain);
    host->navigator().events().unsubscribe(&guard);
}

TEST(ShellWindowTest, FrameButtonsWaitForAScreenAndAnUnknownModuleIsToldNotOpened)
{
    test::TestDatabase database(test::databaseTargets().front());
    db::createSchema(database.connection());
    services::ScriptedPrompts prompts;
    ShellHost host(prompts, database.connectionString(), 5);
    ShellWindow window(host, nullptr);
    EXPECT_EQ(host.context().company().code, 5);
    EXPECT_FALSE(window.toolbarAction(services::HostNavigator::Save)->isEnabled());
    EXPECT_FALSE(window.exportAction()->isEnabled());

    EXPECT_EQ(window.openModule({QStringLiteral("Nessuno"), QStringLiteral("Nessuno.CLSNESSUNO")}),
              nullptr);
    ASSERT_EQ(prompts.history().size(), 1);
    EXPECT_EQ(prompts.history().first().style, host::Critical);
    EXPECT_EQ(host.openModuleCount(), 0);
}

TEST_F(AssembledShellTest, AWindowlessModuleDoesItsWorkAndIsLetGoWithoutAComplaint)
{
    QTemporaryDir folder;
    const QString pdf = folder.filePath(QStringLiteral("agenti.pdf"));
    prompts.queue(services::PromptAnswer::file(pdf));

    EXPECT_EQ(shell->openModule({QStringLiteral("Stampa agenti"),
                                 QStringLiteral("Brendolo.CLSMG_STAGENTI"), true}),
              nullptr);
    EXPECT_TRUE(QFileInfo(pdf).size() > 0) << "every agent of the company printed";
    EXPECT_EQ(host->openModuleCount(), 0);
    for (const services::PromptRecord& prompt : prompts.history())
        EXPECT_NE(prompt.style, host::Critical) << prompt.text.toStdString();
}

} // namespace
} // namespace tarvello::gui
