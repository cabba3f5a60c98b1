#include "platform/services/registrysearch.h"

#include "platform/db/connection.h"
#include "platform/db/recordset.h"
#include "platform/services/userprompts.h"

namespace tarvello::services {

RegistrySearch::RegistrySearch(UserPrompts& prompts)
    : m_prompts(prompts)
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

void RegistrySearch::run()
{
    m_agent.clear();
    m_registryCode = db::Value();
    const PromptAnswer answer = m_prompts.registrySearch(m_title, m_kind, m_startText);
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
