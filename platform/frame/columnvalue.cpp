#include "platform/frame/columnvalue.h"

#include "platform/controls/displayformat.h"
#include "platform/db/runtimeerror.h"

#include <QDate>
#include <QRegularExpression>
#include <limits>

namespace tarvello::frame {

namespace {

using db::ColumnKind;
using db::Value;
using Refusal = ColumnValue::Refusal;

ColumnValue fitting(const Value& value)
{
    return {value, Refusal::None, {}};
}

ColumnValue refused(Refusal refusal, const QString& limit = {})
{
    return {std::nullopt, refusal, limit};
}

// A number as the person writes it: with a comma for the decimals.
QString written(const db::Decimal& number)
{
    return number.toString().replace(u'.', u',');
}

QString range(const db::Decimal& lowest, const db::Decimal& highest)
{
    return QStringLiteral("da %1 a %2").arg(written(lowest), written(highest));
}

// A sign, digits and one decimal separator: a number, though maybe too large to read.
bool writtenAsNumber(const QString& text)
{
    static const QRegularExpression number(QStringLiteral("^\\s*[-+]?\\d+([.,]\\d*)?\\s*$|"
                                                          "^\\s*[-+]?[.,]\\d+\\s*$"));
    return number.match(text).hasMatch();
}

ColumnValue toInteger(const db::Decimal& number, const db::ColumnSize& size)
{
    if (number.normalized().scale() > 0)
        return refused(Refusal::NotWhole);
    db::Decimal lowest(std::numeric_limits<qint64>::min());
    db::Decimal highest(std::numeric_limits<qint64>::max());
    if (size.integerBytes == 1) {
        lowest = 0;
        highest = 255;
    } else if (size.integerBytes == 2) {
        lowest = std::numeric_limits<qint16>::min();
        highest = std::numeric_limits<qint16>::max();
    } else if (size.integerBytes == 4) {
        lowest = std::numeric_limits<qint32>::min();
        highest = std::numeric_limits<qint32>::max();
    }
    if (number < lowest || number > highest)
        return refused(Refusal::OutOfRange, range(lowest, highest));
    return fitting(Value(number.toInt64()));
}

ColumnValue toDecimal(const db::Decimal& number, const db::ColumnSize& size)
{
    // Beyond 18 digits a decimal is larger than any number we read.
    if (size.precision <= 0 || size.precision > db::Decimal::maxScale)
        return fitting(Value(number));
    if (number.normalized().scale() > size.scale) {
        if (size.scale == 0)
            return refused(Refusal::NotWhole);
        return refused(Refusal::TooManyDecimals, QString::number(size.scale));
    }
    qint64 nines = 0;
    for (int digit = 0; digit < size.precision; ++digit)
        nines = nines * 10 + 9;
    const db::Decimal highest = db::Decimal::fromParts(nines, size.scale);
    if (number > highest || number < -highest)
        return refused(Refusal::OutOfRange, range(-highest, highest));
    return fitting(Value(number));
}

ColumnValue toNumber(const Value& value, const ColumnFormat& format)
{
    std::optional<db::Decimal> number;
    try {
        number = value.isNumeric() ? std::optional(value.toDecimal())
                                   : db::Decimal::parse(value.toString());
    } catch (const db::RuntimeError&) {
        // Not a number: the refusal below says why, in the person's terms.
        number.reset();
    }
    if (!number) {
        const bool tooLarge = !value.isNumeric() && writtenAsNumber(value.toString());
        return refused(
            tooLarge ? Refusal::OutOfRange : Refusal::NotANumber,
            tooLarge ? range(std::numeric_limits<qint64>::min(), std::numeric_limits<qint64>::max())
                     : QString());
    }
    switch (format.kind) {
    case ColumnKind::Integer:
        return toInteger(*number, format.size);
    case ColumnKind::Double:
        return fitting(Value(number->toDouble()));
    default:
        return toDecimal(*number, format.size);
    }
}

ColumnValue toText(const Value& value, const db::ColumnSize& size)
{
    const QString text = value.toString();
    if (size.length > 0 && text.size() > size.length)
        return refused(Refusal::TooLong, QString::number(size.length));
    return fitting(Value(text));
}

ColumnValue toDate(const Value& value)
{
    if (value.kind() == Value::Kind::Date)
        return fitting(value);
    if (const QDate date = controls::readDate(value.toString()); date.isValid())
        return fitting(Value(date));
    return refused(Refusal::NotADate);
}

QString rightTrimmed(QString text)
{
    while (!text.isEmpty() && text.back().isSpace())
        text.chop(1);
    return text;
}

} // namespace

ColumnValue toColumnValue(const Value& value, const ColumnFormat& format)
{
    if (value.isBlank())
        return fitting(Value::null());
    switch (format.kind) {
    case ColumnKind::Integer:
    case ColumnKind::Decimal:
    case ColumnKind::Double:
        return toNumber(value, format);
    case ColumnKind::Boolean:
        if (!value.looksNumeric() && value.kind() != Value::Kind::Boolean)
            return refused(Refusal::NotANumber);
        return fitting(Value(value.toDecimal() != db::Decimal(0)));
    case ColumnKind::Date:
        return toDate(value);
    case ColumnKind::Text:
        return toText(value, format.size);
    case ColumnKind::Unknown:
    case ColumnKind::Binary:
        break;
    }
    return fitting(value);
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
