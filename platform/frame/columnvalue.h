#pragma once

#include "platform/db/resultset.h"
#include "platform/db/value.h"

#include <optional>

namespace tarvello::frame {

// The kind and the size of the column a control is bound to, as the database describes it.
struct ColumnFormat {
    db::ColumnKind kind = db::ColumnKind::Unknown;
    db::ColumnSize size;
};

// A control's value made fit for the column it is bound to, or the reason it cannot be.
struct ColumnValue {
    enum class Refusal {
        None,
        NotANumber,
        NotADate,
        NotWhole,        // a fraction for an integer column
        TooManyDecimals, // more decimal places than the column keeps
        OutOfRange,      // a number beyond what the column holds
        TooLong,         // more characters than the column holds
    };

    std::optional<db::Value> value;
    Refusal refusal = Refusal::None;
    // What the column allows, for the message: the decimal places, the range ("da -999,999 a
    // 999,999"), the characters.
    QString limit;

    bool accepted() const { return value.has_value(); }
};

// Converts what a control holds to the kind of its column: a blank value is Null, numbers go
// to numeric columns (a text must read as a number), dates to date columns (a text must read
// as dd/MM/yyyy). Where the column has a size, the value must fit it: an integer within the
// range of its bytes, a decimal within its digits and decimal places, a text within its
// characters; nothing is rounded or cut. Unknown kinds take the value as it is.
ColumnValue toColumnValue(const db::Value& value, const ColumnFormat& format);

// Whether two key values name the same row, as the database compares them: numbers by
// value, texts without trailing blanks and regardless of case.
bool sameKey(const db::Value& a, const db::Value& b);

} // namespace tarvello::frame
