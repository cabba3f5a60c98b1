#include "platform/gui/dialogprompts.h"

#include "platform/gui/lookupdialog.h"
#include "platform/gui/printpreviewdialog.h"
#include "platform/gui/questiondialog.h"
#include "platform/services/messageboxstyle.h"
#include "src/host/errorlog.h"

#include <QApplication>
#include <QDesktopServices>
#include <QFileDialog>
#include <QPushButton>
#include <QUrl>

namespace tarvello::gui {

using services::PromptAnswer;

QMessageBox::StandardButton DialogPrompts::buttonFor(int standardAnswer)
{
    switch (standardAnswer) {
    case host::Ok:
        return QMessageBox::Ok;
    case host::Cancel:
        return QMessageBox::Cancel;
    case host::Abort:
        return QMessageBox::Abort;
    case host::Retry:
        return QMessageBox::Retry;
    case host::Ignore:
        return QMessageBox::Ignore;
    case host::Yes:
        return QMessageBox::Yes;
    case host::No:
        return QMessageBox::No;
    default:
        return QMessageBox::NoButton;
    }
}

QMessageBox::Icon DialogPrompts::iconFor(int style)
{
    using Icon = services::MessageBoxStyle::Icon;
    switch (services::MessageBoxStyle::fromNumber(style).icon) {
    case Icon::Critical:
        return QMessageBox::Critical;
    case Icon::Question:
        return QMessageBox::Question;
    case Icon::Warning:
        return QMessageBox::Warning;
    case Icon::Information:
        return QMessageBox::Information;
    case Icon::None:
        break;
    }
    return QMessageBox::NoIcon;
}

QWidget* DialogPrompts::parentWidget() const
{
    return m_parent ? m_parent.data() : QApplication::activeWindow();
}

std::optional<PromptAnswer> DialogPrompts::ask(const services::Prompt& prompt)
{
    using services::PromptKind;
    switch (prompt.kind) {
    case PromptKind::MessageBox:
    case PromptKind::Report:
        return askButton(prompt);
    case PromptKind::Question:
        return askQuestion(prompt);
    case PromptKind::LookupList:
        return askLookup(prompt);
    case PromptKind::RegistrySearch:
    case PromptKind::Management:
        // The person works in the management's own window.
        return PromptAnswer::window();
    case PromptKind::FileChoice:
        return askFile(prompt);
    }
    return std::nullopt;
}

PromptAnswer DialogPrompts::askButton(const services::Prompt& prompt) const
{
    const services::MessageBoxStyle style = services::MessageBoxStyle::fromNumber(prompt.style);
    QMessageBox box(iconFor(prompt.style), prompt.title, prompt.text, QMessageBox::NoButton,
                    parentWidget());
    for (const int answer : style.buttons)
        box.addButton(buttonFor(answer));
    box.setDefaultButton(buttonFor(style.defaultAnswer));
    box.exec();
    const QMessageBox::StandardButton clicked = box.standardButton(box.clickedButton());
    for (const int answer : style.buttons) {
        if (buttonFor(answer) == clicked)
            return PromptAnswer::button(answer);
    }
    // Closed without a button (only a box without an escape button can be): its default.
    return PromptAnswer::button(style.defaultAnswer);
}

PromptAnswer DialogPrompts::askQuestion(const services::Prompt& prompt) const
{
    QuestionDialog dialog(prompt.text, prompt.title, parentWidget());
    dialog.exec();
    const auto answer = dialog.answer();
    return answer ? PromptAnswer::question(*answer) : PromptAnswer::nothing();
}

PromptAnswer DialogPrompts::askLookup(const services::Prompt& prompt) const
{
    LookupDialog dialog(prompt.title, prompt.headings, prompt.rows, parentWidget());
    dialog.exec();
    const auto row = dialog.chosenRow();
    return row ? PromptAnswer::pickRow(*row + 1) : PromptAnswer::nothing();
}

PromptAnswer DialogPrompts::askFile(const services::Prompt& prompt) const
{
    const QString path = prompt.fileUse == services::FileUse::Save
                             ? QFileDialog::getSaveFileName(parentWidget(), prompt.title,
                                                            prompt.details, prompt.fileFilter)
                             : QFileDialog::getOpenFileName(parentWidget(), prompt.title,
                                                            prompt.details, prompt.fileFilter);
    return path.isEmpty() ? PromptAnswer::nothing() : PromptAnswer::file(path);
}

bool DialogPrompts::previewPrintout(const QString& title, const QPageLayout& page,
                                    const std::function<void(QPrinter&)>& paint)
{
    PrintPreviewDialog preview(title, page, paint, parentWidget());
    return preview.exec() == QDialog::Accepted;
}

void DialogPrompts::showDocument(const QString& path)
{
    if (!QDesktopServices::openUrl(QUrl::fromLocalFile(path)))
        QMessageBox::information(parentWidget(), QObject::tr("Documento"),
                                 QObject::tr("Il documento è stato salvato in %1.").arg(path));
}

} // namespace tarvello::gui
