#pragma once

#include "platform/db/recordset.h"
#include "src/screen/controlliagenti.h"

#include <QObject>
#include <QPointer>
#include <memory>

namespace tarvello::frame {
class GestAnagrafica;
}

namespace tarvello::host {
class WarehouseConnection;
struct WarehouseTransfer;
} // namespace tarvello::host

namespace tarvello::agenti {

class AmbienteAgenti;
class GiriVisite;

// What the routes page reaches through the host's warehouse connection: the routes
// management from TXT_GIRO's management key, and the customer list whose customers are
// inserted into the route on view ("Recupera elenco &clienti").
class ClientiGiro {
public:
    ClientiGiro(const ControlliClientiGiro& controlli, GiriVisite& giri,
                const QPointer<frame::GestAnagrafica>& agente,
                const QPointer<frame::GestAnagrafica>& dettaglio, const AmbienteAgenti& ambiente);
    ~ClientiGiro();
    ClientiGiro(const ClientiGiro&) = delete;
    ClientiGiro& operator=(const ClientiGiro&) = delete;

    void collega();

    // The customers the latest customer list handed back; none before the first.
    db::RecordsetPtr Grst_ElencoClienti() const { return m_elencoClienti; }

    void TXT_GIRO_Kgestione();
    void CMD_MULTICLI_ButtonClick();
    void RecuperaElencoClienti();
    void InserisciClientiNelGiro();
    void Gcls_ConnectMagazzino_DataTransfer(const host::WarehouseTransfer& dati);

private:
    // Creates the connection of this opening, its hand-back going to this screen.
    host::WarehouseConnection& nuovaConnessione();
    // Gives the host back to this module once a management has closed.
    void riprendiHost();
    // No route on view: the person is told to choose one.
    bool senzaGiro() const;

    const ControlliClientiGiro m_controlli;
    GiriVisite& m_giri; // Not owned: it owns this.
    // Not owned: the screen's places of the agents frame and of the route-detail frame.
    const QPointer<frame::GestAnagrafica>& m_agente;
    const QPointer<frame::GestAnagrafica>& m_dettaglio;
    const AmbienteAgenti& m_ambiente;                              // Not owned: the screen's.
    std::unique_ptr<host::WarehouseConnection> m_connectMagazzino; // Owned: the latest opening.
    db::RecordsetPtr m_elencoClienti;
    // The handlers' connections end with this part.
    QObject m_contesto;
};

} // namespace tarvello::agenti
