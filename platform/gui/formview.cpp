#include "platform/gui/formview.h"

#include "platform/controls/control.h"
#include "platform/controls/form.h"
#include "platform/gui/controlview.h"

#include <QApplication>
#include <QWidget>

namespace tarvello::gui {

namespace {

// Required fields are tinted, and their drop-down lists keep the usual colours; a selected
// row is white on a blue dark enough to read it (lists, grids, the tree); a field
// that cannot be typed into is not tinted, and its text stays readable; a wrong value has a
// red border; the key field in search entry is blue.
const QString formStyleSheet = QStringLiteral(
    "QLineEdit[tarvelloRequired=\"true\"], QComboBox[tarvelloRequired=\"true\"]"
    " { background-color: #fff1b8; color: #1a1a1a; }"
    "QLineEdit[tarvelloRequired=\"true\"]:disabled, QComboBox[tarvelloRequired=\"true\"]:disabled"
    " { background-color: palette(window); }"
    "QComboBox[tarvelloRequired=\"true\"] QAbstractItemView"
    " { background-color: palette(base); color: palette(text); }"
    "QAbstractItemView { selection-background-color: #1f5f99; selection-color: white; }"
    "QLineEdit:disabled, QComboBox:disabled { color: #505050; }"
    "QLineEdit[tarvelloInvalid=\"true\"], QComboBox[tarvelloInvalid=\"true\"]"
    " { border: 1px solid #c62828; border-radius: 2px; padding: 1px; }"
    "QCheckBox[tarvelloInvalid=\"true\"] { color: #c62828; }"
    "QLineEdit[tarvelloSearching=\"true\"]"
    " { background-color: #cfe2ff; border: 2px solid #2f6db5; border-radius: 2px; }");

} // namespace

FormView::FormView(controls::Form& form, QWidget& root)
    : QObject(&root)
    , m_form(&form)
    , m_root(&root)
{
    root.setStyleSheet(root.styleSheet() + formStyleSheet);
    if (!form.caption().isEmpty())
        root.setWindowTitle(form.caption());
    connect(&form, &controls::Form::captionChanged, &root, &QWidget::setWindowTitle);
    connect(&form.focus(), &controls::FocusManager::focusChanged, this, &FormView::showModelFocus);
    connect(&form, &controls::Form::busyChanged, this, &FormView::showBusy);
    connect(qApp, &QApplication::focusChanged, this,
            [this](QWidget*, QWidget* now) { takeWidgetFocus(now); });
}

FormView::~FormView()
{
    if (m_busyShown)
        QApplication::restoreOverrideCursor();
}

void FormView::showBusy(bool busy)
{
    if (busy == m_busyShown || !m_root)
        return;
    m_busyShown = busy;
    m_root->setUpdatesEnabled(!busy);
    if (busy)
        QApplication::setOverrideCursor(Qt::BusyCursor);
    else
        QApplication::restoreOverrideCursor();
}

void FormView::addView(ControlView& view)
{
    m_views.insert(view.control(), &view);
    m_controlOf.insert(view.widget(), view.control());
    if (view.focusTarget() != view.widget())
        m_controlOf.insert(view.focusTarget(), view.control());
}

ControlView* FormView::viewOf(const controls::Control* control) const
{
    return m_views.value(control);
}

QWidget* FormView::focusWidgetOf(const controls::Control* control) const
{
    const ControlView* view = viewOf(control);
    return view ? view->focusTarget() : nullptr;
}

controls::Control* FormView::controlAt(const QWidget* widget) const
{
    for (; widget && widget != m_root; widget = widget->parentWidget()) {
        if (const auto found = m_controlOf.constFind(widget); found != m_controlOf.constEnd())
            return *found;
    }
    return nullptr;
}

void FormView::takeWidgetFocus(QWidget* now)
{
    // While the model decides, its handlers may open dialogs whose closing hands the widget
    // focus around: only the model's answer counts.
    if (m_askingModel || !m_form || !now || !m_root || !m_root->isAncestorOf(now))
        return;
    controls::Control* control = controlAt(now);
    if (!control || control == m_form->focus().current())
        return;
    m_askingModel = true;
    const bool moved = m_form->focus().moveTo(control);
    m_askingModel = false;
    if (!moved)
        putWidgetFocus(m_form->focus().current());
}

void FormView::showModelFocus(controls::Control* previous, controls::Control* current)
{
    for (controls::Control* control : {previous, current}) {
        if (ControlView* view = viewOf(control))
            view->focusMoved(control == current);
    }
    // A move the person made with the mouse leaves the cursor where they clicked.
    if (m_askingModel)
        return;
    putWidgetFocus(current);
    if (ControlView* view = viewOf(current))
        view->selectContents();
}

void FormView::showFocus()
{
    if (m_form)
        putWidgetFocus(m_form->focus().current());
}

void FormView::putWidgetFocus(controls::Control* control)
{
    QWidget* widget = focusWidgetOf(control);
    if (widget && !widget->hasFocus())
        widget->setFocus(Qt::OtherFocusReason);
}

} // namespace tarvello::gui
