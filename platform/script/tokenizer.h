#pragma once

#include <QList>
#include <QString>
#include <QStringView>

namespace tarvello::script {

// One word of a scenario line. A quoted word keeps its blanks and may be empty; that it was
// quoted matters to commands that read a bare number and a quoted code differently
// (`answer pick 2`, `answer pick "2"`).
struct Token {
    QString text;
    bool quoted = false;

    friend bool operator==(const Token&, const Token&) = default;
};

// Splits a line into words. Blanks separate words; a word that starts with a double quote
// runs to the next unescaped one, and inside it \" \\ \r and \n stand for a quote, a
// backslash, a carriage return and a line feed. A blank line, or one whose first character
// that is not a blank is '#', has no words. Raises SyntaxError for an unknown escape, a
// quote left open, or a quote inside or right after a word.
QList<Token> tokenize(QStringView line);

// The words written back as a line that tokenizes to them again, for messages.
QString untokenize(const QList<Token>& words);

} // namespace tarvello::script
