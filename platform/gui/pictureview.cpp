#include "platform/gui/pictureview.h"

#include "platform/controls/picture.h"
#include "platform/gui/imagelibrary.h"

#include <QLabel>
#include <QMouseEvent>

namespace tarvello::gui {

PictureView::PictureView(controls::Picture& picture, QLabel& label)
    : ControlView(picture, label)
    , m_label(label)
{
    label.setCursor(Qt::PointingHandCursor);
    showPicture();
    connect(&picture, &controls::Picture::imageKeyChanged, this, &PictureView::showPicture);
}

void PictureView::showPicture()
{
    if (const auto* picture = model<controls::Picture>()) {
        const QPixmap pixmap = ImageLibrary::picture(picture->imageKey());
        if (!pixmap.isNull())
            m_label.setPixmap(pixmap);
    }
}

bool PictureView::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == &m_label && event->type() == QEvent::MouseButtonRelease &&
        static_cast<QMouseEvent*>(event)->button() == Qt::LeftButton) {
        if (auto* picture = model<controls::Picture>())
            picture->click();
        return true;
    }
    return ControlView::eventFilter(watched, event);
}

} // namespace tarvello::gui
