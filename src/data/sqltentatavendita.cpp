#include "src/data/sqltentatavendita.h"

#include "platform/db/value.h"

namespace tarvello::agenti::sql {

QString decodificaDeposito(qint32 ditta, const QString& codice)
{
    return QStringLiteral(" SELECT ") + QStringLiteral(" MG58_DESCRDEP") + QStringLiteral(" FROM") +
           QStringLiteral(" MG58_DEPOSITI") + QStringLiteral(" WHERE") +
           QStringLiteral(" MG58_DITTA_CG18 = ") + QString::number(ditta) +
           QStringLiteral(" AND MG58_CODDEP = ") + db::quoted(codice);
}

QString elencoDepositi(qint32 ditta)
{
    return QStringLiteral(" SELECT ") + QStringLiteral(" MG58_CODDEP,") +
           QStringLiteral(" MG58_DESCRDEP,") + QStringLiteral(" MG58_INDIDEP,") +
           QStringLiteral(" MG58_CAPDEP,") + QStringLiteral(" MG58_LOCDEP,") +
           QStringLiteral(" MG58_PROVDEP,") + QStringLiteral(" MG58_TELNUMDEP,") +
           QStringLiteral(" MG58_FAXNUMDEP") + QStringLiteral(" FROM") +
           QStringLiteral(" MG58_DEPOSITI") + QStringLiteral(" WHERE") +
           QStringLiteral(" MG58_DITTA_CG18 = ") + QString::number(ditta) +
           QStringLiteral(" ORDER BY") + QStringLiteral(" MG58_CODDEP");
}

QString decodificaSezionale(qint32 ditta, const QString& codice)
{
    return QStringLiteral("SELECT * FROM CG68_NUMERDESC WHERE CG68_DITTA_CG18 = ") +
           QString::number(ditta) + QStringLiteral(" AND CG68_SEZIONALE = ") + db::quoted(codice);
}

QString elencoSezionali(qint32 ditta)
{
    return QStringLiteral("SELECT CG68_SEZIONALE, CG68_DESCSEZ FROM CG68_NUMERDESC WHERE "
                          "CG68_DITTA_CG18 = ") +
           QString::number(ditta);
}

} // namespace tarvello::agenti::sql
