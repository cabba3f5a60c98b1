#pragma once

#include "src/host/typologymanagement.h"

namespace tarvello::services {

class HostManagements;

// The host's agent-typology table, reached as another management of the host: what the
// person chooses there (the first code handed back) becomes the field's typology.
class TypologyTable final : public host::TypologyManagement {
public:
    explicit TypologyTable(const HostManagements& managements)
        : m_managements(managements)
    {}

    void show(host::GlobalContext& context, controls::Field& field,
              const QString& typology) override;

private:
    const HostManagements& m_managements; // Not owned.
};

} // namespace tarvello::services
