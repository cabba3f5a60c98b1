// The circular-reference check of the reference-agent field on a hierarchy of N generated
// agents in which the first D agents (by code) form a chain, each referring to the one
// before. Two checks, each repeated:
//   - circle: the top of the chain is shown and the bottom is proposed as its reference
//     agent; walking up the whole chain finds the agent shown;
//   - no circle: the last agent is shown with the same proposal; the walk up reaches the top
//     without finding it, and the walk down from the bottom ends at once.
// Side by side, the floor: the statements the check sent, run on a connection of its own that
// has built the same hierarchy table.
//
//   hierarchy_bench [--agents N] [--depth D] [--repeat R]    (default 100000, 1000, 5)

#include "bench/support/benchhost.h"
#include "platform/controls/field.h"
#include "platform/db/connection.h"
#include "platform/db/demodata.h"
#include "src/screen/frmmg_agenti.h"
#include "src/screen/schedaagente.h"

#include <QCoreApplication>
#include <cstdio>

using namespace tarvello;
using namespace tarvello::bench;

namespace {

constexpr int company = db::DemoCompanies::divisional;

QString agentCode(int number)
{
    return QStringLiteral("AG%1").arg(number, 6, 10, QChar(u'0'));
}

qint64 idOf(db::Connection& connection, const QString& code)
{
    return connection
        .run(QStringLiteral("SELECT MG17_IDAGENTE FROM MG17_AGENTI WHERE MG17_DITTA_CG18 = ? AND "
                            "MG17_AGENTE = ?"),
             {company, code})
        .rows.value(0)
        .value(0)
        .toInt64();
}

void makeChain(db::Connection& connection, int depth)
{
    qint64 above = idOf(connection, agentCode(1));
    for (int i = 2; i <= depth; ++i) {
        const qint64 id = idOf(connection, agentCode(i));
        connection.run(
            QStringLiteral("UPDATE MG17_AGENTI SET MG17_IDAGERIF_MG17 = ? WHERE MG17_IDAGENTE = ?"),
            {above, id});
        above = id;
    }
}

struct Check {
    Sample screen;
    Sample floor;
    bool circular = false;
    qsizetype statements = 0;
};

// Runs the check on the agent shown, with `reference` proposed, and its statements again
// on the floor connection.
Check timeCheck(agenti::FRMMG_AGENTI& screen, db::Connection& floorConnection, qint64 reference,
                int repeat)
{
    Check check;
    db::Connection& connection = *screen.Gcon_Connect();
    screen.controllo<controls::Field>(u"TXT_AGERIF").setText(QString::number(reference));
    for (int i = 0; i < repeat; ++i) {
        moduleStatements(connection);
        QElapsedTimer timer;
        timer.start();
        check.circular = screen.scheda().VerificaRiferimentoCircolare();
        check.screen.ms.push_back(msSince(timer));
        const QStringList statements = moduleStatements(connection);
        check.statements = statements.size();
        check.floor.ms.push_back(replay(floorConnection, statements));
    }
    return check;
}

void print(const char* name, const Check& check)
{
    std::printf("%-28s %6s %10lld %12.2f %12.2f %8.2f\n", name, check.circular ? "yes" : "no",
                static_cast<long long>(check.statements), check.screen.median(),
                check.floor.median(), check.screen.median() / check.floor.median());
}

} // namespace

int main(int argc, char** argv)
{
    QCoreApplication app(argc, argv);
    const QStringList args = app.arguments();
    const int agents = intOption(args, "--agents", 100000);
    const int depth = intOption(args, "--depth", 1000);
    const int repeat = intOption(args, "--repeat", 5);
    require(depth >= 2 && depth < agents, "a chain shorter than the agents");

    const BenchDatabase database(
        agents, [depth](db::Connection& connection) { makeChain(connection, depth); });
    ScreenHost host(database.connectionString(), company);
    agenti::FRMMG_AGENTI& screen = host.open();
    db::Connection& connection = *screen.Gcon_Connect();
    QStringList treeStatements;
    for (const QString& text : moduleStatements(connection)) {
        if (text.contains(QStringLiteral("#TAB_TREEVIEW")))
            treeStatements << text;
    }
    db::Connection floorConnection;
    floorConnection.open(database.connectionString());
    floorConnection.log().setEnabled(false);
    replay(floorConnection, treeStatements);

    const qint64 bottom = idOf(connection, agentCode(depth));
    require(screen.controllo<controls::Field>(u"TXT_AGENTE").text().trimmed() == agentCode(1),
            "the screen opens on the top of the chain");
    const Check circle = timeCheck(screen, floorConnection, bottom, repeat);
    screen.UltimoAgente();
    require(screen.controllo<controls::Field>(u"TXT_AGENTE").text().trimmed() == agentCode(agents),
            "the last agent is shown");
    const Check noCircle = timeCheck(screen, floorConnection, bottom, repeat);
    require(circle.circular && !noCircle.circular, "the check finds the circle and only it");

    std::printf("\n%d agents, a chain of %d; medians of %d checks\n", agents, depth, repeat);
    std::printf("%-28s %6s %10s %12s %12s %8s\n", "check", "circle", "statements", "screen ms",
                "floor ms", "x floor");
    print("top of the chain", circle);
    print("outside the chain", noCircle);
    std::printf("target: under 10 ms (%s)\n",
                circle.screen.median() < 10 && noCircle.screen.median() < 10 ? "met" : "missed");
    return 0;
}
