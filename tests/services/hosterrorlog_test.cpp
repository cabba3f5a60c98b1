#include "platform/services/hosterrorlog.h"
#include "platform/services/scriptedprompts.h"

#include <gtest/gtest.h>

using namespace tarvello;
using namespace tarvello::services;

TEST(HostErrorLog, AReportWithAChoiceShowsTheErrorAndReturnsTheAnswer)
{
    ScriptedPrompts prompts;
    HostErrorLog log(prompts);
    for (const int answer : {host::Abort, host::Retry, host::Ignore}) {
        prompts.queue(PromptAnswer::button(answer));
        log.takeRuntimeError(db::RuntimeError(3021, QStringLiteral("No current record"),
                                              QStringLiteral("NonnoAgente:\r\nADODB")));
        log.takeProviderErrors(
            {{-1, QStringLiteral("no such table: X"), QStringLiteral("HY000"), {}}});
        int argument = 0;
        EXPECT_EQ(log.reportWithChoice(QStringLiteral("Tarvello"),
                                       QStringLiteral("Anagrafica agenti"),
                                       QStringLiteral("GRD_GIRI_Click"),
                                       host::AbortRetryIgnore | host::Critical |
                                           host::DefaultButton2 | host::SystemModal,
                                       argument),
                  answer);
    }
    const PromptRecord& shown = prompts.history().first();
    EXPECT_EQ(shown.kind, PromptKind::Report);
    EXPECT_EQ(shown.title, QStringLiteral("Tarvello"));
    EXPECT_EQ(shown.text, QStringLiteral("Errore n. 3021: No current record\r\n"
                                         "Origine: NonnoAgente:\r\nADODB\r\n"
                                         "Errore del database n. -1 (HY000): no such table: X\r\n"
                                         "Procedura: GRD_GIRI_Click\r\n"
                                         "Maschera: Anagrafica agenti"));
    EXPECT_EQ(log.entries().size(), 3);
    EXPECT_EQ(log.entries().last().answer, host::Ignore);
}

// What was taken belongs to one report: a later report must not show an old error.
TEST(HostErrorLog, TakenErrorsAreForgottenOnceReported)
{
    ScriptedPrompts prompts;
    HostErrorLog log(prompts);
    log.takeRuntimeError(db::RuntimeError(13, QStringLiteral("Type mismatch")));
    int argument = 0;
    log.reportWithChoice(QString(), QString(), QStringLiteral("A"),
                         host::AbortRetryIgnore | host::Critical | host::DefaultButton2 |
                             host::SystemModal,
                         argument);
    prompts.queue(PromptAnswer::button(host::Ignore));
    log.reportWithChoice(QString(), QString(), QStringLiteral("B"),
                         host::AbortRetryIgnore | host::Critical | host::DefaultButton2 |
                             host::SystemModal,
                         argument);
    EXPECT_FALSE(prompts.history().last().text.contains(QStringLiteral("Type mismatch")));
}
