#include "platform/gui/comboboxview.h"

#include "platform/controls/combobox.h"
#include "platform/controls/keycodes.h"
#include "platform/gui/wheelguard.h"

#include <QComboBox>
#include <QSignalBlocker>

namespace tarvello::gui {

ComboBoxView::ComboBoxView(controls::ComboBox& list, QComboBox& combo)
    : ControlView(list, combo)
    , m_combo(combo)
{
    using controls::ComboBox;
    showItems();
    connect(&list, &ComboBox::itemsChanged, this, &ComboBoxView::showItems);
    connect(&list, &ComboBox::valueSet, this, &ComboBoxView::showValue);
    connect(&list, &ComboBox::valueChanged, this, &ComboBoxView::showValue);
    connect(&combo, &QComboBox::activated, this, &ComboBoxView::takeChoice);
    WheelGuard::protect(combo);
    showToolTip();
}

bool ComboBoxView::actOnKey(int keyCode, int shift)
{
    if (keyCode != controls::Key::LookupList || shift != 0)
        return false;
    m_combo.showPopup();
    return true;
}

QString ComboBoxView::toolTipText() const
{
    return withKeyHints(ControlView::toolTipText(),
                        {keyHint(controls::Key::LookupList, tr("elenco"))});
}

void ComboBoxView::showItems()
{
    const auto* list = model<controls::ComboBox>();
    if (!list)
        return;
    const QSignalBlocker blocker(m_combo);
    m_combo.clear();
    for (const controls::ComboBox::Item& item : list->items())
        m_combo.addItem(item.caption);
    showValue();
}

void ComboBoxView::showValue()
{
    const auto* list = model<controls::ComboBox>();
    if (!list)
        return;
    const QSignalBlocker blocker(m_combo);
    m_combo.setCurrentIndex(list->currentIndex());
}

void ComboBoxView::takeChoice(int index)
{
    if (auto* list = model<controls::ComboBox>())
        list->choose(index);
    showValue();
}

} // namespace tarvello::gui
