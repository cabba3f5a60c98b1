#pragma once

#include "platform/controls/control.h"

#include <QList>

namespace tarvello::controls {

// A button that opens a menu of keyed items; choosing an item raises itemClicked with its key.
class MenuButton : public Control {
    Q_OBJECT
public:
    struct Item {
        QString key;
        QString caption;
        bool visible = true;
        bool enabled = true;
    };

    using Control::Control;

    const QList<Item>& items() const { return m_items; }
    // nullptr when there is no item with that key.
    const Item* item(QStringView key) const;
    void addItem(const QString& key, const QString& caption);
    void removeItem(const QString& key);
    void clearItems();
    void setItemVisible(const QString& key, bool visible);
    void setItemEnabled(const QString& key, bool enabled);
    void setItemCaption(const QString& key, const QString& caption);

    // The person chooses an item; false when the button or the item cannot be used.
    bool clickItem(const QString& key);

Q_SIGNALS:
    void itemsChanged();
    void itemClicked(const QString& key);

private:
    Item* findItem(QStringView key);
    template <class Change>
    void changeItem(const QString& key, Change change);

    QList<Item> m_items;
};

} // namespace tarvello::controls
