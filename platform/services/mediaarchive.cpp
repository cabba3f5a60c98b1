#include "platform/services/mediaarchive.h"

#include "platform/db/connection.h"
#include "platform/services/userprompts.h"

namespace tarvello::services {

void MediaArchive::open(const db::Value& environment1, const db::Value& environment2,
                        const QString& connectionString, const db::Value& mediaId,
                        qint32 parentWindow, int mode, int option)
{
    const bool hasRecord = mediaId.looksNumeric() && mediaId.toInt64() != 0;
    const QString details =
        QStringLiteral("%1, %2, dati multimediali %3, finestra %4, %5, %6")
            .arg(environment1.toString(), environment2.toString(), mediaId.debugText())
            .arg(parentWindow)
            .arg(mode)
            .arg(option);
    const PromptAnswer answer = m_prompts.management(
        QStringLiteral("Archivio multimediale"), details,
        hasRecord ? QList<PromptAnswer::Kind>{} : QList{PromptAnswer::Kind::Transfer});
    if (answer.kind() != PromptAnswer::Kind::Transfer)
        return;
    db::Connection connection;
    connection.open(connectionString);
    const db::Value created =
        connection.insertRow(QStringLiteral("CG99_MULTIMEDIA"),
                             {QStringLiteral("CG99_NOMEFILE"), QStringLiteral("CG99_DESCRIZIONE")},
                             {answer.value().toString(), QStringLiteral("Dati multimediali")},
                             QStringLiteral("CG99_IDMEDIA"));
    m_events.raise(&host::HyperMediaEvents::AfterMediaCreate, created);
}

} // namespace tarvello::services
