#pragma once

#include "src/screen/controlliagenti.h"

#include <QObject>
#include <QString>
#include <memory>

namespace tarvello::controls {
struct DecodeArgs;
struct KeyArgs;
struct LookupArgs;
} // namespace tarvello::controls

namespace tarvello::host {
class RegisterManagement;
class WarehouseConnection;
} // namespace tarvello::host

namespace tarvello::agenti {

class AmbienteAgenti;

// The van-sales page: the depot (TXT_TVDEP) and document register (TXT_TVSEZ) of the agent's
// van, with their decodings, lists and managements, and the shortcut on the page's last
// field.
class TentataVendita {
public:
    TentataVendita(const ControlliTentataVendita& controlli, const AmbienteAgenti& ambiente);
    ~TentataVendita();
    TentataVendita(const TentataVendita&) = delete;
    TentataVendita& operator=(const TentataVendita&) = delete;

    // Connects the fields' handlers; the load calls it once the frames exist.
    void collega();

    // The host components while their managements are open; none otherwise.
    host::WarehouseConnection* Gcls_ConnectMagazzino() const { return m_connectMagazzino.get(); }
    host::RegisterManagement* Gcls_Sezionali() const { return m_sezionali.get(); }

private:
    void CHK_TVINDXH_KeyDown(controls::KeyArgs& args);
    void TXT_TVDEP_Decode(controls::DecodeArgs& args);
    void TXT_TVDEP_StartLookup(controls::LookupArgs& args);
    void TXT_TVDEP_Gestione(const QString& chiave);
    void TXT_TVSEZ_Decode(controls::DecodeArgs& args);
    void TXT_TVSEZ_StartLookup(controls::LookupArgs& args);
    void TXT_TVSEZ_Gestione(const QString& chiave);
    // A decoding answered with a statement of the code typed; an empty code empties the
    // description and runs nothing.
    void decodifica(controls::DecodeArgs& args, const controls::Field& campo,
                    controls::DataControl& descrizione, const QString& colonna,
                    QString (*istruzione)(qint32, const QString&)) const;
    // Hands the host back to the screen once a management has closed, and lets the
    // component go.
    template <class Componente>
    void rientro(std::unique_ptr<Componente>& componente);

    const ControlliTentataVendita m_controlli;
    const AmbienteAgenti& m_ambiente;                              // Not owned: the screen's.
    std::unique_ptr<host::WarehouseConnection> m_connectMagazzino; // Owned while open.
    std::unique_ptr<host::RegisterManagement> m_sezionali;         // Owned while open.
    // The fields' connections end with this part.
    QObject m_contesto;
};

} // namespace tarvello::agenti
