#include "platform/db/tsqltokens.h"

#include <algorithm>
#include <utility>

namespace tarvello::db::tsql {

namespace {

bool isWordStart(QChar c)
{
    return c.isLetter() || c == u'_' || c == u'#' || c == u'@';
}

bool isWordChar(QChar c)
{
    return c.isLetterOrNumber() || c == u'_' || c == u'#' || c == u'@' || c == u'$';
}

// Just past a run opened before `from` and closed by `close`, where a doubled `close` stands
// for itself ('' in literals, "" and ]] in names).
qsizetype quotedEnd(const QString& sql, qsizetype from, QChar close)
{
    for (qsizetype i = from; i < sql.size(); ++i) {
        if (sql[i] != close)
            continue;
        if (i + 1 < sql.size() && sql[i + 1] == close)
            ++i;
        else
            return i + 1;
    }
    return sql.size();
}

// T-SQL block comments nest.
qsizetype blockCommentEnd(const QString& sql, qsizetype from)
{
    int depth = 1;
    qsizetype i = from;
    while (i < sql.size() && depth > 0) {
        const QStringView pair = QStringView(sql).mid(i, 2);
        if (pair == u"/*") {
            ++depth;
            i += 2;
        } else if (pair == u"*/") {
            --depth;
            i += 2;
        } else {
            ++i;
        }
    }
    return i;
}

qsizetype numberEnd(const QString& sql, qsizetype from)
{
    qsizetype i = from;
    while (i < sql.size() && (sql[i].isDigit() || sql[i] == u'.'))
        ++i;
    if (i < sql.size() && (sql[i] == u'e' || sql[i] == u'E')) {
        qsizetype j = i + 1;
        if (j < sql.size() && (sql[j] == u'+' || sql[j] == u'-'))
            ++j;
        if (j < sql.size() && sql[j].isDigit()) {
            i = j;
            while (i < sql.size() && sql[i].isDigit())
                ++i;
        }
    }
    return i;
}

} // namespace

bool among(QStringView key, std::initializer_list<QStringView> words)
{
    return std::find(words.begin(), words.end(), key) != words.end();
}

bool isKeyword(QStringView key)
{
    static constexpr QStringView keywords[] = {
        u"ALL",     u"ALTER",    u"AND",      u"AS",     u"ASC",    u"BEGIN",     u"BETWEEN",
        u"BY",      u"CASE",     u"COLLATE",  u"CREATE", u"CROSS",  u"DECLARE",   u"DELETE",
        u"DESC",    u"DISTINCT", u"DROP",     u"ELSE",   u"END",    u"ESCAPE",    u"EXCEPT",
        u"EXEC",    u"EXECUTE",  u"EXISTS",   u"FROM",   u"FULL",   u"GO",        u"GROUP",
        u"HAVING",  u"IF",       u"IN",       u"INNER",  u"INSERT", u"INTERSECT", u"INTO",
        u"IS",      u"JOIN",     u"LEFT",     u"LIKE",   u"MERGE",  u"NOT",       u"NULL",
        u"ON",      u"OPTION",   u"OR",       u"ORDER",  u"OUTER",  u"OVER",      u"PARTITION",
        u"PERCENT", u"PRINT",    u"RIGHT",    u"SELECT", u"SET",    u"TABLE",     u"THEN",
        u"TIES",    u"TOP",      u"TRUNCATE", u"UNION",  u"UPDATE", u"VALUES",    u"WHEN",
        u"WHERE",   u"WITH"};
    return std::find(std::begin(keywords), std::end(keywords), key) != std::end(keywords);
}

bool isTextType(QStringView key)
{
    return among(key, {u"VARCHAR", u"NVARCHAR", u"CHAR", u"NCHAR", u"TEXT", u"NTEXT", u"SYSNAME"});
}

bool isNumericType(QStringView key)
{
    return among(key, {u"INT", u"INTEGER", u"BIGINT", u"SMALLINT", u"TINYINT", u"BIT", u"DECIMAL",
                       u"NUMERIC", u"MONEY", u"SMALLMONEY", u"FLOAT", u"REAL"});
}

QString undoubled(QString text, QChar quote)
{
    return text.replace(QString(2, quote), QString(quote));
}

Tokens tokenize(const QString& sql)
{
    Tokens tokens;
    const qsizetype size = sql.size();
    qsizetype i = 0;
    while (i < size) {
        const QChar c = sql[i];
        const QChar next = i + 1 < size ? sql[i + 1] : QChar();
        TokenKind kind = TokenKind::Symbol;
        qsizetype end = i + 1;
        if (c.isSpace()) {
            kind = TokenKind::Space;
            while (end < size && sql[end].isSpace())
                ++end;
        } else if (c == u'-' && next == u'-') {
            kind = TokenKind::Comment;
            end = sql.indexOf(u'\n', i);
            if (end < 0)
                end = size;
        } else if (c == u'/' && next == u'*') {
            kind = TokenKind::Comment;
            end = blockCommentEnd(sql, i + 2);
        } else if (c == u'\'') {
            kind = TokenKind::String;
            end = quotedEnd(sql, i + 1, u'\'');
        } else if ((c == u'N' || c == u'n') && next == u'\'') {
            kind = TokenKind::UnicodeString;
            end = quotedEnd(sql, i + 2, u'\'');
        } else if (c == u'"') {
            kind = TokenKind::QuotedName;
            end = quotedEnd(sql, i + 1, u'"');
        } else if (c == u'[') {
            kind = TokenKind::BracketName;
            end = quotedEnd(sql, i + 1, u']');
        } else if (c.isDigit() || (c == u'.' && next.isDigit())) {
            kind = TokenKind::Number;
            end = numberEnd(sql, i);
        } else if (isWordStart(c)) {
            kind = TokenKind::Word;
            while (end < size && isWordChar(sql[end]))
                ++end;
        } else if (among(QStringView(sql).mid(i, 2),
                         {u"<>", u"<=", u">=", u"!=", u"!<", u"!>", u"||"})) {
            end = i + 2;
        }
        Token token;
        token.kind = kind;
        token.source = sql.mid(i, end - i);
        if (kind == TokenKind::Word)
            token.key = token.source.toUpper();
        token.out = token.source;
        tokens.append(std::move(token));
        i = end;
    }
    return tokens;
}

bool isSignificant(const Token& token)
{
    return token.kind != TokenKind::Space && token.kind != TokenKind::Comment;
}

bool isSymbol(const Token& token, QStringView symbol)
{
    return token.kind == TokenKind::Symbol && token.source == symbol;
}

QList<int> matchParentheses(const Tokens& tokens)
{
    QList<int> partner(tokens.size(), -1);
    QList<int> open;
    for (int i = 0; i < tokens.size(); ++i) {
        if (isSymbol(tokens[i], u"(")) {
            open.append(i);
        } else if (isSymbol(tokens[i], u")") && !open.isEmpty()) {
            partner[i] = open.takeLast();
            partner[partner[i]] = i;
        }
    }
    return partner;
}

} // namespace tarvello::db::tsql
