#include "platform/gui/navigatorview.h"

#include "platform/controls/navigator.h"
#include "platform/gui/navigatoricons.h"

#include <QHBoxLayout>
#include <QToolButton>

namespace tarvello::gui {

namespace {

constexpr char keyProperty[] = "tarvelloKey";

} // namespace

NavigatorView::NavigatorView(controls::Navigator& navigator, QWidget& bar)
    : ControlView(navigator, bar)
    , m_bar(bar)
{
    using controls::Navigator;
    if (!bar.layout()) {
        auto* layout = new QHBoxLayout(&bar);
        layout->setContentsMargins(0, 0, 0, 0);
        layout->setSpacing(1);
    }
    showButtons();
    connect(&navigator, &Navigator::buttonsChanged, this, &NavigatorView::showButtons);
    connect(&navigator, &Navigator::newRowAllowedChanged, this, &NavigatorView::showAvailability);
    connect(&navigator, &Navigator::enabledChanged, this, &NavigatorView::showAvailability);
    connect(&navigator, &Navigator::afterButton, this, &NavigatorView::showAvailability);
}

QToolButton* NavigatorView::buttonFor(const QString& key) const
{
    for (QToolButton* tool : m_tools) {
        if (tool->property(keyProperty).toString() == key)
            return tool;
    }
    return nullptr;
}

void NavigatorView::showButtons()
{
    const auto* navigator = model<controls::Navigator>();
    if (!navigator)
        return;
    auto* layout = qobject_cast<QBoxLayout*>(m_bar.layout());
    while (layout && layout->count() > 0)
        delete layout->takeAt(0);
    qDeleteAll(m_tools);
    m_tools.clear();
    for (const controls::Navigator::Button& button : navigator->buttons()) {
        if (!button.visible)
            continue;
        auto* tool = new QToolButton(&m_bar);
        tool->setProperty(keyProperty, button.key);
        tool->setFocusPolicy(Qt::NoFocus);
        tool->setAutoRaise(true);
        const QString caption = button.caption.isEmpty() ? button.key : button.caption;
        const QIcon icon = navigatorIcon(button.key, *m_bar.style());
        if (icon.isNull()) {
            tool->setText(caption);
        } else {
            tool->setIcon(icon);
            tool->setToolTip(QString(caption).remove(u'&'));
        }
        connect(tool, &QToolButton::clicked, this, [this, key = button.key] {
            if (auto* model = this->model<controls::Navigator>())
                model->press(key);
        });
        if (layout)
            layout->addWidget(tool);
        m_tools << tool;
    }
    if (layout)
        layout->addStretch();
    showAvailability();
}

void NavigatorView::showAvailability()
{
    const auto* navigator = model<controls::Navigator>();
    if (!navigator)
        return;
    for (QToolButton* tool : m_tools)
        tool->setEnabled(navigator->isAvailable(tool->property(keyProperty).toString()));
}

} // namespace tarvello::gui
