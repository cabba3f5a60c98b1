#pragma once

#include "platform/db/connection.h"
#include "platform/services/hostcontext.h"
#include "platform/services/hostnavigator.h"

#include <QList>
#include <memory>
#include <optional>
#include <vector>

namespace tarvello::host {
class CalledModule;
}

namespace tarvello::services {
class UserPrompts;
}

namespace tarvello::gui {

// The host behind the shell's windows: its database, global context and navigator toolbar,
// the companies a person can switch to, and the modules it has opened. It opens a module
// the way the host does: it creates the module object by its programmatic identifier,
// fills the contract and calls ShowForm.
class ShellHost {
public:
    // company: the host's current company; the first company of the database when none.
    ShellHost(services::UserPrompts& prompts, const QString& connectionString,
              std::optional<qint32> company = std::nullopt);
    ~ShellHost();
    ShellHost(const ShellHost&) = delete;
    ShellHost& operator=(const ShellHost&) = delete;

    db::Connection& database() { return m_database; }
    services::HostContext& context() { return *m_context; }
    services::HostNavigator& navigator() { return *m_navigator; }
    services::UserPrompts& prompts() { return m_prompts; }

    // The companies of the database, by code.
    QList<host::Company> companies();
    // The company of that code as the database describes it (a bare code when it has none).
    host::Company company(qint32 code);

    // Creates the module and shows its screen, modeless. The module stays open until
    // released. Raises db::RuntimeError for an identifier the host does not know.
    host::CalledModule& openModule(const QString& identifier, const QString& caption,
                                   QObject* statusBar = nullptr);
    // The host lets go of a module whose screen has closed.
    void releaseModule(host::CalledModule& module);
    qsizetype openModuleCount() const { return qsizetype(m_modules.size()); }

private:
    struct OpenModule;

    services::UserPrompts& m_prompts; // Not owned.
    db::Connection m_database;
    std::unique_ptr<services::HostContext> m_context;     // Owned.
    std::unique_ptr<services::HostNavigator> m_navigator; // Owned.
    std::vector<std::unique_ptr<OpenModule>> m_modules;   // Owned.
};

} // namespace tarvello::gui
