#include "platform/gui/labelview.h"

#include "platform/controls/label.h"

#include <QLabel>

namespace tarvello::gui {

LabelView::LabelView(controls::Label& label, QLabel& widget)
    : ControlView(label, widget)
{
    widget.setText(label.caption());
    connect(&label, &controls::Label::captionChanged, &widget, &QLabel::setText);
}

} // namespace tarvello::gui
