#include "agentsscreen.h"
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

// Runs scenarios on the demo data with the test agents screen registered as the agents
// module, keeping what the runner printed.
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
        given.registerModules = test::AgentsTestScreen::registerWith;
        return given;
    }();
    QStringList notes;
    QStringList failures;
};

} // namespace

// A person's session on the screen, every kind of command and check in its natural place.
TEST_F(Scenarios, APassingScenarioExitsZero)
{
    const int result =
        run(R"S(# The screen opens on the company's first agent, its registry name decoded.
open
expect open
expect active yes
expect focus TXT_AGENTE
expect text TXT_AGENTE "A001"
expect text LBL_RAGSOANAG "RICCI FRANCESCA"
expect status FME_GestAnagrafica1 0
expect items CBO_INDTIPOAGE 0 1 2
expect value CBO_INDTIPOAGE 0
expect items CMD_GESTCOLL key_anagrafica key_divisionali
expect required TXT_AGENTE yes
expect enabled INTERNAV Avanti yes
expect sql "SELECT * FROM MG17_AGENTI WHERE MG17_DITTA_CG18 = 1 ORDER BY MG17_AGENTE"
expect sql "SELECT CG16_RAGSOANAG FROM CG16_ANAGGEN WHERE CG16_CODICE = 6"
expect tree rows 11
expect tree current "A001"

# A share over 100 is refused: the message, and the focus stays.
type TXT_PERPROV "150"
leave
expect prompt "La percentuale non può superare 100" title "Avviso Utente" style 48
expect focus TXT_PERPROV
type TXT_PERPROV "7,5"
leave
expect noprompt
select CBO_INDTIPOAGE 1
check CHK_FLGREGIMECL 1
toolbar save
expect status FME_GestAnagrafica1 0
expect cell "SELECT MG17_PERPROV FROM MG17_AGENTI WHERE MG17_DITTA_CG18 = 1 AND MG17_AGENTE = 'A001'" "7.5"
expect cell "SELECT MG17_INDTIPOAGE FROM MG17_AGENTI WHERE MG17_DITTA_CG18 = 1 AND MG17_AGENTE = 'A001'" "1"
expect cell "SELECT MG17_FLGREGIMECL FROM MG17_AGENTI WHERE MG17_DITTA_CG18 = 1 AND MG17_AGENTE = 'A001'" "1"

# The registry code decodes as it is left; the lookup list picks by code; undo puts it back.
type TXT_ANAGEN "7"
leave
expect text LBL_RAGSOANAG "FERRARI NICOLÒ"
answer pick "3"
lookup TXT_ANAGEN
expect prompt "Anagrafiche generali"
expect text TXT_ANAGEN "3"
expect text LBL_RAGSOANAG "COLOMBO LUCA"
toolbar undo
expect text TXT_ANAGEN "6"

# The tree moves the record; the tab strip, the picture and the menu button do their work.
click GRD_AGENTI agent "D'ANGELO"
expect text TXT_AGENTE "D'ANGELO"
expect tree current "D'ANGELO"
click TAB_AGENTI 1
expect tab 1
expect focus TXT_PERPROV
click IMG_COMPRIMI
expect tree rows 3
answer none
click CMD_GESTCOLL key_anagrafica
expect prompt "Anagrafiche generali"
expect active yes
answer no
click CMD_DOMANDA
expect text LBL_RISPOSTA "no"

# A new agent, saved; then deleted once the confirmation is answered Yes.
toolbar new
expect status FME_GestAnagrafica1 2
type TXT_AGENTE "a100"
expect text TXT_AGENTE "A100"
type TXT_ANAGEN "13"
toolbar save
expect rows "SELECT * FROM MG17_AGENTI WHERE MG17_DITTA_CG18 = 1 AND MG17_AGENTE = 'A100'" 1
answer yes
toolbar delete
expect rows "SELECT * FROM MG17_AGENTI WHERE MG17_DITTA_CG18 = 1 AND MG17_AGENTE = 'A100'" 0
close
expect closed
expect active no
)S");
    EXPECT_EQ(result, 0) << all(failures) << all(notes);
    EXPECT_TRUE(failures.isEmpty()) << all(failures);
    EXPECT_EQ(notes.value(notes.size() - 1),
              QStringLiteral("story.scenario: passed, 68 commands run"));
}

TEST_F(Scenarios, KeysSettingsAndTheActiveWindow)
{
    EXPECT_EQ(run(R"S(open
key TXT_AGENTE Tab
expect focus TXT_ANAGEN
key TXT_ANAGEN Tab shift
expect focus TXT_AGENTE
key TXT_AGENTE Enter
expect focus TXT_ANAGEN

# A code that decodes to nothing is not valid, and the save is refused on it.
type TXT_ANAGEN "999"
leave
expect valid TXT_ANAGEN no
expect text LBL_RAGSOANAG ""
toolbar save
expect prompt "*"
expect focus TXT_ANAGEN
toolbar undo
expect valid TXT_ANAGEN yes

# The registry search of the agent code's extra item, and a row of the tree.
answer agent "A003"
mgmtkey TXT_AGENTE Kpers1
expect prompt "Ricerca agenti"
expect text TXT_AGENTE "A003"
expect grid GRD_AGENTI row 1 MG17_AGENTE "A099"
click GRD_AGENTI row 1
expect text TXT_AGENTE "A099"
expect tree current "A099"

# The window stops and starts being the one the toolbar serves.
deactivate
expect active no
activate
expect active yes
)S"),
              0)
        << all(failures) << all(notes);
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
              QStringLiteral("    the screen FRMTEST_AGENTI has no control TXT_NESSUNO"));
    EXPECT_EQ(run("open\ntype CBO_INDTIPOAGE \"x\"\n"), 1);
    EXPECT_EQ(failures.value(1), QStringLiteral("    CBO_INDTIPOAGE is a ComboBox, not a Field"));
    EXPECT_EQ(run("open\nselect CBO_INDTIPOAGE 7\n"), 1);
    EXPECT_EQ(
        failures.value(1),
        QStringLiteral(
            "    CBO_INDTIPOAGE has no item with the code \"7\"; its codes are \"0\" \"1\" \"2\""));
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

TEST_F(Scenarios, APromptWithNoQueuedAnswerTakesItsDefaultAndIsNoted)
{
    const int result = run(R"S(open
click CMD_DOMANDA
expect text LBL_RISPOSTA "si"
expect prompt "Procedere?" title "Conferma" style 36
toolbar delete
expect rows "SELECT * FROM MG17_AGENTI WHERE MG17_DITTA_CG18 = 1 AND MG17_AGENTE = 'A001'" 1
)S");
    EXPECT_EQ(result, 0) << all(failures);
    EXPECT_TRUE(notes.contains(QStringLiteral(
        "story.scenario:2: note: the message box \"Procedere?\" took its default answer (yes): no "
        "answer was queued")))
        << all(notes);
    // The delete confirmation's default is No: the agent stays.
    EXPECT_TRUE(notes.filter(QStringLiteral("story.scenario:5: note: the message box"))
                    .value(0)
                    .endsWith(QStringLiteral("took its default answer (no): no answer was queued")))
        << all(notes);
}

TEST_F(Scenarios, AnAnswerThePromptCannotTakeStopsTheRunNamingThePrompt)
{
    EXPECT_EQ(run("open\nanswer pick 99\nlookup TXT_ANAGEN\n"), 1);
    EXPECT_EQ(failures.value(0), QStringLiteral("story.scenario:3: failed: lookup TXT_ANAGEN"));
    EXPECT_TRUE(failures.value(1).contains(
        QStringLiteral("lookup list \"Anagrafiche generali\" cannot take the answer pick 99")))
        << all(failures);
}

// The modal screen waits in a loop of its own inside ShowForm: the commands after `open`
// must run inside that wait, and the run must end even when the screen is left open.
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

TEST_F(Scenarios, AModuleCalledOnAnAgentShowsItAndHandsItBack)
{
    EXPECT_EQ(run(R"S(open called code "D'ANGELO"
expect text TXT_AGENTE "D'ANGELO"
click INTERNAV Avanti
expect transfer "D'ANGELO"
)S"),
              0)
        << all(failures);
    EXPECT_EQ(
        run("open called id 999999\nexpect text TXT_AGENTE \"A001\"\nexpect transfer \"A001\"\n"),
        1);
    EXPECT_EQ(failures.value(1), QStringLiteral("    found nothing handed back"));
}

TEST_F(Scenarios, ACompanyChangeGoesThroughTheModulesThatMayRefuseIt)
{
    EXPECT_EQ(run(R"S(company 2
open
expect items CMD_GESTCOLL key_anagrafica
expect text TXT_AGENTE "A001"
expect text LBL_RAGSOANAG "LOMBARDI SARA"
type TXT_PERPROV "9"
answer cancel
company 1
expect company 2
answer no
company 1
expect company 1
expect text TXT_AGENTE "A001"
expect text LBL_RAGSOANAG "RICCI FRANCESCA"
)S"),
              0)
        << all(failures);
    EXPECT_TRUE(notes.contains(
        QStringLiteral("story.scenario:8: note: the change to company 1 was refused")))
        << all(notes);
}

TEST_F(Scenarios, TheCloseRequestMayBeRefused)
{
    EXPECT_EQ(run(R"S(open
type TXT_PERPROV "9"
answer cancel
close
expect open
answer no
close
expect closed
)S"),
              0)
        << all(failures);
    EXPECT_TRUE(
        notes.contains(QStringLiteral("story.scenario:4: note: the window refused to close")));
}

TEST_F(Scenarios, StatementsAreMatchedInTheOrderTheyWereSent)
{
    EXPECT_EQ(run(R"S(open
expect sql "SELECT CG16_RAGSOANAG FROM CG16_ANAGGEN WHERE CG16_CODICE = 6"
expect sql "SELECT * FROM MG17_AGENTI WHERE MG17_DITTA_CG18 = 1 ORDER BY MG17_AGENTE"
)S"),
              1);
    EXPECT_EQ(failures.value(0), QStringLiteral("story.scenario:3: failed: expect sql \"SELECT * "
                                                "FROM MG17_AGENTI WHERE MG17_DITTA_CG18 = 1 "
                                                "ORDER BY MG17_AGENTE\""));
}

TEST_F(Scenarios, WithoutTheAgentsModuleOpenFails)
{
    options.registerModules = nullptr;
    EXPECT_EQ(run("open\n"), 1);
    EXPECT_EQ(failures.value(1),
              QStringLiteral("    the host has no module MDLMG_AGENTI.CLSMG_AGENTI to open"));
}

TEST_F(Scenarios, AFreshDatabaseHasTheSchemaAndNoRowsUnlessDemoIsAsked)
{
    options.demo = false;
    EXPECT_EQ(run("expect rows \"SELECT * FROM CG18_DITTE\" 0\nexpect rows \"SELECT * FROM "
                  "MG17_AGENTI\" 0\n"),
              0)
        << all(failures);
    options.demo = true;
    EXPECT_EQ(run("expect rows \"SELECT * FROM CG18_DITTE\" 2\n"), 0) << all(failures);
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
