#include "agentsshell.h"
#include "platform/frame/gestanagrafica.h"
#include "platform/gui/recordcaption.h"
#include "platform/services/hostnavigator.h"
#include "src/tree/alberoagenti.h"

#include <QTreeView>

namespace tarvello::test {
namespace {

// The texts of the rows the tree view shows, depth first.
QStringList shownRows(const QAbstractItemModel& model, const QModelIndex& parent = {})
{
    QStringList rows;
    for (int row = 0; row < model.rowCount(parent); ++row) {
        const QModelIndex index = model.index(row, 0, parent);
        rows << index.data().toString() << shownRows(model, index);
    }
    return rows;
}

// The texts of the rows a person sees in the tree view: those under expanded nodes.
QStringList drawnRows(const QTreeView& view, const QModelIndex& parent = {})
{
    QStringList rows;
    for (int row = 0; row < view.model()->rowCount(parent); ++row) {
        const QModelIndex index = view.model()->index(row, 0, parent);
        rows << index.data().toString();
        if (view.isExpanded(index))
            rows << drawnRows(view, index);
    }
    return rows;
}

QModelIndex rowOf(const QTreeView& view, const QString& text)
{
    const QModelIndexList found = view.model()->match(view.model()->index(0, 0), Qt::DisplayRole,
                                                      text, 1, Qt::MatchRecursive);
    return found.value(0);
}

// A clerk finds an agent by a piece of its name: in the tree's filter, or in search entry.
TEST_F(AgentsShellTest, AnAgentIsFoundByNameInTheTreeAndInSearchEntry)
{
    gui::ScreenWindow& window = openAgents();
    agenti::FRMMG_AGENTI& screen = screenOf(window);
    frame::GestAnagrafica& agents = *screen.FME_GestAnagrafica(agenti::FRMMG_AGENTI::Agenti);
    const auto recordAgent = [&agents] {
        return agents.shownRowValue(QStringLiteral("MG17_AGENTE")).value_or(db::Value()).toString();
    };
    auto& tree = widget<QTreeView>(window, "GRD_AGENTI");
    auto& filter = widget<QLineEdit>(window, "filtroAlbero");

    // Typed into the filter, a name narrows the tree to its agent, the agents above it and
    // those under it, even under a collapsed node; Enter shows it.
    for (const QString& node :
         {QStringLiteral("CZ01 - COLOMBO LUCA"), QStringLiteral("CA02 - ESPOSITO ANNA")})
        tree.collapse(rowOf(tree, node));
    processEventsFor(20);
    filter.setFocus();
    keyClicks(&filter, QStringLiteral("greco"));
    EXPECT_EQ(shownRows(*tree.model()), (QStringList{QStringLiteral("CA02 - ESPOSITO ANNA"),
                                                     QStringLiteral("CZ03 - GRECO ELENA")}));
    keyClick(&filter, Qt::Key_Return);
    EXPECT_EQ(recordAgent(), QStringLiteral("CZ03"));

    // Esc gives the tree back as it was, the nodes the person had collapsed still collapsed
    // except above the agent on view, which stays selected.
    filter.setFocus();
    keyClick(&filter, Qt::Key_Escape);
    EXPECT_EQ(
        drawnRows(tree),
        (QStringList{QStringLiteral("CA01 - BIANCHI MARIO"), QStringLiteral("CZ01 - COLOMBO LUCA"),
                     QStringLiteral("CZ02 - VERDI GIUSEPPE"), QStringLiteral("A003 - MARINO PAOLO"),
                     QStringLiteral("CA02 - ESPOSITO ANNA"), QStringLiteral("CZ03 - GRECO ELENA"),
                     QStringLiteral("D'ANGELO - D'ANGELO SALVATORE")}));
    EXPECT_EQ(tree.currentIndex().data().toString(), QStringLiteral("CZ03 - GRECO ELENA"));
    EXPECT_TRUE(tree.selectionModel()->isSelected(tree.currentIndex()));

    // Search entry shows itself, takes a name, and opens the agents list narrowed to it; a
    // name no agent has is told, not shown as an empty list.
    shell->pressButton(services::HostNavigator::Search);
    auto& code = widget<QLineEdit>(window, "TXT_AGENTE");
    EXPECT_TRUE(code.property("tarvelloSearching").toBool());
    EXPECT_TRUE(window.windowTitle().endsWith(QStringLiteral("Ricerca[*]")));
    keyClicks(&code, QStringLiteral("nessuno"));
    keyClick(&code, Qt::Key_Return);
    ASSERT_FALSE(prompts.history().isEmpty());
    EXPECT_EQ(prompts.history().last().kind, services::PromptKind::MessageBox);
    EXPECT_EQ(prompts.history().last().text,
              QStringLiteral("Nessuna riga dell'elenco contiene \"NESSUNO\"."));
    code.selectAll();
    keyClicks(&code, QStringLiteral("marino"));
    prompts.queue(services::PromptAnswer::pickRow(1));
    keyClick(&code, Qt::Key_Return);
    ASSERT_FALSE(prompts.history().isEmpty());
    EXPECT_EQ(prompts.history().last().kind, services::PromptKind::LookupList);
    EXPECT_TRUE(prompts.history().last().title.endsWith(QStringLiteral("\"MARINO\"")));
    EXPECT_EQ(recordAgent(), QStringLiteral("A003"));
    EXPECT_FALSE(code.property("tarvelloSearching").toBool());
    EXPECT_EQ(window.caption().recordShown(), QStringLiteral("A003 MARINO PAOLO"));
}

} // namespace
} // namespace tarvello::test
