#include "platform/script/promptlookups.h"

#include "platform/controls/connectionsource.h"
#include "platform/controls/field.h"
#include "platform/controls/form.h"
#include "platform/db/connection.h"
#include "platform/db/runtimeerror.h"
#include "platform/services/userprompts.h"
#include "src/host/errorlog.h"

#include <algorithm>

namespace tarvello::script {

namespace {

bool holds(const QStringList& row, const QString& text)
{
    return text.isEmpty() || std::any_of(row.begin(), row.end(), [&text](const QString& cell) {
               return cell.contains(text, Qt::CaseInsensitive);
           });
}

} // namespace

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
    QList<qsizetype> offered; // the result's row of each row offered
    for (qsizetype i = 0; i < result.rows.size(); ++i) {
        QStringList texts;
        for (const db::Value& value : result.rows.at(i))
            texts << (value.kind() == db::Value::Kind::Array ? QString() : value.toString());
        if (holds(texts, request.narrowedTo)) {
            rows << texts;
            offered << i;
        }
    }
    const QString title =
        request.narrowedTo.isEmpty()
            ? request.title
            : QStringLiteral("%1 - \"%2\"").arg(request.title, request.narrowedTo);
    if (rows.isEmpty() && !request.narrowedTo.isEmpty()) {
        m_prompts.messageBox(
            QStringLiteral("Nessuna riga dell'elenco contiene \"%1\".").arg(request.narrowedTo),
            host::Information, request.title);
        return std::nullopt;
    }
    const std::optional<int> chosen = m_prompts.lookupList(title, request.columns, rows);
    if (!chosen)
        return std::nullopt;
    return result.rows.at(offered.at(*chosen));
}

} // namespace tarvello::script
