#pragma once

#include "src/screen/controlliagenti.h"

#include <QObject>
#include <QPointer>

namespace tarvello::frame {
class GestAnagrafica;
}

namespace tarvello::agenti {

// The maturation-days page: the key check of a new payment type and the shortcut on the
// last field of a row.
class Maturazione {
public:
    Maturazione(const ControlliMaturazione& controlli,
                const QPointer<frame::GestAnagrafica>& gestione)
        : m_controlli(controlli)
        , m_gestione(gestione)
    {}
    Maturazione(const Maturazione&) = delete;
    Maturazione& operator=(const Maturazione&) = delete;

    // Connects the fields' handlers; the load calls it once the frames exist.
    void collega();

private:
    const ControlliMaturazione m_controlli;
    // Not owned: the screen's place of the maturation-days frame.
    const QPointer<frame::GestAnagrafica>& m_gestione;
    // The handlers' connections end with this part.
    QObject m_contesto;
};

} // namespace tarvello::agenti
