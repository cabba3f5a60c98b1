#include "platform/services/hostlauncher.h"

#include "platform/services/management/hostmanagements.h"
#include "platform/services/management/managementcatalogue.h"
#include "platform/services/managementchoice.h"
#include "platform/services/parametertext.h"
#include "platform/services/userprompts.h"

#include <algorithm>

namespace tarvello::services {

namespace {

const QString branchParameter = QStringLiteral("CalledRamo");

QString programName(int program)
{
    if (program == HostLauncher::ClassificationTables)
        return QStringLiteral("Tabelle di classificazione agenti");
    return QStringLiteral("Programma %1").arg(program);
}

// The codes a program was opened with, highest level first.
db::ValueList openingCodes(const QString& parameters)
{
    db::ValueList codes;
    for (const auto& [name, value] : readParameters(parameters)) {
        if (name != branchParameter)
            codes.append(value);
    }
    return codes;
}

// The classification table named by the parameters, opened within the parents' codes on its
// own code.
PromptAnswer classificationWindow(const HostManagements& managements, const QString& parameters)
{
    int branch = -1;
    for (const auto& [name, value] : readParameters(parameters)) {
        if (name == branchParameter)
            branch = value.toInt();
    }
    ManagementOpening opening;
    opening.parents = openingCodes(parameters);
    opening.position = opening.parents.isEmpty() ? db::Value() : opening.parents.takeLast();
    return codesAnswer(managements.runWindow(managements::classification(branch), opening));
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
        m_managements.ask(programName(program), details, {PromptAnswer::Kind::Codes}, [&] {
            if (program == ClassificationTables)
                return classificationWindow(m_managements, parameters);
            m_managements.prompts().messageBox(
                QStringLiteral("Questa installazione non ha la gestione richiesta."), 64,
                QStringLiteral("Gestioni"));
            return PromptAnswer::nothing();
        });
    if (answer.kind() == PromptAnswer::Kind::Codes) {
        db::ValueList codes;
        for (const QString& code : answer.codeList())
            codes.append(code);
        return codes;
    }
    if (program != ClassificationTables)
        return db::ValueList{};
    // Left without a choice, the tables hand back the codes they were opened with, their
    // own level first.
    db::ValueList codes = openingCodes(parameters);
    std::reverse(codes.begin(), codes.end());
    return codes;
}

} // namespace tarvello::services
