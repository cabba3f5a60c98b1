#pragma once

#include "platform/db/value.h"

#include <QString>
#include <functional>
#include <memory>
#include <optional>
#include <utility>

namespace tarvello::db {

// A recordset's Find and Filter criteria: "COL = 5", "COL <> 'it''s' AND (A > 1 OR B IS
// NULL)", "COL LIKE 'AB*'", dates between #...#. Texts compare as SQL Server compares them:
// without regard to case or to trailing blanks.
// Parsed once, then matched against many rows.
class Criteria {
public:
    // Resolves a field name to the value of the row being matched; raises ItemNotFound.
    using FieldReader = std::function<Value(const QString& field)>;

    // Raises RuntimeError (invalid procedure call) for a text it cannot read.
    static Criteria parse(const QString& text);

    bool isEmpty() const { return !m_root; }
    bool matches(const FieldReader& field) const;
    // The fields the criteria name, so a caller can check them once.
    QStringList fields() const;
    // The field and the text when the criteria are one "FIELD = 'text'"; none otherwise.
    std::optional<std::pair<QString, QString>> textEquality() const;

    struct Node;

private:
    std::shared_ptr<const Node> m_root;
};

// Compares two values as a sort or a criterion does: Null first, numbers by value, texts
// without regard to case or to trailing blanks, dates by time. Returns <0, 0 or >0.
int compareValues(const Value& a, const Value& b);

// The text as a comparison sees it: trailing blanks do not count.
QString comparedText(const QString& text);

} // namespace tarvello::db
