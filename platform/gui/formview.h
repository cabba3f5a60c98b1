#pragma once

#include "platform/controls/control.h"
#include "platform/controls/form.h"

#include <QHash>
#include <QObject>
#include <QPointer>
#include <QWidget>

namespace tarvello::gui {

class ControlView;

// A form's widget tree with its control views, as FormBinder made it. It carries the
// focus both ways: a widget the person moves the focus to asks the form's FocusManager for
// its control, and when the manager refuses (a validation kept the focus) the focus goes
// back to the widget of the control that has it; a move the model makes by itself moves the
// widget focus along. While the form is busy the pointer is the busy one and the window is
// not redrawn. It also shows the form's caption as the window title, and dresses
// required fields (tinted) and fields holding a wrong value (red border).
class FormView final : public QObject {
    Q_OBJECT
public:
    // Owned by root (its QObject child).
    FormView(controls::Form& form, QWidget& root);
    ~FormView() override;

    controls::Form* form() const { return m_form; }
    QWidget* root() const { return m_root; }
    // Takes a view of one of the form's controls.
    void addView(ControlView& view);
    ControlView* viewOf(const controls::Control* control) const;
    // The widget a control's focus lives in; nullptr for a control without a view.
    QWidget* focusWidgetOf(const controls::Control* control) const;
    // The control whose view holds the widget (or one of its ancestors below the root).
    controls::Control* controlAt(const QWidget* widget) const;
    // Puts the keyboard focus on the widget of the control that has the form's focus (the
    // window was shown or activated, and Qt gave the focus to a widget of its own choice).
    void showFocus();

private:
    void takeWidgetFocus(QWidget* now);
    void showModelFocus(controls::Control* previous, controls::Control* current);
    void putWidgetFocus(controls::Control* control);
    void showBusy(bool busy);

    QPointer<controls::Form> m_form; // Not owned.
    QPointer<QWidget> m_root;        // Not owned: this object's parent.
    QHash<const controls::Control*, QPointer<ControlView>> m_views; // Not owned: widgets' children.
    QHash<const QWidget*, QPointer<controls::Control>> m_controlOf; // Not owned.
    bool m_askingModel = false;
    bool m_busyShown = false;
};

} // namespace tarvello::gui
