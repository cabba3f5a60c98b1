#include "platform/db/demodata.h"

#include "platform/db/demowriters.h"
#include "platform/db/runtimeerror.h"
#include "platform/db/schema.h"

namespace tarvello::db {

using namespace demo;

namespace {

void writeCompanies(Connection& c)
{
    TableWriter companies(c, QStringLiteral("CG18_DITTE"),
                          {QStringLiteral("CG18_DITTA"), QStringLiteral("CG18_RAGSOC"),
                           QStringLiteral("CG18_FLGDATIDIV")});
    companies.insert({DemoCompanies::divisional, "TARVELLO DISTRIBUZIONE S.P.A.", 1});
    companies.insert({DemoCompanies::plain, "FRATELLI ROSSI ALIMENTARI S.R.L.", 0});
}

// Rows of a table given as texts, the company first.
void writeCodeRows(Connection& c, int company, const QString& table, const QStringList& columns,
                   const QList<QStringList>& rows)
{
    TableWriter writer(c, table, columns);
    for (const QStringList& row : rows) {
        ValueList values{company};
        for (const QString& text : row)
            values << text;
        writer.insert(values);
    }
}

void writeClassifications(Connection& c, int company)
{
    const auto s = [](const char* text) { return QString::fromUtf8(text); };
    writeCodeRows(c, company, s("MGL1_MACROAREE"),
                  {s("MGL1_DITTA_CG18"), s("MGL1_MACROAREA"), s("MGL1_DESCRIZIONE")},
                  {{s("NOR"), s("Italia settentrionale")},
                   {s("CEN"), s("Italia centrale")},
                   {s("SUD"), s("Italia meridionale e isole")}});
    writeCodeRows(
        c, company, s("MGL2_AREE"),
        {s("MGL2_DITTA_CG18"), s("MGL2_MACROAREA_MGL1"), s("MGL2_AREA"), s("MGL2_DESCRIZIONE")},
        {{s("NOR"), s("LOM"), s("Lombardia")},
         {s("NOR"), s("PIE"), s("Piemonte")},
         {s("NOR"), s("EMR"), s("Emilia-Romagna")},
         {s("CEN"), s("LAZ"), s("Lazio")},
         {s("SUD"), s("CAM"), s("Campania")},
         {s("SUD"), s("SIC"), s("Sicilia")}});
    writeCodeRows(c, company, s("MGL3_ZONE"),
                  {s("MGL3_DITTA_CG18"), s("MGL3_MACROAREA_MGL1"), s("MGL3_AREA_MGL2"),
                   s("MGL3_ZONA"), s("MGL3_DESCRIZIONE")},
                  {{s("NOR"), s("LOM"), s("MI"), s("Milano e provincia")},
                   {s("NOR"), s("LOM"), s("BG"), s("Bergamo e provincia")},
                   {s("NOR"), s("LOM"), s("BS"), s("Brescia e provincia")},
                   {s("NOR"), s("PIE"), s("TO"), s("Torino e provincia")},
                   {s("NOR"), s("EMR"), s("BO"), s("Bologna e provincia")},
                   {s("CEN"), s("LAZ"), s("RM"), s("Roma e provincia")},
                   {s("SUD"), s("CAM"), s("NA"), s("Napoli e provincia")},
                   {s("SUD"), s("SIC"), s("CT"), s("Catania e provincia")}});
    writeCodeRows(c, company, s("MGL4_MACROCATEGORIE"),
                  {s("MGL4_DITTA_CG18"), s("MGL4_MACROCAT"), s("MGL4_DESCRIZIONE")},
                  {{s("ALI"), s("Alimentari")}, {s("BEV"), s("Bevande")}});
    writeCodeRows(
        c, company, s("MGL5_CATEGORIE"),
        {s("MGL5_DITTA_CG18"), s("MGL5_MACROCAT_MGL4"), s("MGL5_CATEG"), s("MGL5_DESCRIZIONE")},
        {{s("ALI"), s("FRE"), s("Freschi")},
         {s("ALI"), s("SEC"), s("Secco e conserve")},
         {s("BEV"), s("ALC"), s("Alcolici")},
         {s("BEV"), s("ANA"), s("Analcolici")}});
    writeCodeRows(c, company, s("MGL6_SOTTOCATEGORIE"),
                  {s("MGL6_DITTA_CG18"), s("MGL6_MACROCAT_MGL4"), s("MGL6_CATEG_MGL5"),
                   s("MGL6_SOTTOCAT"), s("MGL6_DESCRIZIONE")},
                  {{s("ALI"), s("FRE"), s("LAT"), s("Latticini")},
                   {s("ALI"), s("FRE"), s("SAL"), s("Salumi")},
                   {s("ALI"), s("SEC"), s("PAS"), s("Pasta e riso")},
                   {s("BEV"), s("ALC"), s("VIN"), s("Vini")},
                   {s("BEV"), s("ANA"), s("ACQ"), s("Acque minerali")}});
    writeCodeRows(c, company, s("MGL7_RAGGRUPPAMENTI1"),
                  {s("MGL7_DITTA_CG18"), s("MGL7_RAGGR1"), s("MGL7_DESCRIZIONE")},
                  {{s("GDO"), s("Grande distribuzione")},
                   {s("HOR"), s("Ho.Re.Ca.")},
                   {s("DET"), s("Dettaglio tradizionale")}});
    writeCodeRows(c, company, s("MGL8_RAGGRUPPAMENTI2"),
                  {s("MGL8_DITTA_CG18"), s("MGL8_RAGGR2"), s("MGL8_DESCRIZIONE")},
                  {{s("A"), s("Fascia A")}, {s("B"), s("Fascia B")}, {s("C"), s("Fascia C")}});
    writeCodeRows(c, company, s("MGL9_RAGGRUPPAMENTI3"),
                  {s("MGL9_DITTA_CG18"), s("MGL9_RAGGR3"), s("MGL9_DESCRIZIONE")},
                  {{s("WEB"), s("Ordini dal portale")}, {s("TEL"), s("Ordini telefonici")}});
}

// What every company keeps besides its agents and accounts.
void writeCompanyTables(Connection& c, int company)
{
    writeClassifications(c, company);

    TableWriter typologies(c, QStringLiteral("MG1P_TIPOLOGIEAGENTI"),
                           {QStringLiteral("MG1P_DITTA_CG18"), QStringLiteral("MG1P_TIPOAGENTE"),
                            QStringLiteral("MG1P_DESCRIZIONE")});
    typologies.insert({company, 1, "Agente monomandatario"});
    typologies.insert({company, 2, "Agente plurimandatario"});
    typologies.insert({company, 3, "Procacciatore d'affari"});

    const bool first = company == DemoCompanies::divisional;
    TableWriter depots(c, QStringLiteral("MG58_DEPOSITI"),
                       {QStringLiteral("MG58_DITTA_CG18"), QStringLiteral("MG58_CODDEP"),
                        QStringLiteral("MG58_DESCRDEP"), QStringLiteral("MG58_INDIDEP"),
                        QStringLiteral("MG58_CAPDEP"), QStringLiteral("MG58_LOCDEP"),
                        QStringLiteral("MG58_PROVDEP"), QStringLiteral("MG58_TELNUMDEP"),
                        QStringLiteral("MG58_FAXNUMDEP")});
    // A van is a depot of its own, known by name only.
    TableWriter vanDepots(c, QStringLiteral("MG58_DEPOSITI"),
                          {QStringLiteral("MG58_DITTA_CG18"), QStringLiteral("MG58_CODDEP"),
                           QStringLiteral("MG58_DESCRDEP")});
    TableWriter registers(c, QStringLiteral("CG68_NUMERDESC"),
                          {QStringLiteral("CG68_DITTA_CG18"), QStringLiteral("CG68_SEZIONALE"),
                           QStringLiteral("CG68_DESCSEZ")});
    TableWriter discountTables(c, QStringLiteral("PA10_PROVSCANAG"),
                               {QStringLiteral("PA10_DITTA_CG18"), QStringLiteral("PA10_CODPROVSC"),
                                QStringLiteral("PA10_DESCPROVSC"),
                                QStringLiteral("PA10_FLGVENACQ")});
    TableWriter priceLists(c, QStringLiteral("LS01_LISTINI"),
                           {QStringLiteral("LS01_DITTA_CG18"), QStringLiteral("LS01_NUMLIS"),
                            QStringLiteral("LS01_DESCRLIS")});
    registers.insert({company, "01", "Fatture di vendita"});
    priceLists.insert({company, 1, "Listino di vendita"});
    priceLists.insert({company, 2, "Listino grossisti"});
    if (first) {
        depots.insert({company, "01", "MAGAZZINO CENTRALE", "VIA DELL'INDUSTRIA 5", "20090",
                       "SEGRATE", "MI", "02 2134 5678", "02 2134 5679"});
        depots.insert({company, "02", "DEPOSITO DI NAPOLI", "VIA NAZIONALE DELLE PUGLIE 100",
                       "80143", "NAPOLI", "NA", "081 765 4321", Value::null()});
        vanDepots.insert({company, "V1", "FURGONE MI-01"});
        vanDepots.insert({company, "V2", "FURGONE CT-01"});
        registers.insert({company, "B1", "DDT furgone MI-01"});
        registers.insert({company, "B2", "DDT furgone CT-01"});
        discountTables.insert({company, "SCONTI10", "Provvigioni con sconti fino al 10%", 0});
        discountTables.insert({company, "SCONTI20", "Provvigioni con sconti fino al 20%", 0});
        discountTables.insert({company, "ACQUISTI", "Tabella lato acquisti", 1});
    } else {
        depots.insert({company, "01", "MAGAZZINO DI BOLOGNA", "VIA DEL LAVORO 4", "40127",
                       "BOLOGNA", "BO", "051 630 1122", "051 630 1123"});
        vanDepots.insert({company, "V1", "FURGONE BO-01"});
        registers.insert({company, "B1", "DDT furgone BO-01"});
        discountTables.insert({company, "STANDARD", "Tabella standard", 0});
    }
}

// The load is set-up, not work of the module: its statements stay out of the statement log,
// which would otherwise hold a million entries after a large load.
class LogPause {
public:
    explicit LogPause(StatementLog& log)
        : m_log(log)
        , m_wasEnabled(log.isEnabled())
    {
        m_log.setEnabled(false);
    }
    ~LogPause() { m_log.setEnabled(m_wasEnabled); }
    LogPause(const LogPause&) = delete;
    LogPause& operator=(const LogPause&) = delete;

private:
    StatementLog& m_log; // Not owned.
    bool m_wasEnabled;
};

} // namespace

void createSchema(Connection& connection)
{
    TransactionGuard transaction(connection);
    for (const QString& statement : schemaStatements(connection.dialect()))
        connection.run(statement);
    transaction.commit();
}

void ensureSchema(Connection& connection)
{
    if (!connection.tableInfo(QStringLiteral("MG17_AGENTI")).exists()) {
        createSchema(connection);
        return;
    }
    const QString exists = connection.dialect() == Dialect::Sqlite
                               ? QStringLiteral("SELECT COUNT(*) FROM sqlite_master WHERE "
                                                "type = 'index' AND name = ?")
                               : QStringLiteral("SELECT COUNT(*) FROM sys.indexes WHERE name = ?");
    for (const TableDef& table : Schema::host().tables()) {
        for (const IndexDef& index : table.indexes) {
            if (connection.run(exists, {index.name}).rows.value(0).value(0).toInt64() > 0)
                continue;
            try {
                connection.run(index.createStatement(table.name));
            } catch (const RuntimeError&) {
                // Rows that already break a unique index keep it from being made; the
                // database stays as usable as it was.
            }
        }
    }
}

void populateDemoData(Connection& connection, const DemoOptions& options)
{
    const LogPause pause(connection.log());
    TransactionGuard transaction(connection);
    writeCompanies(connection);
    writeCompanyTables(connection, DemoCompanies::divisional);
    writeCompanyTables(connection, DemoCompanies::plain);
    if (options.agents > 0)
        writeGeneratedSet(connection, options.agents);
    else
        writeHandMadeSet(connection);
    transaction.commit();
}

} // namespace tarvello::db
