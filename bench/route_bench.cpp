// The customer list hands N customers to the route on view of an agent: the screen inserts
// them into the route ("Recupera elenco clienti") and the agent's save writes them. Side by
// side, the floor: the same rows inserted through the SQLite C API, one prepared statement
// in one transaction. Sizes in one run show how the cost grows with the customers.
//
//   route_bench [--customers N[,N...]] [--agents A]    (default 1000,10000 customers, 200 agents)

#include "bench/support/benchhost.h"
#include "platform/controls/button.h"
#include "platform/controls/field.h"
#include "platform/db/connection.h"
#include "platform/db/demodata.h"
#include "platform/frame/gestanagrafica.h"
#include "src/screen/frmmg_agenti.h"

#include <QCoreApplication>
#include <cstdio>
#include <sqlite3.h>

using namespace tarvello;
using namespace tarvello::bench;

namespace {

constexpr int company = db::DemoCompanies::divisional;
// Customer codes no generated route holds.
constexpr qint64 firstCustomer = 900000;

struct Timing {
    int customers = 0;
    double screenMs = 0;
    double saveMs = 0;
    double floorMs = 0;
};

qint64 routeRows(db::Connection& connection, const QString& route, qint64 agent)
{
    return connection
        .run(QStringLiteral("SELECT COUNT(*) FROM MG1I_DETTAGLIOGIRI WHERE MG1I_GIRO_MG1H = ? "
                            "AND MG1I_IDAGENTE_MG17 = ?"),
             {route, agent})
        .rows.value(0)
        .value(0)
        .toInt64();
}

// The same rows, for another agent, straight through SQLite.
double floorInsert(const QString& path, int customers, qint64 agent)
{
    sqlite3* db = nullptr;
    require(sqlite3_open(path.toUtf8().constData(), &db) == SQLITE_OK, "open");
    QElapsedTimer timer;
    timer.start();
    require(sqlite3_exec(db, "BEGIN", nullptr, nullptr, nullptr) == SQLITE_OK, "begin");
    sqlite3_stmt* insert = nullptr;
    require(sqlite3_prepare_v2(db,
                               "INSERT INTO MG1I_DETTAGLIOGIRI (MG1I_DITTA_CG18, "
                               "MG1I_IDAGENTE_MG17, MG1I_GIRO_MG1H, MG1I_PROGRESSIVO, "
                               "MG1I_TIPOCF_CG44, MG1I_CLIFOR_CG44, MG1I_CODDEST_MG22) "
                               "VALUES (?, ?, ?, ?, 0, ?, NULL)",
                               -1, &insert, nullptr) == SQLITE_OK,
            "prepare");
    for (int i = 0; i < customers; ++i) {
        sqlite3_bind_int(insert, 1, company);
        sqlite3_bind_int64(insert, 2, agent);
        sqlite3_bind_text(insert, 3, "ZZZ", 3, SQLITE_STATIC);
        sqlite3_bind_int(insert, 4, i + 1);
        sqlite3_bind_int64(insert, 5, firstCustomer + i);
        require(sqlite3_step(insert) == SQLITE_DONE, "insert");
        sqlite3_reset(insert);
    }
    sqlite3_finalize(insert);
    require(sqlite3_exec(db, "COMMIT", nullptr, nullptr, nullptr) == SQLITE_OK, "commit");
    const double ms = msSince(timer);
    sqlite3_close(db);
    return ms;
}

Timing runFor(int customers, int agents)
{
    const BenchDatabase database(agents);
    ScreenHost host(database.connectionString(), company);
    agenti::FRMMG_AGENTI& screen = host.open();
    screen.Gcon_Connect()->log().setEnabled(false);
    const QString route = screen.controllo<controls::Field>(u"TXT_GIRO").text().trimmed();
    const qint64 agent =
        screen.Grst_GestAnagrafica(agenti::FRMMG_AGENTI::Agenti)->value(u"MG17_IDAGENTE").toInt64();
    require(!route.isEmpty(), "the agent shown has a route on view");
    const qint64 before = routeRows(*screen.Gcon_Connect(), route, agent);

    QList<services::CustomerChoice> list;
    list.reserve(customers);
    for (int i = 0; i < customers; ++i)
        list.append({QString::number(firstCustomer + i), QString()});
    host.prompts().queue(services::PromptAnswer::customers(list));

    Timing t{customers};
    QElapsedTimer timer;
    timer.start();
    require(screen.controllo<controls::Button>(u"CMD_MULTICLI").click(), "the customer list");
    const double insertMs = msSince(timer);
    require(screen.FME_GestAnagrafica(agenti::FRMMG_AGENTI::Agenti)->save(), "the agent's save");
    t.screenMs = msSince(timer);
    t.saveMs = t.screenMs - insertMs;
    require(routeRows(*screen.Gcon_Connect(), route, agent) == before + customers,
            "every customer is saved in the route");

    t.floorMs = floorInsert(database.path(), customers, agent + 1);
    return t;
}

} // namespace

int main(int argc, char** argv)
{
    QCoreApplication app(argc, argv);
    const QStringList args = app.arguments();
    QList<int> sizes{1000, 10000};
    const qsizetype at = args.indexOf(QStringLiteral("--customers"));
    if (at >= 0 && at + 1 < args.size()) {
        sizes.clear();
        for (const QString& n : args[at + 1].split(u','))
            sizes << n.toInt();
    }
    const qsizetype agentsAt = args.indexOf(QStringLiteral("--agents"));
    const int agents =
        agentsAt >= 0 && agentsAt + 1 < args.size() ? args[agentsAt + 1].toInt() : 200;

    std::printf("\ncustomers handed to a route, inserted and saved with the agent (%d agents)\n",
                agents);
    std::printf("%10s %12s %10s %12s %8s %14s\n", "customers", "screen ms", "(save ms)", "floor ms",
                "x floor", "screen us/row");
    std::vector<Timing> timings;
    for (const int customers : sizes) {
        const Timing t = runFor(customers, agents);
        timings.push_back(t);
        std::printf("%10d %12.1f %10.1f %12.1f %8.2f %14.1f\n", t.customers, t.screenMs, t.saveMs,
                    t.floorMs, t.screenMs / t.floorMs, t.screenMs * 1000 / t.customers);
    }
    for (size_t i = 1; i < timings.size(); ++i) {
        std::printf("growth %d -> %d customers: screen %.2fx, floor %.2fx, for %.1fx the rows\n",
                    timings[i - 1].customers, timings[i].customers,
                    timings[i].screenMs / timings[i - 1].screenMs,
                    timings[i].floorMs / timings[i - 1].floorMs,
                    double(timings[i].customers) / timings[i - 1].customers);
    }
    std::printf("target: within 2x the floor and linear\n");
    return 0;
}
