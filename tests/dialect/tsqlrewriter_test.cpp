#include "platform/db/liftedconstants.h"
#include "platform/db/tsqlrewriter.h"

#include <QSet>
#include <gtest/gtest.h>

namespace tarvello::db {
namespace {

// The lookup a connection would give over the host schema: these columns hold text.
bool isHostTextColumn(QStringView column)
{
    static const QSet<QString> textColumns{
        QStringLiteral("MG17_AGENTE"), QStringLiteral("CG16_RAGSOANAG"),
        QStringLiteral("MG1I_CODDEST_MG22"), QStringLiteral("MG1I_GIRO_MG1H"),
        QStringLiteral("MG1H_DESCRIZIONE")};
    return textColumns.contains(column.toString().toUpper());
}

TsqlRewriter hostRewriter()
{
    return TsqlRewriter(isHostTextColumn);
}

QString single(const QString& tsql)
{
    const QStringList statements = hostRewriter().rewrite(tsql);
    EXPECT_EQ(statements.size(), 1) << statements.join(u'\n').toStdString();
    return statements.value(0);
}

#define EXPECT_REWRITE(tsql, sqlite) EXPECT_EQ(single(tsql).toStdString(), std::string(sqlite))

TEST(TsqlRewriter, removesTableHintsButNotInsideLiterals)
{
    EXPECT_REWRITE("SELECT MG17_AGENTE FROM MG17_AGENTI WITH (NOLOCK) WHERE MG17_IDAGENTE = 5",
                   "SELECT MG17_AGENTE FROM MG17_AGENTI WHERE MG17_IDAGENTE = 5");
    EXPECT_REWRITE("SELECT * FROM T WITH (NOLOCK, INDEX(IX_T)) WHERE a = 1",
                   "SELECT * FROM T WHERE a = 1");
    EXPECT_REWRITE("SELECT * FROM T a (NOLOCK) WHERE a.x = 1", "SELECT * FROM T a WHERE a.x = 1");
    EXPECT_REWRITE("SELECT 'WITH (NOLOCK)' AS X FROM T WITH (NOLOCK)",
                   "SELECT 'WITH (NOLOCK)' AS X FROM T");
    // A comment is blanked: a keyword inside it must not be rewritten into the statement.
    EXPECT_REWRITE("SELECT a /* TOP 5 WITH (NOLOCK) */ FROM T", "SELECT a   FROM T");
}

TEST(TsqlRewriter, writesLiteralsAndNamesForSqlite)
{
    EXPECT_REWRITE("SELECT CG16_CODICE FROM CG16_ANAGGEN WHERE CG16_RAGSOANAG = N'D''ANGELO'",
                   "SELECT CG16_CODICE FROM CG16_ANAGGEN WHERE CG16_RAGSOANAG = 'D''ANGELO'");
    EXPECT_REWRITE("SELECT [MG17_AGENTE], [a]]b] FROM [dbo].[MG17_AGENTI]",
                   "SELECT \"MG17_AGENTE\", \"a]b\" FROM \"MG17_AGENTI\"");
    EXPECT_REWRITE("SELECT * FROM dbo.MG17_AGENTI", "SELECT * FROM MG17_AGENTI");
    // Quote-doubled texts keep every character, N and keywords included.
    EXPECT_REWRITE("SELECT 'N''X' + N'' FROM T WHERE c = 'IS''NULL(a)'",
                   "SELECT 'N''X' || '' FROM T WHERE c = 'IS''NULL(a)'");
    EXPECT_REWRITE("SELECT name FROM T WHERE name = 'ISNULL(a, b) + LEN(c)'",
                   "SELECT name FROM T WHERE name = 'ISNULL(a, b) + LEN(c)'");
}

TEST(TsqlRewriter, translatesFunctions)
{
    EXPECT_REWRITE("SELECT ISNULL(MG17_IDAGERIF_MG17,0) AS MG17_IDAGERIF_MG17 FROM TREE "
                   "WHERE MG17_IDAGENTE = 7 ",
                   "SELECT IFNULL(MG17_IDAGERIF_MG17,0) AS MG17_IDAGERIF_MG17 FROM TREE WHERE "
                   "MG17_IDAGENTE = 7");
    EXPECT_REWRITE("SELECT LEN(a), SUBSTRING(b, 2, 3) FROM T",
                   "SELECT LENGTH(RTRIM(a)), SUBSTR(b, 2, 3) FROM T");
    EXPECT_REWRITE("SELECT LEFT(a, 3), RIGHT(b, 2) FROM T LEFT JOIN U ON 1 = 1",
                   "SELECT SUBSTR(a, 1, 3), SUBSTR(b, -(2), 2) FROM T LEFT JOIN U ON 1 = 1");
    EXPECT_REWRITE("SELECT GETDATE()", "SELECT strftime('%Y-%m-%dT%H:%M:%S', 'now', 'localtime')");
    EXPECT_REWRITE("SELECT SCOPE_IDENTITY(), @@IDENTITY",
                   "SELECT last_insert_rowid(), last_insert_rowid()");
    EXPECT_REWRITE("SELECT LEN(ISNULL(a, '')) FROM T",
                   "SELECT LENGTH(RTRIM(IFNULL(a, ''))) FROM T");
}

TEST(TsqlRewriter, translatesConversions)
{
    EXPECT_REWRITE("SELECT CONVERT(VARCHAR(10), n) FROM T",
                   "SELECT SUBSTR(CAST(n AS TEXT), 1, 10) FROM T");
    EXPECT_REWRITE("SELECT CAST(n AS NVARCHAR(5)) FROM T",
                   "SELECT SUBSTR(CAST(n AS TEXT), 1, 5) FROM T");
    EXPECT_REWRITE("SELECT CAST(n AS VARCHAR) FROM T",
                   "SELECT SUBSTR(CAST(n AS TEXT), 1, 30) FROM T");
    EXPECT_REWRITE("SELECT CAST(n AS NVARCHAR(MAX)) FROM T", "SELECT CAST(n AS TEXT) FROM T");
    EXPECT_REWRITE("SELECT CAST(c AS CHAR(3)) FROM T",
                   "SELECT SUBSTR(CAST(c AS TEXT) || '   ', 1, 3) FROM T");
    EXPECT_REWRITE("SELECT CONVERT(VARCHAR(10), d, 103) FROM T",
                   "SELECT SUBSTR(strftime('%d/%m/%Y', d), 1, 10) FROM T");
    EXPECT_REWRITE("SELECT CONVERT(INT, c), CAST(c AS DECIMAL(9,3)) FROM T",
                   "SELECT CAST(c AS INT), CAST(c AS DECIMAL(9,3)) FROM T");
    EXPECT_REWRITE(
        "SELECT CAST(d AS DATE), CONVERT(DATETIME, d) FROM T",
        "SELECT strftime('%Y-%m-%dT00:00:00', d), strftime('%Y-%m-%dT%H:%M:%S', d) FROM T");
    // A style with no SQLite equivalent is left as written, so it fails instead of lying.
    EXPECT_REWRITE("SELECT CONVERT(VARCHAR(10), d, 999) FROM T",
                   "SELECT CONVERT(VARCHAR(10), d, 999) FROM T");
}

TEST(TsqlRewriter, joinsTextsWithConcatenationAndKeepsArithmetic)
{
    EXPECT_REWRITE("SELECT MG17_AGENTE + CG16_RAGSOANAG, a.MG17_AGENTE + [CG16_RAGSOANAG] FROM T a",
                   "SELECT MG17_AGENTE || CG16_RAGSOANAG, a.MG17_AGENTE || \"CG16_RAGSOANAG\" FROM "
                   "T a");
    EXPECT_REWRITE("SELECT MG17_IDAGENTE + 1, MG17_IDAGENTE + MG18_CODSOCIO, '2' + 3 FROM T",
                   "SELECT MG17_IDAGENTE + 1, MG17_IDAGENTE + MG18_CODSOCIO, '2' + 3 FROM T");
    EXPECT_REWRITE("SELECT CONVERT(VARCHAR(5), n) + CAST(m AS VARCHAR(5)) + UPPER(x) FROM T",
                   "SELECT SUBSTR(CAST(n AS TEXT), 1, 5) || SUBSTR(CAST(m AS TEXT), 1, 5) || "
                   "UPPER(x) FROM T");
    EXPECT_REWRITE("SELECT ISNULL(MG1I_CODDEST_MG22, '') + '/' + (MG17_AGENTE + 'x') FROM T",
                   "SELECT IFNULL(MG1I_CODDEST_MG22, '') || '/' || (MG17_AGENTE || 'x') FROM T");
    EXPECT_REWRITE(
        "SELECT CASE WHEN a = 1 THEN 'x' + MG17_AGENTE ELSE MG17_AGENTE END + '!' FROM T",
        "SELECT CASE WHEN a = 1 THEN 'x' || MG17_AGENTE ELSE MG17_AGENTE END || '!' FROM T");
    // '||' binds tighter than '+' in SQLite: the arithmetic start must stay one operand.
    EXPECT_REWRITE("SELECT a + b + 'x' FROM T", "SELECT (a + b) || 'x' FROM T");
    EXPECT_REWRITE("SELECT * FROM T WHERE MG17_AGENTE + 'x' = N'A' + 'x' AND n = -1 + 2",
                   "SELECT * FROM T WHERE MG17_AGENTE || 'x' = 'A' || 'x' AND n = -1 + 2");
}

TEST(TsqlRewriter, turnsTopIntoLimit)
{
    EXPECT_REWRITE("SELECT DISTINCT TOP (5) a FROM T ORDER BY a DESC",
                   "SELECT DISTINCT a FROM T ORDER BY a DESC LIMIT 5");
    EXPECT_REWRITE("SELECT a FROM T WHERE b = (SELECT TOP 1 b FROM U ORDER BY c)",
                   "SELECT a FROM T WHERE b = (SELECT b FROM U ORDER BY c LIMIT 1)");
    EXPECT_REWRITE("SELECT TOP 2 a FROM T UNION SELECT b FROM U",
                   "SELECT * FROM (SELECT a FROM T LIMIT 2) UNION SELECT b FROM U");
    EXPECT_REWRITE("SELECT TOP 1 a FROM T WITH (NOLOCK)", "SELECT a FROM T LIMIT 1");
}

TEST(TsqlRewriter, buildsTheHierarchyTableAsTemporaryTable)
{
    const QString drop =
        QStringLiteral("IF OBJECT_ID('TEMPDB.DBO.#TAB_TREEVIEW') IS NOT NULL DROP TABLE "
                       "#TAB_TREEVIEW");
    EXPECT_EQ(single(drop), QStringLiteral("DROP TABLE IF EXISTS temp.\"#TAB_TREEVIEW\""));
    for (const char* variant :
         {"IF OBJECT_ID('tempdb..#T') IS NOT NULL DROP TABLE #T",
          "if object_id ( N'tempdb..#t' , 'U' )  is not null\n  drop table #T",
          "IF OBJECT_ID('tempdb..#T', 'U') IS NOT NULL BEGIN DROP TABLE #T; END",
          "IF OBJECT_ID('tempdb..#T') IS NOT NULL\nBEGIN\n  DROP TABLE [#T]\nEND"}) {
        EXPECT_EQ(single(QString::fromUtf8(variant)),
                  QStringLiteral("DROP TABLE IF EXISTS temp.\"#T\""))
            << variant;
    }
    // Another table than the one tested is not the same statement: left for SQLite to refuse.
    EXPECT_REWRITE("IF OBJECT_ID('tempdb..#A') IS NOT NULL DROP TABLE #B",
                   "IF OBJECT_ID('tempdb..#A') IS NOT NULL DROP TABLE \"#B\"");

    EXPECT_REWRITE("SELECT TOP 3 a INTO Copia FROM T",
                   "CREATE TABLE Copia AS SELECT a FROM T LIMIT 3");
    EXPECT_REWRITE("CREATE TABLE #W (a INT)", "CREATE TEMP TABLE \"#W\" (a INT)");
    EXPECT_REWRITE("INSERT INTO #W (a) SELECT 1", "INSERT INTO \"#W\" (a) SELECT 1");
}

// A walk up a temporary hierarchy looks up one row per level: without an index each lookup
// scans the whole table, and a deep chain over many agents takes seconds.
TEST(TsqlRewriter, indexesTheTemporaryTableALookupReadsByOneColumn)
{
    EXPECT_EQ(hostRewriter().rewrite(
                  QStringLiteral("SELECT ISNULL(MG17_IDAGENTE,0) AS MG17_IDAGENTE FROM "
                                 "#TAB_TREEVIEW WHERE MG17_IDAGERIF_MG17 = 12 ")),
              QStringList({QStringLiteral("CREATE INDEX IF NOT EXISTS "
                                          "temp.\"#TAB_TREEVIEW_MG17_IDAGERIF_MG17\" ON "
                                          "\"#TAB_TREEVIEW\" (\"MG17_IDAGERIF_MG17\")"),
                           QStringLiteral("SELECT IFNULL(MG17_IDAGENTE,0) AS MG17_IDAGENTE FROM "
                                          "\"#TAB_TREEVIEW\" WHERE MG17_IDAGERIF_MG17 = 12")}));
    for (const char* other : {"SELECT a FROM T WHERE b = 1", "SELECT a FROM #T t WHERE t.b = 1",
                              "SELECT a FROM #T WHERE 1 = 1", "SELECT a FROM #T"})
        EXPECT_EQ(hostRewriter().rewrite(QString::fromLatin1(other)).size(), 1) << other;
}

TEST(TsqlRewriter, turnsDeleteWithJoinIntoRowidSubquery)
{
    EXPECT_REWRITE("DELETE d FROM CO1C_ENTITADIV c INNER JOIN CO1G_DETTAGENTE AS d ON "
                   "d.CO1G_IDENTITADIV_CO1C = c.CO1C_IDENTITADIV WHERE c.CO1C_IDENTITA = 3",
                   "DELETE FROM CO1G_DETTAGENTE WHERE rowid IN (SELECT d.rowid FROM CO1C_ENTITADIV "
                   "c INNER JOIN CO1G_DETTAGENTE AS d ON d.CO1G_IDENTITADIV_CO1C = "
                   "c.CO1C_IDENTITADIV WHERE c.CO1C_IDENTITA = 3)");
    EXPECT_REWRITE(
        "DELETE FROM T FROM T WITH (NOLOCK) INNER JOIN U ON U.k = T.k",
        "DELETE FROM T WHERE rowid IN (SELECT T.rowid FROM T INNER JOIN U ON U.k = T.k)");
    EXPECT_REWRITE("DELETE FROM  MG18_AGENTISOCI WHERE MG18_DITTA_CG18 = 1 AND "
                   "MG18_IDAGENTE_MG17 = 5",
                   "DELETE FROM  MG18_AGENTISOCI WHERE MG18_DITTA_CG18 = 1 AND "
                   "MG18_IDAGENTE_MG17 = 5");
    EXPECT_REWRITE("DELETE #W WHERE a = 1", "DELETE FROM \"#W\" WHERE a = 1");
}

// Tests and scenarios set traps with triggers: the body's own ';' must not cut the CREATE.
TEST(TsqlRewriter, keepsATriggerBodyInItsCreateStatement)
{
    const QString trigger = QStringLiteral(
        "CREATE TRIGGER T_NO BEFORE DELETE ON T BEGIN SELECT RAISE(ABORT, 'no'); END");
    EXPECT_EQ(single(trigger), trigger);
    const QStringList statements =
        hostRewriter().rewrite(trigger + QStringLiteral("; DELETE FROM T WHERE a = 1"));
    ASSERT_EQ(statements.size(), 2) << statements.join(u'\n').toStdString();
    EXPECT_EQ(statements.at(1), QStringLiteral("DELETE FROM T WHERE a = 1"));
}

TEST(TsqlRewriter, splitsBatchesIntoStatements)
{
    const QStringList statements = hostRewriter().rewrite(
        QStringLiteral("SET NOCOUNT ON;\n"
                       "IF OBJECT_ID('tempdb..#T') IS NOT NULL DROP TABLE #T\n"
                       "SELECT a INTO #T FROM U WHERE b = 'x;y'\n"
                       "GO\n"
                       "INSERT INTO V (a) SELECT a FROM #T UNION ALL SELECT 2\n"
                       "UPDATE V SET a = 1 WHERE a = 2; ; DELETE FROM V"));
    EXPECT_EQ(
        statements,
        QStringList({QStringLiteral("DROP TABLE IF EXISTS temp.\"#T\""),
                     QStringLiteral("CREATE TEMP TABLE \"#T\" AS SELECT a FROM U WHERE b = 'x;y'"),
                     QStringLiteral("INSERT INTO V (a) SELECT a FROM \"#T\" UNION ALL SELECT 2"),
                     QStringLiteral("UPDATE V SET a = 1 WHERE a = 2"),
                     QStringLiteral("DELETE FROM V")}));
    EXPECT_TRUE(hostRewriter().rewrite(QStringLiteral("SET NOCOUNT OFF")).isEmpty());
}

TEST(TsqlRewriter, leavesAnUndecidedPlusToTheValuesWhereTheEngineCan)
{
    const TsqlRewriter deciding(isHostTextColumn, TsqlRewriter::UndecidedPlus::CallTsqlAdd);
    EXPECT_EQ(deciding.rewrite(QStringLiteral(
                  "SELECT A + B, A + B + C, A + B + 'x', 1 + A, A - B + C, MG17_AGENTE + A "
                  "FROM (SELECT 'x' AS A, 'y' AS B, 'z' AS C) T")),
              QStringList{QStringLiteral(
                  "SELECT tsql_add(A, B), tsql_add(tsql_add(A, B), C), tsql_add(A, B) || 'x', "
                  "1 + A, A - B + C, MG17_AGENTE || A FROM (SELECT 'x' AS A, 'y' AS B, 'z' AS "
                  "C) T")});
}

TEST(TsqlRewriter, withoutLookupTreatsOnlyKnownTextsAsText)
{
    const TsqlRewriter bare;
    EXPECT_EQ(bare.rewrite(QStringLiteral("SELECT a + b, a + 'x' FROM T")),
              QStringList{QStringLiteral("SELECT a + b, a || 'x' FROM T")});
}

TEST(LiftedConstants, bindsOnlyWholeConstantsComparedAfterTheFrom)
{
    const std::optional<LiftedStatement> lifted = liftComparedConstants(QStringLiteral(
        "SELECT A = 1, 'x' FROM \"T=1\" WHERE B=7 AND C <> 'it''s' AND D >= -3 AND E = 1.5 "
        "AND F IN (4, 5) AND G = (SELECT 2) -- H = 9\n AND I != 0x10 AND J<=12"));
    ASSERT_TRUE(lifted);
    EXPECT_EQ(lifted->sql.toStdString(),
              "SELECT A = 1, 'x' FROM \"T=1\" WHERE B=? AND C <> ? AND D >= -3 AND E = 1.5 "
              "AND F IN (4, 5) AND G = (SELECT 2) -- H = 9\n AND I != 0x10 AND J<=?");
    EXPECT_EQ(lifted->parameters, (ValueList{7, QStringLiteral("it's"), 12}));
    EXPECT_FALSE(liftComparedConstants(QStringLiteral("SELECT A FROM T WHERE B = ? AND C = 1")));
    EXPECT_FALSE(liftComparedConstants(QStringLiteral("DELETE FROM T WHERE B = 1")));
    EXPECT_FALSE(liftComparedConstants(QStringLiteral("SELECT A FROM T WHERE B = C")));
}

} // namespace
} // namespace tarvello::db
