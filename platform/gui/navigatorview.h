#pragma once

#include "platform/gui/controlview.h"

#include <QList>

class QToolButton;

namespace tarvello::controls {
class Navigator;
}

namespace tarvello::gui {

// A navigator bar on a plain widget: one tool button per visible button of the model, in
// its order, with the key's icon and the caption as tool tip; a button is enabled while a
// press would act. A click presses the model's button by key text. The buttons never take
// the focus, as a navigator bar never does.
class NavigatorView final : public ControlView {
    Q_OBJECT
public:
    NavigatorView(controls::Navigator& navigator, QWidget& bar);

    // The tool button of a key; nullptr when the bar shows none.
    QToolButton* buttonFor(const QString& key) const;

private:
    void showButtons();
    void showAvailability();

    QWidget& m_bar;              // Not owned: the widget this view fills.
    QList<QToolButton*> m_tools; // Owned by m_bar (its children).
};

} // namespace tarvello::gui
