#pragma once

#include <QByteArray>
#include <QRect>
#include <QString>
#include <QVariantMap>
#include <optional>

namespace tarvello::gui {

// What a person arranged in a window, kept per user between openings in the user's
// settings (QSettings, under the application's organisation and name): the window's
// place and size, the position of its splitters and the widths of its grids' columns,
// each under the window's name.
class WindowMemory {
public:
    explicit WindowMemory(QString windowName);

    std::optional<QRect> geometry() const;
    void setGeometry(const QRect& geometry) const;
    // Whether the window was left maximized; nothing when it was never left at all.
    std::optional<bool> maximized() const;
    void setMaximized(bool maximized) const;
    // A top-level window's own saved geometry (QWidget::saveGeometry).
    QByteArray windowGeometry() const;
    void setWindowGeometry(const QByteArray& geometry) const;
    QByteArray splitter(const QString& name) const;
    void setSplitter(const QString& name, const QByteArray& state) const;
    QVariantMap columnWidths(const QString& grid) const;
    void setColumnWidths(const QString& grid, const QVariantMap& widths) const;

private:
    QString key(const QString& part) const;

    QString m_window;
};

} // namespace tarvello::gui
