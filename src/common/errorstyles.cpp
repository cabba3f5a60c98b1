#include "src/common/errorstyles.h"

#include "src/common/errorreporter.h"
#include "src/host/errorlog.h"

namespace tarvello::agenti {

namespace {

enum class Action { Retry, Skip, Abandon };

// Runs the steps in order; a step failing with a run-time error is retried, skipped or ends
// the procedure, as decide() says for that error.
template <class Decide>
Outcome runSteps(Steps steps, Decide decide)
{
    for (const Step& step : steps) {
        for (;;) {
            try {
                if (step() == Flow::Leave)
                    return Outcome::Left;
                break;
            } catch (const db::RuntimeError& error) {
                const Action action = decide(error);
                if (action == Action::Abandon)
                    return Outcome::Abandoned;
                if (action == Action::Skip)
                    break;
            }
        }
    }
    return Outcome::Completed;
}

} // namespace

Outcome ignoreEachStep(Steps steps)
{
    return runSteps(steps, [](const db::RuntimeError&) { return Action::Skip; });
}

Outcome reportWithChoice(const ErrorReporter& reporter, const QString& name, Steps steps)
{
    return runSteps(steps, [&](const db::RuntimeError& error) {
        switch (reporter.VisualizzaErrore(name, error)) {
        case host::Retry:
            return Action::Retry;
        case host::Ignore:
            return Action::Skip;
        default:
            return Action::Abandon;
        }
    });
}

Outcome reportModuleError(const ErrorReporter& reporter, const QString& location, Steps steps)
{
    return runSteps(steps, [&](const db::RuntimeError& error) {
        return reporter.moduleError(location, error) == ErrorReporter::Abandon ? Action::Abandon
                                                                               : Action::Skip;
    });
}

Outcome leaveSilently(Steps steps)
{
    return runSteps(steps, [](const db::RuntimeError&) { return Action::Abandon; });
}

db::RuntimeError withTrace(const db::RuntimeError& error, const QString& trace)
{
    return db::RuntimeError(error.number(), error.description(),
                            trace + QStringLiteral("\r\n") + error.source());
}

} // namespace tarvello::agenti
