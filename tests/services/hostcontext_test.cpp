#include "platform/db/runtimeerror.h"
#include "platform/services/divisionaldatamanagement.h"
#include "platform/services/hostcontext.h"
#include "platform/services/parametertext.h"
#include "platform/services/scriptedprompts.h"
#include "platform/services/warehouselink.h"
#include "src/host/calledmodule.h"
#include "src/host/cinterface.h"
#include "src/host/hostobjects.h"
#include "support/plainmodule.h"

#include <gtest/gtest.h>

using namespace tarvello;
using namespace tarvello::services;

namespace {

class Context : public ::testing::Test {
protected:
    ScriptedPrompts prompts;
    HostContext context{
        prompts, QStringLiteral("Data Source=:memory:"), {1, QStringLiteral("Ditta uno"), true}};
};

} // namespace

TEST_F(Context, AnUnknownIdentifierCannotBeCreatedNorStarted)
{
    for (const auto& attempt : std::initializer_list<std::function<void()>>{
             [&] { context.createModule(QStringLiteral("Nessuno.CLSXX")); },
             [&] {
                 context.startModule(nullptr, QStringLiteral("Nessuno.CLSXX"),
                                     host::startModuleArguments());
             }}) {
        try {
            attempt();
            ADD_FAILURE() << "an unknown module was made";
        } catch (const db::RuntimeError& error) {
            EXPECT_EQ(error.number(), 429);
        }
    }
}

// The module a module started is released by it while the context may still hold it.
TEST_F(Context, AReleasedModuleLeavesTheContext)
{
    {
        std::unique_ptr<host::CalledModule> tables =
            context.createModule(QStringLiteral("Caspello.CLSPA_PROVVSCONTI"));
        tables->contract().setClsGlobal(&context);
        context.setActiveModule(&tables->contract());
        context.setSecondModule(&tables->contract());
    }
    EXPECT_EQ(context.activeModule(), nullptr);
    EXPECT_EQ(context.secondModule(), nullptr);
}

// The host's windows opened for no module fail to their caller without a word.
TEST_F(Context, WindowsOpenedForNoModuleDoNotOpen)
{
    const std::unique_ptr<host::WarehouseConnection> link =
        context.objects().newWarehouseConnection();
    ASSERT_NE(link, nullptr);
    EXPECT_THROW(link->openCustomerList(QStringLiteral("A001")), db::RuntimeError);
    EXPECT_THROW(link->openRoutes(QString()), db::RuntimeError);

    test::PlainModule opener;
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

TEST(ParameterText, KeepsEveryValueAsItWas)
{
    QString text;
    text = appendParameter(text, QStringLiteral("Pvar_ZONE_MACROAREA"), QStringLiteral("N=O"));
    text = appendParameter(text, QStringLiteral("Pvar_ZONE_AREA"), QStringLiteral("a\\n\nb\r"));
    text = appendParameter(text, QStringLiteral("CalledRamo"), QStringLiteral("2"));
    const auto parameters = readParameters(text);
    ASSERT_EQ(parameters.size(), 3);
    EXPECT_EQ(parameters[0],
              std::make_pair(QStringLiteral("Pvar_ZONE_MACROAREA"), QStringLiteral("N=O")));
    EXPECT_EQ(parameters[1].second, QStringLiteral("a\\n\nb\r"));
    EXPECT_EQ(parameters[2].first, QStringLiteral("CalledRamo"));
}
