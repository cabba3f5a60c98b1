#include "platform/services/typologytable.h"

#include "platform/services/management/managementcatalogue.h"
#include "platform/services/managementchoice.h"

namespace tarvello::services {

void TypologyTable::show(host::GlobalContext& /*context*/, controls::Field& field,
                         const QString& typology)
{
    chooseIntoField(m_managements, QStringLiteral("Tipologie agenti"), typology,
                    managements::typologies(), &field);
}

} // namespace tarvello::services
