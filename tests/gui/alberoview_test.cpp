#include "platform/db/demodata.h"
#include "platform/db/recordset.h"
#include "platform/gui/screenwindow.h"
#include "platform/gui/shellhost.h"
#include "platform/gui/shellwindow.h"
#include "platform/script/agentsmodule.h"
#include "platform/services/scriptedprompts.h"
#include "src/screen/frmmg_agenti.h"
#include "src/tree/alberoagenti.h"
#include "support/testdatabase.h"

#include <QTreeView>
#include <gtest/gtest.h>

namespace tarvello::gui {
namespace {

// The agents screen in the shell on the demo data, with a layout that holds only its tree.
class AgentsTreeWindowTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        db::createSchema(database.connection());
        db::populateDemoData(database.connection());
        host = std::make_unique<ShellHost>(prompts, database.connectionString());
        window = std::make_unique<ShellWindow>(*host, nullptr);
        script::registerAgentsModule(host->context().modules(), agenti::FRMMG_AGENTI::fabbrica());
        const ShellWindow::ModuleEntry agents{QStringLiteral("Anagrafica agenti"),
                                              script::agentsModuleIdentifier()};
        window->addModule(agents);
        window->addScreenLayout(QStringLiteral("FRMMG_AGENTI"), [] {
            auto content = std::make_unique<QWidget>();
            (new QTreeView(content.get()))->setObjectName(QStringLiteral("GRD_AGENTI"));
            return content;
        });
        ScreenWindow* opened = window->openModule(agents);
        ASSERT_NE(opened, nullptr);
        view = opened->findChild<QTreeView*>(QStringLiteral("GRD_AGENTI"));
        screen = qobject_cast<agenti::FRMMG_AGENTI*>(opened->form());
        ASSERT_NE(view, nullptr);
        ASSERT_NE(screen, nullptr);
    }

    // The AGENTE text of the tree recordset's current row; empty past either end.
    QString currentAgent() const
    {
        const db::RecordsetPtr tree = screen->albero().Grst_AlberoAgenti();
        return tree->bof() || tree->eof() ? QString() : tree->value(u"AGENTE").toString();
    }

    test::TestDatabase database{test::databaseTargets().front()};
    services::ScriptedPrompts prompts;
    // Made once the database has its schema, which the host reads its companies from.
    std::unique_ptr<ShellHost> host;
    std::unique_ptr<ShellWindow> window;
    QTreeView* view = nullptr;
    agenti::FRMMG_AGENTI* screen = nullptr;
};

TEST_F(AgentsTreeWindowTest, RowsShowCodeNameAndTypePictureWithoutTheKeyColumns)
{
    const QAbstractItemModel& model = *view->model();
    QStringList captions;
    for (int column = 0; column < model.columnCount(); ++column)
        captions << model.headerData(column, Qt::Horizontal).toString();
    EXPECT_EQ(captions, (QStringList{QStringLiteral("Agente"), QStringLiteral("Codice Agente")}));
    const QModelIndex root = model.index(0, 0);
    EXPECT_EQ(root.data().toString(), QStringLiteral("CA01 - BIANCHI MARIO"));
    EXPECT_FALSE(root.data(Qt::DecorationRole).isNull());
    ASSERT_TRUE(model.hasChildren(root));
    EXPECT_EQ(model.index(0, 0, root).data().toString(), QStringLiteral("CZ01 - COLOMBO LUCA"));
}

TEST_F(AgentsTreeWindowTest, TheSelectionFollowsTheWalkAndGoesPastTheEnd)
{
    screen->PrimoAgente();
    for (int step = 0; step < 4; ++step) {
        ASSERT_FALSE(currentAgent().isEmpty());
        EXPECT_EQ(view->currentIndex().data().toString(), currentAgent()) << "step " << step;
        screen->NextAgente();
    }
    screen->UltimoAgente();
    EXPECT_EQ(view->currentIndex().data().toString(), currentAgent());
    screen->NextAgente();
    EXPECT_TRUE(currentAgent().isEmpty());
    EXPECT_FALSE(view->selectionModel()->hasSelection());
}

} // namespace
} // namespace tarvello::gui
