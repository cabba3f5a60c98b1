#include "platform/services/typologytable.h"

#include "platform/controls/field.h"
#include "platform/services/userprompts.h"

namespace tarvello::services {

void TypologyTable::show(host::GlobalContext& /*context*/, controls::Field& field,
                         const QString& typology)
{
    const PromptAnswer answer = m_prompts.management(QStringLiteral("Tipologie agenti"), typology,
                                                     {PromptAnswer::Kind::Codes});
    if (answer.kind() != PromptAnswer::Kind::Codes || answer.codeList().isEmpty())
        return;
    field.setText(answer.codeList().first());
    field.decode();
}

} // namespace tarvello::services
