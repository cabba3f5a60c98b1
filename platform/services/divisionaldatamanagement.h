#pragma once

#include "src/host/divisionaldata.h"

namespace tarvello::services {

class HostManagements;

// The divisional-data management: the rows an agent keeps for each division (CO1G_DETTAGENTE)
// under the agent's divisional entity (CO1C_ENTITADIV, kind 3), which the first row saved
// creates, in the same transaction. Nothing comes back from it.
class DivisionalDataManagement final : public host::DivisionalData {
public:
    explicit DivisionalDataManagement(const HostManagements& managements)
        : m_managements(managements)
    {}

    void initialise(host::Cinterface* module, QObject* other, qint32 entityKind,
                    const db::Value& entityCode) override;
    void setModule(host::Cinterface* module) override { m_module = module; }
    void run() override;

    host::Cinterface* module() const { return m_module; }

private:
    void workOnRows() const;

    const HostManagements& m_managements; // Not owned.
    host::Cinterface* m_module = nullptr; // Not owned.
    qint32 m_entityKind = 0;
    db::Value m_entityCode;
};

} // namespace tarvello::services
