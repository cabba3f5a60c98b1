#pragma once

#include <QString>
#include <QStringList>
#include <QtGlobal>

namespace tarvello::db {
class Value;
}

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

// The agents whose reference agent is that id.
QString figliAgente(qint32 ditta, qint32 id);

// The counts of an agent's rows (column CONTATORE) in the five document tables of other
// modules, in the order they are read.
QStringList contaDocumentiAgente(qint32 ditta, qint32 id);

// An agent's dependants, in the order they are deleted: the four detail tables, then the
// divisional detail and entity rows.
QStringList eliminaDipendentiAgente(qint32 ditta, qint32 id);

// The general-registry entry with exactly that name (a Unicode literal, quotes doubled).
QString anagraficaDaRagioneSociale(const QString& ragioneSociale);
// The name of a general-registry entry (the code is a number).
QString ragioneSocialeAnagrafica(qint64 codice);
// The supplier account of a general-registry entry within the company.
QString fornitoreAnagrafica(qint32 ditta, qint64 codice);
// The reference agent of an agent, its id compared as quoted text.
QString riferimentoAgente(qint32 ditta, const QString& id);

// The name of a reference agent, by its code or by its id.
QString ragioneSocialeAgenteDaCodice(qint32 ditta, const QString& codice);
QString ragioneSocialeAgenteDaId(qint32 ditta, qint64 id);

// One step up and one step down the hierarchy table.
QString riferimentoInAlbero(qint32 id);
QString dipendenteInAlbero(qint32 id);

// The agent with this code in the company: the agent frame's rows after a company change.
QString agenteNellaDitta(qint32 ditta, const QString& codice);
// The company's agent linked to a registry entry, if any. Both numbers go in unquoted.
QString agenteDellAnagrafica(const db::Value& ditta, const db::Value& anagrafica);

} // namespace tarvello::agenti::sql
