#include "platform/services/siblingmodule.h"

#include "platform/services/userprompts.h"

namespace tarvello::services {

SiblingModule::SiblingModule(QString name, UserPrompts& prompts)
    : m_name(std::move(name))
    , m_prompts(prompts)
{}

db::Value SiblingModule::ShowForm()
{
    QStringList opened;
    for (const db::Value& value : m_callingData)
        opened << value.debugText();
    const PromptAnswer answer =
        m_prompts.management(m_name, opened.join(QStringLiteral(", ")),
                             {PromptAnswer::Kind::Transfer, PromptAnswer::Kind::Codes});
    if (answer.kind() == PromptAnswer::Kind::Transfer) {
        TransferData(db::ValueList{answer.value()});
    } else if (answer.kind() == PromptAnswer::Kind::Codes) {
        db::ValueList codes;
        for (const QString& code : answer.codeList())
            codes.append(code);
        TransferData(codes);
    }
    return {};
}

db::Value SiblingModule::TransferData(const db::Value& Calling_parameters)
{
    m_dataTransfer.raise(&host::DataTransferEvents::DataTransfer, Calling_parameters);
    return {};
}

} // namespace tarvello::services
