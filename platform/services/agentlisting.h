#pragma once

#include "platform/db/decimal.h"
#include "platform/db/value.h"

#include <QList>
#include <QString>

namespace tarvello::db {
class Connection;
}

namespace tarvello::services {

// One agent as the agents' printout shows it: codes of the agents it refers to, names of
// what it is linked to.
struct AgentLine {
    QString code;
    QString registryName;
    // "Agente", "Capo zona" or "Capo area".
    QString kind;
    QString typology;
    QString referenceAgent;
    QString areaManager;
    QString zoneManager;
    // The supplier's account number; empty when the agent has none.
    QString supplier;
    db::Value commission;
};

// The agents of a company in code order; with a code, only that agent (none when the
// company has no agent with it).
QList<AgentLine> readAgents(db::Connection& connection, qint32 company, const QString& code = {});

// The name the printout gives an agent kind (MG17_INDTIPOAGE).
QString agentKindName(const db::Value& kind);

} // namespace tarvello::services
