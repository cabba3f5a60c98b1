#pragma once

#include "platform/controls/control.h"

namespace tarvello::controls {

// A push button; its caption may carry an access key ("E&limina dettaglio giro").
class Button : public Control {
    Q_OBJECT
public:
    using Control::Control;

    // The person (or code acting for one) presses it; false when it is disabled or hidden.
    bool click();

Q_SIGNALS:
    void clicked();
};

} // namespace tarvello::controls
