#include "platform/gui/keytranslation.h"

#include "platform/controls/keycodes.h"

#include <QKeyEvent>

namespace tarvello::gui {

namespace {

struct KeyPair {
    int qt;
    int model;
};

constexpr KeyPair namedKeys[] = {
    {Qt::Key_Backspace, 8},
    {Qt::Key_Tab, controls::Key::Tab},
    {Qt::Key_Backtab, controls::Key::Tab},
    {Qt::Key_Return, controls::Key::Enter},
    {Qt::Key_Enter, controls::Key::Enter},
    {Qt::Key_Escape, controls::Key::Escape},
    {Qt::Key_Space, 32},
    {Qt::Key_PageUp, 33},
    {Qt::Key_PageDown, 34},
    {Qt::Key_End, 35},
    {Qt::Key_Home, 36},
    {Qt::Key_Left, 37},
    {Qt::Key_Up, 38},
    {Qt::Key_Right, 39},
    {Qt::Key_Down, 40},
    {Qt::Key_Insert, 45},
    {Qt::Key_Delete, 46},
};

} // namespace

int modelKeyCode(const QKeyEvent& event)
{
    const int key = event.key();
    if (key >= Qt::Key_A && key <= Qt::Key_Z)
        return 'A' + (key - Qt::Key_A);
    if (key >= Qt::Key_0 && key <= Qt::Key_9)
        return '0' + (key - Qt::Key_0);
    if (key >= Qt::Key_F1 && key <= Qt::Key_F12)
        return controls::Key::F1 + (key - Qt::Key_F1);
    for (const KeyPair& pair : namedKeys) {
        if (pair.qt == key)
            return pair.model;
    }
    return controls::Key::None;
}

QKeySequence functionKey(int modelKeyCode)
{
    if (modelKeyCode < controls::Key::F1 || modelKeyCode > controls::Key::F12)
        return {};
    return QKeySequence(Qt::Key_F1 + (modelKeyCode - controls::Key::F1));
}

int modelShift(const QKeyEvent& event)
{
    const Qt::KeyboardModifiers modifiers = event.modifiers();
    int shift = 0;
    // Qt reports Shift+Tab as Backtab, sometimes without the Shift modifier.
    if (modifiers & Qt::ShiftModifier || event.key() == Qt::Key_Backtab)
        shift |= controls::KeyModifier::Shift;
    if (modifiers & Qt::ControlModifier)
        shift |= controls::KeyModifier::Ctrl;
    if (modifiers & Qt::AltModifier)
        shift |= controls::KeyModifier::Alt;
    return shift;
}

} // namespace tarvello::gui
