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

QString figliAgente(qint32 ditta, qint32 id)
{
    return QStringLiteral("SELECT MG17_AGENTE FROM MG17_AGENTI ") +
           QStringLiteral(" WHERE MG17_DITTA_CG18 = ") + numero(ditta) +
           QStringLiteral(" AND MG17_IDAGERIF_MG17 = ") + numero(id);
}

QStringList contaDocumentiAgente(qint32 ditta, qint32 id)
{
    static constexpr const char* prefissi[][2] = {
        {"DO21", "DO21_DOCTESTAPROV"}, {"DO29", "DO29_DOCTESAGENTI"}, {"DO32", "DO32_DOCCORPOPROV"},
        {"CT05", "CT05_CATESTA"},      {"CT06", "CT06_CACORPO"},
    };
    QStringList istruzioni;
    for (const auto& [prefisso, tabella] : prefissi) {
        const QString p = QString::fromLatin1(prefisso);
        istruzioni << QStringLiteral("SELECT COUNT(") + p +
                          QStringLiteral("_IDAGENTE_MG17) AS CONTATORE FROM ") +
                          QString::fromLatin1(tabella) + QStringLiteral(" ") +
                          QStringLiteral(" WHERE ") + p + QStringLiteral("_DITTA_CG18 = ") +
                          numero(ditta) + QStringLiteral(" AND ") + p +
                          QStringLiteral("_IDAGENTE_MG17 = ") + numero(id);
    }
    return istruzioni;
}

QStringList eliminaDipendentiAgente(qint32 ditta, qint32 id)
{
    struct Dettaglio {
        const char* tabella;
        const char* colonnaDitta;
        const char* colonnaAgente;
    };
    static constexpr Dettaglio dettagli[] = {
        {" MG18_AGENTISOCI", " MG18_DITTA_CG18 = ", " AND MG18_IDAGENTE_MG17 = "},
        {" MG16_AGENTIMAT", " MG16_DITTA_CG18 = ", " AND MG16_IDAGENTE_MG17 = "},
        {" MG34_AGENTITV", " MG34_DITTA_CG18 = ", " AND MG34_IDAGENTE_MG17 = "},
        {" MG1I_DETTAGLIOGIRI", " MG1I_DITTA_CG18 = ", " AND MG1I_IDAGENTE_MG17 = "},
    };
    QStringList istruzioni;
    for (const Dettaglio& d : dettagli)
        istruzioni << QStringLiteral("DELETE FROM ") + QString::fromLatin1(d.tabella) +
                          QStringLiteral(" WHERE") + QString::fromLatin1(d.colonnaDitta) +
                          numero(ditta) + QString::fromLatin1(d.colonnaAgente) + numero(id);
    istruzioni << QStringLiteral("DELETE CO1G_DETTAGENTE FROM CO1C_ENTITADIV ") +
                      QStringLiteral("INNER JOIN CO1G_DETTAGENTE ") +
                      QStringLiteral("ON CO1G_IDENTITADIV_CO1C = CO1C_IDENTITADIV ") +
                      QStringLiteral("WHERE CO1C_DITTA_CG18  = ") + numero(ditta) +
                      QStringLiteral(" AND ") + QStringLiteral("      CO1C_IDENTITA    = 3 AND ") +
                      QStringLiteral("      CO1C_IDAGENTE_MG17 = ") + numero(id);
    istruzioni << QStringLiteral("DELETE FROM CO1C_ENTITADIV ") +
                      QStringLiteral("WHERE CO1C_DITTA_CG18  = ") + numero(ditta) +
                      QStringLiteral(" AND ") + QStringLiteral("      CO1C_IDENTITA    = 3 AND ") +
                      QStringLiteral("      CO1C_IDAGENTE_MG17 = ") + numero(id);
    return istruzioni;
}

QString anagraficaDaRagioneSociale(const QString& ragioneSociale)
{
    return QStringLiteral("SELECT CG16_CODICE FROM CG16_ANAGGEN WHERE CG16_RAGSOANAG = N") +
           db::quoted(ragioneSociale);
}

QString ragioneSocialeAnagrafica(qint64 codice)
{
    return QStringLiteral("SELECT CG16_RAGSOANAG FROM CG16_ANAGGEN WHERE CG16_CODICE = ") +
           numero(codice);
}

QString fornitoreAnagrafica(qint32 ditta, qint64 codice)
{
    return QStringLiteral("SELECT CG44_CLIFOR FROM CG44_CLIFOR ") +
           QStringLiteral(" WHERE CG44_DITTA_CG18 = ") + numero(ditta) +
           QStringLiteral(" AND CG44_TIPOCF = 1 ") + QStringLiteral(" AND CG44_CODICE_CG16 = ") +
           numero(codice);
}

QString riferimentoAgente(qint32 ditta, const QString& id)
{
    return QStringLiteral(" SELECT MG17_IDAGERIF_MG17 ") + QStringLiteral(" FROM MG17_AGENTI ") +
           QStringLiteral(" WHERE ") + QStringLiteral(" MG17_DITTA_CG18 = ") + numero(ditta) +
           QStringLiteral(" AND MG17_IDAGENTE = ") + db::quoted(id);
}

QString ragioneSocialeAgenteDaCodice(qint32 ditta, const QString& codice)
{
    return QStringLiteral("SELECT CG16_RAGSOANAG FROM CG16_ANAGGEN INNER JOIN MG17_AGENTI ON "
                          "CG16_CODICE = MG17_ANAGEN_CG16 WHERE MG17_AGENTE = ") +
           db::quoted(codice) + QStringLiteral(" AND MG17_DITTA_CG18 = ") + numero(ditta);
}

QString ragioneSocialeAgenteDaId(qint32 ditta, qint64 id)
{
    return QStringLiteral("SELECT CG16_RAGSOANAG FROM CG16_ANAGGEN INNER JOIN MG17_AGENTI ON "
                          "CG16_CODICE = MG17_ANAGEN_CG16 WHERE MG17_IDAGENTE = ") +
           numero(id) + QStringLiteral(" AND MG17_DITTA_CG18 = ") + numero(ditta);
}

QString riferimentoInAlbero(qint32 id)
{
    return QStringLiteral("SELECT ISNULL(MG17_IDAGERIF_MG17,0) AS MG17_IDAGERIF_MG17 FROM "
                          "#TAB_TREEVIEW WHERE MG17_IDAGENTE = ") +
           numero(id) + QStringLiteral(" ");
}

QString dipendenteInAlbero(qint32 id)
{
    return QStringLiteral("SELECT ISNULL(MG17_IDAGENTE,0) AS MG17_IDAGENTE FROM #TAB_TREEVIEW "
                          "WHERE MG17_IDAGERIF_MG17 = ") +
           numero(id) + QStringLiteral(" ");
}

QString agenteNellaDitta(qint32 ditta, const QString& codice)
{
    return QStringLiteral(" SELECT ") + QStringLiteral(" * ") + QStringLiteral(" FROM ") +
           QStringLiteral(" MG17_AGENTI") + QStringLiteral(" WHERE ") +
           QStringLiteral(" MG17_DITTA_CG18 = ") + numero(ditta) +
           QStringLiteral(" AND MG17_AGENTE = ") + db::quoted(codice);
}

QString agenteDellAnagrafica(const db::Value& ditta, const db::Value& anagrafica)
{
    return QStringLiteral(" SELECT ") + QStringLiteral("    MG17_AGENTE") +
           QStringLiteral(" FROM") + QStringLiteral("    MG17_AGENTI") + QStringLiteral(" WHERE") +
           QStringLiteral("    MG17_DITTA_CG18 = ") + ditta.sqlLiteral() + QStringLiteral(" AND") +
           QStringLiteral("    MG17_ANAGEN_CG16 = ") + anagrafica.sqlLiteral();
}

} // namespace tarvello::agenti::sql
