#include "platform/services/managementchoice.h"

#include "platform/controls/field.h"
#include "platform/db/runtimeerror.h"
#include "platform/services/management/hostmanagements.h"

namespace tarvello::services {

void requireModule(const host::Cinterface* module, const QString& name)
{
    if (!module)
        throw db::RuntimeError(db::RuntimeError::ObjectRequired, QStringLiteral("Object required"),
                               name);
}

PromptAnswer codesAnswer(const QList<db::ValueList>& chosen)
{
    if (chosen.isEmpty())
        return PromptAnswer::nothing();
    QStringList codes;
    for (const db::Value& value : chosen.first())
        codes << value.toString().trimmed();
    return PromptAnswer::codes(codes);
}

void chooseIntoField(const HostManagements& managements, const QString& name, const QString& code,
                     const ManagementDescription& description, controls::Field* field)
{
    const PromptAnswer answer = managements.ask(name, code, {PromptAnswer::Kind::Codes}, [&] {
        ManagementOpening opening;
        opening.position = code;
        return codesAnswer(managements.runWindow(description, opening));
    });
    if (!field || answer.kind() != PromptAnswer::Kind::Codes || answer.codeList().isEmpty())
        return;
    field->setText(answer.codeList().first());
    field->decode();
}

} // namespace tarvello::services
