#include "platform/frame/columnvalue.h"

#include "platform/controls/displayformat.h"
#include "platform/db/runtimeerror.h"

#include <QDate>

namespace tarvello::frame {

namespace {

using db::ColumnKind;
using db::Value;
using Refusal = ColumnValue::Refusal;

ColumnValue refused(Refusal refusal)
{
    return {std::nullopt, refusal};
}

ColumnValue toNumber(const Value& value, ColumnKind kind)
{
    if (!value.looksNumeric())
        return refused(Refusal::NotANumber);
    try {
        const Value number = value.isNumeric() ? value : Value(value.toDecimal());
        if (kind == ColumnKind::Integer)
            return {Value(number.toInt64())};
        if (kind == ColumnKind::Double)
            return {Value(number.toDouble())};
        return {Value(number.toDecimal())};
    } catch (const db::RuntimeError&) {
        return refused(Refusal::NotANumber);
    }
}

ColumnValue toDate(const Value& value)
{
    if (value.kind() == Value::Kind::Date)
        return {value};
    if (const QDate date = controls::readDate(value.toString()); date.isValid())
        return {Value(date)};
    return refused(Refusal::NotADate);
}

QString rightTrimmed(QString text)
{
    while (!text.isEmpty() && text.back().isSpace())
        text.chop(1);
    return text;
}

} // namespace

ColumnValue toColumnValue(const Value& value, ColumnKind kind)
{
    if (value.isBlank())
        return {Value::null()};
    switch (kind) {
    case ColumnKind::Integer:
    case ColumnKind::Decimal:
    case ColumnKind::Double:
        return toNumber(value, kind);
    case ColumnKind::Boolean:
        if (!value.looksNumeric() && value.kind() != Value::Kind::Boolean)
            return refused(Refusal::NotANumber);
        return {Value(value.toDecimal() != db::Decimal(0))};
    case ColumnKind::Date:
        return toDate(value);
    case ColumnKind::Text:
        return {Value(value.toString())};
    case ColumnKind::Unknown:
    case ColumnKind::Binary:
        break;
    }
    return {value};
}

bool sameKey(const Value& a, const Value& b)
{
    if (a.isBlank() || b.isBlank())
        return a.isBlank() && b.isBlank();
    if (a.isNumeric() && b.isNumeric())
        return a == b;
    return rightTrimmed(a.toString()).compare(rightTrimmed(b.toString()), Qt::CaseInsensitive) == 0;
}

} // namespace tarvello::frame
