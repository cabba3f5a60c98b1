#include "platform/services/taxcodecheck.h"

#include <array>

namespace tarvello::services {

namespace {

constexpr qsizetype PersonLength = 16;
constexpr qsizetype CompanyLength = 11;

// Where a person's code holds letters (L), digits or their replacement letters (D), the
// month letter (M) and the check letter (C).
constexpr std::array<char, PersonLength> PersonLayout{'L', 'L', 'L', 'L', 'L', 'L', 'D', 'D',
                                                      'M', 'D', 'D', 'L', 'D', 'D', 'D', 'C'};
const QString MonthLetters = QStringLiteral("ABCDEHLMPRST");
// The letters that stand for the digits 0 to 9 when a digit is replaced.
const QString DigitLetters = QStringLiteral("LMNPQRSTUV");

// What a character in an odd place (the first, the third, ...) counts, by its value 0 to 25
// (a digit counts as the letter at the same place from A).
constexpr std::array<int, 26> OddValues{1,  0,  5, 7, 9, 13, 15, 17, 19, 21, 2,  4,  18,
                                        20, 11, 3, 6, 8, 12, 14, 16, 10, 22, 25, 24, 23};

bool isLetter(QChar c)
{
    return c >= u'A' && c <= u'Z';
}

bool isDigit(QChar c)
{
    return c >= u'0' && c <= u'9';
}

int valueOf(QChar c)
{
    return isDigit(c) ? c.unicode() - u'0' : c.unicode() - u'A';
}

bool fitsLayout(QChar c, char kind)
{
    switch (kind) {
    case 'D':
        return isDigit(c) || DigitLetters.contains(c);
    case 'M':
        return MonthLetters.contains(c);
    default:
        return isLetter(c);
    }
}

TaxCodeCheck::Result checkPerson(const QString& code)
{
    int sum = 0;
    for (qsizetype i = 0; i < PersonLength; ++i) {
        const QChar c = code.at(i);
        if (!fitsLayout(c, PersonLayout.at(size_t(i))))
            return TaxCodeCheck::WrongCharacters;
        if (i < PersonLength - 1)
            sum += i % 2 == 0 ? OddValues.at(size_t(valueOf(c))) : valueOf(c);
    }
    return code.back() == QChar(u'A' + sum % 26) ? TaxCodeCheck::Valid
                                                 : TaxCodeCheck::WrongCheckCharacter;
}

TaxCodeCheck::Result checkCompany(const QString& code)
{
    int sum = 0;
    for (qsizetype i = 0; i < CompanyLength; ++i) {
        if (!isDigit(code.at(i)))
            return TaxCodeCheck::WrongCharacters;
        if (i == CompanyLength - 1)
            break;
        int digit = valueOf(code.at(i));
        if (i % 2 == 1) {
            digit *= 2;
            if (digit > 9)
                digit -= 9;
        }
        sum += digit;
    }
    return valueOf(code.back()) == (10 - sum % 10) % 10 ? TaxCodeCheck::Valid
                                                        : TaxCodeCheck::WrongCheckCharacter;
}

} // namespace

TaxCodeCheck::Result TaxCodeCheck::check(const QString& code)
{
    if (code.size() == PersonLength)
        return checkPerson(code);
    if (code.size() == CompanyLength)
        return checkCompany(code);
    return WrongLength;
}

} // namespace tarvello::services
