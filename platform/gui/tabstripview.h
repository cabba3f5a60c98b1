#pragma once

#include "platform/gui/controlview.h"

class QTabWidget;

namespace tarvello::controls {
class TabStrip;
}

namespace tarvello::gui {

// A tab strip on a tab widget: the model's captions (their '&' access keys make Alt+key
// switch pages) and its current page. A page the person picks is asked of the model, which
// may refuse; the tab widget always shows the model's page.
class TabStripView final : public ControlView {
    Q_OBJECT
public:
    TabStripView(controls::TabStrip& strip, QTabWidget& tabs);

    QWidget* focusTarget() const override;

private:
    void showPages();
    void showCurrent();
    void takeChoice(int page);

    QTabWidget& m_tabs; // Not owned: the widget this view watches.
};

} // namespace tarvello::gui
