#include "src/tree/alberoagenti.h"

#include "platform/controls/treegrid.h"
#include "platform/db/connection.h"
#include "src/common/errorstyles.h"
#include "src/data/sqlagenti.h"
#include "src/host/globalcontext.h"
#include "src/screen/frmmg_agenti.h"

namespace tarvello::agenti {

namespace {

// The image list whose pictures, keyed by agent type, mark the rows of the tree.
const QString ImmaginiTipoAgente = QStringLiteral("IMG_ICONETREE");

controls::TreeGrid& grigliaAlbero(const FRMMG_AGENTI& schermata)
{
    return schermata.controllo<controls::TreeGrid>(u"GRD_AGENTI");
}

} // namespace

AlberoAgenti::AlberoAgenti(FRMMG_AGENTI& schermata)
    : m_schermata(schermata)
{}

void AlberoAgenti::INIT_GRD_AGENTI()
{
    controls::TreeGrid& albero = grigliaAlbero(m_schermata);
    reportWithChoice(
        m_schermata.errori(), QStringLiteral("INIT_GRD_AGENTI"),
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
        [&] { m_schermata.connessione().executeNonQuery(sql::eliminaTabTreeview()); },
        [&] {
            const qint32 ditta = m_schermata.globale().company().code;
            m_schermata.connessione().executeNonQuery(sql::caricaTabTreeview(ditta));
        },
    });
}

void AlberoAgenti::CaricaAlberoAgenti()
{
    if (m_albero)
        m_albero->close();
    m_albero.reset();
    m_albero = db::Recordset::open(m_schermata.connessione(), sql::alberoAgenti());
    controls::TreeGrid& albero = grigliaAlbero(m_schermata);
    albero.setDataSource(nullptr);
    albero.setDataSource(m_albero);
}

void AlberoAgenti::GRD_AGENTI_Click() {}

void AlberoAgenti::AggiornaAlberoAgente() {}

void AlberoAgenti::posizionaSuAgente(const QString& codice)
{
    if (!m_albero)
        return;
    m_albero->moveFirst();
    m_albero->find(sql::criterioAgente(codice));
}

void AlberoAgenti::rilascia()
{
    grigliaAlbero(m_schermata).setDataSource(nullptr);
    if (m_albero)
        m_albero->close();
    m_albero.reset();
}

} // namespace tarvello::agenti
