#include "platform/services/divisionaldatamanagement.h"

#include "platform/db/runtimeerror.h"
#include "platform/services/userprompts.h"

namespace tarvello::services {

void DivisionalDataManagement::initialise(host::Cinterface* module, QObject* /*other*/,
                                          qint32 entityKind, const db::Value& entityCode)
{
    m_module = module;
    m_entityKind = entityKind;
    m_entityCode = entityCode;
}

void DivisionalDataManagement::run()
{
    // The management's window belongs to a module; opened for none it has nowhere to go.
    if (!m_module)
        throw db::RuntimeError(db::RuntimeError::ObjectRequired, QStringLiteral("Object required"),
                               QStringLiteral("DatiDivisionali"));
    m_prompts.management(QStringLiteral("Dati divisionali"),
                         QStringLiteral("%1, %2").arg(m_entityKind).arg(m_entityCode.toString()),
                         {});
}

} // namespace tarvello::services
