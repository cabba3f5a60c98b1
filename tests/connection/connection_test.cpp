#include "platform/db/connection.h"
#include "platform/db/recordset.h"
#include "platform/db/runtimeerror.h"
#include "support/testdatabase.h"

#include <gtest/gtest.h>

using namespace tarvello;
using namespace tarvello::db;

class ConnectionTest : public ::testing::TestWithParam<test::DatabaseTarget> {
protected:
    void SetUp() override
    {
        database = std::make_unique<test::TestDatabase>(GetParam());
        db().executeNonQuery(QStringLiteral(
            "CREATE TABLE T1 (T1_ID INTEGER PRIMARY KEY AUTOINCREMENT, T1_CODE VARCHAR(20) NOT "
            "NULL, T1_QTY DECIMAL(9,3), T1_DAY DATETIME, T1_KIND SMALLINT DEFAULT -1)"));
    }
    Connection& db() { return database->connection(); }
    std::unique_ptr<test::TestDatabase> database;
};

TEST_P(ConnectionTest, ExecuteReturnsTypedRowsWithAnExactCount)
{
    db().executeNonQuery(QStringLiteral(
        "INSERT INTO T1 (T1_CODE, T1_QTY, T1_DAY) VALUES ('A''1', 12.5, '2024-03-01T00:00:00')"));
    db().executeNonQuery(QStringLiteral("INSERT INTO T1 (T1_CODE) VALUES ('B')"));
    const RecordsetPtr rs = db().execute(QStringLiteral("SELECT * FROM T1 ORDER BY T1_CODE"));
    ASSERT_EQ(rs->recordCount(), 2);
    EXPECT_TRUE(rs->isReadOnly());
    EXPECT_EQ(rs->value(u"T1_CODE"), Value("A'1"));
    EXPECT_EQ(rs->value(u"T1_QTY").kind(), Value::Kind::Decimal);
    EXPECT_EQ(rs->value(u"T1_QTY").toString(), QStringLiteral("12.5"));
    EXPECT_EQ(rs->value(u"T1_DAY").toDate(), QDate(2024, 3, 1));
    EXPECT_EQ(rs->value(u"T1_KIND"), Value(-1));
    rs->moveNext();
    EXPECT_TRUE(rs->value(u"T1_QTY").isNull());
    EXPECT_THROW(rs->setValue(u"T1_CODE", "X"), RuntimeError);
}

TEST_P(ConnectionTest, AFailingStatementRaisesTheProviderErrorWithTheOriginalText)
{
    const QString tsql = QStringLiteral("SELECT NOPE FROM T1 WITH (NOLOCK)");
    try {
        db().execute(tsql);
        FAIL() << "no error raised";
    } catch (const RuntimeError& e) {
        EXPECT_NE(e.number(), 0);
        EXPECT_TRUE(e.description().contains(tsql)) << e.description().toStdString();
    }
    ASSERT_EQ(db().errors().size(), 1);
    EXPECT_FALSE(db().errors().first().description.isEmpty());
}

TEST_P(ConnectionTest, TransactionsNestAndAGuardRollsBackUnlessCommitted)
{
    {
        TransactionGuard outer(db());
        db().executeNonQuery(QStringLiteral("INSERT INTO T1 (T1_CODE) VALUES ('KEPT')"));
        {
            TransactionGuard inner(db());
            db().executeNonQuery(QStringLiteral("INSERT INTO T1 (T1_CODE) VALUES ('DROPPED')"));
        }
        outer.commit();
    }
    {
        TransactionGuard abandoned(db());
        db().executeNonQuery(QStringLiteral("INSERT INTO T1 (T1_CODE) VALUES ('LOST')"));
    }
    EXPECT_EQ(db().transactionLevel(), 0);
    const RecordsetPtr rs = db().execute(QStringLiteral("SELECT T1_CODE FROM T1"));
    ASSERT_EQ(rs->recordCount(), 1);
    EXPECT_EQ(rs->value(u"T1_CODE"), Value("KEPT"));
}

// A deferred foreign key is checked at COMMIT, which SQLite then refuses while keeping the
// transaction (and its write lock) open.
TEST_P(ConnectionTest, ACommitTheDatabaseRefusesLeavesTheConnectionRolledBackAndUsable)
{
    db().executeNonQuery(QStringLiteral("CREATE TABLE P (P_ID INTEGER PRIMARY KEY)"));
    db().executeNonQuery(QStringLiteral(
        "CREATE TABLE C (C_P INT REFERENCES P (P_ID) DEFERRABLE INITIALLY DEFERRED)"));
    {
        TransactionGuard transaction(db());
        db().executeNonQuery(QStringLiteral("INSERT INTO C (C_P) VALUES (7)"));
        EXPECT_THROW(transaction.commit(), RuntimeError);
    }
    EXPECT_EQ(db().transactionLevel(), 0);

    Connection other;
    other.open(database->connectionStringWaiting(200));
    EXPECT_NO_THROW(other.executeNonQuery(QStringLiteral("INSERT INTO T1 (T1_CODE) VALUES ('B')")))
        << "no lock is left behind";
    {
        TransactionGuard transaction(db());
        db().executeNonQuery(QStringLiteral("INSERT INTO T1 (T1_CODE) VALUES ('A')"));
        transaction.commit();
    }
    EXPECT_EQ(db().execute(QStringLiteral("SELECT COUNT(*) FROM C"))->value(0), Value(0));
    EXPECT_EQ(db().execute(QStringLiteral("SELECT COUNT(*) FROM T1"))->value(0), Value(2));
}

// A RAISE(ROLLBACK) ends the whole transaction inside SQLite, savepoints and all; statements
// after it would otherwise be committed one by one.
TEST_P(ConnectionTest, ATransactionTheDatabaseDropsWritesNothingMoreUntilEveryLevelEnds)
{
    db().run(QStringLiteral("CREATE TRIGGER T1_NO BEFORE INSERT ON T1 WHEN NEW.T1_CODE = 'NO' "
                            "BEGIN SELECT RAISE(ROLLBACK, 'refused'); END"));
    const auto insert = [this](const char* code) {
        db().executeNonQuery(
            QStringLiteral("INSERT INTO T1 (T1_CODE) VALUES ('%1')").arg(QLatin1String(code)));
    };
    {
        TransactionGuard outer(db());
        insert("A");
        {
            TransactionGuard inner(db());
            insert("B");
            EXPECT_THROW(insert("NO"), RuntimeError);
            EXPECT_TRUE(db().transactionAborted());
            try {
                insert("C");
                FAIL() << "a statement ran outside the transaction it was meant for";
            } catch (const RuntimeError& e) {
                EXPECT_EQ(e.number(), RuntimeError::TransactionAborted);
            }
        }
        EXPECT_THROW(outer.commit(), RuntimeError);
    }
    EXPECT_EQ(db().transactionLevel(), 0);
    EXPECT_FALSE(db().transactionAborted());
    EXPECT_EQ(db().execute(QStringLiteral("SELECT COUNT(*) FROM T1"))->value(0), Value(0));

    TransactionGuard again(db());
    insert("D");
    again.commit();
    EXPECT_EQ(db().execute(QStringLiteral("SELECT T1_CODE FROM T1"))->value(0), Value("D"));
}

TEST_P(ConnectionTest, InsertRowReadsTheIdentityBack)
{
    const Value first = db().insertRow(QStringLiteral("T1"), {QStringLiteral("T1_CODE")}, {"A"},
                                       QStringLiteral("T1_ID"));
    const Value second = db().insertRow(QStringLiteral("T1"), {QStringLiteral("T1_CODE")}, {"B"},
                                        QStringLiteral("T1_ID"));
    EXPECT_EQ(second.toInt64(), first.toInt64() + 1);
    const TableInfo& info = db().tableInfo(QStringLiteral("T1"));
    EXPECT_EQ(info.identityColumn(), QStringLiteral("T1_ID"));
    EXPECT_EQ(info.column(u"T1_KIND")->defaultValue, Value(-1));
}

TEST_P(ConnectionTest, LookupsByConstantsKeepTheirMeaningAndIndexAcrossSchemaChanges)
{
    const auto one = [this](const char* tsql) {
        return db().query(QString::fromLatin1(tsql)).rows.value(0);
    };
    db().executeNonQuery(QStringLiteral("INSERT INTO T1 (T1_CODE, T1_KIND) VALUES ('5', 1)"));
    db().executeNonQuery(QStringLiteral("INSERT INTO T1 (T1_CODE, T1_KIND) VALUES ('O''B', 2)"));
    // A number compared with a text column matches its text, as its literal does.
    EXPECT_EQ(one("SELECT T1_KIND FROM T1 WHERE T1_CODE = 5"), ValueList{1});
    EXPECT_EQ(one("SELECT T1_KIND FROM T1 WHERE T1_CODE = 'O''B'"), ValueList{2});
    EXPECT_EQ(one("SELECT T1_KIND FROM T1 WHERE T1_CODE = 'O''B' AND T1_KIND = 1"), ValueList{});
    EXPECT_EQ(db().query(QStringLiteral("SELECT T1_KIND > 1 FROM T1 WHERE T1_KIND = 2"))
                  .columns.value(0)
                  .name,
              QStringLiteral("T1_KIND > 1"));

    // The same lookup of a temporary table made again with other columns reads the new ones.
    db().executeNonQuery(QStringLiteral("SELECT T1_ID, T1_CODE INTO #L FROM T1"));
    EXPECT_EQ(one("SELECT * FROM #L WHERE T1_CODE = '5'").size(), 2);
    db().executeNonQuery(QStringLiteral("DROP TABLE #L"));
    db().executeNonQuery(QStringLiteral("SELECT T1_ID, T1_CODE, T1_KIND INTO #L FROM T1"));
    EXPECT_EQ(one("SELECT * FROM #L WHERE T1_CODE = 'O''B'").value(2), Value(2));
    // So does a parameterised question kept prepared, after the table is made again or
    // altered: a statement described before it ran would give the old columns.
    const auto row = [this] {
        return db().run(QStringLiteral("SELECT * FROM P WHERE A = ?"), {1}).rows.value(0);
    };
    db().run(QStringLiteral("CREATE TABLE P (A INT)"));
    db().run(QStringLiteral("INSERT INTO P VALUES (1)"));
    EXPECT_EQ(row(), ValueList{1});
    db().run(QStringLiteral("DROP TABLE P"));
    db().run(QStringLiteral("CREATE TABLE P (A INT, B INT)"));
    db().run(QStringLiteral("INSERT INTO P VALUES (1, 2)"));
    EXPECT_EQ(row(), (ValueList{1, 2}));
    db().run(QStringLiteral("ALTER TABLE P ADD C INT DEFAULT 3"));
    EXPECT_EQ(row(), (ValueList{1, 2, 3}));
    // A second user changes the table under the statement kept (an ODBC driver describes a
    // statement once, when it is prepared: only our own changes are seen there).
    if (!GetParam().viaOdbc) {
        Connection other;
        other.open(database->connectionString());
        other.run(QStringLiteral("ALTER TABLE P ADD D INT DEFAULT 4"));
        EXPECT_EQ(row(), (ValueList{1, 2, 3, 4}));
    }

    // A column another connection adds is described and joins texts at once: the knowledge
    // of the schema kept between statements is checked against the database's each time, also
    // when a recordset is opened again on a text already run.
    const QString all = QStringLiteral("SELECT * FROM T1");
    const RecordsetPtr rows = Recordset::open(db(), all);
    EXPECT_EQ(db().tableInfo(QStringLiteral("T1")).column(u"T1_NOTE"), nullptr);
    Connection other;
    other.open(database->connectionString());
    other.executeNonQuery(QStringLiteral("ALTER TABLE T1 ADD T1_NOTE VARCHAR(4) DEFAULT 'n'"));
    if (!GetParam().viaOdbc) {
        rows->reopen(db(), all);
        EXPECT_EQ(rows->field(rows->fieldIndex(u"T1_NOTE")).baseColumn, QStringLiteral("T1_NOTE"));
    }
    ASSERT_NE(db().tableInfo(QStringLiteral("T1")).column(u"T1_NOTE"), nullptr);
    EXPECT_EQ(one("SELECT T1_NOTE + T1_CODE FROM T1 WHERE T1_KIND = 1"), ValueList{"n5"});
    if (db().dialect() != Dialect::Sqlite)
        return;
    // The index a lookup of a temporary table makes stands again after the table was made
    // again, and after a rollback undid it.
    const auto indexes = [this] {
        return db()
            .query(QStringLiteral("SELECT COUNT(*) FROM sqlite_temp_master WHERE type = 'index'"))
            .rows.value(0)
            .value(0);
    };
    EXPECT_EQ(indexes(), Value(1));
    db().executeNonQuery(QStringLiteral("DROP TABLE #L"));
    db().executeNonQuery(QStringLiteral("SELECT T1_ID, T1_CODE INTO #L FROM T1"));
    {
        TransactionGuard undone(db());
        one("SELECT T1_ID FROM #L WHERE T1_CODE = '5'");
        EXPECT_EQ(indexes(), Value(1));
    }
    EXPECT_EQ(indexes(), Value(0));
    one("SELECT T1_ID FROM #L WHERE T1_CODE = '5'");
    EXPECT_EQ(indexes(), Value(1));
}

INSTANTIATE_TEST_SUITE_P(Targets, ConnectionTest, ::testing::ValuesIn(test::databaseTargets()),
                         [](const auto& info) { return test::targetName(info.param); });

TEST(ConnectionStrings, ABadOdbcDriverIsAProviderError)
{
    Connection connection;
    EXPECT_THROW(connection.open(QStringLiteral("DRIVER={No Such Driver};SERVER=x")), RuntimeError);
    EXPECT_FALSE(connection.isOpen());
    EXPECT_EQ(connection.errors().size(), 1);
}
