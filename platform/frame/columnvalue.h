#pragma once

#include "platform/db/resultset.h"
#include "platform/db/value.h"

#include <optional>

namespace tarvello::frame {

// A control's value made fit for the column it is bound to, or the reason it cannot be.
struct ColumnValue {
    enum class Refusal { None, NotANumber, NotADate };

    std::optional<db::Value> value;
    Refusal refusal = Refusal::None;

    bool accepted() const { return value.has_value(); }
};

// Converts what a control holds to the kind of its column: a blank value is Null, numbers go
// to numeric columns (a text must read as a number), dates to date columns (a text must read
// as dd/MM/yyyy). Texts and unknown kinds take the value as it is.
ColumnValue toColumnValue(const db::Value& value, db::ColumnKind kind);

// Whether two key values name the same row, as the database compares them: numbers by
// value, texts without trailing blanks and regardless of case.
bool sameKey(const db::Value& a, const db::Value& b);

} // namespace tarvello::frame
