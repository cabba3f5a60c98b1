#pragma once

#include "src/host/errorlog.h"

#include <optional>

namespace tarvello::services {

class UserPrompts;

// The host's error log: every report and message goes to the person through the prompts
// and is recorded with the answer it got.
class HostErrorLog final : public host::ErrorLog {
public:
    struct Entry {
        QString text;
        int style = 0;
        QString title;
        int answer = 0;
    };

    explicit HostErrorLog(UserPrompts& prompts)
        : m_prompts(prompts)
    {}

    void bind(host::Cinterface* module) override { m_module = module; }
    void takeRuntimeError(const db::RuntimeError& error) override { m_error = error; }
    void takeProviderErrors(const QList<db::ProviderError>& errors) override;
    int reportWithChoice(const QString& applicationText, const QString& screenTitle,
                         const QString& procedure, int style, int& argument) override;
    void reportModuleError(const QString& module, const QString& location, const QString& position,
                           short& result) override;
    int message(const QString& text, int style, const QString& title) override;
    void end() override { m_ended = true; }

    host::Cinterface* boundModule() const { return m_module; }
    bool isEnded() const { return m_ended; }
    const QList<Entry>& entries() const { return m_entries; }

private:
    // The error taken and the database's errors behind it, as lines of a report; both are
    // forgotten once reported.
    QStringList takeErrorLines();

    UserPrompts& m_prompts;               // Not owned.
    host::Cinterface* m_module = nullptr; // Not owned.
    std::optional<db::RuntimeError> m_error;
    QList<db::ProviderError> m_providerErrors;
    QList<Entry> m_entries;
    bool m_ended = false;
};

} // namespace tarvello::services
