#pragma once

#include "app/shellassembly.h"
#include "platform/db/demodata.h"
#include "platform/gui/formview.h"
#include "platform/gui/screenwindow.h"
#include "platform/gui/shellhost.h"
#include "platform/gui/shellwindow.h"
#include "platform/script/promptlookups.h"
#include "platform/services/scriptedprompts.h"
#include "src/screen/frmmg_agenti.h"
#include "support/testdatabase.h"
#include "widgettesting.h"

#include <QLineEdit>
#include <QSettings>
#include <gtest/gtest.h>

namespace tarvello::test {

// The shell as a person gets it (its menus, the agents screen in its designed layout) on the
// demo data, shown and active, with the prompts answered by the test. It starts with nothing
// remembered of earlier windows.
class AgentsShellTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        QSettings().clear();
        db::createSchema(database.connection());
        db::populateDemoData(database.connection());
        openShell();
    }

    void TearDown() override
    {
        shell.reset();
        host.reset();
    }

    // (Re)opens the shell window with no screen open.
    void openShell()
    {
        shell.reset();
        host.reset();
        host = std::make_unique<gui::ShellHost>(prompts, database.connectionString());
        app::registerModules(host->context());
        shell = std::make_unique<gui::ShellWindow>(*host, &lookups);
        app::assembleShell(*shell);
        ASSERT_TRUE(showActive(*shell));
    }

    gui::ScreenWindow& openAgents()
    {
        gui::ScreenWindow* opened = shell->openModule(app::agentsEntry());
        if (!opened)
            throw std::runtime_error("the agents screen did not open");
        processEventsFor(20);
        return *opened;
    }

    agenti::FRMMG_AGENTI& screenOf(gui::ScreenWindow& window) const
    {
        return *qobject_cast<agenti::FRMMG_AGENTI*>(window.form());
    }

    template <class W = QWidget>
    static W& widget(gui::ScreenWindow& window, const char* name)
    {
        auto* found = window.findChild<W*>(QString::fromLatin1(name));
        if (!found)
            throw std::runtime_error(std::string("no widget ") + name);
        return *found;
    }

    TestDatabase database{databaseTargets().front()};
    services::ScriptedPrompts prompts;
    script::PromptLookups lookups{prompts};
    std::unique_ptr<gui::ShellHost> host;
    std::unique_ptr<gui::ShellWindow> shell;
};

} // namespace tarvello::test
