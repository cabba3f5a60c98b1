#pragma once

#include "platform/controls/eventargs.h"
#include "platform/db/value.h"

#include <optional>

namespace tarvello::controls {

class Field;

// Shows the list a field's lookup request described and returns the row the person chose
// (its first column is the code), or nothing when the list was closed without a choice.
// The host implements it over its user prompts; the field only raises the request.
class LookupPresenter {
public:
    virtual ~LookupPresenter() = default;
    virtual std::optional<db::ValueList> chooseFromLookup(Field& field,
                                                          const LookupArgs& request) = 0;
};

} // namespace tarvello::controls
