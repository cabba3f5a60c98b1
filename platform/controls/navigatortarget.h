#pragma once

#include <QString>
#include <optional>

namespace tarvello::controls {

class Navigator;

// What a navigator's buttons act on: a record frame performs "Nuovo", "Conferma",
// "Annulla", "Elimina" and the moves on its rows.
class NavigatorTarget {
public:
    virtual ~NavigatorTarget() = default;
    // Whether the action succeeded; nothing when the target has no action for that key.
    virtual std::optional<bool> navigatorAction(Navigator& navigator, const QString& key) = 0;
};

} // namespace tarvello::controls
