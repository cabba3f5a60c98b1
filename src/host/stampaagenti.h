#pragma once

#include "platform/db/value.h"
#include "src/host/calledmodule.h"

namespace tarvello::host {

// The host's agent-printout class: a module of its own, which prints one agent or every
// agent of the current company.
class AgentsPrintout : public CalledModule {
public:
    // The code of the agent to print; empty prints them all.
    virtual void setCodiceAgente(const db::Value& code) = 0;
    virtual db::Value CodiceAgente() const = 0;
};

} // namespace tarvello::host
