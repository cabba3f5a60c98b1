#pragma once

#include "platform/gui/controlview.h"

class QGroupBox;

namespace tarvello::controls {
class Panel;
}

namespace tarvello::gui {

// A framed group: the caption is the group box's title; hiding or disabling the panel
// hides or disables what sits inside it.
class PanelView final : public ControlView {
    Q_OBJECT
public:
    PanelView(controls::Panel& panel, QGroupBox& box);
};

} // namespace tarvello::gui
