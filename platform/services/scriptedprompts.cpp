#include "platform/services/scriptedprompts.h"

namespace tarvello::services {

std::optional<PromptAnswer> ScriptedPrompts::ask(const Prompt& prompt)
{
    if (!m_answers.isEmpty()) {
        m_repeatedDefaults = 0;
        return m_answers.dequeue();
    }
    const QString shown = prompt.describe();
    m_repeatedDefaults = shown == m_lastDefaulted ? m_repeatedDefaults + 1 : 1;
    m_lastDefaulted = shown;
    if (m_repeatedDefaults > MaxRepeatedDefaults)
        throw PromptError(QStringLiteral("The %1 took its default %2 times in a row with no "
                                         "answer queued")
                              .arg(shown)
                              .arg(MaxRepeatedDefaults));
    return std::nullopt;
}

} // namespace tarvello::services
