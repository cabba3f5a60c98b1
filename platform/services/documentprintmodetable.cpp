#include "platform/services/documentprintmodetable.h"

namespace tarvello::services {

QList<QStringList> DocumentPrintModeTable::table() const
{
    return {
        {QStringLiteral("Stampa cartacea"), QStringLiteral("0")},
        {QStringLiteral("Invio per posta elettronica"), QStringLiteral("1")},
        {QStringLiteral("Stampa e posta elettronica"), QStringLiteral("2")},
        {QStringLiteral("Solo archiviazione elettronica"), QStringLiteral("3")},
        // The closing row of the table, as the host's tables of modes all end.
        {QString(), QString()},
    };
}

} // namespace tarvello::services
