#pragma once

#include "platform/frame/messageboxes.h"
#include "platform/services/promptanswer.h"

#include <QList>
#include <QString>
#include <QStringList>
#include <functional>
#include <optional>
#include <stdexcept>

class QPageLayout;
class QPrinter;

namespace tarvello::services {

enum class PromptKind {
    MessageBox,
    Report,
    Question,
    LookupList,
    RegistrySearch,
    Management,
    FileChoice,
};

// What a file is chosen for: an existing file to read, or where a document is written.
enum class FileUse { Open, Save };

// The word a kind of prompt is named with in messages and scenario notes.
QString promptKindName(PromptKind kind);

// Something the host asks a person.
struct Prompt {
    PromptKind kind = PromptKind::MessageBox;
    // The message; the title of a list or search; the name of a management.
    QString text;
    // The standard style number of a message box or report.
    int style = 0;
    QString title;
    // A lookup list: its column headings and its rows as shown.
    QStringList headings;
    QList<QStringList> rows;
    // A registry search: its kind (3 agents and free entries, 1 all entries).
    int searchKind = 0;
    // A search's starting text; what a management was opened with; the file suggested.
    QString details;
    // A file choice: what the file is for, and the kinds of file offered ("PDF (*.pdf)").
    FileUse fileUse = FileUse::Open;
    QString fileFilter;

    QString describe() const;
};

// A prompt as it was shown, with the answer it took.
struct PromptRecord {
    PromptKind kind = PromptKind::MessageBox;
    QString text;
    int style = 0;
    QString title;
    // The answer it took. answer() writes it out as a scenario would, only when asked: a list of
    // ten thousand customers handed back is not spelt out on every choice.
    PromptAnswer taken = PromptAnswer::nothing();
    QString answer() const { return taken.describe(); }
    // What a management was opened with, a search's starting text (Prompt::details).
    QString details;
    // No answer was given: the prompt took its default.
    bool defaulted = false;
};

// An answer a prompt cannot take (a "yes" for an OK-only box, the ninth row of a list of
// three). This is a fault of whoever answers, not a run-time error of the module: it goes
// through the module's error styles and stops a scripted run.
class PromptError : public std::runtime_error {
public:
    explicit PromptError(const QString& message);
    const QString& message() const { return m_message; }

private:
    QString m_message;
};

// Every point where the host asks a person. Each prompt is recorded as it is shown; an
// implementation only shows it and returns what the person answered (Qt dialogs in the
// shell, queued answers in scenarios and tests). An answer the prompt cannot take raises
// PromptError naming the prompt.
class UserPrompts : public frame::MessageBoxes {
public:
    // A message box: text, standard style number, title; returns the standard answer.
    int messageBox(const QString& text, int style, const QString& title) override;
    // An error report offering a choice (abort / retry / ignore); returns the answer.
    int report(const QString& text, int style, const QString& title);
    // The module's question dialog; none when it was closed without an answer.
    std::optional<QuestionAnswer> question(const QString& text, const QString& title);
    // A lookup list; returns the index of the row picked, none when closed.
    std::optional<int> lookupList(const QString& title, const QStringList& headings,
                                  const QList<QStringList>& rows);
    // The general-registry search: an agent (kind 3 only), a registry code, nothing, or its
    // window, where the person searches.
    PromptAnswer registrySearch(const QString& title, int kind, const QString& startText);
    // Another management of the host: one of the answers it can hand back, or nothing.
    PromptAnswer management(const QString& name, const QString& details,
                            const QList<PromptAnswer::Kind>& handsBack);

    // A file to read or to write; none when the person chose none.
    std::optional<QString> chooseFile(const QString& title, FileUse use, const QString& suggested,
                                      const QString& filter);
    // Shows a document written for the person (a printout) in the system's viewer. Without a
    // window system there is none to show it in: the document stays where it was written.
    virtual void showDocument(const QString& /*path*/) {}
    // Shows a printout's pages, laid out on the page given, before it is printed: true when
    // the person goes on to print it. Without a window system there is nothing to show it
    // on, and the printout goes on.
    virtual bool previewPrintout(const QString& /*title*/, const QPageLayout& /*page*/,
                                 const std::function<void(QPrinter&)>& /*paint*/)
    {
        return true;
    }

    const QList<PromptRecord>& history() const { return m_history; }

protected:
    // Shows the prompt and returns the person's answer; none takes the prompt's default.
    virtual std::optional<PromptAnswer> ask(const Prompt& prompt) = 0;

private:
    PromptAnswer answer(const Prompt& prompt, const PromptAnswer& defaultAnswer,
                        const std::function<bool(const PromptAnswer&)>& fits);
    int buttonAnswer(PromptKind kind, const QString& text, int style, const QString& title);

    QList<PromptRecord> m_history;
};

} // namespace tarvello::services
