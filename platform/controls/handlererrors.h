#pragma once

#include "platform/db/runtimeerror.h"

#include <QString>
#include <concepts>
#include <utility>

class QObject;

namespace tarvello::controls {

class Form;

// Where the host hears of a run-time error that a handler of a module's events let escape:
// it reports the error as the module's, naming the procedure that raised it, and the
// program goes on. The answer says whether the person chose to abandon what the event was
// for (the focus move, the button press, the close) or to go on as if nothing had failed.
class HandlerErrors {
public:
    virtual ~HandlerErrors() = default;
    virtual bool handlerFailed(const QString& procedure, const db::RuntimeError& error) = 0;
};

// How raising an event went.
enum class Raised {
    Completed, // every handler returned
    Abandoned, // a handler failed and what the event was for is abandoned
    Resumed,   // a handler failed and the person chose to go on
};

// Raises an event through raise(). A run-time error that escapes one of its handlers goes
// to host under procedure (the control and its event: "TXT_NUMSOCI_Validate") instead of on
// through the caller and the event loop. Without a host to report to, the error goes on to
// the caller, as it does from any other function.
template <std::invocable Raise>
Raised raiseEvent(HandlerErrors* host, const QString& procedure, Raise&& raise)
{
    try {
        std::forward<Raise>(raise)();
        return Raised::Completed;
    } catch (const db::RuntimeError& error) {
        if (!host)
            throw;
        return host->handlerFailed(procedure, error) ? Raised::Abandoned : Raised::Resumed;
    }
}

// The form an object sits on (a control, a record frame of the screen): the nearest Form
// among the object and its parents; nullptr when there is none.
Form* formOf(const QObject* object);
// Where the events of an object on that form report their handlers' errors.
HandlerErrors* handlerErrorsOf(const QObject* object);

} // namespace tarvello::controls
