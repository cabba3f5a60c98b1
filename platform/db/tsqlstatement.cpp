#include "platform/db/tsqlstatement.h"

namespace tarvello::db::tsql {

Statement::Statement(Tokens& tokens, const QList<int>& partner, Range range)
    : m_t(tokens)
    , m_partner(partner)
    , m_begin(range.begin)
    , m_end(range.end)
{
    QList<int> open;
    for (int i = m_begin; i < m_end; ++i) {
        if (m_t[i].key == u"CASE")
            open.append(i);
        else if (m_t[i].key == u"END" && !open.isEmpty())
            m_caseEnd.insert(open.takeLast(), i);
    }
}

int Statement::next(int i, int end) const
{
    const int limit = end < 0 ? m_end : end;
    for (int k = i + 1; k < limit; ++k) {
        if (isSignificant(m_t[k]))
            return k;
    }
    return limit;
}

int Statement::previous(int i, int begin) const
{
    for (int k = i - 1; k >= begin; --k) {
        if (isSignificant(m_t[k]))
            return k;
    }
    return -1;
}

bool Statement::isName(int i) const
{
    if (!valid(i))
        return false;
    const Token& token = m_t[i];
    return (token.kind == TokenKind::Word && !isKeyword(token.key)) ||
           token.kind == TokenKind::QuotedName || token.kind == TokenKind::BracketName;
}

int Statement::nameLast(int i) const
{
    int last = i;
    while (isSym(next(last), u".") && (isName(next(next(last))) || isSym(next(next(last)), u"*")))
        last = next(next(last));
    return last;
}

QString Statement::bareName(int i) const
{
    const Token& token = m_t[i];
    if (token.kind == TokenKind::QuotedName)
        return undoubled(token.source.mid(1, token.source.size() - 2), u'"');
    if (token.kind == TokenKind::BracketName)
        return undoubled(token.source.mid(1, token.source.size() - 2), u']');
    return token.source;
}

QList<int> Statement::argumentCommas(int open) const
{
    QList<int> commas;
    const int close = m_partner[open];
    for (int i = next(open, close); i < close; i = next(skipGroup(i), close)) {
        if (isSym(i, u","))
            commas.append(i);
    }
    return commas;
}

int Statement::lastAs(int open) const
{
    int as = -1;
    const int close = m_partner[open];
    for (int i = next(open, close); i < close; i = next(skipUnit(i), close)) {
        if (isWord(i, u"AS"))
            as = i;
    }
    return as;
}

QString Statement::text(int from, int to) const
{
    QString result;
    for (int k = from; k <= to; ++k)
        result += m_t[k].before + m_t[k].out + m_t[k].after;
    return result;
}

void Statement::erase(int from, int to)
{
    for (int k = from; k <= to; ++k)
        m_t[k].out.clear();
}

void Statement::eraseWithBlanks(int from, int to)
{
    int start = from;
    while (start > m_begin && !isSignificant(m_t[start - 1]))
        --start;
    erase(start, to);
}

} // namespace tarvello::db::tsql
