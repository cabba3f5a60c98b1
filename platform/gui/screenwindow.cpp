#include "platform/gui/screenwindow.h"

#include "platform/controls/connectionpool.h"
#include "platform/controls/control.h"
#include "platform/controls/form.h"
#include "platform/controls/handlererrors.h"
#include "platform/db/connection.h"
#include "platform/frame/gestanagrafica.h"
#include "platform/frame/recordtree.h"
#include "platform/gui/formbinder.h"
#include "platform/gui/formview.h"
#include "platform/gui/recordcaption.h"
#include "platform/gui/rowsview.h"
#include "platform/gui/treegridview.h"
#include "platform/gui/windowmemory.h"
#include "src/host/calledmodule.h"
#include "src/host/cinterface.h"

#include <QAbstractItemView>
#include <QCloseEvent>
#include <QLineEdit>
#include <QShortcut>
#include <QSplitter>
#include <QTimer>
#include <QTreeView>

namespace tarvello::gui {

ScreenWindow::ScreenWindow(host::CalledModule& module, controls::Form& form, QWidget* content,
                           controls::LookupPresenter* lookups,
                           std::unique_ptr<controls::HandlerErrors> errors)
    : m_module(module)
    , m_form(&form)
    , m_view(FormBinder::bind(form, *content))
    , m_caption(
          new RecordCaption(*this, form, *m_view,
                            qobject_cast<frame::GestAnagrafica*>(module.contract().ActiveFrame())))
{
    setAttribute(Qt::WA_DeleteOnClose);
    setWidget(content);
    addFilterShortcuts(*content);
    recall();
    // Closing from inside the form's own unload would delete the window under its caller.
    connect(&form, &controls::Form::unloaded, this, [this] {
        if (!m_closing)
            QTimer::singleShot(0, this, &QWidget::close);
    });
    if (!form.lookupPresenter() && lookups) {
        m_lookups = lookups;
        form.setLookupPresenter(lookups);
    }
    if (!form.connectionSource() && module.contract().Connection()) {
        m_connections = std::make_unique<controls::ConnectionPool>();
        m_connections->add(*module.contract().Connection());
        form.setConnectionSource(m_connections.get());
    }
    if (!form.handlerErrors() && errors) {
        m_errors = std::move(errors);
        form.setHandlerErrors(m_errors.get());
    }
    m_trees = frame::RecordTree::link(form, module.contract());
}

void ScreenWindow::addFilterShortcuts(QWidget& content)
{
    for (controls::Control* control : m_form->controls()) {
        auto* tree = qobject_cast<TreeGridView*>(m_view->viewOf(control));
        QLineEdit* box = tree ? tree->filterBox() : nullptr;
        if (!box)
            continue;
        auto* shortcut = new QShortcut(TreeGridView::filterKey(), &content);
        shortcut->setContext(Qt::WidgetWithChildrenShortcut);
        connect(shortcut, &QShortcut::activated, box, [box] {
            box->setFocus(Qt::ShortcutFocusReason);
            box->selectAll();
        });
    }
}

void ScreenWindow::recall()
{
    const WindowMemory memory(m_form->name());
    for (QSplitter* splitter : widget()->findChildren<QSplitter*>())
        splitter->restoreState(memory.splitter(splitter->objectName()));
    for (controls::Control* control : m_form->controls()) {
        if (auto* rows = qobject_cast<RowsView*>(m_view->viewOf(control)))
            rows->setColumnWidths(memory.columnWidths(control->name()));
    }
}

void ScreenWindow::remember() const
{
    if (!m_form)
        return;
    const WindowMemory memory(m_form->name());
    // A maximized window keeps the place it had before for when it is restored.
    memory.setMaximized(isMaximized());
    if (!isMaximized())
        memory.setGeometry(geometry());
    for (const QSplitter* splitter : widget()->findChildren<QSplitter*>())
        memory.setSplitter(splitter->objectName(), splitter->saveState());
    for (controls::Control* control : m_form->controls()) {
        if (const auto* rows = qobject_cast<RowsView*>(m_view->viewOf(control)))
            memory.setColumnWidths(control->name(), rows->columnWidths());
    }
}

QAbstractItemView* ScreenWindow::gridOnView() const
{
    QAbstractItemView* table = nullptr;
    QAbstractItemView* tree = nullptr;
    for (controls::Control* control : m_form ? m_form->controls() : QList<controls::Control*>()) {
        auto* rows = qobject_cast<RowsView*>(m_view->viewOf(control));
        auto* shown = rows ? qobject_cast<QAbstractItemView*>(rows->widget()) : nullptr;
        if (!shown || !shown->isVisible())
            continue;
        if (shown->hasFocus())
            return shown;
        QAbstractItemView*& first = qobject_cast<QTreeView*>(shown) ? tree : table;
        if (!first)
            first = shown;
    }
    return table ? table : tree;
}

void ScreenWindow::place(const QSize& designed)
{
    const QWidget* area = parentWidget();
    const QRect room = area ? area->rect() : QRect(QPoint(), designed);
    const QSize framed = designed + size() - widget()->size();
    std::optional<QRect> kept;
    std::optional<bool> keptMaximized;
    if (m_form) {
        const WindowMemory memory(m_form->name());
        kept = memory.geometry();
        keptMaximized = memory.maximized();
    }
    QRect placed = kept.value_or(QRect(QPoint(), framed).intersected(room));
    placed.setSize(placed.size().boundedTo(room.size()));
    if (!room.contains(placed))
        placed.moveTopLeft(room.topLeft());
    setGeometry(placed);
    // A screen the area cannot hold as designed gets the whole area, and with it the room its
    // title bar and frame would take, unless the person left it otherwise.
    const bool cramped = framed.width() > room.width() || framed.height() > room.height();
    if (keptMaximized.value_or(cramped))
        showMaximized();
}

ScreenWindow::~ScreenWindow()
{
    if (!m_form)
        return;
    if (m_connections && m_form->connectionSource() == m_connections.get())
        m_form->setConnectionSource(nullptr);
    if (m_lookups && m_form->lookupPresenter() == m_lookups)
        m_form->setLookupPresenter(nullptr);
    if (m_errors && m_form->handlerErrors() == m_errors.get())
        m_form->setHandlerErrors(nullptr);
}

controls::Form* ScreenWindow::formOf(host::CalledModule& module)
{
    return controls::formOf(module.contract().ActiveFrame());
}

void ScreenWindow::closeEvent(QCloseEvent* event)
{
    if (m_form && m_form->isLoaded()) {
        remember();
        m_closing = true;
        const bool unloaded = m_form->requestClose(controls::CloseMode::User);
        m_closing = false;
        if (!unloaded) {
            event->ignore();
            return;
        }
    }
    QMdiSubWindow::closeEvent(event);
}

} // namespace tarvello::gui
