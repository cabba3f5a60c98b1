#pragma once

#include "platform/controls/grid.h"
#include "platform/controls/navigator.h"

#include <QPointer>

namespace tarvello::controls {

// The navigator under a detail grid: "Nuovo", "Conferma", "Annulla", "Elimina", the moves
// "Primo", "Precedente", "Successivo", "Ultimo", and "Apri", "Indietro", "Avanti".
// A move its target leaves alone moves the grid's recordset.
class GridNavigator : public Navigator {
    Q_OBJECT
public:
    GridNavigator(const QString& name, Form* form);

    Grid* grid() const { return m_grid; }
    // Not owned; nullptr clears the reference.
    void setGrid(Grid* grid);

Q_SIGNALS:
    void gridChanged(tarvello::controls::Grid* grid);

protected:
    std::optional<bool> ownAction(const QString& key) override;

private:
    QPointer<Grid> m_grid; // Not owned.
};

} // namespace tarvello::controls
