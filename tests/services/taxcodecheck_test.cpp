#include "platform/services/taxcodecheck.h"

#include <gtest/gtest.h>

using tarvello::services::TaxCodeCheck;

namespace {

TEST(TaxCodeCheck, APersonsCodeWithItsCheckLetterIsValid)
{
    EXPECT_EQ(TaxCodeCheck::check(QStringLiteral("RSSMRA85T10A562S")), TaxCodeCheck::Valid);
    // Two people with the same code get a digit replaced by a letter (2 -> N); the check
    // letter is computed over the letter.
    EXPECT_EQ(TaxCodeCheck::check(QStringLiteral("RSSMRA85T10A56NH")), TaxCodeCheck::Valid);
}

TEST(TaxCodeCheck, APersonsCodeIsRefusedForAWrongCheckLetterOrAMisplacedCharacter)
{
    EXPECT_EQ(TaxCodeCheck::check(QStringLiteral("RSSMRA85T10A562T")),
              TaxCodeCheck::WrongCheckCharacter);
    // One character changed moves the check letter: a typing slip is caught.
    EXPECT_EQ(TaxCodeCheck::check(QStringLiteral("RSSMRA85T10A563S")),
              TaxCodeCheck::WrongCheckCharacter);
    // Z is no month.
    EXPECT_EQ(TaxCodeCheck::check(QStringLiteral("RSSMRA85Z10A562S")),
              TaxCodeCheck::WrongCharacters);
    // A is not one of the letters that stand for a digit.
    EXPECT_EQ(TaxCodeCheck::check(QStringLiteral("RSSMRA8AT10A562S")),
              TaxCodeCheck::WrongCharacters);
    EXPECT_EQ(TaxCodeCheck::check(QStringLiteral("RSS1RA85T10A562S")),
              TaxCodeCheck::WrongCharacters);
    // The code is handed over as written in the field: lower case is not a code.
    EXPECT_EQ(TaxCodeCheck::check(QStringLiteral("rssmra85t10a562s")),
              TaxCodeCheck::WrongCharacters);
}

TEST(TaxCodeCheck, ACompanysNumberIsCheckedOnItsLastDigit)
{
    EXPECT_EQ(TaxCodeCheck::check(QStringLiteral("00743110157")), TaxCodeCheck::Valid);
    EXPECT_EQ(TaxCodeCheck::check(QStringLiteral("12345678903")), TaxCodeCheck::Valid);
    EXPECT_EQ(TaxCodeCheck::check(QStringLiteral("12345678904")),
              TaxCodeCheck::WrongCheckCharacter);
    // Two neighbouring digits swapped change the doubled places: caught.
    EXPECT_EQ(TaxCodeCheck::check(QStringLiteral("21345678903")),
              TaxCodeCheck::WrongCheckCharacter);
    EXPECT_EQ(TaxCodeCheck::check(QStringLiteral("1234567890A")), TaxCodeCheck::WrongCharacters);
}

TEST(TaxCodeCheck, AnyOtherLengthIsWrongAndTheObjectReportsTheLastCodeHandedIn)
{
    EXPECT_EQ(TaxCodeCheck::check(QString()), TaxCodeCheck::WrongLength);
    EXPECT_EQ(TaxCodeCheck::check(QStringLiteral("RSSMRA85T10A562")), TaxCodeCheck::WrongLength);
    EXPECT_EQ(TaxCodeCheck::check(QStringLiteral("RSSMRA85T10A562SS")), TaxCodeCheck::WrongLength);

    TaxCodeCheck checker;
    checker.setCode(QStringLiteral("RSSMRA85T10A562T"));
    EXPECT_EQ(checker.result(), TaxCodeCheck::WrongCheckCharacter);
    checker.setCode(QStringLiteral("RSSMRA85T10A562S"));
    EXPECT_EQ(checker.result(), 0);
}

} // namespace
