#include "platform/gui/menubuttonview.h"

#include "platform/controls/menubutton.h"

#include <QMenu>
#include <QToolButton>

namespace tarvello::gui {

MenuButtonView::MenuButtonView(controls::MenuButton& button, QToolButton& widget)
    : ControlView(button, widget)
    , m_menu(new QMenu(&widget))
{
    using controls::MenuButton;
    widget.setMenu(m_menu);
    widget.setPopupMode(QToolButton::InstantPopup);
    widget.setToolButtonStyle(Qt::ToolButtonTextOnly);
    if (!button.caption().isEmpty())
        widget.setText(button.caption());
    connect(&button, &MenuButton::captionChanged, &widget, &QToolButton::setText);
    connect(&button, &MenuButton::itemsChanged, this, &MenuButtonView::showItems);
    showItems();
}

void MenuButtonView::showItems()
{
    const auto* button = model<controls::MenuButton>();
    if (!button)
        return;
    m_menu->clear();
    for (const controls::MenuButton::Item& item : button->items()) {
        if (!item.visible)
            continue;
        QAction* action = m_menu->addAction(item.caption, this, [this, key = item.key] {
            if (auto* model = this->model<controls::MenuButton>())
                model->clickItem(key);
        });
        action->setEnabled(item.enabled);
    }
}

} // namespace tarvello::gui
