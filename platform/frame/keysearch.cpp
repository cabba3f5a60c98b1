#include "platform/frame/keysearch.h"

#include "platform/db/connection.h"
#include "platform/db/runtimeerror.h"
#include "platform/frame/columnvalue.h"

namespace tarvello::frame {

namespace {

// The host names a company column by its table prefix and this ending.
const QString companyColumnEnding = QStringLiteral("_DITTA_CG18");

} // namespace

std::optional<KeySearch::Bookmark> KeySearch::findAmong(const db::Recordset& rows,
                                                        const QString& column, const db::Value& key,
                                                        qsizetype skip)
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
        // Rows that cannot be walked hold no key the search could show.
        return std::nullopt;
    }
    return std::nullopt;
}

QList<KeySearch::Condition> KeySearch::companyOf(const db::Recordset& rows)
{
    QList<Condition> conditions;
    if (rows.bof() || rows.eof())
        return conditions;
    for (int i = 0; i < rows.fieldCount(); ++i) {
        const db::Column& field = rows.field(i);
        if (field.baseColumn.isEmpty() ||
            !field.name.endsWith(companyColumnEnding, Qt::CaseInsensitive))
            continue;
        const db::Value company = rows.value(i);
        if (!company.isBlank())
            conditions << Condition{field.baseColumn, company};
    }
    return conditions;
}

void KeySearch::rememberCompany(const db::Recordset& rows)
{
    m_lastCompany = companyOf(rows);
}

std::optional<QString> KeySearch::lookUp(const db::Recordset& rows, const QString& column,
                                         const db::Value& key, bool onStartRow) const
{
    db::Connection* connection = rows.activeConnection();
    const QString table = rows.baseTable();
    const int index = rows.fieldIndex(column);
    const QString keyColumn = index < 0 ? QString() : rows.field(index).baseColumn;
    if (!connection || table.isEmpty() || keyColumn.isEmpty())
        return std::nullopt;
    QList<Condition> values = onStartRow ? companyOf(rows) : m_lastCompany;
    if (!m_filter.isEmpty())
        values.clear();
    values << Condition{keyColumn, key};

    // The look binds its values; the statement handed back for the rows to be opened on is a
    // text the rows can run again, so it carries them as literals.
    QStringList bound;
    QStringList literal;
    db::ValueList parameters;
    if (!m_filter.isEmpty())
        bound = literal = {QStringLiteral("(%1)").arg(m_filter)};
    for (const Condition& condition : std::as_const(values)) {
        bound << condition.column + QStringLiteral(" = ?");
        literal << condition.column + QStringLiteral(" = ") + condition.value.sqlLiteral();
        parameters << condition.value;
    }
    const QString select = QStringLiteral("SELECT * FROM %1 WHERE %2");
    const QString joiner = QStringLiteral(" AND ");
    if (connection->run(select.arg(table, bound.join(joiner)), parameters).rows.isEmpty())
        return std::nullopt;
    return select.arg(table, literal.join(joiner));
}

} // namespace tarvello::frame
