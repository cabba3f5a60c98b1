#include "src/tree/navigazioneagenti.h"

#include "platform/controls/field.h"
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
#include "src/screen/clsmg_agenti.h"
#include "src/screen/codiciagente.h"
#include "src/screen/frmmg_agenti.h"
#include "src/tree/alberoagenti.h"

namespace tarvello::agenti {

namespace {

// From this page on, "Avanti" shows the next page (when there is one) and switches itself off.
constexpr int PaginaCheSpegneAvanti = 3;

} // namespace

NavigazioneAgenti::NavigazioneAgenti(FRMMG_AGENTI& schermata)
    : m_schermata(schermata)
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
    auto& albero = m_schermata.controllo<controls::TreeGrid>(u"GRD_AGENTI");
    auto& internav = m_schermata.controllo<controls::NavigatorBar>(u"INTERNAV");
    auto& espandi = m_schermata.controllo<controls::Picture>(u"IMG_ESPANDI");
    auto& comprimi = m_schermata.controllo<controls::Picture>(u"IMG_COMPRIMI");
    m_collegamenti = {
        QObject::connect(&albero, &controls::Grid::clicked, &m_schermata,
                         [this] { m_schermata.albero().GRD_AGENTI_Click(); }),
        QObject::connect(&albero, &controls::Grid::refreshRequested, &m_schermata,
                         [this] { m_schermata.albero().GRD_AGENTI_Refresh(); }),
        QObject::connect(&espandi, &controls::Picture::clicked, &m_schermata,
                         [this] { m_schermata.albero().IMG_ESPANDI_Click(); }),
        QObject::connect(&comprimi, &controls::Picture::clicked, &m_schermata,
                         [this] { m_schermata.albero().IMG_COMPRIMI_Click(); }),
        QObject::connect(&internav, &controls::Navigator::buttonClicked, &m_schermata,
                         [this](const QString& chiave) { INTERNAV_ButtonClick(chiave); }),
        QObject::connect(&internav, &controls::Navigator::afterButton, &m_schermata,
                         [this](bool riuscita, const QString& chiave) {
                             INTERNAV_AfterAction(riuscita, chiave);
                         }),
    };
}

void NavigazioneAgenti::sposta(Condizione fermo, Spostamento spostamento)
{
    const db::RecordsetPtr albero = m_schermata.albero().Grst_AlberoAgenti();
    ignoreEachStep({
        [&] {
            return !albero || !albero->isOpen() || (*albero.*fermo)() ? Flow::Leave : Flow::Next;
        },
        [&] { (*albero.*spostamento)(); },
        [&] { m_schermata.controllo<controls::TreeGrid>(u"GRD_AGENTI").selectCurrentRow(); },
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
    auto& internav = m_schermata.controllo<controls::NavigatorBar>(u"INTERNAV");
    const auto& schede = m_schermata.controllo<controls::TabStrip>(u"TAB_AGENTI");
    const int pagina = schede.currentPage();
    if (chiave == controls::NavigatorKey::Forward) {
        if (pagina >= PaginaCheSpegneAvanti) {
            if (pagina + 1 < schede.pageCount())
                m_schermata.SelezionaTab(short(pagina + 1));
            internav.setButtonEnabled(controls::NavigatorKey::Forward, false);
        } else {
            internav.setButtonEnabled(controls::NavigatorKey::Back, true);
            m_schermata.SelezionaTab(short(pagina + 1));
        }
    } else if (chiave == controls::NavigatorKey::Back) {
        if (pagina == 1) {
            m_schermata.SelezionaTab(0);
            internav.setButtonEnabled(controls::NavigatorKey::Back, false);
        } else if (pagina > 1) {
            internav.setButtonEnabled(controls::NavigatorKey::Forward, true);
            m_schermata.SelezionaTab(short(pagina - 1));
        }
    } else if (chiave == controls::NavigatorKey::Print) {
        InvocaStampa(m_schermata.ambiente(), m_schermata.controllo<controls::Field>(u"TXT_AGENTE"));
    } else if (chiave == controls::NavigatorKey::Export) {
        Esporta();
    }
}

void NavigazioneAgenti::Esporta()
{
    frame::GestAnagrafica& agenti =
        richiesto(m_schermata.FME_GestAnagrafica(FRMMG_AGENTI::Agenti), "FME_GestAnagrafica1");
    if (!agenti.confirmPendingChanges({.check = true, .show = true, .ask = true}))
        return;
    const QString testo = m_schermata.controllo<controls::Field>(u"TXT_AGENTE").text();
    db::Value valore;
    if (richiesto(m_schermata.ActiveClass(), "ActiveClass").CalledById()) {
        const QString codice = RTrimN(NvlN(testo, QString())).toString();
        valore = IdAgenteDaCodice(m_schermata.connessione(), m_schermata.Codice_Ditta(), codice);
    } else {
        valore = RTrimN(testo);
    }
    m_schermata.modulo().TransferData(db::ValueList{valore});
    m_schermata.unload();
}

void NavigazioneAgenti::INTERNAV_AfterAction(bool riuscita, const QString& chiave)
{
    if (!riuscita || chiave != controls::NavigatorKey::New)
        return;
    if (m_schermata.controllo<controls::TabStrip>(u"TAB_AGENTI").currentPage() != 0)
        m_schermata.SelezionaTab(0);
    m_schermata.controllo<controls::Field>(u"TXT_AGENTE").setFocus();
}

} // namespace tarvello::agenti
