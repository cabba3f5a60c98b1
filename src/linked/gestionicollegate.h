#pragma once

#include "platform/db/value.h"
#include "src/host/calledmodule.h"
#include "src/screen/controlliagenti.h"

#include <QObject>
#include <QPointer>
#include <QString>
#include <memory>
#include <optional>

namespace tarvello::frame {
class GestAnagrafica;
}

namespace tarvello::host {
class DivisionalData;
}

namespace tarvello::agenti {

class AmbienteAgenti;
class SchedaAgente;

// The managements of the host reached from an agent through CMD_GESTCOLL and the registry
// name field: the general registry, which may hand a registry code back while it is open,
// and the divisional data. Each runs modally inside the call that opens it; the component
// is held only for that call.
class GestioniCollegate final : public host::DataTransferEvents {
public:
    GestioniCollegate(const ControlliCollegate& controlli,
                      const QPointer<frame::GestAnagrafica>& agente, SchedaAgente& scheda,
                      const AmbienteAgenti& ambiente);
    ~GestioniCollegate();
    GestioniCollegate(const GestioniCollegate&) = delete;
    GestioniCollegate& operator=(const GestioniCollegate&) = delete;

    // Answers the items of CMD_GESTCOLL; the controls exist from the screen's construction.
    void collega();

    void CMD_GESTCOLL_Click(const QString& chiave);
    // Without a code the management opens unpositioned (code 0, flag False); with one it is
    // asked to position on it, 0 included.
    void GestioneAnagraficheGenerali(const std::optional<db::Value>& codice = std::nullopt);
    void Invoca_DatiDivisionali();
    void Pcls_Anagrafiche_DataTransfer(const db::Value& Data);

    // The components while their managements are open; none otherwise.
    host::CalledModule* Pcls_Anagrafiche() const { return m_anagrafiche.get(); }
    host::DivisionalData* datiDivisionali() const { return m_datiDivisionali.get(); }

private:
    void DataTransfer(const db::Value& Data) override { Pcls_Anagrafiche_DataTransfer(Data); }
    void rilasciaAnagrafiche();

    const ControlliCollegate m_controlli;
    // Not owned: the screen's place of the agents frame.
    const QPointer<frame::GestAnagrafica>& m_agente;
    SchedaAgente& m_scheda;           // Not owned: a sibling part, made before this one.
    const AmbienteAgenti& m_ambiente; // Not owned: the screen's.
    std::unique_ptr<host::CalledModule> m_anagrafiche;
    std::unique_ptr<host::DivisionalData> m_datiDivisionali;
    // The menu's connection ends with this part.
    QObject m_contesto;
};

} // namespace tarvello::agenti
