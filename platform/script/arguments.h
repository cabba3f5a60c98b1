#pragma once

#include "platform/script/tokenizer.h"

#include <QList>
#include <QString>
#include <QStringList>
#include <optional>

namespace tarvello::script {

// Reads the words of a command after its name, one at a time, raising SyntaxError with the
// name of what was expected when a word is missing, is not what the command takes, or is
// left over.
class Arguments {
public:
    explicit Arguments(QList<Token> words)
        : m_words(std::move(words))
    {}

    bool atEnd() const { return m_next >= m_words.size(); }
    // The next word, not taken.
    const Token* peek() const { return atEnd() ? nullptr : &m_words.at(m_next); }

    Token token(const QString& what);
    QString text(const QString& what) { return token(what).text; }
    qint64 integer(const QString& what);
    // yes or no.
    bool yesNo(const QString& what);
    // One of the words given, bare.
    QString oneOf(const QString& what, const QStringList& words);
    // Takes the next word when it is this bare keyword.
    bool keyword(const QString& word);
    // Every word left (none is fine).
    QList<Token> rest();
    // Nothing may follow.
    void end() const;

private:
    QList<Token> m_words;
    qsizetype m_next = 0;
};

// A whole number written as a word, or none.
std::optional<qint64> readInteger(const QString& text);

} // namespace tarvello::script
