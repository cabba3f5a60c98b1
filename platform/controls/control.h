#pragma once

#include "platform/controls/eventargs.h"
#include "platform/controls/handlererrors.h"

#include <QObject>
#include <QString>

namespace tarvello::controls {

class Form;

// A control of a form, without any widget: its state and its events. Every state change
// is made through a setter and announced by a signal (a setter that changes nothing
// announces nothing), so a view can mirror the model both ways.
//
// The form owns its controls (they are its QObject children) and knows them by name. A
// view never moves the focus itself: it asks the form's FocusManager, which raises the
// focus events in order.
class Control : public QObject {
    Q_OBJECT
public:
    // Registers the control with the form under its name (unique within the form).
    Control(const QString& name, Form* form);

    QString name() const { return objectName(); }
    Form* form() const;

    bool isEnabled() const { return m_enabled; }
    void setEnabled(bool enabled);
    bool isVisible() const { return m_visible; }
    void setVisible(bool visible);
    // Position in the form's tab order; ties keep the order of creation.
    int tabIndex() const { return m_tabIndex; }
    void setTabIndex(int index);
    bool isTabStop() const { return m_tabStop; }
    void setTabStop(bool tabStop);
    // The name a person knows the control by (messages name it), or its shown text.
    QString caption() const { return m_caption; }
    void setCaption(const QString& caption);
    QString toolTip() const { return m_toolTip; }
    void setToolTip(const QString& toolTip);

    // Whether this kind of control can hold the focus at all (labels and pictures cannot).
    virtual bool isFocusable() const { return true; }
    bool canReceiveFocus() const;
    bool hasFocus() const;
    // Asks the form to move the focus here; false when it stayed elsewhere.
    bool setFocus();

    // A key pressed while the control has the focus: raises keyDown, then, unless a handler
    // swallowed the key, its usual action (Tab and Enter move on). Returns the key code
    // left after the handlers.
    int pressKey(int keyCode, int shift = 0);

Q_SIGNALS:
    void enabledChanged(bool enabled);
    void visibleChanged(bool visible);
    void tabIndexChanged(int index);
    void tabStopChanged(bool tabStop);
    void captionChanged(const QString& caption);
    void toolTipChanged(const QString& toolTip);

    void gotFocus();
    void lostFocus();
    // Raised first when the focus is about to leave, for the host's own checks of the value
    // (a record frame's, against the column a field is bound to): a cancel keeps the focus
    // here before any decoding or validation runs.
    void leaveRequested(tarvello::controls::CancelArgs& args);
    // Raised on the control losing the focus; a cancel keeps the focus here.
    void validate(tarvello::controls::CancelArgs& args);
    void keyDown(tarvello::controls::KeyArgs& args);

protected:
    // Raises one of the control's events through fire(); a run-time error that escapes a
    // handler is reported as the procedure "<name>_<event>" (see raiseEvent).
    template <std::invocable Raise>
    Raised raise(const char* event, Raise&& fire) const
    {
        return raiseEvent(handlerErrorsOf(this), name() + u'_' + QLatin1String(event),
                          std::forward<Raise>(fire));
    }
    // Runs before validate when the focus is about to leave (a field decodes a new code).
    virtual void aboutToLeave() {}
    virtual void defaultKeyAction(int keyCode, int shift);

private:
    friend class FocusManager;

    bool m_enabled = true;
    bool m_visible = true;
    int m_tabIndex = 0;
    bool m_tabStop = true;
    QString m_caption;
    QString m_toolTip;
};

} // namespace tarvello::controls
