#include "src/detail/operazionidettaglio.h"

#include "platform/controls/grid.h"
#include "platform/db/runtimeerror.h"
#include "platform/frame/gestanagrafica.h"
#include "src/common/richiesto.h"
#include "src/common/valuehelpers.h"
#include "src/host/errorlog.h"
#include "src/screen/frmmg_agenti.h"

namespace tarvello::agenti {

namespace {} // namespace

db::Value MG17_IDAGENTE(const FRMMG_AGENTI& schermata)
{
    const db::RecordsetPtr agenti = schermata.Grst_GestAnagrafica(FRMMG_AGENTI::Agenti);
    if (!agenti)
        oggettoMancante(QStringLiteral("Grst_GestAnagrafica1"));
    // The agent frame adds its new row only once it is edited: until then it stands for a
    // row whose id is not there yet.
    if (agenti->bof() || agenti->eof())
        return db::Value::null();
    return agenti->value(u"MG17_IDAGENTE");
}

qint64 idAgenteCorrente(const FRMMG_AGENTI& schermata)
{
    return NvlN(MG17_IDAGENTE(schermata), 0).toInt64();
}

void riscriviAgente(frame::GestAnagrafica& gestione, db::Recordset& righe, QStringView colonna,
                    qint64 agente)
{
    const frame::GestAnagrafica::BulkRewrite parentesi(gestione);
    for (righe.moveFirst(); !righe.eof(); righe.moveNext())
        righe.setValue(colonna, db::Value(agente));
}

void scriviInBlocco(const FRMMG_AGENTI& schermata, db::Recordset& righe, const QString& cosa)
{
    try {
        righe.updateBatch();
    } catch (const db::RuntimeError& errore) {
        host::ErrorLog* log = schermata.Gcls_Log();
        if (!log)
            throw;
        log->message(QStringLiteral("Impossibile salvare %1: le modifiche non salvate restano in "
                                    "attesa.\r\n%2")
                         .arg(cosa, errore.description()),
                     host::Exclamation, schermata.caption());
    }
}

} // namespace tarvello::agenti
