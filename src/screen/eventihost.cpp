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

using sql::agenteNellaDitta;

// An unloaded screen has nothing pending.
bool FRMMG_AGENTI::ConfermaCambioDitta()
{
    frame::GestAnagrafica* agenti = FME_GestAnagrafica(Agenti);
    return !agenti || agenti->confirmPendingChanges(true, false, true);
}

// A failure (the database out of reach) is the module's error, shown to the person; the
// screen then stays as the steps before it left it.
void FRMMG_AGENTI::CambiaDitta(qint32 ditta)
{
    if (!FME_GestAnagrafica(Agenti))
        return;
    db::Connection* connessioneAgenti = nullptr;
    const auto righeAgenti = [this]() -> db::Recordset& {
        return richiesto(m_recordset.at(Agenti - 1).get(), "Grst_GestAnagrafica1");
    };
    reportModuleError(
        m_errori, QStringLiteral("CLSMG_AGENTI.ActiveNavigator_ChangeDitta"),
        {
            [&] { m_ditta = ditta; },
            [&] { gestione(Agenti).detach(); },
            [&] {
                connessioneAgenti = righeAgenti().activeConnection();
                righeAgenti().close();
            },
            [&] {
                m_sql.at(Agenti - 1) =
                    agenteNellaDitta(m_ditta, controllo<controls::Field>(u"TXT_AGENTE").text());
            },
            // Reopened in place: the frame, and whoever else holds the recordset, keep it.
            [&] {
                righeAgenti().reopen(richiesto(connessioneAgenti, "ActiveConnection"),
                                     m_sql.at(Agenti - 1));
            },
            [&] { gestione(Agenti).refresh({}); },
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
