#pragma once

#include "platform/controls/navigator.h"

namespace tarvello::controls {

// The screen's own navigator bar: the moves "Primo", "Precedente", "Successivo", "Ultimo",
// then "Nuovo", "Indietro", "Avanti" and "Stampa" (which a screen relabels, as "Esporta"
// when another program opened it). Called mode tells the bar it serves a calling program.
class NavigatorBar : public Navigator {
    Q_OBJECT
public:
    NavigatorBar(const QString& name, Form* form);

    bool isCalledMode() const { return m_calledMode; }
    void setCalledMode(bool called);

Q_SIGNALS:
    void calledModeChanged(bool called);

private:
    bool m_calledMode = false;
};

} // namespace tarvello::controls
