#include "platform/db/runtimeerror.h"
#include "platform/services/hostcontext.h"
#include "platform/services/hostnavigator.h"
#include "platform/services/scriptedprompts.h"
#include "src/host/clsmg_agenti.h"
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

TEST_F(ModuleObject, ANewObjectHasTheContractDefaults)
{
    EXPECT_EQ(module.ActiveDll(), &module);
    for (const bool flag :
         {module.CanInsert(), module.CanDelete(), module.CanUpdate(), module.CanQbe(),
          module.WindowModal(), module.IsActive(), module.IsCalled(), module.CalledById()})
        EXPECT_FALSE(flag);
    EXPECT_EQ(module.WindowState(), 0);
    EXPECT_EQ(module.ProgramMode(), 0);
    EXPECT_EQ(module.hwndParent(), 0);
    EXPECT_EQ(module.Top(), Value(0));
    EXPECT_EQ(module.Left(), Value(0));
    for (const Value& variant :
         {module.MenuModulo(), module.MenuPadre(), module.MenuProg(), module.Caption(),
          module.Filtro(), module.CodiceAgente(), module.IDAGENTE()})
        EXPECT_TRUE(variant.isEmpty());
    EXPECT_EQ(module.Cwindow(), nullptr);
    EXPECT_EQ(module.ClsGlobal(), nullptr);
    EXPECT_EQ(module.ActiveNavigator(), nullptr);
    EXPECT_EQ(module.ActiveFrame(), nullptr);
    EXPECT_EQ(module.Connection(), nullptr);
    EXPECT_EQ(module.screen(), nullptr);
}

TEST_F(ModuleObject, WindowStateAndProgramModeKeepTheirValueOutsideSixteenBits)
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
}

TEST_F(ModuleObject, TopAndLeftConvertToThirtyTwoBitIntegers)
{
    module.setTop(Value("120"));
    EXPECT_EQ(module.Top().kind(), Value::Kind::Integer);
    EXPECT_EQ(module.Top(), Value(120));
    module.setLeft(Value(db::Decimal::fromParts(2505, 1)));
    EXPECT_EQ(module.Left(), Value(250));
}

TEST_F(ModuleObject, TopAndLeftKeepTheirValueWhenTheNewOneDoesNotConvert)
{
    module.setTop(Value(300));
    for (const Value& bad : {Value("alto"), Value::null(), Value(qint64(1) << 40)})
        module.setTop(bad);
    EXPECT_EQ(module.Top(), Value(300));
    module.setLeft(Value(10));
    module.setLeft(Value(db::ValueList{1}));
    EXPECT_EQ(module.Left(), Value(10));
}

TEST_F(ModuleObject, TransferDataRaisesDataTransferWithTheSameValue)
{
    DataTransferRecorder caller;
    module.dataTransfer().subscribe(&caller);
    const Value chosen(db::ValueList{Value(17)});
    EXPECT_TRUE(module.TransferData(chosen).isEmpty());
    ASSERT_EQ(caller.received.size(), 1);
    EXPECT_EQ(caller.received.first(), chosen);
}

// A caller's failing handler is not the module's error: TransferData does not raise it.
TEST_F(ModuleObject, TransferDataIgnoresErrorsOfTheCaller)
{
    class FailingCaller final : public host::DataTransferEvents {
    public:
        void DataTransfer(const Value&) override
        {
            throw db::RuntimeError(db::RuntimeError::TypeMismatch, QStringLiteral("caller"));
        }
    } caller;
    module.dataTransfer().subscribe(&caller);
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
}

TEST_F(ModuleObject, ModelessShowFormReturnsWithTheScreenOpen)
{
    module.ShowForm();
    EXPECT_TRUE(screens.front()->open);
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

TEST_F(ModuleObject, CloseFormLeavesAnOpenScreenOpen)
{
    module.ShowForm();
    EXPECT_TRUE(module.CloseForm().isEmpty());
    EXPECT_TRUE(screens.front()->open);
    EXPECT_EQ(screens.front()->calls.last(), QStringLiteral("show returned"));
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
    services::ScriptedPrompts prompts;
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
