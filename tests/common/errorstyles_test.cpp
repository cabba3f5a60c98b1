#include "platform/services/hosterrorlog.h"
#include "platform/services/scriptedprompts.h"
#include "src/common/errorreporter.h"
#include "src/common/errorstyles.h"

#include <gtest/gtest.h>
#include <stdexcept>

using namespace tarvello;
using namespace tarvello::agenti;
using services::PromptAnswer;

namespace {

db::RuntimeError failure(long number = 5)
{
    return db::RuntimeError(number, QStringLiteral("Invalid procedure call"),
                            QStringLiteral("MDLMG_AGENTI"));
}

// The error styles over the host's error log answering through queued answers; the texts a
// report is shown under are the screen's (a scenario shows them).
class ErrorStyles : public ::testing::Test {
protected:
    ErrorStyles()
    {
        reporter.setLog(&log);
        reporter.setScreenTitle([this] { return screenTitle; });
    }

    void answer(std::initializer_list<int> answers)
    {
        for (const int a : answers)
            prompts.queue(PromptAnswer::button(a));
    }

    services::ScriptedPrompts prompts;
    services::HostErrorLog log{prompts};
    ErrorReporter reporter;
    QString screenTitle = QStringLiteral("Anagrafica agenti");
    QStringList done;
};

} // namespace

TEST_F(ErrorStyles, SilentStylesSkipOrLeaveAtAFailingStepAndAStepCanLeave)
{
    const Outcome outcome = ignoreEachStep({
        [&] { done << "1"; },
        [&] {
            throw failure();
            done << "never";
        },
        [&] { done << "3"; },
    });
    EXPECT_EQ(outcome, Outcome::Completed);
    EXPECT_EQ(done, QStringList({"1", "3"}));
    EXPECT_TRUE(prompts.history().isEmpty());

    done.clear();
    const Outcome left = ignoreEachStep({
        [&] { done << "1"; },
        [&] { return done.size() == 1 ? Flow::Leave : Flow::Next; },
        [&] { done << "3"; },
    });
    EXPECT_EQ(left, Outcome::Left);
    EXPECT_EQ(done, QStringList({"1"}));

    // Leaving silently ends at the first error, without a word either.
    done.clear();
    const Outcome silent = leaveSilently({
        [&] { done << "1"; },
        [] { throw failure(); },
        [&] { done << "3"; },
    });
    EXPECT_EQ(silent, Outcome::Abandoned);
    EXPECT_EQ(done, QStringList({"1"}));
    EXPECT_TRUE(prompts.history().isEmpty());
}

// A fault of the program (or a prompt given a wrong answer in a scenario) must never be
// mistaken for a run-time error of the module and swallowed.
TEST_F(ErrorStyles, OnlyRunTimeErrorsAreHandled)
{
    EXPECT_THROW(ignoreEachStep({[] { throw std::logic_error("fault"); }}), std::logic_error);
    EXPECT_THROW(leaveSilently({[] { throw services::PromptError(QStringLiteral("wrong")); }}),
                 services::PromptError);
}

TEST_F(ErrorStyles, RetryRunsTheFailingStepAgainAndReportsEachFailure)
{
    int attempts = 0;
    answer({host::Retry, host::Retry});
    const Outcome outcome = reportWithChoice(reporter, QStringLiteral("GRD_GIRI_Click"),
                                             {
                                                 [&] { done << "before"; },
                                                 [&] {
                                                     if (++attempts < 3)
                                                         throw failure();
                                                     done << "succeeded";
                                                 },
                                                 [&] { done << "after"; },
                                             });
    EXPECT_EQ(outcome, Outcome::Completed);
    EXPECT_EQ(attempts, 3);
    EXPECT_EQ(done, QStringList({"before", "succeeded", "after"}));
    EXPECT_EQ(prompts.history().size(), 2);
}

// The report names the screen as titled when the error happened.
TEST_F(ErrorStyles, IgnoreAnswerGoesOnWithTheNextStepAndAbortLeaves)
{
    answer({host::Ignore});
    screenTitle = QStringLiteral("Agenti - ditta 2");
    const Outcome outcome = reportWithChoice(reporter, QStringLiteral("Form_Activate"),
                                             {
                                                 [&] {
                                                     throw failure();
                                                     done << "rest of the failing step";
                                                 },
                                                 [&] { done << "next"; },
                                             });
    EXPECT_EQ(outcome, Outcome::Completed);
    EXPECT_EQ(done, QStringList({"next"}));
    EXPECT_TRUE(prompts.history().first().text.contains(QStringLiteral("Agenti - ditta 2")));

    // Abort leaves, keeping what was done.
    done.clear();
    answer({host::Abort});
    const Outcome abandoned = reportWithChoice(reporter, QStringLiteral("ImpostaElencoGiri"),
                                               {
                                                   [&] { done << "kept"; },
                                                   [&] { throw failure(); },
                                                   [&] { done << "never"; },
                                               });
    EXPECT_EQ(abandoned, Outcome::Abandoned);
    EXPECT_EQ(done, QStringList({"kept"}));
}

// Unanswered, the report takes its default button, Retry: the step runs again.
TEST_F(ErrorStyles, TheReportOffersAbortRetryIgnoreWithRetryAsDefault)
{
    int attempts = 0;
    reportWithChoice(reporter, QStringLiteral("CodiceFornitore"), {[&] {
                         if (++attempts == 1)
                             throw failure(13);
                     }});
    EXPECT_EQ(attempts, 2);
    ASSERT_EQ(prompts.history().size(), 1);
    const services::PromptRecord& shown = prompts.history().first();
    EXPECT_EQ(shown.kind, services::PromptKind::Report);
    EXPECT_EQ(shown.style,
              host::AbortRetryIgnore | host::Critical | host::DefaultButton2 | host::SystemModal);
    EXPECT_TRUE(shown.defaulted);
    EXPECT_TRUE(shown.text.contains(QStringLiteral("Errore n. 13")));
    EXPECT_TRUE(shown.text.contains(QStringLiteral("CodiceFornitore")));
}

// The reporting procedure has no trap of its own: without a log the failure goes on to the
// procedure's caller instead of being swallowed or retried forever.
TEST_F(ErrorStyles, AReportWithoutALogFailsToTheCaller)
{
    ErrorReporter noLog;
    try {
        reportWithChoice(noLog, QStringLiteral("Form_Activate"), {[] { throw failure(); }});
        FAIL() << "the missing log went unnoticed";
    } catch (const db::RuntimeError& error) {
        EXPECT_EQ(error.number(), 91);
    }
}

TEST_F(ErrorStyles, ModuleErrorAnsweredOneAbandonsAndOtherwiseGoesOn)
{
    answer({host::Ok});
    const Outcome outcome =
        reportModuleError(reporter, QStringLiteral("FRMMG_FME_GestAnagrafica1.Form_Load"),
                          {
                              [&] { done << "connection"; },
                              [&] { throw failure(); },
                              [&] { done << "never"; },
                          });
    EXPECT_EQ(outcome, Outcome::Abandoned);
    EXPECT_EQ(done, QStringList({"connection"}));
    const services::PromptRecord& shown = prompts.history().first();
    EXPECT_EQ(shown.title, QStringLiteral("MDLMG_AGENTI"));
    EXPECT_TRUE(
        shown.text.contains(QStringLiteral("FRMMG_FME_GestAnagrafica1.Form_Load (0_0_0_0)")));

    // Any other answer goes on after the failing step.
    done.clear();
    answer({host::Cancel});
    const Outcome goneOn = reportModuleError(reporter, QStringLiteral("TXT_CLIENTE_LostFocus"),
                                             {
                                                 [] { throw failure(); },
                                                 [&] { done << "next"; },
                                             });
    EXPECT_EQ(goneOn, Outcome::Completed);
    EXPECT_EQ(done, QStringList({"next"}));
}

TEST_F(ErrorStyles, PassOnPrependsTheTraceTextWithALineBreak)
{
    const auto nonnoAgente = [] {
        return passOn(QStringLiteral("NonnoAgente:"), []() -> QString { throw failure(3021); });
    };
    try {
        passOn(QStringLiteral("InvocaStampa:"), nonnoAgente);
        FAIL() << "the error was not passed on";
    } catch (const db::RuntimeError& error) {
        EXPECT_EQ(error.number(), 3021);
        EXPECT_EQ(error.description(), QStringLiteral("Invalid procedure call"));
        EXPECT_EQ(error.source(), QStringLiteral("InvocaStampa:\r\nNonnoAgente:\r\nMDLMG_AGENTI"));
    }
    EXPECT_EQ(passOn(QStringLiteral("Get_LP09_CODICE:"), [] { return QStringLiteral("P01"); }),
              QStringLiteral("P01"));
}
