#pragma once

#include <QString>
#include <QtGlobal>

namespace tarvello::controls {
class Form;
}

namespace tarvello::host {
class Cinterface;
class GlobalContext;
class Navigator;
} // namespace tarvello::host

namespace tarvello::agenti {

class ErrorReporter;

// What a part of the agents screen reaches besides its controls and record frames: the
// screen's window, the company and the connection string of the load, the error reporter, and
// the host through the module's contract. Each is read where the screen keeps it at the moment
// it is used, since the load, a company change and the unload change them.
class AmbienteAgenti {
public:
    AmbienteAgenti(const controls::Form& finestra, host::Cinterface* const& modulo,
                   const qint32& ditta, const QString& stringaConnessione,
                   const ErrorReporter& errori)
        : m_finestra(finestra)
        , m_modulo(modulo)
        , m_ditta(ditta)
        , m_stringaConnessione(stringaConnessione)
        , m_errori(errori)
    {}

    host::Cinterface* ActiveInterface() const { return m_modulo; }
    // The contract of the module, the host's context and navigator: a run-time error when the
    // module has not given them (or has let them go).
    host::Cinterface& modulo() const;
    host::GlobalContext& globale() const;
    host::Navigator& navigatore() const;
    qint32 Codice_Ditta() const { return m_ditta; }
    const QString& Gstr_Connect() const { return m_stringaConnessione; }
    const ErrorReporter& errori() const { return m_errori; }
    // The screen's window: the managements opened from it take its corner, and the host's
    // decodings name their targets among its controls.
    const controls::Form& finestra() const { return m_finestra; }

private:
    const controls::Form& m_finestra;
    host::Cinterface* const& m_modulo;
    const qint32& m_ditta;
    const QString& m_stringaConnessione;
    const ErrorReporter& m_errori;
};

} // namespace tarvello::agenti
