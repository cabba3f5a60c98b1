#pragma once

#include <QObject>

class QWidget;

namespace tarvello::gui {

// Keeps the mouse wheel from changing a value the person is not working on: over a widget
// without the keyboard focus (a list, say) the wheel goes to what is behind it, so the page
// scrolls instead. The wheel no longer gives the widget the focus either.
class WheelGuard final : public QObject {
    Q_OBJECT
public:
    // The guard lives as long as the widget (its QObject child).
    static void protect(QWidget& widget);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    explicit WheelGuard(QWidget& widget);
};

} // namespace tarvello::gui
