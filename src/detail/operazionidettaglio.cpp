#include "src/detail/operazionidettaglio.h"

#include "platform/controls/form.h"
#include "platform/db/runtimeerror.h"
#include "platform/frame/gestanagrafica.h"
#include "src/common/errorreporter.h"
#include "src/common/richiesto.h"
#include "src/common/valuehelpers.h"
#include "src/host/errorlog.h"
#include "src/screen/ambienteagenti.h"

namespace tarvello::agenti {

db::RecordsetPtr righeDi(const frame::GestAnagrafica* gestione)
{
    return gestione ? gestione->recordset() : nullptr;
}

db::Value MG17_IDAGENTE(const frame::GestAnagrafica* agenti)
{
    const db::RecordsetPtr righe = righeDi(agenti);
    if (!righe)
        oggettoMancante(QStringLiteral("Grst_GestAnagrafica1"));
    // The agent frame adds its new row only once it is edited: until then it stands for a
    // row whose id is not there yet.
    if (righe->bof() || righe->eof())
        return db::Value::null();
    return righe->value(u"MG17_IDAGENTE");
}

qint64 idAgenteCorrente(const frame::GestAnagrafica* agenti)
{
    return NvlN(MG17_IDAGENTE(agenti), 0).toInt64();
}

void riscriviAgente(frame::GestAnagrafica& gestione, db::Recordset& righe, QStringView colonna,
                    qint64 agente)
{
    const frame::GestAnagrafica::BulkRewrite parentesi(gestione);
    for (righe.moveFirst(); !righe.eof(); righe.moveNext())
        righe.setValue(colonna, db::Value(agente));
}

void scriviInBlocco(const AmbienteAgenti& ambiente, db::Recordset& righe, const QString& cosa)
{
    try {
        righe.updateBatch();
    } catch (const db::RuntimeError& errore) {
        ambiente.errori().log().message(
            QStringLiteral("Impossibile salvare %1: le modifiche non salvate restano in "
                           "attesa.\r\n%2")
                .arg(cosa, errore.description()),
            host::Exclamation, ambiente.finestra().caption());
    }
}

} // namespace tarvello::agenti
