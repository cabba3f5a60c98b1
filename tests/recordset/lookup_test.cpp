#include "platform/db/recordset.h"
#include "platform/db/runtimeerror.h"

#include <gtest/gtest.h>

using namespace tarvello::db;

namespace {

// Rows looked up by bookmark and by a text filter: both answer from indexes once they are
// used often, so every change of the rows must reach those indexes.
class LookupTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        rs->appendField(QStringLiteral("CODE"), ColumnKind::Text);
        rs->appendField(QStringLiteral("LEVEL"), ColumnKind::Integer);
        rs->openInMemory();
        for (const char* code : {"b1", "A1", "c", "a1", "D'1"})
            add(QString::fromLatin1(code), 1);
        for (int i = 0; i < 20; ++i)
            add(QStringLiteral("R%1").arg(i), i % 3);
    }
    void add(const QString& code, const Value& level)
    {
        rs->addNew();
        rs->setValue(u"CODE", code);
        rs->setValue(u"LEVEL", level);
        rs->update();
    }
    QStringList shown()
    {
        QStringList out;
        if (rs->recordCount() > 0) {
            for (rs->moveFirst(); !rs->eof(); rs->moveNext())
                out << rs->value(u"CODE").toString();
        }
        return out;
    }
    QList<Recordset::Bookmark> everyBookmark()
    {
        QList<Recordset::Bookmark> out;
        for (rs->moveFirst(); !rs->eof(); rs->moveNext())
            out << rs->bookmark();
        return out;
    }

    RecordsetPtr rs = Recordset::create();
};

TEST_F(LookupTest, ATextFilterFindsRowsWithoutRegardToCaseInTheirOrder)
{
    rs->setFilter(QStringLiteral("CODE = 'a1'"));
    EXPECT_EQ(shown(), (QStringList{"A1", "a1"}));
    rs->setFilter(QStringLiteral("CODE = 'D''1'"));
    EXPECT_EQ(shown(), QStringList{"D'1"});
    rs->setFilter(QStringLiteral("CODE = 'none'"));
    EXPECT_EQ(rs->recordCount(), 0);
}

TEST_F(LookupTest, ATextFilterSeesEveryChangeMadeSinceTheLastOne)
{
    const RecordsetPtr other = rs->clone();
    rs->setFilter(QStringLiteral("CODE = 'x'"));
    ASSERT_EQ(rs->recordCount(), 0);

    other->find(QStringLiteral("CODE = 'c'"));
    other->setValue(u"CODE", QStringLiteral("X"));
    other->update();
    rs->setFilter(QStringLiteral("CODE = 'x'"));
    EXPECT_EQ(shown(), QStringList{"X"});

    other->deleteRow();
    rs->setFilter(QStringLiteral("CODE = 'x'"));
    EXPECT_EQ(rs->recordCount(), 0);

    other->addNew();
    other->setValue(u"CODE", QStringLiteral("x"));
    other->update();
    rs->setFilter(QStringLiteral("CODE = 'X'"));
    EXPECT_EQ(shown(), QStringList{"x"});
}

// An index of texts would miss the number 1 that a quoted '1' matches.
TEST_F(LookupTest, AColumnOfNumbersStillMatchesAQuotedNumber)
{
    rs->setFilter(QStringLiteral("LEVEL = '2'"));
    EXPECT_EQ(shown(), (QStringList{"R2", "R5", "R8", "R11", "R14", "R17"}));
}

TEST_F(LookupTest, TheRowBeingAddedStaysInViewWhateverTheFilter)
{
    rs->addNew();
    rs->setValue(u"CODE", QStringLiteral("NEW"));
    rs->setFilter(QStringLiteral("CODE = 'a1'"));
    EXPECT_EQ(shown(), (QStringList{"A1", "a1", "NEW"}));
}

TEST_F(LookupTest, BookmarksFollowTheViewThroughFiltersAndNewRows)
{
    const QList<Recordset::Bookmark> all = everyBookmark();
    // Many lookups in a row: the recordset answers them from its index from now on.
    for (const Recordset::Bookmark bookmark : all)
        rs->setBookmark(bookmark);
    EXPECT_EQ(rs->value(u"CODE").toString(), QStringLiteral("R19"));

    rs->setFilter(QStringLiteral("LEVEL = 0"));
    EXPECT_FALSE(rs->hasBookmark(all.at(0)));
    EXPECT_THROW(rs->setBookmark(all.at(0)), RuntimeError);
    for (int pass = 0; pass < 2; ++pass) {
        for (int level0 = 0; level0 < 7; ++level0)
            rs->setBookmark(all.at(5 + 3 * level0));
    }
    EXPECT_EQ(rs->value(u"CODE").toString(), QStringLiteral("R18"));
    EXPECT_EQ(rs->absolutePosition(), 7);

    rs->setFilter(QString());
    add(QStringLiteral("LAST"), 0);
    const Recordset::Bookmark added = rs->bookmark();
    rs->moveFirst();
    rs->setBookmark(added);
    EXPECT_EQ(rs->value(u"CODE").toString(), QStringLiteral("LAST"));
    rs->setBookmark(all.at(1));
    EXPECT_EQ(rs->value(u"CODE").toString(), QStringLiteral("A1"));
}

} // namespace
