#pragma once

#include <QList>
#include <QMetaObject>
#include <QString>
#include <functional>

namespace tarvello::db {
class Recordset;
}

namespace tarvello::agenti {

class FRMMG_AGENTI;

// The walk from agent to agent: the host toolbar's moves over the tree recordset, and the
// screen's inner navigator INTERNAV (pages, printouts, hand-back to a calling program, new).
//
// A move only moves the tree recordset and asks the tree to select its current row; the
// tree's click then shows that agent. So the walk follows the tree recordset's order (the
// agent codes), and a move past either end leaves the agent on view where it is.
class NavigazioneAgenti {
public:
    explicit NavigazioneAgenti(FRMMG_AGENTI& schermata);
    ~NavigazioneAgenti();
    NavigazioneAgenti(const NavigazioneAgenti&) = delete;
    NavigazioneAgenti& operator=(const NavigazioneAgenti&) = delete;

    // Connects the handlers of INTERNAV and of the tree; the load calls it.
    void collega();

    void PrimoAgente();
    // The branch buttons are taken from the host, and nothing moves.
    void PrecedenteRamoAgente();
    void PreviousAgente();
    void NextAgente();
    void ProssimoRamoAgente();
    void UltimoAgente();

    void INTERNAV_ButtonClick(const QString& chiave);
    void INTERNAV_AfterAction(bool riuscita, const QString& chiave);

private:
    using Condizione = bool (db::Recordset::*)() const;
    using Spostamento = void (db::Recordset::*)();
    // Unless the tree recordset stands where the guard says, moves it and shows its row.
    void sposta(Condizione fermo, Spostamento spostamento);
    void Esporta();
    void scollega();

    FRMMG_AGENTI& m_schermata; // Not owned: the screen owns this.
    QList<QMetaObject::Connection> m_collegamenti;
};

} // namespace tarvello::agenti
