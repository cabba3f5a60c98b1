#pragma once

#include "platform/services/hostcontext.h"
#include "platform/services/hostnavigator.h"
#include "platform/services/scriptedprompts.h"
#include "src/host/menuentry.h"

#include <QElapsedTimer>
#include <QStringList>
#include <QTemporaryDir>
#include <functional>
#include <memory>
#include <vector>

namespace tarvello::db {
class Connection;
}

namespace tarvello::agenti {
class CLSMG_AGENTI;
class FRMMG_AGENTI;
} // namespace tarvello::agenti

namespace tarvello::bench {

double msSince(const QElapsedTimer& timer);

// Timings of repeated steps, in milliseconds.
struct Sample {
    std::vector<double> ms;
    double median() const;
    double percentile95() const;
    double mean() const;
};

// A database file of the host's schema with the generated demo rows of `agents` agents,
// and whatever `extra` writes on top of them, in a folder that goes with this object.
class BenchDatabase {
public:
    explicit BenchDatabase(int agents, const std::function<void(db::Connection&)>& extra = nullptr);
    QString path() const;
    QString connectionString() const;
    // A copy of the database file beside it, so that each of several runs starts from the
    // same rows laid out the same way; its path.
    QString copy(const QString& name) const;

private:
    QTemporaryDir m_dir;
};

// The agents screen as the host opens it, with the host's services around it. Person's
// answers, when a step asks for them, are queued on prompts().
class ScreenHost {
public:
    explicit ScreenHost(const QString& connectionString, int company);
    ~ScreenHost();
    ScreenHost(const ScreenHost&) = delete;
    ScreenHost& operator=(const ScreenHost&) = delete;

    // Opens the screen until its first activation is over; exits when it does not open.
    agenti::FRMMG_AGENTI& open();
    services::ScriptedPrompts& prompts() { return m_prompts; }

private:
    class Menu final : public host::MenuEntry {
    public:
        QString key() const override { return QStringLiteral("MNU_ANAGRAFICA_AGENTI"); }
    };

    services::ScriptedPrompts m_prompts;
    services::HostContext m_context;
    services::HostNavigator m_toolbar;
    Menu m_menu;
    std::unique_ptr<agenti::CLSMG_AGENTI> m_module;
};

// The statements the module sent on the connection since the last call (the platform's own
// row writes left out); the log is emptied.
QStringList moduleStatements(db::Connection& connection);
// Runs the statements straight on the connection, every row read and nothing kept; the
// milliseconds it took.
double replay(db::Connection& connection, const QStringList& statements);
// The most memory the process has held resident so far, in megabytes.
double peakResidentMb();
// The number after `name` on the command line; `fallback` when it is not given.
int intOption(const QStringList& args, const char* name, int fallback);
// Stops the benchmark with a message when a step did not do what it must.
void require(bool ok, const char* what);

} // namespace tarvello::bench
