#include "platform/frame/keylookup.h"

#include "platform/db/runtimeerror.h"
#include "platform/frame/columnvalue.h"

namespace tarvello::frame {

namespace {

// The host names a company column by its table prefix and this ending.
const QString companyColumnEnding = QStringLiteral("_DITTA_CG18");

} // namespace

std::optional<db::Recordset::Bookmark> findKey(const db::Recordset& rows, const QString& column,
                                               const db::Value& key, qsizetype skip)
{
    const qsizetype count = rows.recordCount();
    // A clone stands on the first row as it is made: with nothing else to look at it must
    // not move off it.
    if (count == 0 || (count == 1 && skip == 1))
        return std::nullopt;
    try {
        const db::RecordsetPtr reader = rows.clone();
        if (!rows.filter().isEmpty())
            reader->setFilter(rows.filter());
        if (!rows.sort().isEmpty())
            reader->setSort(rows.sort());
        for (qsizetype position = 1; position <= reader->recordCount(); ++position) {
            if (position == skip)
                continue;
            reader->setAbsolutePosition(position);
            if (sameKey(reader->value(column), key))
                return reader->bookmark();
        }
    } catch (const db::RuntimeError&) {
        return std::nullopt;
    }
    return std::nullopt;
}

QStringList companyConditions(const db::Recordset& rows)
{
    QStringList conditions;
    if (rows.bof() || rows.eof())
        return conditions;
    for (int i = 0; i < rows.fieldCount(); ++i) {
        const db::Column& field = rows.field(i);
        if (field.baseColumn.isEmpty() ||
            !field.name.endsWith(companyColumnEnding, Qt::CaseInsensitive))
            continue;
        const db::Value company = rows.value(i);
        if (!company.isBlank())
            conditions << field.baseColumn + QStringLiteral(" = ") + company.sqlLiteral();
    }
    return conditions;
}

QString keyLookupStatement(const QString& table, QStringList conditions, const QString& keyColumn,
                           const db::Value& key)
{
    conditions << keyColumn + QStringLiteral(" = ") + key.sqlLiteral();
    return QStringLiteral("SELECT * FROM %1 WHERE %2")
        .arg(table, conditions.join(QStringLiteral(" AND ")));
}

} // namespace tarvello::frame
