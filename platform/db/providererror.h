#pragma once

#include <QString>

namespace tarvello::db {

// An error as the database driver reported it.
struct ProviderError {
    long number = 0;
    QString description;
    QString sqlState;
    QString source;
};

} // namespace tarvello::db
