#pragma once

#include "platform/gui/controlview.h"

class QMenu;
class QToolButton;

namespace tarvello::controls {
class MenuButton;
}

namespace tarvello::gui {

// A menu button on a tool button that pops its menu at once: one action per visible item,
// enabled as the item is; choosing one clicks the model's item by key.
class MenuButtonView final : public ControlView {
    Q_OBJECT
public:
    MenuButtonView(controls::MenuButton& button, QToolButton& widget);

private:
    void showItems();

    QMenu* m_menu; // Owned by the tool button (its child).
};

} // namespace tarvello::gui
