#pragma once

namespace tarvello::agenti {

class FRMMG_AGENTI;

// The maturation-days page: the key check of a new payment type and the shortcut on the
// last field of a row.
class Maturazione {
public:
    explicit Maturazione(FRMMG_AGENTI& schermata)
        : m_schermata(schermata)
    {}
    Maturazione(const Maturazione&) = delete;
    Maturazione& operator=(const Maturazione&) = delete;

    // Connects the fields' handlers; the load calls it once the frames exist.
    void collega();

private:
    FRMMG_AGENTI& m_schermata; // Not owned: the screen owns this.
};

} // namespace tarvello::agenti
