#include "platform/gui/panelview.h"

#include "platform/controls/panel.h"

#include <QGroupBox>

namespace tarvello::gui {

PanelView::PanelView(controls::Panel& panel, QGroupBox& box)
    : ControlView(panel, box)
{
    if (!panel.caption().isEmpty())
        box.setTitle(panel.caption());
    connect(&panel, &controls::Panel::captionChanged, &box, &QGroupBox::setTitle);
}

} // namespace tarvello::gui
