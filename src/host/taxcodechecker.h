#pragma once

#include <QString>

namespace tarvello::host {

// The host's tax-code checker: a code is handed in, the result read back; 0 means the code
// is well formed, any other number names what is wrong with it.
class TaxCodeChecker {
public:
    virtual ~TaxCodeChecker() = default;
    virtual void setCode(const QString& code) = 0;
    virtual int result() const = 0;
};

} // namespace tarvello::host
