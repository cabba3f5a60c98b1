#pragma once

#include "platform/services/userprompts.h"

#include <QMessageBox>
#include <QPointer>

class QWidget;

namespace tarvello::gui {

// The user prompts of the shell: real modal dialogs. A message box and an error report are
// QMessageBoxes with the buttons, icon and default button of their standard style number;
// the question dialog and the lookup list get dialogs of their own; the registry search and
// the host's managements are answered by working in their own windows. What the person answers goes
// back as the prompt's answer; a dialog closed without one (Esc on a list) answers nothing.
class DialogPrompts final : public services::UserPrompts {
public:
    // Dialogs open over parent (which may be nullptr: over the active window).
    explicit DialogPrompts(QWidget* parent = nullptr)
        : m_parent(parent)
    {}

    void setParent(QWidget* parent) { m_parent = parent; }

    // The message-box button giving a standard answer (Ok 1 ... No 7).
    static QMessageBox::StandardButton buttonFor(int standardAnswer);
    static QMessageBox::Icon iconFor(int style);

    // Opens the document in the desktop's viewer for its kind.
    void showDocument(const QString& path) override;
    bool previewPrintout(const QString& title, const QPageLayout& page,
                         const std::function<void(QPrinter&)>& paint) override;

protected:
    std::optional<services::PromptAnswer> ask(const services::Prompt& prompt) override;

private:
    QWidget* parentWidget() const;
    services::PromptAnswer askButton(const services::Prompt& prompt) const;
    services::PromptAnswer askQuestion(const services::Prompt& prompt) const;
    services::PromptAnswer askLookup(const services::Prompt& prompt) const;
    services::PromptAnswer askFile(const services::Prompt& prompt) const;

    QPointer<QWidget> m_parent; // Not owned.
};

} // namespace tarvello::gui
