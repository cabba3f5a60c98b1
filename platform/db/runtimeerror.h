#pragma once

#include <QString>
#include <stdexcept>

namespace tarvello::db {

// A run-time error as the module's error styles see it: a number, a description and the
// place it was raised. Provider errors carry the provider's own number.
class RuntimeError : public std::runtime_error {
public:
    enum Number : long {
        Overflow = 6,
        SubscriptOutOfRange = 9,
        TypeMismatch = 13,
        InvalidUseOfNull = 94,
        InvalidProcedureCall = 5,
        ObjectRequired = 424,
        NoCurrentRecord = 3021,
        ItemNotFound = 3265,
        OperationNotAllowed = 3219,
        ProviderError = -2147217900,
        RowConflict = -2147217864,
        TransactionAborted = -2147168242,
    };

    RuntimeError(long number, QString description, QString source = {});

    long number() const { return m_number; }
    const QString& description() const { return m_description; }
    const QString& source() const { return m_source; }

private:
    long m_number;
    QString m_description;
    QString m_source;
};

} // namespace tarvello::db
