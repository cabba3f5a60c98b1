#pragma once

#include "platform/db/recordset.h"

#include <QString>

namespace tarvello::agenti {

class FRMMG_AGENTI;

// The agents tree of the screen: the hierarchy table #TAB_TREEVIEW of the screen's
// connection, one row per agent of the company with a general-registry entry, and the tree
// recordset read from it (Grst_AlberoAgenti), which GRD_AGENTI shows and the toolbar walks.
class AlberoAgenti {
public:
    explicit AlberoAgenti(FRMMG_AGENTI& schermata);

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
    FRMMG_AGENTI& m_schermata; // Not owned: the screen owns this.
    db::RecordsetPtr m_albero;
};

} // namespace tarvello::agenti
