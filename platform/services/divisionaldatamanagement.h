#pragma once

#include "src/host/divisionaldata.h"

namespace tarvello::services {

class UserPrompts;

// The divisional-data management as this host has it: a prompt naming the entity it was
// opened on ("3, A001"); nothing comes back from it.
class DivisionalDataManagement final : public host::DivisionalData {
public:
    explicit DivisionalDataManagement(UserPrompts& prompts)
        : m_prompts(prompts)
    {}

    void initialise(host::Cinterface* module, QObject* other, qint32 entityKind,
                    const db::Value& entityCode) override;
    void setModule(host::Cinterface* module) override { m_module = module; }
    void run() override;

    host::Cinterface* module() const { return m_module; }

private:
    UserPrompts& m_prompts;               // Not owned.
    host::Cinterface* m_module = nullptr; // Not owned.
    qint32 m_entityKind = 0;
    db::Value m_entityCode;
};

} // namespace tarvello::services
