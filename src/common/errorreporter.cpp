#include "src/common/errorreporter.h"

#include "platform/db/connection.h"
#include "src/common/richiesto.h"
#include "src/host/errorlog.h"

namespace tarvello::agenti {

namespace {

// A report with a choice: Retry is the default, and the box holds every application.
constexpr int ReportStyle =
    host::AbortRetryIgnore | host::Critical | host::DefaultButton2 | host::SystemModal;

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
