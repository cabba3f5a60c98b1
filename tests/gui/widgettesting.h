#pragma once

#include <QAbstractButton>
#include <QApplication>
#include <QDeadlineTimer>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QTimer>
#include <QWidget>
#include <functional>

namespace tarvello::test {

// Lets the event loop run for a while (queued calls, timers).
inline void processEventsFor(int milliseconds)
{
    const QDeadlineTimer deadline(milliseconds);
    do {
        QApplication::processEvents(QEventLoop::AllEvents, 10);
    } while (!deadline.hasExpired());
}

// Shows a top-level widget and makes it the active window, so that focus moves happen as
// they do on a desktop.
inline bool showActive(QWidget& window)
{
    window.show();
    window.activateWindow();
    QApplication::setActiveWindow(&window);
    const QDeadlineTimer deadline(5000);
    while (QApplication::activeWindow() != &window && !deadline.hasExpired())
        QApplication::processEvents(QEventLoop::AllEvents, 10);
    return QApplication::activeWindow() == &window;
}

// A key pressed and released on the widget, as the keyboard would send it.
inline void keyClick(QWidget* widget, int key, Qt::KeyboardModifiers modifiers = {},
                     const QString& text = {})
{
    QKeyEvent press(QEvent::KeyPress, key, modifiers, text);
    QApplication::sendEvent(widget, &press);
    QKeyEvent release(QEvent::KeyRelease, key, modifiers, text);
    QApplication::sendEvent(widget, &release);
}

// Letters, digits and blanks typed one key at a time.
inline void keyClicks(QWidget* widget, const QString& text)
{
    for (const QChar c : text) {
        const QChar upper = c.toUpper();
        int key = Qt::Key_Space;
        if (upper >= u'A' && upper <= u'Z')
            key = Qt::Key_A + (upper.unicode() - u'A');
        else if (c.isDigit())
            key = Qt::Key_0 + c.digitValue();
        keyClick(widget, key, c.isUpper() ? Qt::ShiftModifier : Qt::NoModifier, QString(c));
    }
}

// A left click at a point of the widget (its centre by default).
inline void mouseClick(QWidget* widget, QPoint at = {})
{
    if (at.isNull())
        at = widget->rect().center();
    const QPointF local(at);
    const QPointF global(widget->mapToGlobal(at));
    QMouseEvent press(QEvent::MouseButtonPress, local, global, Qt::LeftButton, Qt::LeftButton, {});
    QApplication::sendEvent(widget, &press);
    QMouseEvent release(QEvent::MouseButtonRelease, local, global, Qt::LeftButton, {}, {});
    QApplication::sendEvent(widget, &release);
}

// A double click with the left button at a point of the widget, as the mouse sends it.
inline void mouseDoubleClick(QWidget* widget, QPoint at)
{
    mouseClick(widget, at);
    const QPointF local(at);
    const QPointF global(widget->mapToGlobal(at));
    QMouseEvent doubled(QEvent::MouseButtonDblClick, local, global, Qt::LeftButton, Qt::LeftButton,
                        {});
    QApplication::sendEvent(widget, &doubled);
    QMouseEvent release(QEvent::MouseButtonRelease, local, global, Qt::LeftButton, {}, {});
    QApplication::sendEvent(widget, &release);
}

// Once a modal dialog is up (the code under test is blocked in it), runs act on it.
inline void whenModalShown(std::function<void(QWidget&)> act)
{
    auto* poll = new QTimer;
    poll->setInterval(10);
    QObject::connect(poll, &QTimer::timeout, poll, [poll, act = std::move(act)] {
        if (QWidget* modal = QApplication::activeModalWidget()) {
            poll->stop();
            poll->deleteLater();
            act(*modal);
        }
    });
    poll->start();
}

// The button of a dialog showing that text ('&' included), or nullptr.
inline QAbstractButton* buttonWithText(QWidget& dialog, const QString& text)
{
    for (QAbstractButton* button : dialog.findChildren<QAbstractButton*>()) {
        if (button->text() == text)
            return button;
    }
    return nullptr;
}

} // namespace tarvello::test
