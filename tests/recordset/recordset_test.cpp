#include "platform/db/connection.h"
#include "platform/db/recordset.h"
#include "platform/db/runtimeerror.h"
#include "support/testdatabase.h"

#include <gtest/gtest.h>

using namespace tarvello;
using namespace tarvello::db;

namespace {

QStringList codes(Recordset& rs, const char* field = "D_CODE")
{
    QStringList out;
    if (rs.recordCount() == 0)
        return out;
    const auto keep = rs.bookmark();
    for (rs.moveFirst(); !rs.eof(); rs.moveNext())
        out << rs.value(QString::fromLatin1(field)).toString();
    rs.setBookmark(keep);
    return out;
}

} // namespace

class RecordsetTest : public ::testing::TestWithParam<test::DatabaseTarget> {
protected:
    void SetUp() override
    {
        database = std::make_unique<test::TestDatabase>(GetParam());
        database->runScript(QStringLiteral(
            "CREATE TABLE D (D_ID INTEGER PRIMARY KEY AUTOINCREMENT, D_OWNER INT NOT NULL, "
            "D_CODE VARCHAR(10) NOT NULL, D_SHARE DECIMAL(6,3), D_FROM DATETIME, "
            "D_KIND SMALLINT DEFAULT -1, D_FLAG SMALLINT DEFAULT 0);\n"
            "INSERT INTO D (D_OWNER, D_CODE, D_SHARE, D_FROM) VALUES (1, 'A', 10.5, "
            "'2024-01-01');\n"
            "INSERT INTO D (D_OWNER, D_CODE, D_SHARE) VALUES (1, 'B', 20);\n"
            "INSERT INTO D (D_OWNER, D_CODE) VALUES (2, 'C');\n"
            "INSERT INTO D (D_OWNER, D_CODE) VALUES (2, 'D');\n"));
    }
    Connection& db() { return database->connection(); }
    RecordsetPtr openAll(const QString& where = {})
    {
        return Recordset::open(
            db(),
            QStringLiteral("SELECT ROW_NUMBER() OVER (ORDER BY D_OWNER) AS ID, * FROM D") + where);
    }
    QString cell(const QString& sql) { return db().execute(sql)->value(0).toString(); }
    std::unique_ptr<test::TestDatabase> database;
};

TEST_P(RecordsetTest, FilterCloneFindAndBookmarksWorkTogether)
{
    const RecordsetPtr rs = openAll();
    EXPECT_EQ(rs->baseTable(), QStringLiteral("D"));
    rs->setFilter(QStringLiteral("D_OWNER = 2"));
    EXPECT_EQ(codes(*rs), (QStringList{"C", "D"}));

    // A clone shares the rows but not the filter or the cursor.
    const RecordsetPtr clone = rs->clone();
    EXPECT_EQ(clone->recordCount(), 4);
    ASSERT_TRUE(clone->find(QStringLiteral("D_CODE = 'D'")));
    const auto bookmarkOfD = clone->bookmark();
    EXPECT_EQ(rs->value(u"D_CODE"), Value("C"));
    rs->setBookmark(bookmarkOfD);
    EXPECT_EQ(rs->value(u"D_CODE"), Value("D"));

    // A change through the clone is seen through the other handle.
    clone->setValue(u"D_CODE", "DD");
    EXPECT_EQ(rs->value(u"D_CODE"), Value("DD"));

    EXPECT_FALSE(clone->find(QStringLiteral("D_CODE = 'Z'")));
    EXPECT_TRUE(clone->eof());
    clone->moveLast();
    ASSERT_TRUE(clone->find(QStringLiteral("D_CODE LIKE 'A*'"), 0, false));
    EXPECT_EQ(clone->absolutePosition(), 1);
    EXPECT_THROW(rs->setBookmark(clone->bookmark()), RuntimeError); // A is filtered out of rs

    // Texts compare as on SQL Server: case and trailing blanks do not count, on either side.
    clone->setValue(u"D_CODE", "dd  "); // A becomes D's twin
    rs->setFilter(QStringLiteral("D_CODE = 'DD'"));
    EXPECT_EQ(codes(*rs), (QStringList{"dd  ", "DD"}));
    ASSERT_TRUE(clone->find(QStringLiteral("D_CODE = 'b   '")));
    EXPECT_EQ(clone->value(u"D_CODE"), Value("B"));
}

TEST_P(RecordsetTest, BatchSaveWritesRowsHiddenByTheFilterAndKeepsComputedColumnsOut)
{
    const RecordsetPtr rs = openAll();
    rs->find(QStringLiteral("D_CODE = 'A'"));
    rs->setValue(u"D_CODE", "A"); // the value it holds: nothing to write
    EXPECT_EQ(rs->pendingCount(), 0);
    rs->setValue(u"D_SHARE", *Decimal::parse(u"33.333"));
    rs->setFilter(QStringLiteral("D_OWNER = 2"));
    rs->setValue(u"D_CODE", "C2");
    rs->addNew();
    EXPECT_EQ(rs->value(u"D_KIND"), Value(-1)); // the column's default
    rs->setValue(u"D_OWNER", 2);
    rs->setValue(u"D_CODE", "E");
    rs->update();
    EXPECT_EQ(rs->pendingCount(), 3);
    rs->updateBatch();
    EXPECT_EQ(rs->pendingCount(), 0);
    EXPECT_EQ(cell(QStringLiteral("SELECT D_SHARE FROM D WHERE D_CODE = 'A'")),
              QStringLiteral("33.333"));
    EXPECT_EQ(cell(QStringLiteral("SELECT COUNT(*) FROM D WHERE D_CODE IN ('C2', 'E')")),
              QStringLiteral("2"));
    EXPECT_EQ(cell(QStringLiteral("SELECT D_KIND FROM D WHERE D_CODE = 'E'")),
              QStringLiteral("-1"));
}

TEST_P(RecordsetTest, TheIdentityIsReadBackAfterAnInsert)
{
    const RecordsetPtr rs = openAll(QStringLiteral(" WHERE 1 = 0"));
    EXPECT_EQ(rs->recordCount(), 0);
    EXPECT_TRUE(rs->bof() && rs->eof());
    rs->addNew();
    EXPECT_EQ(rs->editMode(), Recordset::EditMode::Adding);
    rs->setValue(u"D_OWNER", 7);
    rs->setValue(u"D_CODE", "NEW");
    rs->updateCurrent();
    const Value id = rs->value(u"D_ID");
    ASSERT_FALSE(id.isNull());
    EXPECT_EQ(cell(QStringLiteral("SELECT D_CODE FROM D WHERE D_ID = ") + id.sqlLiteral()),
              QStringLiteral("NEW"));
    EXPECT_EQ(rs->status(), Recordset::RowStatus::Unmodified);
}

TEST_P(RecordsetTest, AConflictLeavesTheRowPendingWithItsValuesAndSavesTheOthers)
{
    // E's date is stored in another spelling than the one written; F's share is empty.
    db().executeNonQuery(
        QStringLiteral("INSERT INTO D (D_OWNER, D_CODE, D_FROM) VALUES (3, 'E', '2024-02-01')"));
    db().executeNonQuery(QStringLiteral("INSERT INTO D (D_OWNER, D_CODE) VALUES (3, 'F')"));
    const RecordsetPtr rs = openAll();
    rs->find(QStringLiteral("D_CODE = 'A'"));
    rs->setValue(u"D_SHARE", 1);
    rs->find(QStringLiteral("D_CODE = 'B'"));
    rs->setValue(u"D_SHARE", 2);
    rs->setValue(u"D_FROM", QDateTime(QDate(2024, 5, 1), QTime(0, 0)));
    rs->find(QStringLiteral("D_CODE = 'C'"));
    rs->deleteRow();
    rs->find(QStringLiteral("D_CODE = 'D'"));
    rs->deleteRow();
    rs->find(QStringLiteral("D_CODE = 'E'"));
    rs->setValue(u"D_FROM", QDateTime(QDate(2024, 3, 1), QTime(0, 0)));
    rs->find(QStringLiteral("D_CODE = 'F'"));
    rs->setValue(u"D_SHARE", 5);
    // Someone else changes A's share, removes C, changes D and fills F's share after we read
    // them.
    db().executeNonQuery(QStringLiteral("UPDATE D SET D_SHARE = 99 WHERE D_CODE = 'A'"));
    db().executeNonQuery(QStringLiteral("DELETE FROM D WHERE D_CODE = 'C'"));
    db().executeNonQuery(QStringLiteral("UPDATE D SET D_FLAG = 1 WHERE D_CODE = 'D'"));
    db().executeNonQuery(QStringLiteral("UPDATE D SET D_SHARE = 7 WHERE D_CODE = 'F'"));

    try {
        rs->updateBatch();
        FAIL() << "the conflicts were not reported";
    } catch (const RuntimeError& e) {
        EXPECT_EQ(e.number(), RuntimeError::RowConflict);
    }
    EXPECT_EQ(cell(QStringLiteral("SELECT D_SHARE FROM D WHERE D_CODE = 'B'")),
              QStringLiteral("2"));
    EXPECT_EQ(cell(QStringLiteral("SELECT D_SHARE FROM D WHERE D_CODE = 'A'")),
              QStringLiteral("99"));
    EXPECT_EQ(cell(QStringLiteral("SELECT COUNT(*) FROM D WHERE D_CODE = 'D'")),
              QStringLiteral("1"));
    // B's empty date and E's date in another spelling still held what was read.
    EXPECT_EQ(cell(QStringLiteral("SELECT COUNT(*) FROM D WHERE D_CODE IN ('B', 'E') AND "
                                  "D_FROM > '2024-02-02'")),
              QStringLiteral("2"));
    EXPECT_EQ(cell(QStringLiteral("SELECT D_SHARE FROM D WHERE D_CODE = 'F'")),
              QStringLiteral("7"));
    EXPECT_EQ(rs->pendingCount(), 4);
    rs->setFilter(Recordset::FilterGroup::ConflictingRecords);
    // A, the deletion of C that found nothing to delete, that of D, changed since read, and F.
    ASSERT_EQ(rs->recordCount(), 4);
    ASSERT_TRUE(rs->find(QStringLiteral("D_CODE = 'A'")));
    EXPECT_EQ(rs->value(u"D_SHARE"), Value(1));
    EXPECT_EQ(rs->originalValue(u"D_SHARE").toString(), QStringLiteral("10.5"));
}

TEST_P(RecordsetTest, ARefusedRowStaysPendingWhileTheOthersAreWritten)
{
    const RecordsetPtr rs = openAll(QStringLiteral(" WHERE 1 = 0"));
    rs->addNew();
    rs->setValue(u"D_OWNER", 3);
    rs->setValue(u"D_CODE", "OK");
    rs->addNew();
    rs->setValue(u"D_OWNER", 3); // D_CODE is NOT NULL and left empty
    EXPECT_THROW(rs->updateBatch(), RuntimeError);
    EXPECT_EQ(cell(QStringLiteral("SELECT COUNT(*) FROM D WHERE D_OWNER = 3")),
              QStringLiteral("1"));
    EXPECT_EQ(rs->pendingCount(), 1);
    rs->setValue(u"D_CODE", "FIXED");
    rs->updateBatch();
    EXPECT_EQ(cell(QStringLiteral("SELECT COUNT(*) FROM D WHERE D_OWNER = 3")),
              QStringLiteral("2"));
}

// A RAISE(ROLLBACK) in a trigger (as a deadlock or a full disk would) drops the whole batch
// part way: the rows written before it went with the transaction.
TEST_P(RecordsetTest, ABatchTheDatabaseDropsPartWayWritesNothingAndARetryWritesEachRowOnce)
{
    db().run(QStringLiteral("CREATE TRIGGER D_NO BEFORE INSERT ON D WHEN NEW.D_CODE = 'NO' "
                            "BEGIN SELECT RAISE(ROLLBACK, 'refused'); END"));
    const RecordsetPtr rs = openAll(QStringLiteral(" WHERE 1 = 0"));
    const qint64 tableInfoReads = db().tableInfoReads();
    for (const char* code : {"R1", "NO", "R3"}) {
        rs->addNew();
        rs->setValue(u"D_OWNER", 5);
        rs->setValue(u"D_CODE", code);
    }
    // The new rows' defaults are read for the first of them only.
    EXPECT_EQ(db().tableInfoReads(), tableInfoReads + 1);
    try {
        rs->updateBatch();
        FAIL() << "the dropped batch was not reported";
    } catch (const RuntimeError& e) {
        EXPECT_EQ(e.number(), RuntimeError::TransactionAborted);
        EXPECT_TRUE(e.description().contains(QStringLiteral("riga 1, riga 2, riga 3")))
            << e.description().toStdString();
    }
    EXPECT_EQ(cell(QStringLiteral("SELECT COUNT(*) FROM D WHERE D_OWNER = 5")),
              QStringLiteral("0"));
    EXPECT_EQ(rs->pendingCount(), 3);

    db().run(QStringLiteral("DROP TRIGGER D_NO"));
    rs->updateBatch();
    EXPECT_EQ(cell(QStringLiteral("SELECT COUNT(*) FROM D WHERE D_OWNER = 5")),
              QStringLiteral("3"));
    EXPECT_EQ(cell(QStringLiteral("SELECT COUNT(DISTINCT D_CODE) FROM D WHERE D_OWNER = 5")),
              QStringLiteral("3"));
    EXPECT_EQ(rs->pendingCount(), 0);
}

// Inside a transaction of the caller's, rows are saved only when it commits: rolled back,
// they are still to be written, once.
TEST_P(RecordsetTest, RowsWrittenInsideAnOpenTransactionAreSavedWhenItCommits)
{
    const RecordsetPtr rs = openAll(QStringLiteral(" WHERE 1 = 0"));
    rs->addNew();
    rs->setValue(u"D_OWNER", 6);
    rs->setValue(u"D_CODE", "N");
    {
        TransactionGuard abandoned(db());
        rs->updateBatch();
        EXPECT_EQ(rs->pendingCount(), 1);
        rs->updateBatch(); // not written a second time inside the same transaction
    }
    EXPECT_EQ(cell(QStringLiteral("SELECT COUNT(*) FROM D WHERE D_OWNER = 6")),
              QStringLiteral("0"));
    {
        TransactionGuard committed(db());
        rs->updateBatch();
        committed.commit();
    }
    EXPECT_EQ(cell(QStringLiteral("SELECT COUNT(*) FROM D WHERE D_OWNER = 6")),
              QStringLiteral("1"));
    EXPECT_EQ(rs->pendingCount(), 0);
    EXPECT_EQ(rs->value(u"D_ID").toString(),
              cell(QStringLiteral("SELECT D_ID FROM D WHERE D_OWNER = 6")));
}

TEST_P(RecordsetTest, CancelDropsANewRowAndRestoresAnEditedOne)
{
    const RecordsetPtr rs = openAll();
    rs->addNew();
    rs->setValue(u"D_CODE", "GONE");
    EXPECT_EQ(rs->recordCount(), 5);
    rs->cancelUpdate();
    EXPECT_EQ(rs->recordCount(), 4);
    EXPECT_EQ(rs->pendingCount(), 0);

    rs->moveFirst();
    rs->setValue(u"D_CODE", "CHANGED");
    rs->cancelUpdate();
    EXPECT_EQ(rs->value(u"D_CODE"), Value("A"));
    EXPECT_EQ(rs->pendingCount(), 0);

    rs->setValue(u"D_CODE", "X");
    rs->update();
    rs->moveLast();
    rs->deleteRow();
    rs->cancelBatch();
    EXPECT_EQ(rs->pendingCount(), 0);
    EXPECT_EQ(codes(*rs), (QStringList{"A", "B", "C", "D"}));
}

TEST_P(RecordsetTest, RequeryReadsRowsWrittenByOthersAndSortOrdersThem)
{
    const RecordsetPtr rs = openAll();
    db().executeNonQuery(QStringLiteral("INSERT INTO D (D_OWNER, D_CODE) VALUES (0, 'AA')"));
    EXPECT_EQ(rs->recordCount(), 4);
    rs->setValue(u"D_CODE", "DROPPED");
    rs->requery();
    EXPECT_EQ(rs->recordCount(), 5);
    EXPECT_EQ(rs->pendingCount(), 0);
    rs->setSort(QStringLiteral("D_OWNER DESC, D_CODE"));
    EXPECT_EQ(codes(*rs), (QStringList{"C", "D", "A", "B", "AA"}));
}

// A record frame and a grid hold the same recordset object across a reload; a reopen that
// handed out a new object, or left the old filter on, would leave them showing stale rows.
TEST_P(RecordsetTest, ReopenLoadsAnotherQueryIntoTheSameObjectAndItsClones)
{
    const RecordsetPtr rs = openAll();
    const RecordsetPtr reader = rs->clone();
    rs->setFilter(QStringLiteral("D_OWNER = 2"));
    rs->setValue(u"D_CODE", "LOST");
    rs->close();
    rs->reopen(db(), QStringLiteral("SELECT ROW_NUMBER() OVER (ORDER BY D_OWNER) AS ID, * FROM D "
                                    "WHERE D_OWNER = 1"));
    EXPECT_TRUE(rs->isOpen());
    EXPECT_TRUE(rs->filter().isEmpty());
    EXPECT_EQ(rs->pendingCount(), 0);
    EXPECT_EQ(codes(*rs), (QStringList{"A", "B"}));
    EXPECT_EQ(codes(*reader), (QStringList{"A", "B"}));
    EXPECT_EQ(rs->absolutePosition(), 1);

    rs->setValue(u"D_CODE", "A2");
    rs->updateBatch();
    EXPECT_EQ(cell(QStringLiteral("SELECT D_CODE FROM D WHERE D_ID = 1")), QStringLiteral("A2"));

    EXPECT_THROW(rs->reopen(db(), QStringLiteral("SELECT * FROM NO_SUCH_TABLE")), RuntimeError);
    EXPECT_EQ(codes(*rs), (QStringList{"A2", "B"}));
}

// Code clears a detail by deleting the current row and moving on; if the move skipped the
// row that took the deleted one's place, every other row would survive and the last move
// would run past the end.
TEST_P(RecordsetTest, DeletingAndMovingNextWalksEveryRow)
{
    const RecordsetPtr rs = openAll();
    // Any move after a delete but the next one is an ordinary move.
    rs->setAbsolutePosition(2);
    rs->deleteRow();
    rs->movePrevious();
    EXPECT_EQ(rs->value(u"D_CODE"), Value("A"));
    rs->moveNext();
    EXPECT_EQ(rs->value(u"D_CODE"), Value("C"));
    rs->cancelBatch();

    int deleted = 0;
    for (rs->moveFirst(); !rs->eof(); rs->moveNext()) {
        rs->deleteRow();
        ++deleted;
    }
    EXPECT_EQ(deleted, 4);
    EXPECT_EQ(rs->recordCount(), 0);
    rs->updateBatch();
    EXPECT_EQ(cell(QStringLiteral("SELECT COUNT(*) FROM D")), QStringLiteral("0"));
}

TEST_P(RecordsetTest, MovingPastTheEndsRaisesAsTheHostDoes)
{
    const RecordsetPtr rs = openAll();
    rs->moveLast();
    rs->moveNext();
    EXPECT_TRUE(rs->eof());
    EXPECT_THROW(rs->value(u"D_CODE"), RuntimeError);
    EXPECT_THROW(rs->moveNext(), RuntimeError);
    EXPECT_EQ(rs->absolutePosition(), -1);
    rs->setAbsolutePosition(2);
    EXPECT_EQ(rs->value(u"D_CODE"), Value("B"));
    EXPECT_THROW(rs->value(u"NO_SUCH"), RuntimeError);
}

INSTANTIATE_TEST_SUITE_P(Targets, RecordsetTest, ::testing::ValuesIn(test::databaseTargets()),
                         [](const auto& info) { return test::targetName(info.param); });

TEST(InMemoryRecordset, AppendedFieldsHoldRowsThatCannotBeWritten)
{
    const RecordsetPtr rs = Recordset::create();
    rs->appendField(QStringLiteral("CODE"), ColumnKind::Text);
    rs->appendField(QStringLiteral("LEVEL"), ColumnKind::Integer);
    rs->openInMemory();
    EXPECT_THROW(rs->appendField(QStringLiteral("LATE")), RuntimeError);
    for (int i = 3; i >= 1; --i) {
        rs->addNew();
        rs->setValue(u"CODE", QStringLiteral("A%1").arg(i));
        rs->setValue(u"LEVEL", i % 2);
        rs->update();
    }
    rs->setSort(QStringLiteral("CODE"));
    EXPECT_EQ(codes(*rs, "CODE"), (QStringList{"A1", "A2", "A3"}));
    rs->setFilter(QStringLiteral("LEVEL = 1"));
    EXPECT_EQ(codes(*rs, "CODE"), (QStringList{"A1", "A3"}));
    EXPECT_THROW(rs->updateBatch(), RuntimeError);
    EXPECT_THROW(rs->requery(), RuntimeError);
}

// Rows appended in one step reach every handle with one reset, even when a listener drops
// another handle meanwhile (a grid replacing its reader): the handles after it are still told.
TEST(InMemoryRecordset, AppendedRowsReachEveryHandleAndAreFoundByBookmark)
{
    RecordsetPtr first = Recordset::create();
    first->appendField(QStringLiteral("CODE"), ColumnKind::Text);
    first->appendField(QStringLiteral("LEVEL"), ColumnKind::Integer);
    first->openInMemory();
    const RecordsetPtr writer = first->clone();
    const RecordsetPtr last = first->clone();
    int resets = 0;
    QObject::connect(writer.get(), &Recordset::rowsReset, [&] {
        ++resets;
        first.reset();
    });

    writer->appendRows({{QStringLiteral("A1"), 1}, {QStringLiteral("A2"), 0}});
    EXPECT_EQ(resets, 1);
    EXPECT_EQ(codes(*last, "CODE"), (QStringList{"A1", "A2"}));
    EXPECT_EQ(last->status(), RowStatus::New);

    EXPECT_THROW(writer->appendRows({{QStringLiteral("A3"), 1}, {QStringLiteral("A4")}}),
                 RuntimeError);
    EXPECT_EQ(last->recordCount(), 2);

    // Bookmarks looked up often enough to be indexed, then rows added: those are found too.
    last->moveFirst();
    const Recordset::Bookmark a1 = last->bookmark();
    for (int i = 0; i < 10; ++i)
        EXPECT_TRUE(last->hasBookmark(a1));
    last->addNew();
    const Recordset::Bookmark added = last->bookmark();
    last->addNew();
    last->setBookmark(added);
    EXPECT_EQ(last->absolutePosition(), 3);
}
