#include "app/shellassembly.h"
#include "platform/controls/form.h"
#include "platform/db/demodata.h"
#include "platform/db/runtimeerror.h"
#include "platform/gui/dialogprompts.h"
#include "platform/gui/screenwindow.h"
#include "platform/gui/shellapplication.h"
#include "platform/gui/shellhost.h"
#include "platform/gui/shellwindow.h"
#include "platform/services/scriptedprompts.h"
#include "support/testdatabase.h"
#include "widgettesting.h"

#include <QLineEdit>
#include <QMessageBox>
#include <QPointer>
#include <gtest/gtest.h>

namespace tarvello::gui {
namespace {

ShellApplication* application()
{
    return qobject_cast<ShellApplication*>(QCoreApplication::instance());
}

// The shell as the person runs it: the agents screen with its designed layout, real dialogs.
class ShellWithRealDialogsTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        db::createSchema(database.connection());
        db::populateDemoData(database.connection());
        host = std::make_unique<ShellHost>(prompts, database.connectionString());
        app::registerModules(host->context());
        window = std::make_unique<ShellWindow>(*host, nullptr);
        prompts.setParent(window.get());
        application()->setPrompts(&prompts);
        app::assembleShell(*window);
        ASSERT_TRUE(test::showActive(*window));
        screen = window->openModule(app::agentsEntry());
        ASSERT_NE(screen, nullptr);
    }

    void TearDown() override { application()->setPrompts(nullptr); }

    QLineEdit& edit(const char* name) const
    {
        auto* found = screen->findChild<QLineEdit*>(QString::fromLatin1(name));
        EXPECT_NE(found, nullptr) << name;
        return *found;
    }

    // Answers every message box that comes up with OK, writing down its text, for as long as
    // the test runs.
    void answerMessagesWithOk()
    {
        QObject::connect(&okPresser, &QTimer::timeout, [this] {
            if (auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget())) {
                messages << box->text();
                box->button(QMessageBox::Ok)->click();
            }
        });
        okPresser.start(10);
    }

    test::TestDatabase database{test::databaseTargets().front()};
    DialogPrompts prompts;
    std::unique_ptr<ShellHost> host;
    std::unique_ptr<ShellWindow> window;
    QPointer<ScreenWindow> screen;
    QStringList messages;
    QTimer okPresser;
};

// A lone "-" in the number of partners used to let a type mismatch out of the screen, and the
// shell closed with "Il database non si apre", taking every unsaved change with it.
TEST_F(ShellWithRealDialogsTest, ASignAloneInTheNumberOfPartnersIsRefusedAndEverythingTypedStays)
{
    QLineEdit& matricola = edit("TXT_MATRENASARCO");
    QLineEdit& soci = edit("TXT_NUMSOCI");
    matricola.setFocus();
    matricola.selectAll();
    test::keyClicks(&matricola, QStringLiteral("XY123"));
    soci.setFocus();
    soci.selectAll();
    test::keyClick(&soci, Qt::Key_Minus, {}, QStringLiteral("-"));
    answerMessagesWithOk();

    test::keyClick(&soci, Qt::Key_Tab);
    test::processEventsFor(50);

    EXPECT_EQ(messages.join(u'\n').toStdString(),
              "Il campo \"Numero di soci per agenti identificati come società di persona\" "
              "richiede un valore numerico.");
    ASSERT_FALSE(screen.isNull()) << "the agents window is still there";
    EXPECT_TRUE(window->isVisible());
    EXPECT_TRUE(screen->form()->isLoaded());
    EXPECT_EQ(screen->form()->activeControl()->name(), QStringLiteral("TXT_NUMSOCI"));
    EXPECT_EQ(window->focusWidget(), &soci) << "the widget focus stays on the field too";
    EXPECT_EQ(soci.text(), QStringLiteral("-"));
    EXPECT_EQ(matricola.text(), QStringLiteral("XY123"));
}

// What nothing else caught (a timer, a queued call) is told, and the program goes on.
TEST(ShellApplicationTest, ARunTimeErrorReachingTheEventLoopIsToldAndTheProgramGoesOn)
{
    ASSERT_NE(application(), nullptr);
    services::ScriptedPrompts prompts;
    application()->setPrompts(&prompts);
    bool later = false;
    QTimer::singleShot(0, [] {
        throw db::RuntimeError(db::RuntimeError::TypeMismatch, QStringLiteral("Type mismatch"));
    });
    QTimer::singleShot(5, [&later] { later = true; });
    test::processEventsFor(30);
    application()->setPrompts(nullptr);

    ASSERT_EQ(prompts.history().size(), 1);
    EXPECT_TRUE(prompts.history().first().text.contains(QStringLiteral("Type mismatch")));
    EXPECT_TRUE(later);
}

} // namespace
} // namespace tarvello::gui
