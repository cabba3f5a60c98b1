#include "platform/gui/checkboxview.h"

#include "platform/controls/checkbox.h"

#include <QCheckBox>
#include <QSignalBlocker>

namespace tarvello::gui {

CheckBoxView::CheckBoxView(controls::CheckBox& box, QCheckBox& widget)
    : ControlView(box, widget)
    , m_box(widget)
{
    using controls::CheckBox;
    if (!box.caption().isEmpty())
        widget.setText(box.caption());
    showState();
    connect(&box, &CheckBox::valueSet, this, &CheckBoxView::showState);
    connect(&box, &CheckBox::captionChanged, &widget, &QCheckBox::setText);
    connect(&widget, &QCheckBox::clicked, this, [this](bool checked) {
        if (auto* model = this->model<controls::CheckBox>())
            model->check(checked ? 1 : 0);
        showState();
    });
}

void CheckBoxView::showState()
{
    if (const auto* box = model<controls::CheckBox>()) {
        const QSignalBlocker blocker(m_box);
        m_box.setChecked(box->checkState() != 0);
    }
}

} // namespace tarvello::gui
