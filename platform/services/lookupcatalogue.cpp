#include "platform/services/lookupcatalogue.h"

#include "platform/db/runtimeerror.h"

namespace tarvello::services {

namespace {

using Parameter = LookupDefinition::Parameter;

// A level of a classification table (MGL1 ... MGL9): listed and decoded within the company
// and within the codes of its parent levels, each passed as a text parameter.
struct ParentLevel {
    QString parameter;
    QString column;
};

LookupDefinition classification(const QString& name, const QString& title, const QString& lookupId,
                                const QString& table, const QString& codeColumn,
                                const QList<ParentLevel>& parents)
{
    const QString prefix = table.left(table.indexOf(u'_'));
    const QString description = prefix + QStringLiteral("_DESCRIZIONE");
    QString filter = QStringLiteral(" FROM %1 WHERE %2_DITTA_CG18 = @DITTA").arg(table, prefix);
    LookupDefinition d;
    for (const ParentLevel& parent : parents) {
        filter += QStringLiteral(" AND %1 = @%2").arg(parent.column, parent.parameter);
        d.parameters.append({parent.parameter, ParameterKind::Text});
    }
    d.name = name;
    d.title = title;
    d.lookupId = lookupId;
    d.headings = {QStringLiteral("Codice"), QStringLiteral("Descrizione")};
    d.listSql = QStringLiteral("SELECT %1, %2").arg(codeColumn, description) + filter +
                QStringLiteral(" ORDER BY %1").arg(codeColumn);
    d.decodeSql = QStringLiteral("SELECT %1").arg(description) + filter +
                  QStringLiteral(" AND %1 = @CODICE").arg(codeColumn);
    d.decodeColumns = {description};
    return d;
}

QList<LookupDefinition> classifications()
{
    const auto level = [](const char* parameter, const char* column) {
        return ParentLevel{QString::fromLatin1(parameter), QString::fromLatin1(column)};
    };
    return {
        classification(QStringLiteral("LKP_MACROAREEAGE"),
                       QStringLiteral("Elenco macroaree agenti"),
                       QStringLiteral("Lkp_MacroareeAge"), QStringLiteral("MGL1_MACROAREE"),
                       QStringLiteral("MGL1_MACROAREA"), {}),
        classification(QStringLiteral("LKP_AREEAGE"), QStringLiteral("Elenco aree agenti"),
                       QStringLiteral("Lkp_AreeAge"), QStringLiteral("MGL2_AREE"),
                       QStringLiteral("MGL2_AREA"), {level("MACROAREA", "MGL2_MACROAREA_MGL1")}),
        classification(
            QStringLiteral("LKP_ZONEAGE"), QStringLiteral("Elenco zone agenti"),
            QStringLiteral("Lkp_ZoneAge"), QStringLiteral("MGL3_ZONE"), QStringLiteral("MGL3_ZONA"),
            {level("MACROAREA", "MGL3_MACROAREA_MGL1"), level("AREA", "MGL3_AREA_MGL2")}),
        classification(QStringLiteral("LKP_MACROCATEGORIEAGE"),
                       QStringLiteral("Elenco macrocategorie agenti"),
                       QStringLiteral("Lkp_MacrocategorieAge"),
                       QStringLiteral("MGL4_MACROCATEGORIE"), QStringLiteral("MGL4_MACROCAT"), {}),
        classification(QStringLiteral("LKP_CATEGORIEAGE"),
                       QStringLiteral("Elenco categorie agenti"),
                       QStringLiteral("Lkp_CategorieAge"), QStringLiteral("MGL5_CATEGORIE"),
                       QStringLiteral("MGL5_CATEG"), {level("MACROCAT", "MGL5_MACROCAT_MGL4")}),
        classification(QStringLiteral("LKP_SOTTOCATEGORIEAGE"),
                       QStringLiteral("Elenco sottocategorie agenti"),
                       QStringLiteral("Lkp_SottocategorieAge"),
                       QStringLiteral("MGL6_SOTTOCATEGORIE"), QStringLiteral("MGL6_SOTTOCAT"),
                       {level("MACROCAT", "MGL6_MACROCAT_MGL4"), level("CAT", "MGL6_CATEG_MGL5")}),
        classification(QStringLiteral("LKP_RAGGR1AGE"),
                       QStringLiteral("Elenco raggruppamenti 1 agenti"),
                       QStringLiteral("Lkp_Raggr1Age"), QStringLiteral("MGL7_RAGGRUPPAMENTI1"),
                       QStringLiteral("MGL7_RAGGR1"), {}),
        classification(QStringLiteral("LKP_RAGGR2AGE"),
                       QStringLiteral("Elenco raggruppamenti 2 agenti"),
                       QStringLiteral("Lkp_Raggr2Age"), QStringLiteral("MGL8_RAGGRUPPAMENTI2"),
                       QStringLiteral("MGL8_RAGGR2"), {}),
        classification(QStringLiteral("LKP_RAGGR3AGE"),
                       QStringLiteral("Elenco raggruppamenti 3 agenti"),
                       QStringLiteral("Lkp_Raggr3Age"), QStringLiteral("MGL9_RAGGRUPPAMENTI3"),
                       QStringLiteral("MGL9_RAGGR3"), {}),
    };
}

QList<LookupDefinition> agents()
{
    const QString fromAgents =
        QStringLiteral(" FROM MG17_AGENTI LEFT JOIN CG16_ANAGGEN ON CG16_CODICE = MG17_ANAGEN_CG16"
                       " WHERE MG17_DITTA_CG18 = @DITTA");
    LookupDefinition byCode;
    byCode.name = QStringLiteral("LKP_AGENTI");
    byCode.title = QStringLiteral("Elenco agenti");
    byCode.lookupId = QStringLiteral("Lkp_Agenti");
    byCode.headings = {QStringLiteral("Codice agente"), QStringLiteral("Ragione sociale")};
    byCode.listSql = QStringLiteral("SELECT MG17_AGENTE, CG16_RAGSOANAG") + fromAgents +
                     QStringLiteral(" ORDER BY MG17_AGENTE");
    byCode.decodeSql = QStringLiteral("SELECT ISNULL(CG16_RAGSOANAG, '') AS CG16_RAGSOANAG") +
                       fromAgents + QStringLiteral(" AND MG17_AGENTE = @CODICE");
    byCode.decodeColumns = {QStringLiteral("CG16_RAGSOANAG")};

    LookupDefinition byId;
    byId.name = QStringLiteral("LKP_AGENTIBYID");
    byId.title = QStringLiteral("Elenco agenti");
    byId.lookupId = QStringLiteral("Lkp_AgentiById");
    byId.headings = {QStringLiteral("Id agente"), QStringLiteral("Codice agente"),
                     QStringLiteral("Ragione sociale")};
    byId.listSql = QStringLiteral("SELECT MG17_IDAGENTE, MG17_AGENTE, CG16_RAGSOANAG") +
                   fromAgents + QStringLiteral(" ORDER BY MG17_AGENTE");
    // An id means nothing to the user: the description shows the agent's code and name.
    byId.decodeSql = QStringLiteral("SELECT RTRIM(MG17_AGENTE) + ' - ' + "
                                    "ISNULL(CG16_RAGSOANAG, '') AS DESCRIZIONE") +
                     fromAgents + QStringLiteral(" AND MG17_IDAGENTE = @CODICE");
    byId.decodeColumns = {QStringLiteral("DESCRIZIONE")};
    byId.codeKind = ParameterKind::Number;
    return {byCode, byId};
}

// Customers (account kind 0) and suppliers (kind 1) of the company, named by their
// general-registry entry.
QList<LookupDefinition> accounts()
{
    const QString fromAccounts =
        QStringLiteral(" FROM CG44_CLIFOR LEFT JOIN CG16_ANAGGEN ON CG16_CODICE = CG44_CODICE_CG16"
                       " WHERE CG44_DITTA_CG18 = @DITTA AND CG44_TIPOCF = %1");

    LookupDefinition suppliers;
    suppliers.name = QStringLiteral("LKP_FORNITORI");
    suppliers.title = QStringLiteral("Elenco fornitori");
    suppliers.lookupId = QStringLiteral("Lkp_Fornitori");
    suppliers.headings = {QStringLiteral("Codice fornitore"), QStringLiteral("Ragione sociale")};
    suppliers.listSql = QStringLiteral("SELECT CG44_CLIFOR, CG16_RAGSOANAG") + fromAccounts.arg(1) +
                        QStringLiteral(" ORDER BY CG44_CLIFOR");
    suppliers.decodeSql = QStringLiteral("SELECT ISNULL(CG16_RAGSOANAG, '') AS CG16_RAGSOANAG") +
                          fromAccounts.arg(1) + QStringLiteral(" AND CG44_CLIFOR = @CODICE");
    suppliers.decodeColumns = {QStringLiteral("CG16_RAGSOANAG")};
    suppliers.codeKind = ParameterKind::Number;

    LookupDefinition customers;
    customers.name = QStringLiteral("LKP_CLIENTI");
    customers.title = QStringLiteral("Elenco clienti");
    customers.lookupId = QStringLiteral("Lkp_Clienti");
    customers.headings = {QStringLiteral("Codice cliente"), QStringLiteral("Ragione sociale"),
                          QStringLiteral("Località")};
    customers.listSql = QStringLiteral("SELECT CG44_CLIFOR, CG16_RAGSOANAG, CG16_CITTA") +
                        fromAccounts.arg(0) + QStringLiteral(" ORDER BY CG44_CLIFOR");
    // Seven columns: name, address, postcode, town, province, tax code, and last the VAT
    // number or, for a customer without one, the tax code again.
    customers.decodeSql =
        QStringLiteral("SELECT CG16_RAGSOANAG, CG16_INDIRIZZO, CG16_CAP, CG16_CITTA, "
                       "CG16_PROVINCIA, CG16_CODFISC, "
                       "ISNULL(CG16_PARTIVA, CG16_CODFISC) AS CG16_PARTIVA") +
        fromAccounts.arg(0) + QStringLiteral(" AND CG44_CLIFOR = @CODICE");
    customers.decodeColumns = {QStringLiteral("CG16_RAGSOANAG"), QStringLiteral("CG16_INDIRIZZO"),
                               QStringLiteral("CG16_CAP"),       QStringLiteral("CG16_CITTA"),
                               QStringLiteral("CG16_PROVINCIA"), QStringLiteral("CG16_CODFISC"),
                               QStringLiteral("CG16_PARTIVA")};
    customers.codeKind = ParameterKind::Number;
    return {suppliers, customers};
}

// A table of codes and descriptions: listed by code, decoded into its description.
LookupDefinition codeTable(const QString& name, const QString& title, const QString& lookupId,
                           const QStringList& headings, const QString& from,
                           const QString& codeColumn, const QString& description,
                           ParameterKind codeKind)
{
    LookupDefinition d;
    d.name = name;
    d.title = title;
    d.lookupId = lookupId;
    d.headings = headings;
    const QString where = from.contains(QStringLiteral(" WHERE ")) ? QStringLiteral(" AND ")
                                                                   : QStringLiteral(" WHERE ");
    d.listSql = QStringLiteral("SELECT %1, %2 ").arg(codeColumn, description) + from +
                QStringLiteral(" ORDER BY ") + codeColumn;
    d.decodeSql = QStringLiteral("SELECT %1 ").arg(description) + from + where + codeColumn +
                  QStringLiteral(" = @CODICE");
    d.decodeColumns = {description};
    d.codeKind = codeKind;
    return d;
}

QList<LookupDefinition> codeTables()
{
    LookupDefinition destinations = codeTable(
        QStringLiteral("LKP_DESTINAZIONI"), QStringLiteral("Elenco destinazioni del cliente"),
        QStringLiteral("Lkp_Destinazioni"),
        {QStringLiteral("Codice destinazione"), QStringLiteral("Descrizione")},
        QStringLiteral("FROM MG22_DESTINATARI WHERE MG22_DITTA_CG18 = @DITTA"
                       " AND MG22_TIPOCF_CG44 = 0 AND MG22_CLIFOR_CG44 = @CLIENTE"),
        QStringLiteral("MG22_CODDESTIN"), QStringLiteral("MG22_DESCRDEST"), ParameterKind::Text);
    destinations.parameters = {{QStringLiteral("CLIENTE"), ParameterKind::Number}};
    return {
        destinations,
        codeTable(
            QStringLiteral("LKP_GIRI"), QStringLiteral("Elenco giri"), QStringLiteral("Lkp_Giri"),
            {QStringLiteral("Codice giro"), QStringLiteral("Descrizione")},
            QStringLiteral("FROM MG1H_GIRI WHERE MG1H_DITTA_CG18 = @DITTA"),
            QStringLiteral("MG1H_GIRO"), QStringLiteral("MG1H_DESCRIZIONE"), ParameterKind::Text),
        codeTable(QStringLiteral("LKP_TIPOLOGIEAGE"), QStringLiteral("Elenco tipologie agenti"),
                  QStringLiteral("Lkp_TipologieAge"),
                  {QStringLiteral("Codice tipologia"), QStringLiteral("Descrizione")},
                  QStringLiteral("FROM MG1P_TIPOLOGIEAGENTI WHERE MG1P_DITTA_CG18 = @DITTA"),
                  QStringLiteral("MG1P_TIPOAGENTE"), QStringLiteral("MG1P_DESCRIZIONE"),
                  ParameterKind::Number),
        codeTable(QStringLiteral("LKP_LISTINI"), QStringLiteral("Elenco listini"),
                  QStringLiteral("Lkp_Listini"),
                  {QStringLiteral("Numero listino"), QStringLiteral("Descrizione")},
                  QStringLiteral("FROM LS01_LISTINI WHERE LS01_DITTA_CG18 = @DITTA"),
                  QStringLiteral("LS01_NUMLIS"), QStringLiteral("LS01_DESCRLIS"),
                  ParameterKind::Number),
        codeTable(QStringLiteral("LKP_TABPRIORITA"), QStringLiteral("Elenco tabelle priorità"),
                  QStringLiteral("Lkp_TabPriorita"),
                  {QStringLiteral("Codice tabella"), QStringLiteral("Descrizione")},
                  QStringLiteral("FROM LP09_TESTATAPRIORITA"), QStringLiteral("LP09_CODICE"),
                  QStringLiteral("LP09_DESCRIZIONE"), ParameterKind::Text),
    };
}

} // namespace

ParameterKind LookupDefinition::kindOf(const QString& parameter) const
{
    if (parameter == QStringLiteral("DITTA"))
        return ParameterKind::Number;
    if (parameter == QStringLiteral("CODICE"))
        return codeKind;
    for (const Parameter& p : parameters) {
        if (p.name == parameter)
            return p.kind;
    }
    return ParameterKind::Text;
}

LookupCatalogue LookupCatalogue::standard()
{
    LookupCatalogue catalogue;
    for (const QList<LookupDefinition>& group :
         {agents(), classifications(), accounts(), codeTables()}) {
        for (const LookupDefinition& d : group)
            catalogue.add(d);
    }
    return catalogue;
}

const LookupDefinition& LookupCatalogue::definition(const QString& name) const
{
    for (const LookupDefinition& d : m_definitions) {
        if (d.name.compare(name, Qt::CaseInsensitive) == 0)
            return d;
    }
    throw db::RuntimeError(db::RuntimeError::InvalidProcedureCall,
                           QStringLiteral("Ricerca %1 non definita").arg(name));
}

} // namespace tarvello::services
