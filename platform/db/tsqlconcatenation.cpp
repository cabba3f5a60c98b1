#include "platform/db/tsqlfunctions.h"
#include "platform/db/tsqlpasses.h"

namespace tarvello::db::tsql {

namespace {

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

bool joinsTexts(Type left, Type right)
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

// The operands of '+' typed as T-SQL types them: texts from literals, text columns (the
// lookup), text functions and conversions; numbers from numbers, arithmetic and numeric
// functions; the rest unknown.
class Concatenation {
public:
    Concatenation(Statement& s, const TsqlRewriter::TextColumnLookup& isTextColumn,
                  TsqlRewriter::UndecidedPlus undecidedPlus)
        : m_s(s)
        , m_isTextColumn(isTextColumn)
        , m_undecidedPlus(undecidedPlus)
    {}

    // '+' becomes '||' where it joins texts: T-SQL concatenates when both sides are texts,
    // and adds when either side is a number, as SQLite's '+' does.
    void rewrite(int begin, int end)
    {
        for (int i = m_s.next(begin - 1, end); i < end; i = m_s.next(m_s.skipUnit(i), end)) {
            if (m_s.caseEnd(i) >= 0)
                rewrite(i + 1, m_s.caseEnd(i));
        }
        int i = m_s.next(begin - 1, end);
        while (i < end) {
            const Chain chain = parseChain(i, end);
            if (chain.terms.isEmpty()) {
                i = m_s.next(m_s.skipUnit(i), end);
                continue;
            }
            QList<Join> joins;
            chainType(chain, &joins);
            for (const Join& join : joins) {
                Token& start = m_s[chain.terms[0].first];
                if (join.atRunTime) {
                    const int op = chain.operators[join.position];
                    if (op > 0 && m_s[op - 1].kind == TokenKind::Space)
                        m_s[op - 1].out.clear();
                    m_s[op].out = QStringLiteral(",");
                    start.before.prepend(QString::fromLatin1(tsqlAddFunction) + u'(');
                    m_s[chain.terms[join.position + 1].last].after.append(u')');
                    continue;
                }
                m_s[chain.operators[join.position]].out = QStringLiteral("||");
                if (join.wrapStart) {
                    start.before.prepend(u'(');
                    m_s[chain.terms[join.position].last].after.append(u')');
                }
            }
            i = m_s.next(chain.terms.last().last, end);
        }
    }

private:
    // The type of a chain, evaluated left to right as T-SQL does; `joins` receives the '+'
    // that join texts.
    Type chainType(const Chain& chain, QList<Join>* joins = nullptr) const
    {
        Type running = termType(chain.terms[0]);
        bool arithmeticBefore = false;
        for (qsizetype k = 0; k < chain.operators.size(); ++k) {
            const Type right = termType(chain.terms[k + 1]);
            const bool plus = m_s.isSym(chain.operators[k], u"+");
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
            const int op = m_s.next(term.last, end);
            if (!m_s.isSym(op, u"+") && !m_s.isSym(op, u"-"))
                break;
            term = parseTerm(m_s.next(op, end), end);
            if (term.isValid())
                chain.operators.append(op);
        }
        return chain;
    }

    bool isSign(int i) const
    {
        return m_s.isSym(i, u"-") || m_s.isSym(i, u"+") || m_s.isSym(i, u"~");
    }

    Term parseTerm(int i, int end) const
    {
        Term term;
        int k = i;
        while (k < end && isSign(k)) {
            term.compound = true;
            k = m_s.next(k, end);
        }
        int last = parsePrimary(k, end);
        if (last < 0)
            return {};
        term.first = i;
        term.primary = k;
        for (;;) {
            const int op = m_s.next(last, end);
            if (!m_s.isSym(op, u"*") && !m_s.isSym(op, u"/") && !m_s.isSym(op, u"%"))
                break;
            int operand = m_s.next(op, end);
            while (operand < end && isSign(operand))
                operand = m_s.next(operand, end);
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
        const Token& token = m_s[i];
        switch (token.kind) {
        case TokenKind::String:
        case TokenKind::UnicodeString:
        case TokenKind::Number:
            return i;
        case TokenKind::Symbol:
            if (m_s.isSym(i, u"?"))
                return i;
            return m_s.isOpen(i) && m_s.partner(i) < end ? m_s.partner(i) : -1;
        case TokenKind::Word:
            if (token.key == u"NULL" || token.source.startsWith(u'@'))
                return i;
            if (token.key == u"CASE")
                return m_s.caseEnd(i) >= 0 && m_s.caseEnd(i) < end ? m_s.caseEnd(i) : -1;
            if (isKeyword(token.key) && !isCallName(i))
                return -1;
            break;
        case TokenKind::QuotedName:
        case TokenKind::BracketName:
            break;
        default:
            return -1;
        }
        int last = m_s.nameLast(i);
        if (isCallName(last)) {
            last = m_s.partner(m_s.next(last));
            if (m_s.isWord(m_s.next(last), u"OVER") && m_s.isOpen(m_s.next(m_s.next(last))))
                last = m_s.partner(m_s.next(m_s.next(last)));
        }
        return last < end ? last : -1;
    }

    bool isCallName(int i) const
    {
        return m_s[i].kind == TokenKind::Word &&
               (!isKeyword(m_s[i].key) || among(m_s[i].key, {u"LEFT", u"RIGHT"})) &&
               m_s.isOpen(m_s.next(i));
    }

    Type termType(const Term& term) const
    {
        return term.compound ? Type::Numeric : primaryType(term.primary);
    }

    Type primaryType(int i) const
    {
        const Token& token = m_s[i];
        if (token.kind == TokenKind::String || token.kind == TokenKind::UnicodeString)
            return Type::Text;
        if (token.kind == TokenKind::Number)
            return Type::Numeric;
        if (m_s.isOpen(i))
            return rangeType(i + 1, m_s.partner(i));
        if (token.key == u"CASE")
            return caseType(i);
        const int last = m_s.nameLast(i);
        if (isCallName(last))
            return callType(m_s[last].key, m_s.next(last));
        const bool column = token.kind != TokenKind::Word ||
                            (!isKeyword(token.key) && !token.source.startsWith(u'@'));
        return column && m_isTextColumn && m_isTextColumn(m_s.bareName(last)) ? Type::Text
                                                                              : Type::Unknown;
    }

    // The type of [begin, end) when it is one expression.
    Type rangeType(int begin, int end) const
    {
        const Chain chain = parseChain(m_s.next(begin - 1, end), end);
        if (chain.terms.isEmpty() || m_s.next(chain.terms.last().last, end) < end)
            return Type::Unknown;
        return chainType(chain);
    }

    Type caseType(int caseIndex) const
    {
        const int end = m_s.caseEnd(caseIndex);
        Type type = Type::Unknown;
        for (int i = m_s.next(caseIndex, end); i < end; i = m_s.next(m_s.skipUnit(i), end)) {
            if (!m_s.isWord(i, u"THEN") && !m_s.isWord(i, u"ELSE"))
                continue;
            const Chain chain = parseChain(m_s.next(i, end), end);
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
        const int close = m_s.partner(open);
        if (function == u"CAST") {
            const int as = m_s.lastAs(open);
            return as < 0 ? Type::Unknown : typeNameType(m_s.next(as));
        }
        if (function == u"CONVERT")
            return typeNameType(m_s.next(open));
        if (among(function, {u"ISNULL", u"IFNULL", u"COALESCE", u"NULLIF", u"MIN", u"MAX"})) {
            int argument = open + 1;
            QList<int> bounds = m_s.argumentCommas(open);
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
        if (!m_s.valid(i))
            return Type::Unknown;
        if (isTextType(m_s[i].key))
            return Type::Text;
        return isNumericType(m_s[i].key) ? Type::Numeric : Type::Unknown;
    }

    Statement& m_s;
    const TsqlRewriter::TextColumnLookup& m_isTextColumn;
    const TsqlRewriter::UndecidedPlus m_undecidedPlus;
};

} // namespace

void concatenate(Statement& s, int begin, int end,
                 const TsqlRewriter::TextColumnLookup& isTextColumn,
                 TsqlRewriter::UndecidedPlus undecidedPlus)
{
    Concatenation(s, isTextColumn, undecidedPlus).rewrite(begin, end);
}

} // namespace tarvello::db::tsql
