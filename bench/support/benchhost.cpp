#include "bench/support/benchhost.h"

#include "platform/db/connection.h"
#include "platform/db/demodata.h"
#include "src/screen/clsmg_agenti.h"
#include "src/screen/frmmg_agenti.h"

#include <QFile>
#include <algorithm>
#include <cstdio>
#include <cstdlib>

namespace tarvello::bench {

namespace {

std::vector<double> sorted(std::vector<double> values)
{
    std::sort(values.begin(), values.end());
    return values;
}

} // namespace

double msSince(const QElapsedTimer& timer)
{
    return double(timer.nsecsElapsed()) / 1e6;
}

double Sample::median() const
{
    const std::vector<double> values = sorted(ms);
    return values.empty() ? 0 : values[values.size() / 2];
}

double Sample::percentile95() const
{
    const std::vector<double> values = sorted(ms);
    return values.empty() ? 0 : values[std::min(values.size() - 1, values.size() * 95 / 100)];
}

double Sample::mean() const
{
    double total = 0;
    for (const double v : ms)
        total += v;
    return ms.empty() ? 0 : total / double(ms.size());
}

BenchDatabase::BenchDatabase(int agents, const std::function<void(db::Connection&)>& extra)
{
    db::Connection connection;
    connection.open(connectionString());
    connection.log().setEnabled(false);
    db::createSchema(connection);
    db::populateDemoData(connection, db::DemoOptions{agents});
    if (extra) {
        db::TransactionGuard transaction(connection);
        extra(connection);
        transaction.commit();
    }
}

QString BenchDatabase::path() const
{
    return m_dir.filePath(QStringLiteral("bench.db"));
}

QString BenchDatabase::connectionString() const
{
    return QStringLiteral("Data Source=") + path();
}

QString BenchDatabase::copy(const QString& name) const
{
    const QString target = m_dir.filePath(name);
    QFile::remove(target);
    require(QFile::copy(path(), target), "the database is copied");
    return target;
}

ScreenHost::ScreenHost(const QString& connectionString, int company)
    : m_context(m_prompts, connectionString, host::Company{company, QStringLiteral("Ditta"), true})
    , m_toolbar(m_context)
{
    m_context.setNavigator(&m_toolbar);
}

ScreenHost::~ScreenHost()
{
    if (auto* screen = dynamic_cast<agenti::FRMMG_AGENTI*>(m_module ? m_module->screen() : nullptr);
        screen && screen->isLoaded())
        screen->unload();
}

agenti::FRMMG_AGENTI& ScreenHost::open()
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
    require(screen && screen->Gcon_Connect(), "the agents screen opens");
    return *screen;
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

double replay(db::Connection& connection, const QStringList& statements)
{
    QElapsedTimer timer;
    timer.start();
    for (const QString& text : statements)
        connection.query(text);
    return msSince(timer);
}

double peakResidentMb()
{
    QFile status(QStringLiteral("/proc/self/status"));
    if (!status.open(QIODevice::ReadOnly))
        return 0;
    for (const QByteArray& line : status.readAll().split('\n')) {
        if (line.startsWith("VmHWM:"))
            return line.mid(6).trimmed().split(' ').value(0).toDouble() / 1024;
    }
    return 0;
}

void require(bool ok, const char* what)
{
    if (!ok) {
        std::fprintf(stderr, "benchmark step failed: %s\n", what);
        std::exit(1);
    }
}

int intOption(const QStringList& args, const char* name, int fallback)
{
    const qsizetype at = args.indexOf(QString::fromLatin1(name));
    return at >= 0 && at + 1 < args.size() ? args[at + 1].toInt() : fallback;
}

} // namespace tarvello::bench
