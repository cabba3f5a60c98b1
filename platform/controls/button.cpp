#include "platform/controls/button.h"

namespace tarvello::controls {

bool Button::click()
{
    if (!canReceiveFocus())
        return false;
    raise("Click", [this] { Q_EMIT clicked(); });
    return true;
}

} // namespace tarvello::controls
