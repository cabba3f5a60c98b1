#pragma once

#include <QKeySequence>

class QKeyEvent;

namespace tarvello::gui {

// The key code a control model's key-down handlers compare (the Windows virtual-key code:
// 'A' is 65, F1 is 112, Enter 13); 0 for a key the models have no code for.
int modelKeyCode(const QKeyEvent& event);
// The models' modifier bits (Shift 1, Ctrl 2, Alt 4) of the event.
int modelShift(const QKeyEvent& event);
// The key a person presses for a model's function key (F1 to F12), to show in menus and
// tool tips; empty for any other code.
QKeySequence functionKey(int modelKeyCode);

} // namespace tarvello::gui
