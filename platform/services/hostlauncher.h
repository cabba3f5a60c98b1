#pragma once

#include "src/host/managementlauncher.h"

namespace tarvello::services {

class HostManagements;

// The host's management launcher. Its programs are managements a person works in, each
// handing back the codes chosen there. The host has one: the classification tables of agents.
class HostLauncher final : public host::ManagementLauncher {
public:
    // The management of the classification tables of agents; its parameter "CalledRamo"
    // names the table, the others the codes on screen, highest level first.
    static constexpr int ClassificationTables = 2847;

    explicit HostLauncher(const HostManagements& managements)
        : m_managements(managements)
    {}

    QString addParameter(const QString& parameters, const QString& name,
                         const db::Value& value) const override;
    db::Value runProgram(int program, const QString& parameters, bool modal) override;

private:
    const HostManagements& m_managements; // Not owned.
};

} // namespace tarvello::services
