#pragma once

#include <QtGlobal>
#include <optional>

class QObject;

namespace tarvello::gui {

// What the host toolbar does by itself to a module's active record frame when no module
// took the press over: new, save, undo, delete, search and the four moves, by the
// toolbar's button numbers. The toolbar acts directly on frames that offer the toolbar's
// frame actions; a record frame (GestAnagrafica) is driven here. False when the frame is
// not one or the button has no frame action.
bool performFrameButton(QObject* activeFrame, qint32 button);

// The status (0, 1, 2) of the active record frame; none when there is no frame.
std::optional<short> frameStatus(QObject* activeFrame);

} // namespace tarvello::gui
