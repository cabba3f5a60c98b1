#include "platform/services/hostlauncher.h"

#include "platform/services/parametertext.h"
#include "platform/services/userprompts.h"

#include <algorithm>

namespace tarvello::services {

namespace {

QString programName(int program)
{
    if (program == HostLauncher::ClassificationTables)
        return QStringLiteral("Tabelle di classificazione agenti");
    return QStringLiteral("Programma %1").arg(program);
}

// What the classification tables hand back when the person leaves without choosing: the
// codes they were opened with, the table's own level first.
db::ValueList openingCodes(const QString& parameters)
{
    db::ValueList codes;
    for (const auto& [name, value] : readParameters(parameters)) {
        if (name != QStringLiteral("CalledRamo"))
            codes.append(value);
    }
    std::reverse(codes.begin(), codes.end());
    return codes;
}

} // namespace

QString HostLauncher::addParameter(const QString& parameters, const QString& name,
                                   const db::Value& value) const
{
    return appendParameter(parameters, name, value.toString());
}

db::Value HostLauncher::runProgram(int program, const QString& parameters, bool modal)
{
    QString details = parameters;
    if (!modal)
        details += QStringLiteral("\n(non modale)");
    const PromptAnswer answer =
        m_prompts.management(programName(program), details, {PromptAnswer::Kind::Codes});
    if (answer.kind() == PromptAnswer::Kind::Codes) {
        db::ValueList codes;
        for (const QString& code : answer.codeList())
            codes.append(code);
        return codes;
    }
    if (program == ClassificationTables)
        return openingCodes(parameters);
    return db::ValueList{};
}

} // namespace tarvello::services
