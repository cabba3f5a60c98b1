#pragma once

#include "platform/db/recordset.h"

#include <memory>

namespace tarvello::host {
class WarehouseConnection;
struct WarehouseTransfer;
} // namespace tarvello::host

namespace tarvello::agenti {

class FRMMG_AGENTI;
class GiriVisite;

// What the routes page reaches through the host's warehouse connection: the routes
// management from TXT_GIRO's management key, and the customer list whose customers are
// inserted into the route on view ("Recupera elenco &clienti").
class ClientiGiro {
public:
    ClientiGiro(FRMMG_AGENTI& schermata, GiriVisite& giri);
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

    FRMMG_AGENTI& m_schermata; // Not owned: the screen owns this.
    GiriVisite& m_giri;        // Not owned: it owns this.
    std::unique_ptr<host::WarehouseConnection> m_connectMagazzino; // Owned: the latest opening.
    db::RecordsetPtr m_elencoClienti;
};

} // namespace tarvello::agenti
