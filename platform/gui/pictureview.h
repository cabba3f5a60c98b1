#pragma once

#include "platform/gui/controlview.h"

class QLabel;

namespace tarvello::controls {
class Picture;
}

namespace tarvello::gui {

// A picture (or picture button) on a label: the picture of its image key, and a click on
// it clicks the model.
class PictureView final : public ControlView {
    Q_OBJECT
public:
    PictureView(controls::Picture& picture, QLabel& label);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void showPicture();

    QLabel& m_label; // Not owned: the widget this view watches.
};

} // namespace tarvello::gui
