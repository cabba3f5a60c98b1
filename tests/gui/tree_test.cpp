#include "agentsshell.h"
#include "platform/controls/field.h"
#include "platform/controls/treegrid.h"
#include "platform/db/recordset.h"
#include "platform/frame/gestanagrafica.h"
#include "platform/services/hostnavigator.h"
#include "src/host/errorlog.h"
#include "src/tree/alberoagenti.h"

#include <QComboBox>
#include <QTreeView>

namespace tarvello::test {
namespace {

using Button = services::HostNavigator::Button;

class AgentsTreeTest : public AgentsShellTest {
protected:
    void SetUp() override
    {
        AgentsShellTest::SetUp();
        window = &openAgents();
        screen = &screenOf(*window);
        tree = &widget<QTreeView>(*window, "GRD_AGENTI");
    }

    frame::GestAnagrafica& agents() const
    {
        return *screen->FME_GestAnagrafica(agenti::FRMMG_AGENTI::Agenti);
    }

    // The code of the tree's current row and of the row the tree view highlights; empty
    // when there is none.
    QString treeAgent() const
    {
        const db::RecordsetPtr rows = screen->albero().Grst_AlberoAgenti();
        return rows->bof() || rows->eof() ? QString() : rows->value(u"MG17_AGENTE").toString();
    }
    QString highlighted() const
    {
        const QModelIndex current = tree->selectionModel()->currentIndex();
        return tree->selectionModel()->hasSelection()
                   ? current.data().toString().section(u' ', 0, 0)
                   : QString();
    }
    QString recordAgent() const
    {
        const auto code = agents().shownRowValue(QStringLiteral("MG17_AGENTE"));
        return code ? code->toString() : QString();
    }

    void search(const QString& code)
    {
        shell->pressButton(Button::Search);
        keyClicks(&widget<QLineEdit>(*window, "TXT_AGENTE"), code);
        shell->pressButton(Button::Search);
    }

    gui::ScreenWindow* window = nullptr;
    agenti::FRMMG_AGENTI* screen = nullptr;
    QTreeView* tree = nullptr;
};

// Whatever way the agent on view changes, the tree shows that agent, and the toolbar's next
// goes on from it.
TEST_F(AgentsTreeTest, TheTreeStaysWithTheAgentOnView)
{
    EXPECT_EQ(treeAgent(), recordAgent());
    search(QStringLiteral("A003"));
    ASSERT_EQ(recordAgent(), QStringLiteral("A003"));
    EXPECT_EQ(treeAgent(), QStringLiteral("A003"));
    EXPECT_EQ(highlighted(), QStringLiteral("A003"));
    shell->pressButton(Button::Next);
    EXPECT_EQ(recordAgent(), QStringLiteral("A004"));

    prompts.queue(services::PromptAnswer::button(host::Yes));
    shell->pressButton(Button::Delete);
    // The frame goes on to A099, which has no registry entry and so no place in the tree.
    ASSERT_EQ(recordAgent(), QStringLiteral("A099"));
    EXPECT_EQ(treeAgent(), QString());
    EXPECT_EQ(highlighted(), QString());

    // A click the person takes back (Cancel on the question about the changes) leaves the
    // tree on the agent that stays on view.
    search(QStringLiteral("A001"));
    screen->controllo<controls::Field>(u"TXT_PERPROV").setFocus();
    keyClicks(&widget<QLineEdit>(*window, "TXT_PERPROV"), QStringLiteral("8"));
    auto& grid = screen->controllo<controls::TreeGrid>(u"GRD_AGENTI");
    prompts.queue(services::PromptAnswer::button(host::Cancel));
    grid.clickRow(0);
    EXPECT_EQ(recordAgent(), QStringLiteral("A001"));
    EXPECT_EQ(treeAgent(), QStringLiteral("A001"));
    shell->pressButton(Button::Undo);

    // After a company change the tree lists that company's agents, on the same code.
    QComboBox& companies = shell->companySwitcher();
    Q_EMIT companies.activated(companies.findData(db::DemoCompanies::plain));
    ASSERT_EQ(host->context().company().code, db::DemoCompanies::plain);
    EXPECT_EQ(grid.rowCount(), 2);
    EXPECT_EQ(treeAgent(), QStringLiteral("A001"));
    EXPECT_EQ(screen->albero().Grst_AlberoAgenti()->value(u"MG17_IDAGENTE"),
              *agents().shownRowValue(QStringLiteral("MG17_IDAGENTE")));

    // Walked past its last agent, the tree highlights none.
    screen->UltimoAgente();
    EXPECT_EQ(highlighted(), treeAgent());
    screen->NextAgente();
    EXPECT_EQ(treeAgent(), QString());
    EXPECT_EQ(highlighted(), QString());
}

} // namespace
} // namespace tarvello::test
