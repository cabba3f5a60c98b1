#include "platform/services/scriptedprompts.h"
#include "src/host/errorlog.h"

#include <gtest/gtest.h>

using namespace tarvello;
using namespace tarvello::services;

namespace {

// The message of the PromptError a call raises; empty when it raises none.
template <class F>
QString promptError(F&& ask)
{
    try {
        ask();
    } catch (const PromptError& error) {
        return error.message();
    }
    return {};
}

const QList<QStringList> threeRoutes{
    {"G01", "Giro centro"}, {"G02", "Giro nord"}, {"G03", "Giro sud"}};

} // namespace

TEST(ScriptedPrompts, WithNothingQueuedAPromptTakesItsDefaultAndSaysSo)
{
    ScriptedPrompts prompts;
    // Yes and No with No as the default button; OK only; Abort / Retry / Ignore with Retry.
    EXPECT_EQ(prompts.messageBox(QStringLiteral("Proseguire?"),
                                 host::YesNo | host::Question | host::DefaultButton2, QString()),
              host::No);
    EXPECT_EQ(
        prompts.messageBox(QStringLiteral("Selezionare il giro"), host::Information, QString()),
        host::Ok);
    EXPECT_EQ(prompts.report(QStringLiteral("Errore"),
                             host::AbortRetryIgnore | host::Critical | host::DefaultButton2 |
                                 host::SystemModal,
                             QString()),
              host::Retry);
    // A default button beyond the box's buttons is the first one.
    EXPECT_EQ(prompts.messageBox(QStringLiteral("Salvare?"), 4 + 512, QString()), host::Yes);
    EXPECT_EQ(prompts.lookupList(QStringLiteral("Elenco giri"), {}, threeRoutes), std::nullopt);
    EXPECT_EQ(prompts.question(QStringLiteral("Inserirlo comunque?"), QString()), std::nullopt);
    EXPECT_EQ(prompts.registrySearch(QStringLiteral("Ricerca"), 3, QString()).kind(),
              PromptAnswer::Kind::Nothing);
    for (const PromptRecord& record : prompts.history())
        EXPECT_TRUE(record.defaulted) << record.text.toStdString();
    EXPECT_EQ(prompts.history().first().answer(), QStringLiteral("no"));
}

TEST(ScriptedPrompts, AnAnswerThePromptCannotTakeIsRefusedNamingThePrompt)
{
    ScriptedPrompts prompts;
    prompts.queue(PromptAnswer::button(host::Yes));
    const QString okOnly = promptError([&] {
        prompts.messageBox(QStringLiteral("Selezionare il giro"), host::Information, QString());
    });
    EXPECT_TRUE(okOnly.contains(QStringLiteral("message box \"Selezionare il giro\"")))
        << okOnly.toStdString();
    EXPECT_TRUE(okOnly.contains(QStringLiteral("yes")));

    prompts.queue(PromptAnswer::pickRow(9));
    EXPECT_TRUE(promptError([&] {
                    prompts.lookupList(QStringLiteral("Elenco giri"), {}, threeRoutes);
                }).contains(QStringLiteral("lookup list \"Elenco giri\"")));
    prompts.queue(PromptAnswer::pickCode(QStringLiteral("G09")));
    EXPECT_FALSE(promptError([&] {
                     prompts.lookupList(QStringLiteral("Elenco giri"), {}, threeRoutes);
                 }).isEmpty());
    prompts.queue(PromptAnswer::agent(QStringLiteral("A001")));
    EXPECT_FALSE(promptError([&] {
                     prompts.registrySearch(QStringLiteral("Elenco anagrafiche generali"), 1,
                                            QString());
                 }).isEmpty());
    prompts.queue(PromptAnswer::codes({QStringLiteral("A")}));
    EXPECT_FALSE(promptError([&] {
                     prompts.management(QStringLiteral("Anagrafiche generali"), QString(),
                                        {PromptAnswer::Kind::Transfer});
                 }).isEmpty());
    prompts.queue(PromptAnswer::pickRow(1));
    EXPECT_FALSE(promptError([&] {
                     prompts.question(QStringLiteral("Inserirlo comunque?"), QString());
                 }).isEmpty());
    EXPECT_EQ(prompts.pendingAnswers(), 0);
}

// An error reported with a choice defaults to Retry: a step that keeps failing in an
// unattended run must stop the run instead of looping forever.
TEST(ScriptedPrompts, APromptDefaultingOverAndOverStopsTheRun)
{
    ScriptedPrompts prompts;
    int shown = 0;
    const QString error = promptError([&] {
        for (;;) {
            prompts.report(QStringLiteral("Errore n. 3021"),
                           host::AbortRetryIgnore | host::Critical | host::DefaultButton2 |
                               host::SystemModal,
                           QString());
            ++shown;
        }
    });
    EXPECT_EQ(shown, ScriptedPrompts::MaxRepeatedDefaults);
    EXPECT_TRUE(error.contains(QStringLiteral("error report \"Errore n. 3021\"")));
}
