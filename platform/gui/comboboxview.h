#pragma once

#include "platform/gui/controlview.h"

class QComboBox;

namespace tarvello::controls {
class ComboBox;
}

namespace tarvello::gui {

// A list on a combo box: the model's items in order, its value's item selected (none when
// no item has the value). A pick by the person goes to the model; the combo box then shows
// whatever the model holds. F3 (as F4) opens the drop-down; the wheel changes nothing
// unless the list has the focus.
class ComboBoxView final : public ControlView {
    Q_OBJECT
public:
    ComboBoxView(controls::ComboBox& list, QComboBox& combo);

protected:
    bool actOnKey(int keyCode, int shift) override;
    QString toolTipText() const override;

private:
    void showItems();
    void showValue();
    void takeChoice(int index);

    QComboBox& m_combo; // Not owned: the widget this view watches.
};

} // namespace tarvello::gui
