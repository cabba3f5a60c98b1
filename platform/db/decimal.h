#pragma once

#include <QString>
#include <QtGlobal>
#include <compare>
#include <optional>

namespace tarvello::db {

// An exact decimal number: an integer mantissa and a count of decimal places.
// Shares and amounts are added and compared without binary drift.
class Decimal {
public:
    static constexpr int maxScale = 18;

    constexpr Decimal() = default;
    constexpr Decimal(qint64 integer)
        : m_mantissa(integer)
    {} // NOLINT: implicit by design
    static Decimal fromParts(qint64 mantissa, int scale);

    // Accepts an optional sign, digits, and one '.' or ',' as the decimal separator.
    static std::optional<Decimal> parse(QStringView text);
    // Rounds half away from zero to the given number of places.
    static Decimal fromDouble(double value, int scale = 6);

    qint64 mantissa() const { return m_mantissa; }
    int scale() const { return m_scale; }

    Decimal rounded(int places) const;
    Decimal normalized() const;
    double toDouble() const;
    // Truncates toward zero.
    qint64 toInt64() const;
    // Plain decimal text with '.', without trailing zeros after the separator.
    QString toString() const;

    Decimal operator-() const { return fromParts(-m_mantissa, m_scale); }
    friend Decimal operator+(const Decimal& a, const Decimal& b);
    friend Decimal operator-(const Decimal& a, const Decimal& b);
    friend Decimal operator*(const Decimal& a, const Decimal& b);
    Decimal& operator+=(const Decimal& other) { return *this = *this + other; }
    Decimal& operator-=(const Decimal& other) { return *this = *this - other; }

    friend std::strong_ordering operator<=>(const Decimal& a, const Decimal& b);
    friend bool operator==(const Decimal& a, const Decimal& b) { return (a <=> b) == 0; }

private:
    qint64 m_mantissa = 0;
    int m_scale = 0;
};

} // namespace tarvello::db
