#include "platform/services/management/managementcatalogue.h"

#include "platform/db/runtimeerror.h"
#include "src/host/registrysearch.h"

#include <algorithm>

namespace tarvello::services::managements {

namespace {

using Choice = ManagementDescription::Choice;

// A column as the record edits it and the grid shows it.
ManagedColumn column(const QString& name, const char* caption)
{
    ManagedColumn c;
    c.name = name;
    c.caption = QString::fromUtf8(caption);
    return c;
}

ManagedColumn column(const char* name, const char* caption)
{
    return column(QString::fromLatin1(name), caption);
}

// A code the person must give: upper case, required.
ManagedColumn code(const QString& name, const char* caption, int size = 0)
{
    ManagedColumn c = column(name, caption);
    c.required = true;
    c.upperCase = true;
    c.size = size;
    return c;
}

ManagedColumn recordOnly(ManagedColumn c)
{
    c.shown = false;
    return c;
}

ManagedColumn upper(ManagedColumn c)
{
    c.upperCase = true;
    return c;
}

ManagedColumn required(ManagedColumn c)
{
    c.required = true;
    return c;
}

// A column of a list: shown, never edited.
ManagedColumn listed(const char* name, const char* caption)
{
    ManagedColumn c = column(name, caption);
    c.editable = false;
    return c;
}

// A table of the company keyed by a code, with the code and description searched.
ManagementDescription codeTable(const char* name, const char* title, const char* table,
                                QList<ManagedColumn> columns, const QString& description)
{
    ManagementDescription d;
    d.name = QString::fromLatin1(name);
    d.title = QString::fromUtf8(title);
    d.table = QString::fromLatin1(table);
    d.key = {columns.first().name};
    d.companyColumn = d.table.left(d.table.indexOf(u'_')) + QStringLiteral("_DITTA_CG18");
    d.columns = std::move(columns);
    d.searchColumns = {d.key.first(), description};
    d.choice = Choice::OneRow;
    d.handedBack = d.key;
    return d;
}

} // namespace

ManagementDescription routes()
{
    return codeTable("FRM_GIRI", "Giri", "MG1H_GIRI",
                     {code("MG1H_GIRO", "Codice giro"), column("MG1H_DESCRIZIONE", "Descrizione")},
                     QStringLiteral("MG1H_DESCRIZIONE"));
}

ManagementDescription customers()
{
    const QString accounts = QStringLiteral(
        " FROM CG44_CLIFOR LEFT JOIN CG16_ANAGGEN ON CG16_CODICE = CG44_CODICE_CG16");
    const QString ofCompany = QStringLiteral(" WHERE CG44_DITTA_CG18 = @DITTA AND CG44_TIPOCF = 0");
    ManagementDescription d;
    d.name = QStringLiteral("FRM_ELENCOCLIENTI");
    d.title = QStringLiteral("Elenco clienti");
    d.rowsSql =
        QStringLiteral("SELECT CG44_CLIFOR, CG16_RAGSOANAG, CG16_CITTA, '' AS MG22_CODDESTIN,"
                       " '' AS MG22_DESCRDEST") +
        accounts + ofCompany +
        QStringLiteral(" UNION ALL SELECT CG44_CLIFOR, CG16_RAGSOANAG, MG22_CITTA, MG22_CODDESTIN,"
                       " MG22_DESCRDEST") +
        accounts +
        QStringLiteral(" INNER JOIN MG22_DESTINATARI ON MG22_DITTA_CG18 = CG44_DITTA_CG18"
                       " AND MG22_TIPOCF_CG44 = CG44_TIPOCF AND MG22_CLIFOR_CG44 = CG44_CLIFOR") +
        ofCompany;
    d.key = {QStringLiteral("CG44_CLIFOR"), QStringLiteral("MG22_CODDESTIN")};
    d.columns = {listed("CG44_CLIFOR", "Codice cliente"),
                 listed("CG16_RAGSOANAG", "Ragione sociale"), listed("CG16_CITTA", "Località"),
                 listed("MG22_CODDESTIN", "Destinatario"),
                 listed("MG22_DESCRDEST", "Descrizione destinatario")};
    for (const ManagedColumn& c : std::as_const(d.columns))
        d.searchColumns << c.name;
    d.choice = Choice::SeveralRows;
    d.handedBack = d.key;
    return d;
}

ManagementDescription depots()
{
    return codeTable(
        "FRM_DEPOSITI", "Depositi", "MG58_DEPOSITI",
        {code("MG58_CODDEP", "Codice deposito"), column("MG58_DESCRDEP", "Descrizione deposito"),
         recordOnly(column("MG58_INDIDEP", "Indirizzo")), recordOnly(column("MG58_CAPDEP", "CAP")),
         column("MG58_LOCDEP", "Località"), upper(column("MG58_PROVDEP", "Provincia")),
         recordOnly(column("MG58_TELNUMDEP", "Nr. telefono")),
         recordOnly(column("MG58_FAXNUMDEP", "Nr. fax"))},
        QStringLiteral("MG58_DESCRDEP"));
}

ManagementDescription registers()
{
    return codeTable(
        "FRM_SEZIONALI", "Sezionali", "CG68_NUMERDESC",
        {code("CG68_SEZIONALE", "Codice sezionale"), column("CG68_DESCSEZ", "Descrizione")},
        QStringLiteral("CG68_DESCSEZ"));
}

ManagementDescription typologies()
{
    ManagedColumn typology = required(column("MG1P_TIPOAGENTE", "Codice tipologia"));
    typology.size = 2;
    return codeTable("FRM_TIPOLOGIEAGENTI", "Tipologie agenti", "MG1P_TIPOLOGIEAGENTI",
                     {typology, column("MG1P_DESCRIZIONE", "Descrizione")},
                     QStringLiteral("MG1P_DESCRIZIONE"));
}

ManagementDescription discountTables()
{
    ManagementDescription d = codeTable(
        "FRM_PROVVSCONTI", "Tabelle provvigioni su sconti", "PA10_PROVSCANAG",
        {code("PA10_CODPROVSC", "Codice tabella"), column("PA10_DESCPROVSC", "Descrizione")},
        QStringLiteral("PA10_DESCPROVSC"));
    d.parentColumns = {QStringLiteral("PA10_FLGVENACQ")};
    return d;
}

ManagementDescription registry()
{
    ManagementDescription d = codeTable(
        "FRM_ANAGRAFICHE", "Anagrafiche generali", "CG16_ANAGGEN",
        {required(column("CG16_CODICE", "Codice")), code("CG16_RAGSOANAG", "Ragione sociale"),
         recordOnly(column("CG16_INDIRIZZO", "Indirizzo")), recordOnly(column("CG16_CAP", "CAP")),
         column("CG16_CITTA", "Località"), recordOnly(upper(column("CG16_PROVINCIA", "Provincia"))),
         recordOnly(column("CG16_PARTIVA", "Partita IVA")),
         upper(column("CG16_CODFISC", "Codice fiscale"))},
        QStringLiteral("CG16_RAGSOANAG"));
    d.companyColumn.clear();
    d.searchColumns << QStringLiteral("CG16_CODFISC") << QStringLiteral("CG16_PARTIVA");
    return d;
}

ManagementDescription registrySearch(int kind, const QString& title)
{
    const QString entry =
        QStringLiteral(" CG16_CODICE, CG16_RAGSOANAG, CG16_CODFISC, CG16_PARTIVA, CG16_CITTA");
    ManagementDescription d;
    d.name = QStringLiteral("FRM_RICERCAANAGRAFICHE");
    d.title = title;
    d.key = {QStringLiteral("CG16_RAGSOANAG")};
    d.columns = {listed("CG16_CODICE", "Anagrafica"), listed("CG16_RAGSOANAG", "Ragione sociale"),
                 listed("CG16_CODFISC", "Codice fiscale"), listed("CG16_PARTIVA", "Partita IVA"),
                 listed("CG16_CITTA", "Località")};
    d.searchColumns = {QStringLiteral("CG16_CODICE"), QStringLiteral("CG16_RAGSOANAG"),
                       QStringLiteral("CG16_CODFISC")};
    d.choice = Choice::OneRow;
    d.handedBack = {QStringLiteral("CG16_CODICE")};
    if (kind != host::GeneralRegistrySearch::AgentsAndFreeEntries) {
        d.rowsSql = QStringLiteral("SELECT") + entry + QStringLiteral(" FROM CG16_ANAGGEN");
        return d;
    }
    d.rowsSql = QStringLiteral("SELECT MG17_AGENTE,") + entry +
                QStringLiteral(" FROM MG17_AGENTI LEFT JOIN CG16_ANAGGEN"
                               " ON CG16_CODICE = MG17_ANAGEN_CG16 WHERE MG17_DITTA_CG18 = @DITTA"
                               " UNION ALL SELECT '' AS MG17_AGENTE,") +
                entry +
                QStringLiteral(" FROM CG16_ANAGGEN WHERE NOT EXISTS (SELECT 1 FROM MG17_AGENTI"
                               " WHERE MG17_DITTA_CG18 = @DITTA"
                               " AND MG17_ANAGEN_CG16 = CG16_CODICE)");
    d.columns.prepend(listed("MG17_AGENTE", "Codice agente"));
    d.searchColumns.prepend(QStringLiteral("MG17_AGENTE"));
    d.handedBack.prepend(QStringLiteral("MG17_AGENTE"));
    return d;
}

ManagementDescription classification(int branch)
{
    struct Branch {
        const char* name;
        const char* title;
        const char* table;
        const char* code;
        const char* caption;
        QList<std::pair<const char*, const char*>> parents;
    };
    static const std::pair<const char*, const char*> macroarea{"_MACROAREA_MGL1", "Macroarea"};
    static const std::pair<const char*, const char*> macrocat{"_MACROCAT_MGL4", "Macrocategoria"};
    static const Branch branches[] = {
        {"FRM_MACROAREE",
         "Macroaree agenti",
         "MGL1_MACROAREE",
         "_MACROAREA",
         "Codice macroarea",
         {}},
        {"FRM_AREE", "Aree agenti", "MGL2_AREE", "_AREA", "Codice area", {macroarea}},
        {"FRM_ZONE",
         "Zone agenti",
         "MGL3_ZONE",
         "_ZONA",
         "Codice zona",
         {macroarea, {"_AREA_MGL2", "Area"}}},
        {"FRM_MACROCATEGORIE",
         "Macrocategorie agenti",
         "MGL4_MACROCATEGORIE",
         "_MACROCAT",
         "Codice macrocategoria",
         {}},
        {"FRM_CATEGORIE",
         "Categorie agenti",
         "MGL5_CATEGORIE",
         "_CATEG",
         "Codice categoria",
         {macrocat}},
        {"FRM_SOTTOCATEGORIE",
         "Sottocategorie agenti",
         "MGL6_SOTTOCATEGORIE",
         "_SOTTOCAT",
         "Codice sottocategoria",
         {macrocat, {"_CATEG_MGL5", "Categoria"}}},
        {"FRM_RAGGRUPPAMENTI1",
         "Raggruppamenti 1 agenti",
         "MGL7_RAGGRUPPAMENTI1",
         "_RAGGR1",
         "Codice raggruppamento",
         {}},
        {"FRM_RAGGRUPPAMENTI2",
         "Raggruppamenti 2 agenti",
         "MGL8_RAGGRUPPAMENTI2",
         "_RAGGR2",
         "Codice raggruppamento",
         {}},
        {"FRM_RAGGRUPPAMENTI3",
         "Raggruppamenti 3 agenti",
         "MGL9_RAGGRUPPAMENTI3",
         "_RAGGR3",
         "Codice raggruppamento",
         {}},
    };
    if (branch < 0 || branch >= int(std::size(branches)))
        throw db::RuntimeError(db::RuntimeError::InvalidProcedureCall,
                               QStringLiteral("Invalid procedure call or argument"),
                               QStringLiteral("CalledRamo"));
    const Branch& b = branches[branch];
    const QString table = QString::fromLatin1(b.table);
    const QString prefix = table.left(4);
    const ManagedColumn own = code(prefix + QString::fromLatin1(b.code), b.caption, 3);
    const ManagedColumn description =
        column(prefix + QStringLiteral("_DESCRIZIONE"), "Descrizione");
    ManagementDescription d =
        codeTable(b.name, b.title, b.table, {own, description}, description.name);
    d.columns.clear();
    for (const auto& [ending, caption] : b.parents) {
        d.columns << code(prefix + QString::fromLatin1(ending), caption, 3);
        d.parentColumns << d.columns.last().name;
    }
    d.columns << own << description;
    std::copy(d.parentColumns.rbegin(), d.parentColumns.rend(), std::back_inserter(d.handedBack));
    return d;
}

ManagementDescription divisionalData()
{
    ManagementDescription d;
    d.name = QStringLiteral("FRM_DATIDIVISIONALI");
    d.title = QStringLiteral("Dati divisionali");
    d.table = QStringLiteral("CO1G_DETTAGENTE");
    d.key = {QStringLiteral("CO1G_DIVISIONE")};
    d.parentColumns = {QStringLiteral("CO1G_IDENTITADIV_CO1C")};
    d.columns = {code("CO1G_DIVISIONE", "Divisione"), column("CO1G_PERPROV", "% provvigione")};
    d.searchColumns = d.key;
    return d;
}

} // namespace tarvello::services::managements
