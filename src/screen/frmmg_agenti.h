#pragma once

#include "platform/controls/control.h"
#include "platform/controls/form.h"
#include "platform/db/recordset.h"
#include "platform/db/value.h"
#include "src/common/errorreporter.h"
#include "src/host/agentiscreen.h"
#include "src/screen/ambienteagenti.h"
#include "src/screen/controlli.h"
#include "src/screen/controlliagenti.h"
#include "src/screen/pagineagenti.h"
#include "src/screen/postigestioni.h"

#include <QPointer>
#include <QStringList>
#include <memory>

namespace tarvello::db {
class Connection;
}

namespace tarvello::frame {
class GestAnagrafica;
}

namespace tarvello::host {
class ErrorLog;
class GlobalContext;
class LookupDecoder;
class Navigator;
} // namespace tarvello::host

namespace tarvello::agenti {

class AlberoAgenti;
class Classificazioni;
class DettagliAgente;
class GestioniCollegate;
class ListeCodificate;
class NavigazioneAgenti;
class Provvigioni;
class SchedaAgente;

// The agents screen: the header of the agent, the agents tree, the six pages of TAB_AGENTI
// and the inner navigator, with the five record frames FME_GestAnagrafica1 (agents) to 5
// (route detail) over the screen's own connection.
//
// The screen loads at the first use of its window (CLSMG_AGENTI sets its window state), does
// its one-off work at the first activation, and lets everything go at unload, in the order
// the host expects. Every record frame is a child of the form, known by its name.
class FRMMG_AGENTI final : public controls::Form, public AgentiScreen {
    Q_OBJECT
public:
    // The record frames by number, as the screen's members are named.
    using enum gestioni::Numero;

    explicit FRMMG_AGENTI(QObject* parent = nullptr);
    ~FRMMG_AGENTI() override;

    // What the module object creates its screens with.
    static AgentiScreenFactory fabbrica();

    void setActiveInterface(host::Cinterface* module) override { m_activeInterface = module; }
    void setActiveClass(CLSMG_AGENTI* module) override { m_activeClass = module; }
    void setWindowState(short state) override;
    using controls::Form::setWindowState;
    void setTitle(const QString& title) override { setCaption(title); }
    // Modal: waits in an event loop of its own until the screen has unloaded.
    void show(bool modal) override;

    void PrimoAgente() override;
    void PrecedenteRamoAgente() override;
    void PreviousAgente() override;
    void NextAgente() override;
    void ProssimoRamoAgente() override;
    void UltimoAgente() override;

    // The host's events as the module object passes them on (eventihost.cpp): the company
    // change, a message to the person, and the objects the layout and script models reach.
    bool ConfermaCambioDitta() override;
    void CambiaDitta(qint32 ditta) override;
    void MessaggioUtente(const QString& testo, int stile, const QString& titolo) override;
    QObject* oggettoSchermata(const QString& nome) override;

    host::Cinterface* ActiveInterface() const { return m_activeInterface; }
    CLSMG_AGENTI* ActiveClass() const { return m_activeClass; }

    // Selects a page without the focus moves a person's click brings (page 0 excepted).
    void SelezionaTab(short pagina);
    // Brings the host's navigator in line with the active record frame.
    void AggiornaNavigatore();
    // Tells the navigator's script object that the screen opens ("tsOpen") or closes
    // ("tsClose").
    void ExecuteFormEvent(const db::Value& evento);

    // What the screen holds from load to unload.
    db::Connection* Gcon_Connect() const { return m_connessione.get(); }
    const QString& Gstr_Connect() const { return m_stringaConnessione; }
    host::ErrorLog* Gcls_Log() const { return m_log.get(); }
    const ErrorReporter& errori() const { return m_errori; }
    qint32 Codice_Ditta() const { return m_ditta; }
    frame::GestAnagrafica* FME_GestAnagrafica(int gestione) const;
    // Where a record frame sits: empty until the load makes the frame and again once the
    // unload lets it go. A part keeps it to reach the frame of the moment.
    const QPointer<frame::GestAnagrafica>& postoGestione(int numero) const
    {
        return m_gestioni.at(numero - 1);
    }
    // The rows and the query of a record frame, as the frame holds them.
    db::RecordsetPtr Grst_GestAnagrafica(int gestione) const;
    QString Gstr_GestAnagrafica(int gestione) const;
    bool CambioTabDaCodice() const { return m_pagine.CambioTabDaCodice(); }
    AlberoAgenti& albero() const { return *m_albero; }
    DettagliAgente& dettagli() const { return *m_dettagli; }
    SchedaAgente& scheda() const { return *m_scheda; }
    NavigazioneAgenti& navigazione() const { return *m_navigazione; }
    GestioniCollegate& collegate() const { return *m_collegate; }
    Classificazioni& classificazioni() const { return *m_classificazioni; }
    Provvigioni& provvigioni() const { return *m_provvigioni; }

    template <class T>
    T& controllo(QStringView nome) const
    {
        return controlloDi<T>(*this, nome);
    }

    // What the parts reach besides their controls: the module's contract, the host's context
    // and navigator, the company, the connection and the error reporter.
    const AmbienteAgenti& ambiente() const { return m_ambiente; }

private:
    // A record frame; a run-time error when the screen has none (not loaded, or unloaded).
    frame::GestAnagrafica& gestione(int numero) const;
    void Form_Load();
    void Form_Activate();
    void Form_QueryUnload(controls::CloseArgs& args);
    void Form_Unload();
    void TAB_AGENTI_Click(int pagina);

    void creaGestioni();
    void apriGestione(int numero, const QString& sql, const QString& navigatore,
                      const QString& griglia);
    void registraCampi(int numero, const QStringList& campi);
    std::unique_ptr<host::LookupDecoder> nuovoDecodificatore() const;
    void posizionaSuAgenteRichiesto();
    void rilasciaGestioni();

    host::Cinterface* m_activeInterface = nullptr; // Not owned.
    CLSMG_AGENTI* m_activeClass = nullptr;         // Not owned.
    bool m_giaCaricata = false;
    // The screen has been unloaded: it is not shown again.
    bool m_scaricata = false;
    std::unique_ptr<host::ErrorLog> m_log;
    std::unique_ptr<db::Connection> m_connessione;
    QString m_stringaConnessione;
    PostiGestioni m_gestioni; // Owned as QObject children.
    qint32 m_ditta = 0;
    QStringList m_tipiEffetti;
    DecodificatoriAgenti m_oggetti;
    ErrorReporter m_errori;
    const AmbienteAgenti m_ambiente;
    // Made with the screen, before the parts that are given their controls from it.
    const ControlliAgenti m_controlli;
    PagineAgenti m_pagine;
    std::unique_ptr<ListeCodificate> m_liste;
    std::unique_ptr<DettagliAgente> m_dettagli;
    std::unique_ptr<AlberoAgenti> m_albero;
    std::unique_ptr<SchedaAgente> m_scheda;
    std::unique_ptr<NavigazioneAgenti> m_navigazione;
    std::unique_ptr<GestioniCollegate> m_collegate;
    std::unique_ptr<Classificazioni> m_classificazioni;
    std::unique_ptr<Provvigioni> m_provvigioni;
};

} // namespace tarvello::agenti
