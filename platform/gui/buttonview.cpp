#include "platform/gui/buttonview.h"

#include "platform/controls/button.h"

#include <QAbstractButton>
#include <QKeyEvent>

namespace tarvello::gui {

ButtonView::ButtonView(controls::Button& button, QAbstractButton& widget)
    : ControlView(button, widget)
{
    if (!button.caption().isEmpty())
        widget.setText(button.caption());
    connect(&button, &controls::Button::captionChanged, &widget, &QAbstractButton::setText);
    connect(&widget, &QAbstractButton::clicked, this, [this] {
        if (auto* model = this->model<controls::Button>())
            model->click();
    });
}

bool ButtonView::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_Space) {
            if (auto* button = model<controls::Button>())
                button->click();
            return true;
        }
    }
    return ControlView::eventFilter(watched, event);
}

} // namespace tarvello::gui
