#pragma once

#include "platform/db/connection.h"
#include "platform/db/demodata.h"
#include "support/testdatabase.h"

#include <gtest/gtest.h>
#include <memory>
#include <ostream>

// Readable failure messages for the texts and values these tests compare.
inline void PrintTo(const QString& text, std::ostream* os)
{
    *os << '"' << text.toStdString() << '"';
}

namespace tarvello::db {
inline void PrintTo(const Value& value, std::ostream* os)
{
    *os << value.debugText().toStdString();
}
} // namespace tarvello::db

namespace tarvello::test {

// A fresh database holding the host schema, once per database target.
class SchemaDatabaseTest : public ::testing::TestWithParam<DatabaseTarget> {
protected:
    void SetUp() override
    {
        m_database = std::make_unique<TestDatabase>(GetParam());
        db::createSchema(db());
    }

    db::Connection& db() { return m_database->connection(); }

    // The first column of the first row of a statement both engines accept.
    db::Value scalar(const QString& sql, const db::ValueList& parameters = {})
    {
        const db::ResultSet result = db().run(sql, parameters);
        if (result.rows.isEmpty() || result.rows.first().isEmpty()) {
            ADD_FAILURE() << "no row from " << sql.toStdString();
            return {};
        }
        return result.rows.first().first();
    }

    qint64 count(const QString& sql, const db::ValueList& parameters = {})
    {
        return scalar(sql, parameters).toInt64();
    }

private:
    std::unique_ptr<TestDatabase> m_database;
};

} // namespace tarvello::test
