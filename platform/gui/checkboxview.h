#pragma once

#include "platform/gui/controlview.h"

class QCheckBox;

namespace tarvello::controls {
class CheckBox;
}

namespace tarvello::gui {

// A check box on a check box widget: its caption as the text, its 0/1 value as the tick.
class CheckBoxView final : public ControlView {
    Q_OBJECT
public:
    CheckBoxView(controls::CheckBox& box, QCheckBox& widget);

private:
    void showState();

    QCheckBox& m_box; // Not owned: the widget this view watches.
};

} // namespace tarvello::gui
