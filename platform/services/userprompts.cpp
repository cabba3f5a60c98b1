#include "platform/services/userprompts.h"

#include "platform/services/messageboxstyle.h"
#include "src/host/errorlog.h"
#include "src/host/registrysearch.h"

namespace tarvello::services {

QString promptKindName(PromptKind kind)
{
    switch (kind) {
    case PromptKind::MessageBox:
        return QStringLiteral("message box");
    case PromptKind::Report:
        return QStringLiteral("error report");
    case PromptKind::Question:
        return QStringLiteral("question");
    case PromptKind::LookupList:
        return QStringLiteral("lookup list");
    case PromptKind::RegistrySearch:
        return QStringLiteral("registry search");
    case PromptKind::Management:
        return QStringLiteral("management");
    case PromptKind::FileChoice:
        return QStringLiteral("file choice");
    }
    return {};
}

QString Prompt::describe() const
{
    return QStringLiteral("%1 \"%2\"").arg(promptKindName(kind), text);
}

PromptError::PromptError(const QString& message)
    : std::runtime_error(message.toStdString())
    , m_message(message)
{}

PromptAnswer UserPrompts::answer(const Prompt& prompt, const PromptAnswer& defaultAnswer,
                                 const std::function<bool(const PromptAnswer&)>& fits)
{
    const std::optional<PromptAnswer> given = ask(prompt);
    if (given && !fits(*given))
        throw PromptError(QStringLiteral("The %1 cannot take the answer %2")
                              .arg(prompt.describe(), given->describe()));
    const PromptAnswer taken = given.value_or(defaultAnswer);
    m_history.append({prompt.kind, prompt.text, prompt.style, prompt.title, taken, prompt.details,
                      !given.has_value()});
    return taken;
}

int UserPrompts::buttonAnswer(PromptKind kind, const QString& text, int style, const QString& title)
{
    const MessageBoxStyle box = MessageBoxStyle::fromNumber(style);
    Prompt prompt;
    prompt.kind = kind;
    prompt.text = text;
    prompt.style = style;
    prompt.title = title;
    return int(answer(prompt, PromptAnswer::button(box.defaultAnswer), [&](const PromptAnswer& a) {
                   return a.kind() == PromptAnswer::Kind::Button && box.offers(int(a.number()));
               }).number());
}

int UserPrompts::messageBox(const QString& text, int style, const QString& title)
{
    return buttonAnswer(PromptKind::MessageBox, text, style, title);
}

int UserPrompts::report(const QString& text, int style, const QString& title)
{
    return buttonAnswer(PromptKind::Report, text, style, title);
}

std::optional<QuestionAnswer> UserPrompts::question(const QString& text, const QString& title)
{
    using Kind = PromptAnswer::Kind;
    Prompt prompt;
    prompt.kind = PromptKind::Question;
    prompt.text = text;
    prompt.title = title;
    // The dialog has no default button: left alone, it closes without an answer.
    const PromptAnswer taken = answer(prompt, PromptAnswer::nothing(), [](const PromptAnswer& a) {
        return a.kind() == Kind::Question || a.kind() == Kind::Nothing ||
               (a.kind() == Kind::Button && (a.number() == host::Yes || a.number() == host::No));
    });
    switch (taken.kind()) {
    case Kind::Question:
        return static_cast<QuestionAnswer>(taken.number());
    case Kind::Button:
        return taken.number() == host::Yes ? QuestionAnswer::Si : QuestionAnswer::No;
    default:
        return std::nullopt;
    }
}

std::optional<int> UserPrompts::lookupList(const QString& title, const QStringList& headings,
                                           const QList<QStringList>& rows)
{
    using Kind = PromptAnswer::Kind;
    const auto rowOfCode = [&rows](const QString& code) -> std::optional<int> {
        for (int i = 0; i < rows.size(); ++i) {
            if (!rows[i].isEmpty() && rows[i].first().trimmed() == code.trimmed())
                return i;
        }
        return std::nullopt;
    };
    Prompt prompt;
    prompt.kind = PromptKind::LookupList;
    prompt.text = title;
    prompt.title = title;
    prompt.headings = headings;
    prompt.rows = rows;
    const PromptAnswer taken = answer(prompt, PromptAnswer::nothing(), [&](const PromptAnswer& a) {
        switch (a.kind()) {
        case Kind::Nothing:
            return true;
        case Kind::PickRow:
            return a.number() >= 1 && a.number() <= rows.size();
        case Kind::PickCode:
            return rowOfCode(a.text()).has_value();
        default:
            return false;
        }
    });
    if (taken.kind() == Kind::PickRow)
        return int(taken.number()) - 1;
    if (taken.kind() == Kind::PickCode)
        return rowOfCode(taken.text());
    return std::nullopt;
}

PromptAnswer UserPrompts::registrySearch(const QString& title, int kind, const QString& startText)
{
    using Kind = PromptAnswer::Kind;
    Prompt prompt;
    prompt.kind = PromptKind::RegistrySearch;
    prompt.text = title;
    prompt.title = title;
    prompt.searchKind = kind;
    prompt.details = startText;
    return answer(prompt, PromptAnswer::nothing(), [kind](const PromptAnswer& a) {
        return a.kind() == Kind::Nothing || a.kind() == Kind::Registry ||
               a.kind() == Kind::Window ||
               (a.kind() == Kind::Agent &&
                kind == host::GeneralRegistrySearch::AgentsAndFreeEntries);
    });
}

PromptAnswer UserPrompts::management(const QString& name, const QString& details,
                                     const QList<PromptAnswer::Kind>& handsBack)
{
    Prompt prompt;
    prompt.kind = PromptKind::Management;
    prompt.text = name;
    prompt.title = name;
    prompt.details = details;
    return answer(prompt, PromptAnswer::nothing(), [&](const PromptAnswer& a) {
        return a.kind() == PromptAnswer::Kind::Nothing || handsBack.contains(a.kind());
    });
}

std::optional<QString> UserPrompts::chooseFile(const QString& title, FileUse use,
                                               const QString& suggested, const QString& filter)
{
    Prompt prompt;
    prompt.kind = PromptKind::FileChoice;
    prompt.text = title;
    prompt.title = title;
    prompt.details = suggested;
    prompt.fileUse = use;
    prompt.fileFilter = filter;
    const PromptAnswer taken = answer(prompt, PromptAnswer::nothing(), [](const PromptAnswer& a) {
        return a.kind() == PromptAnswer::Kind::Nothing ||
               (a.kind() == PromptAnswer::Kind::File && !a.text().isEmpty());
    });
    if (taken.kind() == PromptAnswer::Kind::File)
        return taken.text();
    return std::nullopt;
}

} // namespace tarvello::services
