#pragma once

#include "platform/db/tsqlbatch.h"

#include <QHash>

namespace tarvello::db::tsql {

// One statement of a batch as the rewriting passes see it: its tokens, walked over the
// significant ones (not blanks or comments), and edited in place. Indices are positions in
// the batch's token list; `end()` is one past the statement's last token and is what the
// walks return when there is nothing more.
class Statement {
public:
    Statement(Tokens& tokens, const QList<int>& partner, Range range);

    int begin() const { return m_begin; }
    int end() const { return m_end; }
    Token& operator[](int i) { return m_t[i]; }
    const Token& operator[](int i) const { return m_t[i]; }
    // The partner parenthesis of a parenthesis (matchParentheses).
    int partner(int i) const { return m_partner[i]; }
    // The END of the CASE at i, -1 when i is not a CASE that ends.
    int caseEnd(int i) const { return m_caseEnd.value(i, -1); }

    // The next significant token after i, before `end` (the statement's end when -1).
    int next(int i, int end = -1) const;
    // The significant token before i, from `begin` on; -1 when there is none.
    int previous(int i, int begin) const;

    bool valid(int i) const { return i >= m_begin && i < m_end; }
    bool isWord(int i, QStringView key) const { return valid(i) && m_t[i].key == key; }
    bool isSym(int i, QStringView symbol) const { return valid(i) && isSymbol(m_t[i], symbol); }
    // An opening parenthesis closed inside the statement.
    bool isOpen(int i) const { return isSym(i, u"(") && m_partner[i] > i && m_partner[i] < m_end; }
    bool isName(int i) const;

    // The last token of a parenthesised group starting at i (i itself otherwise).
    int skipGroup(int i) const { return isOpen(i) ? m_partner[i] : i; }
    // The same, also taking CASE ... END as one unit.
    int skipUnit(int i) const { return m_caseEnd.value(i, skipGroup(i)); }
    // The last token of a dotted name starting at i.
    int nameLast(int i) const;
    // A name without its quotes or brackets.
    QString bareName(int i) const;
    // Top-level commas of the arguments of the call whose '(' is at `open`.
    QList<int> argumentCommas(int open) const;
    // The last top-level AS inside the parentheses at `open` (a CAST's), -1 when none.
    int lastAs(int open) const;

    // Tokens [from, to] as rewritten so far.
    QString text(int from, int to) const;
    void erase(int from, int to);
    // Erases [from, to] with the blanks in front, so no double blank is left behind.
    void eraseWithBlanks(int from, int to);

private:
    Tokens& m_t;
    const QList<int>& m_partner;
    const int m_begin;
    const int m_end;
    QHash<int, int> m_caseEnd;
};

} // namespace tarvello::db::tsql
