#include "platform/controls/field.h"
#include "platform/controls/form.h"
#include "platform/db/runtimeerror.h"
#include "platform/services/hostcontext.h"
#include "platform/services/registertable.h"
#include "platform/services/scriptedprompts.h"
#include "platform/services/warehouselink.h"
#include "support/plainmodule.h"

#include <gtest/gtest.h>

using namespace tarvello;
using namespace tarvello::services;

namespace {

// The van-sales depot and register fields, and the managements opened from them.
class ManagementChoiceTest : public ::testing::Test {
protected:
    ManagementChoiceTest()
    {
        for (controls::Field* field : {depot, registerField})
            QObject::connect(field, &controls::Field::decodeRequested,
                             [this, field](controls::DecodeArgs&) { decoded << field->name(); });
        depot->setText(QStringLiteral("01"));
        link.setField(depot);
        registers.setField(registerField);
    }

    ScriptedPrompts prompts;
    HostContext context{prompts, QString(), host::Company{1, QStringLiteral("DITTA"), false}};
    // Any module of the host will do as the one the managements open for.
    test::PlainModule opener;
    controls::Form form{QStringLiteral("FRMMG_AGENTI")};
    controls::Field* depot = form.add<controls::Field>(QStringLiteral("TXT_TVDEP"));
    controls::Field* registerField = form.add<controls::Field>(QStringLiteral("TXT_TVSEZ"));
    WarehouseLink link{context.managements()};
    RegisterTable registers{context.managements()};
    QStringList decoded;
};

TEST_F(ManagementChoiceTest, TheDepotChosenGoesIntoTheFieldAndIsDecoded)
{
    link.setModule(&opener);
    prompts.queue(PromptAnswer::codes({QStringLiteral("02"), QStringLiteral("03")}));
    link.openDepots(QStringLiteral("01"));
    ASSERT_EQ(prompts.history().size(), 1);
    EXPECT_EQ(prompts.history().first().kind, PromptKind::Management);
    EXPECT_EQ(prompts.history().first().text, QStringLiteral("Depositi"));
    EXPECT_EQ(prompts.history().first().details, QStringLiteral("01"));
    EXPECT_EQ(depot->text(), QStringLiteral("02"));
    EXPECT_EQ(decoded, QStringList{QStringLiteral("TXT_TVDEP")});

    link.openDepots(QStringLiteral("02"));
    EXPECT_EQ(depot->text(), QStringLiteral("02")) << "closed without a choice";
    EXPECT_EQ(decoded.size(), 1);
}

TEST_F(ManagementChoiceTest, TheRegisterChosenGoesIntoItsField)
{
    registers.setModule(&opener);
    prompts.queue(PromptAnswer::codes({QStringLiteral("B")}));
    registers.registersManagement();
    EXPECT_EQ(prompts.history().first().text, QStringLiteral("Sezionali"));
    EXPECT_EQ(registerField->text(), QStringLiteral("B"));
    EXPECT_EQ(decoded, QStringList{QStringLiteral("TXT_TVSEZ")});
}

TEST_F(ManagementChoiceTest, OpenedForNoModuleAManagementFailsBeforeAskingAnyone)
{
    try {
        registers.registersManagement();
        FAIL() << "opened for no module";
    } catch (const db::RuntimeError& error) {
        EXPECT_EQ(error.number(), db::RuntimeError::ObjectRequired);
    }
    EXPECT_THROW(link.openDepots(QString()), db::RuntimeError);
    EXPECT_TRUE(prompts.history().isEmpty());
}

} // namespace
