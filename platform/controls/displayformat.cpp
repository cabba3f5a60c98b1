#include "platform/controls/displayformat.h"

#include "platform/db/decimal.h"

#include <QTime>
#include <optional>

namespace tarvello::controls {

namespace {

struct NumberPattern {
    int minIntegerDigits = 0;
    bool grouping = false;
    int minDecimals = 0;
    int maxDecimals = 0;
};

std::optional<NumberPattern> parseNumberPattern(QStringView format)
{
    if (format.isEmpty())
        return std::nullopt;
    NumberPattern pattern;
    bool inFraction = false;
    for (const QChar c : format) {
        if (c == u'.' && !inFraction) {
            inFraction = true;
        } else if (c == u'0') {
            if (inFraction) {
                ++pattern.minDecimals;
                ++pattern.maxDecimals;
            } else {
                ++pattern.minIntegerDigits;
            }
        } else if (c == u'#') {
            if (inFraction)
                ++pattern.maxDecimals;
        } else if (c == u',' && !inFraction) {
            pattern.grouping = true;
        } else {
            return std::nullopt;
        }
    }
    return pattern;
}

QString groupThousands(const QString& digits)
{
    QString grouped;
    const qsizetype n = digits.size();
    for (qsizetype i = 0; i < n; ++i) {
        if (i > 0 && (n - i) % 3 == 0)
            grouped += u'.';
        grouped += digits.at(i);
    }
    return grouped;
}

QString formatNumber(const db::Decimal& number, const std::optional<NumberPattern>& pattern)
{
    db::Decimal shown = number;
    if (pattern)
        shown = shown.rounded(pattern->maxDecimals);
    const bool negative = shown < db::Decimal(0);
    QString plain = (negative ? -shown : shown).normalized().toString();
    const qsizetype point = plain.indexOf(u'.');
    QString integer = point < 0 ? plain : plain.left(point);
    QString fraction = point < 0 ? QString() : plain.mid(point + 1);

    if (pattern) {
        while (fraction.size() < pattern->minDecimals)
            fraction += u'0';
        while (integer.size() < pattern->minIntegerDigits)
            integer.prepend(u'0');
        if (pattern->grouping)
            integer = groupThousands(integer);
    }
    QString text = negative ? QStringLiteral("-") + integer : integer;
    if (!fraction.isEmpty())
        text += u',' + fraction;
    return text;
}

QString formatDate(const QDateTime& when)
{
    if (!when.isValid())
        return {};
    if (when.time() == QTime(0, 0))
        return dateText(when.date());
    return when.toString(QStringLiteral("dd/MM/yyyy HH:mm:ss"));
}

} // namespace

QString formatForDisplay(const db::Value& value, QStringView format)
{
    using Kind = db::Value::Kind;
    switch (value.kind()) {
    case Kind::Empty:
    case Kind::Null:
        return {};
    case Kind::Date:
        return formatDate(value.toDateTime());
    case Kind::Integer:
    case Kind::Decimal:
    case Kind::Double:
        return formatNumber(value.toDecimal(), parseNumberPattern(format));
    case Kind::Text: {
        const QString text = value.toString();
        const auto pattern = parseNumberPattern(format);
        if (pattern) {
            if (const auto number = db::Decimal::parse(text.trimmed()))
                return formatNumber(*number, pattern);
        }
        return text;
    }
    case Kind::Boolean:
    case Kind::Array:
        break;
    }
    return value.toString();
}

QDate readDate(const QString& text)
{
    const QString typed = text.trimmed();
    for (const char* format : {"dd/MM/yyyy", "d/M/yyyy", "ddMMyyyy", "yyyy-MM-dd"}) {
        if (const QDate date = QDate::fromString(typed, QString::fromLatin1(format));
            date.isValid())
            return date;
    }
    for (const char* format : {"d/M/yy", "ddMMyy"}) {
        // Qt reads "yy" as 19yy.
        QDate date = QDate::fromString(typed, QString::fromLatin1(format));
        if (!date.isValid())
            continue;
        if (date.year() < QDate::currentDate().year() - 80)
            date = date.addYears(100);
        return date;
    }
    return {};
}

QString dateText(const QDate& date)
{
    return date.toString(QStringLiteral("dd/MM/yyyy"));
}

} // namespace tarvello::controls
