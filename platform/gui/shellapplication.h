#pragma once

#include <QApplication>

namespace tarvello::services {
class UserPrompts;
}

namespace tarvello::gui {

// The shell's application. A run-time error that reaches the event loop (from a timer, a
// queued call, a view) is told to the person and the program goes on: the windows stay
// open with everything typed into them. Errors of a module's own event handlers never get
// here; the host reports them as the module's where it raises the event.
class ShellApplication final : public QApplication {
    Q_OBJECT
public:
    ShellApplication(int& argc, char** argv);

    // Where the errors are told; not owned. Without prompts they are only written to the log.
    void setPrompts(services::UserPrompts* prompts) { m_prompts = prompts; }

    bool notify(QObject* receiver, QEvent* event) override;

private:
    services::UserPrompts* m_prompts = nullptr; // Not owned.
};

} // namespace tarvello::gui
