#include "platform/controls/focusmanager.h"

#include "platform/controls/control.h"
#include "platform/controls/form.h"

#include <QScopedValueRollback>

namespace tarvello::controls {

namespace {
// Handlers that keep sending the focus elsewhere from their focus events would otherwise
// bounce it around for ever.
constexpr int maxChainedMoves = 16;
} // namespace

FocusManager::FocusManager(Form& form)
    : m_form(form)
{}

bool FocusManager::moveTo(Control* target)
{
    if (m_moving) {
        m_deferred = target;
        m_hasDeferred = target != nullptr;
        return false;
    }
    moveOnce(target);
    for (int chained = 0; m_hasDeferred && chained < maxChainedMoves; ++chained) {
        Control* next = m_deferred;
        m_hasDeferred = false;
        m_deferred = nullptr;
        moveOnce(next);
    }
    m_hasDeferred = false;
    m_deferred = nullptr;
    return target && m_current == target;
}

bool FocusManager::moveOnce(Control* target)
{
    if (!target || target->form() != &m_form || !m_form.isLoaded() || !target->canReceiveFocus())
        return false;
    if (target == m_current)
        return true;

    const QScopedValueRollback moving(m_moving, true);
    Control* previous = m_current;
    if (previous && !mayLeave(*previous)) {
        m_hasDeferred = false;
        m_deferred = nullptr;
        return false;
    }
    // A lost-focus handler may have disabled or hidden the target.
    if (!target->canReceiveFocus()) {
        m_current = nullptr;
        Q_EMIT focusChanged(previous, nullptr);
        return false;
    }
    m_current = target;
    Q_EMIT focusChanged(previous, target);
    target->raise("GotFocus", [target] { Q_EMIT target->gotFocus(); });
    return true;
}

bool FocusManager::checkCurrent()
{
    if (!m_current)
        return true;
    CancelArgs checked;
    Q_EMIT m_current->leaveRequested(checked);
    return !checked.cancel;
}

bool FocusManager::mayLeave(Control& control)
{
    if (!checkCurrent())
        return false;
    control.aboutToLeave();
    CancelArgs args;
    if (control.raise("Validate", [&] { Q_EMIT control.validate(args); }) == Raised::Abandoned ||
        args.cancel)
        return false;
    control.raise("LostFocus", [&control] { Q_EMIT control.lostFocus(); });
    return true;
}

bool FocusManager::leave()
{
    Control* next = nextTabStop(true);
    return next && moveTo(next);
}

bool FocusManager::leaveBackward()
{
    Control* next = nextTabStop(false);
    return next && moveTo(next);
}

Control* FocusManager::nextTabStop(bool forward) const
{
    const QList<Control*> order = m_form.tabOrder();
    const qsizetype count = order.size();
    if (count == 0)
        return nullptr;
    const qsizetype start = m_current ? order.indexOf(m_current.data()) : -1;
    for (qsizetype step = 1; step <= count; ++step) {
        qsizetype index = 0;
        if (start < 0)
            index = forward ? step - 1 : count - step;
        else
            index = ((forward ? start + step : start - step) % count + count) % count;
        Control* candidate = order.at(index);
        if (candidate != m_current && candidate->isTabStop() && candidate->canReceiveFocus())
            return candidate;
    }
    return nullptr;
}

void FocusManager::reset()
{
    Control* previous = m_current;
    m_current = nullptr;
    m_deferred = nullptr;
    m_hasDeferred = false;
    if (previous)
        Q_EMIT focusChanged(previous, nullptr);
}

} // namespace tarvello::controls
