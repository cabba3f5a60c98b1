#pragma once

#include <QString>
#include <QtGlobal>

namespace tarvello::db {
class Connection;
}

namespace tarvello::agenti {

// The code of the agent with that id; empty when there is none (or its code is Null).
QString CodiceAgenteDaId(db::Connection& connessione, qint32 id);

// The id of the company's agent with that code; 0 when there is none.
qint32 IdAgenteDaCodice(db::Connection& connessione, qint32 ditta, const QString& codice);

} // namespace tarvello::agenti
