#include "platform/db/runtimeerror.h"
#include "platform/services/divisionaldatamanagement.h"
#include "platform/services/hostcontext.h"
#include "platform/services/scriptedprompts.h"
#include "support/plainmodule.h"

#include <gtest/gtest.h>

using namespace tarvello;
using namespace tarvello::services;

namespace {

class DivisionalDataManagementTest : public ::testing::Test {
protected:
    ScriptedPrompts prompts;
    HostContext context{prompts, QString(), host::Company{1, QStringLiteral("DITTA"), true}};
    // Any module of the host will do as the one the management is opened for.
    test::PlainModule opener;
};

TEST_F(DivisionalDataManagementTest, OpenedForNoModuleItDoesNotOpen)
{
    DivisionalDataManagement management(context.managements());
    management.initialise(&opener, nullptr, host::DivisionalData::AgentEntity,
                          QStringLiteral("A001"));
    management.setModule(nullptr);

    try {
        management.run();
        FAIL() << "opened without a module";
    } catch (const db::RuntimeError& error) {
        EXPECT_EQ(error.number(), db::RuntimeError::ObjectRequired);
    }
    EXPECT_TRUE(prompts.history().isEmpty());
}

} // namespace
