#pragma once

#include <QObject>
#include <QString>
#include <QStringList>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

class QEventLoop;

namespace tarvello::services {
class HostContext;
}

namespace tarvello::script {

class Scenario;
struct Command;

// How the shell was asked to run: its command-line options.
struct ShellOptions {
    // --db PATH: a SQLite database file.
    QString databasePath;
    // --connect "DRIVER=...": a database through ODBC.
    QString connectionString;
    // --company N: the host's current company; the first company of the database (or 1)
    // when not given.
    std::optional<qint32> company;
    // --demo: the demo data goes into a database that has none.
    bool demo = false;
    // Registers the host's modules with the context a run builds (the agents module under
    // agentsModuleIdentifier(), which `open` creates). The shell registers its own; a test
    // registers a module of its own.
    std::function<void(services::HostContext&)> registerModules;
};

// Runs a scenario file headless and prints its notes on the standard output and its
// failure on the standard error. Returns 0 when every check held, 1 at the first step that
// failed, 2 when a line cannot be understood (then nothing is run). Needs a
// QCoreApplication (or a QApplication): the run is driven by its event loop.
int runScript(const QString& file, const ShellOptions& options);

// A scenario run. Lines are read and understood first; then each command runs as an event
// of the application's loop, so that a modal screen, which waits in a loop of its own until
// it is closed, is driven by the commands that follow its `open`.
class ScriptRunner final {
public:
    enum class Channel { Notes, Failures };
    using Output = std::function<void(Channel channel, const QString& line)>;

    explicit ScriptRunner(ShellOptions options);
    ~ScriptRunner();
    ScriptRunner(const ScriptRunner&) = delete;
    ScriptRunner& operator=(const ScriptRunner&) = delete;

    // Where the lines go; the standard output and error by default.
    void setOutput(Output output) { m_output = std::move(output); }

    int runFile(const QString& path);
    // name stands for the file in messages.
    int runText(const QString& name, const QString& text);

private:
    struct Step {
        int line = 0;
        std::function<void()> run;
        // The step may not return before its screen closes: the next step is scheduled before
        // it runs, so the commands after it run while it waits.
        bool mayWait = false;
    };
    class Queue;

    void print(Channel channel, const QString& text) const;
    void printAt(Channel channel, int line, const QString& text) const;
    void schedule();
    void step();
    std::optional<Step> takeStep();
    void runStep(const Step& step);
    void finish(int result);

    ShellOptions m_options;
    Output m_output;
    QString m_name;
    QStringList m_lines;
    std::vector<Command> m_commands;
    qsizetype m_nextCommand = 0;
    QList<Step> m_inserted;
    std::unique_ptr<Queue> m_queue;       // Owned.
    std::unique_ptr<Scenario> m_scenario; // Owned.
    // The context of the queued steps: they are dropped with the runner.
    QObject m_events;
    bool m_scheduled = false;
    bool m_finished = false;
    int m_result = 0;
    int m_currentLine = 0;
    QEventLoop* m_loop = nullptr; // Not owned: the loop of the run under way.
};

} // namespace tarvello::script
