#include "platform/gui/italiantranslations.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QLocale>

namespace tarvello::gui {

ItalianTranslations::ItalianTranslations()
{
    const QLocale italian(QLocale::Italian, QLocale::Italy);
    QLocale::setDefault(italian);
    m_loaded = m_qt.load(italian, QStringLiteral("qtbase"), QStringLiteral("_"),
                         QLibraryInfo::path(QLibraryInfo::TranslationsPath)) &&
               QCoreApplication::installTranslator(&m_qt);
}

ItalianTranslations::~ItalianTranslations()
{
    if (m_loaded)
        QCoreApplication::removeTranslator(&m_qt);
}

} // namespace tarvello::gui
