#include "platform/gui/wheelguard.h"

#include <QEvent>
#include <QWidget>

namespace tarvello::gui {

WheelGuard::WheelGuard(QWidget& widget)
    : QObject(&widget)
{
    if (widget.focusPolicy() == Qt::WheelFocus)
        widget.setFocusPolicy(Qt::StrongFocus);
    widget.installEventFilter(this);
}

void WheelGuard::protect(QWidget& widget)
{
    new WheelGuard(widget);
}

bool WheelGuard::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() != QEvent::Wheel || static_cast<QWidget*>(watched)->hasFocus())
        return QObject::eventFilter(watched, event);
    // Ignored and taken: Qt hands it on to the parents (the scrolled page).
    event->ignore();
    return true;
}

} // namespace tarvello::gui
