#pragma once

#include "src/host/modulecontract.h"
#include "src/host/stampaagenti.h"

namespace tarvello::services {

class UserPrompts;

// The agents' printout module: started by the host on one agent (its code) or on every
// agent of the current company, it reads them through the host's connection, prints them to
// a PDF file where the person says, and shows the file. A company without the agents asked
// for, or a file that cannot be written, gets a message instead.
class AgentsPrintoutModule final : public host::ModuleContract, public host::AgentsPrintout {
public:
    explicit AgentsPrintoutModule(UserPrompts& prompts)
        : m_prompts(prompts)
    {}

    void setCodiceAgente(const db::Value& code) override { m_code = code; }
    db::Value CodiceAgente() const override { return m_code; }

    host::Cinterface& contract() override { return *this; }
    // The agent code may also come as the first calling value.
    void setCallingData(const db::ValueList& data) override;
    host::EventSource<host::DataTransferEvents>& dataTransfer() override { return m_dataTransfer; }

    // The printout itself; returns when it has been written (or refused).
    db::Value ShowForm() override;
    db::Value TransferData(const db::Value& Calling_parameters) override;

    // The file the last printout was written to; empty when none was.
    const QString& printedFile() const { return m_printedFile; }

private:
    UserPrompts& m_prompts; // Not owned.
    db::Value m_code;
    QString m_printedFile;
    host::EventSource<host::DataTransferEvents> m_dataTransfer;
};

} // namespace tarvello::services
