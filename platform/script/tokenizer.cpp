#include "platform/script/tokenizer.h"

#include "platform/script/scripterror.h"

namespace tarvello::script {

namespace {

bool isBlank(QChar c)
{
    return c == u' ' || c == u'\t';
}

QChar escaped(QChar c)
{
    switch (c.unicode()) {
    case u'"':
        return u'"';
    case u'\\':
        return u'\\';
    case u'r':
        return u'\r';
    case u'n':
        return u'\n';
    default:
        throw SyntaxError(QStringLiteral("unknown escape \\%1 in a quoted text").arg(c));
    }
}

// Reads the quoted text starting at line[start] (the opening quote); returns the index just
// past the closing quote.
qsizetype readQuoted(QStringView line, qsizetype start, QString& text)
{
    for (qsizetype i = start + 1; i < line.size(); ++i) {
        const QChar c = line[i];
        if (c == u'"')
            return i + 1;
        if (c == u'\\') {
            if (i + 1 >= line.size())
                break;
            text += escaped(line[++i]);
        } else {
            text += c;
        }
    }
    throw SyntaxError(QStringLiteral("a quoted text is not closed"));
}

} // namespace

QList<Token> tokenize(QStringView line)
{
    QList<Token> words;
    qsizetype i = 0;
    const auto skipBlanks = [&] {
        while (i < line.size() && isBlank(line[i]))
            ++i;
    };
    skipBlanks();
    if (i < line.size() && line[i] == u'#')
        return words;
    while (i < line.size()) {
        Token token;
        if (line[i] == u'"') {
            token.quoted = true;
            i = readQuoted(line, i, token.text);
            if (i < line.size() && !isBlank(line[i]))
                throw SyntaxError(
                    QStringLiteral("a blank must follow the quoted text \"%1\"").arg(token.text));
        } else {
            while (i < line.size() && !isBlank(line[i])) {
                if (line[i] == u'"')
                    throw SyntaxError(
                        QStringLiteral("a quote inside the word %1: quote the whole word")
                            .arg(token.text));
                token.text += line[i++];
            }
        }
        words << token;
        skipBlanks();
    }
    return words;
}

QString untokenize(const QList<Token>& words)
{
    QStringList parts;
    for (const Token& word : words) {
        if (!word.quoted) {
            parts << word.text;
            continue;
        }
        QString text = word.text;
        text.replace(u'\\', QStringLiteral("\\\\"))
            .replace(u'"', QStringLiteral("\\\""))
            .replace(u'\r', QStringLiteral("\\r"))
            .replace(u'\n', QStringLiteral("\\n"));
        parts << u'"' + text + u'"';
    }
    return parts.join(u' ');
}

} // namespace tarvello::script
