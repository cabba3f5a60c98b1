#include "platform/controls/gridnavigator.h"

#include "platform/controls/grid.h"
#include "platform/db/runtimeerror.h"

namespace tarvello::controls {

GridNavigator::GridNavigator(const QString& name, Form* form)
    : Navigator(name, form,
                {NavigatorKey::New, NavigatorKey::Confirm, NavigatorKey::Cancel,
                 NavigatorKey::Delete, NavigatorKey::First, NavigatorKey::Previous,
                 NavigatorKey::Next, NavigatorKey::Last, NavigatorKey::Open, NavigatorKey::Back,
                 NavigatorKey::Forward})
{}

void GridNavigator::setGrid(Grid* grid)
{
    if (m_grid == grid)
        return;
    m_grid = grid;
    Q_EMIT gridChanged(grid);
}

std::optional<bool> GridNavigator::ownAction(const QString& key)
{
    const db::RecordsetPtr rows = m_grid ? m_grid->dataSource() : nullptr;
    if (!rows || !rows->isOpen())
        return std::nullopt;
    try {
        if (key == NavigatorKey::First) {
            rows->moveFirst();
        } else if (key == NavigatorKey::Last) {
            rows->moveLast();
        } else if (key == NavigatorKey::Previous) {
            if (!rows->bof())
                rows->movePrevious();
            if (rows->bof() && rows->recordCount() > 0)
                rows->moveFirst();
        } else if (key == NavigatorKey::Next) {
            if (!rows->eof())
                rows->moveNext();
            if (rows->eof() && rows->recordCount() > 0)
                rows->moveLast();
        } else {
            return std::nullopt;
        }
    } catch (const db::RuntimeError&) {
        return false;
    }
    return true;
}

} // namespace tarvello::controls
