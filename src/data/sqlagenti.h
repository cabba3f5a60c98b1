#pragma once

#include <QString>
#include <QtGlobal>

// The statements of the agents screen, each written as the pieces it is joined from: the
// texts are pinned by the statement log, so their blanks matter.

namespace tarvello::agenti::sql {

// The agents of a company, behind the agent frame.
QString agentiDitta(qint32 ditta);

// The detail recordsets as they are opened before an agent is chosen: every column, no row
// (the route detail opens on the company's rows).
QString sociVuoto();
QString maturazioneVuoto();
QString tentataVenditaVuoto();
QString dettaglioGiriDitta(qint32 ditta);

// The hierarchy table of the agents tree, a temporary table of the screen's connection.
QString eliminaTabTreeview();
QString caricaTabTreeview(qint32 ditta);
QString alberoAgenti();

// An agent's code by its id (no company filter: the id is unique), and its id by code.
QString codiceAgenteDaId(qint32 id);
QString idAgenteDaCodice(qint32 ditta, const QString& codice);

// The find criterion that brings a recordset of agents onto one agent code.
QString criterioAgente(const QString& codice);

} // namespace tarvello::agenti::sql
