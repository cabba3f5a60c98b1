#pragma once

#include "platform/db/runtimeerror.h"

#include <QString>
#include <concepts>
#include <functional>
#include <initializer_list>
#include <type_traits>
#include <utility>

// The five ways the module's procedures handle run-time errors. A procedure is written as
// the list of its steps under the one style it uses:
//
//     reportWithChoice(m_errors, "GRD_GIRI_Click", {
//         [&] { if (!m_elencoGiri) return Flow::Leave; return Flow::Next; },
//         [&] { ... },
//     });
//
// A step is one statement of the procedure: the unit that is skipped, retried or that ends
// the procedure when it fails. Only run-time errors (db::RuntimeError) are handled; any
// other exception is a fault of the program and goes straight through.

namespace tarvello::agenti {

class ErrorReporter;

// What a step tells the procedure running it: go on, or leave the procedure here.
enum class Flow { Next, Leave };

class Step {
public:
    template <std::invocable F>
    requires std::is_void_v<std::invoke_result_t<F&>>
    Step(F f) // NOLINT: steps are written as plain lambdas
        : m_run([f = std::move(f)]() mutable {
            f();
            return Flow::Next;
        })
    {}

    template <std::invocable F>
    requires std::same_as<std::invoke_result_t<F&>, Flow>
    Step(F f) // NOLINT: steps are written as plain lambdas
        : m_run(std::move(f))
    {}

    Flow operator()() const { return m_run(); }

private:
    std::function<Flow()> m_run;
};

using Steps = std::initializer_list<Step>;

// How a procedure ended.
enum class Outcome {
    Completed, // every step ran
    Left,      // a step left the procedure
    Abandoned, // an error ended it, as the style or the user's answer decided
};

// Style 1: a failing step is skipped and the next one runs; nothing is reported.
Outcome ignoreEachStep(Steps steps);

// Style 2: a failing step is reported through VisualizzaErrore under the procedure's name;
// the answer 4 (retry) runs the step again, 5 (ignore) goes on with the next step, any other
// answer abandons the procedure, keeping what the earlier steps did.
Outcome reportWithChoice(const ErrorReporter& reporter, const QString& name, Steps steps);

// Style 3: a failing step is reported as an error of the module at a location; the answer
// 1 abandons the procedure, any other goes on with the next step.
Outcome reportModuleError(const ErrorReporter& reporter, const QString& location, Steps steps);

// Style 4: the first failing step ends the procedure, without a report.
Outcome leaveSilently(Steps steps);

// Style 5: an error goes on to the caller with the same number and description, its source
// preceded by the procedure's trace text and a line break.
db::RuntimeError withTrace(const db::RuntimeError& error, const QString& trace);

template <std::invocable F>
std::invoke_result_t<F> passOn(const QString& trace, F&& body)
{
    try {
        return std::forward<F>(body)();
    } catch (const db::RuntimeError& error) {
        throw withTrace(error, trace);
    }
}

} // namespace tarvello::agenti
