#include "platform/controls/panel.h"

namespace tarvello::controls {

Panel::Panel(const QString& name, Form* form)
    : Control(name, form)
{
    setTabStop(false);
}

} // namespace tarvello::controls
