#include "platform/db/demodata.h"
#include "platform/db/recordset.h"
#include "platform/db/runtimeerror.h"
#include "platform/services/hostcontext.h"
#include "platform/services/hostlookup.h"
#include "platform/services/scriptedprompts.h"
#include "support/testdatabase.h"

#include <gtest/gtest.h>

using namespace tarvello;
using namespace tarvello::services;

namespace {

class Lookups : public ::testing::Test {
protected:
    ScriptedPrompts prompts;
    HostContext context{prompts, QString(), {1, QStringLiteral("Ditta uno"), true}};
    LookupCatalogue catalogue = LookupCatalogue::standard();
    HostLookup lookup{catalogue, context};
};

long errorNumberOf(const std::function<void()>& f)
{
    try {
        f();
    } catch (const db::RuntimeError& error) {
        return error.number();
    }
    return 0;
}

} // namespace

TEST_F(Lookups, TextParametersAreQuotedWithQuotesDoubled)
{
    lookup.setParameter(QStringLiteral("MACROAREA"), db::Value("N'O"));
    lookup.prepareDecoding(QStringLiteral("LKP_AREEAGE"), db::Value("L'M"),
                           QStringLiteral("TXT_DESAREA"));
    EXPECT_EQ(lookup.query(), QStringLiteral("SELECT MGL2_DESCRIZIONE FROM MGL2_AREE"
                                             " WHERE MGL2_DITTA_CG18 = 1"
                                             " AND MGL2_MACROAREA_MGL1 = 'N''O'"
                                             " AND MGL2_AREA = 'L''M'"));
    EXPECT_EQ(lookup.targets(), QList<host::DecodeTarget>({{"TXT_DESAREA", "MGL2_DESCRIZIONE"}}));
}

// The lookup list gets a parent that is empty on screen as the two characters '' and must
// search for them, not take them as SQL.
TEST_F(Lookups, AParameterHoldingQuotesIsATextNotSql)
{
    lookup.setParameter(QStringLiteral("MACROAREA"), db::Value("''"));
    lookup.prepareLookup(QStringLiteral("LKP_AREEAGE"));
    EXPECT_TRUE(lookup.query().contains(QStringLiteral("MGL2_MACROAREA_MGL1 = '''''' ORDER BY")));
    EXPECT_EQ(lookup.title(), QStringLiteral("Elenco aree agenti"));
    EXPECT_EQ(lookup.columns(), QStringList({"Codice", "Descrizione"}));
    EXPECT_FALSE(lookup.lookupId().isEmpty());
}

TEST_F(Lookups, NumberParametersMustBeNumbers)
{
    EXPECT_EQ(errorNumberOf([&] {
                  lookup.prepareDecoding(QStringLiteral("LKP_AGENTIBYID"), db::Value("1 OR 1=1"),
                                         QStringLiteral("TXT_DESCCAPOAREA"));
              }),
              db::RuntimeError::TypeMismatch);
    lookup.prepareDecoding(QStringLiteral("LKP_AGENTIBYID"), db::Value(" 17 "),
                           QStringLiteral("TXT_DESCCAPOAREA"));
    EXPECT_TRUE(lookup.query().endsWith(QStringLiteral("AND MG17_IDAGENTE = 17")));
}

TEST_F(Lookups, AParameterNotSetOrADefinitionNotKnownIsAnError)
{
    EXPECT_EQ(errorNumberOf([&] { lookup.prepareLookup(QStringLiteral("LKP_ZONEAGE")); }),
              db::RuntimeError::InvalidProcedureCall);
    EXPECT_EQ(errorNumberOf([&] { lookup.prepareLookup(QStringLiteral("LKP_NESSUNA")); }),
              db::RuntimeError::InvalidProcedureCall);
}

// Every statement of the catalogue runs on the host tables: column names, joins and the
// statement forms are checked against the real schema and demo rows.
class CatalogueOnDatabase : public ::testing::TestWithParam<test::DatabaseTarget> {};

TEST_P(CatalogueOnDatabase, EveryStatementRunsOnTheHostTables)
{
    test::TestDatabase database(GetParam());
    db::createSchema(database.connection());
    db::populateDemoData(database.connection());
    ScriptedPrompts prompts;
    HostContext context(prompts, database.connectionString(),
                        {db::DemoCompanies::divisional, QStringLiteral("Demo"), true});
    const LookupCatalogue catalogue = LookupCatalogue::standard();
    for (const LookupDefinition& definition : catalogue.definitions()) {
        HostLookup lookup(catalogue, context);
        for (const LookupDefinition::Parameter& parameter : definition.parameters)
            lookup.setParameter(parameter.name, parameter.kind == ParameterKind::Number
                                                    ? db::Value(1)
                                                    : db::Value("X"));
        SCOPED_TRACE(definition.name.toStdString());
        lookup.prepareLookup(definition.name);
        db::RecordsetPtr rows;
        ASSERT_NO_THROW(rows = database.connection().execute(lookup.query()))
            << lookup.query().toStdString();
        EXPECT_EQ(rows->fieldCount(), definition.headings.size());
        const db::Value code =
            definition.codeKind == ParameterKind::Number ? db::Value(1) : db::Value("X");
        lookup.prepareDecoding(definition.name, code, QStringLiteral("TXT_DESCRIZIONE"));
        ASSERT_NO_THROW(rows = database.connection().execute(lookup.query()))
            << lookup.query().toStdString();
        for (const host::DecodeTarget& target : lookup.targets())
            EXPECT_TRUE(rows->hasField(target.column)) << target.column.toStdString();
    }
}

INSTANTIATE_TEST_SUITE_P(Targets, CatalogueOnDatabase, ::testing::ValuesIn(test::databaseTargets()),
                         [](const auto& info) { return test::targetName(info.param); });
