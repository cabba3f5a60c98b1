#include "src/tree/navigazioneagenti.h"

#include "platform/controls/field.h"
#include "platform/controls/form.h"
#include "platform/controls/navigatorbar.h"
#include "platform/controls/picture.h"
#include "platform/controls/tabstrip.h"
#include "platform/controls/treegrid.h"
#include "platform/db/recordset.h"
#include "platform/frame/gestanagrafica.h"
#include "src/common/errorstyles.h"
#include "src/common/richiesto.h"
#include "src/common/valuehelpers.h"
#include "src/linked/stampa.h"
#include "src/screen/ambienteagenti.h"
#include "src/screen/clsmg_agenti.h"
#include "src/screen/codiciagente.h"
#include "src/screen/pagineagenti.h"
#include "src/tree/alberoagenti.h"

namespace tarvello::agenti {

namespace {

// From this page on, "Avanti" shows the next page (when there is one) and switches itself off.
constexpr int PaginaCheSpegneAvanti = 3;

} // namespace

NavigazioneAgenti::NavigazioneAgenti(const ControlliNavigazione& controlli,
                                     const QPointer<frame::GestAnagrafica>& agente,
                                     AlberoAgenti& albero, PagineAgenti& pagine,
                                     const AmbienteAgenti& ambiente)
    : m_controlli(controlli)
    , m_agente(agente)
    , m_albero(albero)
    , m_pagine(pagine)
    , m_ambiente(ambiente)
{}

NavigazioneAgenti::~NavigazioneAgenti()
{
    scollega();
}

void NavigazioneAgenti::scollega()
{
    for (const QMetaObject::Connection& collegamento : std::as_const(m_collegamenti))
        QObject::disconnect(collegamento);
    m_collegamenti.clear();
}

void NavigazioneAgenti::collega()
{
    scollega();
    controls::TreeGrid& albero = m_controlli.GRD_AGENTI;
    controls::NavigatorBar& internav = m_controlli.INTERNAV;
    const QObject* contesto = &m_ambiente.finestra();
    m_collegamenti = {
        QObject::connect(&albero, &controls::Grid::clicked, contesto,
                         [this] { m_albero.GRD_AGENTI_Click(); }),
        QObject::connect(&albero, &controls::Grid::refreshRequested, contesto,
                         [this] { m_albero.GRD_AGENTI_Refresh(); }),
        QObject::connect(&m_controlli.IMG_ESPANDI, &controls::Picture::clicked, contesto,
                         [this] { m_albero.IMG_ESPANDI_Click(); }),
        QObject::connect(&m_controlli.IMG_COMPRIMI, &controls::Picture::clicked, contesto,
                         [this] { m_albero.IMG_COMPRIMI_Click(); }),
        QObject::connect(&internav, &controls::Navigator::buttonClicked, contesto,
                         [this](const QString& chiave) { INTERNAV_ButtonClick(chiave); }),
        QObject::connect(&internav, &controls::Navigator::afterButton, contesto,
                         [this](bool riuscita, const QString& chiave) {
                             INTERNAV_AfterAction(riuscita, chiave);
                         }),
    };
}

void NavigazioneAgenti::sposta(Condizione fermo, Spostamento spostamento)
{
    const db::RecordsetPtr albero = m_albero.Grst_AlberoAgenti();
    ignoreEachStep({
        [&] {
            return !albero || !albero->isOpen() || (*albero.*fermo)() ? Flow::Leave : Flow::Next;
        },
        [&] { (*albero.*spostamento)(); },
        [&] { m_controlli.GRD_AGENTI.selectCurrentRow(); },
    });
}

void NavigazioneAgenti::PrimoAgente()
{
    sposta(&db::Recordset::bof, &db::Recordset::moveFirst);
}

void NavigazioneAgenti::PrecedenteRamoAgente() {}

void NavigazioneAgenti::PreviousAgente()
{
    sposta(&db::Recordset::bof, &db::Recordset::movePrevious);
}

void NavigazioneAgenti::NextAgente()
{
    sposta(&db::Recordset::eof, &db::Recordset::moveNext);
}

void NavigazioneAgenti::ProssimoRamoAgente() {}

void NavigazioneAgenti::UltimoAgente()
{
    sposta(&db::Recordset::eof, &db::Recordset::moveLast);
}

void NavigazioneAgenti::INTERNAV_ButtonClick(const QString& chiave)
{
    controls::NavigatorBar& internav = m_controlli.INTERNAV;
    const controls::TabStrip& schede = m_controlli.TAB_AGENTI;
    const int pagina = schede.currentPage();
    if (chiave == controls::NavigatorKey::Forward) {
        if (pagina >= PaginaCheSpegneAvanti) {
            if (pagina + 1 < schede.pageCount())
                m_pagine.SelezionaTab(short(pagina + 1));
            internav.setButtonEnabled(controls::NavigatorKey::Forward, false);
        } else {
            internav.setButtonEnabled(controls::NavigatorKey::Back, true);
            m_pagine.SelezionaTab(short(pagina + 1));
        }
    } else if (chiave == controls::NavigatorKey::Back) {
        if (pagina == 1) {
            m_pagine.SelezionaTab(0);
            internav.setButtonEnabled(controls::NavigatorKey::Back, false);
        } else if (pagina > 1) {
            internav.setButtonEnabled(controls::NavigatorKey::Forward, true);
            m_pagine.SelezionaTab(short(pagina - 1));
        }
    } else if (chiave == controls::NavigatorKey::Print) {
        InvocaStampa(m_ambiente, m_controlli.TXT_AGENTE);
    } else if (chiave == controls::NavigatorKey::Export) {
        Esporta();
    }
}

void NavigazioneAgenti::Esporta()
{
    frame::GestAnagrafica& agenti = richiesto(m_agente.data(), "FME_GestAnagrafica1");
    if (!agenti.confirmPendingChanges({.check = true, .show = true, .ask = true}))
        return;
    const QString testo = m_controlli.TXT_AGENTE.text();
    db::Value valore;
    if (richiesto(m_ambiente.ActiveClass(), "ActiveClass").CalledById()) {
        const QString codice = RTrimN(NvlN(testo, QString())).toString();
        valore = IdAgenteDaCodice(m_ambiente.connessione(), m_ambiente.Codice_Ditta(), codice);
    } else {
        valore = RTrimN(testo);
    }
    m_ambiente.modulo().TransferData(db::ValueList{valore});
    m_ambiente.finestra().unload();
}

void NavigazioneAgenti::INTERNAV_AfterAction(bool riuscita, const QString& chiave)
{
    if (!riuscita || chiave != controls::NavigatorKey::New)
        return;
    if (m_controlli.TAB_AGENTI.currentPage() != 0)
        m_pagine.SelezionaTab(0);
    m_controlli.TXT_AGENTE.setFocus();
}

} // namespace tarvello::agenti
