#include "platform/db/criteria.h"

#include "platform/db/runtimeerror.h"

#include <QRegularExpression>

namespace tarvello::db {

struct Criteria::Node {
    enum class Kind { And, Or, Compare };
    Kind kind = Kind::Compare;
    std::shared_ptr<const Node> left;
    std::shared_ptr<const Node> right;
    QString field;
    QString op; // = <> < > <= >= LIKE
    Value literal;
    QRegularExpression pattern; // for LIKE
};

namespace {

[[noreturn]] void invalid(const QString& text, const QString& why)
{
    throw RuntimeError(RuntimeError::InvalidProcedureCall,
                       QStringLiteral("Invalid criteria \"%1\": %2").arg(text, why));
}

struct Token {
    enum class Kind { Word, Operator, Literal, Open, Close, End };
    Kind kind = Kind::End;
    QString text;
    Value value;
};

class Lexer {
public:
    explicit Lexer(const QString& text)
        : m_text(text)
    {}

    Token next()
    {
        while (m_pos < m_text.size() && m_text[m_pos].isSpace())
            ++m_pos;
        if (m_pos >= m_text.size())
            return {};
        const QChar c = m_text[m_pos];
        if (c == u'(') {
            ++m_pos;
            return {Token::Kind::Open, QStringLiteral("("), {}};
        }
        if (c == u')') {
            ++m_pos;
            return {Token::Kind::Close, QStringLiteral(")"), {}};
        }
        if (c == u'\'')
            return {Token::Kind::Literal, {}, readQuoted(u'\'')};
        if (c == u'#') {
            const QString inner = readDelimited(u'#');
            const Value date = Value(inner).toDateTime();
            return {Token::Kind::Literal, {}, date};
        }
        if (c == u'[')
            return {Token::Kind::Word, readDelimited(u']', u'['), {}};
        if (QStringLiteral("=<>!").contains(c)) {
            QString op(c);
            ++m_pos;
            if (m_pos < m_text.size() && QStringLiteral("=>").contains(m_text[m_pos])) {
                op += m_text[m_pos];
                ++m_pos;
            }
            return {Token::Kind::Operator, op == u"!=" ? QStringLiteral("<>") : op, {}};
        }
        if (c.isDigit() || c == u'-' || c == u'+' || c == u'.') {
            const qsizetype start = m_pos++;
            while (m_pos < m_text.size() && (m_text[m_pos].isDigit() || m_text[m_pos] == u'.'))
                ++m_pos;
            const auto number = Decimal::parse(QStringView(m_text).mid(start, m_pos - start));
            if (!number)
                invalid(m_text, QStringLiteral("bad number"));
            return {Token::Kind::Literal,
                    {},
                    number->scale() == 0 ? Value(number->mantissa()) : Value(*number)};
        }
        const qsizetype start = m_pos;
        while (m_pos < m_text.size() &&
               (m_text[m_pos].isLetterOrNumber() || m_text[m_pos] == u'_' ||
                m_text[m_pos] == u'.' || m_text[m_pos] == u'#'))
            ++m_pos;
        if (m_pos == start)
            invalid(m_text, QStringLiteral("unexpected '%1'").arg(c));
        return {Token::Kind::Word, m_text.mid(start, m_pos - start), {}};
    }

private:
    Value readQuoted(QChar quote)
    {
        QString result;
        ++m_pos;
        while (m_pos < m_text.size()) {
            if (m_text[m_pos] == quote) {
                if (m_pos + 1 < m_text.size() && m_text[m_pos + 1] == quote) {
                    result += quote;
                    m_pos += 2;
                    continue;
                }
                ++m_pos;
                return result;
            }
            result += m_text[m_pos++];
        }
        invalid(m_text, QStringLiteral("unterminated text"));
    }

    QString readDelimited(QChar close, QChar open = {})
    {
        Q_UNUSED(open);
        const qsizetype start = ++m_pos;
        while (m_pos < m_text.size() && m_text[m_pos] != close)
            ++m_pos;
        if (m_pos >= m_text.size())
            invalid(m_text, QStringLiteral("missing '%1'").arg(close));
        return m_text.mid(start, m_pos++ - start);
    }

    const QString& m_text;
    qsizetype m_pos = 0;
};

class Parser {
public:
    explicit Parser(const QString& text)
        : m_text(text)
        , m_lexer(text)
    {
        advance();
    }

    std::shared_ptr<const Criteria::Node> parseAll()
    {
        auto root = parseOr();
        if (m_token.kind != Token::Kind::End)
            invalid(m_text, QStringLiteral("unexpected '%1'").arg(m_token.text));
        return root;
    }

private:
    using NodePtr = std::shared_ptr<const Criteria::Node>;

    void advance() { m_token = m_lexer.next(); }
    bool atWord(const char* word) const
    {
        return m_token.kind == Token::Kind::Word &&
               m_token.text.compare(QLatin1String(word), Qt::CaseInsensitive) == 0;
    }

    NodePtr combine(Criteria::Node::Kind kind, NodePtr left, NodePtr right)
    {
        auto node = std::make_shared<Criteria::Node>();
        node->kind = kind;
        node->left = std::move(left);
        node->right = std::move(right);
        return node;
    }

    NodePtr parseOr()
    {
        NodePtr left = parseAnd();
        while (atWord("OR")) {
            advance();
            left = combine(Criteria::Node::Kind::Or, left, parseAnd());
        }
        return left;
    }

    NodePtr parseAnd()
    {
        NodePtr left = parsePrimary();
        while (atWord("AND")) {
            advance();
            left = combine(Criteria::Node::Kind::And, left, parsePrimary());
        }
        return left;
    }

    NodePtr parsePrimary()
    {
        if (m_token.kind == Token::Kind::Open) {
            advance();
            NodePtr inner = parseOr();
            if (m_token.kind != Token::Kind::Close)
                invalid(m_text, QStringLiteral("missing ')'"));
            advance();
            return inner;
        }
        if (m_token.kind != Token::Kind::Word)
            invalid(m_text, QStringLiteral("a field name is expected"));
        auto node = std::make_shared<Criteria::Node>();
        node->field = m_token.text;
        advance();
        if (atWord("IS")) {
            advance();
            bool negated = false;
            if (atWord("NOT")) {
                negated = true;
                advance();
            }
            if (!atWord("NULL"))
                invalid(m_text, QStringLiteral("NULL is expected after IS"));
            advance();
            node->op = negated ? QStringLiteral("<>") : QStringLiteral("=");
            node->literal = Value::null();
            return node;
        }
        if (atWord("LIKE")) {
            node->op = QStringLiteral("LIKE");
        } else if (m_token.kind == Token::Kind::Operator) {
            node->op = m_token.text;
        } else {
            invalid(m_text, QStringLiteral("an operator is expected after %1").arg(node->field));
        }
        advance();
        if (atWord("NULL")) {
            node->literal = Value::null();
        } else if (m_token.kind == Token::Kind::Literal) {
            node->literal = m_token.value;
        } else {
            invalid(m_text, QStringLiteral("a value is expected after %1").arg(node->op));
        }
        advance();
        if (node->op == u"LIKE") {
            QString pattern = QRegularExpression::escape(node->literal.toString());
            pattern.replace(QStringLiteral("\\*"), QStringLiteral(".*"));
            pattern.replace(QStringLiteral("%"), QStringLiteral(".*"));
            node->pattern = QRegularExpression(QRegularExpression::anchoredPattern(pattern),
                                               QRegularExpression::CaseInsensitiveOption |
                                                   QRegularExpression::DotMatchesEverythingOption);
        }
        return node;
    }

    const QString& m_text;
    Lexer m_lexer;
    Token m_token;
};

bool evaluate(const Criteria::Node& node, const Criteria::FieldReader& field)
{
    using Kind = Criteria::Node::Kind;
    if (node.kind == Kind::And)
        return evaluate(*node.left, field) && evaluate(*node.right, field);
    if (node.kind == Kind::Or)
        return evaluate(*node.left, field) || evaluate(*node.right, field);
    const Value v = field(node.field);
    if (node.literal.isNull()) {
        const bool isNull = v.isNull() || v.isEmpty();
        return node.op == u"=" ? isNull : node.op == u"<>" ? !isNull : false;
    }
    if (v.isNull() || v.isEmpty())
        return false;
    if (node.op == u"LIKE")
        return node.pattern.match(v.toString()).hasMatch();
    const int c = compareValues(v, node.literal);
    if (node.op == u"=")
        return c == 0;
    if (node.op == u"<>")
        return c != 0;
    if (node.op == u"<")
        return c < 0;
    if (node.op == u">")
        return c > 0;
    if (node.op == u"<=")
        return c <= 0;
    if (node.op == u">=")
        return c >= 0;
    return false;
}

void collectFields(const Criteria::Node* node, QStringList& out)
{
    if (!node)
        return;
    if (node->kind == Criteria::Node::Kind::Compare) {
        if (!out.contains(node->field, Qt::CaseInsensitive))
            out << node->field;
        return;
    }
    collectFields(node->left.get(), out);
    collectFields(node->right.get(), out);
}

} // namespace

Criteria Criteria::parse(const QString& text)
{
    Criteria criteria;
    if (!text.trimmed().isEmpty())
        criteria.m_root = Parser(text).parseAll();
    return criteria;
}

bool Criteria::matches(const FieldReader& field) const
{
    return !m_root || evaluate(*m_root, field);
}

std::optional<std::pair<QString, QString>> Criteria::textEquality() const
{
    if (!m_root || m_root->kind != Node::Kind::Compare || m_root->op != u"=" ||
        m_root->literal.kind() != Value::Kind::Text)
        return std::nullopt;
    return std::pair{m_root->field, m_root->literal.toString()};
}

QStringList Criteria::fields() const
{
    QStringList out;
    collectFields(m_root.get(), out);
    return out;
}

int compareValues(const Value& a, const Value& b)
{
    const bool aNull = a.isNull() || a.isEmpty();
    const bool bNull = b.isNull() || b.isEmpty();
    if (aNull || bNull)
        return aNull == bNull ? 0 : aNull ? -1 : 1;
    if (a.kind() == Value::Kind::Date || b.kind() == Value::Kind::Date) {
        try {
            const QDateTime x = a.toDateTime();
            const QDateTime y = b.toDateTime();
            return x < y ? -1 : x > y ? 1 : 0;
        } catch (const RuntimeError&) {
            // Not both dates: compared as texts below.
        }
    }
    if ((a.isNumeric() || b.isNumeric()) && a.looksNumeric() && b.looksNumeric()) {
        const auto order = a.toDecimal() <=> b.toDecimal();
        return order < 0 ? -1 : order > 0 ? 1 : 0;
    }
    return QString::compare(comparedText(a.toString()), comparedText(b.toString()),
                            Qt::CaseInsensitive);
}

QString comparedText(const QString& text)
{
    qsizetype length = text.size();
    while (length > 0 && text.at(length - 1) == u' ')
        --length;
    return text.first(length);
}

} // namespace tarvello::db
