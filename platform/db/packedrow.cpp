#include "platform/db/packedrow.h"

#include "platform/db/runtimeerror.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <limits>

namespace tarvello::db {

namespace {

enum Tag : quint8 {
    EmptyTag,
    NullTag,
    FalseTag,
    TrueTag,
    Int8Tag,
    Int16Tag,
    Int32Tag,
    Int64Tag,
    // A scale byte, then the mantissa.
    Decimal32Tag,
    Decimal64Tag,
    DoubleTag,
    // A length byte, then one byte per character.
    ShortLatin1Tag,
    // A length of four bytes, then one byte per character.
    Latin1Tag,
    // A length of four bytes in characters, then two bytes per character.
    Utf16Tag,
    // The Julian day (eight bytes) and the milliseconds of the day (four bytes); the offset from
    // UTC in seconds (four bytes) follows for an offset date.
    LocalDateTag,
    UtcDateTag,
    OffsetDateTag,
    InvalidDateTag,
};

constexpr qsizetype dateBytes = sizeof(qint64) + sizeof(qint32);

template <class T>
void put(QByteArray& bytes, T value)
{
    bytes.append(reinterpret_cast<const char*>(&value), sizeof(T));
}

template <class T>
T get(const char* at)
{
    T value;
    std::memcpy(&value, at, sizeof(T));
    return value;
}

template <class T>
bool fits(qint64 value)
{
    return value >= std::numeric_limits<T>::min() && value <= std::numeric_limits<T>::max();
}

void putInteger(QByteArray& bytes, qint64 value)
{
    if (fits<qint8>(value)) {
        bytes.append(char(Int8Tag));
        put(bytes, qint8(value));
    } else if (fits<qint16>(value)) {
        bytes.append(char(Int16Tag));
        put(bytes, qint16(value));
    } else if (fits<qint32>(value)) {
        bytes.append(char(Int32Tag));
        put(bytes, qint32(value));
    } else {
        bytes.append(char(Int64Tag));
        put(bytes, value);
    }
}

void putText(QByteArray& bytes, const QString& text)
{
    const bool latin1 =
        std::all_of(text.cbegin(), text.cend(), [](QChar c) { return c.unicode() < 0x100; });
    const auto length = qint32(text.size());
    if (!latin1) {
        bytes.append(char(Utf16Tag));
        put(bytes, length);
        bytes.append(reinterpret_cast<const char*>(text.utf16()), length * qsizetype(2));
        return;
    }
    if (length <= std::numeric_limits<quint8>::max()) {
        bytes.append(char(ShortLatin1Tag));
        put(bytes, quint8(length));
    } else {
        bytes.append(char(Latin1Tag));
        put(bytes, length);
    }
    const qsizetype start = bytes.size();
    bytes.resize(start + length);
    char* out = bytes.data() + start;
    for (const QChar c : text)
        *out++ = char(c.unicode());
}

void putDate(QByteArray& bytes, const QDateTime& value)
{
    if (!value.isValid()) {
        bytes.append(char(InvalidDateTag));
        return;
    }
    const Qt::TimeSpec zone = value.timeSpec();
    const QDateTime at =
        zone == Qt::TimeZone ? value.toOffsetFromUtc(value.offsetFromUtc()) : value;
    bytes.append(char(zone == Qt::LocalTime ? LocalDateTag
                      : zone == Qt::UTC     ? UtcDateTag
                                            : OffsetDateTag));
    put(bytes, qint64(at.date().toJulianDay()));
    put(bytes, qint32(at.time().msecsSinceStartOfDay()));
    if (zone != Qt::LocalTime && zone != Qt::UTC)
        put(bytes, qint32(at.offsetFromUtc()));
}

// How many bytes two blocks share from their start, compared a word at a time.
qsizetype commonPrefix(const char* a, const char* b, qsizetype length)
{
    qsizetype at = 0;
    for (; at + qsizetype(sizeof(quint64)) <= length; at += sizeof(quint64)) {
        if (get<quint64>(a + at) != get<quint64>(b + at))
            break;
    }
    while (at < length && a[at] == b[at])
        ++at;
    return at;
}

QDateTime getDate(const char* at, Qt::TimeSpec zone, int offset = 0)
{
    const QDate date = QDate::fromJulianDay(get<qint64>(at));
    const QTime time = QTime::fromMSecsSinceStartOfDay(get<qint32>(at + sizeof(qint64)));
    return QDateTime(date, time, zone, offset);
}

[[noreturn]] void outsideTheRow()
{
    throw RuntimeError(RuntimeError::ItemNotFound,
                       QStringLiteral("Item cannot be found in the collection"));
}

} // namespace

PackedRow::PackedRow(const ValueList& values)
{
    for (const Value& value : values)
        append(value);
}

void PackedRow::encode(QByteArray& bytes, const Value& value)
{
    switch (value.kind()) {
    case Value::Kind::Empty:
        bytes.append(char(EmptyTag));
        return;
    case Value::Kind::Null:
        bytes.append(char(NullTag));
        return;
    case Value::Kind::Boolean:
        bytes.append(char(value.toBool() ? TrueTag : FalseTag));
        return;
    case Value::Kind::Integer:
        putInteger(bytes, value.toInt64());
        return;
    case Value::Kind::Decimal: {
        const Decimal d = value.toDecimal();
        const bool small = fits<qint32>(d.mantissa());
        bytes.append(char(small ? Decimal32Tag : Decimal64Tag));
        put(bytes, qint8(d.scale()));
        if (small)
            put(bytes, qint32(d.mantissa()));
        else
            put(bytes, d.mantissa());
        return;
    }
    case Value::Kind::Double:
        bytes.append(char(DoubleTag));
        put(bytes, value.toDouble());
        return;
    case Value::Kind::Text:
        putText(bytes, value.toString());
        return;
    case Value::Kind::Date:
        putDate(bytes, value.toDateTime());
        return;
    case Value::Kind::Array:
        break;
    }
    throw RuntimeError(RuntimeError::TypeMismatch,
                       QStringLiteral("Type mismatch: an array is not a value of a row"));
}

inline qsizetype PackedRow::lengthAt(qsizetype offset) const
{
    // By tag, the length of a value of fixed size, 0 for a text (its length follows the tag). A
    // table rather than a switch: a row's columns come in every kind, and an indirect jump per
    // value mispredicts where a load does not.
    static constexpr std::array<quint8, InvalidDateTag + 1> fixedLengths = [] {
        std::array<quint8, InvalidDateTag + 1> lengths{};
        lengths[EmptyTag] = lengths[NullTag] = lengths[FalseTag] = lengths[TrueTag] = 1;
        lengths[InvalidDateTag] = 1;
        lengths[Int8Tag] = 2;
        lengths[Int16Tag] = 3;
        lengths[Int32Tag] = 5;
        lengths[Int64Tag] = lengths[DoubleTag] = 9;
        lengths[Decimal32Tag] = 6;
        lengths[Decimal64Tag] = 10;
        lengths[LocalDateTag] = lengths[UtcDateTag] = 1 + dateBytes;
        lengths[OffsetDateTag] = 1 + dateBytes + sizeof(qint32);
        return lengths;
    }();
    const char* at = m_bytes.constData() + offset;
    const auto tag = quint8(*at);
    if (const quint8 fixed = fixedLengths[tag])
        return fixed;
    if (tag == ShortLatin1Tag)
        return 2 + get<quint8>(at + 1);
    if (tag == Latin1Tag)
        return 5 + get<qint32>(at + 1);
    return 5 + qsizetype(2) * get<qint32>(at + 1); // Utf16Tag
}

Value PackedRow::decodeAt(qsizetype offset) const
{
    const char* at = m_bytes.constData() + offset;
    const char* payload = at + 1;
    switch (Tag(*at)) {
    case EmptyTag:
        return {};
    case NullTag:
        return Value::null();
    case FalseTag:
        return false;
    case TrueTag:
        return true;
    case Int8Tag:
        return qint64(get<qint8>(payload));
    case Int16Tag:
        return qint64(get<qint16>(payload));
    case Int32Tag:
        return qint64(get<qint32>(payload));
    case Int64Tag:
        return get<qint64>(payload);
    case Decimal32Tag:
        return Decimal::fromParts(get<qint32>(payload + 1), get<qint8>(payload));
    case Decimal64Tag:
        return Decimal::fromParts(get<qint64>(payload + 1), get<qint8>(payload));
    case DoubleTag:
        return get<double>(payload);
    case ShortLatin1Tag:
        return QString::fromLatin1(payload + 1, get<quint8>(payload));
    case Latin1Tag:
        return QString::fromLatin1(payload + 4, get<qint32>(payload));
    case Utf16Tag:
        return QString(reinterpret_cast<const QChar*>(payload + 4), get<qint32>(payload));
    case LocalDateTag:
        return getDate(payload, Qt::LocalTime);
    case UtcDateTag:
        return getDate(payload, Qt::UTC);
    case OffsetDateTag:
        return getDate(payload, Qt::OffsetFromUTC, get<qint32>(payload + dateBytes));
    case InvalidDateTag:
        return QDateTime();
    }
    return {};
}

qsizetype PackedRow::offsetOf(int column) const
{
    if (column < 0 || column >= m_count)
        outsideTheRow();
    qsizetype offset = 0;
    for (int i = 0; i < column; ++i)
        offset += lengthAt(offset);
    return offset;
}

Value PackedRow::at(int column) const
{
    return decodeAt(offsetOf(column));
}

ValueList PackedRow::at(const QList<int>& columns) const
{
    ValueList values;
    values.reserve(columns.size());
    int walked = 0;
    qsizetype offset = 0;
    for (const int column : columns) {
        if (column < 0 || column >= m_count)
            outsideTheRow();
        if (column < walked) {
            walked = 0;
            offset = 0;
        }
        for (; walked < column; ++walked)
            offset += lengthAt(offset);
        values << decodeAt(offset);
    }
    return values;
}

void PackedRow::set(int column, const Value& value)
{
    setAt(offsetOf(column), value);
}

bool PackedRow::replace(int column, const Value& value)
{
    const qsizetype offset = offsetOf(column);
    if (identical(decodeAt(offset), value))
        return false;
    setAt(offset, value);
    return true;
}

void PackedRow::setAt(qsizetype offset, const Value& value)
{
    const qsizetype replaced = lengthAt(offset);
    const qsizetype end = m_bytes.size();
    if (!m_bytes.isDetached()) {
        // Shared with a copy (the row as read, kept when it is first changed): built afresh,
        // one allocation and one copy, rather than copied whole and then moved about.
        QByteArray bytes;
        bytes.reserve(end + 32);
        bytes.append(m_bytes.constData(), offset);
        encode(bytes, value);
        bytes.append(m_bytes.constData() + offset + replaced, end - offset - replaced);
        m_bytes = std::move(bytes);
        return;
    }
    // Encoded after the last value and moved into place, so that filling a row's columns one
    // by one allocates no buffer per value. A value as long as the one it replaces (a number
    // for a number) is copied over it.
    encode(m_bytes, value);
    char* bytes = m_bytes.data();
    if (m_bytes.size() - end == replaced) {
        std::memcpy(bytes + offset, bytes + end, size_t(replaced));
        m_bytes.truncate(end);
        return;
    }
    std::rotate(bytes + offset, bytes + end, bytes + m_bytes.size());
    m_bytes.remove(offset + (m_bytes.size() - end), replaced);
}

void PackedRow::append(const Value& value)
{
    encode(m_bytes, value);
    ++m_count;
}

ValueList PackedRow::toList() const
{
    ValueList values;
    values.reserve(m_count);
    qsizetype offset = 0;
    for (int i = 0; i < m_count; ++i) {
        values << decodeAt(offset);
        offset += lengthAt(offset);
    }
    return values;
}

QList<PackedRow::Change> PackedRow::changes(const PackedRow& before, const PackedRow& after)
{
    QList<Change> changed;
    const int count = std::min(before.m_count, after.m_count);
    qsizetype x = 0;
    qsizetype y = 0;
    int column = 0;
    while (column < count) {
        // The columns whose bytes all come before the first byte that differs are the same,
        // tag and length included: passed over without comparing them one by one.
        const qsizetype rest = before.m_bytes.size() - x;
        const qsizetype stop =
            x + commonPrefix(before.m_bytes.constData() + x, after.m_bytes.constData() + y,
                             std::min(rest, after.m_bytes.size() - y));
        if (stop - x == rest && rest == after.m_bytes.size() - y)
            return changed; // the rest of the two rows is the same
        qsizetype xLength = before.lengthAt(x);
        while (x + xLength <= stop) {
            x += xLength;
            y += xLength;
            if (++column == count)
                return changed;
            xLength = before.lengthAt(x);
        }
        // Other bytes may still be an equal value (5 and 5.0).
        const qsizetype yLength = after.lengthAt(y);
        Value was = before.decodeAt(x);
        Value is = after.decodeAt(y);
        if (!(was == is))
            changed << Change{column, std::move(was), std::move(is)};
        x += xLength;
        y += yLength;
        ++column;
    }
    return changed;
}

} // namespace tarvello::db
