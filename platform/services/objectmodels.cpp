#include "platform/services/objectmodels.h"

namespace tarvello::services {

void ObjectModel::registerObject(QObject*& object, const QString& title)
{
    m_entries.append({title, object, 0, title});
}

void ObjectModel::registerObject(const QString& name, QObject*& object, int kind,
                                 const QString& caption)
{
    m_entries.append({name, object, kind, caption});
}

void ScriptLog::formEvent(const QString& formName, int kind, bool opening,
                          const QString& objectName)
{
    m_lines << QStringLiteral("%1 %2 %3 %4")
                   .arg(opening ? QStringLiteral("open") : QStringLiteral("close"), formName)
                   .arg(kind)
                   .arg(objectName);
}

void ScriptLog::key(const QString& key)
{
    m_lines << QStringLiteral("key %1").arg(key);
}

} // namespace tarvello::services
