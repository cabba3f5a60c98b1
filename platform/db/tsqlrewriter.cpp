#include "platform/db/tsqlrewriter.h"

#include "platform/db/tsqlfunctions.h"

#include <QHash>
#include <QList>
#include <algorithm>
#include <initializer_list>
#include <optional>
#include <utility>

namespace tarvello::db {

namespace {

enum class TokenKind {
    Space,
    Comment,
    Word,
    String,
    UnicodeString,
    QuotedName,
    BracketName,
    Number,
    Symbol
};

// A piece of the T-SQL text. Rewriting never reshapes the list: it changes what a token is
// written as and what is written around it, so positions stay valid for every pass.
struct Token {
    TokenKind kind = TokenKind::Symbol;
    QString source;
    QString key; // upper-case source of a word
    QString out;
    QString before;
    QString after;
};

using Tokens = QList<Token>;

// Tokens [begin, end) of one statement of a batch.
struct Range {
    int begin = 0;
    int end = 0;
};

bool among(QStringView key, std::initializer_list<QStringView> words)
{
    return std::find(words.begin(), words.end(), key) != words.end();
}

// Words that are never a column, table or function name here, so they end an expression.
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

bool isStatementStart(QStringView key)
{
    return among(key,
                 {u"SELECT", u"INSERT", u"UPDATE", u"DELETE", u"DROP", u"CREATE", u"ALTER", u"SET",
                  u"IF", u"DECLARE", u"TRUNCATE", u"EXEC", u"EXECUTE", u"MERGE", u"PRINT"});
}

bool isTableHint(QStringView key)
{
    return among(key, {u"NOLOCK", u"READUNCOMMITTED", u"UPDLOCK", u"HOLDLOCK", u"ROWLOCK",
                       u"PAGLOCK", u"TABLOCK", u"TABLOCKX", u"READPAST", u"XLOCK", u"NOWAIT",
                       u"READCOMMITTED", u"READCOMMITTEDLOCK", u"REPEATABLEREAD", u"SERIALIZABLE",
                       u"NOEXPAND", u"FORCESEEK", u"FORCESCAN", u"INDEX"});
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

// A quoted run's text with each doubled quote back to one.
QString undoubled(QString text, QChar quote)
{
    return text.replace(QString(2, quote), QString(quote));
}

QString quotedName(QString name)
{
    name.replace(u'"', QStringLiteral("\"\""));
    return u'"' + name + u'"';
}

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

// The index of the parenthesis that closes or opens each parenthesis, -1 elsewhere and for
// parentheses without a partner.
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

bool containsNewline(const Token& token)
{
    return token.kind == TokenKind::Space && token.source.contains(u'\n');
}

// "GO" alone on its line separates batches.
bool isBatchSeparator(const Tokens& tokens, int i)
{
    return tokens[i].key == u"GO" && (i == 0 || containsNewline(tokens[i - 1])) &&
           (i + 1 == tokens.size() || containsNewline(tokens[i + 1]));
}

// Splits a batch into statements: at ';' and GO, and where a statement keyword starts a new
// statement after a complete one (T-SQL needs no separator between them).
class BatchSplitter {
public:
    BatchSplitter(const Tokens& tokens, const QList<int>& partner)
        : m_tokens(tokens)
        , m_partner(partner)
    {}

    QList<Range> split()
    {
        for (int i = 0; i < m_tokens.size(); ++i) {
            const Token& token = m_tokens[i];
            if (!isSignificant(token))
                continue;
            if (m_blockDepth > 0)
                trackBlock(token.key);
            else if (m_trigger)
                m_blockDepth = token.key == u"BEGIN" ? 1 : 0;
            else if (isSymbol(token, u";") || isBatchSeparator(m_tokens, i))
                close(i, i + 1);
            else if (token.kind == TokenKind::Word)
                word(token.key, i);
            if (isSymbol(token, u"(") && m_partner[i] > i)
                i = m_partner[i];
            m_previous = isSymbol(token, u"(") ? QStringLiteral(")") : token.key;
        }
        close(int(m_tokens.size()), int(m_tokens.size()));
        return m_ranges;
    }

private:
    void close(int end, int nextBegin)
    {
        m_ranges.append({m_begin, end});
        m_begin = nextBegin;
        m_started = false;
        m_awaitingBody = false;
        m_inIf = false;
        m_trigger = false;
    }

    void enter(const QString& key)
    {
        m_lead = key;
        m_sawMain = false;
        m_inIf = m_inIf || key == u"IF";
        m_awaitingBody = key == u"IF";
    }

    void word(const QString& key, int i)
    {
        if (!m_started) {
            m_started = true;
            enter(key);
        } else if (m_lead == u"CREATE" && key == u"TRIGGER") {
            // A trigger's event and body name statements that belong to the CREATE.
            m_trigger = true;
        } else if (m_awaitingBody) {
            if (key == u"BEGIN") {
                m_blockDepth = 1;
                m_awaitingBody = false;
            } else if (isStatementStart(key)) {
                enter(key);
            }
        } else if (m_inIf && key == u"ELSE") {
            m_awaitingBody = true;
        } else if (isStatementStart(key) && !continues(key)) {
            close(i, i);
            m_started = true;
            enter(key);
        } else if (key == u"VALUES" && m_lead == u"INSERT") {
            m_sawMain = true;
        }
    }

    // Whether a statement keyword still belongs to the running statement.
    bool continues(const QString& key)
    {
        if (among(m_previous, {u"UNION", u"ALL", u"EXCEPT", u"INTERSECT", u"AS", u"ON"}))
            return true;
        if (m_lead == u"WITH" && among(key, {u"SELECT", u"INSERT", u"UPDATE", u"DELETE"})) {
            enter(key);
            return true;
        }
        const bool completes =
            (m_lead == u"INSERT" && key == u"SELECT") || (m_lead == u"UPDATE" && key == u"SET");
        if (completes && !m_sawMain) {
            m_sawMain = true;
            return true;
        }
        return false;
    }

    void trackBlock(const QString& key)
    {
        if (key == u"BEGIN" || key == u"CASE")
            ++m_blockDepth;
        else if (key == u"END" && --m_blockDepth == 0) {
            m_lead = key;
            m_trigger = false;
        }
    }

    const Tokens& m_tokens;
    const QList<int>& m_partner;
    QList<Range> m_ranges;
    int m_begin = 0;
    bool m_started = false;
    QString m_lead;
    QString m_previous;
    bool m_sawMain = false;
    bool m_inIf = false;
    bool m_awaitingBody = false;
    bool m_trigger = false;
    int m_blockDepth = 0;
};

enum class Type { Unknown, Text, Numeric };

// One operand of '+': a primary (literal, name, call, parenthesis, CASE) possibly with
// unary signs and '*', '/', '%' around it.
struct Term {
    int first = -1;
    int last = -1;
    bool compound = false;
    int primary = -1;

    bool isValid() const { return first >= 0; }
};

struct Chain {
    QList<Term> terms;
    QList<int> operators; // the '+' or '-' between terms[k] and terms[k + 1]
};

// How CAST/CONVERT to a type is written: head replaces the function name, afterOpen follows
// its '(' and tail replaces its ')'; the value converted stays in between.
struct Conversion {
    QString head;
    QString afterOpen;
    QString tail;
};

class StatementRewriter {
public:
    StatementRewriter(Tokens& tokens, const QList<int>& partner, Range range,
                      const TsqlRewriter::TextColumnLookup& isTextColumn,
                      TsqlRewriter::UndecidedPlus undecidedPlus)
        : m_t(tokens)
        , m_partner(partner)
        , m_begin(range.begin)
        , m_end(range.end)
        , m_isTextColumn(isTextColumn)
        , m_undecidedPlus(undecidedPlus)
    {
        matchCases();
    }

    QString rewrite()
    {
        const int first = next(m_begin - 1);
        if (first >= m_end)
            return {};
        if (isWord(first, u"SET") && isWord(next(first), u"NOCOUNT"))
            return {};
        rewriteTokens();
        if (const std::optional<QString> drop = dropIfExists(first))
            return *drop;
        rewriteLevel(m_begin, m_end);
        rewriteSelectInto(first);
        rewriteDelete(first);
        const int created = next(next(first));
        if (isWord(first, u"CREATE") && isWord(next(first), u"TABLE") && valid(created) &&
            m_t[created].source.startsWith(u'#')) {
            m_t[first].out = QStringLiteral("CREATE TEMP");
        }
        return text(m_begin, m_end - 1).trimmed();
    }

private:
    // Navigation over significant tokens; `end` is returned when there is no more.
    int next(int i, int end = -1) const
    {
        const int limit = end < 0 ? m_end : end;
        for (int k = i + 1; k < limit; ++k) {
            if (isSignificant(m_t[k]))
                return k;
        }
        return limit;
    }

    int previous(int i, int begin) const
    {
        for (int k = i - 1; k >= begin; --k) {
            if (isSignificant(m_t[k]))
                return k;
        }
        return -1;
    }

    bool valid(int i) const { return i >= m_begin && i < m_end; }
    bool isWord(int i, QStringView key) const { return valid(i) && m_t[i].key == key; }
    bool isSym(int i, QStringView symbol) const { return valid(i) && isSymbol(m_t[i], symbol); }
    bool isOpen(int i) const { return isSym(i, u"(") && m_partner[i] > i && m_partner[i] < m_end; }
    bool isName(int i) const
    {
        if (!valid(i))
            return false;
        const Token& token = m_t[i];
        return (token.kind == TokenKind::Word && !isKeyword(token.key)) ||
               token.kind == TokenKind::QuotedName || token.kind == TokenKind::BracketName;
    }

    // The last token of a parenthesised group starting at i (i itself otherwise).
    int skipGroup(int i) const { return isOpen(i) ? m_partner[i] : i; }
    // The same, also taking CASE ... END as one unit.
    int skipUnit(int i) const { return m_caseEnd.value(i, skipGroup(i)); }

    // The last token of a dotted name starting at i.
    int nameLast(int i) const
    {
        int last = i;
        while (isSym(next(last), u".") &&
               (isName(next(next(last))) || isSym(next(next(last)), u"*")))
            last = next(next(last));
        return last;
    }

    QString bareName(int i) const
    {
        const Token& token = m_t[i];
        if (token.kind == TokenKind::QuotedName)
            return undoubled(token.source.mid(1, token.source.size() - 2), u'"');
        if (token.kind == TokenKind::BracketName)
            return undoubled(token.source.mid(1, token.source.size() - 2), u']');
        return token.source;
    }

    QString text(int from, int to) const
    {
        QString result;
        for (int k = from; k <= to; ++k)
            result += m_t[k].before + m_t[k].out + m_t[k].after;
        return result;
    }

    void erase(int from, int to)
    {
        for (int k = from; k <= to; ++k)
            m_t[k].out.clear();
    }

    // Erases [from, to] with the blanks in front, so no double blank is left behind.
    void eraseWithBlanks(int from, int to)
    {
        int start = from;
        while (start > m_begin && !isSignificant(m_t[start - 1]))
            --start;
        erase(start, to);
    }

    void matchCases()
    {
        QList<int> open;
        for (int i = m_begin; i < m_end; ++i) {
            if (m_t[i].key == u"CASE")
                open.append(i);
            else if (m_t[i].key == u"END" && !open.isEmpty())
                m_caseEnd.insert(open.takeLast(), i);
        }
    }

    // Rewrites that concern one token alone: literals, quoted names, temporary tables,
    // schema prefixes, comments.
    void rewriteTokens()
    {
        for (int i = m_begin; i < m_end; ++i) {
            Token& token = m_t[i];
            switch (token.kind) {
            case TokenKind::Comment:
                token.out = QStringLiteral(" ");
                break;
            case TokenKind::UnicodeString:
                token.out = token.source.mid(1);
                break;
            case TokenKind::BracketName:
                token.out = quotedName(bareName(i));
                break;
            case TokenKind::Word:
                if (token.source.startsWith(u'#'))
                    token.out = quotedName(token.source);
                else if (token.key == u"@@IDENTITY")
                    token.out = QStringLiteral("last_insert_rowid()");
                break;
            default:
                break;
            }
            const bool schemaName = (token.key == u"DBO" || bareName(i).toUpper() == u"DBO") &&
                                    i + 1 < m_end && isSymbol(m_t[i + 1], u".");
            if (schemaName)
                erase(i, i + 1);
            if (token.key == u"TEMPDB" && i + 2 < m_end && isSymbol(m_t[i + 1], u".") &&
                isSymbol(m_t[i + 2], u"."))
                erase(i, i + 2);
        }
    }

    // "IF OBJECT_ID('tempdb..#T'[, 'U']) IS NOT NULL [BEGIN] DROP TABLE #T [;] [END]".
    std::optional<QString> dropIfExists(int first) const
    {
        if (!isWord(first, u"IF") || !isWord(next(first), u"OBJECT_ID"))
            return std::nullopt;
        const int open = next(next(first));
        if (!isOpen(open))
            return std::nullopt;
        const int nameLiteral = next(open);
        if (!valid(nameLiteral) || (m_t[nameLiteral].kind != TokenKind::String &&
                                    m_t[nameLiteral].kind != TokenKind::UnicodeString))
            return std::nullopt;
        int i = next(m_partner[open]);
        for (QStringView key : {u"IS", u"NOT", u"NULL"}) {
            if (!isWord(i, key))
                return std::nullopt;
            i = next(i);
        }
        const bool block = isWord(i, u"BEGIN");
        if (block)
            i = next(i);
        if (!isWord(i, u"DROP") || !isWord(next(i), u"TABLE"))
            return std::nullopt;
        const int name = next(next(i));
        if (!isName(name))
            return std::nullopt;
        const int last = nameLast(name);
        i = next(last);
        if (block) {
            if (isSym(i, u";"))
                i = next(i);
            if (!isWord(i, u"END"))
                return std::nullopt;
            i = next(i);
        }
        if (i < m_end)
            return std::nullopt;

        const QString literal = m_t[nameLiteral].source;
        QString object = literal.mid(literal.indexOf(u'\'') + 1);
        object.chop(1);
        object = undoubled(object, u'\'').section(u'.', -1);
        if (object.startsWith(u'[') && object.endsWith(u']'))
            object = object.mid(1, object.size() - 2);
        const QString table = bareName(last);
        if (object.compare(table, Qt::CaseInsensitive) != 0)
            return std::nullopt;
        const QString target = table.startsWith(u'#') ? QStringLiteral("temp.") + quotedName(table)
                                                      : text(name, last).trimmed();
        return QStringLiteral("DROP TABLE IF EXISTS ") + target;
    }

    // Rewrites inside parentheses first, so a call's arguments are final when the call
    // itself is rewritten.
    void rewriteLevel(int begin, int end)
    {
        for (int i = next(begin - 1, end); i < end; i = next(skipGroup(i), end)) {
            if (isOpen(i) && m_partner[i] < end)
                rewriteLevel(i + 1, m_partner[i]);
        }
        removeHints(begin, end);
        rewriteCalls(begin, end);
        concatenate(begin, end);
        rewriteTop(begin, end);
    }

    bool isHintGroup(int open) const
    {
        const int close = m_partner[open];
        bool any = false;
        for (int i = next(open, close); i < close; i = next(skipGroup(i), close)) {
            const bool indexArgument = isOpen(i) && isWord(previous(i, open), u"INDEX");
            if (!indexArgument && !isSym(i, u",") && !isTableHint(m_t[i].key))
                return false;
            any = true;
        }
        return any;
    }

    // "WITH (NOLOCK)" after a table, and the old form "table (NOLOCK)".
    void removeHints(int begin, int end)
    {
        for (int i = next(begin - 1, end); i < end; i = next(skipGroup(i), end)) {
            const int open = next(i, end);
            if (isWord(i, u"WITH") && isOpen(open) && isHintGroup(open)) {
                eraseWithBlanks(i, m_partner[open]);
                i = open;
            } else if (isOpen(i) && isHintGroup(i) && isName(previous(i, begin))) {
                eraseWithBlanks(i, m_partner[i]);
            }
        }
    }

    // Top-level commas of a call's arguments.
    QList<int> argumentCommas(int open) const
    {
        QList<int> commas;
        const int close = m_partner[open];
        for (int i = next(open, close); i < close; i = next(skipGroup(i), close)) {
            if (isSym(i, u","))
                commas.append(i);
        }
        return commas;
    }

    void rewriteCalls(int begin, int end)
    {
        for (int i = next(begin - 1, end); i < end; i = next(skipGroup(i), end)) {
            const int open = next(i, end);
            if (m_t[i].kind != TokenKind::Word || !isOpen(open) || isSym(previous(i, begin), u"."))
                continue;
            rewriteCall(i, open);
            i = open;
        }
    }

    void rewriteCall(int name, int open)
    {
        Token& function = m_t[name];
        const int close = m_partner[open];
        const QList<int> commas = argumentCommas(open);
        const bool noArguments = next(open) == close;
        const QString& key = function.key;
        if (key == u"ISNULL") {
            function.out = QStringLiteral("IFNULL");
        } else if (key == u"SUBSTRING") {
            function.out = QStringLiteral("SUBSTR");
        } else if (key == u"LEN") {
            // LEN does not count trailing blanks.
            function.out = QStringLiteral("LENGTH(RTRIM");
            m_t[close].out = QStringLiteral("))");
        } else if (key == u"GETDATE" && noArguments) {
            function.out = QStringLiteral("strftime('%1', 'now', 'localtime')").arg(isoDateTime);
            erase(name + 1, close);
        } else if (key == u"SCOPE_IDENTITY" && noArguments) {
            function.out = QStringLiteral("last_insert_rowid");
        } else if ((key == u"LEFT" || key == u"RIGHT") && commas.size() == 1) {
            const int comma = commas.first();
            erase(comma + 1, next(comma) - 1);
            function.out = QStringLiteral("SUBSTR");
            if (key == u"LEFT") {
                m_t[comma].out = QStringLiteral(", 1, ");
            } else {
                m_t[comma].out = QStringLiteral(", -(");
                m_t[close].out = QStringLiteral("), ") + text(comma + 1, close - 1).trimmed() +
                                 QStringLiteral(")");
            }
        } else if (key == u"CAST") {
            rewriteCast(name, open);
        } else if (key == u"CONVERT" && (commas.size() == 1 || commas.size() == 2)) {
            rewriteConvert(name, open, commas);
        }
    }

    int lastAs(int open) const
    {
        int as = -1;
        const int close = m_partner[open];
        for (int i = next(open, close); i < close; i = next(skipUnit(i), close)) {
            if (isWord(i, u"AS"))
                as = i;
        }
        return as;
    }

    // CAST(value AS type).
    void rewriteCast(int name, int open)
    {
        const int close = m_partner[open];
        const int as = lastAs(open);
        if (as < 0 || next(as) >= close)
            return;
        const std::optional<Conversion> conversion =
            conversionTo(next(as), previous(close, as), {});
        if (!conversion)
            return;
        eraseWithBlanks(as, close - 1);
        apply(*conversion, name, open, close);
    }

    // CONVERT(type, value[, style]).
    void rewriteConvert(int name, int open, const QList<int>& commas)
    {
        const int close = m_partner[open];
        const int value = next(commas[0]);
        const int style = commas.size() == 2 ? next(commas[1]) : close;
        QString styleCode;
        if (style < close) {
            if (m_t[style].kind != TokenKind::Number || next(style) != close)
                return;
            styleCode = m_t[style].source;
        }
        const int typeFirst = next(open);
        const std::optional<Conversion> conversion =
            conversionTo(typeFirst, previous(commas[0], open), styleCode);
        if (!conversion || value >= close)
            return;
        erase(open + 1, value - 1);
        if (commas.size() == 2)
            eraseWithBlanks(commas[1], close - 1);
        apply(*conversion, name, open, close);
    }

    void apply(const Conversion& conversion, int name, int open, int close)
    {
        m_t[name].out = conversion.head;
        m_t[open].after += conversion.afterOpen;
        m_t[close].out = conversion.tail;
    }

    std::optional<Conversion> conversionTo(int typeFirst, int typeLast, const QString& style) const
    {
        const QString& type = m_t[typeFirst].key;
        int length = -1;
        bool unlimited = type == u"TEXT" || type == u"NTEXT";
        if (isOpen(next(typeFirst))) {
            const int size = next(next(typeFirst));
            if (isWord(size, u"MAX"))
                unlimited = true;
            else if (valid(size) && m_t[size].kind == TokenKind::Number)
                length = m_t[size].source.toInt();
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
                              QStringLiteral(" AS ") + text(typeFirst, typeLast).trimmed() + u')'};
        return std::nullopt;
    }

    // "SELECT [DISTINCT] TOP n ..." and "TOP (n)" become "... LIMIT n" at the end of that
    // SELECT (before a closing parenthesis of a subquery; a first member of a UNION is
    // wrapped, since SQLite takes LIMIT only at the end of a compound).
    void rewriteTop(int begin, int end)
    {
        for (int select = next(begin - 1, end); select < end;
             select = next(skipGroup(select), end)) {
            if (!isWord(select, u"SELECT"))
                continue;
            int top = next(select, end);
            if (isWord(top, u"DISTINCT") || isWord(top, u"ALL"))
                top = next(top, end);
            if (!isWord(top, u"TOP"))
                continue;
            const int count = next(top, end);
            const int countLast = skipGroup(count);
            if (count >= end || isWord(next(countLast, end), u"PERCENT") ||
                isWord(next(countLast, end), u"WITH"))
                continue;
            const QString limit = count == countLast ? text(count, count).trimmed()
                                                     : text(count + 1, countLast - 1).trimmed();
            int scopeEnd = next(countLast, end);
            while (scopeEnd < end && !among(m_t[scopeEnd].key, {u"UNION", u"EXCEPT", u"INTERSECT"}))
                scopeEnd = next(skipGroup(scopeEnd), end);
            eraseWithBlanks(top, countLast);
            const int last = previous(scopeEnd, select);
            if (scopeEnd < end) {
                m_t[select].before += QStringLiteral("SELECT * FROM (");
                m_t[last].after += QStringLiteral(" LIMIT ") + limit + u')';
            } else {
                m_t[last].after += QStringLiteral(" LIMIT ") + limit;
            }
        }
    }

    // '+' becomes '||' where it joins texts: T-SQL concatenates when both sides are texts,
    // and adds when either side is a number, as SQLite's '+' does.
    void concatenate(int begin, int end)
    {
        for (int i = next(begin - 1, end); i < end; i = next(skipUnit(i), end)) {
            if (m_caseEnd.contains(i))
                concatenate(i + 1, m_caseEnd.value(i));
        }
        int i = next(begin - 1, end);
        while (i < end) {
            const Chain chain = parseChain(i, end);
            if (chain.terms.isEmpty()) {
                i = next(skipUnit(i), end);
                continue;
            }
            QList<Join> joins;
            chainType(chain, &joins);
            for (const Join& join : joins) {
                Token& start = m_t[chain.terms[0].first];
                if (join.atRunTime) {
                    const int op = chain.operators[join.position];
                    if (op > 0 && m_t[op - 1].kind == TokenKind::Space)
                        m_t[op - 1].out.clear();
                    m_t[op].out = QStringLiteral(",");
                    start.before.prepend(QString::fromLatin1(tsqlAddFunction) + u'(');
                    m_t[chain.terms[join.position + 1].last].after.append(u')');
                    continue;
                }
                m_t[chain.operators[join.position]].out = QStringLiteral("||");
                if (join.wrapStart) {
                    start.before.prepend(u'(');
                    m_t[chain.terms[join.position].last].after.append(u')');
                }
            }
            i = next(chain.terms.last().last, end);
        }
    }

    static bool joinsTexts(Type left, Type right)
    {
        return (left == Type::Text && right != Type::Numeric) ||
               (right == Type::Text && left != Type::Numeric);
    }

    // A '+' of a chain that joins texts. SQLite's '||' binds tighter than '+', so when the
    // chain starts with arithmetic, that start is put in parentheses up to the join. A '+'
    // whose operands may or may not both be texts is decided at run time: the chain up to its
    // right operand becomes the arguments of tsql_add.
    struct Join {
        qsizetype position = 0;
        bool wrapStart = false;
        bool atRunTime = false;
    };

    // The type of a chain, evaluated left to right as T-SQL does; `joins` receives the '+'
    // that join texts.
    Type chainType(const Chain& chain, QList<Join>* joins = nullptr) const
    {
        Type running = termType(chain.terms[0]);
        bool arithmeticBefore = false;
        for (qsizetype k = 0; k < chain.operators.size(); ++k) {
            const Type right = termType(chain.terms[k + 1]);
            const bool plus = isSym(chain.operators[k], u"+");
            if (plus && joinsTexts(running, right)) {
                if (joins)
                    joins->append({k, arithmeticBefore, false});
                arithmeticBefore = false;
                running = Type::Text;
            } else if (plus && running == Type::Unknown && right == Type::Unknown &&
                       m_undecidedPlus == TsqlRewriter::UndecidedPlus::CallTsqlAdd) {
                if (joins)
                    joins->append({k, false, true});
                arithmeticBefore = false;
            } else {
                arithmeticBefore = true;
                running = plus && running != Type::Numeric && right != Type::Numeric
                              ? Type::Unknown
                              : Type::Numeric;
            }
        }
        return running;
    }

    Chain parseChain(int i, int end) const
    {
        Chain chain;
        Term term = parseTerm(i, end);
        while (term.isValid()) {
            chain.terms.append(term);
            const int op = next(term.last, end);
            if (!isSym(op, u"+") && !isSym(op, u"-"))
                break;
            term = parseTerm(next(op, end), end);
            if (term.isValid())
                chain.operators.append(op);
        }
        return chain;
    }

    bool isSign(int i) const { return isSym(i, u"-") || isSym(i, u"+") || isSym(i, u"~"); }

    Term parseTerm(int i, int end) const
    {
        Term term;
        int k = i;
        while (k < end && isSign(k)) {
            term.compound = true;
            k = next(k, end);
        }
        int last = parsePrimary(k, end);
        if (last < 0)
            return {};
        term.first = i;
        term.primary = k;
        for (;;) {
            const int op = next(last, end);
            if (!isSym(op, u"*") && !isSym(op, u"/") && !isSym(op, u"%"))
                break;
            int operand = next(op, end);
            while (operand < end && isSign(operand))
                operand = next(operand, end);
            const int operandLast = parsePrimary(operand, end);
            if (operandLast < 0)
                break;
            term.compound = true;
            last = operandLast;
        }
        term.last = last;
        return term;
    }

    // The last token of the primary expression at i, or -1 when none starts there.
    int parsePrimary(int i, int end) const
    {
        if (i >= end)
            return -1;
        const Token& token = m_t[i];
        switch (token.kind) {
        case TokenKind::String:
        case TokenKind::UnicodeString:
        case TokenKind::Number:
            return i;
        case TokenKind::Symbol:
            if (isSym(i, u"?"))
                return i;
            return isOpen(i) && m_partner[i] < end ? m_partner[i] : -1;
        case TokenKind::Word:
            if (token.key == u"NULL" || token.source.startsWith(u'@'))
                return i;
            if (token.key == u"CASE")
                return m_caseEnd.contains(i) && m_caseEnd.value(i) < end ? m_caseEnd.value(i) : -1;
            if (isKeyword(token.key) && !isCallName(i))
                return -1;
            break;
        case TokenKind::QuotedName:
        case TokenKind::BracketName:
            break;
        default:
            return -1;
        }
        int last = nameLast(i);
        if (isCallName(last)) {
            last = m_partner[next(last)];
            if (isWord(next(last), u"OVER") && isOpen(next(next(last))))
                last = m_partner[next(next(last))];
        }
        return last < end ? last : -1;
    }

    bool isCallName(int i) const
    {
        return m_t[i].kind == TokenKind::Word &&
               (!isKeyword(m_t[i].key) || among(m_t[i].key, {u"LEFT", u"RIGHT"})) &&
               isOpen(next(i));
    }

    Type termType(const Term& term) const
    {
        return term.compound ? Type::Numeric : primaryType(term.primary);
    }

    Type primaryType(int i) const
    {
        const Token& token = m_t[i];
        if (token.kind == TokenKind::String || token.kind == TokenKind::UnicodeString)
            return Type::Text;
        if (token.kind == TokenKind::Number)
            return Type::Numeric;
        if (isOpen(i))
            return rangeType(i + 1, m_partner[i]);
        if (token.key == u"CASE")
            return caseType(i);
        const int last = nameLast(i);
        if (isCallName(last))
            return callType(m_t[last].key, next(last));
        const bool column = token.kind != TokenKind::Word ||
                            (!isKeyword(token.key) && !token.source.startsWith(u'@'));
        return column && m_isTextColumn && m_isTextColumn(bareName(last)) ? Type::Text
                                                                          : Type::Unknown;
    }

    // The type of [begin, end) when it is one expression.
    Type rangeType(int begin, int end) const
    {
        const Chain chain = parseChain(next(begin - 1, end), end);
        if (chain.terms.isEmpty() || next(chain.terms.last().last, end) < end)
            return Type::Unknown;
        return chainType(chain);
    }

    Type caseType(int caseIndex) const
    {
        const int end = m_caseEnd.value(caseIndex);
        Type type = Type::Unknown;
        for (int i = next(caseIndex, end); i < end; i = next(skipUnit(i), end)) {
            if (!isWord(i, u"THEN") && !isWord(i, u"ELSE"))
                continue;
            const Chain chain = parseChain(next(i, end), end);
            if (!chain.terms.isEmpty() && chainType(chain) == Type::Text)
                type = Type::Text;
        }
        return type;
    }

    Type callType(const QString& function, int open) const
    {
        if (among(function,
                  {u"RTRIM", u"LTRIM",  u"TRIM",    u"UPPER",     u"LOWER", u"SUBSTRING", u"SUBSTR",
                   u"LEFT",  u"RIGHT",  u"REPLACE", u"REPLICATE", u"SPACE", u"STR",       u"CHAR",
                   u"NCHAR", u"CONCAT", u"FORMAT",  u"QUOTENAME", u"STUFF", u"REVERSE"}))
            return Type::Text;
        if (among(function, {u"COUNT", u"SUM", u"AVG", u"LEN", u"LENGTH", u"ABS", u"ROUND",
                             u"FLOOR", u"CEILING", u"ROW_NUMBER", u"CHARINDEX", u"DATEDIFF",
                             u"YEAR", u"MONTH", u"DAY"}))
            return Type::Numeric;
        const int close = m_partner[open];
        if (function == u"CAST") {
            const int as = lastAs(open);
            return as < 0 ? Type::Unknown : typeNameType(next(as));
        }
        if (function == u"CONVERT")
            return typeNameType(next(open));
        if (among(function, {u"ISNULL", u"IFNULL", u"COALESCE", u"NULLIF", u"MIN", u"MAX"})) {
            int argument = open + 1;
            QList<int> bounds = argumentCommas(open);
            bounds.append(close);
            for (const int bound : bounds) {
                if (rangeType(argument, bound) == Type::Text)
                    return Type::Text;
                argument = bound + 1;
            }
        }
        return Type::Unknown;
    }

    Type typeNameType(int i) const
    {
        if (!valid(i))
            return Type::Unknown;
        if (isTextType(m_t[i].key))
            return Type::Text;
        return isNumericType(m_t[i].key) ? Type::Numeric : Type::Unknown;
    }

    // "SELECT cols INTO #T FROM ..." becomes "CREATE TEMP TABLE "#T" AS SELECT cols FROM ...".
    void rewriteSelectInto(int select)
    {
        if (!isWord(select, u"SELECT"))
            return;
        for (int i = next(select); i < m_end && !isWord(i, u"FROM"); i = next(skipGroup(i))) {
            if (!isWord(i, u"INTO"))
                continue;
            const int target = next(i);
            if (!valid(target))
                return;
            const int last = nameLast(target);
            const QString table = text(target, last).trimmed();
            const bool temporary = m_t[target].source.startsWith(u'#');
            m_t[select].before.prepend((temporary ? QStringLiteral("CREATE TEMP TABLE ")
                                                  : QStringLiteral("CREATE TABLE ")) +
                                       table + QStringLiteral(" AS "));
            eraseWithBlanks(i, last);
            return;
        }
    }

    struct TableReference {
        int name = -1;
        int nameLast = -1;
        int alias = -1;
    };

    // The tables of the FROM clause starting at `from`.
    QList<TableReference> tableReferences(int from) const
    {
        QList<TableReference> references;
        bool expectTable = true;
        for (int i = next(from); i < m_end; i = next(skipGroup(i))) {
            if (among(m_t[i].key, {u"WHERE", u"GROUP", u"ORDER", u"HAVING", u"OPTION", u"UNION"}))
                break;
            if (isWord(i, u"JOIN") || isSym(i, u",")) {
                expectTable = true;
            } else if (expectTable && isName(i)) {
                TableReference reference{i, nameLast(i), -1};
                int alias = next(reference.nameLast);
                if (isWord(alias, u"AS"))
                    alias = next(alias);
                if (isName(alias))
                    reference.alias = alias;
                references.append(reference);
                expectTable = false;
                i = reference.alias >= 0 ? reference.alias : reference.nameLast;
            }
        }
        return references;
    }

    // "DELETE t FROM a INNER JOIN t ON ... WHERE ..." (also "DELETE FROM t FROM ...") becomes
    // "DELETE FROM t WHERE rowid IN (SELECT t.rowid FROM a INNER JOIN t ON ... WHERE ...)";
    // "DELETE t WHERE ..." gets its FROM.
    void rewriteDelete(int first)
    {
        if (!isWord(first, u"DELETE"))
            return;
        int target = next(first);
        const bool hasFrom = isWord(target, u"FROM");
        if (hasFrom)
            target = next(target);
        if (!isName(target))
            return;
        const int targetLast = nameLast(target);
        const int from = next(targetLast);
        if (!isWord(from, u"FROM")) {
            if (!hasFrom)
                m_t[first].out = QStringLiteral("DELETE FROM");
            return;
        }
        const QString wanted = bareName(targetLast);
        QString table = text(target, targetLast).trimmed();
        QString reference = table;
        for (const TableReference& candidate : tableReferences(from)) {
            const bool byAlias =
                candidate.alias >= 0 &&
                bareName(candidate.alias).compare(wanted, Qt::CaseInsensitive) == 0;
            const bool byName =
                bareName(candidate.nameLast).compare(wanted, Qt::CaseInsensitive) == 0;
            if (byAlias || byName) {
                table = text(candidate.name, candidate.nameLast).trimmed();
                reference =
                    candidate.alias >= 0 ? text(candidate.alias, candidate.alias).trimmed() : table;
                break;
            }
        }
        m_t[first].out = QStringLiteral("DELETE FROM ") + table +
                         QStringLiteral(" WHERE rowid IN (SELECT ") + reference +
                         QStringLiteral(".rowid");
        erase(first + 1, targetLast);
        m_t[previous(m_end, from)].after += u')';
    }

    Tokens& m_t;
    const QList<int>& m_partner;
    const int m_begin;
    const int m_end;
    const TsqlRewriter::TextColumnLookup& m_isTextColumn;
    const TsqlRewriter::UndecidedPlus m_undecidedPlus;
    QHash<int, int> m_caseEnd;
};

} // namespace

TsqlRewriter::TsqlRewriter(TextColumnLookup isTextColumn, UndecidedPlus undecidedPlus)
    : m_isTextColumn(std::move(isTextColumn))
    , m_undecidedPlus(undecidedPlus)
{}

QStringList TsqlRewriter::rewrite(const QString& tsql) const
{
    Tokens tokens = tokenize(tsql);
    const QList<int> partner = matchParentheses(tokens);
    QStringList statements;
    for (const Range& range : BatchSplitter(tokens, partner).split()) {
        QString statement =
            StatementRewriter(tokens, partner, range, m_isTextColumn, m_undecidedPlus).rewrite();
        if (!statement.isEmpty())
            statements.append(std::move(statement));
    }
    return statements;
}

} // namespace tarvello::db
