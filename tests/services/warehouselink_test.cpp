#include "platform/controls/button.h"
#include "platform/controls/form.h"
#include "platform/controls/label.h"
#include "platform/db/runtimeerror.h"
#include "platform/services/hostcontext.h"
#include "platform/services/scriptedprompts.h"
#include "platform/services/warehouselink.h"
#include "src/host/hostobjects.h"
#include "support/plainmodule.h"

#include <gtest/gtest.h>

using namespace tarvello;
using namespace tarvello::services;

namespace {

class WarehouseLinkTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        link = context.objects().newWarehouseConnection();
        ASSERT_NE(link, nullptr);
        link->setModule(&opener);
        link->setDataTransferHandler(
            [this](const host::WarehouseTransfer& data) { transfers.append(data); });
    }

    ScriptedPrompts prompts;
    HostContext context{prompts, QString(), host::Company{1, QStringLiteral("DITTA"), false}};
    test::PlainModule opener;
    std::unique_ptr<host::WarehouseConnection> link;
    QList<host::WarehouseTransfer> transfers;
};

TEST_F(WarehouseLinkTest, TheRoutesManagementHandsTheRouteChosenBackBeforeItReturns)
{
    prompts.queue(PromptAnswer::route(QStringLiteral("G07")));
    link->openRoutes(QStringLiteral("G01"));
    ASSERT_EQ(transfers.size(), 1);
    EXPECT_EQ(transfers.first().operation, 46);
    EXPECT_EQ(transfers.first().value.toString(), QStringLiteral("G07"));
    EXPECT_EQ(prompts.history().first().text, QStringLiteral("Giri"));
    EXPECT_EQ(prompts.history().first().details, QStringLiteral("G01"));

    // Closed without a choice: nothing comes back.
    prompts.queue(PromptAnswer::nothing());
    link->openRoutes(QStringLiteral("G01"));
    EXPECT_EQ(transfers.size(), 1);
}

TEST_F(WarehouseLinkTest, TheCustomerListHandsBackItsCustomersAsRowsWithNullForNoDestination)
{
    prompts.queue(PromptAnswer::customers(
        {{QStringLiteral("10"), QString()}, {QStringLiteral("11"), QStringLiteral("D1")}}));
    link->openCustomerList(QStringLiteral("A001"));
    ASSERT_EQ(transfers.size(), 1);
    EXPECT_EQ(transfers.first().operation, 47);
    const db::RecordsetPtr customers = transfers.first().recordset;
    ASSERT_NE(customers, nullptr);
    ASSERT_EQ(customers->recordCount(), 2);
    customers->moveFirst();
    EXPECT_EQ(customers->value(u"CG44_CLIFOR").toInt64(), 10);
    EXPECT_TRUE(customers->value(u"MG22_CODDESTIN").isNull());
    customers->moveNext();
    EXPECT_EQ(customers->value(u"CG44_CLIFOR").toInt64(), 11);
    EXPECT_EQ(customers->value(u"MG22_CODDESTIN").toString(), QStringLiteral("D1"));
    EXPECT_EQ(prompts.history().first().details, QStringLiteral("A001"));
}

TEST_F(WarehouseLinkTest, OpenedForNoModuleNothingOpens)
{
    link->setModule(nullptr);
    EXPECT_THROW(link->openCustomerList(QStringLiteral("A001")), db::RuntimeError);
    EXPECT_THROW(link->openRoutes(QString()), db::RuntimeError);
    EXPECT_TRUE(prompts.history().isEmpty());
}

// The host asks the dialog's question and presses the button of the answer; a dialog
// closed without one is unloaded all the same.
TEST_F(WarehouseLinkTest, TheQuestionDialogIsAnsweredThroughItsButtons)
{
    controls::Form dialog(QStringLiteral("DIALOGO"));
    dialog.setCaption(QStringLiteral("Anagrafica agenti"));
    auto* label = dialog.add<controls::Label>(QStringLiteral("LBL_MESSAGGIO"));
    label->setCaption(QStringLiteral("Inserirlo comunque?"));
    QStringList pressed;
    for (const char* name : {"CMD_SI", "CMD_NO", "CMD_SEMPRE", "CMD_MAI"}) {
        auto* button = dialog.add<controls::Button>(QString::fromLatin1(name));
        QObject::connect(button, &controls::Button::clicked, &dialog,
                         [&pressed, name] { pressed << QString::fromLatin1(name); });
    }
    prompts.queue(PromptAnswer::question(QuestionAnswer::Mai));
    context.objects().showQuestionDialog(dialog);
    prompts.queue(PromptAnswer::nothing());
    context.objects().showQuestionDialog(dialog);

    EXPECT_EQ(pressed, QStringList{QStringLiteral("CMD_MAI")});
    EXPECT_FALSE(dialog.isLoaded());
    ASSERT_EQ(prompts.history().size(), 2);
    EXPECT_EQ(prompts.history().first().kind, PromptKind::Question);
    EXPECT_EQ(prompts.history().first().text, QStringLiteral("Inserirlo comunque?"));
    EXPECT_EQ(prompts.history().first().title, QStringLiteral("Anagrafica agenti"));
}

} // namespace
