#include "platform/controls/displayformat.h"
#include "platform/controls/field.h"
#include "platform/controls/form.h"

#include <gtest/gtest.h>

namespace tarvello::controls {
namespace {

using db::Decimal;
using db::Value;

class FieldTest : public ::testing::Test {
protected:
    void SetUp() override { form.load(); }

    Form form{QStringLiteral("FRM")};
    Field* code = form.add<Field>(QStringLiteral("TXT_CODE"), Field::Kind::Code);
    Field* amount = form.add<Field>(QStringLiteral("TXT_AMOUNT"), Field::Kind::Numeric);
    Field* date = form.add<Field>(QStringLiteral("TXT_DATE"), Field::Kind::Date);
};

// A warning about the text holds for that text only: whatever replaces it starts accepted.
TEST_F(FieldTest, ANewTextClearsTheWarningAboutTheOldOne)
{
    QList<bool> changes;
    QObject::connect(code, &Field::acceptedChanged, [&](bool accepted) { changes << accepted; });
    code->setText(QStringLiteral("X1"));
    code->setAccepted(false);
    code->setText(QStringLiteral("X1"));
    EXPECT_FALSE(code->isAccepted()) << "the same text keeps its warning";
    EXPECT_TRUE(code->isValid()) << "a warning is not a refusal";
    code->typeText(QStringLiteral("X2"));
    EXPECT_TRUE(code->isAccepted());
    EXPECT_EQ(changes, (QList<bool>{false, true}));
}

TEST_F(FieldTest, NumbersOnlyFiltersWhatThePersonTypes)
{
    amount->typeText(QStringLiteral("-1a2,3.4-"));
    EXPECT_EQ(amount->text(), QStringLiteral("-12,34")) << "one leading minus, one separator";

    code->setNumbersOnly(true);
    code->typeText(QStringLiteral("A1 2"));
    EXPECT_EQ(code->text(), QStringLiteral("12"));
    code->setText(QStringLiteral("X9"));
    EXPECT_EQ(code->text(), QStringLiteral("X9")) << "code is not filtered like typing";

    date->typeText(QStringLiteral("05.03/2024x"));
    EXPECT_EQ(date->text(), QStringLiteral("0503/2024"));
}

TEST_F(FieldTest, DisabledFieldTakesNoTyping)
{
    code->setEnabled(false);
    EXPECT_FALSE(code->typeText(QStringLiteral("A")));
    EXPECT_TRUE(code->text().isEmpty());
}

TEST_F(FieldTest, NumericAndDateFieldsConvertTheirValues)
{
    amount->typeText(QStringLiteral("12,5"));
    EXPECT_EQ(amount->value(), Value(Decimal::fromParts(125, 1)));
    amount->setValue(Decimal::fromParts(12345, 1));
    EXPECT_EQ(amount->text(), QStringLiteral("1234,5"));
    amount->setValue(Value(7));
    EXPECT_EQ(amount->text(), QStringLiteral("7"));
    amount->setValue(Value::null());
    EXPECT_TRUE(amount->text().isEmpty());
    EXPECT_TRUE(amount->value().isNull());

    date->setValue(QDate(2024, 3, 5));
    EXPECT_EQ(date->text(), QStringLiteral("05/03/2024"));
    date->typeText(QStringLiteral("5/3/2024"));
    EXPECT_EQ(date->value(), Value(QDate(2024, 3, 5)));
    date->typeText(QStringLiteral("31/02/2024"));
    EXPECT_EQ(date->value(), Value(QStringLiteral("31/02/2024")))
        << "an impossible date stays text, so saving it fails visibly";

    code->setText(QString());
    EXPECT_TRUE(code->value().isNull());
}

TEST_F(FieldTest, DisplayTextIsFormattedOnlyWithoutTheFocus)
{
    amount->setDisplayFormat(QStringLiteral("#,0.00"));
    amount->typeText(QStringLiteral("1234,5"));
    EXPECT_EQ(amount->displayText(), QStringLiteral("1.234,50"));
    amount->setFocus();
    EXPECT_EQ(amount->displayText(), QStringLiteral("1234,5"));
}

struct FormatCase {
    Value value;
    const char* format;
    const char* shown;
};

TEST(DisplayFormatTest, NumbersDatesAndTextsShowWithItalianSeparators)
{
    const QList<FormatCase> cases = {
        {Decimal::fromParts(12345, 1), "#,0.00", "1.234,50"},
        {Decimal::fromParts(1234567891, 3), "#,0.00", "1.234.567,89"},
        {Decimal::fromParts(-1234567, 3), "#,0.00", "-1.234,57"},
        {Decimal::fromParts(2005, 3), "#,0.00", "2,01"},
        {Decimal::fromParts(-4, 3), "#,0.00", "0,00"},
        {Value(50), "#.000", "50,000"},
        {Decimal::fromParts(5, 1), "#.000", "0,500"},
        {Value(999), "#,0.00", "999,00"},
        {Value(0.25), "#.##", "0,25"},
        {Value(1.5), "#", "2"},
        {Decimal::fromParts(1250, 2), "", "12,5"},
        {Value(QStringLiteral("12,5")), "#.000", "12,500"},
        {Value(QStringLiteral("AB")), "#.000", "AB"},
        {Value(QDate(2024, 3, 5)), "", "05/03/2024"},
        {Value(QDateTime(QDate(2024, 3, 5), QTime(14, 30))), "", "05/03/2024 14:30:00"},
        {Value(123), "dd/mm/yyyy", "123"},
        {Value::null(), "#,0.00", ""},
        {Value(), "", ""},
    };
    for (const FormatCase& c : cases) {
        EXPECT_EQ(formatForDisplay(c.value, QString::fromLatin1(c.format)),
                  QString::fromUtf8(c.shown))
            << c.value.debugText().toStdString() << " with \"" << c.format << '"';
    }
}

TEST_F(FieldTest, SettersThatChangeNothingAnnounceNothing)
{
    int announced = 0;
    const auto count = [&announced] { ++announced; };
    QObject::connect(code, &Field::textChanged, count);
    QObject::connect(code, &Control::enabledChanged, count);
    QObject::connect(code, &DataControl::validChanged, count);
    QObject::connect(code, &DataControl::requiredChanged, count);
    QObject::connect(code, &Field::maxLengthChanged, count);

    code->setText(QStringLiteral("A"));
    code->setEnabled(false);
    code->setValid(false);
    code->setRequired(true);
    code->setMaxLength(5);
    EXPECT_EQ(announced, 5);

    code->setText(QStringLiteral("A"));
    code->setEnabled(false);
    code->setValid(false);
    code->setRequired(true);
    code->setMaxLength(5);
    EXPECT_EQ(announced, 5);
}

TEST_F(FieldTest, ManagementKeyAndMenuItemsRaiseTheirKeyNames)
{
    QStringList keys;
    QObject::connect(code, &Field::managementKeyPressed,
                     [&keys](const QString& key) { keys << key; });

    EXPECT_FALSE(code->pressManagementKey()) << "no management key until it is switched on";
    code->setManagementKey(true);
    code->addMenuItem(QStringLiteral("1"), QStringLiteral("Solo anagrafiche generali"));
    code->addMenuItem(QStringLiteral("2"), QStringLiteral("Spento"), false);

    EXPECT_TRUE(code->pressManagementKey());
    EXPECT_TRUE(code->chooseMenuItem(QStringLiteral("1")));
    EXPECT_FALSE(code->chooseMenuItem(QStringLiteral("2")));
    EXPECT_FALSE(code->chooseMenuItem(QStringLiteral("9")));
    code->setEnabled(false);
    EXPECT_FALSE(code->pressManagementKey());

    EXPECT_EQ(keys, QStringList({"Kgestione", "Kpers1"}));
}

} // namespace
} // namespace tarvello::controls
