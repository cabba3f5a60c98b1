#pragma once

#include "platform/services/management/managementdescription.h"

namespace tarvello::services::managements {

// The host's managements, described as data.

// Routes (MG1H_GIRI); a route chosen hands back its code.
ManagementDescription routes();
// The company's customers, each alone and with each of its destinations; several are
// ticked and handed back as (customer, destination), the destination empty for none.
ManagementDescription customers();
ManagementDescription depots();
ManagementDescription registers();
ManagementDescription typologies();
// The commission-on-discount tables of the sales side (PA10_FLGVENACQ, the parent, 0).
ManagementDescription discountTables();
// The general registry; an entry chosen hands back its code.
ManagementDescription registry();
// The general-registry search of a kind (host::GeneralRegistrySearch): kind 3 lists the
// company's agents with their entries and the entries no agent uses, handing back the agent
// code (empty for a free entry) and the registry code; kind 1 lists every entry and hands
// back its code.
ManagementDescription registrySearch(int kind, const QString& title);
// A classification table of agents by its branch ("CalledRamo" 0 to 8): opened within the
// codes of its parent levels, highest first; a row chosen hands back its own code and then
// its parents', nearest first.
ManagementDescription classification(int branch);
// The divisional rows of an agent's entity (CO1G_DETTAGENTE within CO1G_IDENTITADIV_CO1C).
ManagementDescription divisionalData();

} // namespace tarvello::services::managements
