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
    return QStringLiteral("%1 FROM %2 WHERE %3_DITTA_CG18 = %4 AND %3_IDAGENTE_MG17 = %5")
        .arg(elenco, tabella, prefisso, numero(ditta), numero(agente));
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

// The customer is linked to the agent among the customer's several agents.
QString clienteDellAgente(qint32 ditta, qint64 cliente, qint64 agente)
{
    return QStringLiteral("SELECT TOP 1 1 FROM MG1C_CLIFORAGEMUL WITH (NOLOCK) ") +
           QStringLiteral(" WHERE MG1C_DITTA_CG18 = ") + numero(ditta) +
           QStringLiteral("   AND MG1C_TIPOCF_CG44 = 0 ") +
           QStringLiteral("   AND MG1C_CLIFOR_CG44  = ") + numero(cliente) +
           QStringLiteral("   AND MG1C_IDAGENTE_MG17 = ") + numero(agente);
}

// The routes of other agents the customer is on with that destination.
QString clienteDiAltriAgenti(qint32 ditta, qint64 cliente, qint64 agente, const QString& dest)
{
    return QStringLiteral("SELECT ROW_NUMBER() OVER (ORDER BY MG1I_DITTA_CG18) AS ID, * FROM "
                          "MG1I_DETTAGLIOGIRI WITH (NOLOCK) ") +
           QStringLiteral(" WHERE MG1I_DITTA_CG18 = ") + numero(ditta) +
           QStringLiteral("   AND MG1I_TIPOCF_CG44 = 0 ") +
           QStringLiteral("   AND MG1I_CLIFOR_CG44  = ") + numero(cliente) +
           QStringLiteral("   AND MG1I_IDAGENTE_MG17 <> ") + numero(agente) +
           QStringLiteral("   AND ISNULL(MG1I_CODDEST_MG22, '') = ") + db::quoted(dest) +
           QStringLiteral(" ");
}

// The customer's rows on the agent's routes with that destination (none when it is empty).
QString clienteNeiGiriDellAgente(qint32 ditta, qint64 cliente, qint64 agente, const QString& dest)
{
    return QStringLiteral(" SELECT") + QStringLiteral("    MG1I_PROGRESSIVO ") +
           QStringLiteral(" FROM") + QStringLiteral("    MG1I_DETTAGLIOGIRI") +
           QStringLiteral(" WHERE") + QStringLiteral("    MG1I_DITTA_CG18 = ") + numero(ditta) +
           QStringLiteral("    ") + QStringLiteral("    AND MG1I_CLIFOR_CG44 = ") +
           numero(cliente) + QStringLiteral("    AND MG1I_TIPOCF_CG44 = 0") +
           QStringLiteral("    AND MG1I_IDAGENTE_MG17 = ") + numero(agente) +
           (dest.isEmpty() ? QStringLiteral(" AND MG1I_CODDEST_MG22 IS NULL ")
                           : QStringLiteral(" AND MG1I_CODDEST_MG22 = ") + db::quoted(dest));
}

} // namespace tarvello::agenti::sql
