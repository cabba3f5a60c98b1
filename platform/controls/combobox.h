#pragma once

#include "platform/controls/datacontrol.h"

#include <QList>

namespace tarvello::controls {

// A drop-down list of items, each a caption the person sees and a code the column stores.
//
// The value is a code. It is set by code (setValue, or setText with the code written as
// text) or by the person choosing an item; every change of value raises valueSet, whoever
// made it. A code that no item has is still taken as the value: no item is then selected
// and the list shows nothing. clear() removes the items but keeps the value, so a list
// refilled with the same codes shows the same item again.
class ComboBox : public DataControl {
    Q_OBJECT
public:
    struct Item {
        QString caption;
        db::Value code;
    };

    using DataControl::DataControl;

    const QList<Item>& items() const { return m_items; }
    int count() const { return int(m_items.size()); }
    void addItem(const QString& caption, const db::Value& code);
    void clear();
    // Has the views show the items and the value again.
    void refresh() { Q_EMIT itemsChanged(); }
    // -1 when no item has the code.
    int indexOfCode(const db::Value& code) const;

    db::Value value() const override { return m_value; }
    void setValue(const db::Value& code) override;
    // The value's code as text ("" for none), as the module reads and writes the list.
    QString text() const;
    void setText(const QString& text);
    // -1 when the value matches no item.
    int currentIndex() const { return indexOfCode(m_value); }
    QString currentCaption() const;

    // The person picks an item; false when the list cannot take input or there is no such item.
    bool choose(int index);
    bool chooseCode(const db::Value& code);

Q_SIGNALS:
    void itemsChanged();
    void valueSet(const tarvello::db::Value& code);

private:
    QList<Item> m_items;
    db::Value m_value;
};

} // namespace tarvello::controls
