#include "agentsshell.h"
#include "platform/controls/button.h"
#include "platform/controls/field.h"
#include "platform/controls/grid.h"
#include "platform/controls/label.h"
#include "platform/controls/menubutton.h"
#include "platform/gui/managementdialogs.h"
#include "platform/gui/managementwindow.h"
#include "platform/services/hostnavigator.h"

#include <QAction>
#include <QLineEdit>
#include <QPushButton>
#include <QTableView>
#include <QToolBar>
#include <gtest/gtest.h>

namespace tarvello::gui {
namespace {

using services::PromptAnswer;

// The shell as the person gets it, showing the agent A001, with the host's managements shown
// as the shell's dialogs.
struct AgentsShell : public test::AgentsShellTest {
    void SetUp() override
    {
        AgentsShellTest::SetUp();
        dialogs = std::make_unique<ManagementDialogs>(host->navigator(), prompts, shell.get());
        host->context().managements().setPresenter(dialogs.get());
        screen = openAgents().form();
        ASSERT_EQ(field(u"TXT_AGENTE").text(), QStringLiteral("A001"));
    }

    controls::Field& field(QStringView name) const { return *screen->find<controls::Field>(name); }
    QString text(QStringView name) const
    {
        const controls::Control* control = screen->control(name);
        if (const auto* label = qobject_cast<const controls::Label*>(control))
            return label->caption();
        return field(name).text();
    }

    // Opens a management while `act` works in its window, as a person would.
    void work(const std::function<void()>& open, const std::function<void(ManagementWindow&)>& act)
    {
        prompts.queue(PromptAnswer::window());
        bool shown = false;
        test::whenModalShown([&](QWidget& modal) {
            auto* management = qobject_cast<ManagementWindow*>(&modal);
            shown = management != nullptr;
            if (management)
                act(*management);
            // A window the person's actions left open fails the test rather than hang it.
            if (modal.isVisible()) {
                ADD_FAILURE() << "the window is still open";
                modal.close();
                if (management)
                    management->done(QDialog::Rejected);
            }
        });
        open();
        EXPECT_TRUE(shown) << "the management's window was not shown";
    }

    // The components' openings press the shell's own buttons.
    using AgentsShellTest::shell;
    std::unique_ptr<ManagementDialogs> dialogs;
    controls::Form* screen = nullptr;
};

QLineEdit& searchBox(ManagementWindow& window)
{
    return *window.findChild<QLineEdit*>(QStringLiteral("TXT_CERCA"));
}

QPushButton& button(ManagementWindow& window, const char* name)
{
    return *window.findChild<QPushButton*>(QString::fromLatin1(name));
}

QPoint cellCentre(const QTableView& table, int row, int column = 0)
{
    return table.visualRect(table.model()->index(row, column)).center();
}

enum class Choice { Enter, DoubleClick, Button, TwoTicks, Esc };

// One of the host's managements as the agents screen opens it: how it is opened, what the
// person searches and how many rows that leaves, how a row is chosen, and what the screen
// shows afterwards.
struct Component {
    const char* name;
    std::function<void(AgentsShell&)> open;
    const char* search;
    int shown;
    Choice choice;
    QList<std::pair<const char*, const char*>> shownAfter;
};

void managementKey(AgentsShell& shell, const char* field)
{
    shell.field(QString::fromLatin1(field)).pressManagementKey();
}

void menuItem(AgentsShell& shell, const char* key)
{
    shell.screen->find<controls::MenuButton>(u"CMD_GESTCOLL")->clickItem(QString::fromLatin1(key));
}

std::ostream& operator<<(std::ostream& out, const Component& component)
{
    return out << component.name;
}

class ManagementWindows : public AgentsShell, public ::testing::WithParamInterface<Component> {};

TEST_P(ManagementWindows, OpenedFromTheScreenSearchedAndChosenTheValueArrivesDecoded)
{
    const Component& component = GetParam();
    const int routeRows = screen->find<controls::Grid>(u"GRD_DETTAGLIOGIRI")->rowCount();
    work([&] { component.open(*this); },
         [&](ManagementWindow& management) {
             QTableView& table = management.table();
             test::keyClicks(&searchBox(management), QString::fromUtf8(component.search));
             EXPECT_EQ(table.model()->rowCount(), component.shown);
             switch (component.choice) {
             case Choice::Enter:
                 test::keyClick(&searchBox(management), Qt::Key_Return);
                 break;
             case Choice::DoubleClick:
                 test::mouseDoubleClick(table.viewport(), cellCentre(table, 0));
                 break;
             case Choice::Button:
                 button(management, "CMD_SCEGLI").click();
                 break;
             case Choice::TwoTicks:
                 test::mouseClick(table.viewport(), cellCentre(table, 0));
                 test::mouseClick(table.viewport(), cellCentre(table, 2));
                 button(management, "CMD_SCEGLI").click();
                 break;
             case Choice::Esc:
                 test::keyClick(&table, Qt::Key_Escape);
                 break;
             }
         });
    for (const auto& [control, shown] : component.shownAfter) {
        EXPECT_EQ(text(QString::fromLatin1(control)).toStdString(), shown) << control;
    }
    if (component.choice == Choice::TwoTicks) {
        EXPECT_EQ(screen->find<controls::Grid>(u"GRD_DETTAGLIOGIRI")->rowCount(), routeRows + 2);
    }
}

// One management per way of opening one and of choosing in its window; what each
// management lists and decodes is walked by its own scenario.
INSTANTIATE_TEST_SUITE_P(
    Components, ManagementWindows,
    ::testing::Values(Component{"RegistrySearch",
                                // A new agent's name is searched among the free registry entries.
                                [](AgentsShell& shell) {
                                    shell.shell->pressButton(services::HostNavigator::New);
                                    shell.field(u"TXT_RAGSOANAG").openLookup();
                                },
                                "cartiera",
                                1,
                                Choice::Enter,
                                {{"TXT_RAGSOANAG", "CARTIERA VENETA S.P.A."}}},
                      Component{"Registry",
                                [](AgentsShell& shell) { menuItem(shell, "key_anagrafica"); },
                                "farmacia",
                                1,
                                Choice::Button,
                                {{"TXT_RAGSOANAG", "FARMACIA SAN MARCO"}}},
                      Component{
                          "Routes",
                          [](AgentsShell& shell) { managementKey(shell, "TXT_GIRO"); },
                          "sabato",
                          1,
                          Choice::DoubleClick,
                          {{"TXT_GIRO", "G06"}, {"TXT_DESCGIRO", "Giro del sabato - Torino"}}},
                      Component{"Customers",
                                [](AgentsShell& shell) {
                                    shell.screen->find<controls::Button>(u"CMD_MULTICLI")->click();
                                },
                                "bottega",
                                3,
                                Choice::TwoTicks,
                                {}},
                      Component{"DivisionalData",
                                [](AgentsShell& shell) { menuItem(shell, "Key_DatiDivisionali"); },
                                "bev",
                                1,
                                Choice::Esc,
                                {{"TXT_AGENTE", "A001"}}}),
    [](const ::testing::TestParamInfo<Component>& info) { return std::string(info.param.name); });

// A route added in the management's window, with the host's toolbar there, and chosen at once.
TEST_F(AgentsShell, ARouteAddedInItsManagementIsChosenAndArrives)
{
    work([&] { managementKey(*this, "TXT_GIRO"); },
         [&](ManagementWindow& management) {
             for (QAction* action : management.findChild<QToolBar*>()->actions()) {
                 if (action->text() == QStringLiteral("Nuovo"))
                     action->trigger();
             }
             auto* code = management.findChild<QLineEdit*>(QStringLiteral("TXT_MG1H_GIRO"));
             auto* description =
                 management.findChild<QLineEdit*>(QStringLiteral("TXT_MG1H_DESCRIZIONE"));
             ASSERT_TRUE(code && description && code->isEnabled());
             test::keyClicks(code, QStringLiteral("g77"));
             test::keyClicks(description, QStringLiteral("Giro della domenica"));
             // Choosing a row not yet saved asks first; yes saves it.
             prompts.queue(PromptAnswer::button(6));
             button(management, "CMD_SCEGLI").click();
         });
    EXPECT_EQ(text(u"TXT_GIRO").toStdString(), "G77");
    EXPECT_EQ(text(u"TXT_DESCGIRO").toStdString(), "Giro della domenica");
    EXPECT_EQ(database.connection()
                  .run(QStringLiteral("SELECT COUNT(*) FROM MG1H_GIRI WHERE MG1H_GIRO = 'G77'"))
                  .rows.first()
                  .first()
                  .toInt(),
              1);
}

} // namespace
} // namespace tarvello::gui
