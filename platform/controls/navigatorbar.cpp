#include "platform/controls/navigatorbar.h"

namespace tarvello::controls {

NavigatorBar::NavigatorBar(const QString& name, Form* form)
    : Navigator(name, form,
                {NavigatorKey::First, NavigatorKey::Previous, NavigatorKey::Next,
                 NavigatorKey::Last, NavigatorKey::New, NavigatorKey::Back, NavigatorKey::Forward,
                 NavigatorKey::Print})
{}

void NavigatorBar::setCalledMode(bool called)
{
    if (m_calledMode == called)
        return;
    m_calledMode = called;
    Q_EMIT calledModeChanged(called);
}

} // namespace tarvello::controls
