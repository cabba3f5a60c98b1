#include "platform/services/hosterrorlog.h"

#include "platform/services/userprompts.h"

namespace tarvello::services {

namespace {

// OK abandons, Cancel goes on; the error icon.
constexpr int ModuleErrorStyle = host::OkCancel | host::Critical;

} // namespace

void HostErrorLog::takeProviderErrors(const QList<db::ProviderError>& errors)
{
    m_providerErrors = errors;
}

QStringList HostErrorLog::takeErrorLines()
{
    QStringList lines;
    if (m_error) {
        lines << QStringLiteral("Errore n. %1: %2")
                     .arg(m_error->number())
                     .arg(m_error->description());
        if (!m_error->source().isEmpty())
            lines << QStringLiteral("Origine: %1").arg(m_error->source());
    }
    for (const db::ProviderError& e : m_providerErrors)
        lines << QStringLiteral("Errore del database n. %1 (%2): %3")
                     .arg(e.number)
                     .arg(e.sqlState, e.description);
    m_error.reset();
    m_providerErrors.clear();
    return lines;
}

int HostErrorLog::reportWithChoice(const QString& applicationText, const QString& screenTitle,
                                   const QString& procedure, int style, int& /*argument*/)
{
    QStringList lines = takeErrorLines();
    lines << QStringLiteral("Procedura: %1").arg(procedure);
    if (!screenTitle.isEmpty())
        lines << QStringLiteral("Maschera: %1").arg(screenTitle);
    const QString text = lines.join(QStringLiteral("\r\n"));
    const int answer = m_prompts.report(text, style, applicationText);
    m_entries.append({text, style, applicationText, answer});
    return answer;
}

void HostErrorLog::reportModuleError(const QString& module, const QString& location,
                                     const QString& position, short& result)
{
    QStringList lines{QStringLiteral("Errore nel modulo %1").arg(module),
                      QStringLiteral("Posizione: %1 (%2)").arg(location, position)};
    lines << takeErrorLines()
          << QStringLiteral("OK per abbandonare l'operazione, Annulla per proseguire.");
    const QString text = lines.join(QStringLiteral("\r\n"));
    const int answer = m_prompts.messageBox(text, ModuleErrorStyle, module);
    m_entries.append({text, ModuleErrorStyle, module, answer});
    result = short(answer);
}

int HostErrorLog::message(const QString& text, int style, const QString& title)
{
    const int answer = m_prompts.messageBox(text, style, title);
    m_entries.append({text, style, title, answer});
    return answer;
}

} // namespace tarvello::services
