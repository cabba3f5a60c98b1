#include "platform/db/tsqlpasses.h"

#include <utility>

namespace tarvello::db::tsql {

namespace {

// Dates are stored as ISO texts with a 'T' ("2024-03-01T00:00:00"); dates computed in SQL
// take the same form, or they would not compare with stored ones.
constexpr QLatin1StringView isoDateTime("%Y-%m-%dT%H:%M:%S");
constexpr QLatin1StringView isoDate("%Y-%m-%dT00:00:00");

// The strftime pattern of a CONVERT style that turns a date into text.
QString dateStyleFormat(QStringView style)
{
    static constexpr std::pair<QStringView, QStringView> formats[] = {
        {u"23", u"%Y-%m-%d"},  {u"101", u"%m/%d/%Y"},          {u"103", u"%d/%m/%Y"},
        {u"104", u"%d.%m.%Y"}, {u"105", u"%d-%m-%Y"},          {u"108", u"%H:%M:%S"},
        {u"112", u"%Y%m%d"},   {u"120", u"%Y-%m-%d %H:%M:%S"}, {u"121", u"%Y-%m-%d %H:%M:%f"}};
    for (const auto& [code, format] : formats) {
        if (code == style)
            return format.toString();
    }
    return {};
}

// How CAST/CONVERT to a type is written: head replaces the function name, afterOpen follows
// its '(' and tail replaces its ')'; the value converted stays in between.
struct Conversion {
    QString head;
    QString afterOpen;
    QString tail;
};

std::optional<Conversion> conversionTo(const Statement& s, int typeFirst, int typeLast,
                                       const QString& style)
{
    const QString& type = s[typeFirst].key;
    int length = -1;
    bool unlimited = type == u"TEXT" || type == u"NTEXT";
    if (s.isOpen(s.next(typeFirst))) {
        const int size = s.next(s.next(typeFirst));
        if (s.isWord(size, u"MAX"))
            unlimited = true;
        else if (s.valid(size) && s[size].kind == TokenKind::Number)
            length = s[size].source.toInt();
    }
    if (isTextType(type)) {
        const bool styled = !style.isEmpty() && style != u"0";
        const QString format = styled ? dateStyleFormat(style) : QString();
        if (styled && format.isEmpty())
            return std::nullopt;
        const QString function = styled ? QStringLiteral("strftime") : QStringLiteral("CAST");
        const QString afterOpen = styled ? u'\'' + format + QStringLiteral("', ") : QString();
        const QString close = styled ? QStringLiteral(")") : QStringLiteral(" AS TEXT)");
        if (unlimited)
            return Conversion{function, afterOpen, close};
        // T-SQL cuts a text conversion to its length (30 when none is given) and pads
        // fixed-length types with blanks.
        const int size = length > 0 ? length : 30;
        const QString pad = type == u"CHAR" || type == u"NCHAR"
                                ? QStringLiteral(" || '") + QString(size, u' ') + u'\''
                                : QString();
        return Conversion{QStringLiteral("SUBSTR(") + function, afterOpen,
                          close + pad + QStringLiteral(", 1, ") + QString::number(size) + u')'};
    }
    if (!style.isEmpty())
        return std::nullopt;
    if (type == u"DATE")
        return Conversion{QStringLiteral("strftime"), QStringLiteral("'%1', ").arg(isoDate),
                          QStringLiteral(")")};
    if (among(type, {u"DATETIME", u"SMALLDATETIME", u"DATETIME2"}))
        return Conversion{QStringLiteral("strftime"), QStringLiteral("'%1', ").arg(isoDateTime),
                          QStringLiteral(")")};
    if (isNumericType(type))
        return Conversion{QStringLiteral("CAST"),
                          {},
                          QStringLiteral(" AS ") + s.text(typeFirst, typeLast).trimmed() + u')'};
    return std::nullopt;
}
void apply(Statement& s, const Conversion& conversion, int name, int open, int close)
{
    s[name].out = conversion.head;
    s[open].after += conversion.afterOpen;
    s[close].out = conversion.tail;
}

// CAST(value AS type).
void rewriteCast(Statement& s, int name, int open)
{
    const int close = s.partner(open);
    const int as = s.lastAs(open);
    if (as < 0 || s.next(as) >= close)
        return;
    const std::optional<Conversion> conversion =
        conversionTo(s, s.next(as), s.previous(close, as), {});
    if (!conversion)
        return;
    s.eraseWithBlanks(as, close - 1);
    apply(s, *conversion, name, open, close);
}

// CONVERT(type, value[, style]).
void rewriteConvert(Statement& s, int name, int open, const QList<int>& commas)
{
    const int close = s.partner(open);
    const int value = s.next(commas[0]);
    const int style = commas.size() == 2 ? s.next(commas[1]) : close;
    QString styleCode;
    if (style < close) {
        if (s[style].kind != TokenKind::Number || s.next(style) != close)
            return;
        styleCode = s[style].source;
    }
    const int typeFirst = s.next(open);
    const std::optional<Conversion> conversion =
        conversionTo(s, typeFirst, s.previous(commas[0], open), styleCode);
    if (!conversion || value >= close)
        return;
    s.erase(open + 1, value - 1);
    if (commas.size() == 2)
        s.eraseWithBlanks(commas[1], close - 1);
    apply(s, *conversion, name, open, close);
}

void rewriteCall(Statement& s, int name, int open)
{
    Token& function = s[name];
    const int close = s.partner(open);
    const QList<int> commas = s.argumentCommas(open);
    const bool noArguments = s.next(open) == close;
    const QString& key = function.key;
    if (key == u"ISNULL") {
        function.out = QStringLiteral("IFNULL");
    } else if (key == u"SUBSTRING") {
        function.out = QStringLiteral("SUBSTR");
    } else if (key == u"LEN") {
        // LEN does not count trailing blanks.
        function.out = QStringLiteral("LENGTH(RTRIM");
        s[close].out = QStringLiteral("))");
    } else if (key == u"GETDATE" && noArguments) {
        function.out = QStringLiteral("strftime('%1', 'now', 'localtime')").arg(isoDateTime);
        s.erase(name + 1, close);
    } else if (key == u"SCOPE_IDENTITY" && noArguments) {
        function.out = QStringLiteral("last_insert_rowid");
    } else if ((key == u"LEFT" || key == u"RIGHT") && commas.size() == 1) {
        const int comma = commas.first();
        s.erase(comma + 1, s.next(comma) - 1);
        function.out = QStringLiteral("SUBSTR");
        if (key == u"LEFT") {
            s[comma].out = QStringLiteral(", 1, ");
        } else {
            s[comma].out = QStringLiteral(", -(");
            s[close].out = QStringLiteral("), ") + s.text(comma + 1, close - 1).trimmed() +
                           QStringLiteral(")");
        }
    } else if (key == u"CAST") {
        rewriteCast(s, name, open);
    } else if (key == u"CONVERT" && (commas.size() == 1 || commas.size() == 2)) {
        rewriteConvert(s, name, open, commas);
    }
}
} // namespace

void rewriteCalls(Statement& s, int begin, int end)
{
    for (int i = s.next(begin - 1, end); i < end; i = s.next(s.skipGroup(i), end)) {
        const int open = s.next(i, end);
        if (s[i].kind != TokenKind::Word || !s.isOpen(open) || s.isSym(s.previous(i, begin), u"."))
            continue;
        rewriteCall(s, i, open);
        i = open;
    }
}

} // namespace tarvello::db::tsql
