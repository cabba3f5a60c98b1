#include "platform/frame/recordtree.h"

#include "platform/controls/form.h"
#include "platform/controls/treegrid.h"
#include "platform/db/recordset.h"
#include "platform/frame/gestanagrafica.h"
#include "src/host/cinterface.h"

namespace tarvello::frame {

RecordTree::RecordTree(GestAnagrafica& frame, controls::TreeGrid& tree, host::Navigator& navigator)
    : m_frame(&frame)
    , m_tree(&tree)
    , m_form(tree.form())
    , m_navigator(navigator)
{
    connect(&frame, &GestAnagrafica::stateChanged, this, [this] { follow(false); });
    connect(&tree, &controls::Grid::dataSourceChanged, this, [this] { follow(true); });
    connect(&tree, &controls::Grid::clicked, this, &RecordTree::followAfterClick);
    if (m_form) {
        connect(m_form, &controls::Form::busyChanged, this, [this](bool busy) {
            if (!busy && m_pending)
                follow(true);
        });
    }
    navigator.events().subscribe(this);
    follow(true);
}

RecordTree::~RecordTree()
{
    m_navigator.events().unsubscribe(this);
}

std::vector<std::unique_ptr<RecordTree>> RecordTree::link(controls::Form& form,
                                                          host::Cinterface& module)
{
    std::vector<std::unique_ptr<RecordTree>> links;
    auto* master = qobject_cast<GestAnagrafica*>(module.ActiveFrame());
    host::Navigator* navigator = module.ActiveNavigator();
    if (!master || master->writeMode() != GestAnagrafica::WriteMode::AtOnce || !navigator)
        return links;
    for (controls::Control* control : form.controls()) {
        if (auto* tree = qobject_cast<controls::TreeGrid*>(control))
            links.push_back(std::make_unique<RecordTree>(*master, *tree, *navigator));
    }
    return links;
}

void RecordTree::ChangeDitta(qint32 /*company*/)
{
    if (m_tree)
        m_tree->requestRefresh();
}

void RecordTree::follow(bool force)
{
    if (!m_frame || !m_tree)
        return;
    // The screen is in the middle of its own work (a tree click shows an agent): the record
    // on view is known when it is done.
    if (m_form && m_form->isBusy()) {
        m_pending = true;
        return;
    }
    m_pending = false;
    // A tree without a key the frame's rows have cannot tell which row is the record.
    const QString key = m_tree->keyColumn();
    const db::RecordsetPtr rows = m_frame->recordset();
    if (key.isEmpty() || !rows || !rows->isOpen() || !rows->hasField(key))
        return;
    const std::optional<db::Value> shown = m_frame->shownRowValue(key);
    if (!force && shown == m_followed)
        return;
    m_followed = shown;
    m_tree->showKey(shown);
}

void RecordTree::followAfterClick()
{
    // A click past either end does nothing, and the tree stays there; a click on a row the
    // record could not move to (its changes kept) goes back to the record shown.
    if (m_tree && m_tree->selectedRow() >= 0)
        follow(true);
}

} // namespace tarvello::frame
