#pragma once

#include "platform/controls/control.h"

#include <QObject>
#include <QPointer>
#include <QWidget>

namespace tarvello::gui {

// Mirrors one control model on one widget. The model is the truth: the view shows its
// enabled, visible and tool-tip state (and, for a data control, required and valid), and
// hands what the person does to the model: keys go to the model's key-down first, and a
// key the model swallows never reaches the widget. Focus moves are not the view's: the
// FormView asks the model's FocusManager for them.
//
// Subclasses mirror what their kind of control adds (text, items, rows, pages).
class ControlView : public QObject {
    Q_OBJECT
public:
    ControlView(controls::Control& control, QWidget& widget);
    ~ControlView() override;
    ControlView(const ControlView&) = delete;
    ControlView& operator=(const ControlView&) = delete;

    controls::Control* control() const { return m_control; }
    QWidget* widget() const { return m_widget; }
    // Sets a dynamic property the form's style sheet dresses the widget by, and dresses it.
    static void setStyleFlag(QWidget& widget, const char* name, bool on);

    // The widget that holds the keyboard focus while the control has it.
    virtual QWidget* focusTarget() const { return m_widget; }
    // Called by the FormView when the control gained or lost the model focus.
    virtual void focusMoved(bool hasFocus) { Q_UNUSED(hasFocus); }
    // The focus came by the keyboard or by code, not by a click: what is typed next replaces
    // the value shown.
    virtual void selectContents() {}

protected:
    // The model of the view's kind; nullptr once the form went away.
    template <class T>
    T* model() const
    {
        return qobject_cast<T*>(m_control.data());
    }
    // Watches key presses of another widget of the view (a line edit inside a combo box).
    void watchKeys(QWidget& widget);
    // A key the model left alone (not swallowed, no default action of its own): true when
    // the widget must not get it. Tab and Enter are the model's: it moves the focus on.
    virtual bool keyIsModels(int keyCode, int shift) const;
    // A key the model left alone that the view acts on itself (F3 opens a list's drop-down);
    // true when it did, and the widget must not get it.
    virtual bool actOnKey(int keyCode, int shift)
    {
        Q_UNUSED(keyCode);
        Q_UNUSED(shift);
        return false;
    }
    // The tool tip shown: the model's, or why the value is not valid.
    virtual QString toolTipText() const;
    // Whether the widget is dressed as holding a wrong value: the model's value is not valid.
    virtual bool holdsWrongValue() const;
    // Dresses the widget by the model's required and wrong-value state, with its tool tip.
    void showDataState();
    // The line of a tool tip that tells a function key: "F3: elenco".
    static QString keyHint(int modelKeyCode, const QString& action);
    // A tool tip text with the key lines under it.
    static QString withKeyHints(const QString& text, const QStringList& hints);
    void showToolTip();

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QPointer<controls::Control> m_control; // Not owned: the form's.
    QPointer<QWidget> m_widget;            // Not owned: the widget tree's.
};

} // namespace tarvello::gui
