#include "platform/services/hostcontext.h"
#include "platform/services/hostlauncher.h"
#include "platform/services/parametertext.h"
#include "platform/services/scriptedprompts.h"

#include <gtest/gtest.h>

using namespace tarvello;
using namespace tarvello::services;

TEST(ParameterText, KeepsEveryValueAsItWas)
{
    QString text;
    text = appendParameter(text, QStringLiteral("Pvar_ZONE_MACROAREA"), QStringLiteral("N=O"));
    text = appendParameter(text, QStringLiteral("Pvar_ZONE_AREA"), QStringLiteral("a\\n\nb\r"));
    text = appendParameter(text, QStringLiteral("CalledRamo"), QStringLiteral("2"));
    const auto parameters = readParameters(text);
    ASSERT_EQ(parameters.size(), 3);
    EXPECT_EQ(parameters[0],
              std::make_pair(QStringLiteral("Pvar_ZONE_MACROAREA"), QStringLiteral("N=O")));
    EXPECT_EQ(parameters[1].second, QStringLiteral("a\\n\nb\r"));
    EXPECT_EQ(parameters[2].first, QStringLiteral("CalledRamo"));
}

class Launcher : public ::testing::Test {
protected:
    QString zoneParameters() const
    {
        QString text;
        text = launcher.addParameter(text, QStringLiteral("Pvar_ZONE_MACROAREA"), db::Value("NO"));
        text = launcher.addParameter(text, QStringLiteral("Pvar_ZONE_AREA"), db::Value("LOM"));
        text = launcher.addParameter(text, QStringLiteral("Pvar_ZONE_ZONA"), db::Value("MI1"));
        return launcher.addParameter(text, QStringLiteral("CalledRamo"), db::Value("2"));
    }

    ScriptedPrompts prompts;
    HostContext context{prompts, QString(), host::Company{1, QStringLiteral("DITTA"), false}};
    HostLauncher launcher{context.managements()};
};

TEST_F(Launcher, TheClassificationTablesHandBackTheCodesChosen)
{
    prompts.queue(PromptAnswer::codes({"BG2", "LOM", "NO"}));
    const db::Value result =
        launcher.runProgram(HostLauncher::ClassificationTables, zoneParameters(), true);
    EXPECT_EQ(result, db::Value(db::ValueList{"BG2", "LOM", "NO"}));
    const PromptRecord& shown = prompts.history().first();
    EXPECT_EQ(shown.kind, PromptKind::Management);
    EXPECT_EQ(shown.text, QStringLiteral("Tabelle di classificazione agenti"));
}

TEST_F(Launcher, LeftWithoutAChoiceTheyHandBackTheCodesTheyWereOpenedWith)
{
    const db::Value result =
        launcher.runProgram(HostLauncher::ClassificationTables, zoneParameters(), true);
    EXPECT_EQ(result, db::Value(db::ValueList{"MI1", "LOM", "NO"}));
}

TEST_F(Launcher, OtherProgramsHandBackNothingWhenLeft)
{
    EXPECT_EQ(launcher.runProgram(1234, QString(), true), db::Value(db::ValueList{}));
}
