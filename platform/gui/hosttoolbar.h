#pragma once

#include <QHash>
#include <QList>

class QAction;
class QToolBar;

namespace tarvello::services {
class HostNavigator;
class UserPrompts;
} // namespace tarvello::services

namespace tarvello::gui {

// The host's navigator toolbar as a bar of buttons: icons, captions and shortcuts, each
// pressing the host navigator (which every module hears, then acts on the active module's
// record frame). The shell's main window and the host's own management windows show it.
class HostToolbar {
public:
    // All the buttons, in their order.
    static const QList<qint32>& allButtons();
    // The buttons a record frame of a table uses: the moves, new, save, undo, delete, search.
    static const QList<qint32>& recordButtons();

    // Adds the buttons (0 stands for a separator) to the bar.
    HostToolbar(QToolBar& bar, services::HostNavigator& navigator, services::UserPrompts& prompts,
                const QList<qint32>& buttons);

    QAction* action(qint32 button) const { return m_actions.value(button); }
    // Presses a button as its action does; a failure is told to the person.
    void press(qint32 button);
    // Enables the buttons the active frame's status allows.
    void showFrameState(bool frameShown);

private:
    services::HostNavigator& m_navigator; // Not owned.
    services::UserPrompts& m_prompts;     // Not owned.
    QHash<qint32, QAction*> m_actions;    // Owned by the bar.
};

} // namespace tarvello::gui
