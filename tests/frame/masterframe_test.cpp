#include "framefixture.h"
#include "platform/db/runtimeerror.h"
#include "src/host/errorlog.h"

namespace tarvello::test {
namespace {

using frame::FrameStatus;

constexpr int Yes = 6;
constexpr int No = 7;
constexpr int Cancel = 2;

QStringList events(std::initializer_list<const char*> names)
{
    QStringList list;
    for (const char* name : names)
        list << QString::fromLatin1(name);
    return list;
}

TEST_P(FrameTest, ARefusedBeforeUpdateLeavesTheRowUnsavedAndPending)
{
    openAgents();
    agents.addNew();
    agente->typeText(QStringLiteral("A001"));
    agentEvents.take();

    agentEvents.refuseUpdate = true;
    EXPECT_FALSE(agents.save());
    EXPECT_EQ(agentEvents.take(), events({"BeforeUpdate"}));
    EXPECT_EQ(count(QStringLiteral("SELECT COUNT(*) FROM MG17_AGENTI")), 0);
    EXPECT_EQ(agents.status(), FrameStatus::New);
    EXPECT_EQ(agents.recordset()->pendingCount(), 1);
    EXPECT_EQ(agents.recordset()->value(u"MG17_AGENTE"), db::Value("A001"));
    EXPECT_TRUE(agents.isRecordChanged());

    agentEvents.refuseUpdate = false;
    EXPECT_TRUE(agents.save());
    EXPECT_EQ(count(QStringLiteral("SELECT COUNT(*) FROM MG17_AGENTI")), 1);
}

TEST_P(FrameTest, ADeleteRefusedByThePersonOrByBeforeDeleteKeepsTheRow)
{
    insertAgent(QStringLiteral("A001"));
    insertAgent(QStringLiteral("B002"));
    insertAgent(QStringLiteral("C003"));
    openAgents();
    ASSERT_EQ(agente->text(), QStringLiteral("A001"));

    answer(No);
    EXPECT_FALSE(agents.deleteRecord());
    EXPECT_TRUE(agentEvents.take().isEmpty()) << "No stops before BeforeDelete";

    answer(Yes);
    agentEvents.refuseDelete = true;
    EXPECT_FALSE(agents.deleteRecord());
    EXPECT_EQ(agentEvents.take(), events({"BeforeDelete"}));
    EXPECT_EQ(count(QStringLiteral("SELECT COUNT(*) FROM MG17_AGENTI")), 3);
    EXPECT_EQ(agente->text(), QStringLiteral("A001"));

    agentEvents.refuseDelete = false;
    answer(Yes);
    ASSERT_TRUE(agents.deleteRecord());
    EXPECT_EQ(agente->text(), QStringLiteral("B002")) << "the next row is shown";
    ASSERT_TRUE(agents.moveLast());
    answer(Yes);
    ASSERT_TRUE(agents.deleteRecord());
    EXPECT_EQ(agente->text(), QStringLiteral("B002")) << "after the last, the previous one";
    EXPECT_EQ(agents.status(), FrameStatus::Browse);
    EXPECT_EQ(count(QStringLiteral("SELECT COUNT(*) FROM MG17_AGENTI")), 1);
}

TEST_P(FrameTest, ASaveIsRefusedOnAFieldThePersonCanFixNamingItAndFocusingIt)
{
    openAgents();
    agents.addNew();
    percentuale->setFocus();
    agentEvents.take();

    EXPECT_FALSE(agents.save());
    EXPECT_TRUE(lastPrompt().text.contains(QStringLiteral("\"Codice agente\"")))
        << lastPrompt().text.toStdString();
    EXPECT_EQ(lastPrompt().style, host::Exclamation);
    EXPECT_EQ(form.activeControl(), agente);
    EXPECT_TRUE(agentEvents.take().isEmpty()) << "BeforeUpdate is not reached";

    agente->typeText(QStringLiteral("A001"));
    percentuale->setValid(false);
    EXPECT_FALSE(agents.save());
    EXPECT_TRUE(lastPrompt().text.contains(QStringLiteral("Percentuale di provvigione")));
    EXPECT_EQ(form.activeControl(), percentuale);

    // A disabled field is never held against the person, required or not valid.
    percentuale->setEnabled(false);
    ragioneSociale->setRequired(true);
    ragioneSociale->setEnabled(false);
    EXPECT_TRUE(agents.save());
    EXPECT_EQ(count(QStringLiteral("SELECT COUNT(*) FROM MG17_AGENTI")), 1);
}

// Values the column cannot hold used to reach the module's handlers (which failed on "-")
// and the database (999999 in a DECIMAL(6,3), "2,5" rounded into a SMALLINT).
TEST_P(FrameTest, AValueItsColumnCannotHoldIsRefusedBeforeTheModuleHearsOfIt)
{
    insertAgent(QStringLiteral("A001"));
    openAgents();
    int validations = 0;
    QObject::connect(percentuale, &controls::Control::validate,
                     [&](controls::CancelArgs&) { ++validations; });
    percentuale->setFocus();
    const auto refusedOnLeaving = [&](const QString& typed) {
        percentuale->setText(typed);
        const qsizetype before = promptCount();
        const bool left = form.focus().leave();
        return !left && promptCount() == before + 1 ? lastPrompt().text : QString();
    };

    EXPECT_EQ(
        refusedOnLeaving(QStringLiteral("-")),
        QStringLiteral("Il campo \"Percentuale di provvigione\" richiede un valore numerico."));
    EXPECT_EQ(refusedOnLeaving(QStringLiteral("999999")),
              QStringLiteral("Il valore del campo \"Percentuale di provvigione\" è fuori dai "
                             "limiti ammessi (da -999,999 a 999,999)."));
    EXPECT_EQ(refusedOnLeaving(QStringLiteral("1,2345")),
              QStringLiteral("Il campo \"Percentuale di provvigione\" ammette al massimo 3 "
                             "decimali."));
    EXPECT_EQ(validations, 0) << "the module's validation never saw a value that does not fit";
    EXPECT_EQ(agents.recordset()->value(u"MG17_PERPROV"), db::Value(0));
    EXPECT_FALSE(agents.save());
    EXPECT_EQ(form.activeControl(), percentuale);

    percentuale->setText(QStringLiteral("12,5"));
    EXPECT_EQ(agents.recordset()->value(u"MG17_PERPROV"),
              db::Value(db::Decimal::fromParts(125, 1)));
    EXPECT_TRUE(agents.save());
    EXPECT_EQ(cell(QStringLiteral("SELECT MG17_PERPROV FROM MG17_AGENTI")).toDecimal(),
              db::Decimal::fromParts(125, 1));
}

TEST_P(FrameTest, ASearchByKeyLandsOnTheRowFoundOrStaysWhereItWas)
{
    insertAgent(QStringLiteral("A001"));
    insertAgent(QStringLiteral("O'NEIL"));
    insertAgent(QStringLiteral("Z999"), 2);
    openAgents();
    ASSERT_EQ(agente->text(), QStringLiteral("A001"));

    // Code writes another agent's key into the row shown, then searches.
    agents.recordset()->setValue(u"MG17_AGENTE", db::Value("O'NEIL"));
    ASSERT_TRUE(agents.search(true, true));
    EXPECT_EQ(agentEvents.take().last(), QStringLiteral("ChangeStatus(0,4)"));
    EXPECT_EQ(agents.status(), FrameStatus::Browse);
    EXPECT_EQ(agente->text(), QStringLiteral("O'NEIL"));
    EXPECT_EQ(agents.recordset()->pendingCount(), 0)
        << "the row the key was written into keeps its database values";
    EXPECT_EQ(count(QStringLiteral("SELECT COUNT(*) FROM MG17_AGENTI WHERE MG17_AGENTE = 'A001'")),
              1);

    // A new agent whose code is not taken stays new, with its code; no one is told.
    agents.addNew();
    agente->typeText(QStringLiteral("N100"));
    const qsizetype prompted = promptCount();
    EXPECT_FALSE(agents.search(true, true));
    EXPECT_EQ(agents.status(), FrameStatus::New);
    EXPECT_EQ(agente->text(), QStringLiteral("N100"));
    EXPECT_EQ(promptCount(), prompted);

    // Another company's agent is not found from this company.
    agente->typeText(QStringLiteral("Z999"));
    EXPECT_FALSE(agents.search(true, true));

    // A taken code brings up its agent and drops the new row.
    agente->typeText(QStringLiteral("a001"));
    ASSERT_TRUE(agents.search(true, true));
    EXPECT_EQ(agents.status(), FrameStatus::Browse);
    EXPECT_EQ(agents.recordset()->value(u"MG17_AGENTE"), db::Value("A001"));
    EXPECT_EQ(agents.recordset()->recordCount(), 2);
    EXPECT_EQ(agents.recordset()->pendingCount(), 0);
}

TEST_P(FrameTest, ASearchBringsInAnAgentTheRecordsetsQueryLeftOut)
{
    insertAgent(QStringLiteral("A001"));
    const qint64 wanted = insertAgent(QStringLiteral("B002"));
    // Narrowed to one code, as after a change of company.
    openAgents(QStringLiteral(" AND MG17_AGENTE = 'A001'"));
    const db::RecordsetPtr held = agents.recordset();

    agents.setStatus(FrameStatus::New);
    agents.recordset()->setValue(u"MG17_AGENTE", db::Value("B002"));
    ASSERT_TRUE(agents.search(true, true));
    EXPECT_EQ(agents.recordset(), held) << "reopened in place: whoever holds it sees the agent";
    EXPECT_EQ(held->value(u"MG17_IDAGENTE").toInt64(), wanted);
    EXPECT_EQ(agents.recordset()->value(u"MG17_IDAGENTE").toInt64(), wanted);
    EXPECT_EQ(agente->text(), QStringLiteral("B002"));
}

// Search entry has no row of its own while the recordset still stands on the agent shown
// before: a column written there must reach the search, never that agent.
TEST_P(FrameTest, WhatSearchEntryHoldsTouchesNoRowAndGoesWithIt)
{
    insertAgent(QStringLiteral("A001"));
    const qint64 b002 = insertAgent(QStringLiteral("B002"));
    openAgents();
    const QString code = QStringLiteral("MG17_AGENTE");
    const QString share = QStringLiteral("MG17_PERPROV");

    agents.enterSearch();
    agents.writeColumn(code, db::Value("B002"));
    EXPECT_EQ(agente->text(), QStringLiteral("B002"));
    EXPECT_EQ(agents.readColumn(code), db::Value("B002"));
    EXPECT_TRUE(agents.readColumn(QStringLiteral("MG17_IDAGENTE")).isEmpty());
    EXPECT_EQ(agents.recordset()->value(code), db::Value("A001"));
    EXPECT_EQ(agents.recordset()->pendingCount(), 0);
    EXPECT_FALSE(agents.isRecordChanged());
    ASSERT_TRUE(agents.search(true, true));
    EXPECT_EQ(agents.status(), FrameStatus::Browse);
    EXPECT_EQ(agents.recordset()->value(u"MG17_IDAGENTE").toInt64(), b002);

    // A key typed is looked up as well; a key found nowhere keeps search entry.
    agents.enterSearch();
    agente->typeText(QStringLiteral("a001"));
    ASSERT_TRUE(agents.search(true, true));
    EXPECT_EQ(agente->text(), QStringLiteral("A001"));
    agents.enterSearch();
    agents.writeColumn(share, 7);
    agents.writeColumn(code, db::Value("C003"));
    EXPECT_FALSE(agents.search(true, true));
    EXPECT_EQ(agents.status(), FrameStatus::Search);

    // Every way out leaves nothing behind: no question, nothing written, nothing shown again.
    const qsizetype prompted = promptCount();
    EXPECT_TRUE(agents.confirmLettingRowsGo());
    agents.undo();
    agents.addNew();
    EXPECT_EQ(agente->text(), QString());
    agents.undo();
    agents.enterSearch();
    EXPECT_EQ(agente->text(), QString());
    EXPECT_EQ(percentuale->text(), QString());
    EXPECT_EQ(promptCount(), prompted);
    EXPECT_EQ(agents.recordset()->pendingCount(), 0);
    EXPECT_EQ(count(QStringLiteral("SELECT COUNT(*) FROM MG17_AGENTI WHERE MG17_AGENTE = 'C003' "
                                   "OR MG17_PERPROV = 7")),
              0);
}

// A screen opened on a company without agents in browse mode must not announce a row it
// does not have: the handlers of status 0 read the row shown.
TEST_P(FrameTest, BrowsingWithoutRowsWaitsForANewRow)
{
    openAgents();
    agents.setStatus(FrameStatus::Search);
    agentEvents.take();
    agents.setStatus(FrameStatus::Browse);
    EXPECT_EQ(agents.status(), FrameStatus::New);
    EXPECT_EQ(agentEvents.take(), QStringList{QStringLiteral("ChangeStatus(2,8)")});
}

// A screen fills its unbound fields when a row is shown and clears the second flag after:
// that must leave the row unchanged, while an edit of a bound field still counts.
TEST_P(FrameTest, AnUnboundFieldSetsOnlyTheSecondFlag)
{
    insertAgent(QStringLiteral("A001"));
    openAgents();
    ragioneSociale->setText(QStringLiteral("ROSSI"));
    EXPECT_TRUE(agents.secondChangeFlag());
    EXPECT_FALSE(agents.changeFlag());
    agents.setSecondChangeFlag(false);
    EXPECT_FALSE(agents.isRecordChanged());
    percentuale->setText(QStringLiteral("5"));
    EXPECT_TRUE(agents.changeFlag());
}

INSTANTIATE_TEST_SUITE_P(Targets, FrameTest, ::testing::ValuesIn(databaseTargets()),
                         [](const auto& info) { return targetName(info.param); });

} // namespace
} // namespace tarvello::test
