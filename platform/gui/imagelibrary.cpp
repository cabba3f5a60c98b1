#include "platform/gui/imagelibrary.h"

#include <QPainter>
#include <QPainterPath>
#include <cmath>
#include <numbers>

namespace tarvello::gui {

namespace {

constexpr int size = ImageLibrary::pictureSize;

QPixmap blank()
{
    QPixmap pixmap(size, size);
    pixmap.fill(Qt::transparent);
    return pixmap;
}

// A person seen from the front: head and shoulders, in the given colour.
void drawPerson(QPainter& painter, const QColor& colour, qreal x, qreal scale = 1.0)
{
    painter.setPen(QPen(colour.darker(160), 0.8));
    painter.setBrush(colour);
    painter.drawEllipse(QRectF(x + 4.5 * scale, 2.0, 5.0 * scale, 5.0 * scale));
    QPainterPath body;
    body.moveTo(x + 1.5 * scale, 15.0);
    body.cubicTo(x + 1.5 * scale, 9.0, x + 12.5 * scale, 9.0, x + 12.5 * scale, 15.0);
    body.closeSubpath();
    painter.drawPath(body);
}

QPixmap agent()
{
    QPixmap pixmap = blank();
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    drawPerson(painter, QColor(0x3b, 0x7d, 0xd8), 1.0);
    return pixmap;
}

// A zone manager: a person with a pennant on a pole.
QPixmap zoneManager()
{
    QPixmap pixmap = blank();
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    drawPerson(painter, QColor(0x2e, 0x9e, 0x5b), -1.0);
    painter.setPen(QPen(QColor(0x55, 0x55, 0x55), 1.0));
    painter.drawLine(QPointF(13.5, 1.0), QPointF(13.5, 9.0));
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(0xe5, 0x39, 0x35));
    painter.drawPolygon(QPolygonF({QPointF(13.5, 1.0), QPointF(9.5, 3.0), QPointF(13.5, 5.0)}));
    return pixmap;
}

// An area manager: a person with a gold star.
QPixmap areaManager()
{
    QPixmap pixmap = blank();
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    drawPerson(painter, QColor(0x8e, 0x44, 0xad), -1.0);
    QPolygonF star;
    const QPointF centre(12.0, 4.0);
    for (int i = 0; i < 10; ++i) {
        const qreal radius = i % 2 == 0 ? 3.8 : 1.6;
        const qreal angle = (i * 36.0 - 90.0) * std::numbers::pi / 180.0;
        star << centre + QPointF(radius * std::cos(angle), radius * std::sin(angle));
    }
    painter.setPen(QPen(QColor(0xb8, 0x86, 0x0b), 0.6));
    painter.setBrush(QColor(0xff, 0xc1, 0x07));
    painter.drawPolygon(star);
    return pixmap;
}

// A plus or minus in a box, as tree controls draw their expand and collapse marks.
QPixmap boxedSign(bool plus)
{
    QPixmap pixmap = blank();
    QPainter painter(&pixmap);
    painter.setPen(QColor(0x60, 0x60, 0x60));
    painter.setBrush(Qt::white);
    painter.drawRect(2, 2, 11, 11);
    painter.setPen(QPen(Qt::black, 1.5));
    painter.drawLine(QPointF(5, 7.5), QPointF(10, 7.5));
    if (plus)
        painter.drawLine(QPointF(7.5, 5), QPointF(7.5, 10));
    return pixmap;
}

} // namespace

QPixmap ImageLibrary::picture(const QString& imageList, const QString& key)
{
    if (imageList.compare(treeImageList(), Qt::CaseInsensitive) == 0) {
        if (key == u"0")
            return agent();
        if (key == u"1")
            return zoneManager();
        if (key == u"2")
            return areaManager();
        return {};
    }
    if (imageList.isEmpty()) {
        if (key.compare(u"Espandi", Qt::CaseInsensitive) == 0)
            return boxedSign(true);
        if (key.compare(u"Comprimi", Qt::CaseInsensitive) == 0)
            return boxedSign(false);
    }
    return {};
}

} // namespace tarvello::gui
