#pragma once

#include <QString>

namespace tarvello::controls {

// One column of a grid's layout. Widths are in twips. A numeric column is right-aligned.
// A picture column shows, instead of text, the picture of its image list whose key is the
// cell's value; a check-box column shows a box, ticked when the cell's value is not 0.
struct GridColumn {
    QString key;
    QString field;
    QString caption;
    int width = 0;
    QString format;
    bool numeric = false;
    bool visible = true;
    QString imageList;
    bool checkBox = false;

    bool isPicture() const { return !imageList.isEmpty(); }
};

} // namespace tarvello::controls
