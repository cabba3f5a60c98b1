#include "platform/db/tsqlbatch.h"

namespace tarvello::db::tsql {

namespace {

bool isStatementStart(QStringView key)
{
    return among(key,
                 {u"SELECT", u"INSERT", u"UPDATE", u"DELETE", u"DROP", u"CREATE", u"ALTER", u"SET",
                  u"IF", u"DECLARE", u"TRUNCATE", u"EXEC", u"EXECUTE", u"MERGE", u"PRINT"});
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

} // namespace

QList<Range> splitBatch(const Tokens& tokens, const QList<int>& partner)
{
    return BatchSplitter(tokens, partner).split();
}

} // namespace tarvello::db::tsql
