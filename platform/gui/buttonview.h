#pragma once

#include "platform/gui/controlview.h"

class QAbstractButton;

namespace tarvello::controls {
class Button;
}

namespace tarvello::gui {

// A push button: its caption (with its access key) as the text; a click, Enter or Space
// presses the model's button.
class ButtonView final : public ControlView {
    Q_OBJECT
public:
    ButtonView(controls::Button& button, QAbstractButton& widget);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
};

} // namespace tarvello::gui
