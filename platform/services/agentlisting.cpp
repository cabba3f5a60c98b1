#include "platform/services/agentlisting.h"

#include "platform/db/connection.h"

namespace tarvello::services {

namespace {

const QString AgentsQuery = QStringLiteral(
    "SELECT A.MG17_AGENTE, G.CG16_RAGSOANAG, A.MG17_INDTIPOAGE, T.MG1P_DESCRIZIONE,"
    " R.MG17_AGENTE AS AGENTE_RIF, CA.MG17_AGENTE AS CAPO_AREA, CZ.MG17_AGENTE AS CAPO_ZONA,"
    " A.MG17_CLIFOR_CG44, A.MG17_PERPROV"
    " FROM MG17_AGENTI A"
    " LEFT JOIN CG16_ANAGGEN G ON G.CG16_CODICE = A.MG17_ANAGEN_CG16"
    " LEFT JOIN MG1P_TIPOLOGIEAGENTI T ON T.MG1P_DITTA_CG18 = A.MG17_DITTA_CG18"
    " AND T.MG1P_TIPOAGENTE = A.MG17_TIPOAGENTE_MG1P"
    " LEFT JOIN MG17_AGENTI R ON R.MG17_IDAGENTE = A.MG17_IDAGERIF_MG17"
    " LEFT JOIN MG17_AGENTI CA ON CA.MG17_IDAGENTE = A.MG17_IDCAPOAREA_MG17"
    " LEFT JOIN MG17_AGENTI CZ ON CZ.MG17_IDAGENTE = A.MG17_IDCAPOZONA_MG17"
    " WHERE A.MG17_DITTA_CG18 = ?");

// Codes are stored padded on some databases: the printout shows them as typed.
QString shown(const db::Value& value)
{
    return value.isNull() || value.isEmpty() ? QString() : value.toString().trimmed();
}

} // namespace

QString agentKindName(const db::Value& kind)
{
    if (kind.isNull() || kind.isEmpty())
        return {};
    switch (kind.toInt()) {
    case 0:
        return QStringLiteral("Agente");
    case 1:
        return QStringLiteral("Capo zona");
    case 2:
        return QStringLiteral("Capo area");
    default:
        return kind.toString();
    }
}

QList<AgentLine> readAgents(db::Connection& connection, qint32 company, const QString& code)
{
    QString sql = AgentsQuery;
    db::ValueList parameters{company};
    if (!code.isEmpty()) {
        sql += QStringLiteral(" AND A.MG17_AGENTE = ?");
        parameters.append(code);
    }
    sql += QStringLiteral(" ORDER BY A.MG17_AGENTE");
    const db::ResultSet result = connection.run(sql, parameters);
    QList<AgentLine> lines;
    lines.reserve(result.rows.size());
    for (const db::ValueList& row : result.rows) {
        AgentLine line;
        line.code = shown(row.at(0));
        line.registryName = shown(row.at(1));
        line.kind = agentKindName(row.at(2));
        line.typology = shown(row.at(3));
        line.referenceAgent = shown(row.at(4));
        line.areaManager = shown(row.at(5));
        line.zoneManager = shown(row.at(6));
        line.supplier = shown(row.at(7));
        line.commission = row.at(8);
        lines.append(line);
    }
    return lines;
}

} // namespace tarvello::services
