#include "src/detail/ordinegiro.h"

#include "platform/controls/button.h"
#include "platform/controls/grid.h"
#include "platform/controls/navigator.h"
#include "platform/db/connection.h"
#include "platform/frame/gestanagrafica.h"
#include "src/common/errorstyles.h"

#include <QList>
#include <utility>

namespace tarvello::agenti {

namespace {

const QString Posizione = QStringLiteral("MG1I_PROGRESSIVO");

using Campi = QList<std::pair<QString, db::Value>>;

// The database numbers its rows itself (the identity) and computes ID: neither can be
// written, so each stays with its row.
QString identita(const db::Recordset& righe)
{
    db::Connection* connessione = righe.activeConnection();
    return connessione && !righe.baseTable().isEmpty()
               ? connessione->tableInfo(righe.baseTable()).identityColumn()
               : QString();
}

Campi copiaCampi(const db::Recordset& righe)
{
    const QString colonnaIdentita = identita(righe);
    Campi campi;
    campi.reserve(righe.fieldCount());
    for (int i = 0; i < righe.fieldCount(); ++i) {
        const db::Column& campo = righe.field(i);
        if (!campo.baseColumn.isEmpty() &&
            campo.baseColumn.compare(colonnaIdentita, Qt::CaseInsensitive) != 0)
            campi.append({campo.name, righe.value(i)});
    }
    return campi;
}

// A field that cannot be written keeps its value; the others are still exchanged.
void scriviCampi(db::Recordset& righe, const Campi& campi)
{
    for (const auto& [nome, valore] : campi) {
        if (nome != Posizione)
            ignoreEachStep({[&] { righe.setValue(nome, valore); }});
    }
}

} // namespace

OrdineGiro::OrdineGiro(const ControlliOrdineGiro& controlli,
                       const QPointer<frame::GestAnagrafica>& dettaglio)
    : m_controlli(controlli)
    , m_dettaglio(dettaglio)
{}

void OrdineGiro::collega()
{
    QObject::connect(&m_controlli.CMD_UP, &controls::Button::clicked, &m_contesto,
                     [this] { CMD_UP_ButtonClick(); });
    QObject::connect(&m_controlli.CMD_DOWN, &controls::Button::clicked, &m_contesto,
                     [this] { CMD_DOWN_ButtonClick(); });
}

void OrdineGiro::CMD_UP_ButtonClick()
{
    sposta(Verso::Su);
}

void OrdineGiro::CMD_DOWN_ButtonClick()
{
    sposta(Verso::Giu);
}

void OrdineGiro::sposta(Verso verso)
{
    db::RecordsetPtr righe;
    frame::GestAnagrafica* dettaglio = nullptr;
    db::Recordset::Bookmark selezionata{};
    Campi primo;
    Campi secondo;
    controls::Grid& griglia = m_controlli.GRD_DETTAGLIOGIRI;
    const bool su = verso == Verso::Su;
    ignoreEachStep({
        [&] {
            dettaglio = m_dettaglio.data();
            righe = dettaglio ? dettaglio->recordset() : nullptr;
            if (!righe || !dettaglio || righe->eof() || righe->bof())
                return Flow::Leave;
            return Flow::Next;
        },
        [&] {
            // A row being entered cannot move down.
            if (!su && dettaglio->status() == frame::FrameStatus::New)
                return Flow::Leave;
            const qsizetype ultima = su ? 1 : righe->recordCount();
            return righe->absolutePosition() == ultima ? Flow::Leave : Flow::Next;
        },
        [&] {
            // The row moves as it was settled: a new one once stored (an empty row left open
            // is no customer and stays), edits once confirmed, so that the checks of the
            // store judge this row and not the neighbour it is exchanged with.
            const bool nuova = dettaglio->status() == frame::FrameStatus::New;
            if (!nuova && !dettaglio->secondChangeFlag())
                return Flow::Next;
            if (!dettaglio->confirmPendingChanges({.check = true, .show = true}) ||
                dettaglio->status() == frame::FrameStatus::New)
                return Flow::Leave;
            return Flow::Next;
        },
        [&] { selezionata = righe->bookmark(); },
        [&] { primo = copiaCampi(*righe); },
        [&] { griglia.setDataSource(nullptr); },
        [&] { dettaglio->beginBulkRewrite(); },
        [&] {
            if (su)
                righe->movePrevious();
            else
                righe->moveNext();
        },
        [&] { secondo = copiaCampi(*righe); },
        [&] { scriviCampi(*righe, primo); },
        [&] { righe->setBookmark(selezionata); },
        [&] { scriviCampi(*righe, secondo); },
        [&] { dettaglio->endBulkRewrite(); },
        [&] { dettaglio->setFollowRowMoves(false); },
        [&] {
            if (su)
                dettaglio->movePrevious();
            else
                dettaglio->moveNext();
        },
        [&] { griglia.setDataSource(righe); },
        [&] { dettaglio->setFollowRowMoves(true); },
        [&] { dettaglio->setChangeFlag(true); },
        [&] { m_controlli.INTERNAV.setChangeIndicator(true); },
    });
}

} // namespace tarvello::agenti
