#include "platform/db/tsqlrewriter.h"

#include "platform/db/identifier.h"
#include "platform/db/tsqlbatch.h"
#include "platform/db/tsqlpasses.h"
#include "platform/db/tsqltokens.h"

#include <utility>

namespace tarvello::db {

namespace {

using namespace tsql;

// Rewrites that concern one token alone: literals, quoted names, temporary tables,
// schema prefixes, comments.
void rewriteTokens(Statement& s)
{
    for (int i = s.begin(); i < s.end(); ++i) {
        Token& token = s[i];
        switch (token.kind) {
        case TokenKind::Comment:
            token.out = QStringLiteral(" ");
            break;
        case TokenKind::UnicodeString:
            token.out = token.source.mid(1);
            break;
        case TokenKind::BracketName:
            token.out = quoteIdentifier(s.bareName(i));
            break;
        case TokenKind::Word:
            if (token.source.startsWith(u'#'))
                token.out = quoteIdentifier(token.source);
            else if (token.key == u"@@IDENTITY")
                token.out = QStringLiteral("last_insert_rowid()");
            break;
        default:
            break;
        }
        const bool schemaName = (token.key == u"DBO" || s.bareName(i).toUpper() == u"DBO") &&
                                i + 1 < s.end() && isSymbol(s[i + 1], u".");
        if (schemaName)
            s.erase(i, i + 1);
        if (token.key == u"TEMPDB" && i + 2 < s.end() && isSymbol(s[i + 1], u".") &&
            isSymbol(s[i + 2], u"."))
            s.erase(i, i + 2);
    }
}

// Rewrites inside parentheses first, so a call's arguments are final when the call
// itself is rewritten.
void rewriteLevel(Statement& s, int begin, int end,
                  const TsqlRewriter::TextColumnLookup& isTextColumn,
                  TsqlRewriter::UndecidedPlus undecidedPlus)
{
    for (int i = s.next(begin - 1, end); i < end; i = s.next(s.skipGroup(i), end)) {
        if (s.isOpen(i) && s.partner(i) < end)
            rewriteLevel(s, i + 1, s.partner(i), isTextColumn, undecidedPlus);
    }
    removeHints(s, begin, end);
    rewriteCalls(s, begin, end);
    concatenate(s, begin, end, isTextColumn, undecidedPlus);
    rewriteTop(s, begin, end);
}

QString rewriteStatement(Statement& s, const TsqlRewriter::TextColumnLookup& isTextColumn,
                         TsqlRewriter::UndecidedPlus undecidedPlus)
{
    const int first = s.next(s.begin() - 1);
    if (first >= s.end())
        return {};
    if (s.isWord(first, u"SET") && s.isWord(s.next(first), u"NOCOUNT"))
        return {};
    rewriteTokens(s);
    if (const std::optional<QString> drop = dropIfExists(s, first))
        return *drop;
    rewriteLevel(s, s.begin(), s.end(), isTextColumn, undecidedPlus);
    rewriteSelectInto(s, first);
    rewriteDelete(s, first);
    const int created = s.next(s.next(first));
    if (s.isWord(first, u"CREATE") && s.isWord(s.next(first), u"TABLE") && s.valid(created) &&
        s[created].source.startsWith(u'#')) {
        s[first].out = QStringLiteral("CREATE TEMP");
    }
    return s.text(s.begin(), s.end() - 1).trimmed();
}

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
    for (const Range& range : splitBatch(tokens, partner)) {
        Statement statement(tokens, partner, range);
        if (const std::optional<QString> index =
                temporaryLookupIndex(statement, statement.next(statement.begin() - 1)))
            statements.append(*index);
        QString text = rewriteStatement(statement, m_isTextColumn, m_undecidedPlus);
        if (!text.isEmpty())
            statements.append(std::move(text));
    }
    return statements;
}

bool mayChangeSchema(QStringView statement)
{
    const QStringView text = statement.trimmed();
    // Asked of every statement sent: most are told by their first letter.
    if (text.isEmpty() || !QStringView(u"CDARcdar").contains(text.front()))
        return false;
    for (QStringView word : {u"CREATE", u"DROP", u"ALTER", u"ROLLBACK"}) {
        if (text.startsWith(word, Qt::CaseInsensitive))
            return true;
    }
    return false;
}

} // namespace tarvello::db
