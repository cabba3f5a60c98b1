#include "src/tree/alberoagenti.h"

#include "platform/controls/field.h"
#include "platform/controls/form.h"
#include "platform/controls/gridnavigator.h"
#include "platform/controls/treegrid.h"
#include "platform/db/connection.h"
#include "platform/frame/gestanagrafica.h"
#include "src/common/errorstyles.h"
#include "src/common/richiesto.h"
#include "src/common/valuehelpers.h"
#include "src/data/sqlagenti.h"
#include "src/detail/dettagliagente.h"
#include "src/host/globalcontext.h"
#include "src/screen/ambienteagenti.h"

namespace tarvello::agenti {

namespace {

// The image list whose pictures, keyed by agent type, mark the rows of the tree.
const QString ImmaginiTipoAgente = QStringLiteral("IMG_ICONETREE");

} // namespace

AlberoAgenti::AlberoAgenti(const ControlliAlbero& controlli,
                           const QPointer<frame::GestAnagrafica>& agente, DettagliAgente& dettagli,
                           const AmbienteAgenti& ambiente)
    : m_controlli(controlli)
    , m_agente(agente)
    , m_dettagli(dettagli)
    , m_ambiente(ambiente)
{}

void AlberoAgenti::INIT_GRD_AGENTI()
{
    controls::TreeGrid& albero = m_controlli.GRD_AGENTI;
    reportWithChoice(
        m_ambiente.errori(), QStringLiteral("INIT_GRD_AGENTI"),
        {
            [&] {
                albero.setTreeColumns(QStringLiteral("MG17_IDAGENTE"),
                                      QStringLiteral("MG17_IDAGERIF_MG17"));
            },
            [&] { albero.setFollowDataSource(true); },
            [&] { albero.clearColumns(); },
            [&] {
                albero.addColumn(QStringLiteral("MG17_IDAGENTE"), QStringLiteral("Chiave"), 500);
            },
            [&] {
                albero.addColumn(QStringLiteral("MG17_IDAGERIF_MG17"), QStringLiteral("Padre"),
                                 500);
            },
            [&] {
                albero.addColumn(QStringLiteral("MG17_AGENTE"), QStringLiteral("Codice Agente"),
                                 1000);
            },
            [&] { albero.addColumn(QStringLiteral("AGENTE"), QStringLiteral("Agente"), 7000); },
            [&] { albero.setOutlineColumn(QStringLiteral("AGENTE")); },
            [&] { albero.addColumn(QStringLiteral("MG17_INDTIPOAGE"), QStringLiteral(" "), 600); },
            [&] {
                albero.setColumnImageList(QStringLiteral("MG17_INDTIPOAGE"), ImmaginiTipoAgente);
            },
            [&] { albero.setKeyColumn(QStringLiteral("MG17_IDAGENTE")); },
        });
}

void AlberoAgenti::CaricaTabTreeview()
{
    ignoreEachStep({
        [&] { m_ambiente.connessione().executeNonQuery(sql::eliminaTabTreeview()); },
        [&] {
            const qint32 ditta = m_ambiente.Codice_Ditta();
            m_ambiente.connessione().executeNonQuery(sql::caricaTabTreeview(ditta));
        },
    });
}

void AlberoAgenti::CaricaAlberoAgenti()
{
    if (m_albero)
        m_albero->close();
    m_albero.reset();
    m_albero = db::Recordset::open(m_ambiente.connessione(), sql::alberoAgenti());
    controls::TreeGrid& albero = m_controlli.GRD_AGENTI;
    albero.setDataSource(nullptr);
    albero.setDataSource(m_albero);
}

void AlberoAgenti::GRD_AGENTI_Click()
{
    if (!m_albero || !m_albero->isOpen() || m_albero->bof() || m_albero->eof())
        return;
    const controls::Form::BusyScope attesa(m_ambiente.finestra());
    const QString codice = m_albero->value(u"MG17_AGENTE").toString();
    frame::GestAnagrafica& agenti = richiesto(m_agente.data(), "FME_GestAnagrafica1");

    // Held here: the frame's search may give the frame another recordset.
    const db::RecordsetPtr righe = agenti.recordset();
    const db::RecordsetPtr copia = richiesto(righe.get(), "Grst_GestAnagrafica1").clone();
    copia->setFilter(sql::criterioAgente(codice));
    if (copia->recordCount() == 1) {
        agenti.moveToBookmark(copia->bookmark());
    } else {
        agenti.setStatus(frame::FrameStatus::New);
        righe->setValue(u"MG17_AGENTE", codice);
        agenti.search(true, true);
    }

    const bool conAgente = !RTrimN(m_controlli.TXT_AGENTE.text()).toString().isEmpty();
    if (conAgente)
        m_dettagli.RefreshChild();
    m_controlli.GRIDNAV_AGENTISOCI.setEnabled(conAgente);
    m_controlli.GRIDNAV_AGENTIMAT.setEnabled(conAgente);
    m_controlli.GRD_AGENTI.setFocus();
}

void AlberoAgenti::GRD_AGENTI_Refresh()
{
    CaricaTabTreeview();
    CaricaAlberoAgenti();
}

void AlberoAgenti::IMG_ESPANDI_Click()
{
    m_controlli.GRD_AGENTI.expandAll();
}

void AlberoAgenti::IMG_COMPRIMI_Click()
{
    m_controlli.GRD_AGENTI.collapseAll();
}

void AlberoAgenti::AggiornaAlberoAgente()
{
    QString codice;
    ignoreEachStep({
        [&] { codice = m_controlli.TXT_AGENTE.text(); },
        [&] { CaricaTabTreeview(); },
        [&] { CaricaAlberoAgenti(); },
        [&] {
            if (!m_albero)
                return Flow::Leave;
            m_albero->moveFirst();
            return Flow::Next;
        },
        [&] { m_albero->find(sql::criterioAgente(codice)); },
    });
}

void AlberoAgenti::posizionaSuAgente(const QString& codice)
{
    if (!m_albero)
        return;
    m_albero->moveFirst();
    m_albero->find(sql::criterioAgente(codice));
}

void AlberoAgenti::rilascia()
{
    m_controlli.GRD_AGENTI.setDataSource(nullptr);
    if (m_albero)
        m_albero->close();
    m_albero.reset();
}

} // namespace tarvello::agenti
