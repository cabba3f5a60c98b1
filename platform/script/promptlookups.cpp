#include "platform/script/promptlookups.h"

#include "platform/controls/connectionsource.h"
#include "platform/controls/field.h"
#include "platform/controls/form.h"
#include "platform/db/connection.h"
#include "platform/db/runtimeerror.h"
#include "platform/services/userprompts.h"

namespace tarvello::script {

std::optional<db::ValueList> PromptLookups::chooseFromLookup(controls::Field& field,
                                                             const controls::LookupArgs& request)
{
    const controls::Form* form = field.form();
    controls::ConnectionSource* connections = form ? form->connectionSource() : nullptr;
    if (!connections)
        throw db::RuntimeError(db::RuntimeError::ObjectRequired,
                               QStringLiteral("No connection to run the lookup on"), field.name());
    const db::ResultSet result =
        connections->connectionFor(request.connectionString).query(request.sql);
    QList<QStringList> rows;
    rows.reserve(result.rows.size());
    for (const db::ValueList& row : result.rows) {
        QStringList texts;
        for (const db::Value& value : row)
            texts << (value.kind() == db::Value::Kind::Array ? QString() : value.toString());
        rows << texts;
    }
    const std::optional<int> chosen = m_prompts.lookupList(request.title, request.columns, rows);
    if (!chosen)
        return std::nullopt;
    return result.rows.at(*chosen);
}

} // namespace tarvello::script
