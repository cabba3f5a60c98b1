#include "platform/services/managementchoice.h"

#include "platform/controls/field.h"
#include "platform/db/runtimeerror.h"
#include "platform/services/userprompts.h"

namespace tarvello::services {

void chooseIntoField(UserPrompts& prompts, const host::Cinterface* module, const QString& name,
                     const QString& details, controls::Field* field)
{
    if (!module)
        throw db::RuntimeError(db::RuntimeError::ObjectRequired, QStringLiteral("Object required"),
                               name);
    const PromptAnswer answer = prompts.management(name, details, {PromptAnswer::Kind::Codes});
    if (!field || answer.kind() != PromptAnswer::Kind::Codes || answer.codeList().isEmpty())
        return;
    field->setText(answer.codeList().first());
    field->decode();
}

} // namespace tarvello::services
