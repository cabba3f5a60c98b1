#include "platform/controls/control.h"

#include "platform/controls/focusmanager.h"
#include "platform/controls/form.h"
#include "platform/controls/keycodes.h"

namespace tarvello::controls {

Control::Control(const QString& name, Form* form)
    : QObject(form)
{
    setObjectName(name);
    if (form)
        m_tabIndex = form->adopt(this);
}

Form* Control::form() const
{
    return qobject_cast<Form*>(parent());
}

void Control::setEnabled(bool enabled)
{
    if (m_enabled == enabled)
        return;
    m_enabled = enabled;
    Q_EMIT enabledChanged(enabled);
}

void Control::setVisible(bool visible)
{
    if (m_visible == visible)
        return;
    m_visible = visible;
    Q_EMIT visibleChanged(visible);
}

void Control::setTabIndex(int index)
{
    if (m_tabIndex == index)
        return;
    m_tabIndex = index;
    Q_EMIT tabIndexChanged(index);
}

void Control::setTabStop(bool tabStop)
{
    if (m_tabStop == tabStop)
        return;
    m_tabStop = tabStop;
    Q_EMIT tabStopChanged(tabStop);
}

void Control::setCaption(const QString& caption)
{
    if (m_caption == caption)
        return;
    m_caption = caption;
    Q_EMIT captionChanged(caption);
}

void Control::setToolTip(const QString& toolTip)
{
    if (m_toolTip == toolTip)
        return;
    m_toolTip = toolTip;
    Q_EMIT toolTipChanged(toolTip);
}

bool Control::canReceiveFocus() const
{
    return isFocusable() && m_enabled && m_visible;
}

bool Control::hasFocus() const
{
    const Form* owner = form();
    return owner && owner->focus().current() == this;
}

bool Control::setFocus()
{
    Form* owner = form();
    return owner && owner->focus().moveTo(this);
}

int Control::pressKey(int keyCode, int shift)
{
    KeyArgs args{keyCode, shift};
    if (raise("KeyDown", [&] { Q_EMIT keyDown(args); }) == Raised::Abandoned)
        return Key::None;
    if (args.keyCode != Key::None)
        defaultKeyAction(args.keyCode, args.shift);
    return args.keyCode;
}

void Control::defaultKeyAction(int keyCode, int shift)
{
    Form* owner = form();
    if (!owner || !hasFocus())
        return;
    if (keyCode == Key::Tab && shift == 0)
        owner->focus().leave();
    else if (keyCode == Key::Tab && shift == KeyModifier::Shift)
        owner->focus().leaveBackward();
    else if (keyCode == Key::Enter && shift == 0)
        owner->focus().leave();
}

} // namespace tarvello::controls
