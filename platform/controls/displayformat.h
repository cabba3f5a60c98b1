#pragma once

#include "platform/db/value.h"

#include <QDate>
#include <QString>
#include <QStringView>

namespace tarvello::controls {

// The text a field or a grid cell shows for a value, with Italian separators: '.' groups
// thousands and ',' separates decimals.
//
// Number formats are patterns of '#', '0', ',' and '.' as the screens write them: before
// the '.' a ',' asks for grouping and each '0' for a digit always shown; after it each '0'
// is a decimal always shown and each '#' one shown when not zero. Values are rounded half
// away from zero. At least one digit stands before the decimal separator, so "#.000" shows
// 0.5 as "0,500" rather than a bare ",500".
//   1234.5 with "#,0.00" -> "1.234,50";  50 with "#.000" -> "50,000";  -0.004 with "#,0.00" ->
//   "0,00"
// Without a format (or with one that is not a number pattern) a number shows as plain
// digits with ',' for the decimals, and a date as dd/MM/yyyy (with the time when it has one).
// Texts that read as numbers are formatted like numbers; other texts show as they are;
// Empty and Null show nothing.
QString formatForDisplay(const db::Value& value, QStringView format = {});

// A date as a person types it: dd/MM/yyyy, with one-digit days and months, with two-digit
// years ("1/3/25"), as bare digits ("010325", "01032025"), or in ISO form. A two-digit year
// is the one nearest today within the past 80 and the next 20 years. Invalid when the text
// is no date.
QDate readDate(const QString& text);
// The date as a field shows it: dd/MM/yyyy.
QString dateText(const QDate& date);

} // namespace tarvello::controls
