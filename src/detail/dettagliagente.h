#pragma once

#include <QString>

namespace tarvello::agenti {

class FRMMG_AGENTI;

// The four details of the agent on view (partners, maturation days, van-sales data, route
// detail), each a record frame of the screen over a recordset the screen keeps open: how
// they follow the agent frame, and the answers to their frames', navigators' and grids'
// events.
class DettagliAgente {
public:
    explicit DettagliAgente(FRMMG_AGENTI& schermata);
    ~DettagliAgente();
    DettagliAgente(const DettagliAgente&) = delete;
    DettagliAgente& operator=(const DettagliAgente&) = delete;

    // Connects the handlers of the detail frames, navigators and grids; the load calls it
    // once the frames exist.
    void collega();

    // Loads the four details for the agent on view.
    void ShowChild();
    // Empties the four details.
    void ClearChild();
    // Gives the rows held the current agent's id and each frame its query for that agent.
    void RefreshChild();

    // A new partner row may be added; the setter also tells the partners' navigator.
    bool SociAggiungibili() const { return m_sociAggiungibili; }
    void setSociAggiungibili(bool aggiungibili);
    // The code of the route whose detail is on view, right-trimmed; empty when none.
    const QString& GiroCorrente() const { return m_giroCorrente; }

private:
    FRMMG_AGENTI& m_schermata; // Not owned: the screen owns this.
    bool m_sociAggiungibili = false;
    QString m_giroCorrente;
};

} // namespace tarvello::agenti
