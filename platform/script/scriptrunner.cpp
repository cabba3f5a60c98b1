#include "platform/script/scriptrunner.h"

#include "platform/db/runtimeerror.h"
#include "platform/script/command.h"
#include "platform/script/scenario.h"
#include "platform/script/scripterror.h"
#include "platform/services/userprompts.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QFile>
#include <QTextStream>
#include <QTimer>

namespace tarvello::script {

// The runner's queue as the scenario sees it.
class ScriptRunner::Queue final : public StepQueue {
public:
    explicit Queue(ScriptRunner& runner)
        : m_runner(runner)
    {}
    void runFirst(std::function<void()> step) override
    {
        m_runner.m_inserted.append({m_runner.m_currentLine, std::move(step), false});
        m_runner.schedule();
    }

private:
    ScriptRunner& m_runner; // Not owned: owns this queue.
};

int runScript(const QString& file, const ShellOptions& options)
{
    ScriptRunner runner(options);
    return runner.runFile(file);
}

ScriptRunner::ScriptRunner(ShellOptions options)
    : m_options(std::move(options))
    , m_output([](Channel channel, const QString& line) {
        QTextStream stream(channel == Channel::Notes ? stdout : stderr);
        stream << line << Qt::endl;
    })
    , m_queue(std::make_unique<Queue>(*this))
{}

ScriptRunner::~ScriptRunner() = default;

int ScriptRunner::runFile(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text)) {
        print(Channel::Failures,
              QStringLiteral("%1: cannot read the scenario: %2").arg(path, file.errorString()));
        return 2;
    }
    return runText(path, QString::fromUtf8(file.readAll()));
}

void ScriptRunner::print(Channel channel, const QString& text) const
{
    m_output(channel, text);
}

void ScriptRunner::printAt(Channel channel, int line, const QString& text) const
{
    print(channel, QStringLiteral("%1:%2: %3").arg(m_name).arg(line).arg(text));
}

int ScriptRunner::runText(const QString& name, const QString& text)
{
    m_name = name;
    if (!QCoreApplication::instance()) {
        print(Channel::Failures, QStringLiteral("%1: a scenario runs in an application's event "
                                                "loop, and there is no application")
                                     .arg(name));
        return 1;
    }
    m_lines = text.split(u'\n');
    m_commands.clear();
    m_nextCommand = 0;
    m_inserted.clear();
    m_finished = false;
    m_result = 0;

    const CommandTable table = scenarioCommands();
    for (qsizetype i = 0; i < m_lines.size(); ++i) {
        QString& line = m_lines[i];
        if (line.endsWith(u'\r'))
            line.chop(1);
        try {
            const QList<Token> words = tokenize(line);
            if (words.isEmpty())
                continue;
            Command command = compileCommand(table, words);
            command.line = int(i + 1);
            m_commands.push_back(std::move(command));
        } catch (const SyntaxError& error) {
            printAt(Channel::Failures, int(i + 1),
                    QStringLiteral("cannot understand: %1").arg(line.trimmed()));
            print(Channel::Failures, QStringLiteral("    %1").arg(error.message()));
            return 2;
        }
    }

    try {
        m_scenario = std::make_unique<Scenario>(m_options, *m_queue, [this](const QString& note) {
            printAt(Channel::Notes, m_currentLine, QStringLiteral("note: %1").arg(note));
        });
    } catch (const db::RuntimeError& error) {
        print(Channel::Failures,
              QStringLiteral("%1: cannot start the host: %2").arg(name, error.description()));
        return 1;
    }

    QEventLoop loop;
    m_loop = &loop;
    schedule();
    loop.exec();
    m_loop = nullptr;
    m_scenario.reset();
    if (m_result == 0)
        print(Channel::Notes, QStringLiteral("%1: passed, %2 commands run")
                                  .arg(name)
                                  .arg(qsizetype(m_commands.size())));
    return m_result;
}

void ScriptRunner::schedule()
{
    if (m_scheduled || m_finished)
        return;
    m_scheduled = true;
    QTimer::singleShot(0, &m_events, [this] { step(); });
}

std::optional<ScriptRunner::Step> ScriptRunner::takeStep()
{
    if (!m_inserted.isEmpty())
        return m_inserted.takeFirst();
    if (m_nextCommand >= qsizetype(m_commands.size()))
        return std::nullopt;
    const Command& command = m_commands.at(m_nextCommand++);
    Scenario* scenario = m_scenario.get();
    return Step{command.line, [scenario, run = command.run] { run(*scenario); }, command.mayWait};
}

void ScriptRunner::step()
{
    m_scheduled = false;
    if (m_finished)
        return;
    // Something let the events run while a screen was being shown, or after a management's
    // window closed: the command that shows it has not finished yet.
    if (m_scenario->isSettling()) {
        m_scheduled = true;
        QTimer::singleShot(1, &m_events, [this] { step(); });
        return;
    }
    const std::optional<Step> next = takeStep();
    if (!next) {
        finish(0);
        return;
    }
    if (next->mayWait)
        schedule();
    runStep(*next);
    schedule();
}

void ScriptRunner::runStep(const Step& step)
{
    const auto failed = [&](const QString& message) {
        m_currentLine = step.line;
        m_scenario->noteDefaultedPrompts();
        printAt(Channel::Failures, step.line,
                QStringLiteral("failed: %1").arg(m_lines.at(step.line - 1).trimmed()));
        print(Channel::Failures, QStringLiteral("    %1").arg(message));
        finish(1);
    };
    m_currentLine = step.line;
    try {
        step.run();
        m_currentLine = step.line;
        m_scenario->noteDefaultedPrompts();
    } catch (const ScriptFailure& failure) {
        failed(failure.message());
    } catch (const services::PromptError& error) {
        failed(error.message());
    } catch (const db::RuntimeError& error) {
        failed(
            QStringLiteral("run-time error %1: %2").arg(error.number()).arg(error.description()));
    } catch (const std::exception& error) {
        failed(QString::fromUtf8(error.what()));
    }
}

void ScriptRunner::finish(int result)
{
    if (m_finished)
        return;
    m_finished = true;
    m_result = result;
    // A modal screen waits until it is unloaded: the run ends when every wait has.
    m_scenario->closeAll();
    if (m_loop)
        m_loop->exit(result);
}

} // namespace tarvello::script
