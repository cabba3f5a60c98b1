// Opens the agents screen on an agent with many detail rows (P partners, M maturation rows and
// R route rows on one route), until its first activation is over, then moves between it and a
// second agent with as many, with the toolbar's next and previous buttons. Side by side, the
// floor: the statements the screen sent, run directly on a connection of its own.
//
//   details_bench [--partners P] [--maturation M] [--route R] [--agents N] [--moves K]
//                 (default 1000, 1000, 5000, 1000 agents, 20 moves)

#include "bench/support/benchhost.h"
#include "platform/controls/field.h"
#include "platform/db/connection.h"
#include "platform/db/demodata.h"
#include "src/screen/frmmg_agenti.h"

#include <QCoreApplication>
#include <QDate>
#include <cstdio>

using namespace tarvello;
using namespace tarvello::bench;

namespace {

constexpr int company = db::DemoCompanies::divisional;

struct Details {
    int partners = 0;
    int maturation = 0;
    int route = 0;
};

const QStringList heavyAgents{QStringLiteral("AG000001"), QStringLiteral("AG000002")};

// Gives the agent the detail rows, its route's rows replacing the ones it had.
void fillDetails(db::Connection& connection, const QString& code, const Details& details)
{
    const db::ResultSet found = connection.run(
        QStringLiteral("SELECT MG17_IDAGENTE, MG1I_GIRO_MG1H FROM MG17_AGENTI INNER JOIN "
                       "MG1I_DETTAGLIOGIRI ON MG1I_IDAGENTE_MG17 = MG17_IDAGENTE WHERE "
                       "MG17_DITTA_CG18 = ? AND MG17_AGENTE = ?"),
        {company, code});
    require(!found.rows.isEmpty(), "the agent has a route");
    const db::Value agent = found.rows[0][0];
    const db::Value route = found.rows[0][1];
    for (const char* table : {"MG18_AGENTISOCI", "MG16_AGENTIMAT", "MG1I_DETTAGLIOGIRI"}) {
        const QString prefix = QString::fromLatin1(table).left(4);
        connection.run(QStringLiteral("DELETE FROM %1 WHERE %2_IDAGENTE_MG17 = ?")
                           .arg(QString::fromLatin1(table), prefix),
                       {agent});
    }
    for (int i = 1; i <= details.partners; ++i) {
        connection.run(
            QStringLiteral("INSERT INTO MG18_AGENTISOCI (MG18_DITTA_CG18, MG18_IDAGENTE_MG17, "
                           "MG18_CODSOCIO, MG18_NOMECOGN, MG18_PERQUOTA, MG18_DATAINRAPP) VALUES "
                           "(?, ?, ?, ?, ?, ?)"),
            {company, agent, i, QStringLiteral("SOCIO %1").arg(i), db::Decimal::fromParts(100, 3),
             QDate(2020, 1, 1)});
    }
    const QList<int> paymentTypes{1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16, 99};
    for (int i = 0; i < details.maturation; ++i) {
        connection.run(
            QStringLiteral("INSERT INTO MG16_AGENTIMAT (MG16_DITTA_CG18, MG16_IDAGENTE_MG17, "
                           "MG16_TIPOEFF, MG16_GGMATUR) VALUES (?, ?, ?, ?)"),
            {company, agent, paymentTypes[i % paymentTypes.size()], 30 + i % 60});
    }
    for (int i = 1; i <= details.route; ++i) {
        connection.run(
            QStringLiteral("INSERT INTO MG1I_DETTAGLIOGIRI (MG1I_DITTA_CG18, MG1I_IDAGENTE_MG17, "
                           "MG1I_GIRO_MG1H, MG1I_PROGRESSIVO, MG1I_TIPOCF_CG44, "
                           "MG1I_CLIFOR_CG44) VALUES (?, ?, ?, ?, 0, ?)"),
            {company, agent, route, i, 100000 + i});
    }
}

QString agentShown(const agenti::FRMMG_AGENTI& screen)
{
    return screen.controllo<controls::Field>(u"TXT_AGENTE").text().trimmed();
}

} // namespace

int main(int argc, char** argv)
{
    QCoreApplication app(argc, argv);
    const QStringList args = app.arguments();
    const Details details{intOption(args, "--partners", 1000),
                          intOption(args, "--maturation", 1000), intOption(args, "--route", 5000)};
    const int agents = intOption(args, "--agents", 1000);
    const int moves = intOption(args, "--moves", 20);

    const BenchDatabase database(agents, [&details](db::Connection& connection) {
        for (const QString& code : heavyAgents)
            fillDetails(connection, code, details);
    });
    ScreenHost host(database.connectionString(), company);
    QElapsedTimer timer;
    timer.start();
    agenti::FRMMG_AGENTI& screen = host.open();
    const double openMs = msSince(timer);
    db::Connection& connection = *screen.Gcon_Connect();
    const QStringList openStatements = moduleStatements(connection);
    require(agentShown(screen) == heavyAgents[0], "the screen opens on the first heavy agent");
    require(screen.Grst_GestAnagrafica(agenti::FRMMG_AGENTI::DettaglioGiri)->recordCount() ==
                details.route,
            "the route on view holds every route row");

    Sample walk;
    QList<QStringList> moveStatements;
    for (int i = 0; i < moves; ++i) {
        timer.restart();
        if (i % 2 == 0)
            screen.NextAgente();
        else
            screen.PreviousAgente();
        walk.ms.push_back(msSince(timer));
        moveStatements << moduleStatements(connection);
        require(agentShown(screen) == heavyAgents[(i + 1) % 2], "the move shows the other agent");
    }

    timer.restart();
    db::Connection floorConnection;
    floorConnection.open(database.connectionString());
    floorConnection.log().setEnabled(false);
    const double floorOpenMs = msSince(timer) + replay(floorConnection, openStatements);
    Sample floorWalk;
    for (const QStringList& statements : std::as_const(moveStatements))
        floorWalk.ms.push_back(replay(floorConnection, statements));

    std::printf("\n%d agents; the two shown have %d partners, %d maturation rows, %d route rows\n",
                agents, details.partners, details.maturation, details.route);
    std::printf("statements: %lld to open, %lld for a move\n",
                static_cast<long long>(openStatements.size()),
                static_cast<long long>(moveStatements.value(0).size()));
    std::printf("%-34s %12s %12s %8s\n", "", "screen ms", "floor ms", "x floor");
    std::printf("%-34s %12.1f %12.1f %8.2f\n", "open to first activation done", openMs, floorOpenMs,
                openMs / floorOpenMs);
    std::printf("%-34s %12.2f %12.2f %8.2f\n", "move between the two: median", walk.median(),
                floorWalk.median(), walk.median() / floorWalk.median());
    return 0;
}
