#pragma once

#include "src/screen/controlliagenti.h"

#include <QList>
#include <QMetaObject>
#include <QPointer>
#include <QString>
#include <functional>

namespace tarvello::db {
class Recordset;
}

namespace tarvello::frame {
class GestAnagrafica;
}

namespace tarvello::agenti {

class AlberoAgenti;
class AmbienteAgenti;
class PagineAgenti;

// The walk from agent to agent: the host toolbar's moves over the tree recordset, and the
// screen's inner navigator INTERNAV (pages, printouts, hand-back to a calling program, new).
//
// A move only moves the tree recordset and asks the tree to select its current row; the
// tree's click then shows that agent. So the walk follows the tree recordset's order (the
// agent codes), and a move past either end leaves the agent on view where it is.
class NavigazioneAgenti {
public:
    NavigazioneAgenti(const ControlliNavigazione& controlli,
                      const QPointer<frame::GestAnagrafica>& agente, AlberoAgenti& albero,
                      PagineAgenti& pagine, const AmbienteAgenti& ambiente);
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

    const ControlliNavigazione m_controlli;
    // Not owned: the screen's place of the agents frame.
    const QPointer<frame::GestAnagrafica>& m_agente;
    AlberoAgenti& m_albero;           // Not owned: a sibling part, made before this one.
    PagineAgenti& m_pagine;           // Not owned: the screen's.
    const AmbienteAgenti& m_ambiente; // Not owned: the screen's.
    QList<QMetaObject::Connection> m_collegamenti;
};

} // namespace tarvello::agenti
