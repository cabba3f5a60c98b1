#pragma once

#include "platform/db/decimal.h"

#include <QDateTime>
#include <QList>
#include <QString>
#include <QVariant>
#include <variant>

namespace tarvello::db {

class Value;
using ValueList = QList<Value>;

// A value as the module reads and writes it: Empty (never assigned), Null (database null),
// a boolean, an integer, an exact decimal, a floating number, a text, a date and time, or
// an array. Conversions follow the host language's rules and raise RuntimeError
// (type mismatch, invalid use of Null, overflow) where it would.
class Value {
public:
    enum class Kind { Empty, Null, Boolean, Integer, Decimal, Double, Text, Date, Array };

    Value() = default;
    Value(bool b)
        : m_data(b)
    {}
    Value(int i)
        : m_data(qint64(i))
    {}
    Value(long i)
        : m_data(qint64(i))
    {}
    Value(long long i)
        : m_data(qint64(i))
    {}
    Value(Decimal d)
        : m_data(d)
    {}
    Value(double d)
        : m_data(d)
    {}
    Value(const QString& s)
        : m_data(s)
    {}
    Value(const char* s)
        : m_data(QString::fromUtf8(s))
    {}
    Value(QDate d)
        : m_data(d.startOfDay())
    {}
    Value(const QDateTime& dt)
        : m_data(dt)
    {}
    Value(ValueList items)
        : m_data(std::move(items))
    {}

    static Value null();
    static Value fromVariant(const QVariant& v);

    Kind kind() const { return static_cast<Kind>(m_data.index()); }
    bool isEmpty() const { return kind() == Kind::Empty; }
    bool isNull() const { return kind() == Kind::Null; }
    // Empty, Null, or a text of no characters.
    bool isBlank() const;
    bool isNumeric() const;
    // Numeric, or a text that reads as a number.
    bool looksNumeric() const;

    bool toBool() const;
    qint64 toInt64() const;
    int toInt() const;
    short toShort() const;
    Decimal toDecimal() const;
    double toDouble() const;
    // Empty and Null give "" here; use isNull() where the difference matters.
    QString toString() const;
    QDateTime toDateTime() const;
    QDate toDate() const { return toDateTime().date(); }
    const ValueList& toArray() const;

    QVariant toVariant() const;
    // The value written into a SQL text: NULL, a plain number, or a quoted text with every
    // single quote doubled; dates as 'yyyy-MM-ddTHH:mm:ss'.
    QString sqlLiteral() const;
    // A short form for messages and test failures: <Empty>, <Null>, "text", 12.5, ...
    QString debugText() const;

    // Equal in kind family and value: numbers compare by value, texts exactly.
    friend bool operator==(const Value& a, const Value& b);

private:
    struct NullTag {
        bool operator==(const NullTag&) const = default;
    };
    using Data = std::variant<std::monostate, NullTag, bool, qint64, Decimal, double, QString,
                              QDateTime, ValueList>;
    Data m_data;
};

QString quoted(const QString& text);
// Equal and of the same kind: 5 and 5.0 are equal values, but not identical ones.
inline bool identical(const Value& a, const Value& b)
{
    return a.kind() == b.kind() && a == b;
}

} // namespace tarvello::db

Q_DECLARE_METATYPE(tarvello::db::Value)
