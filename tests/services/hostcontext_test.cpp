#include "platform/db/runtimeerror.h"
#include "platform/services/hostcontext.h"
#include "platform/services/scriptedprompts.h"
#include "src/host/calledmodule.h"
#include "src/host/cinterface.h"

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
