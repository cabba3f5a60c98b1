#pragma once

#include "platform/controls/control.h"
#include "platform/controls/form.h"

#include <QMdiSubWindow>

class QAbstractItemView;
#include <QPointer>
#include <memory>
#include <vector>

namespace tarvello::controls {
class ConnectionPool;
class HandlerErrors;
class LookupPresenter;
} // namespace tarvello::controls

namespace tarvello::frame {
class RecordTree;
}

namespace tarvello::host {
class CalledModule;
}

namespace tarvello::gui {

class FormView;
class RecordCaption;

// A module's screen inside the shell: the widget tree laid out for its form, bound to the
// form, in an MDI window. Closing the window is the person's close request, which the form
// may refuse; a form unloaded by code closes the window. The host gives the form what the
// screen did not set up itself: the lookup lists, the module's own connection for the
// fields' decodings, the report of the run-time errors its handlers let escape, and trees
// that stay with the record on view.
class ScreenWindow final : public QMdiSubWindow {
    Q_OBJECT
public:
    // content is laid out for form and bound here (BindingError when it does not fit).
    // errors reports the run-time errors that escape the handlers of the form's events.
    ScreenWindow(host::CalledModule& module, controls::Form& form, QWidget* content,
                 controls::LookupPresenter* lookups,
                 std::unique_ptr<controls::HandlerErrors> errors);
    ~ScreenWindow() override;

    host::CalledModule& module() const { return m_module; }
    controls::Form* form() const { return m_form; }
    FormView* formView() const { return m_view; }
    RecordCaption& caption() const { return *m_caption; }

    // The form a module's screen is: the one its active record frame sits on.
    static controls::Form* formOf(host::CalledModule& module);

    // The grid the person is looking at: the one with the focus, else the first table on the
    // page in view, else a tree; nullptr when no grid is in sight.
    QAbstractItemView* gridOnView() const;

    // Puts the shown window where the person left it last time, maximized if it was, or else
    // at the size laid out in the designer (content size), maximized when the area the window
    // lives in is smaller than that.
    void place(const QSize& designed);
    // Keeps the window's place, its splitters and its grids' column widths for next time.
    void remember() const;

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    // The key of each tree's filter box works anywhere in the screen.
    void addFilterShortcuts(QWidget& content);
    // The splitters and column widths kept from last time.
    void recall();

    host::CalledModule& m_module;    // Not owned: the shell host's.
    QPointer<controls::Form> m_form; // Not owned: the module's screen's.
    FormView* m_view;                // Owned by the content widget.
    RecordCaption* m_caption;        // Owned (QObject child).
    std::unique_ptr<controls::ConnectionPool> m_connections;
    controls::LookupPresenter* m_lookups = nullptr; // Not owned: the shell's.
    std::vector<std::unique_ptr<frame::RecordTree>> m_trees;
    std::unique_ptr<controls::HandlerErrors> m_errors;
    bool m_closing = false;
};

} // namespace tarvello::gui
