#include "platform/controls/navigator.h"

#include "platform/controls/form.h"
#include "platform/controls/navigatortarget.h"

#include <algorithm>

namespace tarvello::controls {

Navigator::Navigator(const QString& name, Form* form, const QStringList& keys)
    : Control(name, form)
{
    setTabStop(false);
    for (const QString& key : keys)
        m_buttons.append({key, key});
}

const Navigator::Button* Navigator::button(QStringView key) const
{
    const auto it = std::find_if(m_buttons.cbegin(), m_buttons.cend(),
                                 [key](const Button& b) { return b.key == key; });
    return it == m_buttons.cend() ? nullptr : &*it;
}

Navigator::Button* Navigator::findButton(QStringView key)
{
    return const_cast<Button*>(std::as_const(*this).button(key));
}

void Navigator::setButtonVisible(const QString& key, bool visible)
{
    Button* found = findButton(key);
    if (!found || found->visible == visible)
        return;
    found->visible = visible;
    Q_EMIT buttonsChanged();
}

void Navigator::setButtonEnabled(const QString& key, bool enabled)
{
    Button* found = findButton(key);
    if (!found || found->enabled == enabled)
        return;
    found->enabled = enabled;
    Q_EMIT buttonsChanged();
}

bool Navigator::relabelButton(const QString& key, const QString& newKey, const QString& caption)
{
    Button* found = findButton(key);
    if (!found || (newKey != key && button(newKey)))
        return false;
    if (found->key == newKey && found->caption == caption)
        return true;
    found->key = newKey;
    found->caption = caption;
    Q_EMIT buttonsChanged();
    return true;
}

bool Navigator::isButtonEnabled(QStringView key) const
{
    const Button* found = button(key);
    return found && found->enabled && (m_newRowAllowed || key != NavigatorKey::New);
}

bool Navigator::isAvailable(QStringView key) const
{
    const Button* found = button(key);
    return found && found->visible && isButtonEnabled(key) && isEnabled() && isVisible();
}

void Navigator::setNewRowAllowed(bool allowed)
{
    if (m_newRowAllowed == allowed)
        return;
    m_newRowAllowed = allowed;
    Q_EMIT newRowAllowedChanged(allowed);
}

void Navigator::setChangeIndicator(bool changed)
{
    if (m_changed == changed)
        return;
    m_changed = changed;
    Q_EMIT changeIndicatorChanged(changed);
}

bool Navigator::press(const QString& key)
{
    if (!isAvailable(key))
        return false;
    return act(key);
}

bool Navigator::pressFromCode(const QString& key)
{
    const Button* found = button(key);
    if (!found || !found->enabled || !isEnabled())
        return false;
    return act(key);
}

bool Navigator::command(const QString& key)
{
    return isEnabled() && act(key);
}

bool Navigator::act(const QString& key)
{
    if (Form* owner = form(); owner && !owner->focus().checkCurrent())
        return false;
    NavigatorButtonArgs args{key, false};
    if (raise("BeforeButtonClick", [&] { Q_EMIT beforeButton(args); }) == Raised::Abandoned ||
        args.cancel)
        return false;
    if (raise("ButtonClick", [&] { Q_EMIT buttonClicked(key); }) == Raised::Abandoned)
        return false;
    std::optional<bool> result;
    if (m_target)
        result = m_target->navigatorAction(*this, key);
    if (!result)
        result = ownAction(key);
    const bool success = result.value_or(true);
    raise("AfterButtonClick", [&] { Q_EMIT afterButton(success, key); });
    return success;
}

std::optional<bool> Navigator::ownAction(const QString&)
{
    return std::nullopt;
}

} // namespace tarvello::controls
