#include "src/common/errorreporter.h"

#include "platform/db/connection.h"
#include "src/common/richiesto.h"
#include "src/host/errorlog.h"

namespace tarvello::agenti {

namespace {

// The style number of a report with a choice: Abort / Retry / Ignore buttons, error icon,
// Retry as the default button, system-modal.
constexpr int ReportStyle = 4370;

} // namespace

host::ErrorLog& ErrorReporter::log() const
{
    return richiesto(m_log, "Gcls_Log");
}

void ErrorReporter::handOver(const db::RuntimeError& error) const
{
    log().takeRuntimeError(error);
    if (m_connection)
        log().takeProviderErrors(m_connection->errors());
}

int ErrorReporter::VisualizzaErrore(const QString& name, const db::RuntimeError& error) const
{
    handOver(error);
    int argument = 0;
    const QString title = m_screenTitle ? m_screenTitle() : QString();
    return log().reportWithChoice(m_applicationText, title, name, ReportStyle, argument);
}

short ErrorReporter::moduleError(const QString& location, const db::RuntimeError& error) const
{
    handOver(error);
    short result = 0;
    log().reportModuleError(moduleName(), location, QStringLiteral("0_0_0_0"), result);
    return result;
}

} // namespace tarvello::agenti
