#pragma once

#include "platform/controls/eventargs.h"
#include "platform/controls/focusmanager.h"
#include "platform/controls/handlererrors.h"

#include <QList>
#include <QObject>
#include <QPointer>
#include <QRect>
#include <QString>

namespace tarvello::controls {

class Control;
class ConnectionSource;
class LookupPresenter;

// A window without a widget: its controls by name (owned), tab order and focus, caption,
// window state and placement, and its life: load, show (modal or modeless), activation,
// close request with cancel, unload.
//
// Showing only records the request and raises showRequested(); running a modal loop until
// the form is unloaded belongs to whoever presents the form (a window, a scenario).
class Form : public QObject {
    Q_OBJECT
public:
    enum class WindowState { Normal, Minimized, Maximized };

    explicit Form(const QString& name, QObject* parent = nullptr);
    ~Form() override;

    QString name() const { return objectName(); }

    // Creates a control owned by this form.
    template <class T, class... Args>
    T* add(const QString& name, Args&&... args)
    {
        return new T(name, this, std::forward<Args>(args)...);
    }
    // nullptr when there is no control of that name.
    Control* control(QStringView name) const;
    template <class T>
    T* find(QStringView name) const
    {
        return qobject_cast<T*>(control(name));
    }
    // In order of creation.
    const QList<Control*>& controls() const { return m_controls; }
    // By tab index; equal indexes keep the order of creation.
    QList<Control*> tabOrder() const;

    FocusManager& focus() { return m_focus; }
    const FocusManager& focus() const { return m_focus; }
    Control* activeControl() const { return m_focus.current(); }

    QString caption() const { return m_caption; }
    void setCaption(const QString& caption);
    WindowState windowState() const { return m_windowState; }
    void setWindowState(WindowState state);
    // Left, top, width and height in twips.
    QRect bounds() const { return m_bounds; }
    void setBounds(const QRect& bounds);

    bool isLoaded() const { return m_loaded; }
    bool isShown() const { return m_shown; }
    bool isModal() const { return m_modal; }
    bool isActive() const { return m_active; }

    // Raises loaded() the first time (and again after an unload).
    void load();
    // Loads the form when needed, then asks to be shown and becomes the active window.
    void show(bool modal = false);
    void hide();
    void activate();
    void deactivate();
    // Raises queryClose(); unless a handler cancels, unloads. True when the form unloaded.
    bool requestClose(CloseMode mode = CloseMode::User);
    void unload();

    // Long work under way: the window shows the busy pointer and holds its redrawing until
    // the outermost BusyScope ends, however it ends.
    bool isBusy() const { return m_busyDepth > 0; }
    class BusyScope {
    public:
        explicit BusyScope(Form& form);
        ~BusyScope();
        BusyScope(const BusyScope&) = delete;
        BusyScope& operator=(const BusyScope&) = delete;

    private:
        QPointer<Form> m_form; // Not owned.
    };

    // Where fields run their decoding statements; not owned, must outlive the form.
    ConnectionSource* connectionSource() const { return m_connectionSource; }
    void setConnectionSource(ConnectionSource* source) { m_connectionSource = source; }
    // What opens the lists of lookup requests; not owned, must outlive the form.
    LookupPresenter* lookupPresenter() const { return m_lookupPresenter; }
    void setLookupPresenter(LookupPresenter* presenter) { m_lookupPresenter = presenter; }
    // Where the run-time errors that escape the handlers of the form's events are reported;
    // not owned, must outlive the form. Without one they go on to whoever raised the event.
    HandlerErrors* handlerErrors() const { return m_handlerErrors; }
    void setHandlerErrors(HandlerErrors* errors) { m_handlerErrors = errors; }

Q_SIGNALS:
    void captionChanged(const QString& caption);
    void windowStateChanged(tarvello::controls::Form::WindowState state);
    void boundsChanged(const QRect& bounds);
    void loadedChanged(bool loaded);
    void shownChanged(bool shown);
    void activeChanged(bool active);
    void busyChanged(bool busy);

    void loaded();
    void showRequested(bool modal);
    void activated();
    void deactivated();
    void queryClose(tarvello::controls::CloseArgs& args);
    void unloaded();

private:
    friend class Control;
    // Returns the tab index the new control starts with; raises on a duplicate name.
    int adopt(Control* control);
    void setShown(bool shown);
    // Raises one of the form's own events (see raiseEvent).
    template <std::invocable Raise>
    Raised raise(const char* procedure, Raise&& fire) const;

    QList<Control*> m_controls; // Owned as QObject children.
    FocusManager m_focus;
    QString m_caption;
    WindowState m_windowState = WindowState::Normal;
    QRect m_bounds;
    bool m_loaded = false;
    bool m_shown = false;
    bool m_modal = false;
    bool m_active = false;
    int m_busyDepth = 0;
    ConnectionSource* m_connectionSource = nullptr; // Not owned.
    LookupPresenter* m_lookupPresenter = nullptr;   // Not owned.
    HandlerErrors* m_handlerErrors = nullptr;       // Not owned.
};

} // namespace tarvello::controls
