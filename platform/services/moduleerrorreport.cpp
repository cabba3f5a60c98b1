#include "platform/services/moduleerrorreport.h"

#include "platform/db/connection.h"
#include "src/host/cinterface.h"

namespace tarvello::services {

namespace {

// The position a module error names when it has no place in the module's own code.
const QString noPosition = QStringLiteral("0_0_0_0");

} // namespace

ModuleErrorReport::ModuleErrorReport(UserPrompts& prompts, const host::Cinterface& module,
                                     const QString& programmaticIdentifier)
    : m_log(prompts)
    , m_module(module)
    , m_moduleName(programmaticIdentifier.section(u'.', 0, 0))
{}

bool ModuleErrorReport::handlerFailed(const QString& procedure, const db::RuntimeError& error)
{
    m_log.takeRuntimeError(error);
    if (const db::Connection* connection = m_module.Connection())
        m_log.takeProviderErrors(connection->errors());
    short answer = 0;
    m_log.reportModuleError(m_moduleName, procedure, noPosition, answer);
    return answer != host::Cancel;
}

} // namespace tarvello::services
