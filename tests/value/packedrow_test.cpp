#include "platform/db/packedrow.h"
#include "platform/db/runtimeerror.h"

#include <QTimeZone>
#include <gtest/gtest.h>
#include <limits>

using namespace tarvello::db;

namespace {

// Values at the edges of every size the packing chooses between.
ValueList valuesOfEveryKind()
{
    const QDate day(2024, 2, 29);
    const QTime time(23, 59, 58, 999);
    return {
        Value(),
        Value::null(),
        true,
        false,
        qint64(127),
        qint64(-129),
        qint64(-32769),
        std::numeric_limits<qint64>::max(),
        Decimal::fromParts(-12345, 3),
        Decimal::fromParts(std::numeric_limits<qint64>::min() + 1, 4),
        0.1,
        QString(),
        QString(255, u'a'),
        QString(256, u'b') + QStringLiteral("àé"),
        QStringLiteral("prezzo 10 €"),
        QDateTime(day, time),
        QDateTime(day, time, Qt::UTC),
        QDateTime(day, time, Qt::OffsetFromUTC, -5 * 3600),
        QDateTime(),
    };
}

void expectSameValues(const PackedRow& row, const ValueList& values)
{
    ASSERT_EQ(row.size(), values.size());
    for (int i = 0; i < values.size(); ++i)
        EXPECT_TRUE(identical(row.at(i), values[i])) << "column " << i;
    const ValueList listed = row.toList();
    for (int i = 0; i < values.size(); ++i)
        EXPECT_TRUE(identical(listed[i], values[i])) << "column " << i;
}

} // namespace

TEST(PackedRow, KeepsEveryValueWithItsKindThroughChangesOfSize)
{
    ValueList values = valuesOfEveryKind();
    PackedRow row(values);
    expectSameValues(row, values);

    // A value growing or shrinking in place leaves its neighbours readable.
    const int middle = 7;
    for (const Value& replacement :
         {Value(QString(300, u'x')), Value::null(), Value(qint64(1)), Value(values[middle])}) {
        row.set(middle, replacement);
        values[middle] = replacement;
        expectSameValues(row, values);
    }

    // A date in a named zone comes back as the same moment.
    const QDateTime zoned(QDate(2024, 7, 1), QTime(12, 0), QTimeZone("Europe/Rome"));
    row.set(0, zoned);
    EXPECT_EQ(row.at(0).toDateTime(), zoned);

    EXPECT_THROW(row.at(values.size()), RuntimeError);
    EXPECT_THROW(row.set(1, Value(ValueList{qint64(1)})), RuntimeError);
}

namespace {

QList<int> changedColumns(const PackedRow& before, const PackedRow& after)
{
    QList<int> columns;
    for (const PackedRow::Change& change : PackedRow::changes(before, after)) {
        EXPECT_EQ(change.before, before.at(change.column));
        EXPECT_EQ(change.after, after.at(change.column));
        columns << change.column;
    }
    return columns;
}

} // namespace

TEST(PackedRow, ChangedColumnsCompareAsValuesNotBytes)
{
    const PackedRow read(ValueList{qint64(5), QStringLiteral("rossi"), Value::null()});
    PackedRow edited = read;
    EXPECT_TRUE(changedColumns(read, edited).isEmpty());

    // 5.0 is a different kind but the same value: no column to write.
    edited.set(0, Decimal::fromParts(50, 1));
    edited.set(1, QStringLiteral("bianchi"));
    edited.set(2, QStringLiteral(""));
    EXPECT_EQ(changedColumns(read, edited), (QList<int>{1, 2}));
    // The copy taken before the edits is untouched by them.
    EXPECT_EQ(read.at(1).toString(), QStringLiteral("rossi"));

    // In a long row the first change makes its column longer, so the columns after it lie at
    // other places in the two rows; an equal value in other bytes is still not a change.
    ValueList values;
    for (int i = 0; i < 40; ++i)
        values << (i % 3 == 0 ? Value(qint64(i)) : Value(QStringLiteral("testo %1").arg(i)));
    const PackedRow wide(values);
    PackedRow widened = wide;
    widened.set(3, QStringLiteral("un testo più lungo"));
    widened.set(30, qint64(31));
    widened.set(33, Decimal::fromParts(330, 1));
    widened.set(39, Value::null());
    EXPECT_EQ(changedColumns(wide, widened), (QList<int>{3, 30, 39}));
    EXPECT_EQ(widened.at({39, 3, 4}),
              (ValueList{Value::null(), QStringLiteral("un testo più lungo"), values[4]}));
}
