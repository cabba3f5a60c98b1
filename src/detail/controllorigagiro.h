#pragma once

#include "platform/db/recordset.h"
#include "src/common/memoriarisposte.h"

#include <QString>
#include <functional>
#include <optional>

namespace tarvello::frame {
struct CancelArgs;
}

namespace tarvello::host {
class LookupDecoder;
}

namespace tarvello::agenti {

class FRMMG_AGENTI;

// The position a new row of the route on view takes: the last, counting itself.
qint16 ProgressivoNuovaRiga(const db::Recordset& righe);

// The description a lookup-and-decode object gives a code with one of its definitions,
// right-trimmed; empty when the code decodes to nothing.
QString descrizioneDecodificata(FRMMG_AGENTI& schermata, host::LookupDecoder* oggetto,
                                const QString& definizione, const db::Value& codice);

// The check a customer row of the route on view must pass before it is stored, with the
// questions it may ask the person and the answers the person asked to remember.
class ControlloRigaGiro {
public:
    explicit ControlloRigaGiro(FRMMG_AGENTI& schermata);
    ControlloRigaGiro(const ControlloRigaGiro&) = delete;
    ControlloRigaGiro& operator=(const ControlloRigaGiro&) = delete;

    void collega();

    MemoriaRisposte& memoria() { return m_memoria; }
    void AzzeraRisposte() { m_memoria.AzzeraRisposte(); }
    // Asks question DomandaCorrente in the question dialog, titled with the screen's caption,
    // unless its answer is remembered.
    void ShowFormMsgBox(const QString& testo);

    // The agent on view already has the customer with that destination (Null or empty for
    // none) on one of its routes, as the database holds them. The route is not looked at.
    bool ClienteGiaPresente(qint64 cliente, const QString& giro, const db::Value& destinazione);

    void FME_GestAnagrafica5_BeforeUpdate(frame::CancelArgs& args);

private:
    // Entry k's check: skipped when yes was given "always"; otherwise, when the situation is
    // found, the question with the text built for it is asked. False refuses the row.
    bool domanda(short voce, const std::function<std::optional<QString>()>& situazione);
    bool duplicatoNelGiro(const db::Recordset& righe, qint64 cliente, const QString& dest) const;
    QString descrizioneCliente(qint64 cliente);

    FRMMG_AGENTI& m_schermata; // Not owned: the screen owns this.
    MemoriaRisposte m_memoria;
};

} // namespace tarvello::agenti
