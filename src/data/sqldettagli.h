#pragma once

#include <QString>
#include <QtGlobal>

// The statements of the agent's details, each joined from its pieces: the statement log pins
// the texts, blanks included (two after SELECT in some of them).

namespace tarvello::agenti::sql {

// The rows of one agent in each detail table.
QString sociAgente(qint32 ditta, qint64 agente);
QString maturazioneAgente(qint32 ditta, qint64 agente);
QString tentataVenditaAgente(qint32 ditta, qint64 agente);
QString dettaglioGiriAgente(qint32 ditta, qint64 agente);
// The route detail of one agent on one route (its code as typed, right-trimmed).
QString dettaglioGiriDelGiro(qint32 ditta, qint64 agente, const QString& giro);

// The route detail with every column and no row, before an agent is chosen.
QString dettaglioGiriVuoto();

// The routes an agent has customers on, with their descriptions.
QString elencoGiriAgente(qint32 ditta, qint64 agente);

// A route customer checked against the agents: the customer among the agent's several
// agents, on other agents' routes with that destination, on this agent's routes with it.
QString clienteDellAgente(qint32 ditta, qint64 cliente, qint64 agente);
QString clienteDiAltriAgenti(qint32 ditta, qint64 cliente, qint64 agente, const QString& dest);
QString clienteNeiGiriDellAgente(qint32 ditta, qint64 cliente, qint64 agente, const QString& dest);

} // namespace tarvello::agenti::sql
