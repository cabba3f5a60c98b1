#include "src/data/sqlprovvigioni.h"

#include "platform/db/value.h"

namespace tarvello::agenti::sql {

namespace {

// The inside of a quoted literal: the quotes around it are part of the statement's text.
QString interno(const QString& testo)
{
    const QString tra = db::quoted(testo);
    return tra.mid(1, tra.size() - 2);
}

} // namespace

QString descrizioneTabProvvSconti(qint32 ditta, const QString& codice)
{
    return QStringLiteral(" SELECT ") + QStringLiteral(" PA10_DESCPROVSC") +
           QStringLiteral(" FROM") + QStringLiteral(" PA10_PROVSCANAG") + QStringLiteral(" WHERE") +
           QStringLiteral(" PA10_DITTA_CG18 = ") + QString::number(ditta) +
           QStringLiteral(" AND PA10_CODPROVSC = '") + interno(codice) + QStringLiteral("'") +
           QStringLiteral(" AND PA10_FLGVENACQ = 0");
}

QString elencoTabProvvSconti(qint32 ditta)
{
    return QStringLiteral(" SELECT ") + QStringLiteral(" PA10_CODPROVSC,") +
           QStringLiteral(" PA10_DESCPROVSC") + QStringLiteral(" FROM") +
           QStringLiteral(" PA10_PROVSCANAG") + QStringLiteral(" WHERE") +
           QStringLiteral(" PA10_DITTA_CG18 = ") + QString::number(ditta) +
           QStringLiteral(" AND PA10_FLGVENACQ = 0");
}

QString codicePriorita(qint64 id)
{
    return QStringLiteral("SELECT LP09_CODICE FROM LP09_TESTATAPRIORITA WHERE LP09_ID = ") +
           QString::number(id);
}

QString idPriorita(const QString& codice)
{
    return QStringLiteral("SELECT LP09_ID FROM LP09_TESTATAPRIORITA WHERE LP09_CODICE = '") +
           interno(codice) + QStringLiteral("'");
}

} // namespace tarvello::agenti::sql
