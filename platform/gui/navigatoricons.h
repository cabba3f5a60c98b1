#pragma once

#include <QIcon>
#include <QString>

class QStyle;

namespace tarvello::gui {

// The icon of a navigator button by its key text ("Primo", "Nuovo", "Elimina", ...), from
// the style's standard pictures; the host toolbar's buttons use the same texts. A null icon
// for a key without one: the button then shows its caption.
QIcon navigatorIcon(const QString& key, const QStyle& style);

} // namespace tarvello::gui
