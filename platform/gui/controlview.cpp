#include "platform/gui/controlview.h"

#include "platform/controls/datacontrol.h"
#include "platform/controls/keycodes.h"
#include "platform/gui/keytranslation.h"

#include <QEvent>
#include <QKeyEvent>
#include <QStyle>

namespace tarvello::gui {

namespace {

// Dynamic properties the form's style sheet dresses: a required field is tinted, a field
// holding a value found wrong gets a red border.
constexpr char requiredProperty[] = "tarvelloRequired";
constexpr char invalidProperty[] = "tarvelloInvalid";

} // namespace

ControlView::ControlView(controls::Control& control, QWidget& widget)
    : QObject(&widget)
    , m_control(&control)
    , m_widget(&widget)
{
    using controls::Control;
    const auto showEnabled = [this](bool enabled) { m_widget->setEnabled(enabled); };
    const auto showVisible = [this](bool visible) { m_widget->setHidden(!visible); };
    showEnabled(control.isEnabled());
    showVisible(control.isVisible());
    connect(&control, &Control::enabledChanged, this, showEnabled);
    connect(&control, &Control::visibleChanged, this, showVisible);
    connect(&control, &Control::toolTipChanged, this, &ControlView::showToolTip);
    if (auto* data = qobject_cast<controls::DataControl*>(&control)) {
        connect(data, &controls::DataControl::requiredChanged, this, &ControlView::showDataState);
        connect(data, &controls::DataControl::validChanged, this, &ControlView::showDataState);
        showDataState();
    }
    showToolTip();
    watchKeys(widget);
}

ControlView::~ControlView() = default;

void ControlView::setStyleFlag(QWidget& widget, const char* name, bool on)
{
    if (widget.property(name).toBool() == on)
        return;
    widget.setProperty(name, on);
    widget.style()->unpolish(&widget);
    widget.style()->polish(&widget);
}

void ControlView::watchKeys(QWidget& widget)
{
    widget.installEventFilter(this);
}

bool ControlView::keyIsModels(int keyCode, int shift) const
{
    Q_UNUSED(shift);
    return keyCode == controls::Key::Tab || keyCode == controls::Key::Enter;
}

QString ControlView::toolTipText() const
{
    const QString own = m_control ? m_control->toolTip() : QString();
    const auto* data = model<controls::DataControl>();
    if (!data || data->isValid())
        return own;
    const QString reason = data->invalidReason();
    const QString invalid =
        reason.isEmpty() ? tr("Valore non valido") : tr("Valore non valido: %1").arg(reason);
    return own.isEmpty() ? invalid : invalid + u'\n' + own;
}

QString ControlView::keyHint(int modelKeyCode, const QString& action)
{
    return QStringLiteral("%1: %2").arg(
        functionKey(modelKeyCode).toString(QKeySequence::NativeText), action);
}

QString ControlView::withKeyHints(const QString& text, const QStringList& hints)
{
    QStringList lines = hints;
    if (!text.isEmpty())
        lines.prepend(text);
    return lines.join(u'\n');
}

void ControlView::showToolTip()
{
    if (m_widget)
        m_widget->setToolTip(toolTipText());
}

void ControlView::showDataState()
{
    const auto* data = model<controls::DataControl>();
    if (!data || !m_widget)
        return;
    setStyleFlag(*m_widget, requiredProperty, data->isRequired());
    setStyleFlag(*m_widget, invalidProperty, holdsWrongValue());
    showToolTip();
}

bool ControlView::holdsWrongValue() const
{
    const auto* data = model<controls::DataControl>();
    return data && !data->isValid();
}

bool ControlView::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() != QEvent::KeyPress || !m_control)
        return QObject::eventFilter(watched, event);
    const auto& key = static_cast<const QKeyEvent&>(*event);
    const int code = modelKeyCode(key);
    if (code == controls::Key::None)
        return false;
    const int shift = modelShift(key);
    // The model's handlers may swallow the key; otherwise its default action runs (Tab and
    // Enter move the focus through the focus manager).
    const int left = m_control->pressKey(code, shift);
    return left == controls::Key::None || keyIsModels(left, shift) || actOnKey(left, shift);
}

} // namespace tarvello::gui
