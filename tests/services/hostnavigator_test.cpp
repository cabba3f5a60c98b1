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
    void BeforeExportToOffice(host::ExportToOffice& exporter) override
    {
        exporter.setTitoloMaster(QStringLiteral("Anagrafica agenti"));
    }
    void InitializeScriptObjectModel(host::ScriptObjectModel& script) override
    {
        QObject* screen = &m_screen;
        script.registerObject(m_name, screen, 0, QStringLiteral("Anagrafica agenti"));
    }

    bool takesButtonsOver = false;
    bool refusesCompanyChange = false;
    QStringList seen;

private:
    QString m_name;
    QObject m_screen;
};

// A record frame as the toolbar sees it.
class Frame final : public QObject, public FrameActions {
public:
    short frameStatus() const override { return status; }
    bool newRecord() override
    {
        actions << QStringLiteral("new");
        status = 2;
        return true;
    }
    bool saveRecord() override
    {
        actions << QStringLiteral("save");
        status = 0;
        return true;
    }
    bool undoRecord() override { return record(QStringLiteral("undo")); }
    bool deleteRecord() override { return record(QStringLiteral("delete")); }
    bool searchRecord() override { return record(QStringLiteral("search")); }
    bool moveRecord(Move move) override { return record(QStringLiteral("move %1").arg(int(move))); }
    bool record(const QString& action)
    {
        actions << action;
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

TEST_F(Toolbar, AnEventReachesEverySubscribedModule)
{
    navigator.press(HostNavigator::Next);
    EXPECT_EQ(first.seen, QStringList({"first button 15 cancel 0"}));
    EXPECT_EQ(second.seen, QStringList({"second button 15 cancel 0"}));
}

TEST_F(Toolbar, ACancelFlagSetByOneModuleIsSeenByTheNextAndByTheHost)
{
    first.takesButtonsOver = true;
    EXPECT_EQ(navigator.press(HostNavigator::Next), HostNavigator::Press::TakenOver);
    EXPECT_EQ(second.seen, QStringList({"second button 15 cancel 1"}));
    EXPECT_TRUE(frame.actions.isEmpty());
}

TEST_F(Toolbar, WithoutATakeOverTheToolbarActsOnTheActiveFrame)
{
    EXPECT_EQ(navigator.press(HostNavigator::Last), HostNavigator::Press::Done);
    EXPECT_EQ(navigator.press(HostNavigator::New), HostNavigator::Press::Done);
    EXPECT_EQ(navigator.press(HostNavigator::Multimedia), HostNavigator::Press::Done);
    EXPECT_EQ(navigator.press(14), HostNavigator::Press::Done);
    EXPECT_EQ(frame.actions, QStringList({"move 3", "new"}));
    // After acting the toolbar follows the frame's new status.
    EXPECT_EQ(navigator.shownStatus(), 2);
}

TEST_F(Toolbar, TheFrameButtonsFollowTheRefreshedStatus)
{
    navigator.setFrameStatus(2);
    EXPECT_TRUE(navigator.isEnabled(HostNavigator::Delete));
    navigator.refresh();
    EXPECT_FALSE(navigator.isEnabled(HostNavigator::Delete));
    EXPECT_FALSE(navigator.isEnabled(HostNavigator::New));
    EXPECT_TRUE(navigator.isEnabled(HostNavigator::Save));
    EXPECT_EQ(navigator.press(HostNavigator::Delete), HostNavigator::Press::Disabled);
    EXPECT_TRUE(first.seen.isEmpty());

    navigator.setFrameStatus(1);
    navigator.refresh();
    EXPECT_FALSE(navigator.isEnabled(HostNavigator::Save));
    EXPECT_TRUE(navigator.isEnabled(HostNavigator::Search));
}

TEST_F(Toolbar, UpdateReadsTheStatusOfTheActiveFrame)
{
    frame.status = 2;
    navigator.update();
    EXPECT_EQ(navigator.shownStatus(), 2);
    context.setActiveModule(nullptr);
    navigator.update();
    EXPECT_EQ(navigator.shownStatus(), 2);
}

TEST_F(Toolbar, ACompanyChangeRefusedByOneModuleDoesNotHappen)
{
    second.refusesCompanyChange = true;
    EXPECT_FALSE(navigator.changeCompany({2, QStringLiteral("Ditta due"), false}));
    EXPECT_EQ(context.company().code, 1);
    EXPECT_EQ(first.seen, QStringList({"first before change"}));
}

TEST_F(Toolbar, ACompanyChangeReachesEveryModuleAfterTheContextHasTheNewCompany)
{
    EXPECT_TRUE(navigator.changeCompany({2, QStringLiteral("Ditta due"), false}));
    EXPECT_EQ(context.company().code, 2);
    EXPECT_FALSE(context.company().divisionalData);
    EXPECT_EQ(first.seen, QStringList({"first before change", "first change 2"}));
    EXPECT_EQ(second.seen, QStringList({"second before change", "second change 2"}));
}

TEST_F(Toolbar, ModulesAnswerTheExportAndScriptRequests)
{
    EXPECT_EQ(navigator.exportToOffice(), QStringLiteral("Anagrafica agenti"));
    ObjectModel script;
    navigator.initializeScriptObjectModel(script);
    ASSERT_EQ(script.entries().size(), 2);
    EXPECT_EQ(script.entries()[1].name, QStringLiteral("second"));
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
    EXPECT_EQ(frame.actions, QStringList{"undo"});
    frame.setParent(nullptr);
}
