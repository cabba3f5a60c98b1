#pragma once

#include "src/host/calledmodule.h"
#include "src/host/modulecontract.h"

namespace tarvello::services {

class UserPrompts;

// Another module of the host that this host does not have (the general registry, the
// commission-on-discount tables): its screen is a prompt, and what the person chooses there
// is handed back through DataTransfer as an array (a code handed back as element 0, or the
// codes chosen). Its contract members only store their values.
class SiblingModule final : public host::ModuleContract, public host::CalledModule {
public:
    SiblingModule(QString name, UserPrompts& prompts);

    const QString& name() const { return m_name; }
    const db::ValueList& callingData() const { return m_callingData; }

    host::Cinterface& contract() override { return *this; }
    void setCallingData(const db::ValueList& data) override { m_callingData = data; }
    host::EventSource<host::DataTransferEvents>& dataTransfer() override { return m_dataTransfer; }

    // The management's screen: a prompt; the call returns when the person leaves it.
    db::Value ShowForm() override;
    db::Value TransferData(const db::Value& Calling_parameters) override;

private:
    QString m_name;
    UserPrompts& m_prompts; // Not owned.
    db::ValueList m_callingData;
    host::EventSource<host::DataTransferEvents> m_dataTransfer;
};

} // namespace tarvello::services
