#include "platform/db/schema.h"
#include "schemadatabase.h"

#include <QDir>
#include <QFile>
#include <QSet>
#include <gtest/gtest.h>

using namespace tarvello::db;

namespace {

const Schema& schema()
{
    return Schema::host();
}

QString prefixOf(const TableDef& table)
{
    return table.name.section(u'_', 0, 0);
}

QString schemaFile(Dialect dialect)
{
    return QDir(QStringLiteral(TARVELLO_SCHEMA_DIR)).filePath(schemaScriptFileName(dialect));
}

} // namespace

TEST(SchemaDeclaration, ColumnsCarryTheirTablePrefixAndAreUniqueAcrossTheSchema)
{
    // The T-SQL rewriting tells text columns by bare name, which needs unique names.
    QSet<QString> seen;
    for (const TableDef& table : schema().tables()) {
        for (const ColumnDef& column : table.columns) {
            EXPECT_TRUE(column.name.startsWith(prefixOf(table) + u'_'))
                << column.name.toStdString() << " in " << table.name.toStdString();
            EXPECT_FALSE(seen.contains(column.name)) << column.name.toStdString();
            seen.insert(column.name);
            EXPECT_EQ(schema().column(column.name.toLower()), &column);
        }
    }
    EXPECT_EQ(schema().column(u"MG17_NOPE"), nullptr);
}

TEST(SchemaDeclaration, KeysAndIndexesNameRealColumnsAndKeysAreNeverNull)
{
    QSet<QString> indexNames;
    for (const TableDef& table : schema().tables()) {
        SCOPED_TRACE(table.name.toStdString());
        ASSERT_FALSE(table.primaryKey.isEmpty());
        for (const QString& key : table.primaryKey) {
            const ColumnDef* column = table.column(key);
            ASSERT_NE(column, nullptr) << key.toStdString();
            EXPECT_TRUE(column->notNull) << key.toStdString();
        }
        for (const IndexDef& index : table.indexes) {
            EXPECT_FALSE(indexNames.contains(index.name)) << index.name.toStdString();
            indexNames.insert(index.name);
            for (const QString& column : index.columns)
                EXPECT_NE(table.column(column), nullptr) << column.toStdString();
        }
        EXPECT_EQ(schema().table(table.name), &table);
    }
}

TEST(SchemaDeclaration, AgentsAndTheirDetailRowsHaveDatabaseAssignedKeys)
{
    // A batch update finds a detail row by its key; a key the person can edit would move.
    for (const char* name : {"MG17_AGENTI", "MG18_AGENTISOCI", "MG16_AGENTIMAT", "MG34_AGENTITV",
                             "MG1I_DETTAGLIOGIRI", "CO1C_ENTITADIV", "CO1G_DETTAGENTE"}) {
        const TableDef* table = schema().table(QString::fromLatin1(name));
        ASSERT_NE(table, nullptr) << name;
        EXPECT_FALSE(table->identityColumn().isEmpty()) << name;
        EXPECT_EQ(table->primaryKey, QStringList{table->identityColumn()}) << name;
    }
    EXPECT_EQ(schema().table(u"MG17_AGENTI")->identityColumn(), QStringLiteral("MG17_IDAGENTE"));
}

TEST(SchemaDeclaration, DeclaredTypesReadBackAsTheColumnKinds)
{
    for (const TableDef& table : schema().tables()) {
        for (const ColumnDef& column : table.columns) {
            for (Dialect dialect : {Dialect::Sqlite, Dialect::SqlServer}) {
                EXPECT_EQ(columnKindFromDeclaredType(column.declaredType(dialect)), column.kind())
                    << column.name.toStdString() << " "
                    << column.declaredType(dialect).toStdString();
            }
        }
    }
}

// To regenerate the checked-in files after a change of the declaration, run this test with
// TARVELLO_WRITE_SCHEMA=1 in the environment.
TEST(SchemaScripts, CheckedInFilesEqualTheGeneratedDdl)
{
    const bool write = qEnvironmentVariableIntValue("TARVELLO_WRITE_SCHEMA") == 1;
    for (Dialect dialect : {Dialect::Sqlite, Dialect::SqlServer}) {
        QFile file(schemaFile(dialect));
        const QString generated = schema().script(dialect);
        if (write) {
            ASSERT_TRUE(file.open(QIODevice::WriteOnly | QIODevice::Truncate))
                << file.fileName().toStdString();
            file.write(generated.toUtf8());
            file.close();
        }
        ASSERT_TRUE(file.open(QIODevice::ReadOnly)) << file.fileName().toStdString();
        EXPECT_EQ(QString::fromUtf8(file.readAll()), generated)
            << file.fileName().toStdString()
            << " is out of date: rerun this test with TARVELLO_WRITE_SCHEMA=1";
    }
}

TEST(SchemaScripts, EachEngineGetsItsOwnSpellingOfIdentityNullabilityAndKeys)
{
    const QString sqlite = schema().script(Dialect::Sqlite);
    const QString sqlServer = schema().script(Dialect::SqlServer);
    EXPECT_TRUE(sqlite.contains(u"MG17_IDAGENTE INTEGER PRIMARY KEY AUTOINCREMENT,"));
    EXPECT_TRUE(sqlServer.contains(u"MG17_IDAGENTE INT IDENTITY(1,1) NOT NULL,"));
    EXPECT_TRUE(sqlServer.contains(u"CONSTRAINT PK_MG17_AGENTI PRIMARY KEY (MG17_IDAGENTE)"));
    EXPECT_TRUE(sqlServer.contains(u"MG17_IDENTIFTAB SMALLINT NULL DEFAULT -1,"));
    for (const char* sqliteOnly : {"AUTOINCREMENT", "COLLATE", "INTEGER"})
        EXPECT_FALSE(sqlServer.contains(QString::fromLatin1(sqliteOnly))) << sqliteOnly;
    EXPECT_FALSE(sqlite.contains(u"IDENTITY("));

    // SQL Server takes a column's nullability from session settings unless the DDL says it.
    for (const QString& statement : schemaStatements(Dialect::SqlServer)) {
        if (!statement.startsWith(u"CREATE TABLE"))
            continue;
        for (const QString& line : statement.split(u'\n').mid(1)) {
            const QString trimmed = line.trimmed();
            if (trimmed == u")" || trimmed.startsWith(u"CONSTRAINT"))
                continue;
            EXPECT_TRUE(trimmed.contains(u" NULL")) << trimmed.toStdString();
        }
    }
}
