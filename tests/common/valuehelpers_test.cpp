#include "platform/db/runtimeerror.h"
#include "src/common/valuehelpers.h"

#include <QLocale>
#include <gtest/gtest.h>

using namespace tarvello;
using namespace tarvello::agenti;
using db::Decimal;
using db::Value;

namespace {

// Sets the default locale for one test and puts the previous one back.
class LocaleScope {
public:
    explicit LocaleScope(const QLocale& locale) { QLocale::setDefault(locale); }
    ~LocaleScope() { QLocale::setDefault(m_previous); }

private:
    QLocale m_previous;
};

const QLocale italian(QLocale::Italian, QLocale::Italy);
const QLocale english(QLocale::English, QLocale::UnitedStates);

long errorNumberOf(const std::function<void()>& f)
{
    try {
        f();
    } catch (const db::RuntimeError& error) {
        return error.number();
    }
    return 0;
}

} // namespace

TEST(RTrimN, GivesBlanksAsTheEmptyTextAndRemovesOnlyTrailingBlanks)
{
    for (const Value& blank : {Value(), Value::null(), Value("")}) {
        const Value trimmed = RTrimN(blank);
        EXPECT_EQ(trimmed.kind(), Value::Kind::Text) << blank.debugText().toStdString();
        EXPECT_EQ(trimmed.toString(), QString());
    }
    EXPECT_EQ(RTrimN(Value("AB  ")), Value("AB"));
    EXPECT_EQ(RTrimN(Value("  AB ")), Value("  AB"));
    EXPECT_EQ(RTrimN(Value("A\t")), Value("A\t"));
    EXPECT_EQ(RTrimN(Value(42)), Value("42"));
}

TEST(CDecN, GivesBlanksAsZeroAndReadsTextInTheCurrentLocale)
{
    for (const Value& blank : {Value(), Value::null(), Value("")}) {
        const Value zero = CDecN(blank);
        EXPECT_EQ(zero.kind(), Value::Kind::Integer);
        EXPECT_EQ(zero, Value(0));
    }
    const LocaleScope scope(italian);
    EXPECT_EQ(CDecN(Value("12,5")), Value(Decimal::fromParts(125, 1)));
    EXPECT_EQ(CDecN(Value("12,5")).kind(), Value::Kind::Decimal);
    EXPECT_EQ(CDecN(Value("1.234,50")), Value(Decimal::fromParts(123450, 2)));
    EXPECT_EQ(CDecN(Value(" -7 ")), Value(-7));
}

// Values written by code carry the invariant '.', whatever the person's locale is.
TEST(CDecN, ReadsTheInvariantPointInAnyLocale)
{
    const LocaleScope scope(italian);
    EXPECT_EQ(CDecN(Value("12.5")), Value(Decimal::fromParts(125, 1)));
    const LocaleScope englishScope(english);
    EXPECT_EQ(CDecN(Value("1,234.5")), Value(Decimal::fromParts(12345, 1)));
}

TEST(CDecN, KeepsNumbersExactAndRefusesTextThatIsNoNumber)
{
    EXPECT_EQ(CDecN(Value(Decimal::fromParts(100001, 3))), Value(Decimal::fromParts(100001, 3)));
    EXPECT_EQ(CDecN(Value(3)), Value(3));
    EXPECT_EQ(CDecN(Value(true)), Value(-1));
    EXPECT_EQ(errorNumberOf([] { CDecN(Value("X")); }), db::RuntimeError::TypeMismatch);
    EXPECT_EQ(errorNumberOf([] { CDecN(Value("1;DROP TABLE MG17_AGENTI")); }),
              db::RuntimeError::TypeMismatch);
}

TEST(CNegUno, BlankValuesGiveMinusOne)
{
    EXPECT_EQ(CNegUno(Value::null()), Value(-1));
    EXPECT_EQ(CNegUno(Value()), Value(-1));
    EXPECT_EQ(CNegUno(Value("")), Value(-1));
    EXPECT_EQ(CNegUno(Value(0)), Value(0));
    EXPECT_EQ(CNegUno(Value("2")), Value(2));
    EXPECT_EQ(errorNumberOf([] { CNegUno(Value("Agente")); }), db::RuntimeError::TypeMismatch);
}

TEST(NvlN, GivesTheDefaultForBlankValuesOnlyAndTheValueUnchanged)
{
    EXPECT_EQ(NvlN(Value(""), Value("-")), Value("-"));
    EXPECT_EQ(NvlN(Value("A"), Value("-")), Value("A"));
    EXPECT_EQ(NvlN(Value::null(), Value(0)), Value(0));
    EXPECT_EQ(NvlN(Value(), Value(0)), Value(0));
    EXPECT_EQ(NvlN(Value(0), Value(5)), Value(0));
    EXPECT_EQ(NvlN(Value(" "), Value("-")), Value(" "));
    const Value array(db::ValueList{1, 2});
    EXPECT_EQ(NvlN(array, Value(0)), array);
}
