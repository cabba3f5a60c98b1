#include "platform/services/hostlookup.h"

#include "platform/db/runtimeerror.h"
#include "platform/services/lookupcatalogue.h"
#include "platform/services/namedparameters.h"
#include "src/host/globalcontext.h"

namespace tarvello::services {

void HostLookup::setParameter(const QString& name, const db::Value& value)
{
    m_parameters.insert(name.toUpper(), value);
}

QString HostLookup::bind(const LookupDefinition& definition, const QString& sql,
                         const db::Value& code) const
{
    if (sql.isEmpty())
        throw db::RuntimeError(
            db::RuntimeError::InvalidProcedureCall,
            QStringLiteral("La ricerca %1 non prevede questa operazione").arg(definition.name));
    return bindNamedParameters(sql, [&](const QString& name) {
        const QString key = name.toUpper();
        db::Value value;
        if (key == QStringLiteral("DITTA"))
            value = m_context.company().code;
        else if (key == QStringLiteral("CODICE"))
            value = code;
        else if (m_parameters.contains(key))
            value = m_parameters.value(key);
        else
            throw db::RuntimeError(db::RuntimeError::InvalidProcedureCall,
                                   QStringLiteral("Parametro @%1 della ricerca %2 non impostato")
                                       .arg(name, definition.name));
        return parameterLiteral(name, definition.kindOf(key), value);
    });
}

void HostLookup::describe(const LookupDefinition& definition)
{
    m_columns = definition.headings;
    m_title = definition.title;
    m_lookupId = definition.lookupId;
}

void HostLookup::prepareDecoding(const QString& definition, const db::Value& code,
                                 const QString& descriptionControl)
{
    const LookupDefinition& d = m_catalogue.definition(definition);
    m_query = bind(d, d.decodeSql, code);
    m_targets.clear();
    for (const QString& column : d.decodeColumns)
        m_targets.append({m_targets.isEmpty() ? descriptionControl : QString(), column});
    describe(d);
}

void HostLookup::prepareLookup(const QString& definition, int /*option*/)
{
    const LookupDefinition& d = m_catalogue.definition(definition);
    m_query = bind(d, d.listSql, {});
    m_targets.clear();
    describe(d);
}

} // namespace tarvello::services
