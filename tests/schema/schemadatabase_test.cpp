#include "platform/db/recordset.h"
#include "platform/db/schema.h"
#include "schemadatabase.h"

using namespace tarvello;
using namespace tarvello::db;

namespace {

// A value the column accepts, for the columns a row must name.
Value sampleFor(const ColumnDef& column)
{
    switch (column.kind()) {
    case ColumnKind::Text:
        return QStringLiteral("X");
    case ColumnKind::Decimal:
        return Decimal(1);
    case ColumnKind::Date:
        return QDate(2024, 1, 1);
    default:
        return 1;
    }
}

} // namespace

class SchemaOnDatabase : public test::SchemaDatabaseTest {};

TEST_P(SchemaOnDatabase, TheDatabaseDescribesEveryTableAsDeclared)
{
    for (const TableDef& table : Schema::host().tables()) {
        SCOPED_TRACE(table.name.toStdString());
        const TableInfo& info = db().tableInfo(table.name);
        ASSERT_TRUE(info.exists());
        ASSERT_EQ(info.columns.size(), table.columns.size());
        for (const ColumnDef& column : table.columns) {
            SCOPED_TRACE(column.name.toStdString());
            const TableInfo::ColumnInfo* found = info.column(column.name);
            ASSERT_NE(found, nullptr);
            EXPECT_EQ(found->kind, column.kind());
            EXPECT_EQ(found->identity, column.identity);
            EXPECT_EQ(found->primaryKey, table.primaryKey.contains(column.name));
            EXPECT_EQ(found->hasDefault, !column.defaultValue.isEmpty());
            if (!column.identity) {
                EXPECT_EQ(found->notNull, column.notNull);
            }
        }
        EXPECT_EQ(info.primaryKey(), table.primaryKey);
        EXPECT_EQ(info.identityColumn(), table.identityColumn());
    }
}

TEST_P(SchemaOnDatabase, EveryTableTakesARowNamingOnlyItsRequiredColumns)
{
    for (const TableDef& table : Schema::host().tables()) {
        SCOPED_TRACE(table.name.toStdString());
        QStringList columns;
        ValueList values;
        for (const ColumnDef& column : table.columns) {
            if (column.notNull && column.defaultValue.isEmpty() && !column.identity) {
                columns << column.name;
                values << sampleFor(column);
            }
        }
        db().insertRow(table.name, columns, values, table.identityColumn());
        const ResultSet rows = db().run(QStringLiteral("SELECT * FROM %1").arg(table.name));
        ASSERT_EQ(rows.rows.size(), 1);
        for (const ColumnDef& column : table.columns) {
            const Value stored = rows.rows.first().value(rows.columnIndex(column.name));
            if (column.identity)
                EXPECT_GT(stored.toInt64(), 0);
            else if (columns.contains(column.name))
                EXPECT_FALSE(stored.isNull()) << column.name.toStdString();
            else if (column.defaultValue.isEmpty())
                EXPECT_TRUE(stored.isNull()) << column.name.toStdString();
            else
                EXPECT_EQ(stored.toString(), QString(column.defaultValue).remove(u'\''))
                    << column.name.toStdString();
        }
    }
}

TEST_P(SchemaOnDatabase, ADeletedAgentsIdIsNeverGivenAgain)
{
    // Optimistic concurrency checks rows by key: a reused id would match a stranger's row.
    const QStringList columns{QStringLiteral("MG17_DITTA_CG18"), QStringLiteral("MG17_AGENTE")};
    const QString id = QStringLiteral("MG17_IDAGENTE");
    db().insertRow(QStringLiteral("MG17_AGENTI"), columns, {1, "A001"}, id);
    const qint64 second =
        db().insertRow(QStringLiteral("MG17_AGENTI"), columns, {1, "A002"}, id).toInt64();
    db().run(QStringLiteral("DELETE FROM MG17_AGENTI WHERE MG17_IDAGENTE = ?"), {second});
    const qint64 third =
        db().insertRow(QStringLiteral("MG17_AGENTI"), columns, {1, "A003"}, id).toInt64();
    EXPECT_GT(third, second);
}

TEST_P(SchemaOnDatabase, CompanyAndAgentFiltersSearchAnIndexInsteadOfScanning)
{
    // The filters the module's statements put on each table, with sample values.
    const QStringList filters{
        "SELECT * FROM MG17_AGENTI WHERE MG17_DITTA_CG18 = 1",
        "SELECT * FROM MG17_AGENTI WHERE MG17_DITTA_CG18 = 1 AND MG17_AGENTE = 'A001'",
        "SELECT MG17_AGENTE FROM MG17_AGENTI WHERE MG17_IDAGENTE = 5",
        "SELECT MG17_AGENTE FROM MG17_AGENTI WHERE MG17_DITTA_CG18 = 1 AND MG17_IDAGERIF_MG17 = 5",
        "SELECT MG17_AGENTE FROM MG17_AGENTI WHERE MG17_DITTA_CG18 = 1 AND MG17_ANAGEN_CG16 = 6",
        "SELECT MG17_AGENTE, CG16_RAGSOANAG FROM MG17_AGENTI INNER JOIN CG16_ANAGGEN ON "
        "CG16_CODICE = MG17_ANAGEN_CG16 WHERE MG17_DITTA_CG18 = 1",
        "SELECT * FROM MG18_AGENTISOCI WHERE MG18_DITTA_CG18 = 1 AND MG18_IDAGENTE_MG17 = 5",
        "SELECT * FROM MG16_AGENTIMAT WHERE MG16_DITTA_CG18 = 1 AND MG16_IDAGENTE_MG17 = 5",
        "SELECT * FROM MG34_AGENTITV WHERE MG34_DITTA_CG18 = 1 AND MG34_IDAGENTE_MG17 = 5",
        "SELECT * FROM MG1I_DETTAGLIOGIRI WHERE MG1I_DITTA_CG18 = 1",
        "SELECT * FROM MG1I_DETTAGLIOGIRI WHERE MG1I_DITTA_CG18 = 1 AND MG1I_IDAGENTE_MG17 = 5 "
        "AND MG1I_GIRO_MG1H = 'G01'",
        "SELECT * FROM MG1I_DETTAGLIOGIRI WHERE MG1I_DITTA_CG18 = 1 AND MG1I_TIPOCF_CG44 = 0 AND "
        "MG1I_CLIFOR_CG44 = 1021 AND MG1I_IDAGENTE_MG17 <> 5 AND "
        "IFNULL(MG1I_CODDEST_MG22, '') = ''",
        "SELECT DISTINCT MG1H_GIRO, MG1H_DESCRIZIONE FROM MG1I_DETTAGLIOGIRI INNER JOIN MG1H_GIRI "
        "ON MG1I_DITTA_CG18 = MG1H_DITTA_CG18 AND MG1H_GIRO = MG1I_GIRO_MG1H WHERE "
        "MG1I_DITTA_CG18 = 1 AND MG1I_IDAGENTE_MG17 = 5",
        "SELECT 1 FROM MG1C_CLIFORAGEMUL WHERE MG1C_DITTA_CG18 = 1 AND MG1C_TIPOCF_CG44 = 0 AND "
        "MG1C_CLIFOR_CG44 = 1021 AND MG1C_IDAGENTE_MG17 = 5 LIMIT 1",
        "SELECT CG44_CLIFOR FROM CG44_CLIFOR WHERE CG44_DITTA_CG18 = 1 AND CG44_TIPOCF = 1 AND "
        "CG44_CODICE_CG16 = 6",
        "SELECT CG16_CODICE FROM CG16_ANAGGEN WHERE CG16_RAGSOANAG = 'RICCI FRANCESCA'",
        "SELECT CG16_RAGSOANAG FROM CG16_ANAGGEN WHERE CG16_CODICE = 6",
        "SELECT PA10_DESCPROVSC FROM PA10_PROVSCANAG WHERE PA10_DITTA_CG18 = 1 AND "
        "PA10_CODPROVSC = 'SCONTI10' AND PA10_FLGVENACQ = 0",
        "SELECT LP09_ID FROM LP09_TESTATAPRIORITA WHERE LP09_CODICE = 'PRI1'",
        "SELECT LP09_CODICE FROM LP09_TESTATAPRIORITA WHERE LP09_ID = 1",
        "SELECT MG58_DESCRDEP FROM MG58_DEPOSITI WHERE MG58_DITTA_CG18 = 1 AND MG58_CODDEP = '01'",
        "SELECT * FROM CG68_NUMERDESC WHERE CG68_DITTA_CG18 = 1 AND CG68_SEZIONALE = '01'",
        "SELECT MG1H_DESCRIZIONE FROM MG1H_GIRI WHERE MG1H_DITTA_CG18 = 1 AND MG1H_GIRO = 'G01'",
        "SELECT MG22_DESCRDEST FROM MG22_DESTINATARI WHERE MG22_DITTA_CG18 = 1 AND "
        "MG22_TIPOCF_CG44 = 0 AND MG22_CLIFOR_CG44 = 1022",
        "DELETE FROM CO1C_ENTITADIV WHERE CO1C_DITTA_CG18 = 1 AND CO1C_IDENTITA = 3 AND "
        "CO1C_IDAGENTE_MG17 = 5",
        "DELETE FROM CO1G_DETTAGENTE WHERE CO1G_IDENTITADIV_CO1C IN (SELECT CO1C_IDENTITADIV FROM "
        "CO1C_ENTITADIV WHERE CO1C_DITTA_CG18 = 1 AND CO1C_IDENTITA = 3 AND "
        "CO1C_IDAGENTE_MG17 = 5)",
        "DELETE FROM MG1I_DETTAGLIOGIRI WHERE MG1I_DITTA_CG18 = 1 AND MG1I_IDAGENTE_MG17 = 5",
    };
    QStringList statements = filters;
    for (const char* table : {"DO21_DOCTESTAPROV", "DO29_DOCTESAGENTI", "DO32_DOCCORPOPROV",
                              "CT05_CATESTA", "CT06_CACORPO"}) {
        const QString prefix = QString::fromLatin1(table).left(4);
        statements << QStringLiteral("SELECT COUNT(%1_IDAGENTE_MG17) AS CONTATORE FROM %2 WHERE "
                                     "%1_DITTA_CG18 = 1 AND %1_IDAGENTE_MG17 = 5")
                          .arg(prefix, QString::fromLatin1(table));
    }
    for (const QString& statement : statements) {
        const ResultSet plan = db().run(QStringLiteral("EXPLAIN QUERY PLAN ") + statement);
        const int detail = plan.columnIndex(u"detail");
        ASSERT_GE(detail, 0);
        for (const ValueList& step : plan.rows) {
            const QString text = step.value(detail).toString();
            EXPECT_FALSE(text.startsWith(u"SCAN ") && !text.contains(u" USING "))
                << statement.toStdString() << "\n  " << text.toStdString();
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Targets, SchemaOnDatabase, ::testing::ValuesIn(test::databaseTargets()),
                         [](const auto& info) { return test::targetName(info.param); });
