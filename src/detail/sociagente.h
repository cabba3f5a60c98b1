#pragma once

#include "src/screen/controlliagenti.h"

#include <QObject>
#include <QPointer>
#include <memory>

namespace tarvello::controls {
struct KeyArgs;
}

namespace tarvello::frame {
class GestAnagrafica;
}

namespace tarvello::host {
class HostObjects;
class TaxCodeChecker;
} // namespace tarvello::host

namespace tarvello::agenti {

class DettagliAgente;
class ErrorReporter;

// The partners page: the bound between the declared number of partners (TXT_NUMSOCI) and the
// partner rows, the key check of a new partner, the partners' tax codes and the shortcut on
// the last field of a partner row.
class SociAgente {
public:
    SociAgente(const ControlliSoci& controlli, const QPointer<frame::GestAnagrafica>& gestione,
               DettagliAgente& dettagli, const ErrorReporter& errori);
    ~SociAgente();
    SociAgente(const SociAgente&) = delete;
    SociAgente& operator=(const SociAgente&) = delete;

    // Connects the fields' handlers and takes the host's tax-code checker, held until
    // rilascia; the load calls it once the frames exist.
    void collega(host::HostObjects& oggetti);
    // Lets the tax-code checker go; the screen's unload calls it.
    void rilascia();

    // Shows the missing-number warning, or tells the partners' navigator whether the rows
    // leave room for one more partner.
    void AggiornaNumeroSoci();

    host::TaxCodeChecker* controlloCodiceFiscale() const { return m_codiceFiscale.get(); }

private:
    void TXT_CODFISOCIO_Validate();
    void TXT_DATACESS_KeyDown(controls::KeyArgs& args);

    const ControlliSoci m_controlli;
    // Not owned: the screen's place of the partners frame.
    const QPointer<frame::GestAnagrafica>& m_gestione;
    DettagliAgente& m_dettagli;    // Not owned: the owner of this part.
    const ErrorReporter& m_errori; // Not owned: the screen's, with its log (Gcls_Log).
    std::unique_ptr<host::TaxCodeChecker> m_codiceFiscale; // Owned, from load to unload.
    // The fields' connections end with this part.
    QObject m_contesto;
};

} // namespace tarvello::agenti
