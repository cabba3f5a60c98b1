#include "platform/db/criteria.h"
#include "platform/db/runtimeerror.h"
#include "platform/db/value.h"

#include <gtest/gtest.h>

using namespace tarvello::db;

namespace {

long errorNumber(const std::function<void()>& f)
{
    try {
        f();
    } catch (const RuntimeError& e) {
        return e.number();
    }
    return 0;
}

} // namespace

TEST(Decimal, ParsesBothSeparatorsAndAddsWithoutDrift)
{
    EXPECT_EQ(Decimal::parse(u"12,5")->toString(), QStringLiteral("12.5"));
    EXPECT_EQ(Decimal::parse(u"-0.125")->toString(), QStringLiteral("-0.125"));
    EXPECT_FALSE(Decimal::parse(u"1.2.3"));
    EXPECT_FALSE(Decimal::parse(u"12a"));
    EXPECT_FALSE(Decimal::parse(u"-"));

    // Three partners of 33.333% and one of 0.001% make exactly 100: doubles would not.
    Decimal total;
    for (int i = 0; i < 3; ++i)
        total += *Decimal::parse(u"33.333");
    total += *Decimal::parse(u"0.001");
    EXPECT_EQ(total, Decimal(100));
    EXPECT_GT(total + *Decimal::parse(u"0.001"), Decimal(100));
}

TEST(Decimal, RoundsHalfAwayFromZeroAndMultiplies)
{
    EXPECT_EQ(Decimal::parse(u"2.345")->rounded(2).toString(), QStringLiteral("2.35"));
    EXPECT_EQ(Decimal::parse(u"-2.345")->rounded(2).toString(), QStringLiteral("-2.35"));
    EXPECT_EQ((*Decimal::parse(u"1.5") * *Decimal::parse(u"0.2")).toString(),
              QStringLiteral("0.3"));
    EXPECT_EQ(Decimal::fromParts(std::numeric_limits<qint64>::min(), 2).toString(),
              QStringLiteral("-92233720368547758.08"));
}

TEST(Value, EmptyNullAndTextConversionsFollowTheHostLanguage)
{
    EXPECT_TRUE(Value().isEmpty());
    EXPECT_EQ(Value().toInt64(), 0);
    EXPECT_EQ(Value().toString(), QString());
    EXPECT_EQ(errorNumber([] { Value::null().toInt64(); }), RuntimeError::InvalidUseOfNull);
    EXPECT_EQ(errorNumber([] { Value("X").toDecimal(); }), RuntimeError::TypeMismatch);
    EXPECT_EQ(Value("12,5").toDecimal(), *Decimal::parse(u"12.5"));
    // Fractions become integers by banker's rounding.
    EXPECT_EQ(Value(*Decimal::parse(u"2.5")).toInt64(), 2);
    EXPECT_EQ(Value(*Decimal::parse(u"3.5")).toInt64(), 4);
    EXPECT_EQ(Value(true).toInt64(), -1);
    EXPECT_EQ(errorNumber([] { Value(70000).toShort(); }), RuntimeError::Overflow);
    EXPECT_EQ(Value(QDate(2024, 2, 29)).toString(), QStringLiteral("29/02/2024"));
    EXPECT_EQ(Value("2024-02-29T00:00:00").toDate(), QDate(2024, 2, 29));
}

TEST(Value, EqualityComparesNumbersByValueAndKeepsNullApart)
{
    EXPECT_EQ(Value(5), Value(*Decimal::parse(u"5.000")));
    EXPECT_EQ(Value(0.5), Value(*Decimal::parse(u"0.5")));
    EXPECT_NE(Value("5"), Value(5));
    EXPECT_NE(Value::null(), Value());
    EXPECT_NE(Value::null(), Value(""));
    EXPECT_EQ(Value(ValueList{1, "a"}), Value(ValueList{1, "a"}));
}

TEST(Value, SqlLiteralsDoubleQuotesAndWriteNumbersPlain)
{
    EXPECT_EQ(Value("D'ANGELO").sqlLiteral(), QStringLiteral("'D''ANGELO'"));
    EXPECT_EQ(Value("'; DROP TABLE X; --").sqlLiteral(), QStringLiteral("'''; DROP TABLE X; --'"));
    EXPECT_EQ(Value(*Decimal::parse(u"-3.10")).sqlLiteral(), QStringLiteral("-3.1"));
    EXPECT_EQ(Value::null().sqlLiteral(), QStringLiteral("NULL"));
    EXPECT_EQ(Value(QDate(2024, 1, 31)).sqlLiteral(), QStringLiteral("'2024-01-31T00:00:00'"));
}

TEST(Criteria, MatchesComparisonsLikeNullAndGrouping)
{
    const QHash<QString, Value> row{{QStringLiteral("CODE"), "D'Angelo"},
                                    {QStringLiteral("QTY"), *Decimal::parse(u"10.5")},
                                    {QStringLiteral("NOTE"), Value::null()}};
    const auto reader = [&](const QString& name) { return row.value(name.toUpper()); };
    const auto matches = [&](const char* text) {
        return Criteria::parse(QString::fromUtf8(text)).matches(reader);
    };
    EXPECT_TRUE(matches("CODE = 'D''ANGELO'"));
    EXPECT_TRUE(matches("code LIKE 'd*'"));
    EXPECT_FALSE(matches("CODE LIKE 'A*'"));
    EXPECT_TRUE(matches("QTY > 10 AND QTY <= 10.5"));
    EXPECT_TRUE(matches("NOTE IS NULL"));
    EXPECT_TRUE(matches("NOTE = NULL"));
    EXPECT_FALSE(matches("NOTE = 'x'"));
    EXPECT_TRUE(matches("(QTY < 1 OR CODE <> 'X') AND NOTE IS NULL"));
    EXPECT_EQ(errorNumber([] { Criteria::parse(QStringLiteral("CODE = 'open")); }),
              RuntimeError::InvalidProcedureCall);
    EXPECT_EQ(errorNumber([] { Criteria::parse(QStringLiteral("CODE 5")); }),
              RuntimeError::InvalidProcedureCall);
}
