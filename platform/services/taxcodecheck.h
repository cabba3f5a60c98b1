#pragma once

#include "src/host/taxcodechecker.h"

namespace tarvello::services {

// Checks an Italian tax code as written, in upper case: a person's sixteen-character code
// (surname, name, birth date and place, check letter; digits may be replaced by the letters
// used to tell apart identical codes) or a company's eleven-digit number with its check
// digit.
class TaxCodeCheck final : public host::TaxCodeChecker {
public:
    enum Result { Valid = 0, WrongLength = 1, WrongCharacters = 2, WrongCheckCharacter = 3 };

    void setCode(const QString& code) override { m_result = check(code); }
    int result() const override { return m_result; }

    static Result check(const QString& code);

private:
    Result m_result = WrongLength;
};

} // namespace tarvello::services
