#pragma once

#include "platform/db/value.h"
#include "src/host/navigator.h"

#include <QList>
#include <QObject>
#include <QPointer>
#include <memory>
#include <optional>
#include <vector>

namespace tarvello::controls {
class Form;
class TreeGrid;
} // namespace tarvello::controls

namespace tarvello::host {
class Cinterface;
}

namespace tarvello::frame {

class GestAnagrafica;

// Keeps a screen's tree with the record its master frame shows: whatever way the record on
// view changed (a search, a delete, an undo, a refused click, a company change, a record
// handed back), the tree's current row is that record, found by the tree's key column, or
// none while no existing record is shown. The screen's own moves through the tree are left
// alone: a walk past the tree's last row stays there while the record does not change.
//
// It also hears the host's company change and asks the tree for the new company's rows.
class RecordTree final : public QObject, public host::NavigatorEvents {
    Q_OBJECT
public:
    RecordTree(GestAnagrafica& frame, controls::TreeGrid& tree, host::Navigator& navigator);
    ~RecordTree() override;

    // One for each tree of the module's form, following the master frame the module works
    // with (its ActiveFrame) and hearing the module's navigator.
    static std::vector<std::unique_ptr<RecordTree>> link(controls::Form& form,
                                                         host::Cinterface& module);

    void ChangeDitta(qint32 company) override;

private:
    // force: even when the record on view is the one followed last.
    void follow(bool force);
    void followAfterClick();

    QPointer<GestAnagrafica> m_frame;    // Not owned.
    QPointer<controls::TreeGrid> m_tree; // Not owned.
    QPointer<controls::Form> m_form;     // Not owned.
    host::Navigator& m_navigator;        // Not owned.
    std::optional<db::Value> m_followed; // the key of the record followed last
    bool m_pending = false;
};

} // namespace tarvello::frame
