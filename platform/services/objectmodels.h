#pragma once

#include "src/host/navigator.h"

#include <QList>
#include <QPointer>
#include <QStringList>

namespace tarvello::services {

// The host's side of an export to an office document: the title the modules gave it.
class OfficeExport final : public host::ExportToOffice {
public:
    void setTitoloMaster(const QString& title) override { m_title = title; }
    const QString& titoloMaster() const { return m_title; }

private:
    QString m_title;
};

// The host's object models: the objects modules registered for layouts and scripts, kept
// as they were registered.
class ObjectModel final : public host::LayoutObjectModel, public host::ScriptObjectModel {
public:
    struct Entry {
        QString name;
        QPointer<QObject> object; // Not owned.
        int kind = 0;
        QString caption;
    };

    void registerObject(QObject*& object, const QString& title) override;
    void registerObject(const QString& name, QObject*& object, int kind,
                        const QString& caption) override;
    const QList<Entry>& entries() const { return m_entries; }

private:
    QList<Entry> m_entries;
};

// The navigator's script object: it keeps what it was told, one line per call.
class ScriptLog final : public host::NavigatorScript {
public:
    void formEvent(const QString& formName, int kind, bool opening,
                   const QString& objectName) override;
    void key(const QString& key) override;
    const QStringList& lines() const { return m_lines; }

private:
    QStringList m_lines;
};

} // namespace tarvello::services
