#include "platform/db/identifier.h"
#include "platform/db/tsqlpasses.h"

namespace tarvello::db::tsql {

namespace {

bool isTableHint(QStringView key)
{
    return among(key, {u"NOLOCK", u"READUNCOMMITTED", u"UPDLOCK", u"HOLDLOCK", u"ROWLOCK",
                       u"PAGLOCK", u"TABLOCK", u"TABLOCKX", u"READPAST", u"XLOCK", u"NOWAIT",
                       u"READCOMMITTED", u"READCOMMITTEDLOCK", u"REPEATABLEREAD", u"SERIALIZABLE",
                       u"NOEXPAND", u"FORCESEEK", u"FORCESCAN", u"INDEX"});
}

bool isHintGroup(const Statement& s, int open)
{
    const int close = s.partner(open);
    bool any = false;
    for (int i = s.next(open, close); i < close; i = s.next(s.skipGroup(i), close)) {
        const bool indexArgument = s.isOpen(i) && s.isWord(s.previous(i, open), u"INDEX");
        if (!indexArgument && !s.isSym(i, u",") && !isTableHint(s[i].key))
            return false;
        any = true;
    }
    return any;
}

struct TableReference {
    int name = -1;
    int nameLast = -1;
    int alias = -1;
};

// The tables of the FROM clause starting at `from`.
QList<TableReference> tableReferences(const Statement& s, int from)
{
    QList<TableReference> references;
    bool expectTable = true;
    for (int i = s.next(from); i < s.end(); i = s.next(s.skipGroup(i))) {
        if (among(s[i].key, {u"WHERE", u"GROUP", u"ORDER", u"HAVING", u"OPTION", u"UNION"}))
            break;
        if (s.isWord(i, u"JOIN") || s.isSym(i, u",")) {
            expectTable = true;
        } else if (expectTable && s.isName(i)) {
            TableReference reference{i, s.nameLast(i), -1};
            int alias = s.next(reference.nameLast);
            if (s.isWord(alias, u"AS"))
                alias = s.next(alias);
            if (s.isName(alias))
                reference.alias = alias;
            references.append(reference);
            expectTable = false;
            i = reference.alias >= 0 ? reference.alias : reference.nameLast;
        }
    }
    return references;
}

} // namespace

void removeHints(Statement& s, int begin, int end)
{
    for (int i = s.next(begin - 1, end); i < end; i = s.next(s.skipGroup(i), end)) {
        const int open = s.next(i, end);
        if (s.isWord(i, u"WITH") && s.isOpen(open) && isHintGroup(s, open)) {
            s.eraseWithBlanks(i, s.partner(open));
            i = open;
        } else if (s.isOpen(i) && isHintGroup(s, i) && s.isName(s.previous(i, begin))) {
            s.eraseWithBlanks(i, s.partner(i));
        }
    }
}

// "SELECT [DISTINCT] TOP n ..." and "TOP (n)" become "... LIMIT n" at the end of that
// SELECT (before a closing parenthesis of a subquery; a first member of a UNION is
// wrapped, since SQLite takes LIMIT only at the end of a compound).
void rewriteTop(Statement& s, int begin, int end)
{
    for (int select = s.next(begin - 1, end); select < end;
         select = s.next(s.skipGroup(select), end)) {
        if (!s.isWord(select, u"SELECT"))
            continue;
        int top = s.next(select, end);
        if (s.isWord(top, u"DISTINCT") || s.isWord(top, u"ALL"))
            top = s.next(top, end);
        if (!s.isWord(top, u"TOP"))
            continue;
        const int count = s.next(top, end);
        const int countLast = s.skipGroup(count);
        if (count >= end || s.isWord(s.next(countLast, end), u"PERCENT") ||
            s.isWord(s.next(countLast, end), u"WITH"))
            continue;
        const QString limit = count == countLast ? s.text(count, count).trimmed()
                                                 : s.text(count + 1, countLast - 1).trimmed();
        int scopeEnd = s.next(countLast, end);
        while (scopeEnd < end && !among(s[scopeEnd].key, {u"UNION", u"EXCEPT", u"INTERSECT"}))
            scopeEnd = s.next(s.skipGroup(scopeEnd), end);
        s.eraseWithBlanks(top, countLast);
        const int last = s.previous(scopeEnd, select);
        if (scopeEnd < end) {
            s[select].before += QStringLiteral("SELECT * FROM (");
            s[last].after += QStringLiteral(" LIMIT ") + limit + u')';
        } else {
            s[last].after += QStringLiteral(" LIMIT ") + limit;
        }
    }
}

void rewriteSelectInto(Statement& s, int select)
{
    if (!s.isWord(select, u"SELECT"))
        return;
    for (int i = s.next(select); i < s.end() && !s.isWord(i, u"FROM"); i = s.next(s.skipGroup(i))) {
        if (!s.isWord(i, u"INTO"))
            continue;
        const int target = s.next(i);
        if (!s.valid(target))
            return;
        const int last = s.nameLast(target);
        const QString table = s.text(target, last).trimmed();
        const bool temporary = s[target].source.startsWith(u'#');
        s[select].before.prepend(
            (temporary ? QStringLiteral("CREATE TEMP TABLE ") : QStringLiteral("CREATE TABLE ")) +
            table + QStringLiteral(" AS "));
        s.eraseWithBlanks(i, last);
        return;
    }
}

// "DELETE t FROM a INNER JOIN t ON ... WHERE ..." (also "DELETE FROM t FROM ...") becomes
// "DELETE FROM t WHERE rowid IN (SELECT t.rowid FROM a INNER JOIN t ON ... WHERE ...)";
// "DELETE t WHERE ..." gets its FROM.
void rewriteDelete(Statement& s, int first)
{
    if (!s.isWord(first, u"DELETE"))
        return;
    int target = s.next(first);
    const bool hasFrom = s.isWord(target, u"FROM");
    if (hasFrom)
        target = s.next(target);
    if (!s.isName(target))
        return;
    const int targetLast = s.nameLast(target);
    const int from = s.next(targetLast);
    if (!s.isWord(from, u"FROM")) {
        if (!hasFrom)
            s[first].out = QStringLiteral("DELETE FROM");
        return;
    }
    const QString wanted = s.bareName(targetLast);
    QString table = s.text(target, targetLast).trimmed();
    QString reference = table;
    for (const TableReference& candidate : tableReferences(s, from)) {
        const bool byAlias = candidate.alias >= 0 &&
                             s.bareName(candidate.alias).compare(wanted, Qt::CaseInsensitive) == 0;
        const bool byName =
            s.bareName(candidate.nameLast).compare(wanted, Qt::CaseInsensitive) == 0;
        if (byAlias || byName) {
            table = s.text(candidate.name, candidate.nameLast).trimmed();
            reference =
                candidate.alias >= 0 ? s.text(candidate.alias, candidate.alias).trimmed() : table;
            break;
        }
    }
    s[first].out = QStringLiteral("DELETE FROM ") + table +
                   QStringLiteral(" WHERE rowid IN (SELECT ") + reference +
                   QStringLiteral(".rowid");
    s.erase(first + 1, targetLast);
    s[s.previous(s.end(), from)].after += u')';
}

std::optional<QString> temporaryLookupIndex(const Statement& s, int first)
{
    if (!s.isWord(first, u"SELECT"))
        return std::nullopt;
    int from = s.next(first);
    while (from < s.end() && !s.isWord(from, u"FROM"))
        from = s.next(s.skipGroup(from));
    const int table = s.next(from);
    if (!s.isName(table) || s.nameLast(table) != table || !s.bareName(table).startsWith(u'#'))
        return std::nullopt;
    const int where = s.next(table);
    const int column = s.next(where);
    if (!s.isWord(where, u"WHERE") || !s.isName(column) || s.nameLast(column) != column ||
        !s.isSym(s.next(column), u"="))
        return std::nullopt;
    const QString name = s.bareName(table);
    const QString field = s.bareName(column);
    return temporaryLookupIndexPrefix.toString() + quoteIdentifier(name + u'_' + field) +
           QStringLiteral(" ON ") + quoteIdentifier(name) + QStringLiteral(" (") +
           quoteIdentifier(field) + u')';
}

// "IF OBJECT_ID('tempdb..#T'[, 'U']) IS NOT NULL [BEGIN] DROP TABLE #T [;] [END]".
std::optional<QString> dropIfExists(const Statement& s, int first)
{
    if (!s.isWord(first, u"IF") || !s.isWord(s.next(first), u"OBJECT_ID"))
        return std::nullopt;
    const int open = s.next(s.next(first));
    if (!s.isOpen(open))
        return std::nullopt;
    const int nameLiteral = s.next(open);
    if (!s.valid(nameLiteral) || (s[nameLiteral].kind != TokenKind::String &&
                                  s[nameLiteral].kind != TokenKind::UnicodeString))
        return std::nullopt;
    int i = s.next(s.partner(open));
    for (QStringView key : {u"IS", u"NOT", u"NULL"}) {
        if (!s.isWord(i, key))
            return std::nullopt;
        i = s.next(i);
    }
    const bool block = s.isWord(i, u"BEGIN");
    if (block)
        i = s.next(i);
    if (!s.isWord(i, u"DROP") || !s.isWord(s.next(i), u"TABLE"))
        return std::nullopt;
    const int name = s.next(s.next(i));
    if (!s.isName(name))
        return std::nullopt;
    const int last = s.nameLast(name);
    i = s.next(last);
    if (block) {
        if (s.isSym(i, u";"))
            i = s.next(i);
        if (!s.isWord(i, u"END"))
            return std::nullopt;
        i = s.next(i);
    }
    if (i < s.end())
        return std::nullopt;

    const QString literal = s[nameLiteral].source;
    QString object = literal.mid(literal.indexOf(u'\'') + 1);
    object.chop(1);
    object = undoubled(object, u'\'').section(u'.', -1);
    if (object.startsWith(u'[') && object.endsWith(u']'))
        object = object.mid(1, object.size() - 2);
    const QString table = s.bareName(last);
    if (object.compare(table, Qt::CaseInsensitive) != 0)
        return std::nullopt;
    const QString target = table.startsWith(u'#') ? QStringLiteral("temp.") + quoteIdentifier(table)
                                                  : s.text(name, last).trimmed();
    return QStringLiteral("DROP TABLE IF EXISTS ") + target;
}
} // namespace tarvello::db::tsql
