#pragma once

#include <QList>
#include <QString>
#include <QStringView>
#include <initializer_list>

// The words and tokens of T-SQL, as the rewriter reads them.
namespace tarvello::db::tsql {

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

// The text cut into tokens: string and N'' literals, quoted and bracketed names, comments
// (block comments nest, as in T-SQL), numbers, words and symbols.
Tokens tokenize(const QString& sql);
// The index of the parenthesis that closes or opens each parenthesis, -1 elsewhere and for
// parentheses without a partner.
QList<int> matchParentheses(const Tokens& tokens);

bool isSignificant(const Token& token);
bool isSymbol(const Token& token, QStringView symbol);

bool among(QStringView key, std::initializer_list<QStringView> words);
// Words that are never a column, table or function name here, so they end an expression.
bool isKeyword(QStringView key);
bool isTextType(QStringView key);
bool isNumericType(QStringView key);

// A quoted run's text with each doubled quote back to one.
QString undoubled(QString text, QChar quote);

} // namespace tarvello::db::tsql
