#include "platform/services/agentsprintout.h"

#include "platform/db/connection.h"
#include "platform/db/runtimeerror.h"
#include "platform/services/agentsreport.h"
#include "platform/services/userprompts.h"
#include "src/host/errorlog.h"

#include <QDir>
#include <QPageLayout>
#include <QRegularExpression>

namespace tarvello::services {

namespace {

constexpr long ObjectVariableNotSet = 91;
constexpr int CriticalStyle = host::Critical;
const QString Title = QStringLiteral("Stampa agenti");

// A file name in the temporary folder that says what was printed.
QString suggestedFile(qint32 company, const QString& code)
{
    QString name = QStringLiteral("agenti-ditta-%1").arg(company);
    if (!code.isEmpty()) {
        static const QRegularExpression unsafe(QStringLiteral("[^A-Za-z0-9_-]"));
        name += u'-' + QString(code).replace(unsafe, QStringLiteral("_"));
    }
    return QDir::temp().filePath(name + QStringLiteral(".pdf"));
}

} // namespace

void AgentsPrintoutModule::setCallingData(const db::ValueList& data)
{
    if (!data.isEmpty())
        m_code = data.first();
}

db::Value AgentsPrintoutModule::ShowForm()
{
    m_printedFile.clear();
    host::GlobalContext* context = ClsGlobal();
    if (!context)
        throw db::RuntimeError(ObjectVariableNotSet,
                               QStringLiteral("Object variable or With block variable not set"),
                               QStringLiteral("ClsGlobal"));
    const host::Company company = context->company();
    const QString code = m_code.isNull() || m_code.isEmpty() ? QString() : m_code.toString();

    db::Connection connection;
    connection.open(context->connectionString());
    QList<AgentLine> agents = readAgents(connection, company.code, code);
    connection.close();
    if (agents.isEmpty()) {
        m_prompts.messageBox(
            code.isEmpty()
                ? QStringLiteral("La ditta %1 non ha agenti da stampare.").arg(company.code)
                : QStringLiteral("L'agente %1 non esiste nella ditta %2.")
                      .arg(code)
                      .arg(company.code),
            host::Information, Title);
        return {};
    }

    const AgentsReport report({company.code, company.name,
                               code.isEmpty() ? QStringLiteral("Tutti gli agenti")
                                              : QStringLiteral("Agente %1").arg(code),
                               QDateTime::currentDateTime()},
                              std::move(agents));
    const bool goOn = m_prompts.previewPrintout(
        Title, AgentsReport::pageLayout(), [&report](QPrinter& printer) { report.print(printer); });
    if (!goOn)
        return {};
    const std::optional<QString> path = m_prompts.chooseFile(
        Title, FileUse::Save, suggestedFile(company.code, code), QStringLiteral("PDF (*.pdf)"));
    if (!path)
        return {};
    try {
        report.printPdf(*path);
    } catch (const db::RuntimeError& error) {
        m_prompts.messageBox(error.description(), CriticalStyle, Title);
        return {};
    }
    m_printedFile = *path;
    m_prompts.showDocument(*path);
    return {};
}

db::Value AgentsPrintoutModule::TransferData(const db::Value& Calling_parameters)
{
    m_dataTransfer.raise(&host::DataTransferEvents::DataTransfer, Calling_parameters);
    return {};
}

} // namespace tarvello::services
