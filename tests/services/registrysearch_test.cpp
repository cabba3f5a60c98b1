#include "platform/db/demodata.h"
#include "platform/services/hostcontext.h"
#include "platform/services/registrysearch.h"
#include "platform/services/scriptedprompts.h"
#include "support/testdatabase.h"

#include <gtest/gtest.h>

using namespace tarvello;
using namespace tarvello::services;

namespace {

// Two registry entries, the first one used by the agent D'ANGELO of company 1.
class RegistrySearchTest : public ::testing::TestWithParam<test::DatabaseTarget> {
protected:
    RegistrySearchTest()
        : database(GetParam())
    {
        db::createSchema(database.connection());
        database.runScript(QStringLiteral(
            "INSERT INTO CG16_ANAGGEN (CG16_CODICE, CG16_RAGSOANAG) VALUES (9, 'D''ANGELO "
            "SALVATORE');\n"
            "INSERT INTO CG16_ANAGGEN (CG16_CODICE, CG16_RAGSOANAG) VALUES (10, 'CONTI & "
            "PARTNERS');\n"
            "INSERT INTO MG17_AGENTI (MG17_DITTA_CG18, MG17_AGENTE, MG17_ANAGEN_CG16) "
            "VALUES (1, 'D''ANGELO', 9);\n"));
        search.setConnection(&database.connection(), database.connectionString());
        search.setCompany(1);
        search.setTitle(QStringLiteral("Agenti e anagrafiche non assegnate"));
        search.setKind(host::GeneralRegistrySearch::AgentsAndFreeEntries);
    }

    test::TestDatabase database;
    ScriptedPrompts prompts;
    HostContext context{prompts, QString(), host::Company{1, QStringLiteral("DITTA"), false}};
    RegistrySearch search{context.managements()};
};

} // namespace

TEST_P(RegistrySearchTest, TheSearchRefusesWhatItsListDoesNotShow)
{
    // An agent of another company; an entry already used by an agent; an entry that is not.
    for (const PromptAnswer& answer : {PromptAnswer::agent(QStringLiteral("A001")),
                                       PromptAnswer::registry(9), PromptAnswer::registry(99)}) {
        prompts.queue(answer);
        EXPECT_THROW(search.run(), PromptError) << answer.describe().toStdString();
    }
    // Every entry is listed when all of them are searched.
    search.setKind(host::GeneralRegistrySearch::AllEntries);
    prompts.queue(PromptAnswer::registry(9));
    search.run();
    EXPECT_EQ(search.selectedRegistryCode(), db::Value(9));
}

INSTANTIATE_TEST_SUITE_P(Targets, RegistrySearchTest, ::testing::ValuesIn(test::databaseTargets()),
                         [](const auto& info) { return test::targetName(info.param); });
