#pragma once

#include "platform/db/connection.h"
#include "platform/services/management/managementpresenter.h"
#include "platform/services/scriptedprompts.h"
#include "src/host/globalcontext.h"

#include <QObject>
#include <QString>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace tarvello::services {
class HostContext;
class HostNavigator;
} // namespace tarvello::services

namespace tarvello::script {

class ScenarioWindow;
class ScenarioMenuEntry;
struct ShellOptions;

// Where the steps of a run wait their turn.
class StepQueue {
public:
    // The step runs before the next command of the scenario.
    virtual void runFirst(std::function<void()> step) = 0;

protected:
    ~StepQueue() = default;
};

// The host a scenario runs in: its database, the prompts answered from the scenario, the
// global context with the current company, the navigator toolbar, and the windows of the
// modules opened. Commands act on the last window opened, or, while one of the host's
// managements shows its window (answered `window`), on that window until it closes.
class Scenario final : public services::ManagementPresenter {
public:
    using Notes = std::function<void(const QString& note)>;

    // Opens the database the options name (a fresh in-memory one with the whole schema when
    // they name none) and raises db::RuntimeError when it cannot.
    Scenario(const ShellOptions& options, StepQueue& steps, Notes notes);
    ~Scenario() override;
    Scenario(const Scenario&) = delete;
    Scenario& operator=(const Scenario&) = delete;

    // The host's own connection, on which `exec` and the row checks run.
    db::Connection& database() { return m_database; }
    services::ScriptedPrompts& prompts() { return m_prompts; }
    services::HostContext& host() { return *m_host; }
    void note(const QString& text) const { m_notes(text); }

    // Before any window opened, the host simply works for that company; afterwards the
    // toolbar changes company, which the modules may refuse. The divisional-data flag is the
    // company's in the database unless given.
    void setCompany(qint32 code, std::optional<bool> divisional);

    struct OpenRequest {
        bool modal = false;
        std::optional<QString> calledCode;
        std::optional<qint64> calledId;
        qint32 programMode = 0;
        std::optional<QString> caption;
    };
    // Creates the agents module, fills its contract and calls ShowForm; the window is adopted
    // and activated before the next command runs.
    void open(const OpenRequest& request);
    void activate();
    void deactivate();
    void close();
    void pressToolbar(qint32 button);

    // The management's window takes the commands that follow until it closes; the command
    // that opened it goes on once it has.
    void present(services::TableManagement& management, host::Cinterface& module) override;

    // The management window open, else the last window opened; raises ScriptFailure when
    // none was.
    ScenarioWindow& window() const;
    // The next command must wait: a screen is being shown and has not yet started waiting as
    // a modal one, or a management's window has closed and the command that opened it has
    // not yet gone on.
    bool isSettling() const;
    // Unloads every open screen and management window, without asking them (the end of a
    // run).
    void closeAll();

    // Writes a note for every prompt that took its default since the last call.
    void noteDefaultedPrompts();
    // Prompts up to this one are behind `expect prompt`.
    qsizetype promptsMatched() const { return m_promptsMatched; }
    void setPromptsMatched(qsizetype count) { m_promptsMatched = count; }

private:
    void openDatabase(const ShellOptions& options);
    host::Company companyFromDatabase(qint32 code, std::optional<bool> divisional);
    qint32 firstCompany();
    void adopt(ScenarioWindow& window);
    void activate(ScenarioWindow& window);
    void deactivate(ScenarioWindow& window);
    void windowClosed(ScenarioWindow& window);
    bool anyWindowOpen() const;
    QObject* activeFrame() const;
    // Shows on the toolbar the status of the active module's record frame.
    void syncToolbar();

    Notes m_notes;
    StepQueue& m_steps; // Not owned.
    db::Connection m_database;
    services::ScriptedPrompts m_prompts;
    // The context of the host's connections to its windows' signals.
    std::unique_ptr<QObject> m_signals;                 // Owned.
    std::unique_ptr<services::HostContext> m_host;      // Owned.
    std::unique_ptr<services::HostNavigator> m_toolbar; // Owned.
    std::unique_ptr<ScenarioMenuEntry> m_menuEntry;     // Owned.
    // Last: the modules go before the host they were opened in.
    std::vector<std::unique_ptr<ScenarioWindow>> m_windows; // Owned.
    ScenarioWindow* m_opening = nullptr;                    // Not owned: one of m_windows.
    // The managements' windows open, the innermost last.
    std::vector<std::unique_ptr<ScenarioWindow>> m_managementWindows; // Owned.
    bool m_managementClosed = false;
    qsizetype m_promptsMatched = 0;
    qsizetype m_promptsNoted = 0;
};

} // namespace tarvello::script
