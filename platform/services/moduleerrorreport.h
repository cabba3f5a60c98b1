#pragma once

#include "platform/controls/handlererrors.h"
#include "platform/services/hosterrorlog.h"

namespace tarvello::host {
class Cinterface;
}

namespace tarvello::services {

// The host's report of a run-time error that one of a module's event handlers let escape:
// an error of the module at the procedure that raised the event, with the database's errors
// of the module's connection, shown through the host's error log. The program goes on. OK
// (the default) abandons what the event was for, Cancel goes on.
class ModuleErrorReport final : public controls::HandlerErrors {
public:
    // The module name is the project of its programmatic identifier ("MDLMG_AGENTI" of
    // "MDLMG_AGENTI.CLSMG_AGENTI").
    ModuleErrorReport(UserPrompts& prompts, const host::Cinterface& module,
                      const QString& programmaticIdentifier);

    bool handlerFailed(const QString& procedure, const db::RuntimeError& error) override;

    const QString& moduleName() const { return m_moduleName; }
    const HostErrorLog& log() const { return m_log; }

private:
    HostErrorLog m_log;
    const host::Cinterface& m_module; // Not owned.
    QString m_moduleName;
};

} // namespace tarvello::services
