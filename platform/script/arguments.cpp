#include "platform/script/arguments.h"

#include "platform/script/scripterror.h"

namespace tarvello::script {

std::optional<qint64> readInteger(const QString& text)
{
    bool ok = false;
    const qint64 number = text.toLongLong(&ok);
    return ok ? std::optional<qint64>(number) : std::nullopt;
}

Token Arguments::token(const QString& what)
{
    if (atEnd())
        throw SyntaxError(QStringLiteral("%1 is missing").arg(what));
    return m_words.at(m_next++);
}

qint64 Arguments::integer(const QString& what)
{
    const Token word = token(what);
    const std::optional<qint64> number = word.quoted ? std::nullopt : readInteger(word.text);
    if (!number)
        throw SyntaxError(
            QStringLiteral("%1 must be a whole number, not %2").arg(what, untokenize({word})));
    return *number;
}

bool Arguments::yesNo(const QString& what)
{
    return oneOf(what, {QStringLiteral("yes"), QStringLiteral("no")}) == u"yes";
}

QString Arguments::oneOf(const QString& what, const QStringList& words)
{
    const Token word = token(what);
    if (word.quoted || !words.contains(word.text))
        throw SyntaxError(QStringLiteral("%1 must be one of %2, not %3")
                              .arg(what, words.join(QStringLiteral(", ")), untokenize({word})));
    return word.text;
}

bool Arguments::keyword(const QString& word)
{
    const Token* next = peek();
    if (!next || next->quoted || next->text != word)
        return false;
    ++m_next;
    return true;
}

QList<Token> Arguments::rest()
{
    QList<Token> left = m_words.mid(m_next);
    m_next = m_words.size();
    return left;
}

void Arguments::end() const
{
    if (!atEnd())
        throw SyntaxError(QStringLiteral("unexpected %1 at the end of the command")
                              .arg(untokenize(m_words.mid(m_next))));
}

} // namespace tarvello::script
