// Opens the agents screen on a generated database the way the host opens it, until its first
// activation is over (the tree built and shown), then walks agents with the toolbar's next
// button. Side by side, the floor: the statements the screen sent, run directly on a
// connection of its own (opened in the timing), with nothing else around them; a move's floor
// is the median of the moves' statements replayed one move at a time. The memory
// figure is the process's peak before the floor runs: the screen's own.
//
//   screen_bench [--agents N] [--moves M]    (default 100000 agents, 1000 moves)

#include "bench/support/benchhost.h"
#include "platform/db/connection.h"
#include "platform/db/demodata.h"
#include "src/screen/frmmg_agenti.h"
#include "src/tree/alberoagenti.h"

#include <QCoreApplication>
#include <cstdio>

using namespace tarvello;
using namespace tarvello::bench;

int main(int argc, char** argv)
{
    QCoreApplication app(argc, argv);
    const QStringList args = app.arguments();
    const int agents = intOption(args, "--agents", 100000);
    const int moves = intOption(args, "--moves", 1000);

    const BenchDatabase database(agents);
    const double generatedMb = peakResidentMb();
    ScreenHost host(database.connectionString(), db::DemoCompanies::divisional);
    QElapsedTimer timer;
    timer.start();
    agenti::FRMMG_AGENTI& screen = host.open();
    const double openMs = msSince(timer);
    const QStringList openStatements = moduleStatements(*screen.Gcon_Connect());
    const db::RecordsetPtr tree = screen.albero().Grst_AlberoAgenti();
    const qsizetype treeRows = tree ? tree->recordCount() : 0;

    Sample walk;
    QList<QStringList> moveStatements;
    qsizetype moveStatementCount = 0;
    for (int i = 0; i < moves; ++i) {
        timer.restart();
        screen.NextAgente();
        walk.ms.push_back(msSince(timer));
        moveStatements << moduleStatements(*screen.Gcon_Connect());
        moveStatementCount += moveStatements.last().size();
    }
    const double screenMb = peakResidentMb();

    timer.restart();
    db::Connection floorConnection;
    floorConnection.open(database.connectionString());
    floorConnection.log().setEnabled(false);
    const double floorOpenMs = msSince(timer) + replay(floorConnection, openStatements);
    // Each move's statements replayed and timed on their own: the two medians compare alike.
    Sample floorWalk;
    for (const QStringList& statements : std::as_const(moveStatements))
        floorWalk.ms.push_back(replay(floorConnection, statements));
    const double floorMoveMs = moves > 0 ? floorWalk.median() : 0;

    std::printf("\n%d agents generated, %lld in the tree; %d moves with the next button\n", agents,
                static_cast<long long>(treeRows), moves);
    std::printf("statements: %lld to open, %lld for the moves\n",
                static_cast<long long>(openStatements.size()),
                static_cast<long long>(moveStatementCount));
    std::printf("%-34s %12s %12s %8s\n", "", "screen ms", "floor ms", "x floor");
    std::printf("%-34s %12.1f %12.1f %8.2f\n", "open to first activation done", openMs, floorOpenMs,
                openMs / floorOpenMs);
    std::printf("%-34s %12.3f %12.3f %8.2f\n", "move: median", walk.median(), floorMoveMs,
                floorMoveMs > 0 ? walk.median() / floorMoveMs : 0);
    std::printf("%-34s %12.3f\n", "move: mean", walk.mean());
    std::printf("%-34s %12.3f\n", "move: 95th percentile", walk.percentile95());
    std::printf("peak resident memory: %.0f MB after generating the database, %.0f MB with the "
                "screen open and walked (target < 250 MB)\n",
                generatedMb, screenMb);
    std::printf("targets: open within 1.3x the floor (%s), a move within 1.3x (%s)\n",
                openMs <= 1.3 * floorOpenMs ? "met" : "missed",
                walk.median() <= 1.3 * floorMoveMs ? "met" : "missed");
    return 0;
}
