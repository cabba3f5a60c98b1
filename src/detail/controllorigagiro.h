#pragma once

#include "platform/db/recordset.h"
#include "src/common/memoriarisposte.h"
#include "src/screen/frmmg_messaggio.h"

#include <QObject>
#include <QPointer>
#include <QString>
#include <functional>
#include <optional>

namespace tarvello::controls {
class Field;
}

namespace tarvello::frame {
class GestAnagrafica;
struct CancelArgs;
} // namespace tarvello::frame

namespace tarvello::host {
class LookupDecoder;
}

namespace tarvello::agenti {

class AmbienteAgenti;

// The position a new row of the route on view takes: the last, counting itself.
qint16 ProgressivoNuovaRiga(const db::Recordset& righe);

// The description a lookup-and-decode object gives a code with one of its definitions,
// right-trimmed; empty when the code decodes to nothing.
QString descrizioneDecodificata(const AmbienteAgenti& ambiente, host::LookupDecoder* oggetto,
                                const QString& definizione, const db::Value& codice);

// The check a customer row of the route on view must pass before it is stored, with the
// questions it may ask the person and the answers the person asked to remember.
class ControlloRigaGiro {
public:
    ControlloRigaGiro(const controls::Field& giro, const QPointer<frame::GestAnagrafica>& agente,
                      const QPointer<frame::GestAnagrafica>& dettaglio,
                      const AmbienteAgenti& ambiente);
    ControlloRigaGiro(const ControlloRigaGiro&) = delete;
    ControlloRigaGiro& operator=(const ControlloRigaGiro&) = delete;

    void collega();

    MemoriaRisposte& memoria() { return m_memoria; }
    void AzzeraRisposte() { m_memoria.AzzeraRisposte(); }
    // Asks question DomandaCorrente in the question dialog, titled with the screen's caption,
    // unless its answer is remembered. The dialog leaves the answer with this check.
    void ShowFormMsgBox(const QString& testo);

    // The agent on view already has the customer with that destination (Null or empty for
    // none) on one of its routes, as the database holds them. The route is not looked at.
    bool ClienteGiaPresente(qint64 cliente, const QString& giro, const db::Value& destinazione);

    void FME_GestAnagrafica5_BeforeUpdate(frame::CancelArgs& args);

private:
    // Where the question dialog leaves the person's last answer and whether it is to be
    // remembered; both start False and keep their values from one dialog to the next.
    class Risposta final : public RiceventeRisposta {
    public:
        void setGIsInserisciClienteNelGiro(bool risposta) override
        {
            gIsInserisciClienteNelGiro = risposta;
        }
        void setGIsNonRichiederePiu(bool ricorda) override { gIsNonRichiederePiu = ricorda; }

        bool gIsInserisciClienteNelGiro = false;
        bool gIsNonRichiederePiu = false;
    };

    // Entry k's check: skipped when yes was given "always"; otherwise, when the situation is
    // found, the question with the text built for it is asked. False refuses the row.
    bool domanda(short voce, const std::function<std::optional<QString>()>& situazione);
    bool duplicatoNelGiro(const db::Recordset& righe, qint64 cliente, const QString& dest) const;
    QString descrizioneCliente(qint64 cliente);

    const controls::Field& m_giro; // TXT_GIRO: the route on view.
    // Not owned: the screen's places of the agents frame and of the route-detail frame.
    const QPointer<frame::GestAnagrafica>& m_agente;
    const QPointer<frame::GestAnagrafica>& m_dettaglio;
    const AmbienteAgenti& m_ambiente; // Not owned: the screen's.
    MemoriaRisposte m_memoria;
    Risposta m_risposta;
    // The route-detail frame's connection ends with this check.
    QObject m_contesto;
};

} // namespace tarvello::agenti
