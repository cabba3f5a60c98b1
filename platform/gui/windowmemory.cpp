#include "platform/gui/windowmemory.h"

#include <QSettings>

namespace tarvello::gui {

WindowMemory::WindowMemory(QString windowName)
    : m_window(std::move(windowName))
{}

QString WindowMemory::key(const QString& part) const
{
    return QStringLiteral("finestre/%1/%2").arg(m_window, part);
}

std::optional<QRect> WindowMemory::geometry() const
{
    const QRect geometry = QSettings().value(key(QStringLiteral("geometria"))).toRect();
    return geometry.isValid() ? std::optional(geometry) : std::nullopt;
}

void WindowMemory::setGeometry(const QRect& geometry) const
{
    QSettings().setValue(key(QStringLiteral("geometria")), geometry);
}

std::optional<bool> WindowMemory::maximized() const
{
    const QVariant maximized = QSettings().value(key(QStringLiteral("massimizzata")));
    return maximized.isValid() ? std::optional(maximized.toBool()) : std::nullopt;
}

void WindowMemory::setMaximized(bool maximized) const
{
    QSettings().setValue(key(QStringLiteral("massimizzata")), maximized);
}

QByteArray WindowMemory::windowGeometry() const
{
    return QSettings().value(key(QStringLiteral("finestra"))).toByteArray();
}

void WindowMemory::setWindowGeometry(const QByteArray& geometry) const
{
    QSettings().setValue(key(QStringLiteral("finestra")), geometry);
}

QByteArray WindowMemory::splitter(const QString& name) const
{
    return QSettings().value(key(QStringLiteral("divisori/") + name)).toByteArray();
}

void WindowMemory::setSplitter(const QString& name, const QByteArray& state) const
{
    QSettings().setValue(key(QStringLiteral("divisori/") + name), state);
}

QVariantMap WindowMemory::columnWidths(const QString& grid) const
{
    return QSettings().value(key(QStringLiteral("colonne/") + grid)).toMap();
}

void WindowMemory::setColumnWidths(const QString& grid, const QVariantMap& widths) const
{
    QSettings().setValue(key(QStringLiteral("colonne/") + grid), widths);
}

} // namespace tarvello::gui
