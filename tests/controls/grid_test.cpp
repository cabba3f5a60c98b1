#include "platform/controls/form.h"
#include "platform/controls/grid.h"
#include "platform/controls/treegrid.h"
#include "rows.h"

#include <gtest/gtest.h>

namespace tarvello::controls {
namespace {

using db::Decimal;
using db::Value;

class GridTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        grid->setKeyColumn(QStringLiteral("ID"));
        grid->addColumn(QStringLiteral("MG18_CODSOCIO"), QStringLiteral("Cod."), 585);
        grid->addColumn(QStringLiteral("MG18_NOMECOGN"), QStringLiteral("Nome e cognome"), 2850);
        grid->addColumn(QStringLiteral("MG18_PERQUOTA"), QStringLiteral("% Quota"), 750,
                        QStringLiteral("#.000"));
        grid->setColumnNumeric(QStringLiteral("MG18_CODSOCIO"), true);
        grid->setColumnNumeric(QStringLiteral("MG18_PERQUOTA"), true);
        grid->setDataSource(partners);
        QObject::connect(partners.get(), &db::Recordset::currentChanged, [this] { ++moves; });
    }

    db::RecordsetPtr partners =
        test::memoryRows({"ID", "MG18_CODSOCIO", "MG18_NOMECOGN", "MG18_PERQUOTA"},
                         {{1, 1, "Rossi Mario", Decimal(50)},
                          {2, 2, "Bianchi Anna", Decimal::fromParts(255, 1)},
                          {3, 3, "Verdi Luca", Decimal::fromParts(245, 1)}});
    Form form{QStringLiteral("FRM")};
    Grid* grid = form.add<Grid>(QStringLiteral("GRID_AGENTISOCI"));
    int moves = 0;
};

TEST_F(GridTest, CellsShowFormattedValuesThroughTheTextHook)
{
    QStringList asked;
    QObject::connect(grid, &Grid::cellTextRequested, [&asked](CellTextArgs& args) {
        asked << args.field;
        if (args.field == u"MG18_CODSOCIO" && args.value == Value(2))
            args.text = QStringLiteral("due");
    });

    EXPECT_EQ(grid->cellText(0, 2), QStringLiteral("50,000"));
    EXPECT_EQ(grid->cellText(1, 2), QStringLiteral("25,500"));
    EXPECT_EQ(grid->cellText(1, 0), QStringLiteral("due"));
    EXPECT_EQ(grid->cellText(2, 0), QStringLiteral("3"));
    EXPECT_EQ(grid->cellText(2, 1), QStringLiteral("Verdi Luca"));
    EXPECT_TRUE(grid->cellText(3, 1).isEmpty());
    EXPECT_EQ(asked.size(), 5);
    EXPECT_EQ(moves, 0) << "reading cells must not move the recordset";
}

TEST_F(GridTest, SelectionFollowsTheRecordsetAndAClickMovesIt)
{
    QList<int> selections;
    int clicks = 0;
    QObject::connect(grid, &Grid::selectedRowChanged,
                     [&selections](int row) { selections << row; });
    QObject::connect(grid, &Grid::clicked, [&clicks] { ++clicks; });
    EXPECT_EQ(grid->selectedRow(), 0);

    partners->moveLast();
    partners->moveNext();
    EXPECT_EQ(grid->selectedRow(), -1) << "past the last row nothing is selected";
    ASSERT_TRUE(grid->clickRow(1));

    EXPECT_EQ(partners->value(u"MG18_NOMECOGN"), Value("Bianchi Anna"));
    EXPECT_EQ(selections, QList<int>({2, -1, 1}));
    EXPECT_EQ(clicks, 1);
    EXPECT_FALSE(grid->clickRow(3));
}

TEST_F(GridTest, RowsFollowTheFilterAndNewRows)
{
    partners->setFilter(QStringLiteral("MG18_PERQUOTA < 30"));
    ASSERT_EQ(grid->rowCount(), 2);
    EXPECT_EQ(grid->cellText(0, 1), QStringLiteral("Bianchi Anna"));

    partners->setFilter(QString());
    partners->addNew();
    partners->setValue(u"MG18_NOMECOGN", QStringLiteral("Neri Ugo"));
    EXPECT_EQ(grid->rowCount(), 4);
    EXPECT_EQ(grid->selectedRow(), 3);
    EXPECT_EQ(grid->cellText(3, 1), QStringLiteral("Neri Ugo"));

    grid->setDataSource(nullptr);
    EXPECT_EQ(grid->rowCount(), 0);
    EXPECT_EQ(grid->selectedRow(), -1);
}

class TreeGridTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        tree->setTreeColumns(QStringLiteral("MG17_IDAGENTE"), QStringLiteral("MG17_IDAGERIF_MG17"));
        tree->addColumn(QStringLiteral("MG17_AGENTE"), QStringLiteral("Codice Agente"), 1000);
        tree->addColumn(QStringLiteral("MG17_INDTIPOAGE"), QStringLiteral(" "), 600);
        tree->setColumnImageList(QStringLiteral("MG17_INDTIPOAGE"),
                                 QStringLiteral("IMG_ICONETREE"));
        tree->setDataSource(agents);
    }

    QStringList shownCodes()
    {
        QStringList codes;
        for (int row = 0; row < tree->rowCount(); ++row)
            codes << tree->cellText(row, 0);
        return codes;
    }

    // In code order, as the tree's recordset reads them; A006 and A007 refer to each other.
    db::RecordsetPtr agents =
        test::memoryRows({"MG17_AGENTE", "MG17_IDAGENTE", "MG17_IDAGERIF_MG17", "MG17_INDTIPOAGE"},
                         {{"A001", 1, Value::null(), 2},
                          {"A002", 2, 1, 1},
                          {"A003", 3, 2, 0},
                          {"A004", 4, 1, 0},
                          {"A005", 5, 99, 0},
                          {"A006", 6, 7, 0},
                          {"A007", 7, 6, 0}});
    Form form{QStringLiteral("FRM")};
    TreeGrid* tree = form.add<TreeGrid>(QStringLiteral("GRD_AGENTI"));
};

TEST_F(TreeGridTest, RowsComeInTreeOrderUnderTheirParents)
{
    EXPECT_EQ(shownCodes(), QStringList({"A001", "A002", "A003", "A004", "A005", "A006", "A007"}));
    EXPECT_EQ(tree->depth(0), 0);
    EXPECT_EQ(tree->depth(2), 2) << "A003 under A002 under A001";
    EXPECT_EQ(tree->depth(3), 1);
    EXPECT_EQ(tree->depth(4), 0) << "a parent that is not among the rows makes a root";
    EXPECT_EQ(tree->depth(6), 1) << "a cycle is broken where it is first met";
    EXPECT_EQ(tree->pictureKey(0, 1), QStringLiteral("2"));
    EXPECT_EQ(tree->pictureKey(2, 1), QStringLiteral("0"));
    EXPECT_TRUE(tree->cellText(0, 1).isEmpty()) << "a picture column shows no text";
}

TEST_F(TreeGridTest, ParentsListedAfterTheirChildrenStillComeFirst)
{
    tree->setDataSource(test::memoryRows({"MG17_AGENTE", "MG17_IDAGENTE", "MG17_IDAGERIF_MG17"},
                                         {{"B001", 10, 30}, {"B002", 20, 30}, {"B003", 30, 0}}));
    EXPECT_EQ(shownCodes(), QStringList({"B003", "B001", "B002"}));
}

} // namespace
} // namespace tarvello::controls
