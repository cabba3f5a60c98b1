// Opens the agents screen on a generated database the way the host opens it, until its first
// activation is over (the tree built and shown), then walks agents with the toolbar's next
// button. Side by side, the floor: the statements the screen sent, run directly on a
// connection of its own (opened in the timing), with nothing else around them.
//
//   screen_bench [--agents N] [--moves M]    (default 100000 agents, 1000 moves)

#include "platform/db/connection.h"
#include "platform/db/demodata.h"
#include "platform/services/hostcontext.h"
#include "platform/services/hostnavigator.h"
#include "platform/services/scriptedprompts.h"
#include "src/host/menuentry.h"
#include "src/screen/clsmg_agenti.h"
#include "src/screen/frmmg_agenti.h"
#include "src/tree/alberoagenti.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QTemporaryDir>
#include <algorithm>
#include <cstdio>
#include <memory>
#include <vector>

using namespace tarvello;

namespace {

constexpr int company = db::DemoCompanies::divisional;

class AgentsMenu final : public host::MenuEntry {
public:
    QString key() const override { return QStringLiteral("MNU_ANAGRAFICA_AGENTI"); }
};

double msSince(const QElapsedTimer& timer)
{
    return double(timer.nsecsElapsed()) / 1e6;
}

QStringList moduleStatements(db::Connection& connection)
{
    QStringList texts;
    for (const db::StatementLog::Entry& entry : connection.log().entries()) {
        if (!entry.internal)
            texts << entry.text;
    }
    connection.log().clear();
    return texts;
}

struct Sample {
    std::vector<double> ms;
    double median() const
    {
        std::vector<double> sorted = ms;
        std::sort(sorted.begin(), sorted.end());
        return sorted.empty() ? 0 : sorted[sorted.size() / 2];
    }
    double percentile95() const
    {
        std::vector<double> sorted = ms;
        std::sort(sorted.begin(), sorted.end());
        return sorted.empty() ? 0 : sorted[std::min(sorted.size() - 1, sorted.size() * 95 / 100)];
    }
    double mean() const
    {
        double total = 0;
        for (double v : ms)
            total += v;
        return ms.empty() ? 0 : total / double(ms.size());
    }
};

// The screen as the host opens it, with the host's services around it.
class Host {
public:
    explicit Host(const QString& connectionString)
        : m_context(m_prompts, connectionString,
                    host::Company{company, QStringLiteral("Ditta"), true})
        , m_toolbar(m_context)
    {
        m_context.setNavigator(&m_toolbar);
    }
    ~Host()
    {
        if (auto* screen =
                dynamic_cast<agenti::FRMMG_AGENTI*>(m_module ? m_module->screen() : nullptr);
            screen && screen->isLoaded())
            screen->unload();
    }

    agenti::FRMMG_AGENTI& open()
    {
        m_module = std::make_unique<agenti::CLSMG_AGENTI>(agenti::FRMMG_AGENTI::fabbrica());
        m_module->setClsGlobal(&m_context);
        m_module->setActiveNavigator(&m_toolbar);
        m_module->setClsVoceMenu(&m_menu);
        m_module->setCaption(QStringLiteral("Anagrafica agenti"));
        m_context.setActiveModule(m_module.get());
        m_module->setIsActive(true);
        m_module->ShowForm();
        auto* screen = dynamic_cast<agenti::FRMMG_AGENTI*>(m_module->screen());
        if (!screen || !screen->Gcon_Connect()) {
            std::fprintf(stderr, "the agents screen did not open\n");
            std::exit(1);
        }
        return *screen;
    }

private:
    services::ScriptedPrompts m_prompts;
    services::HostContext m_context;
    services::HostNavigator m_toolbar;
    AgentsMenu m_menu;
    std::unique_ptr<agenti::CLSMG_AGENTI> m_module;
};

// The statements run straight on a connection: every row read, nothing kept.
double replay(db::Connection& connection, const QStringList& statements)
{
    QElapsedTimer timer;
    timer.start();
    for (const QString& text : statements)
        connection.query(text);
    return msSince(timer);
}

} // namespace

int main(int argc, char** argv)
{
    QCoreApplication app(argc, argv);
    const QStringList args = app.arguments();
    const auto option = [&args](const char* name, int fallback) {
        const qsizetype at = args.indexOf(QString::fromLatin1(name));
        return at >= 0 && at + 1 < args.size() ? args[at + 1].toInt() : fallback;
    };
    const int agents = option("--agents", 100000);
    const int moves = option("--moves", 1000);

    QTemporaryDir dir;
    const QString connectionString =
        QStringLiteral("Data Source=") + dir.filePath(QStringLiteral("bench.db"));
    {
        db::Connection connection;
        connection.open(connectionString);
        connection.log().setEnabled(false);
        db::createSchema(connection);
        db::populateDemoData(connection, db::DemoOptions{agents});
    }

    Host host(connectionString);
    QElapsedTimer timer;
    timer.start();
    agenti::FRMMG_AGENTI& screen = host.open();
    const double openMs = msSince(timer);
    const QStringList openStatements = moduleStatements(*screen.Gcon_Connect());
    const db::RecordsetPtr tree = screen.albero().Grst_AlberoAgenti();
    const qsizetype treeRows = tree ? tree->recordCount() : 0;

    Sample walk;
    for (int i = 0; i < moves; ++i) {
        timer.restart();
        screen.NextAgente();
        walk.ms.push_back(msSince(timer));
    }
    const QStringList moveStatements = moduleStatements(*screen.Gcon_Connect());

    timer.restart();
    db::Connection floorConnection;
    floorConnection.open(connectionString);
    floorConnection.log().setEnabled(false);
    const double floorOpenMs = msSince(timer) + replay(floorConnection, openStatements);
    const double floorMovesMs = replay(floorConnection, moveStatements);
    const double floorMoveMs = moves > 0 ? floorMovesMs / moves : 0;

    std::printf("\n%d agents generated, %lld in the tree; %d moves with the next button\n", agents,
                static_cast<long long>(treeRows), moves);
    std::printf("statements: %lld to open, %lld for the moves\n",
                static_cast<long long>(openStatements.size()),
                static_cast<long long>(moveStatements.size()));
    std::printf("%-34s %12s %12s %8s\n", "", "screen ms", "floor ms", "x floor");
    std::printf("%-34s %12.1f %12.1f %8.2f\n", "open to first activation done", openMs, floorOpenMs,
                openMs / floorOpenMs);
    std::printf("%-34s %12.3f %12.3f %8.2f\n", "move: median", walk.median(), floorMoveMs,
                floorMoveMs > 0 ? walk.median() / floorMoveMs : 0);
    std::printf("%-34s %12.3f\n", "move: mean", walk.mean());
    std::printf("%-34s %12.3f\n", "move: 95th percentile", walk.percentile95());
    std::printf("targets: open within 2x the floor (%s), a move under 5 ms median (%s)\n",
                openMs <= 2 * floorOpenMs ? "met" : "missed", walk.median() < 5 ? "met" : "missed");
    return 0;
}
