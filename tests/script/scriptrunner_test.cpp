#include "app/shellassembly.h"
#include "platform/db/connection.h"
#include "platform/script/scriptrunner.h"

#include <QTemporaryDir>
#include <gtest/gtest.h>

// Failures show the texts compared.
static void PrintTo(const QString& text, std::ostream* os)
{
    *os << '"' << text.toStdString() << '"';
}

using namespace tarvello;
using script::ScriptRunner;

namespace {

// Runs scenarios on the demo data with the host's modules, keeping what the runner printed.
class Scenarios : public ::testing::Test {
protected:
    int run(const char* text)
    {
        notes.clear();
        failures.clear();
        ScriptRunner runner(options);
        runner.setOutput([this](ScriptRunner::Channel channel, const QString& line) {
            (channel == ScriptRunner::Channel::Notes ? notes : failures) << line;
        });
        return runner.runText(QStringLiteral("story.scenario"), QString::fromUtf8(text));
    }

    // Every line printed on a channel, one text.
    static std::string all(const QStringList& lines) { return lines.join(u'\n').toStdString(); }

    script::ShellOptions options = [] {
        script::ShellOptions given;
        given.demo = true;
        given.registerModules = app::registerModules;
        return given;
    }();
    QStringList notes;
    QStringList failures;
};

} // namespace

// A window and a company change that a module refuses are noted; the run goes on.
TEST_F(Scenarios, APassingScenarioExitsZeroNotingRefusals)
{
    const int result = run(R"S(open
expect text TXT_AGENTE "A001"
type TXT_PERPROV "9"
leave
answer cancel
close
expect open
answer cancel
company 2
expect company 1
answer no
close
expect closed
)S");
    EXPECT_EQ(result, 0) << all(failures) << all(notes);
    EXPECT_TRUE(failures.isEmpty()) << all(failures);
    EXPECT_TRUE(
        notes.contains(QStringLiteral("story.scenario:6: note: the window refused to close")))
        << all(notes);
    EXPECT_TRUE(notes.contains(
        QStringLiteral("story.scenario:9: note: the change to company 2 was refused")))
        << all(notes);
    EXPECT_EQ(notes.value(notes.size() - 1),
              QStringLiteral("story.scenario: passed, 13 commands run"));
}

TEST_F(Scenarios, AFailingCheckIsReportedWithItsLineAndWhatWasFoundAndStopsTheRun)
{
    const int result = run(R"S(open
# line 2
expect text TXT_AGENTE "A002"
exec "DELETE FROM MG17_AGENTI"
)S");
    EXPECT_EQ(result, 1);
    EXPECT_EQ(failures, QStringList({QStringLiteral("story.scenario:3: failed: expect text "
                                                    "TXT_AGENTE \"A002\""),
                                     QStringLiteral("    found \"A001\"")}));
}

TEST_F(Scenarios, AStepTheScreenCannotTakeFailsNamingWhatIsMissing)
{
    EXPECT_EQ(run("open\ntype TXT_NESSUNO \"x\"\n"), 1);
    EXPECT_EQ(failures.value(1),
              QStringLiteral("    the screen FRMMG_AGENTI has no control TXT_NESSUNO"));
    EXPECT_EQ(run("open\ntype CBO_REGPROV \"x\"\n"), 1);
    EXPECT_EQ(failures.value(1), QStringLiteral("    CBO_REGPROV is a ComboBox, not a Field"));
    EXPECT_EQ(run("open\nselect CBO_IDENTIFCOL 7\n"), 1);
    EXPECT_EQ(
        failures.value(1),
        QStringLiteral("    CBO_IDENTIFCOL has no item with the code \"7\"; its codes are \"-1\""));
    EXPECT_EQ(run("expect text TXT_AGENTE \"A001\"\n"), 1);
    EXPECT_EQ(failures.value(1), QStringLiteral("    no window was opened"));
}

// Nothing runs before every line is understood: the insert of line 1 never reaches the file.
TEST_F(Scenarios, AnUnknownCommandExitsTwoBeforeAnythingRuns)
{
    QTemporaryDir folder;
    options.databasePath = folder.filePath(QStringLiteral("host.db"));
    const int result =
        run(R"S(exec "INSERT INTO CG18_DITTE (CG18_DITTA, CG18_RAGSOC) VALUES (9, 'NUOVA')"
expect rows "SELECT * FROM CG18_DITTE WHERE CG18_DITTA = 9" 1
frobnicate TXT_AGENTE
)S");
    EXPECT_EQ(result, 2);
    EXPECT_EQ(failures, QStringList({QStringLiteral("story.scenario:3: cannot understand: "
                                                    "frobnicate TXT_AGENTE"),
                                     QStringLiteral("    unknown command frobnicate")}));
    db::Connection database;
    database.open(options.databasePath);
    EXPECT_FALSE(database.tableInfo(QStringLiteral("CG18_DITTE")).exists());
}

TEST_F(Scenarios, LinesThatCannotBeUnderstoodSayWhy)
{
    const std::pair<const char*, const char*> cases[] = {
        {"expect colour TXT_A red", "the check must be one of"},
        {"expect rows \"SELECT 1\" many", "the number of rows must be a whole number, not many"},
        {"open modal modal", "modal is given twice"},
        {"open called name \"A\"", "what the module is called on must be one of code, id"},
        {"toolbar print", "the toolbar button must be a number or one of new, save"},
        {"key TXT_A F13", "the key must be Enter, Tab, Esc, F1 to F12 or a key code"},
        {"answer maybe", "unknown answer maybe"},
        {"answer customers C001", "customers takes pairs"},
        {"mgmtkey TXT_A F4", "the management key must be Kgestione or Kpers"},
        {"expect valid INTERNAV Avanti yes", "only enabled and visible are checked on a button"},
        {"click GRD_AGENTI row", "the row is missing"},
        {"leave now", "unexpected now at the end of the command"},
        {"type TXT_A \"open", "a quoted text is not closed"},
    };
    for (const auto& [line, why] : cases) {
        EXPECT_EQ(run(line), 2) << line;
        EXPECT_TRUE(failures.value(1).contains(QString::fromUtf8(why))) << line << "\n"
                                                                        << all(failures);
    }
}

// The delete confirmation's default is No: the agent stays.
TEST_F(Scenarios, APromptWithNoQueuedAnswerTakesItsDefaultAndIsNoted)
{
    const int result = run(R"S(open
toolbar delete
expect rows "SELECT * FROM MG17_AGENTI WHERE MG17_DITTA_CG18 = 1 AND MG17_AGENTE = 'A001'" 1
)S");
    EXPECT_EQ(result, 0) << all(failures);
    EXPECT_TRUE(notes.contains(
        QStringLiteral("story.scenario:2: note: the message box \"Confermi l'eliminazione di A001 "
                       "RICCI FRANCESCA per la gestione anagrafica agenti?\" took its default "
                       "answer (no): no answer was queued")))
        << all(notes);
}

TEST_F(Scenarios, AnAnswerThePromptCannotTakeStopsTheRunNamingThePrompt)
{
    EXPECT_EQ(run("open\ntoolbar new\nanswer pick 99\nlookup TXT_RAGSOANAG\n"), 1);
    EXPECT_EQ(failures.value(0), QStringLiteral("story.scenario:4: failed: lookup TXT_RAGSOANAG"));
    EXPECT_EQ(failures.value(1), QStringLiteral("    The registry search \"Agenti e anagrafiche "
                                                "non assegnate\" cannot take the answer pick 99"));
}

TEST_F(Scenarios, AModalScreenIsDrivenByTheCommandsThatFollowItsOpen)
{
    EXPECT_EQ(run(R"S(open modal caption "Scelta agente"
expect open
type TXT_PERPROV "5"
toolbar save
close
expect closed
expect cell "SELECT MG17_PERPROV FROM MG17_AGENTI WHERE MG17_DITTA_CG18 = 1 AND MG17_AGENTE = 'A001'" "5"
)S"),
              0)
        << all(failures);
    EXPECT_EQ(run("open modal\nexpect open\n"), 0) << all(failures);
}

TEST_F(Scenarios, ATransferCheckOnAModuleThatHandedNothingBackFails)
{
    EXPECT_EQ(run("open called id 999999\nexpect transfer \"A001\"\n"), 1);
    EXPECT_EQ(failures.value(1), QStringLiteral("    found nothing handed back"));
}

TEST_F(Scenarios, StatementsAreMatchedInTheOrderTheyWereSent)
{
    EXPECT_EQ(run(R"S(open
expect sql "SELECT * FROM MG34_AGENTITV WHERE 1 = 0"
expect sql "SELECT  * FROM MG17_AGENTI WHERE MG17_DITTA_CG18 = 1"
)S"),
              1);
    EXPECT_EQ(failures.value(0), QStringLiteral("story.scenario:3: failed: expect sql \"SELECT  * "
                                                "FROM MG17_AGENTI WHERE MG17_DITTA_CG18 = 1\""));
}

TEST_F(Scenarios, WithoutTheAgentsModuleOpenFails)
{
    options.registerModules = nullptr;
    EXPECT_EQ(run("open\n"), 1);
    EXPECT_EQ(failures.value(1),
              QStringLiteral("    the host has no module MDLMG_AGENTI.CLSMG_AGENTI to open"));
}

TEST(RunScript, ReadsTheScenarioFileAndAnswersTwoWhenThereIsNone)
{
    QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("rows.scenario"));
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(
        "exec \"INSERT INTO CG18_DITTE (CG18_DITTA, CG18_RAGSOC) VALUES (3, N'TERZA')\"\n"
        "expect cell \"SELECT TOP 1 CG18_RAGSOC FROM CG18_DITTE WITH (NOLOCK)\" \"TERZA\"\n");
    file.close();
    EXPECT_EQ(script::runScript(path, {}), 0);
    EXPECT_EQ(script::runScript(folder.filePath(QStringLiteral("missing.scenario")), {}), 2);
}
