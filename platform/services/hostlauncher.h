#pragma once

#include "src/host/managementlauncher.h"

namespace tarvello::services {

class UserPrompts;

// The host's management launcher. Its programs are managements a person works in: each run
// is a prompt answered with the codes the program hands back.
class HostLauncher final : public host::ManagementLauncher {
public:
    // The management of the classification tables of agents; its parameter "CalledRamo"
    // names the table, the others the codes on screen, highest level first.
    static constexpr int ClassificationTables = 2847;

    explicit HostLauncher(UserPrompts& prompts)
        : m_prompts(prompts)
    {}

    QString addParameter(const QString& parameters, const QString& name,
                         const db::Value& value) const override;
    db::Value runProgram(int program, const QString& parameters, bool modal) override;

private:
    UserPrompts& m_prompts; // Not owned.
};

} // namespace tarvello::services
