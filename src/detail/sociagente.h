#pragma once

#include <memory>

namespace tarvello::controls {
struct KeyArgs;
}

namespace tarvello::host {
class TaxCodeChecker;
}

namespace tarvello::agenti {

class FRMMG_AGENTI;

// The partners page: the bound between the declared number of partners (TXT_NUMSOCI) and the
// partner rows, the key check of a new partner, the partners' tax codes and the shortcut on
// the last field of a partner row.
class SociAgente {
public:
    explicit SociAgente(FRMMG_AGENTI& schermata);
    ~SociAgente();
    SociAgente(const SociAgente&) = delete;
    SociAgente& operator=(const SociAgente&) = delete;

    // Connects the fields' handlers and takes the host's tax-code checker, held until the
    // screen unloads; the load calls it once the frames exist.
    void collega();

    // Shows the missing-number warning, or tells the partners' navigator whether the rows
    // leave room for one more partner.
    void AggiornaNumeroSoci();

    host::TaxCodeChecker* controlloCodiceFiscale() const { return m_codiceFiscale.get(); }

private:
    void TXT_CODFISOCIO_Validate();
    void TXT_DATACESS_KeyDown(controls::KeyArgs& args);

    FRMMG_AGENTI& m_schermata;                             // Not owned: the screen owns this.
    std::unique_ptr<host::TaxCodeChecker> m_codiceFiscale; // Owned, from load to unload.
};

} // namespace tarvello::agenti
