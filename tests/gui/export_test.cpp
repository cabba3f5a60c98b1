#include "agentsshell.h"
#include "platform/controls/grid.h"
#include "platform/controls/tabstrip.h"
#include "platform/services/hostnavigator.h"

#include <QAction>
#include <QFile>
#include <QFileDialog>
#include <QHeaderView>
#include <QTableView>
#include <QTemporaryDir>

namespace tarvello::test {
namespace {

class GridsTest : public AgentsShellTest {
protected:
    // Ctrl+E, the file named in the save dialog; the lines written.
    QStringList exportTo(const QString& path)
    {
        whenModalShown([path](QWidget& dialog) {
            auto& files = dynamic_cast<QFileDialog&>(dialog);
            files.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))->setText(path);
            QMetaObject::invokeMethod(&files, "accept");
        });
        shell->exportAction()->trigger();
        QFile file(path);
        if (!file.open(QIODevice::ReadOnly | QIODevice::Text))
            return {};
        return QString::fromUtf8(file.readAll()).split(u'\n', Qt::SkipEmptyParts);
    }

    QTemporaryDir folder;
};

// Ctrl+E exports the grid on view as it is shown, never the tree's key columns; a heading
// sorts the partners in the view while the grid keeps its order.
TEST_F(GridsTest, TheGridOnViewIsExportedAndSortedAsShown)
{
    // A share of 5 comes first by value, last as text ("5,000" after "40,000").
    database.connection().executeNonQuery(QStringLiteral(
        "INSERT INTO MG18_AGENTISOCI (MG18_DITTA_CG18, MG18_IDAGENTE_MG17, MG18_CODSOCIO, "
        "MG18_NOMECOGN, MG18_PERQUOTA) SELECT 1, MG17_IDAGENTE, 4, 'ZANON LUCIA', 5 "
        "FROM MG17_AGENTI WHERE MG17_DITTA_CG18 = 1 AND MG17_AGENTE = 'A004'"));
    gui::ScreenWindow& window = openAgents();
    const QStringList tree = exportTo(folder.filePath(QStringLiteral("albero.csv")));
    ASSERT_GE(tree.size(), 3);
    EXPECT_EQ(tree.at(1), QStringLiteral("\"Agente\";\"Codice Agente\""));
    EXPECT_EQ(tree.at(2), QStringLiteral("\"CA01 - BIANCHI MARIO\";\"CA01\""));

    shell->pressButton(services::HostNavigator::Search);
    keyClicks(&widget<QLineEdit>(window, "TXT_AGENTE"), QStringLiteral("A004"));
    shell->pressButton(services::HostNavigator::Search);
    window.form()->find<controls::TabStrip>(u"TAB_AGENTI")->selectPage(1);
    auto& partners = widget<QTableView>(window, "GRID_AGENTISOCI");
    auto& grid = *window.form()->find<controls::Grid>(u"GRID_AGENTISOCI");
    ASSERT_EQ(grid.rowCount(), 4);
    partners.horizontalHeader()->setSortIndicator(4, Qt::AscendingOrder); // % Quota
    EXPECT_EQ(partners.model()->index(0, 1).data().toString(), QStringLiteral("ZANON LUCIA"));
    EXPECT_EQ(partners.model()->index(1, 1).data().toString(), QStringLiteral("FABBRI MATTEO"));
    EXPECT_EQ(grid.cellText(0, grid.columnIndex(u"MG18_NOMECOGN")), QStringLiteral("CONTI ANDREA"));

    const QStringList rows = exportTo(folder.filePath(QStringLiteral("soci.csv")));
    ASSERT_EQ(rows.size(), 6);
    EXPECT_TRUE(rows.at(1).startsWith(QStringLiteral("\"Cod.\";\"Nome e cognome\"")));
    EXPECT_TRUE(rows.at(2).contains(QStringLiteral("\"ZANON LUCIA\"")));
}

} // namespace
} // namespace tarvello::test
