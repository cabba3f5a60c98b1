#include "platform/services/registrysearch.h"

#include "platform/db/connection.h"
#include "platform/db/recordset.h"
#include "platform/services/management/hostmanagements.h"
#include "platform/services/management/managementcatalogue.h"
#include "platform/services/userprompts.h"

namespace tarvello::services {

RegistrySearch::RegistrySearch(const HostManagements& managements)
    : m_managements(managements)
{}

RegistrySearch::~RegistrySearch() = default;

void RegistrySearch::setConnection(db::Connection* connection, const QString& connectionString)
{
    m_connection = connection;
    m_connectionString = connectionString;
}

db::Connection& RegistrySearch::connection()
{
    if (m_connection)
        return *m_connection;
    if (!m_ownConnection) {
        m_ownConnection = std::make_unique<db::Connection>();
        m_ownConnection->open(m_connectionString);
    }
    return *m_ownConnection;
}

bool RegistrySearch::listed(const PromptAnswer& answer)
{
    const QString company = QString::number(m_company);
    QString sql;
    if (answer.kind() == PromptAnswer::Kind::Agent) {
        sql = QStringLiteral("SELECT MG17_IDAGENTE FROM MG17_AGENTI WHERE MG17_DITTA_CG18 = ") +
              company + QStringLiteral(" AND MG17_AGENTE = ") + db::quoted(answer.text());
    } else if (answer.kind() == PromptAnswer::Kind::Registry) {
        sql = QStringLiteral("SELECT CG16_CODICE FROM CG16_ANAGGEN WHERE CG16_CODICE = ") +
              QString::number(answer.number());
        // The entries of agents are listed as their agents.
        if (m_kind == AgentsAndFreeEntries)
            sql += QStringLiteral(" AND NOT EXISTS (SELECT 1 FROM MG17_AGENTI"
                                  " WHERE MG17_DITTA_CG18 = ") +
                   company + QStringLiteral(" AND MG17_ANAGEN_CG16 = CG16_CODICE)");
    } else {
        return true;
    }
    return connection().execute(sql)->recordCount() > 0;
}

PromptAnswer RegistrySearch::searchWindow() const
{
    ManagementOpening opening;
    opening.connectionString = m_connectionString;
    opening.company = m_company;
    opening.searchText = m_startText;
    const QList<db::ValueList> chosen =
        m_managements.runWindow(managements::registrySearch(m_kind, m_title), opening);
    if (chosen.isEmpty())
        return PromptAnswer::nothing();
    const db::ValueList& row = chosen.first();
    if (m_kind == AgentsAndFreeEntries && !row.first().toString().trimmed().isEmpty())
        return PromptAnswer::agent(row.first().toString().trimmed());
    return PromptAnswer::registry(row.last().toInt64());
}

void RegistrySearch::run()
{
    m_agent.clear();
    m_registryCode = db::Value();
    PromptAnswer answer = m_managements.prompts().registrySearch(m_title, m_kind, m_startText);
    if (answer.kind() == PromptAnswer::Kind::Window)
        answer = searchWindow();
    if (!listed(answer))
        throw PromptError(
            QStringLiteral("The registry search \"%1\" lists no row for the answer %2")
                .arg(m_title, answer.describe()));
    if (answer.kind() == PromptAnswer::Kind::Agent)
        m_agent = answer.text();
    else if (answer.kind() == PromptAnswer::Kind::Registry)
        m_registryCode = answer.number();
}

} // namespace tarvello::services
