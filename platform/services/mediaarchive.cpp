#include "platform/services/mediaarchive.h"

#include "platform/db/connection.h"
#include "platform/services/userprompts.h"

#include <QFileInfo>

namespace tarvello::services {

namespace {

const QString Title = QStringLiteral("Archivio multimediale");

// The environment values and the settings say who opened the archive and how; this archive
// has one way of working, so it only records who attached a file.
QString attachedBy(const db::Value& user, const db::Value& workstation)
{
    const QString who = user.toString().trimmed();
    const QString where = workstation.toString().trimmed();
    if (who.isEmpty() && where.isEmpty())
        return QStringLiteral("Dati multimediali");
    return QStringLiteral("Dati multimediali di %1 (%2)").arg(who, where);
}

} // namespace

void MediaArchive::open(const db::Value& environment1, const db::Value& environment2,
                        const QString& connectionString, const db::Value& mediaId,
                        qint32 /*parentWindow*/, int /*mode*/, int /*option*/)
{
    db::Connection connection;
    connection.open(connectionString);
    if (mediaId.looksNumeric() && mediaId.toInt64() != 0) {
        const db::ResultSet recorded = connection.run(
            QStringLiteral("SELECT CG99_PERCORSO FROM CG99_MULTIMEDIA WHERE CG99_IDMEDIA = ?"),
            {mediaId.toInt64()});
        if (!recorded.rows.isEmpty() && !recorded.rows.first().first().isNull())
            m_prompts.showDocument(recorded.rows.first().first().toString());
        return;
    }
    const std::optional<QString> chosen =
        m_prompts.chooseFile(Title, FileUse::Open, QString(), QString());
    if (!chosen)
        return;
    const QFileInfo file(*chosen);
    const db::Value created = connection.insertRow(
        QStringLiteral("CG99_MULTIMEDIA"),
        {QStringLiteral("CG99_NOMEFILE"), QStringLiteral("CG99_PERCORSO"),
         QStringLiteral("CG99_DESCRIZIONE")},
        {file.fileName(), file.absoluteFilePath(), attachedBy(environment1, environment2)},
        QStringLiteral("CG99_IDMEDIA"));
    connection.close();
    m_events.raise(&host::HyperMediaEvents::AfterMediaCreate, created);
}

} // namespace tarvello::services
