#include "platform/db/tsqlfunctions.h"

#include <QList>
#include <QString>
#include <algorithm>
#include <sqlite3.h>

namespace tarvello::db {

namespace {

int withoutTrailingBlanks(const char* text, int length)
{
    while (length > 0 && text[length - 1] == ' ')
        --length;
    return length;
}

int compareIgnoringCaseAndTrailingBlanks(void*, int leftLength, const void* left, int rightLength,
                                         const void* right)
{
    const auto* a = static_cast<const char*>(left);
    const auto* b = static_cast<const char*>(right);
    leftLength = withoutTrailingBlanks(a, leftLength);
    rightLength = withoutTrailingBlanks(b, rightLength);
    const int common = std::min(leftLength, rightLength);
    const int order = sqlite3_strnicmp(a, b, common);
    return order != 0 ? order : leftLength - rightLength;
}

// Letter by letter, as SQL Server maps case: no letter becomes two ("ß" stays).
template <char32_t (*Convert)(char32_t)>
void convertCase(sqlite3_context* context, int, sqlite3_value** arguments)
{
    if (sqlite3_value_type(arguments[0]) == SQLITE_NULL) {
        sqlite3_result_null(context);
        return;
    }
    const auto* text = reinterpret_cast<const char*>(sqlite3_value_text(arguments[0]));
    const QString source = QString::fromUtf8(text, sqlite3_value_bytes(arguments[0]));
    QList<uint> letters = source.toUcs4();
    for (uint& letter : letters)
        letter = Convert(letter);
    const QByteArray converted =
        QString::fromUcs4(reinterpret_cast<const char32_t*>(letters.constData()), letters.size())
            .toUtf8();
    sqlite3_result_text(context, converted.constData(), int(converted.size()), SQLITE_TRANSIENT);
}

char32_t upperLetter(char32_t letter)
{
    return QChar::toUpper(letter);
}

char32_t lowerLetter(char32_t letter)
{
    return QChar::toLower(letter);
}

void tsqlAdd(sqlite3_context* context, int, sqlite3_value** arguments)
{
    sqlite3_value* left = arguments[0];
    sqlite3_value* right = arguments[1];
    if (sqlite3_value_type(left) == SQLITE_NULL || sqlite3_value_type(right) == SQLITE_NULL) {
        sqlite3_result_null(context);
        return;
    }
    if (sqlite3_value_type(left) == SQLITE_TEXT && sqlite3_value_type(right) == SQLITE_TEXT) {
        QByteArray joined(reinterpret_cast<const char*>(sqlite3_value_text(left)),
                          sqlite3_value_bytes(left));
        joined.append(reinterpret_cast<const char*>(sqlite3_value_text(right)),
                      sqlite3_value_bytes(right));
        sqlite3_result_text(context, joined.constData(), int(joined.size()), SQLITE_TRANSIENT);
        return;
    }
    // Anything else adds as SQLite's own '+' does: a text is read as the number it spells.
    if (sqlite3_value_numeric_type(left) == SQLITE_INTEGER &&
        sqlite3_value_numeric_type(right) == SQLITE_INTEGER) {
        const sqlite3_int64 a = sqlite3_value_int64(left);
        const sqlite3_int64 b = sqlite3_value_int64(right);
        sqlite3_int64 sum = 0;
        if (!__builtin_add_overflow(a, b, &sum)) {
            sqlite3_result_int64(context, sum);
            return;
        }
    }
    sqlite3_result_double(context, sqlite3_value_double(left) + sqlite3_value_double(right));
}

} // namespace

int registerTsqlFunctions(sqlite3* db)
{
    constexpr int pure = SQLITE_UTF8 | SQLITE_DETERMINISTIC | SQLITE_INNOCUOUS;
    int rc = sqlite3_create_collation(db, "NOCASE", SQLITE_UTF8, nullptr,
                                      compareIgnoringCaseAndTrailingBlanks);
    if (rc == SQLITE_OK)
        rc = sqlite3_create_function(db, "upper", 1, pure, nullptr, convertCase<upperLetter>,
                                     nullptr, nullptr);
    if (rc == SQLITE_OK)
        rc = sqlite3_create_function(db, "lower", 1, pure, nullptr, convertCase<lowerLetter>,
                                     nullptr, nullptr);
    if (rc == SQLITE_OK)
        rc = sqlite3_create_function(db, tsqlAddFunction, 2, pure, nullptr, tsqlAdd, nullptr,
                                     nullptr);
    return rc;
}

} // namespace tarvello::db
