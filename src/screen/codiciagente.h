#pragma once

#include "platform/db/value.h"

#include <QString>
#include <QtGlobal>
#include <optional>

namespace tarvello::controls {
class Form;
}

namespace tarvello::db {
class Connection;
}

namespace tarvello::agenti {

class ErrorReporter;

// The code of the agent with that id; empty when there is none (or its code is Null).
QString CodiceAgenteDaId(db::Connection& connessione, qint32 id);

// The id of the company's agent with that code; 0 when there is none.
qint32 IdAgenteDaCodice(db::Connection& connessione, qint32 ditta, const QString& codice);

// The reference agent of the agent with that id (its id as text); empty when it has none.
// Errors go on to the caller, traced.
QString NonnoAgente(db::Connection& connessione, qint32 ditta, const QString& id);

// Shows in the form's TXT_RAGSOANAG the name of the general-registry entry with that code;
// nothing changes when there is no such entry. A code that is not a number is a type
// mismatch, raised before any statement is sent.
void DecodificaCodice(db::Connection& connessione, const db::Value& codice,
                      const controls::Form& form);

// The company's supplier account of the general-registry entry with that code; Empty when
// there is none (or the code is not a number). Errors are reported with a choice.
db::Value CodiceFornitore(db::Connection& connessione, const ErrorReporter& errori, qint32 ditta,
                          const db::Value& codice);

// A whole number read from a value typed or stored: 0 for a blank value, nothing for a value
// that is not a whole number (which must never reach a statement).
std::optional<qint64> NumeroIntero(const db::Value& valore);

} // namespace tarvello::agenti
