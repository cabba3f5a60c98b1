#include "platform/db/runtimeerror.h"
#include "platform/services/hostcontext.h"
#include "platform/services/hostnavigator.h"
#include "platform/services/scriptedprompts.h"
#include "src/screen/clsmg_agenti.h"
#include "support/plainmodule.h"
#include "testscreen.h"

#include <QTimer>
#include <gtest/gtest.h>

using namespace tarvello;
using agenti::CLSMG_AGENTI;
using db::Value;
using test::TestScreen;

namespace {

// The module object with a factory that makes test screens and keeps track of them.
class ModuleObject : public ::testing::Test {
protected:
    CLSMG_AGENTI module{[this] {
        auto screen = std::make_unique<TestScreen>();
        screens.push_back(screen.get());
        return screen;
    }};
    std::vector<TestScreen*> screens;
};

class DataTransferRecorder final : public host::DataTransferEvents {
public:
    void DataTransfer(const Value& Data) override { received.append(Data); }
    QList<Value> received;
};

} // namespace

// Out-of-range and unconvertible values leave the property as it was.
TEST_F(ModuleObject, WindowStateProgramModeTopAndLeftKeepTheirValueWhenTheNewOneDoesNotFit)
{
    module.setWindowState(2);
    module.setWindowState(70000);
    EXPECT_EQ(module.WindowState(), 2);
    module.setWindowState(-2);
    EXPECT_EQ(module.WindowState(), -2);
    module.setProgramMode(1);
    module.setProgramMode(-40000);
    EXPECT_EQ(module.ProgramMode(), 1);
    module.setProgramMode(32767);
    EXPECT_EQ(module.ProgramMode(), 32767);

    module.setTop(Value("120"));
    EXPECT_EQ(module.Top().kind(), Value::Kind::Integer);
    EXPECT_EQ(module.Top(), Value(120));
    for (const Value& bad : {Value("alto"), Value::null(), Value(qint64(1) << 40)})
        module.setTop(bad);
    EXPECT_EQ(module.Top(), Value(120));
    module.setLeft(Value(db::Decimal::fromParts(2505, 1)));
    EXPECT_EQ(module.Left(), Value(250));
    module.setLeft(Value(db::ValueList{1}));
    EXPECT_EQ(module.Left(), Value(250));
}

// The value reaches the caller as it is; a caller's failing handler is not the module's error.
TEST_F(ModuleObject, TransferDataRaisesDataTransferWithTheSameValueAndIgnoresTheCallersErrors)
{
    DataTransferRecorder caller;
    module.dataTransfer().subscribe(&caller);
    const Value chosen(db::ValueList{Value(17)});
    EXPECT_TRUE(module.TransferData(chosen).isEmpty());
    ASSERT_EQ(caller.received.size(), 1);
    EXPECT_EQ(caller.received.first(), chosen);

    class FailingCaller final : public host::DataTransferEvents {
    public:
        void DataTransfer(const Value&) override
        {
            throw db::RuntimeError(db::RuntimeError::TypeMismatch, QStringLiteral("caller"));
        }
    } failing;
    module.dataTransfer().subscribe(&failing);
    EXPECT_NO_THROW(module.TransferData(Value("A001")));
}

TEST_F(ModuleObject, ShowFormHandsTheScreenBothReferencesBeforeItLoads)
{
    module.setWindowState(2);
    module.setCaption(Value("Anagrafica agenti"));
    module.ShowForm();
    ASSERT_EQ(screens.size(), 1u);
    TestScreen& screen = *screens.front();
    EXPECT_EQ(module.screen(), &screen);
    EXPECT_EQ(screen.activeInterface, &module);
    EXPECT_EQ(screen.activeClass, &module);
    EXPECT_TRUE(screen.referencesAtLoad);
    EXPECT_EQ(screen.windowState, 2);
    // The caption replaces the title the start-up gave.
    EXPECT_EQ(screen.title, QStringLiteral("Anagrafica agenti"));
    EXPECT_EQ(screen.calls, QStringList({"ActiveInterface", "ActiveClass", "WindowState", "Title",
                                         "show", "show returned"}));
    EXPECT_TRUE(screen.open) << "a modeless ShowForm returns with the screen open";
    EXPECT_TRUE(module.CloseForm().isEmpty());
    EXPECT_TRUE(screen.open) << "CloseForm leaves an open screen open";
    EXPECT_EQ(screen.calls.last(), QStringLiteral("show returned"));
}

TEST_F(ModuleObject, ModalShowFormReturnsOnlyAfterTheScreenHasClosed)
{
    module.setWindowModal(true);
    QTimer::singleShot(0, [this] {
        ASSERT_EQ(screens.size(), 1u);
        EXPECT_TRUE(screens.front()->open);
        screens.front()->close();
    });
    module.ShowForm();
    TestScreen& screen = *screens.front();
    EXPECT_FALSE(screen.open);
    EXPECT_EQ(screen.calls.mid(screen.calls.indexOf("show modal")),
              QStringList({"show modal", "closed", "show returned"}));
}

TEST_F(ModuleObject, ASecondShowFormOpensASecondScreen)
{
    module.ShowForm();
    module.ShowForm();
    ASSERT_EQ(screens.size(), 2u);
    EXPECT_EQ(module.screen(), screens.back());
    EXPECT_TRUE(screens.front()->open);
    EXPECT_TRUE(screens.back()->open);
}

TEST_F(ModuleObject, AFailingStepOfShowFormDoesNotStopTheLaterSteps)
{
    for (const Value& caption : {Value(db::ValueList{Value("a")}), Value::null()}) {
        module.setCaption(caption);
        module.ShowForm();
        TestScreen& screen = *screens.back();
        EXPECT_EQ(screen.title, QStringLiteral("title set at load"));
        EXPECT_TRUE(screen.open);
    }
}

// ActiveDll pointing at a module of another kind cannot be the screen's ActiveClass.
TEST_F(ModuleObject, ShowFormSkipsActiveClassForAModuleOfAnotherKind)
{
    test::PlainModule other;
    module.setActiveDll(&other);
    module.ShowForm();
    TestScreen& screen = *screens.front();
    EXPECT_EQ(screen.activeInterface, &other);
    EXPECT_EQ(screen.activeClass, nullptr);
    EXPECT_TRUE(screen.open);
}

TEST_F(ModuleObject, ShowFormWithoutAScreenGoesOnQuietly)
{
    CLSMG_AGENTI noScreens{[] { return std::unique_ptr<agenti::AgentiScreen>(); }};
    EXPECT_TRUE(noScreens.ShowForm().isEmpty());
    EXPECT_EQ(noScreens.screen(), nullptr);
}

TEST(ModuleSubscription, FollowsTheNavigatorAndEndsWithTheObject)
{
    services::ScriptedPrompts prompts;
    services::HostContext context(prompts, QString(), {1, QStringLiteral("Ditta"), false});
    services::HostNavigator first(context);
    services::HostNavigator second(context);
    {
        CLSMG_AGENTI module{[] { return std::unique_ptr<agenti::AgentiScreen>(); }};
        module.setActiveNavigator(&first);
        EXPECT_TRUE(first.events().isSubscribed(&module));
        module.setActiveNavigator(&second);
        EXPECT_FALSE(first.events().isSubscribed(&module));
        EXPECT_TRUE(second.events().isSubscribed(&module));
    }
    EXPECT_EQ(second.events().subscriberCount(), 0);
}
