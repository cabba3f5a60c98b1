#include "platform/db/decimal.h"

#include <cmath>
#include <limits>
#include <stdexcept>

namespace tarvello::db {

namespace {

// 128-bit intermediates keep products and rescaled sums of 64-bit mantissas exact.
__extension__ typedef __int128 Wide;

Wide pow10(int n)
{
    Wide result = 1;
    while (n-- > 0)
        result *= 10;
    return result;
}

qint64 narrow(Wide value)
{
    if (value > std::numeric_limits<qint64>::max() || value < std::numeric_limits<qint64>::min())
        throw std::overflow_error("decimal overflow");
    return static_cast<qint64>(value);
}

// Brings a wide mantissa of the given scale to a scale that fits 64 bits, rounding.
Decimal fit(Wide mantissa, int scale)
{
    while (scale > Decimal::maxScale ||
           (scale > 0 && (mantissa > std::numeric_limits<qint64>::max() ||
                          mantissa < std::numeric_limits<qint64>::min()))) {
        const Wide rest = mantissa % 10;
        mantissa /= 10;
        if (rest >= 5)
            ++mantissa;
        else if (rest <= -5)
            --mantissa;
        --scale;
    }
    return Decimal::fromParts(narrow(mantissa), scale);
}

} // namespace

Decimal Decimal::fromParts(qint64 mantissa, int scale)
{
    Decimal d;
    d.m_mantissa = mantissa;
    d.m_scale = qBound(0, scale, maxScale);
    return d;
}

std::optional<Decimal> Decimal::parse(QStringView text)
{
    text = text.trimmed();
    if (text.isEmpty())
        return std::nullopt;
    bool negative = false;
    qsizetype i = 0;
    if (text[0] == u'-' || text[0] == u'+') {
        negative = text[0] == u'-';
        ++i;
    }
    Wide mantissa = 0;
    int scale = -1;
    int digits = 0;
    for (; i < text.size(); ++i) {
        const QChar c = text[i];
        if (c == u'.' || c == u',') {
            if (scale >= 0)
                return std::nullopt;
            scale = 0;
            continue;
        }
        if (!c.isDigit())
            return std::nullopt;
        if (scale >= maxScale)
            continue; // further places are beyond what we keep
        mantissa = mantissa * 10 + c.digitValue();
        if (mantissa > Wide(std::numeric_limits<qint64>::max()) * 10)
            return std::nullopt;
        ++digits;
        if (scale >= 0)
            ++scale;
    }
    if (digits == 0)
        return std::nullopt;
    try {
        return fit(negative ? -mantissa : mantissa, qMax(scale, 0));
    } catch (const std::overflow_error&) {
        return std::nullopt;
    }
}

Decimal Decimal::fromDouble(double value, int scale)
{
    const double scaled = std::round(value * std::pow(10.0, scale));
    if (!std::isfinite(scaled) || std::fabs(scaled) >= 9.2e18)
        throw std::overflow_error("decimal overflow");
    return fromParts(static_cast<qint64>(scaled), scale).normalized();
}

Decimal Decimal::rounded(int places) const
{
    if (places >= m_scale)
        return *this;
    Wide m = m_mantissa;
    const Wide divisor = pow10(m_scale - places);
    Wide q = m / divisor;
    const Wide r = m % divisor;
    if (r * 2 >= divisor)
        ++q;
    else if (r * 2 <= -divisor)
        --q;
    return fromParts(narrow(q), places);
}

Decimal Decimal::normalized() const
{
    Decimal d = *this;
    while (d.m_scale > 0 && d.m_mantissa % 10 == 0) {
        d.m_mantissa /= 10;
        --d.m_scale;
    }
    return d;
}

double Decimal::toDouble() const
{
    return static_cast<double>(m_mantissa) / std::pow(10.0, m_scale);
}

qint64 Decimal::toInt64() const
{
    return narrow(Wide(m_mantissa) / pow10(m_scale));
}

QString Decimal::toString() const
{
    const Decimal d = normalized();
    // The magnitude is taken in a wider type so the most negative mantissa prints too.
    const Wide magnitude = d.m_mantissa < 0 ? -Wide(d.m_mantissa) : Wide(d.m_mantissa);
    QString digits = QString::number(static_cast<quint64>(magnitude));
    if (d.m_scale > 0) {
        if (digits.size() <= d.m_scale)
            digits.prepend(QString(d.m_scale - digits.size() + 1, u'0'));
        digits.insert(digits.size() - d.m_scale, u'.');
    }
    if (d.m_mantissa < 0)
        digits.prepend(u'-');
    return digits;
}

Decimal operator+(const Decimal& a, const Decimal& b)
{
    const int scale = qMax(a.m_scale, b.m_scale);
    return fit(Wide(a.m_mantissa) * pow10(scale - a.m_scale) +
                   Wide(b.m_mantissa) * pow10(scale - b.m_scale),
               scale);
}

Decimal operator-(const Decimal& a, const Decimal& b)
{
    return a + -b;
}

Decimal operator*(const Decimal& a, const Decimal& b)
{
    return fit(Wide(a.m_mantissa) * Wide(b.m_mantissa), a.m_scale + b.m_scale).normalized();
}

std::strong_ordering operator<=>(const Decimal& a, const Decimal& b)
{
    const int scale = qMax(a.m_scale, b.m_scale);
    const Wide x = Wide(a.m_mantissa) * pow10(scale - a.m_scale);
    const Wide y = Wide(b.m_mantissa) * pow10(scale - b.m_scale);
    return x <=> y;
}

} // namespace tarvello::db
