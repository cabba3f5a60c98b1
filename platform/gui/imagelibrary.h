#pragma once

#include <QPixmap>
#include <QString>

namespace tarvello::gui {

// The pictures the screens name by image list and key, drawn here rather than shipped as
// files. The tree's list IMG_ICONETREE holds the three agent types at 16 x 16: "0" an
// agent, "1" a zone manager, "2" an area manager. Pictures named by key alone ("Espandi",
// "Comprimi") serve picture buttons.
class ImageLibrary {
public:
    static constexpr int pictureSize = 16;
    static QString treeImageList() { return QStringLiteral("IMG_ICONETREE"); }

    // A null pixmap for a list or key there is no picture for.
    static QPixmap picture(const QString& imageList, const QString& key);
    static QPixmap picture(const QString& key) { return picture({}, key); }
};

} // namespace tarvello::gui
