#pragma once

#include "platform/db/value.h"

// The Null-safe helpers every value read from a field or a control passes through before
// it is compared, shown or put into SQL.

namespace tarvello::agenti {

// The text without trailing blanks; the empty text for Empty, Null and the empty text.
db::Value RTrimN(const db::Value& value);

// The value as an exact decimal; 0 for Empty, Null and the empty text. A text is read in
// the current locale: when it holds the locale's decimal separator it may also hold the
// locale's group separators ("1.234,5" in Italian); otherwise '.' or ',' separates the
// decimals. A value that is not a number raises a type mismatch (13).
db::Value CDecN(const db::Value& value);

// As CDecN, with -1 for Empty, Null and the empty text.
db::Value CNegUno(const db::Value& value);

// The value itself unless it is Empty, Null or reads as the empty text: then the default.
// A value without a text form (an array) is returned as it is.
db::Value NvlN(const db::Value& value, const db::Value& defaultValue);

} // namespace tarvello::agenti
