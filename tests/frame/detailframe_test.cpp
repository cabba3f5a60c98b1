#include "framefixture.h"

namespace tarvello::test {
namespace {

using controls::NavigatorKey::Cancel;
using controls::NavigatorKey::Confirm;
using controls::NavigatorKey::Delete;
using controls::NavigatorKey::New;
using frame::FrameStatus;

constexpr int Yes = 6;

class DetailFrameTest : public FrameTest {
protected:
    // An agent shown in status 0 with the partners frame loaded for it, as ShowChild does.
    qint64 showAgentWithPartners(int partnerCount)
    {
        const qint64 agent = insertAgent(QStringLiteral("A001"));
        for (int code = 1; code <= partnerCount; ++code)
            insertPartner(agent, code, QStringLiteral("SOCIO %1").arg(code));
        openAgents();
        openPartners();
        partners.detach();
        partners.refresh(partnersSql(agent));
        gridSoci->setDataSource(partners.recordset());
        partnerEvents.take();
        return agent;
    }

    void enterPartner(int code, const QString& name)
    {
        ASSERT_TRUE(navSoci->press(New));
        codSocio->typeText(QString::number(code));
        nomeSocio->typeText(name);
        quota->typeText(QStringLiteral("50"));
        ASSERT_TRUE(navSoci->press(Confirm));
    }

    qint64 partnersInDatabase()
    {
        return count(QStringLiteral("SELECT COUNT(*) FROM MG18_AGENTISOCI"));
    }

    // The screen's part of the agent's save: the caller batch-saves the detail, whose
    // handler writes its pending rows.
    void saveDetailsAfterTheAgent()
    {
        QObject::connect(&agents, &frame::GestAnagrafica::AfterUpdate, [this](int result) {
            if (result == frame::OperationSucceeded)
                partners.updateBatch();
        });
        QObject::connect(&partners, &frame::GestAnagrafica::UpdateBatchAll, [this] {
            if (!partners.changeFlag() && !partners.secondChangeFlag())
                return;
            partners.recordset()->updateBatch();
            partners.setChangeFlag(false);
            partners.setSecondChangeFlag(false);
        });
    }
};

TEST_P(DetailFrameTest, DetailRowsStayPendingUntilTheAgentsSaveBatchSavesThem)
{
    showAgentWithPartners(0);
    saveDetailsAfterTheAgent();
    ASSERT_EQ(partners.status(), FrameStatus::New) << "no partner yet";

    enterPartner(1, QStringLiteral("ROSSI MARIO"));
    EXPECT_EQ(partnerEvents.take(),
              (QStringList{QStringLiteral("AfterAddNew(-1)"), QStringLiteral("ChangeStatus(2,2)"),
                           QStringLiteral("BeforeUpdate"), QStringLiteral("AfterUpdate(-1)"),
                           QStringLiteral("ChangeStatus(0,5)")}));
    EXPECT_EQ(partners.status(), FrameStatus::Browse);
    EXPECT_TRUE(partners.changeFlag()) << "a confirmed row waits for the batch save";
    EXPECT_EQ(partnersInDatabase(), 0);

    enterPartner(2, QStringLiteral("BIANCHI ANNA"));
    ASSERT_EQ(gridSoci->rowCount(), 2);
    EXPECT_EQ(gridSoci->selectedRow(), 1) << "the grid follows the frame's row";

    answer(Yes);
    ASSERT_TRUE(navSoci->press(Delete));
    EXPECT_EQ(gridSoci->rowCount(), 1);
    EXPECT_EQ(codSocio->text(), QStringLiteral("1"));
    EXPECT_EQ(partnersInDatabase(), 0);

    ASSERT_TRUE(agents.save());
    EXPECT_EQ(partnerEvents.take().count(QStringLiteral("UpdateBatchAll")), 1);
    EXPECT_EQ(partnersInDatabase(), 1);
    EXPECT_EQ(cell(QStringLiteral("SELECT MG18_NOMECOGN FROM MG18_AGENTISOCI")),
              db::Value("ROSSI MARIO"));
    EXPECT_EQ(cell(QStringLiteral("SELECT MG18_IDAGENTE_MG17 FROM MG18_AGENTISOCI")),
              agents.recordset()->value(u"MG17_IDAGENTE"));
}

TEST_P(DetailFrameTest, AGridClickShowsTheRowAfterTheRowLeftIsConfirmed)
{
    showAgentWithPartners(2);
    ASSERT_EQ(codSocio->text(), QStringLiteral("1"));

    nomeSocio->typeText(QString());
    gridSoci->clickRow(1);
    EXPECT_EQ(partners.recordset()->absolutePosition(), 1);
    EXPECT_EQ(gridSoci->selectedRow(), 0) << "a row failing its checks keeps the selection";
    EXPECT_EQ(codSocio->text(), QStringLiteral("1"));
    EXPECT_TRUE(lastPrompt().text.contains(QStringLiteral("Cognome e nome socio")));

    nomeSocio->typeText(QStringLiteral("NUOVO NOME"));
    partnerEvents.take();
    gridSoci->clickRow(1);
    EXPECT_EQ(codSocio->text(), QStringLiteral("2"));
    EXPECT_EQ(
        partnerEvents.take(),
        (QStringList{QStringLiteral("IsRecordChanged(true)"), QStringLiteral("BeforeUpdate"),
                     QStringLiteral("AfterUpdate(-1)"), QStringLiteral("ChangeStatus(0,1)")}));
    EXPECT_TRUE(partners.changeFlag());
}

TEST_P(DetailFrameTest, CodeWalkingTheRowsIsFollowedOnlyWhenTheFrameIsListening)
{
    showAgentWithPartners(3);
    db::Recordset& rows = *partners.recordset();

    partners.setFollowRowMoves(false);
    rows.moveNext();
    EXPECT_EQ(codSocio->text(), QStringLiteral("1"));
    partners.setFollowRowMoves(true);
    EXPECT_EQ(codSocio->text(), QStringLiteral("2"))
        << "switched back on, it shows the current row";
    EXPECT_EQ(partnerEvents.take(), QStringList{QStringLiteral("ChangeStatus(0,1)")});

    {
        const frame::GestAnagrafica::BulkRewrite bracket(partners);
        for (rows.moveFirst(); !rows.eof(); rows.moveNext())
            rows.setValue(u"MG18_PERQUOTA", 10);
        EXPECT_EQ(quota->text(), QStringLiteral("50")) << "nothing is shown inside the bracket";
    }
    EXPECT_TRUE(partnerEvents.take().isEmpty());
    EXPECT_EQ(codSocio->text(), QStringLiteral("2")) << "the frame keeps its row";
    EXPECT_EQ(quota->text(), QStringLiteral("10")) << "with the values written meanwhile";
    EXPECT_EQ(rows.absolutePosition(), 2);

    // Taken away and given back, as the screen does around adding up the shares.
    const db::RecordsetPtr taken = partners.recordset();
    partners.setRecordset(nullptr);
    for (rows.moveFirst(); !rows.eof(); rows.moveNext())
        rows.value(u"MG18_PERQUOTA");
    partners.setRecordset(taken);
    EXPECT_EQ(rows.absolutePosition(), 2) << "its row is made current again";
    EXPECT_EQ(codSocio->text(), QStringLiteral("2"));

    partners.detach();
    rows.moveFirst();
    EXPECT_EQ(codSocio->text(), QStringLiteral("2"));
    partners.refresh();
    EXPECT_EQ(codSocio->text(), QStringLiteral("1"));

    {
        const frame::GestAnagrafica::BulkRewrite bracket(partners);
        rows.addNew();
        rows.setValue(u"MG18_CODSOCIO", 4);
        rows.update();
        EXPECT_EQ(gridSoci->rowCount(), 3) << "the grid takes the rows added at the end";
    }
    EXPECT_EQ(gridSoci->rowCount(), 4);
    EXPECT_EQ(gridSoci->selectedRow(), 3);
    EXPECT_EQ(codSocio->text(), QStringLiteral("4"));
}

TEST_P(DetailFrameTest, ARefreshWithANewTextReopensItsRecordsetInPlaceAndAnEmptyOneWaitsForANewRow)
{
    const qint64 agent = insertAgent(QStringLiteral("A001"));
    insertPartner(agent, 4, QStringLiteral("NERI"));
    openAgents();
    openPartners();
    const db::RecordsetPtr held = partners.recordset();

    partners.refresh(partnersSql(agent));
    EXPECT_EQ(partners.recordset(), held) << "whoever holds the rows sees the new ones";
    EXPECT_EQ(held->recordCount(), 1);
    EXPECT_EQ(partners.sql(), partnersSql(agent));
    EXPECT_EQ(partners.status(), FrameStatus::Browse);
    EXPECT_EQ(nomeSocio->text(), QStringLiteral("NERI"));

    partners.refresh(partnersSql(agent + 1));
    EXPECT_EQ(partners.status(), FrameStatus::New);
    EXPECT_EQ(partners.recordset()->recordCount(), 0) << "the new row waits for its first edit";
    partnerEvents.take();
    nomeSocio->typeText(QStringLiteral("PRIMO"));
    EXPECT_EQ(partnerEvents.take(), QStringList{QStringLiteral("AfterAddNew(-1)")});
    EXPECT_EQ(partners.recordset()->recordCount(), 1);
    EXPECT_EQ(partners.recordset()->value(u"MG18_NOMECOGN"), db::Value("PRIMO"));
}

INSTANTIATE_TEST_SUITE_P(Targets, DetailFrameTest, ::testing::ValuesIn(databaseTargets()),
                         [](const auto& info) { return targetName(info.param); });

} // namespace
} // namespace tarvello::test
