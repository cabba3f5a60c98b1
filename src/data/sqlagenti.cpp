#include "src/data/sqlagenti.h"

#include "platform/db/value.h"

namespace tarvello::agenti::sql {

namespace {

QString numero(qint64 value)
{
    return QString::number(value);
}

} // namespace

QString agentiDitta(qint32 ditta)
{
    return QStringLiteral("SELECT ") + QStringLiteral(" *") + QStringLiteral(" FROM") +
           QStringLiteral(" MG17_AGENTI") + QStringLiteral(" WHERE") +
           QStringLiteral(" MG17_DITTA_CG18 = ") + numero(ditta);
}

QString sociVuoto()
{
    return QStringLiteral("SELECT ROW_NUMBER() OVER (ORDER BY MG18_DITTA_CG18) AS ID, * FROM "
                          "MG18_AGENTISOCI") +
           QStringLiteral(" WHERE 1 = 0");
}

QString maturazioneVuoto()
{
    return QStringLiteral("SELECT ROW_NUMBER() OVER (ORDER BY MG16_DITTA_CG18) AS ID, * FROM "
                          "MG16_AGENTIMAT") +
           QStringLiteral(" WHERE 1 = 0");
}

QString tentataVenditaVuoto()
{
    return QStringLiteral("SELECT * FROM MG34_AGENTITV") + QStringLiteral(" WHERE 1 = 0");
}

QString dettaglioGiriDitta(qint32 ditta)
{
    return QStringLiteral("SELECT ROW_NUMBER() OVER (ORDER BY MG1I_DITTA_CG18) AS ID,") +
           QStringLiteral(" *") + QStringLiteral(" FROM") +
           QStringLiteral(" MG1I_DETTAGLIOGIRI WITH (NOLOCK) ") +
           QStringLiteral(" WHERE MG1I_DITTA_CG18 = ") + numero(ditta);
}

QString eliminaTabTreeview()
{
    return QStringLiteral(
        "IF OBJECT_ID('TEMPDB.DBO.#TAB_TREEVIEW') IS NOT NULL DROP TABLE #TAB_TREEVIEW");
}

QString caricaTabTreeview(qint32 ditta)
{
    return QStringLiteral(" SELECT ") + QStringLiteral("     MG17_AGENTE  ") +
           QStringLiteral("     ,MG17_IDAGENTE  ") + QStringLiteral("     ,CG16_RAGSOANAG ") +
           QStringLiteral("     ,MG17_IDAGERIF_MG17 ") + QStringLiteral("     ,MG17_INDTIPOAGE ") +
           QStringLiteral(" INTO ") + QStringLiteral("     #TAB_TREEVIEW ") +
           QStringLiteral(" FROM  ") + QStringLiteral("     MG17_AGENTI WITH (NOLOCK)") +
           QStringLiteral(" INNER JOIN  ") + QStringLiteral("     CG16_ANAGGEN WITH (NOLOCK)") +
           QStringLiteral(" ON  ") + QStringLiteral("     CG16_CODICE = MG17_ANAGEN_CG16 ") +
           QStringLiteral(" WHERE  ") + QStringLiteral("     MG17_DITTA_CG18 =  ") + numero(ditta) +
           QStringLiteral("     ORDER BY MG17_AGENTE");
}

QString alberoAgenti()
{
    return QStringLiteral("SELECT RTRIM(MG17_AGENTE) + ' - ' + CG16_RAGSOANAG AS AGENTE, "
                          "MG17_AGENTE, CG16_RAGSOANAG, MG17_IDAGENTE, MG17_IDAGERIF_MG17, "
                          "MG17_INDTIPOAGE FROM #TAB_TREEVIEW ");
}

QString codiceAgenteDaId(qint32 id)
{
    return QStringLiteral(
               "SELECT MG17_AGENTE FROM MG17_AGENTI WITH (NOLOCK) WHERE MG17_IDAGENTE = ") +
           numero(id);
}

QString idAgenteDaCodice(qint32 ditta, const QString& codice)
{
    return QStringLiteral(
               "SELECT MG17_IDAGENTE FROM MG17_AGENTI WITH (NOLOCK) WHERE MG17_DITTA_CG18 = ") +
           numero(ditta) + QStringLiteral(" AND MG17_AGENTE = ") + db::quoted(codice);
}

QString criterioAgente(const QString& codice)
{
    return QStringLiteral("MG17_AGENTE = ") + db::quoted(codice);
}

} // namespace tarvello::agenti::sql
