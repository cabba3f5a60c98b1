#include "platform/db/databasecondition.h"

#include <QHash>

namespace tarvello::db {

namespace {

enum class Condition { None, Locked, Deadlock, ReadOnly, Damaged, Unreachable, Full };

Condition sqliteCondition(long code)
{
    // The file was deleted or moved while open: SQLite refuses to write what would be lost.
    constexpr long readOnlyDatabaseMoved = 8 | (4 << 8);
    if (code == readOnlyDatabaseMoved)
        return Condition::Unreachable;
    // Extended codes carry the primary one in their low byte.
    switch (code & 0xff) {
    case 5: // SQLITE_BUSY
    case 6: // SQLITE_LOCKED
        return Condition::Locked;
    case 8: // SQLITE_READONLY
        return Condition::ReadOnly;
    case 11: // SQLITE_CORRUPT
    case 26: // SQLITE_NOTADB
        return Condition::Damaged;
    case 10: // SQLITE_IOERR
    case 14: // SQLITE_CANTOPEN
        return Condition::Unreachable;
    case 13: // SQLITE_FULL
        return Condition::Full;
    default:
        return Condition::None;
    }
}

Condition sqlServerCondition(const ProviderError& error)
{
    static const QHash<long, Condition> conditions{
        {1205, Condition::Deadlock}, {1222, Condition::Locked}, {3906, Condition::ReadOnly},
        {823, Condition::Damaged},   {824, Condition::Damaged}, {4060, Condition::Unreachable},
        {9002, Condition::Full},     {1105, Condition::Full},
    };
    // A connection that broke reports no number of its own, only its state.
    if (error.sqlState.startsWith(u"08"))
        return Condition::Unreachable;
    return conditions.value(error.number, Condition::None);
}

} // namespace

QString databaseCondition(const ProviderError& error, Dialect dialect)
{
    const Condition condition =
        dialect == Dialect::Sqlite ? sqliteCondition(error.number) : sqlServerCondition(error);
    switch (condition) {
    case Condition::None:
        break;
    case Condition::Locked:
        return QStringLiteral("Il database è bloccato da un altro utente o programma: attendere "
                              "qualche istante e riprovare.");
    case Condition::Deadlock:
        return QStringLiteral("L'operazione è stata interrotta per un conflitto con un altro "
                              "utente che lavorava sugli stessi dati: riprovare.");
    case Condition::ReadOnly:
        return QStringLiteral("Il database è aperto in sola lettura: le modifiche non possono "
                              "essere salvate.");
    case Condition::Damaged:
        return QStringLiteral("Il file del database è danneggiato: va ripristinato da una copia "
                              "di sicurezza.");
    case Condition::Unreachable:
        return QStringLiteral("Il database non è raggiungibile: il file è stato spostato o "
                              "eliminato, oppure il disco o la rete non sono disponibili.");
    case Condition::Full:
        return QStringLiteral("Lo spazio per il database è esaurito: liberare spazio su disco e "
                              "riprovare.");
    }
    return {};
}

} // namespace tarvello::db
