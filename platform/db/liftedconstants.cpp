#include "platform/db/liftedconstants.h"

namespace tarvello::db {

namespace {

bool isWordChar(QChar c)
{
    return c.isLetterOrNumber() || c == u'_' || c == u'$';
}

// Where the quoted run opening at `from` ends (past its closing quote; a doubled quote is
// part of the text).
qsizetype quotedEnd(const QString& sql, qsizetype from, QChar close)
{
    qsizetype i = from + 1;
    while (i < sql.size()) {
        if (sql[i] == close) {
            if (i + 1 < sql.size() && sql[i + 1] == close && close != u']') {
                i += 2;
                continue;
            }
            return i + 1;
        }
        ++i;
    }
    return sql.size();
}

qsizetype commentEnd(const QString& sql, qsizetype from)
{
    if (sql[from + 1] == u'-') {
        const qsizetype end = sql.indexOf(u'\n', from);
        return end < 0 ? sql.size() : end;
    }
    const qsizetype end = sql.indexOf(QStringLiteral("*/"), from + 2);
    return end < 0 ? sql.size() : end + 2;
}

bool isComparison(QStringView op)
{
    return op == u"=" || op == u"==" || op == u"<>" || op == u"!=" || op == u"<" || op == u">" ||
           op == u"<=" || op == u">=";
}

} // namespace

std::optional<LiftedStatement> liftComparedConstants(const QString& sql)
{
    LiftedStatement lifted;
    lifted.sql.reserve(sql.size());
    int depth = 0;
    bool firstWord = true;
    bool afterFrom = false;
    bool afterComparison = false;
    qsizetype i = 0;
    while (i < sql.size()) {
        const QChar c = sql[i];
        const qsizetype start = i;
        if (c.isSpace()) {
            lifted.sql += c;
            ++i;
            continue;
        }
        if ((c == u'-' || c == u'/') && i + 1 < sql.size() &&
            sql[i + 1] == (c == u'-' ? u'-' : u'*')) {
            i = commentEnd(sql, i);
            lifted.sql += QStringView(sql).sliced(start, i - start);
            continue;
        }
        const bool liftable = afterComparison && afterFrom;
        afterComparison = false;
        if (c == u'\'') {
            i = quotedEnd(sql, i, c);
            const QStringView literal = QStringView(sql).sliced(start, i - start);
            if (liftable && literal.size() >= 2 && literal.endsWith(u'\'')) {
                lifted.sql += u'?';
                lifted.parameters << literal.sliced(1, literal.size() - 2)
                                         .toString()
                                         .replace(QStringLiteral("''"), QStringLiteral("'"));
            } else {
                lifted.sql += literal;
            }
            continue;
        }
        if (c == u'"' || c == u'`' || c == u'[') {
            i = quotedEnd(sql, i, c == u'[' ? u']' : c);
            lifted.sql += QStringView(sql).sliced(start, i - start);
            continue;
        }
        if (c.isDigit()) {
            while (i < sql.size() && (isWordChar(sql[i]) || sql[i] == u'.'))
                ++i;
            const QStringView number = QStringView(sql).sliced(start, i - start);
            bool whole = false;
            const qint64 value = number.toLongLong(&whole);
            if (liftable && whole) {
                lifted.sql += u'?';
                lifted.parameters << value;
            } else {
                lifted.sql += number;
            }
            continue;
        }
        if (c.isLetter() || c == u'_') {
            while (i < sql.size() && isWordChar(sql[i]))
                ++i;
            const QStringView word = QStringView(sql).sliced(start, i - start);
            if (firstWord && word.compare(u"SELECT", Qt::CaseInsensitive) != 0)
                return std::nullopt;
            firstWord = false;
            if (depth == 0 && word.compare(u"FROM", Qt::CaseInsensitive) == 0)
                afterFrom = true;
            lifted.sql += word;
            continue;
        }
        if (c == u'?' || c == u':' || c == u'@' || c == u'$' || firstWord)
            return std::nullopt;
        if (c == u'=' || c == u'<' || c == u'>' || c == u'!') {
            while (i < sql.size() &&
                   (sql[i] == u'=' || sql[i] == u'<' || sql[i] == u'>' || sql[i] == u'!'))
                ++i;
            const QStringView op = QStringView(sql).sliced(start, i - start);
            afterComparison = isComparison(op);
            lifted.sql += op;
            continue;
        }
        if (c == u'(')
            ++depth;
        else if (c == u')')
            --depth;
        lifted.sql += c;
        ++i;
    }
    if (lifted.parameters.isEmpty())
        return std::nullopt;
    return lifted;
}

} // namespace tarvello::db
