#pragma once

#include "platform/db/value.h"

#include <QString>

namespace tarvello::host {

// The host's texts for the user.
class MessageCatalogue {
public:
    virtual ~MessageCatalogue() = default;
    // The message with that number, its parameters put in place; raises an error for a
    // number the catalogue does not hold.
    virtual QString message(int number, const db::ValueList& parameters) const = 0;
    // A text of the module as the host shows it to the user.
    virtual QString text(const QString& text) const = 0;
};

} // namespace tarvello::host
