#pragma once

#include "platform/gui/controlview.h"

class QLabel;

namespace tarvello::controls {
class Label;
}

namespace tarvello::gui {

// A label on a label widget: the caption is its text, so a decoding filling the label
// shows at once.
class LabelView final : public ControlView {
    Q_OBJECT
public:
    LabelView(controls::Label& label, QLabel& widget);
};

} // namespace tarvello::gui
