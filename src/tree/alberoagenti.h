#pragma once

#include "platform/db/recordset.h"
#include "src/screen/controlliagenti.h"

#include <QPointer>
#include <QString>

namespace tarvello::frame {
class GestAnagrafica;
}

namespace tarvello::agenti {

class AmbienteAgenti;
class DettagliAgente;

// The agents tree of the screen: the hierarchy table #TAB_TREEVIEW of the screen's
// connection, one row per agent of the company with a general-registry entry, and the tree
// recordset read from it (Grst_AlberoAgenti), which GRD_AGENTI shows and the toolbar walks.
class AlberoAgenti {
public:
    AlberoAgenti(const ControlliAlbero& controlli, const QPointer<frame::GestAnagrafica>& agente,
                 DettagliAgente& dettagli, const AmbienteAgenti& ambiente);

    // The tree's columns, once.
    void INIT_GRD_AGENTI();
    // Drops and builds #TAB_TREEVIEW again; a statement that fails is passed over.
    void CaricaTabTreeview();
    // Reads the tree recordset again from #TAB_TREEVIEW and shows it in the grid.
    void CaricaAlberoAgenti();

    db::RecordsetPtr Grst_AlberoAgenti() const { return m_albero; }
    // A click on the tree: the agent frame shows the agent of the tree's current row, taken
    // from the frame's rows when it has it, else looked up by its code.
    void GRD_AGENTI_Click();
    // The host asks the tree for its rows again (it changed company): the table and the
    // recordset are rebuilt as at every rebuild.
    void GRD_AGENTI_Refresh();
    void IMG_ESPANDI_Click();
    void IMG_COMPRIMI_Click();
    // Rebuilds the tree after a save and brings its current row onto the agent on view.
    void AggiornaAlberoAgente();
    // Brings the tree's current row onto the agent with that code, looking from the first row.
    void posizionaSuAgente(const QString& codice);
    // The grid lets go of the recordset, and the screen of both.
    void rilascia();

private:
    const ControlliAlbero m_controlli;
    // Not owned: the screen's place of the agents frame.
    const QPointer<frame::GestAnagrafica>& m_agente;
    DettagliAgente& m_dettagli;       // Not owned: a sibling part, made before this one.
    const AmbienteAgenti& m_ambiente; // Not owned: the screen's.
    db::RecordsetPtr m_albero;
};

} // namespace tarvello::agenti
