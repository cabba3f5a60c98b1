#include "controls/rows.h"
#include "platform/controls/form.h"
#include "platform/controls/grid.h"
#include "platform/controls/treegrid.h"
#include "platform/gui/formbinder.h"
#include "platform/gui/treegridmodel.h"
#include "platform/gui/treegridview.h"
#include "widgettesting.h"

#include <QHeaderView>
#include <QPixmap>
#include <QTableView>
#include <QTreeView>
#include <QVBoxLayout>
#include <gtest/gtest.h>

namespace tarvello::gui {
namespace {

using db::Decimal;
using db::Value;

class GridViewTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        grid->addColumn(QStringLiteral("MG18_CODSOCIO"), QStringLiteral("Cod."), 600);
        grid->addColumn(QStringLiteral("MG18_NOMECOGN"), QStringLiteral("Nome e cognome"), 2850);
        grid->addColumn(QStringLiteral("MG18_PERQUOTA"), QStringLiteral("% Quota"), 900,
                        QStringLiteral("#.000"));
        grid->setColumnNumeric(QStringLiteral("MG18_PERQUOTA"), true);
        grid->setDataSource(partners);
        table->setObjectName(QStringLiteral("GRID_AGENTISOCI"));
        layout->addWidget(table);
        form.load();
        FormBinder::bind(form, window);
        ASSERT_TRUE(test::showActive(window));
    }

    QString shown(int row, int column) const
    {
        return table->model()->index(row, column).data().toString();
    }

    db::RecordsetPtr partners =
        test::memoryRows({"MG18_CODSOCIO", "MG18_NOMECOGN", "MG18_PERQUOTA"},
                         {{1, "Rossi Mario", Decimal(50)},
                          {2, "Bianchi Anna", Decimal::fromParts(255, 1)},
                          {3, "Verdi Luca", Decimal::fromParts(245, 1)}});
    controls::Form form{QStringLiteral("FRM_PROVA")};
    controls::Grid* grid = form.add<controls::Grid>(QStringLiteral("GRID_AGENTISOCI"));
    QWidget window;
    QVBoxLayout* layout = new QVBoxLayout(&window);
    QTableView* table = new QTableView(&window);
};

TEST_F(GridViewTest, ShowsTheRowsWithTheLayoutsCaptionsWidthsAndFormats)
{
    ASSERT_EQ(table->model()->rowCount(), 3);
    ASSERT_EQ(table->model()->columnCount(), 3);
    EXPECT_EQ(table->model()->headerData(1, Qt::Horizontal).toString(),
              QStringLiteral("Nome e cognome"));
    EXPECT_EQ(table->horizontalHeader()->sectionSize(1), 2850 / 15);
    EXPECT_EQ(shown(1, 1), QStringLiteral("Bianchi Anna"));
    EXPECT_EQ(shown(0, 2), QStringLiteral("50,000"));
    EXPECT_TRUE(table->model()->index(0, 2).data(Qt::TextAlignmentRole).value<Qt::Alignment>() &
                Qt::AlignRight);

    grid->setColumnVisible(QStringLiteral("MG18_CODSOCIO"), false);
    EXPECT_EQ(table->model()->columnCount(), 2);
    EXPECT_EQ(shown(2, 0), QStringLiteral("Verdi Luca"));
}

// The selection is the recordset's current row, whoever moves it.
TEST_F(GridViewTest, SelectionFollowsTheCurrentRowBothWays)
{
    EXPECT_EQ(table->currentIndex().row(), 0);
    partners->moveLast();
    EXPECT_EQ(table->currentIndex().row(), 2);
    EXPECT_TRUE(table->selectionModel()->isRowSelected(2, {}));

    const QRect second = table->visualRect(table->model()->index(1, 1));
    test::mouseClick(table->viewport(), second.center());
    EXPECT_EQ(form.activeControl(), grid);
    EXPECT_EQ(partners->value(u"MG18_NOMECOGN"), Value("Bianchi Anna"));
    EXPECT_EQ(grid->selectedRow(), 1);

    // A row added is inserted: the view keeps its state instead of reading every row again.
    int resets = 0;
    int inserted = 0;
    const QObject watching; // the counting ends with the test's body
    QObject::connect(table->model(), &QAbstractItemModel::modelReset, &watching, [&] { ++resets; });
    QObject::connect(table->model(), &QAbstractItemModel::rowsInserted, &watching,
                     [&] { ++inserted; });
    partners->addNew();
    partners->setValue(u"MG18_NOMECOGN", QStringLiteral("Neri Ugo"));
    partners->update();
    EXPECT_EQ(resets, 0);
    EXPECT_EQ(inserted, 1);
    EXPECT_EQ(table->model()->rowCount(), 4);
    EXPECT_EQ(shown(3, 1), QStringLiteral("Neri Ugo"));
    EXPECT_EQ(table->currentIndex().row(), 3);

    // Rows rewritten in bulk reach the view at the release, as one insertion.
    QList<std::pair<int, int>> insertions;
    QObject::connect(table->model(), &QAbstractItemModel::rowsInserted, &watching,
                     [&](const QModelIndex&, int first, int last) {
                         insertions.append({first, last});
                     });
    grid->holdChanges();
    partners->moveFirst();
    partners->setValue(u"MG18_NOMECOGN", QStringLiteral("Rossi Maria"));
    for (const char* name : {"Gialli Eva", "Blu Ivo", "Rosa Lia"}) {
        partners->addNew();
        partners->setValue(u"MG18_NOMECOGN", QString::fromUtf8(name));
        partners->update();
    }
    EXPECT_EQ(table->model()->rowCount(), 4) << "nothing reaches the view while held";
    EXPECT_EQ(table->currentIndex().row(), 3);
    grid->releaseChanges();
    EXPECT_EQ(resets, 0);
    EXPECT_EQ(insertions, (QList<std::pair<int, int>>{{4, 6}}));
    EXPECT_EQ(shown(0, 1), QStringLiteral("Rossi Maria"));
    EXPECT_EQ(shown(6, 1), QStringLiteral("Rosa Lia"));
    EXPECT_EQ(table->currentIndex().row(), 6);
    EXPECT_TRUE(table->selectionModel()->isRowSelected(6, {}));
}

class TreeGridViewTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        tree->setTreeColumns(QStringLiteral("MG17_IDAGENTE"), QStringLiteral("MG17_IDAGERIF_MG17"));
        tree->addColumn(QStringLiteral("MG17_AGENTE"), QStringLiteral("Agente"), 1500);
        tree->addColumn(QStringLiteral("MG17_INDTIPOAGE"), QStringLiteral(" "), 600);
        tree->setColumnImageList(QStringLiteral("MG17_INDTIPOAGE"),
                                 QStringLiteral("IMG_ICONETREE"));
        tree->setDataSource(agents);
        view->setObjectName(QStringLiteral("GRD_AGENTI"));
        form.load();
        FormBinder::bind(form, *view);
        if (auto* shown = view->findChild<TreeGridView*>())
            model = &shown->treeModel();
    }

    db::RecordsetPtr agents =
        test::memoryRows({"MG17_AGENTE", "MG17_IDAGENTE", "MG17_IDAGERIF_MG17", "MG17_INDTIPOAGE"},
                         {{"A001", 1, Value::null(), 2},
                          {"A002", 2, 1, 1},
                          {"A003", 3, 2, 0},
                          {"A004", 4, 1, 0},
                          {"A005", 5, Value::null(), 0}});
    controls::Form form{QStringLiteral("FRM_PROVA")};
    controls::TreeGrid* tree = form.add<controls::TreeGrid>(QStringLiteral("GRD_AGENTI"));
    std::unique_ptr<QTreeView> view = std::make_unique<QTreeView>();
    TreeGridModel* model = nullptr;
};

TEST_F(TreeGridViewTest, RowsHangUnderTheirReferenceAgentWithTheirTypePicture)
{
    ASSERT_NE(model, nullptr);
    ASSERT_EQ(model->rowCount(), 2) << "A001 and A005 are roots";
    const QModelIndex a001 = model->index(0, 0);
    EXPECT_EQ(a001.data().toString(), QStringLiteral("A001"));
    ASSERT_EQ(model->rowCount(a001), 2);
    const QModelIndex a002 = model->index(0, 0, a001);
    EXPECT_EQ(model->index(1, 0, a001).data().toString(), QStringLiteral("A004"));
    EXPECT_EQ(model->index(0, 0, a002).data().toString(), QStringLiteral("A003"));
    EXPECT_EQ(model->parent(model->index(0, 0, a002)), a002);

    EXPECT_EQ(model->columnCount(), 1) << "the picture goes beside the outline's text";
    const QPixmap areaManager = a001.data(Qt::DecorationRole).value<QPixmap>();
    EXPECT_EQ(areaManager.size(), QSize(16, 16));
    const QPixmap agent = model->index(1, 0).data(Qt::DecorationRole).value<QPixmap>();
    EXPECT_NE(areaManager.toImage(), agent.toImage()) << "each type has its own picture";
}

TEST_F(TreeGridViewTest, ExpandingAndCollapsingGoThroughTheGrid)
{
    const QAbstractItemModel& shown = *view->model();
    const QModelIndex a001 = shown.index(0, 0);
    EXPECT_TRUE(view->isExpanded(a001));
    view->collapse(a001);
    test::processEventsFor(20);
    EXPECT_FALSE(tree->isExpanded(0));
    EXPECT_EQ(tree->rowCount(), 2);
    EXPECT_TRUE(model->hasChildren(model->index(0, 0)))
        << "a collapsed node still offers to expand";

    tree->expandAll();
    EXPECT_EQ(shown.rowCount(shown.index(0, 0)), 2);
    EXPECT_TRUE(view->isExpanded(shown.index(0, 0)));
}

// A tree places an added row by reading every row again: held, it does so once at the release.
TEST_F(TreeGridViewTest, RowsAddedWhileHeldAreReadOnceAtTheRelease)
{
    int resets = 0;
    QObject::connect(model, &QAbstractItemModel::modelReset, model, [&] { ++resets; });
    tree->holdChanges();
    for (int id : {6, 7, 8}) {
        agents->addNew();
        agents->setValue(u"MG17_AGENTE", QStringLiteral("A00%1").arg(id));
        agents->setValue(u"MG17_IDAGENTE", id);
        agents->setValue(u"MG17_IDAGERIF_MG17", 5);
        agents->update();
    }
    EXPECT_EQ(resets, 0);
    tree->releaseChanges();
    EXPECT_EQ(resets, 1);
    ASSERT_EQ(model->rowCount(model->index(1, 0)), 3) << "A005 holds the three";
    EXPECT_EQ(model->index(2, 0, model->index(1, 0)).data().toString(), QStringLiteral("A008"));
}

} // namespace
} // namespace tarvello::gui
