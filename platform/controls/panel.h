#pragma once

#include "platform/controls/control.h"

namespace tarvello::controls {

// A framed group with a caption. Which controls sit inside it is the layout of its view.
class Panel : public Control {
    Q_OBJECT
public:
    Panel(const QString& name, Form* form);

    bool isFocusable() const override { return false; }
};

} // namespace tarvello::controls
