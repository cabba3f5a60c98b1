#pragma once

#include <QString>

namespace tarvello::host {

// The host's menu entry a module was opened from.
class MenuEntry {
public:
    virtual ~MenuEntry() = default;
    // The entry's text key; the host's script object is told it when the module's screen goes.
    virtual QString key() const = 0;
};

} // namespace tarvello::host
