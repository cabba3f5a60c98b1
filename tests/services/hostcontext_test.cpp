#include "platform/db/runtimeerror.h"
#include "platform/services/hostcontext.h"
#include "platform/services/hostnavigator.h"
#include "platform/services/scriptedprompts.h"
#include "src/host/calledmodule.h"
#include "src/host/cinterface.h"

#include <gtest/gtest.h>

using namespace tarvello;
using namespace tarvello::services;

namespace {

class Received final : public host::DataTransferEvents {
public:
    void DataTransfer(const db::Value& Data) override { data.append(Data); }
    QList<db::Value> data;
};

class Context : public ::testing::Test {
protected:
    Context() { context.setNavigator(&navigator); }

    ScriptedPrompts prompts;
    HostContext context{
        prompts, QStringLiteral("Data Source=:memory:"), {1, QStringLiteral("Ditta uno"), true}};
    HostNavigator navigator{context};
};

} // namespace

// The way a module opens the general registry: it makes the object, hands it its data,
// makes it the second module and starts it by identifier with an empty reference.
TEST_F(Context, StartingAModuleRunsTheSecondModuleModally)
{
    std::unique_ptr<host::CalledModule> registry =
        context.createModule(QStringLiteral("Dorvanti.CLSCO_TABANAGGEN"));
    Received received;
    registry->dataTransfer().subscribe(&received);
    registry->setCallingData({db::Value(5), db::Value(true)});
    context.setSecondModule(&registry->contract());
    prompts.queue(PromptAnswer::transfer(db::Value(42)));

    context.startModule(nullptr, QStringLiteral("Dorvanti.CLSCO_TABANAGGEN"),
                        host::startModuleArguments());

    ASSERT_EQ(received.data.size(), 1);
    EXPECT_EQ(received.data.first(), db::Value(db::ValueList{42}));
    host::Cinterface& started = registry->contract();
    EXPECT_EQ(started.ClsGlobal(), &context);
    EXPECT_EQ(started.ActiveNavigator(), &navigator);
    EXPECT_TRUE(started.WindowModal());
    const PromptRecord& shown = prompts.history().first();
    EXPECT_EQ(shown.text, QStringLiteral("Anagrafiche generali"));
    ASSERT_EQ(context.moduleStarts().size(), 1);
    EXPECT_EQ(context.moduleStarts().first().arguments, db::ValueList({-1, 2, 0, 0, 0, 0, -1, -1}));
}

TEST_F(Context, AModuleLeftWithoutAChoiceHandsBackNothing)
{
    Received received;
    std::unique_ptr<host::CalledModule> tables =
        context.createModule(QStringLiteral("caspello.clspa_provvsconti"));
    tables->dataTransfer().subscribe(&received);
    context.startModule(&tables->contract(), QStringLiteral("Caspello.CLSPA_PROVVSCONTI"),
                        host::startModuleArguments());
    EXPECT_TRUE(received.data.isEmpty());
    EXPECT_TRUE(prompts.history().first().defaulted);
}

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
