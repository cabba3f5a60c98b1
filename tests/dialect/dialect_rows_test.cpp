#include "platform/db/connection.h"
#include "platform/db/demodata.h"
#include "platform/db/runtimeerror.h"
#include "support/testdatabase.h"

#include <QDate>
#include <gtest/gtest.h>

using namespace tarvello;
using namespace tarvello::db;

namespace {

// The module's statements, run through the connection's rewriting against real rows of
// tables with the host's column names and kinds.
class DialectRows : public ::testing::TestWithParam<test::DatabaseTarget> {
protected:
    void SetUp() override
    {
        database = std::make_unique<test::TestDatabase>(GetParam());
        database->runScript(QStringLiteral(R"(
CREATE TABLE CG16_ANAGGEN (CG16_CODICE INTEGER PRIMARY KEY, CG16_RAGSOANAG VARCHAR(80));
CREATE TABLE MG17_AGENTI (MG17_IDAGENTE INTEGER PRIMARY KEY AUTOINCREMENT,
  MG17_DITTA_CG18 INT, MG17_AGENTE VARCHAR(20), MG17_ANAGEN_CG16 INT,
  MG17_IDAGERIF_MG17 INT, MG17_INDTIPOAGE SMALLINT);
CREATE TABLE MG18_AGENTISOCI (MG18_DITTA_CG18 INT, MG18_IDAGENTE_MG17 INT,
  MG18_CODSOCIO SMALLINT, MG18_NOMECOGN VARCHAR(30), MG18_DATAINRAPP DATETIME);
CREATE TABLE MG1H_GIRI (MG1H_DITTA_CG18 INT, MG1H_GIRO VARCHAR(3), MG1H_DESCRIZIONE VARCHAR(40));
CREATE TABLE MG1I_DETTAGLIOGIRI (MG1I_DITTA_CG18 INT, MG1I_IDAGENTE_MG17 INT,
  MG1I_GIRO_MG1H VARCHAR(3), MG1I_PROGRESSIVO SMALLINT, MG1I_TIPOCF_CG44 INT,
  MG1I_CLIFOR_CG44 INT, MG1I_CODDEST_MG22 VARCHAR(4));
CREATE TABLE MG1C_CLIFORAGEMUL (MG1C_DITTA_CG18 INT, MG1C_TIPOCF_CG44 INT,
  MG1C_CLIFOR_CG44 INT, MG1C_IDAGENTE_MG17 INT);
CREATE TABLE CO1C_ENTITADIV (CO1C_IDENTITADIV INTEGER PRIMARY KEY, CO1C_DITTA_CG18 INT,
  CO1C_IDENTITA INT, CO1C_IDAGENTE_MG17 INT);
CREATE TABLE CO1G_DETTAGENTE (CO1G_ID INTEGER PRIMARY KEY, CO1G_IDENTITADIV_CO1C INT);
CREATE TABLE DO21_DOCTESTAPROV (DO21_DITTA_CG18 INT, DO21_IDAGENTE_MG17 INT);
INSERT INTO CG16_ANAGGEN VALUES (1, N'ROSSI MARIO'), (2, N'BIANCHI SRL'), (3, N'D''ANGELO LUCA');
INSERT INTO MG17_AGENTI (MG17_DITTA_CG18, MG17_AGENTE, MG17_ANAGEN_CG16, MG17_IDAGERIF_MG17,
  MG17_INDTIPOAGE) VALUES (1, 'AREA1  ', 1, NULL, 2), (1, 'ZONA1', 2, 1, 1),
  (1, 'AG''01', 3, 2, 0), (1, 'NOREG', 99, 2, 0), (2, 'ALTRA', 1, NULL, 2);
INSERT INTO MG18_AGENTISOCI VALUES (1, 3, 1, 'VERDI', NULL), (1, 3, 2, 'NERI', NULL),
  (1, 2, 1, 'GIALLI', NULL);
INSERT INTO MG1H_GIRI VALUES (1, 'G1', 'Centro'), (1, 'G2', 'Nord'), (2, 'G1', 'Altrove');
INSERT INTO MG1I_DETTAGLIOGIRI VALUES (1, 2, 'G1', 1, 0, 500, NULL), (1, 2, 'G1', 2, 0, 500, 'D1'),
  (1, 2, 'G2', 1, 0, 600, NULL), (1, 3, 'G1', 1, 0, 500, NULL);
INSERT INTO MG1C_CLIFORAGEMUL VALUES (1, 0, 500, 3), (1, 0, 500, 3), (1, 0, 600, 2);
INSERT INTO CO1C_ENTITADIV VALUES (10, 1, 3, 3), (11, 1, 3, 2), (12, 2, 3, 3), (13, 1, 1, 3);
INSERT INTO CO1G_DETTAGENTE VALUES (100, 10), (101, 10), (102, 11), (103, 12), (104, 13);
INSERT INTO DO21_DOCTESTAPROV VALUES (1, 3), (1, 3), (2, 1);
)"));
    }

    Connection& db() { return database->connection(); }

    // Runs a statement; a failure names the statement and the driver's error.
    ResultSet query(const QString& tsql)
    {
        try {
            return db().query(tsql);
        } catch (const RuntimeError& e) {
            ADD_FAILURE() << e.description().toStdString();
            return {};
        }
    }

    // One column of every row, as texts ("NULL" for Null).
    QStringList column(const QString& tsql, QStringView name)
    {
        const ResultSet result = query(tsql);
        const int index = result.columnIndex(name);
        EXPECT_GE(index, 0) << "no column " << name.toString().toStdString();
        QStringList values;
        for (const ValueList& row : result.rows)
            values.append(row.value(index).isNull() ? QStringLiteral("NULL")
                                                    : row.value(index).toString());
        return values;
    }

    std::unique_ptr<test::TestDatabase> database;
};

const QString dropTree =
    QStringLiteral("IF OBJECT_ID('TEMPDB.DBO.#TAB_TREEVIEW') IS NOT NULL DROP TABLE #TAB_TREEVIEW");

QString buildTree(int company)
{
    return QStringLiteral(" SELECT ") + "     MG17_AGENTE  " + "     ,MG17_IDAGENTE  " +
           "     ,CG16_RAGSOANAG " + "     ,MG17_IDAGERIF_MG17 " + "     ,MG17_INDTIPOAGE " +
           " INTO " + "     #TAB_TREEVIEW " + " FROM  " + "     MG17_AGENTI WITH (NOLOCK)" +
           " INNER JOIN  " + "     CG16_ANAGGEN WITH (NOLOCK)" + " ON  " +
           "     CG16_CODICE = MG17_ANAGEN_CG16 " + " WHERE  " +
           "     MG17_DITTA_CG18 =  " + QString::number(company) + "     ORDER BY MG17_AGENTE";
}

const QString readTree = QStringLiteral(
    "SELECT RTRIM(MG17_AGENTE) + ' - ' + CG16_RAGSOANAG AS AGENTE, MG17_AGENTE, CG16_RAGSOANAG, "
    "MG17_IDAGENTE, MG17_IDAGERIF_MG17, MG17_INDTIPOAGE FROM #TAB_TREEVIEW ");

TEST_P(DialectRows, TheHierarchyTableIsBuiltInCodeOrderAndRebuilt)
{
    // The first build drops a table that does not exist yet; the second one an existing one.
    for (const int company : {1, 2, 1}) {
        query(dropTree);
        query(buildTree(company));
    }
    EXPECT_EQ(column(readTree, u"AGENTE"),
              QStringList({"AG'01 - D'ANGELO LUCA", "AREA1 - ROSSI MARIO", "ZONA1 - BIANCHI SRL"}));
    EXPECT_EQ(column(readTree, u"MG17_IDAGERIF_MG17"), QStringList({"2", "NULL", "1"}));
    EXPECT_EQ(column(QStringLiteral("SELECT ISNULL(MG17_IDAGERIF_MG17,0) AS MG17_IDAGERIF_MG17 "
                                    "FROM #TAB_TREEVIEW WHERE MG17_IDAGENTE = 1 "),
                     u"MG17_IDAGERIF_MG17"),
              QStringList{"0"});
    EXPECT_EQ(column(QStringLiteral("SELECT ISNULL(MG17_IDAGENTE,0) AS MG17_IDAGENTE FROM "
                                    "#TAB_TREEVIEW WHERE MG17_IDAGERIF_MG17 = 2 "),
                     u"MG17_IDAGENTE"),
              QStringList{"3"});
    query(dropTree);
    EXPECT_THROW(db().query(readTree), RuntimeError);
}

TEST_P(DialectRows, TheDivisionalDeleteRemovesOnlyTheAgentsRows)
{
    db().beginTrans();
    query(QStringLiteral("DELETE CO1G_DETTAGENTE FROM CO1C_ENTITADIV ") +
          "INNER JOIN CO1G_DETTAGENTE " + "ON CO1G_IDENTITADIV_CO1C = CO1C_IDENTITADIV " +
          "WHERE CO1C_DITTA_CG18  = " + "1" + " AND " + "      CO1C_IDENTITA    = 3 AND " +
          "      CO1C_IDAGENTE_MG17 = " + "3");
    query(QStringLiteral("DELETE FROM CO1C_ENTITADIV ") + "WHERE CO1C_DITTA_CG18  = " + "1" +
          " AND " + "      CO1C_IDENTITA    = 3 AND " + "      CO1C_IDAGENTE_MG17 = " + "3");
    db().commitTrans();
    EXPECT_EQ(
        column(QStringLiteral("SELECT CO1G_ID FROM CO1G_DETTAGENTE ORDER BY CO1G_ID"), u"CO1G_ID"),
        QStringList({"102", "103", "104"}));
    EXPECT_EQ(column(QStringLiteral("SELECT CO1C_IDENTITADIV FROM CO1C_ENTITADIV ORDER BY 1"),
                     u"CO1C_IDENTITADIV"),
              QStringList({"11", "12", "13"}));
}

TEST_P(DialectRows, ExistenceAndCountReadsGiveTheirRows)
{
    const QString multiAgent =
        QStringLiteral("SELECT TOP 1 1 FROM MG1C_CLIFORAGEMUL WITH (NOLOCK) ") +
        " WHERE MG1C_DITTA_CG18 = " + "1" + "   AND MG1C_TIPOCF_CG44 = 0 " +
        "   AND MG1C_CLIFOR_CG44  = ";
    EXPECT_EQ(query(multiAgent + "500" + "   AND MG1C_IDAGENTE_MG17 = " + "3").rows.size(), 1);
    EXPECT_EQ(query(multiAgent + "500" + "   AND MG1C_IDAGENTE_MG17 = " + "2").rows.size(), 0);

    const auto count = [this](int agent) {
        return column(QStringLiteral("SELECT COUNT(DO21_IDAGENTE_MG17) AS CONTATORE FROM "
                                     "DO21_DOCTESTAPROV ") +
                          " WHERE DO21_DITTA_CG18 = " + "1" +
                          " AND DO21_IDAGENTE_MG17 = " + QString::number(agent),
                      u"CONTATORE");
    };
    EXPECT_EQ(count(3), QStringList{"2"});
    EXPECT_EQ(count(1), QStringList{"0"});
}

TEST_P(DialectRows, CodesAndNamesWithQuotesAreFound)
{
    EXPECT_EQ(column(QStringLiteral("SELECT CG16_CODICE FROM CG16_ANAGGEN WHERE CG16_RAGSOANAG = "
                                    "N'D''ANGELO LUCA'"),
                     u"CG16_CODICE"),
              QStringList{"3"});
    EXPECT_EQ(column(QStringLiteral("SELECT MG17_IDAGENTE FROM MG17_AGENTI WITH (NOLOCK) WHERE "
                                    "MG17_DITTA_CG18 = 1 AND MG17_AGENTE = 'AG''01'"),
                     u"MG17_IDAGENTE"),
              QStringList{"3"});
    // The reference agent's own reference is read with the id written as a quoted text.
    EXPECT_EQ(column(QStringLiteral(" SELECT MG17_IDAGERIF_MG17  FROM MG17_AGENTI  WHERE  "
                                    "MG17_DITTA_CG18 = 1 AND MG17_IDAGENTE = '3'"),
                     u"MG17_IDAGERIF_MG17"),
              QStringList{"2"});
    // Numbers still add: only texts are joined.
    const QString sums = QStringLiteral(
        "SELECT MG17_IDAGENTE + MG17_INDTIPOAGE + 1 AS N, MG17_AGENTE + CG16_RAGSOANAG AS T FROM "
        "MG17_AGENTI INNER JOIN CG16_ANAGGEN ON CG16_CODICE = MG17_ANAGEN_CG16 WHERE "
        "MG17_IDAGENTE = 2");
    EXPECT_EQ(column(sums, u"N"), QStringList{"4"});
    EXPECT_EQ(column(sums, u"T"), QStringList{"ZONA1BIANCHI SRL"});
}

TEST_P(DialectRows, RouteDetailReadsMatchAMissingDestinationAsEmpty)
{
    const QString otherAgents =
        QStringLiteral("SELECT ROW_NUMBER() OVER (ORDER BY MG1I_DITTA_CG18) AS ID, * FROM "
                       "MG1I_DETTAGLIOGIRI WITH (NOLOCK) ") +
        " WHERE MG1I_DITTA_CG18 = " + "1" + "   AND MG1I_TIPOCF_CG44 = 0 " +
        "   AND MG1I_CLIFOR_CG44  = " + "500" + "   AND MG1I_IDAGENTE_MG17 <> " + "3" +
        "   AND ISNULL(MG1I_CODDEST_MG22, '') = '";
    EXPECT_EQ(column(otherAgents + "" + "' ", u"MG1I_PROGRESSIVO"), QStringList{"1"});
    EXPECT_EQ(column(otherAgents + "D1" + "' ", u"MG1I_PROGRESSIVO"), QStringList{"2"});
    EXPECT_EQ(column(otherAgents + "D1" + "' ", u"ID"), QStringList{"1"});

    const QString routes =
        QStringLiteral("SELECT DISTINCT MG1H_GIRO, MG1H_DESCRIZIONE FROM MG1I_DETTAGLIOGIRI WITH "
                       "(NOLOCK) ") +
        " INNER JOIN MG1H_GIRI WITH (NOLOCK) " + "    ON  MG1I_DITTA_CG18 = MG1H_DITTA_CG18  " +
        "   AND MG1H_GIRO = MG1I_GIRO_MG1H " + " WHERE MG1I_DITTA_CG18 = " + "1" +
        "   AND MG1I_IDAGENTE_MG17 = " + "2";
    QStringList found = column(routes, u"MG1H_DESCRIZIONE");
    found.sort();
    EXPECT_EQ(found, QStringList({"Centro", "Nord"}));
}

TEST_P(DialectRows, AnEmptyGridQueryHasTheColumnsAndNoRows)
{
    const ResultSet empty = query(QStringLiteral("SELECT ROW_NUMBER() OVER (ORDER BY "
                                                 "MG18_DITTA_CG18) AS ID, * FROM MG18_AGENTISOCI") +
                                  " WHERE 1 = 0");
    EXPECT_TRUE(empty.rows.isEmpty());
    QStringList names;
    for (const Column& c : empty.columns)
        names.append(c.name);
    EXPECT_EQ(names, QStringList({"ID", "MG18_DITTA_CG18", "MG18_IDAGENTE_MG17", "MG18_CODSOCIO",
                                  "MG18_NOMECOGN", "MG18_DATAINRAPP"}));

    const QString partners = QStringLiteral("SELECT ") +
                             " ROW_NUMBER() OVER (ORDER BY "
                             "MG18_DITTA_CG18) AS ID, *" +
                             " FROM" + " MG18_AGENTISOCI" + " WHERE" + " MG18_DITTA_CG18 = " + "1" +
                             " AND MG18_IDAGENTE_MG17 = " + "3";
    EXPECT_EQ(column(partners, u"ID"), QStringList({"1", "2"}));
}

// Dates are stored as "yyyy-MM-ddTHH:mm:ss": a date computed in SQL in another form would
// compare wrongly with a stored date of the same day.
TEST_P(DialectRows, ComputedDatesCompareWithStoredOnes)
{
    const QDate today = QDate::currentDate();
    const QString setDate =
        QStringLiteral("UPDATE MG18_AGENTISOCI SET MG18_DATAINRAPP = '%1' WHERE MG18_DITTA_CG18 = "
                       "1 AND MG18_IDAGENTE_MG17 = 3 AND MG18_CODSOCIO = %2");
    query(setDate.arg(today.toString(Qt::ISODate) + QStringLiteral("T00:00:00")).arg(1));
    query(setDate.arg(QStringLiteral("2999-01-31T00:00:00")).arg(2));

    EXPECT_EQ(column(QStringLiteral("SELECT MG18_NOMECOGN FROM MG18_AGENTISOCI WHERE "
                                    "MG18_DATAINRAPP <= GETDATE()"),
                     u"MG18_NOMECOGN"),
              QStringList{"VERDI"});
    EXPECT_EQ(column(QStringLiteral("SELECT CONVERT(VARCHAR(10), MG18_DATAINRAPP, 103) AS D FROM "
                                    "MG18_AGENTISOCI WHERE MG18_CODSOCIO = 2"),
                     u"D"),
              QStringList{"31/01/2999"});
    const QStringList sameDay = column(QStringLiteral("SELECT MG18_NOMECOGN FROM MG18_AGENTISOCI "
                                                      "WHERE CAST(MG18_DATAINRAPP AS DATE) = "
                                                      "CAST(GETDATE() AS DATE)"),
                                       u"MG18_NOMECOGN");
    if (QDate::currentDate() != today)
        GTEST_SKIP() << "the day changed while the test ran";
    EXPECT_EQ(sameDay, QStringList{"VERDI"});
}

// SQLite given SQL Server's meanings by the connection's own engine; the SQLite ODBC driver
// cannot be given them, so this runs on the direct engine only.
TEST(TsqlMeanings, TextsJoinCompareAndChangeCaseAsOnSqlServer)
{
    test::TestDatabase database(test::DatabaseTarget{QStringLiteral("sqlite"), false});
    Connection& db = database.connection();
    createSchema(db);
    db.executeNonQuery(QStringLiteral(
        "INSERT INTO CG18_DITTE (CG18_DITTA, CG18_RAGSOC) VALUES (1, N'DITTA'), (2, N'ALTRA  ')"));
    const auto first = [&db](const char* tsql) {
        return db.query(QString::fromUtf8(tsql)).rows.value(0);
    };

    EXPECT_EQ(first("SELECT A + B, C + D FROM (SELECT 'x' AS A, 'y' AS B, 1 AS C, 2 AS D) T"),
              (ValueList{"xy", 3}));
    EXPECT_EQ(first("SELECT COUNT(*) FROM CG18_DITTE WHERE CG18_RAGSOC = 'DITTA  '"), ValueList{1});
    EXPECT_EQ(first("SELECT CG18_DITTA FROM CG18_DITTE WHERE CG18_RAGSOC = N'altra'"),
              ValueList{2});
    EXPECT_EQ(first("SELECT UPPER(N'àb'), LOWER(N'ÀÉ'), UPPER(NULL)"),
              (ValueList{"ÀB", "àé", Value::null()}));
}

INSTANTIATE_TEST_SUITE_P(Targets, DialectRows, ::testing::ValuesIn(test::databaseTargets()),
                         [](const auto& info) { return test::targetName(info.param); });

} // namespace
