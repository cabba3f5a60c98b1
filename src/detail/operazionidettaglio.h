#pragma once

#include "platform/db/recordset.h"

#include <QString>
#include <QStringView>

namespace tarvello::frame {
class GestAnagrafica;
}

namespace tarvello::agenti {

class AmbienteAgenti;

// The rows a record frame holds; none while the screen has no such frame.
db::RecordsetPtr righeDi(const frame::GestAnagrafica* gestione);

// The id of the agent on view as the agents frame's row holds it: Null for a new agent not
// saved yet. A run-time error while the screen has no agents frame.
db::Value MG17_IDAGENTE(const frame::GestAnagrafica* agenti);
// The same id as a number; 0 while the agent has none.
qint64 idAgenteCorrente(const frame::GestAnagrafica* agenti);

// Writes the agent id into a column of every row the recordset holds, inside the frame's
// bulk-rewrite bracket so that the frame does not follow the walk. The changes stay pending.
void riscriviAgente(frame::GestAnagrafica& gestione, db::Recordset& righe, QStringView colonna,
                    qint64 agente);

// Writes the pending rows of a detail in one batch. Rows the database refuses stay pending in
// the recordset; the person is told once, with the detail named (cosa, "i soci dell'agente").
void scriviInBlocco(const AmbienteAgenti& ambiente, db::Recordset& righe, const QString& cosa);

} // namespace tarvello::agenti
