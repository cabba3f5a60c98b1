#include "platform/controls/form.h"

#include "platform/controls/control.h"
#include "platform/controls/handlererrors.h"

#include <algorithm>
#include <stdexcept>

namespace tarvello::controls {

Form::Form(const QString& name, QObject* parent)
    : QObject(parent)
    , m_focus(*this)
{
    setObjectName(name);
}

// The controls go before the focus manager and the list that refer to them, so nothing
// reaches a half-destroyed form.
Form::~Form()
{
    qDeleteAll(m_controls);
    m_controls.clear();
}

Form::BusyScope::BusyScope(Form& form)
    : m_form(&form)
{
    if (++form.m_busyDepth == 1)
        Q_EMIT form.busyChanged(true);
}

Form::BusyScope::~BusyScope()
{
    if (m_form && --m_form->m_busyDepth == 0)
        Q_EMIT m_form->busyChanged(false);
}

template <std::invocable Raise>
Raised Form::raise(const char* procedure, Raise&& fire) const
{
    return raiseEvent(m_handlerErrors, QLatin1String(procedure), std::forward<Raise>(fire));
}

int Form::adopt(Control* control)
{
    if (this->control(control->name()))
        throw std::logic_error("A form already has a control named " +
                               control->name().toStdString());
    m_controls.append(control);
    return static_cast<int>(m_controls.size()) - 1;
}

Control* Form::control(QStringView name) const
{
    const auto it = std::find_if(m_controls.cbegin(), m_controls.cend(),
                                 [name](const Control* c) { return c->objectName() == name; });
    return it == m_controls.cend() ? nullptr : *it;
}

QList<Control*> Form::tabOrder() const
{
    QList<Control*> order = m_controls;
    std::stable_sort(order.begin(), order.end(), [](const Control* a, const Control* b) {
        return a->tabIndex() < b->tabIndex();
    });
    return order;
}

void Form::setCaption(const QString& caption)
{
    if (m_caption == caption)
        return;
    m_caption = caption;
    Q_EMIT captionChanged(caption);
}

void Form::setWindowState(WindowState state)
{
    if (m_windowState == state)
        return;
    m_windowState = state;
    Q_EMIT windowStateChanged(state);
}

void Form::setBounds(const QRect& bounds)
{
    if (m_bounds == bounds)
        return;
    m_bounds = bounds;
    Q_EMIT boundsChanged(bounds);
}

void Form::load()
{
    if (m_loaded)
        return;
    m_loaded = true;
    Q_EMIT loadedChanged(true);
    Q_EMIT loaded();
}

void Form::show(bool modal)
{
    load();
    if (!m_loaded)
        return;
    m_modal = modal;
    setShown(true);
    Q_EMIT showRequested(modal);
    activate();
}

void Form::hide()
{
    deactivate();
    setShown(false);
}

void Form::setShown(bool shown)
{
    if (m_shown == shown)
        return;
    m_shown = shown;
    Q_EMIT shownChanged(shown);
}

void Form::activate()
{
    if (m_active || !m_loaded)
        return;
    m_active = true;
    Q_EMIT activeChanged(true);
    raise("Form_Activate", [this] { Q_EMIT activated(); });
}

void Form::deactivate()
{
    if (!m_active)
        return;
    m_active = false;
    Q_EMIT activeChanged(false);
    raise("Form_Deactivate", [this] { Q_EMIT deactivated(); });
}

bool Form::requestClose(CloseMode mode)
{
    if (!m_loaded)
        return true;
    CloseArgs args;
    args.mode = mode;
    if (raise("Form_QueryUnload", [&] { Q_EMIT queryClose(args); }) == Raised::Abandoned ||
        args.cancel)
        return false;
    unload();
    return true;
}

void Form::unload()
{
    if (!m_loaded)
        return;
    m_focus.reset();
    deactivate();
    setShown(false);
    m_modal = false;
    m_loaded = false;
    Q_EMIT loadedChanged(false);
    raise("Form_Unload", [this] { Q_EMIT unloaded(); });
}

} // namespace tarvello::controls
