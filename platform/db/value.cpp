#include "platform/db/value.h"

#include "platform/db/runtimeerror.h"

#include <cmath>
#include <limits>

namespace tarvello::db {

namespace {

constexpr auto isoFormat = "yyyy-MM-ddTHH:mm:ss";

[[noreturn]] void typeMismatch(const Value& v, const char* target)
{
    throw RuntimeError(RuntimeError::TypeMismatch,
                       QStringLiteral("Type mismatch: %1 is not %2").arg(v.debugText(), target));
}

[[noreturn]] void invalidUseOfNull()
{
    throw RuntimeError(RuntimeError::InvalidUseOfNull, QStringLiteral("Invalid use of Null"));
}

// Rounds half to even, as the host language does when a fraction becomes an integer.
qint64 roundToInteger(double d)
{
    const double r = std::nearbyint(d);
    if (!std::isfinite(r) || r >= 9.2e18 || r <= -9.2e18)
        throw RuntimeError(RuntimeError::Overflow, QStringLiteral("Overflow"));
    return static_cast<qint64>(r);
}

qint64 roundToInteger(const Decimal& d)
{
    const Decimal whole = Decimal(d.toInt64());
    const Decimal fraction = d - whole;
    const Decimal half = Decimal::fromParts(5, 1);
    qint64 result = whole.toInt64();
    if (fraction > half || (fraction == half && result % 2 != 0))
        ++result;
    else if (fraction < -half || (fraction == -half && result % 2 != 0))
        --result;
    return result;
}

QDateTime parseDateTime(const QString& text)
{
    const QString t = text.trimmed();
    for (const char* format :
         {"yyyy-MM-ddTHH:mm:ss.zzz", "yyyy-MM-ddTHH:mm:ss", "yyyy-MM-dd HH:mm:ss.zzz",
          "yyyy-MM-dd HH:mm:ss", "dd/MM/yyyy HH:mm:ss", "dd/MM/yyyy HH:mm", "dd/MM/yyyy",
          "d/M/yyyy", "dd/MM/yy", "ddMMyyyy"}) {
        const QDateTime dt = QDateTime::fromString(t, QString::fromLatin1(format));
        if (dt.isValid())
            return dt;
    }
    const QDate d = QDate::fromString(t, Qt::ISODate);
    return d.isValid() ? d.startOfDay() : QDateTime();
}

} // namespace

Value Value::null()
{
    Value v;
    v.m_data = NullTag{};
    return v;
}

Value Value::fromVariant(const QVariant& v)
{
    if (!v.isValid() || v.isNull())
        return null();
    switch (v.metaType().id()) {
    case QMetaType::Bool:
        return v.toBool();
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::Long:
    case QMetaType::LongLong:
    case QMetaType::Short:
    case QMetaType::UShort:
    case QMetaType::Char:
    case QMetaType::SChar:
    case QMetaType::UChar:
        return v.toLongLong();
    case QMetaType::ULong:
    case QMetaType::ULongLong:
        return qint64(v.toULongLong());
    case QMetaType::Double:
    case QMetaType::Float:
        return v.toDouble();
    case QMetaType::QDate:
        return v.toDate();
    case QMetaType::QDateTime:
        return v.toDateTime();
    case QMetaType::QByteArray:
        return QString::fromUtf8(v.toByteArray());
    default:
        break;
    }
    if (v.canConvert<Value>() && v.metaType() == QMetaType::fromType<Value>())
        return v.value<Value>();
    return v.toString();
}

bool Value::isBlank() const
{
    return isEmpty() || isNull() || (kind() == Kind::Text && std::get<QString>(m_data).isEmpty());
}

bool Value::isNumeric() const
{
    const Kind k = kind();
    return k == Kind::Integer || k == Kind::Decimal || k == Kind::Double || k == Kind::Boolean;
}

bool Value::looksNumeric() const
{
    if (isNumeric())
        return true;
    return kind() == Kind::Text && Decimal::parse(std::get<QString>(m_data)).has_value();
}

bool Value::toBool() const
{
    switch (kind()) {
    case Kind::Empty:
        return false;
    case Kind::Null:
        invalidUseOfNull();
    case Kind::Boolean:
        return std::get<bool>(m_data);
    case Kind::Text: {
        const QString& s = std::get<QString>(m_data);
        if (s.compare(u"true", Qt::CaseInsensitive) == 0)
            return true;
        if (s.compare(u"false", Qt::CaseInsensitive) == 0)
            return false;
        return toDecimal() != Decimal(0);
    }
    case Kind::Integer:
    case Kind::Decimal:
    case Kind::Double:
        return toDecimal() != Decimal(0);
    default:
        typeMismatch(*this, "Boolean");
    }
}

qint64 Value::toInt64() const
{
    switch (kind()) {
    case Kind::Empty:
        return 0;
    case Kind::Null:
        invalidUseOfNull();
    case Kind::Boolean:
        return std::get<bool>(m_data) ? -1 : 0;
    case Kind::Integer:
        return std::get<qint64>(m_data);
    case Kind::Decimal:
        return roundToInteger(std::get<Decimal>(m_data));
    case Kind::Double:
        return roundToInteger(std::get<double>(m_data));
    case Kind::Text:
        return roundToInteger(toDecimal());
    default:
        typeMismatch(*this, "a number");
    }
}

int Value::toInt() const
{
    const qint64 v = toInt64();
    if (v > std::numeric_limits<int>::max() || v < std::numeric_limits<int>::min())
        throw RuntimeError(RuntimeError::Overflow, QStringLiteral("Overflow"));
    return static_cast<int>(v);
}

short Value::toShort() const
{
    const qint64 v = toInt64();
    if (v > std::numeric_limits<short>::max() || v < std::numeric_limits<short>::min())
        throw RuntimeError(RuntimeError::Overflow, QStringLiteral("Overflow"));
    return static_cast<short>(v);
}

Decimal Value::toDecimal() const
{
    switch (kind()) {
    case Kind::Empty:
        return Decimal(0);
    case Kind::Null:
        invalidUseOfNull();
    case Kind::Boolean:
        return Decimal(std::get<bool>(m_data) ? -1 : 0);
    case Kind::Integer:
        return Decimal(std::get<qint64>(m_data));
    case Kind::Decimal:
        return std::get<Decimal>(m_data);
    case Kind::Double:
        return Decimal::fromDouble(std::get<double>(m_data), 12);
    case Kind::Text:
        if (const auto d = Decimal::parse(std::get<QString>(m_data)))
            return *d;
        typeMismatch(*this, "a number");
    default:
        typeMismatch(*this, "a number");
    }
}

double Value::toDouble() const
{
    if (kind() == Kind::Double)
        return std::get<double>(m_data);
    return toDecimal().toDouble();
}

QString Value::toString() const
{
    switch (kind()) {
    case Kind::Empty:
    case Kind::Null:
        return {};
    case Kind::Boolean:
        return std::get<bool>(m_data) ? QStringLiteral("True") : QStringLiteral("False");
    case Kind::Integer:
        return QString::number(std::get<qint64>(m_data));
    case Kind::Decimal:
        return std::get<Decimal>(m_data).toString();
    case Kind::Double:
        return QString::number(std::get<double>(m_data), 'g', 15);
    case Kind::Text:
        return std::get<QString>(m_data);
    case Kind::Date: {
        const QDateTime& dt = std::get<QDateTime>(m_data);
        return dt.time() == QTime(0, 0) ? dt.toString(QStringLiteral("dd/MM/yyyy"))
                                        : dt.toString(QStringLiteral("dd/MM/yyyy HH:mm:ss"));
    }
    case Kind::Array:
        typeMismatch(*this, "a text");
    }
    return {};
}

QDateTime Value::toDateTime() const
{
    switch (kind()) {
    case Kind::Null:
        invalidUseOfNull();
    case Kind::Date:
        return std::get<QDateTime>(m_data);
    case Kind::Text: {
        const QDateTime dt = parseDateTime(std::get<QString>(m_data));
        if (dt.isValid())
            return dt;
        typeMismatch(*this, "a date");
    }
    default:
        typeMismatch(*this, "a date");
    }
}

const ValueList& Value::toArray() const
{
    if (kind() != Kind::Array)
        typeMismatch(*this, "an array");
    return std::get<ValueList>(m_data);
}

QVariant Value::toVariant() const
{
    switch (kind()) {
    case Kind::Empty:
        return {};
    case Kind::Null:
        return QVariant(QMetaType::fromType<QString>());
    case Kind::Boolean:
        return std::get<bool>(m_data);
    case Kind::Integer:
        return std::get<qint64>(m_data);
    case Kind::Decimal: {
        const Decimal& d = std::get<Decimal>(m_data);
        return d.scale() == 0 ? QVariant(d.mantissa()) : QVariant(d.toString());
    }
    case Kind::Double:
        return std::get<double>(m_data);
    case Kind::Text:
        return std::get<QString>(m_data);
    case Kind::Date:
        return std::get<QDateTime>(m_data).toString(QString::fromLatin1(isoFormat));
    case Kind::Array:
        return QVariant::fromValue(*this);
    }
    return {};
}

QString Value::sqlLiteral() const
{
    switch (kind()) {
    case Kind::Empty:
    case Kind::Null:
        return QStringLiteral("NULL");
    case Kind::Boolean:
        return std::get<bool>(m_data) ? QStringLiteral("1") : QStringLiteral("0");
    case Kind::Integer:
    case Kind::Decimal:
    case Kind::Double:
        return toDecimal().toString();
    case Kind::Text:
        return quoted(std::get<QString>(m_data));
    case Kind::Date:
        return quoted(std::get<QDateTime>(m_data).toString(QString::fromLatin1(isoFormat)));
    case Kind::Array:
        typeMismatch(*this, "a SQL value");
    }
    return {};
}

QString Value::debugText() const
{
    switch (kind()) {
    case Kind::Empty:
        return QStringLiteral("<Empty>");
    case Kind::Null:
        return QStringLiteral("<Null>");
    case Kind::Text:
        return u'"' + std::get<QString>(m_data) + u'"';
    case Kind::Date:
        return std::get<QDateTime>(m_data).toString(QString::fromLatin1(isoFormat));
    case Kind::Array: {
        QStringList parts;
        for (const Value& item : std::get<ValueList>(m_data))
            parts << item.debugText();
        return u'[' + parts.join(QStringLiteral(", ")) + u']';
    }
    default:
        return toString();
    }
}

bool operator==(const Value& a, const Value& b)
{
    using Kind = Value::Kind;
    const auto numeric = [](Kind k) {
        return k == Kind::Integer || k == Kind::Decimal || k == Kind::Double;
    };
    if (a.kind() == b.kind())
        return a.m_data == b.m_data;
    if (numeric(a.kind()) && numeric(b.kind()))
        return a.toDecimal() == b.toDecimal();
    return false;
}

QString quoted(const QString& text)
{
    QString result = text;
    result.replace(u'\'', QStringLiteral("''"));
    return u'\'' + result + u'\'';
}

} // namespace tarvello::db
