#include "platform/db/resultset.h"

#include "platform/db/runtimeerror.h"

#include <algorithm>

namespace tarvello::db {

int ResultSet::columnIndex(QStringView name) const
{
    for (int i = 0; i < columns.size(); ++i) {
        if (columns[i].name.compare(name, Qt::CaseInsensitive) == 0)
            return i;
    }
    return -1;
}

void feed(ResultSet result, RowSink& rows)
{
    rows.columns(std::move(result.columns));
    for (ValueList& values : result.rows)
        rows.row(std::move(values));
}

const TableInfo::ColumnInfo* TableInfo::column(QStringView columnName) const
{
    // Names nearly always come spelled as declared: comparing them as they are is much
    // cheaper than folding case, which is left for the names that need it.
    for (const ColumnInfo& c : columns) {
        if (c.name == columnName)
            return &c;
    }
    for (const ColumnInfo& c : columns) {
        if (c.name.compare(columnName, Qt::CaseInsensitive) == 0)
            return &c;
    }
    return nullptr;
}

QStringList TableInfo::primaryKey() const
{
    QList<const ColumnInfo*> key;
    for (const ColumnInfo& c : columns) {
        if (c.primaryKey)
            key << &c;
    }
    std::stable_sort(key.begin(), key.end(), [](const ColumnInfo* a, const ColumnInfo* b) {
        return a->keyPosition < b->keyPosition;
    });
    QStringList names;
    for (const ColumnInfo* c : std::as_const(key))
        names << c->name;
    return names;
}

QString TableInfo::identityColumn() const
{
    for (const ColumnInfo& c : columns) {
        if (c.identity)
            return c.name;
    }
    return {};
}

ColumnKind columnKindFromDeclaredType(QStringView declared)
{
    const QString type = declared.trimmed().toString().toUpper();
    if (type.isEmpty())
        return ColumnKind::Unknown;
    if (type == u"BIT" || type.startsWith(u"BOOL"))
        return ColumnKind::Boolean;
    if (type.contains(u"INT"))
        return ColumnKind::Integer;
    if (type.startsWith(u"DEC") || type.startsWith(u"NUMERIC") || type.contains(u"MONEY"))
        return ColumnKind::Decimal;
    if (type.startsWith(u"REAL") || type.startsWith(u"FLOA") || type.startsWith(u"DOUB"))
        return ColumnKind::Double;
    if (type.startsWith(u"DATE") || type.startsWith(u"SMALLDATETIME") || type == u"TIMESTAMP")
        return ColumnKind::Date;
    if (type.contains(u"CHAR") || type.contains(u"TEXT") || type.contains(u"CLOB") ||
        type == u"UNIQUEIDENTIFIER")
        return ColumnKind::Text;
    if (type.contains(u"BLOB") || type.contains(u"BINARY") || type == u"IMAGE")
        return ColumnKind::Binary;
    return ColumnKind::Unknown;
}

ColumnSize columnSizeFromDeclaredType(QStringView declared)
{
    const QString type = declared.trimmed().toString().toUpper();
    const qsizetype open = type.indexOf(u'(');
    const QString name = type.left(open).trimmed();
    QList<int> arguments;
    if (open >= 0) {
        const QString inside = type.mid(open + 1).section(u')', 0, 0);
        for (const QString& argument : inside.split(u','))
            arguments << argument.trimmed().toInt();
    }
    ColumnSize size;
    if (name == u"TINYINT")
        size.integerBytes = 1;
    else if (name == u"SMALLINT")
        size.integerBytes = 2;
    else if (name == u"INT")
        size.integerBytes = 4;
    else if (name == u"INTEGER" || name == u"BIGINT")
        size.integerBytes = 8;
    else if (name == u"SMALLMONEY")
        size = {0, 10, 4, 0};
    else if (name == u"MONEY")
        size = {0, 19, 4, 0};
    else if (name.startsWith(u"DEC") || name == u"NUMERIC")
        size = {0, arguments.value(0), arguments.value(1), 0};
    else if (name.contains(u"CHAR"))
        size.length = arguments.value(0); // MAX reads as 0: no limit
    return size;
}

Value defaultValueFromSql(QStringView sql, ColumnKind kind)
{
    QStringView text = sql.trimmed();
    while (text.size() >= 2 && text.front() == u'(' && text.back() == u')')
        text = text.mid(1, text.size() - 2).trimmed();
    if (text.startsWith(u'N') && text.size() > 1 && text[1] == u'\'')
        text = text.mid(1);
    if (text.size() >= 2 && text.front() == u'\'' && text.back() == u'\'') {
        QString inner = text.mid(1, text.size() - 2).toString();
        inner.replace(QStringLiteral("''"), QStringLiteral("'"));
        return convertToKind(inner, kind);
    }
    if (const auto number = Decimal::parse(text))
        return convertToKind(*number, kind);
    return Value::null();
}

Value convertToKind(const Value& raw, ColumnKind kind)
{
    if (raw.isNull() || raw.isEmpty())
        return Value::null();
    try {
        switch (kind) {
        case ColumnKind::Integer:
            if (raw.kind() == Value::Kind::Integer)
                return raw;
            return raw.looksNumeric() ? Value(raw.toInt64()) : raw;
        case ColumnKind::Decimal:
            if (raw.kind() == Value::Kind::Decimal)
                return raw;
            return raw.looksNumeric() ? Value(raw.toDecimal().normalized()) : raw;
        case ColumnKind::Double:
            return raw.looksNumeric() ? Value(raw.toDouble()) : raw;
        case ColumnKind::Boolean:
            return raw.kind() == Value::Kind::Boolean ? raw : Value(raw.toBool());
        case ColumnKind::Date:
            return raw.kind() == Value::Kind::Date ? raw : Value(raw.toDateTime());
        case ColumnKind::Text:
            return raw.kind() == Value::Kind::Text ? raw : Value(raw.toString());
        case ColumnKind::Binary:
        case ColumnKind::Unknown:
            return raw;
        }
    } catch (const RuntimeError&) {
        // A value the engine stored against its column's declared type is shown as read.
    }
    return raw;
}

} // namespace tarvello::db
