#include "platform/controls/menubutton.h"

#include <algorithm>

namespace tarvello::controls {

const MenuButton::Item* MenuButton::item(QStringView key) const
{
    const auto it = std::find_if(m_items.cbegin(), m_items.cend(),
                                 [key](const Item& item) { return item.key == key; });
    return it == m_items.cend() ? nullptr : &*it;
}

MenuButton::Item* MenuButton::findItem(QStringView key)
{
    return const_cast<Item*>(std::as_const(*this).item(key));
}

// Applies a change to the item with that key and announces it when something changed.
template <class Change>
void MenuButton::changeItem(const QString& key, Change change)
{
    Item* found = findItem(key);
    if (found && change(*found))
        Q_EMIT itemsChanged();
}

void MenuButton::addItem(const QString& key, const QString& caption)
{
    m_items.append({key, caption});
    Q_EMIT itemsChanged();
}

void MenuButton::removeItem(const QString& key)
{
    if (m_items.removeIf([&key](const Item& item) { return item.key == key; }) > 0)
        Q_EMIT itemsChanged();
}

void MenuButton::clearItems()
{
    if (m_items.isEmpty())
        return;
    m_items.clear();
    Q_EMIT itemsChanged();
}

void MenuButton::setItemVisible(const QString& key, bool visible)
{
    changeItem(key,
               [visible](Item& item) { return std::exchange(item.visible, visible) != visible; });
}

void MenuButton::setItemEnabled(const QString& key, bool enabled)
{
    changeItem(key,
               [enabled](Item& item) { return std::exchange(item.enabled, enabled) != enabled; });
}

void MenuButton::setItemCaption(const QString& key, const QString& caption)
{
    changeItem(key,
               [&caption](Item& item) { return std::exchange(item.caption, caption) != caption; });
}

bool MenuButton::clickItem(const QString& key)
{
    const Item* chosen = item(key);
    if (!canReceiveFocus() || !chosen || !chosen->visible || !chosen->enabled)
        return false;
    raise("ItemClick", [&] { Q_EMIT itemClicked(key); });
    return true;
}

} // namespace tarvello::controls
