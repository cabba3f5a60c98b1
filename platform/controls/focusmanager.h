#pragma once

#include "platform/controls/control.h"

#include <QObject>
#include <QPointer>

namespace tarvello::controls {

class Form;

// Moves the focus between the controls of one form in the order a Windows form does: the
// control losing the focus first gets its chance to decode and validate (a cancel keeps the
// focus there, with its text as typed), then its lost focus, then the new control its got
// focus.
//
// Views ask for every focus move through moveTo() and follow focusChanged(); when moveTo()
// answers false they put the widget focus back on current().
//
// The host's own check of the value (leaveRequested) comes first: a refusal there keeps the
// focus before any handler of the module hears of the move. A run-time error that escapes a
// handler is reported to the form's HandlerErrors; one in a validation keeps the focus where
// it is unless the person chooses to go on.
//
// A handler may ask for another move while one is running. Such a request is carried out
// when the running move has finished; the last request wins, and requests made by a
// validation that cancels are dropped with it, so the focus stays where it was refused.
class FocusManager : public QObject {
    Q_OBJECT
public:
    explicit FocusManager(Form& form);

    Control* current() const { return m_current; }
    // True when the focus is on target afterwards.
    bool moveTo(Control* target);
    // To the next (previous) enabled, visible tab stop in tab order, wrapping around.
    bool leave();
    bool leaveBackward();
    // The control leave() would move to; nullptr when there is none.
    Control* nextTabStop(bool forward = true) const;
    // Runs the host's own check of the value of the control with the focus (leaveRequested),
    // as leaving it would, without moving; false when it refused (the person told why). A
    // button that takes no focus (the host toolbar's, a navigator's) asks first, so that it
    // never acts while a field holds what it would not let go of.
    bool checkCurrent();
    // Forgets the focus without raising events (the form was unloaded).
    void reset();

Q_SIGNALS:
    void focusChanged(tarvello::controls::Control* previous, tarvello::controls::Control* current);

private:
    bool moveOnce(Control* target);
    // The control's checks, decoding, validation and lost focus; false keeps the focus there.
    bool mayLeave(Control& control);

    Form& m_form;                 // Not owned: the form owns this manager.
    QPointer<Control> m_current;  // Not owned.
    QPointer<Control> m_deferred; // Not owned.
    bool m_moving = false;
    bool m_hasDeferred = false;
};

} // namespace tarvello::controls
