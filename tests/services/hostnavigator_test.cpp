#include "platform/controls/field.h"
#include "platform/controls/form.h"
#include "platform/controls/handlererrors.h"
#include "platform/db/runtimeerror.h"
#include "platform/services/hostcontext.h"
#include "platform/services/hostnavigator.h"
#include "platform/services/scriptedprompts.h"
#include "support/plainmodule.h"

#include <QObject>
#include <gtest/gtest.h>

using namespace tarvello;
using namespace tarvello::services;

namespace {

// A module listening to the toolbar: it records the events it gets and does what the test
// tells it to do with the by-reference arguments.
class Listener final : public host::NavigatorEvents {
public:
    explicit Listener(QString name)
        : m_name(std::move(name))
    {}

    void ButtonPressed(bool& cancel, qint32 button) override
    {
        seen << QStringLiteral("%1 button %2 cancel %3").arg(m_name).arg(button).arg(cancel);
        if (takesButtonsOver)
            cancel = true;
    }
    void BeforeChangeDitta(bool& Cancel) override
    {
        seen << QStringLiteral("%1 before change").arg(m_name);
        if (refusesCompanyChange)
            Cancel = true;
    }
    void ChangeDitta(qint32 company) override
    {
        seen << QStringLiteral("%1 change %2").arg(m_name).arg(company);
    }

    bool takesButtonsOver = false;
    bool refusesCompanyChange = false;
    QStringList seen;

private:
    QString m_name;
};

// A record frame as the toolbar sees it.
class Frame final : public QObject, public controls::FrameActions {
public:
    short frameStatus() const override { return status; }
    bool execute(controls::FrameCommand command) override
    {
        using controls::FrameCommand;
        const QStringList names = {"new",    "save",   "undo",  "undo with details",
                                   "delete", "search", "first", "previous",
                                   "next",   "last"};
        actions << names.at(int(command));
        if (command == FrameCommand::New)
            status = 2;
        else if (command == FrameCommand::Save)
            status = 0;
        return true;
    }

    short status = 0;
    QStringList actions;
};

class Toolbar : public ::testing::Test {
protected:
    Toolbar()
    {
        navigator.events().subscribe(&first);
        navigator.events().subscribe(&second);
        module.setActiveFrame(&frame);
        context.setActiveModule(&module);
    }

    ScriptedPrompts prompts;
    HostContext context{prompts, QString(), {1, QStringLiteral("Ditta uno"), true}};
    HostNavigator navigator{context};
    Listener first{QStringLiteral("first")};
    Listener second{QStringLiteral("second")};
    Frame frame;
    test::PlainModule module;
};

} // namespace

TEST_F(Toolbar, ACancelFlagSetByOneModuleIsSeenByTheNextAndByTheHost)
{
    first.takesButtonsOver = true;
    EXPECT_EQ(navigator.press(HostNavigator::Next), HostNavigator::Press::TakenOver);
    EXPECT_EQ(second.seen, QStringList({"second button 15 cancel 1"}));
    EXPECT_TRUE(frame.actions.isEmpty());
}

TEST_F(Toolbar, ACompanyChangeRefusedByOneModuleDoesNotHappenAndOtherwiseReachesEveryModule)
{
    second.refusesCompanyChange = true;
    EXPECT_FALSE(navigator.changeCompany({2, QStringLiteral("Ditta due"), false}));
    EXPECT_EQ(context.company().code, 1);
    EXPECT_EQ(first.seen, QStringList({"first before change"}));

    second.refusesCompanyChange = false;
    first.seen.clear();
    second.seen.clear();
    EXPECT_TRUE(navigator.changeCompany({2, QStringLiteral("Ditta due"), false}));
    EXPECT_EQ(context.company().code, 2);
    EXPECT_FALSE(context.company().divisionalData);
    EXPECT_EQ(first.seen, QStringList({"first before change", "first change 2"}));
    EXPECT_EQ(second.seen, QStringList({"second before change", "second change 2"}));
}

// A module leaving while the toolbar delivers an event must not get it afterwards.
TEST_F(Toolbar, AModuleUnsubscribedDuringAnEventGetsNoMore)
{
    class Leaving final : public host::NavigatorEvents {
    public:
        explicit Leaving(HostNavigator& navigator, Listener& next)
            : m_navigator(navigator)
            , m_next(next)
        {}
        void ButtonPressed(bool&, qint32) override { m_navigator.events().unsubscribe(&m_next); }

    private:
        HostNavigator& m_navigator;
        Listener& m_next;
    };
    HostNavigator toolbar(context);
    Leaving leaving(toolbar, second);
    toolbar.events().subscribe(&leaving);
    toolbar.events().subscribe(&second);
    toolbar.press(HostNavigator::Next);
    EXPECT_TRUE(second.seen.isEmpty());
}

// A module whose screen is a form: its toolbar handler fails, as a company-change handler of
// the agents module can, which used to take the whole shell down with it.
class FailingModule final : public host::ModuleContract, public host::NavigatorEvents {
public:
    explicit FailingModule(controls::Form& screen)
        : m_frame(&screen)
    {
        setActiveFrame(&m_frame);
    }
    db::Value ShowForm() override { return {}; }
    db::Value TransferData(const db::Value&) override { return {}; }
    void ButtonPressed(bool&, qint32) override
    {
        throw db::RuntimeError(db::RuntimeError::TypeMismatch, QStringLiteral("Type mismatch"));
    }

private:
    QObject m_frame;
};

struct RecordedErrors final : controls::HandlerErrors {
    QStringList reports;
    bool handlerFailed(const QString& procedure, const db::RuntimeError&) override
    {
        reports << procedure;
        return true;
    }
};

TEST_F(Toolbar, AFailingModuleIsReportedAndAFieldThatWillNotLetGoHoldsThePress)
{
    controls::Form screen(QStringLiteral("FRM"));
    RecordedErrors errors;
    screen.setHandlerErrors(&errors);
    FailingModule failing(screen);
    HostNavigator toolbar(context);
    toolbar.events().subscribe(&failing);
    toolbar.events().subscribe(&second);

    EXPECT_EQ(toolbar.press(HostNavigator::Next), HostNavigator::Press::Refused);
    EXPECT_EQ(errors.reports, QStringList{"ActiveNavigator_ButtonPressed"});
    EXPECT_EQ(second.seen, QStringList({"second button 15 cancel 0"}));
    EXPECT_TRUE(frame.actions.isEmpty());

    toolbar.events().unsubscribe(&failing);
    screen.load();
    frame.setParent(&screen);
    auto* field = screen.add<controls::Field>(QStringLiteral("TXT_NUMSOCI"));
    ASSERT_TRUE(field->setFocus());
    QObject::connect(field, &controls::Control::leaveRequested,
                     [](controls::CancelArgs& args) { args.cancel = true; });
    EXPECT_EQ(toolbar.press(HostNavigator::Save), HostNavigator::Press::Refused);
    EXPECT_EQ(toolbar.press(HostNavigator::Undo), HostNavigator::Press::Done)
        << "undo drops what the field holds";
    EXPECT_EQ(frame.actions, QStringList{"undo with details"});
    frame.setParent(nullptr);
}
