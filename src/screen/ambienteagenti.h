#pragma once

#include <QString>
#include <QtGlobal>
#include <memory>

namespace tarvello::controls {
class Form;
}

namespace tarvello::db {
class Connection;
}

namespace tarvello::host {
class Cinterface;
class GlobalContext;
class LookupDecoder;
class Navigator;
} // namespace tarvello::host

namespace tarvello::agenti {

class CLSMG_AGENTI;
class ErrorReporter;

// The host's lookup-and-decode objects the agents screen works with, from load to unload.
struct DecodificatoriAgenti {
    std::unique_ptr<host::LookupDecoder> classificazioni;
    std::unique_ptr<host::LookupDecoder> agenti;
    std::unique_ptr<host::LookupDecoder> fornitori;
    std::unique_ptr<host::LookupDecoder> clienti;
    std::unique_ptr<host::LookupDecoder> giri;
    std::unique_ptr<host::LookupDecoder> listini;
    // Created only when a previous load left none.
    std::unique_ptr<host::LookupDecoder> priorita;
    std::unique_ptr<host::LookupDecoder> destinatari;
};

// What a part of the agents screen reaches besides its controls and record frames: the
// screen's window, the module object that shows it, the company, the connection and the host's
// lookup-and-decode objects of the load, the error reporter, and the host through the module's
// contract. Each is read where the screen keeps it at the moment it is used, since the load, a
// company change and the unload change them.
class AmbienteAgenti {
public:
    AmbienteAgenti(controls::Form& finestra, host::Cinterface* const& modulo,
                   CLSMG_AGENTI* const& classe, const qint32& ditta,
                   const QString& stringaConnessione,
                   const std::unique_ptr<db::Connection>& connessione,
                   const DecodificatoriAgenti& decodificatori, const ErrorReporter& errori)
        : m_finestra(finestra)
        , m_modulo(modulo)
        , m_classe(classe)
        , m_ditta(ditta)
        , m_stringaConnessione(stringaConnessione)
        , m_connessione(connessione)
        , m_decodificatori(decodificatori)
        , m_errori(errori)
    {}

    host::Cinterface* ActiveInterface() const { return m_modulo; }
    // The module object that shows the screen, with its calling data.
    CLSMG_AGENTI* ActiveClass() const { return m_classe; }
    // The contract of the module, the host's context and navigator: a run-time error when the
    // module has not given them (or has let them go).
    host::Cinterface& modulo() const;
    host::GlobalContext& globale() const;
    host::Navigator& navigatore() const;
    qint32 Codice_Ditta() const { return m_ditta; }
    const QString& Gstr_Connect() const { return m_stringaConnessione; }
    // The screen's connection: a run-time error when it has none (not loaded, or unloaded).
    db::Connection& connessione() const;
    // The same, none before the load and after the unload.
    db::Connection* Gcon_Connect() const { return m_connessione.get(); }
    // Each empty before the load and after the unload.
    const DecodificatoriAgenti& decodificatori() const { return m_decodificatori; }
    const ErrorReporter& errori() const { return m_errori; }
    // The screen's window: the managements opened from it take its corner, the host's
    // decodings name their targets among its controls, and long work shows on it as busy.
    controls::Form& finestra() const { return m_finestra; }

private:
    controls::Form& m_finestra;
    host::Cinterface* const& m_modulo;
    CLSMG_AGENTI* const& m_classe;
    const qint32& m_ditta;
    const QString& m_stringaConnessione;
    const std::unique_ptr<db::Connection>& m_connessione;
    const DecodificatoriAgenti& m_decodificatori;
    const ErrorReporter& m_errori;
};

} // namespace tarvello::agenti
