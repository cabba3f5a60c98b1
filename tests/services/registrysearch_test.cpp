#include "platform/db/demodata.h"
#include "platform/db/recordset.h"
#include "platform/services/hostcontext.h"
#include "platform/services/mediaarchive.h"
#include "platform/services/registrysearch.h"
#include "platform/services/scriptedprompts.h"
#include "support/testdatabase.h"

#include <gtest/gtest.h>

using namespace tarvello;
using namespace tarvello::services;

namespace {

// Two registry entries, the first one used by the agent D'ANGELO of company 1.
class HostComponents : public ::testing::TestWithParam<test::DatabaseTarget> {
protected:
    HostComponents()
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

class MediaCreated final : public host::HyperMediaEvents {
public:
    void AfterMediaCreate(const db::Value& CodiceMedia) override { ids.append(CodiceMedia); }
    QList<db::Value> ids;
};

} // namespace

TEST_P(HostComponents, TheSearchHandsBackTheAgentOrTheEntryPicked)
{
    prompts.queue(PromptAnswer::agent(QStringLiteral("D'ANGELO")));
    search.setStartText(QStringLiteral("D'ANG"));
    search.run();
    EXPECT_EQ(search.selectedAgent(), QStringLiteral("D'ANGELO"));
    EXPECT_TRUE(search.selectedRegistryCode().isEmpty());

    prompts.queue(PromptAnswer::registry(10));
    search.run();
    EXPECT_TRUE(search.selectedAgent().isEmpty());
    EXPECT_EQ(search.selectedRegistryCode(), db::Value(10));

    search.run();
    EXPECT_TRUE(search.selectedAgent().isEmpty());
    EXPECT_TRUE(search.selectedRegistryCode().isEmpty());
}

TEST_P(HostComponents, TheSearchRefusesWhatItsListDoesNotShow)
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

TEST_P(HostComponents, TheArchiveRecordsTheFileChosenForAnObjectWithoutMedia)
{
    MediaArchive archive(prompts);
    MediaCreated created;
    archive.events().subscribe(&created);
    prompts.queue(PromptAnswer::file(QStringLiteral("/documenti/contratto.pdf")));
    archive.open(db::Value("mario"), db::Value("PC01"), database.connectionString(), db::Value(), 0,
                 1, 0);
    ASSERT_EQ(created.ids.size(), 1);
    const db::RecordsetPtr row = database.connection().execute(
        QStringLiteral("SELECT CG99_NOMEFILE, CG99_PERCORSO, CG99_DESCRIZIONE FROM "
                       "CG99_MULTIMEDIA WHERE CG99_IDMEDIA = ") +
        created.ids.first().sqlLiteral());
    ASSERT_EQ(row->recordCount(), 1);
    EXPECT_EQ(row->value(u"CG99_NOMEFILE"), db::Value("contratto.pdf"));
    EXPECT_EQ(row->value(u"CG99_PERCORSO"), db::Value("/documenti/contratto.pdf"));
    EXPECT_EQ(row->value(u"CG99_DESCRIZIONE"), db::Value("Dati multimediali di mario (PC01)"));

    // Left without choosing a file, or opened on an existing record, nothing is created; only
    // the first two openings ask for a file.
    archive.open(db::Value("mario"), db::Value("PC01"), database.connectionString(), db::Value(), 0,
                 1, 0);
    archive.open(db::Value("mario"), db::Value("PC01"), database.connectionString(),
                 created.ids.first(), 0, 1, 0);
    EXPECT_EQ(created.ids.size(), 1);
    EXPECT_EQ(database.connection()
                  .execute(QStringLiteral("SELECT * FROM CG99_MULTIMEDIA"))
                  ->recordCount(),
              1);
    ASSERT_EQ(prompts.history().size(), 2);
    EXPECT_EQ(prompts.history().at(1).kind, services::PromptKind::FileChoice);
    EXPECT_TRUE(prompts.history().at(1).defaulted);
}

INSTANTIATE_TEST_SUITE_P(Targets, HostComponents, ::testing::ValuesIn(test::databaseTargets()),
                         [](const auto& info) { return test::targetName(info.param); });
