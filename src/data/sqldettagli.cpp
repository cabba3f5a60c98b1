#include "src/data/sqldettagli.h"

#include "platform/db/value.h"

namespace tarvello::agenti::sql {

namespace {

QString numero(qint64 value)
{
    return QString::number(value);
}

// The detail queries share their shape: all the agent's rows of a table of the company.
QString righeAgente(const QString& elenco, const QString& tabella, const QString& prefisso,
                    qint32 ditta, qint64 agente)
{
    return elenco + QStringLiteral(" FROM") + QStringLiteral(" ") + tabella +
           QStringLiteral(" WHERE") + QStringLiteral(" ") + prefisso +
           QStringLiteral("_DITTA_CG18 = ") + numero(ditta) + QStringLiteral(" AND ") + prefisso +
           QStringLiteral("_IDAGENTE_MG17 = ") + numero(agente);
}

} // namespace

QString sociAgente(qint32 ditta, qint64 agente)
{
    return righeAgente(QStringLiteral("SELECT ") +
                           QStringLiteral(" ROW_NUMBER() OVER (ORDER BY MG18_DITTA_CG18) AS ID, *"),
                       QStringLiteral("MG18_AGENTISOCI"), QStringLiteral("MG18"), ditta, agente);
}

QString maturazioneAgente(qint32 ditta, qint64 agente)
{
    return righeAgente(QStringLiteral("SELECT ") +
                           QStringLiteral(" ROW_NUMBER() OVER (ORDER BY MG16_DITTA_CG18) AS ID, *"),
                       QStringLiteral("MG16_AGENTIMAT"), QStringLiteral("MG16"), ditta, agente);
}

QString tentataVenditaAgente(qint32 ditta, qint64 agente)
{
    return righeAgente(QStringLiteral("SELECT ") + QStringLiteral(" *"),
                       QStringLiteral("MG34_AGENTITV"), QStringLiteral("MG34"), ditta, agente);
}

QString dettaglioGiriAgente(qint32 ditta, qint64 agente)
{
    return righeAgente(
        QStringLiteral("SELECT ROW_NUMBER() OVER (ORDER BY MG1I_DITTA_CG18) AS ID,") +
            QStringLiteral(" *"),
        QStringLiteral("MG1I_DETTAGLIOGIRI WITH (NOLOCK) "), QStringLiteral("MG1I"), ditta, agente);
}

QString dettaglioGiriDelGiro(qint32 ditta, qint64 agente, const QString& giro)
{
    return dettaglioGiriAgente(ditta, agente) + QStringLiteral(" AND MG1I_GIRO_MG1H = ") +
           db::quoted(giro);
}

QString dettaglioGiriVuoto()
{
    return QStringLiteral("SELECT ROW_NUMBER() OVER (ORDER BY MG1I_DITTA_CG18) AS ID, * FROM "
                          "MG1I_DETTAGLIOGIRI") +
           QStringLiteral(" WHERE 1 = 0");
}

QString elencoGiriAgente(qint32 ditta, qint64 agente)
{
    return QStringLiteral("SELECT DISTINCT MG1H_GIRO, MG1H_DESCRIZIONE FROM MG1I_DETTAGLIOGIRI "
                          "WITH (NOLOCK) ") +
           QStringLiteral(" INNER JOIN MG1H_GIRI WITH (NOLOCK) ") +
           QStringLiteral("    ON  MG1I_DITTA_CG18 = MG1H_DITTA_CG18  ") +
           QStringLiteral("   AND MG1H_GIRO = MG1I_GIRO_MG1H ") +
           QStringLiteral(" WHERE MG1I_DITTA_CG18 = ") + numero(ditta) +
           QStringLiteral("   AND MG1I_IDAGENTE_MG17 = ") + numero(agente);
}

} // namespace tarvello::agenti::sql
