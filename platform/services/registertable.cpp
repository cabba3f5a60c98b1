#include "platform/services/registertable.h"

#include "platform/services/management/managementcatalogue.h"
#include "platform/services/managementchoice.h"

namespace tarvello::services {

void RegisterTable::registersManagement()
{
    requireModule(m_module, QStringLiteral("Sezionali"));
    chooseIntoField(m_managements, QStringLiteral("Sezionali"), QString(), managements::registers(),
                    m_field);
}

} // namespace tarvello::services
