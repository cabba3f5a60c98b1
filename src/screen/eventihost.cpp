#include "platform/controls/field.h"
#include "platform/db/connection.h"
#include "platform/db/recordset.h"
#include "platform/frame/gestanagrafica.h"
#include "src/common/errorstyles.h"
#include "src/common/richiesto.h"
#include "src/data/sqlagenti.h"
#include "src/host/errorlog.h"
#include "src/screen/frmmg_agenti.h"

namespace tarvello::agenti {

// An unloaded screen has nothing pending.
bool FRMMG_AGENTI::ConfermaCambioDitta()
{
    frame::GestAnagrafica* agenti = FME_GestAnagrafica(Agenti);
    return !agenti || agenti->confirmPendingChanges({.check = true, .ask = true});
}

// A failure (the database out of reach) is the module's error, shown to the person; the
// screen then stays as the steps before it left it.
void FRMMG_AGENTI::CambiaDitta(qint32 ditta)
{
    if (!FME_GestAnagrafica(Agenti))
        return;
    reportModuleError(m_errori, QStringLiteral("CLSMG_AGENTI.ActiveNavigator_ChangeDitta"),
                      {
                          [&] { m_ditta = ditta; },
                          [&] {
                              gestione(Agenti).reopen(sql::agenteNellaDitta(
                                  m_ditta, m_controlli.navigazione.TXT_AGENTE.text()));
                          },
                      });
}

void FRMMG_AGENTI::MessaggioUtente(const QString& testo, int stile, const QString& titolo)
{
    richiesto(m_log.get(), "Gcls_Log").message(testo, stile, titolo);
}

QObject* FRMMG_AGENTI::oggettoSchermata(const QString& nome)
{
    if (nome.isEmpty())
        return this;
    return find<controls::Control>(nome);
}

} // namespace tarvello::agenti
