#pragma once

#include "platform/services/userprompts.h"

#include <QQueue>

namespace tarvello::services {

// Prompts answered from a queue, for scenarios and tests: each prompt takes the oldest
// queued answer; with none queued it takes its default, which the history notes.
class ScriptedPrompts final : public UserPrompts {
public:
    // A prompt that keeps taking its default this many times in a row (an error reported
    // with a choice whose default is Retry, say) means a run that cannot end.
    static constexpr int MaxRepeatedDefaults = 100;

    void queue(const PromptAnswer& answer) { m_answers.enqueue(answer); }
    qsizetype pendingAnswers() const { return m_answers.size(); }

protected:
    std::optional<PromptAnswer> ask(const Prompt& prompt) override;

private:
    QQueue<PromptAnswer> m_answers;
    QString m_lastDefaulted;
    int m_repeatedDefaults = 0;
};

} // namespace tarvello::services
