#include "agentsshell.h"
#include "platform/controls/field.h"
#include "platform/controls/grid.h"
#include "platform/services/hostnavigator.h"

#include <QAction>
#include <QFileInfo>
#include <QHeaderView>
#include <QMdiArea>
#include <QMenu>
#include <QScrollArea>
#include <QScrollBar>
#include <QSplitter>
#include <QStatusBar>
#include <QTabWidget>
#include <QTableView>
#include <QTemporaryDir>

namespace tarvello::test {
namespace {

// Every page of the screen shows whole: nothing scrolls and no page is squeezed below the
// room its fields need.
void expectPagesWhole(gui::ScreenWindow& window)
{
    auto* pages = window.findChild<QTabWidget*>(QStringLiteral("TAB_AGENTI"));
    ASSERT_NE(pages, nullptr);
    for (int index = 0; index < pages->count(); ++index) {
        pages->setCurrentIndex(index);
        processEventsFor(20);
        QWidget* page = pages->widget(index);
        const QString name = pages->tabText(index);
        EXPECT_TRUE(page->minimumSizeHint().boundedTo(page->size()) == page->minimumSizeHint())
            << name.toStdString();
        for (const QScrollArea* area : page->findChildren<QScrollArea*>()) {
            EXPECT_FALSE(area->horizontalScrollBar()->isVisible()) << name.toStdString();
            EXPECT_FALSE(area->verticalScrollBar()->isVisible()) << name.toStdString();
        }
    }
}

// "Dati generali" and every other page show whole at 1280 x 800, where the screen fills the
// shell, and at the size the screen opens with on a larger display.
TEST_F(AgentsShellTest, EveryPageShowsWholeAt1280x800AndAtTheOpeningSize)
{
    ASSERT_EQ(shell->size(), QSize(1280, 800));
    expectPagesWhole(openAgents());
    shell->screens().closeAllSubWindows();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QSettings().clear();

    shell->resize(1600, 1000);
    processEventsFor(20);
    gui::ScreenWindow& window = openAgents();
    ASSERT_LT(window.width(), shell->screens().width()) << "opened at its own size";
    expectPagesWhole(window);
}

// Tab walks "Dati generali" as it is read: down a column, then from the top of the next.
TEST_F(AgentsShellTest, TabWalksDatiGeneraliColumnByColumn)
{
    gui::ScreenWindow& window = openAgents();
    QWidget& page = widget(window, "contenutoDatiGenerali");
    const auto place = [&page](const QWidget* field) {
        const QWidget* group = field->parentWidget();
        return std::pair(group->mapTo(&page, QPoint()).x(), field->mapTo(&page, QPoint()));
    };
    widget(window, "CBO_REGPROV").setFocus();
    for (QWidget* from = QApplication::focusWidget(); from && page.isAncestorOf(from);) {
        keyClick(from, Qt::Key_Tab);
        QWidget* to = QApplication::focusWidget();
        if (!to || !page.isAncestorOf(to))
            break;
        const auto [fromColumn, fromPoint] = place(from);
        const auto [toColumn, toPoint] = place(to);
        const bool downTheColumn = toColumn == fromColumn &&
                                   (toPoint.y() > fromPoint.y() ||
                                    (toPoint.y() == fromPoint.y() && toPoint.x() > fromPoint.x()));
        EXPECT_TRUE(downTheColumn || toColumn > fromColumn)
            << from->objectName().toStdString() << " -> " << to->objectName().toStdString();
        from = to;
    }
}

// The screen names the agent on view and marks its changes; a save leaves a line in the status
// bar.
TEST_F(AgentsShellTest, TheScreenNamesItsAgentAndReportsASave)
{
    ASSERT_EQ(shell->size(), QSize(1280, 800));
    gui::ScreenWindow& window = openAgents();

    EXPECT_EQ(window.windowTitle(), QStringLiteral("Anagrafica agenti - A001 RICCI FRANCESCA[*]"));
    EXPECT_FALSE(window.isWindowModified());
    window.form()->find<controls::Field>(u"TXT_PERPROV")->setFocus();
    keyClicks(&widget<QLineEdit>(window, "TXT_PERPROV"), QStringLiteral("6"));
    EXPECT_TRUE(window.isWindowModified());
    shell->pressButton(services::HostNavigator::Save);
    EXPECT_FALSE(window.isWindowModified());
    EXPECT_TRUE(shell->statusBar()->currentMessage().startsWith(
        QStringLiteral("Salvato: A001 RICCI FRANCESCA alle ")))
        << shell->statusBar()->currentMessage().toStdString();
}

// The place and size of the window (maximized at first in a shell too small for it), its
// splitter and the widths the person gave the columns of a grid are there again at the next
// opening, and a reload of the rows keeps them.
TEST_F(AgentsShellTest, TheScreenOpensAsThePersonLeftIt)
{
    gui::ScreenWindow& first = openAgents();
    EXPECT_TRUE(first.isMaximized());
    first.showNormal();
    const QRect placed(30, 20, 1100, 660);
    first.setGeometry(placed);
    auto& splitter = widget<QSplitter>(first, "divisore");
    splitter.setSizes({330, 700});
    const QList<int> sizes = splitter.sizes();
    auto& partners = widget<QTableView>(first, "GRID_AGENTISOCI");
    partners.horizontalHeader()->resizeSection(0, 123);
    first.form()->find<controls::Grid>(u"GRID_AGENTISOCI")->refresh();
    EXPECT_EQ(partners.horizontalHeader()->sectionSize(0), 123) << "a reload keeps the width";
    first.close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    ASSERT_EQ(shell->screens().subWindowList().size(), 0);

    gui::ScreenWindow& second = openAgents();
    EXPECT_FALSE(second.isMaximized());
    EXPECT_EQ(second.geometry(), placed);
    EXPECT_EQ(widget<QSplitter>(second, "divisore").sizes(), sizes);
    EXPECT_EQ(widget<QTableView>(second, "GRID_AGENTISOCI").horizontalHeader()->sectionSize(0),
              123);
}

// The menu "Agente" offers what the toolbar does, with the same shortcuts, and the printout
// of the agent on view, which a new agent not yet saved does not have.
TEST_F(AgentsShellTest, TheAgentMenuPrintsTheAgentOnView)
{
    openAgents();
    const QList<QAction*> menu = shell->recordMenu().actions();
    using Button = services::HostNavigator::Button;
    for (const qint32 button : {Button::First, Button::Next, Button::New, Button::Save,
                                Button::Undo, Button::Delete, Button::Search})
        EXPECT_TRUE(menu.contains(shell->toolbarAction(button))) << button;
    EXPECT_TRUE(menu.contains(shell->exportAction()));

    const QTemporaryDir folder;
    const QString pdf = folder.filePath(QStringLiteral("agente.pdf"));
    prompts.queue(services::PromptAnswer::file(pdf));
    ASSERT_TRUE(shell->printRecordAction()->isEnabled());
    shell->printRecordAction()->trigger();
    EXPECT_GT(QFileInfo(pdf).size(), 0);
    ASSERT_FALSE(prompts.history().isEmpty());
    EXPECT_TRUE(prompts.history().last().details.endsWith(QStringLiteral("-A001.pdf")))
        << "the printout of A001 alone";

    shell->pressButton(Button::New);
    EXPECT_FALSE(shell->printRecordAction()->isEnabled());
}

} // namespace
} // namespace tarvello::test
