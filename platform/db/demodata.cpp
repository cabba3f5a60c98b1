#include "platform/db/demodata.h"

#include "platform/db/runtimeerror.h"
#include "platform/db/schema.h"

#include <QDate>
#include <QHash>
#include <tuple>

namespace tarvello::db {

namespace {

using Pairs = QList<std::pair<QString, Value>>;

Decimal dec(qint64 mantissa, int scale)
{
    return Decimal::fromParts(mantissa, scale);
}

// Inserts rows into one table with one statement text, so the connection prepares it once
// however many rows follow.
class TableWriter {
public:
    TableWriter(Connection& connection, QString table, QStringList columns)
        : m_connection(connection)
        , m_table(std::move(table))
        , m_columns(std::move(columns))
    {
        const QString markers = QStringList(m_columns.size(), QStringLiteral("?")).join(u", ");
        m_sql = QStringLiteral("INSERT INTO %1 (%2) VALUES (%3)")
                    .arg(m_table, m_columns.join(QStringLiteral(", ")), markers);
    }

    void insert(const ValueList& values) { m_connection.run(m_sql, values); }

    // Inserts a row and returns the id the database gave it; extra columns are named for
    // this row only.
    qint64 insertReturningId(const ValueList& values, const QString& identityColumn,
                             const Pairs& extra = {})
    {
        QStringList columns = m_columns;
        ValueList all = values;
        for (const auto& [column, value] : extra) {
            columns << column;
            all << value;
        }
        return m_connection.insertRow(m_table, columns, all, identityColumn).toInt64();
    }

private:
    Connection& m_connection; // Not owned.
    QString m_table;
    QStringList m_columns;
    QString m_sql;
};

struct RegistryEntry {
    int code;
    const char* name;
    const char* address;
    const char* postcode;
    const char* town;
    const char* province;
    const char* vatNumber;
    const char* taxCode;
};

// The registry is shared by the companies; agents, suppliers and customers point into it.
constexpr RegistryEntry registryEntries[] = {
    {1, "BIANCHI MARIO", "VIA ROMA 12", "20121", "MILANO", "MI", "01234560157", "BNCMRA62A01F205Z"},
    {2, "ESPOSITO ANNA", "VIA TOLEDO 210", "80134", "NAPOLI", "NA", "02345670633",
     "SPSNNA70D45F839Q"},
    {3, "COLOMBO LUCA", "VIA DANTE 3", "24121", "BERGAMO", "BG", "03456780163", "CLMLCU75H10A794T"},
    {4, "VERDI GIUSEPPE", "CORSO VITTORIO EMANUELE II 45", "10121", "TORINO", "TO", "04567890018",
     "VRDGPP58C12L219K"},
    {5, "GRECO ELENA", "VIA CHIAIA 55", "80121", "NAPOLI", "NA", "05678900632", "GRCLNE83T61F839H"},
    {6, "RICCI FRANCESCA", "VIALE MONZA 140", "20127", "MILANO", "MI", "06789010151",
     "RCCFNC80M50F205W"},
    {7, "FERRARI NICOLÒ", "VIA XX SETTEMBRE 9", "24122", "BERGAMO", "BG", "07890120168",
     "FRRNCL88B14A794P"},
    {8, "MARINO PAOLO", "VIA GARIBALDI 21", "10122", "TORINO", "TO", "08901230014",
     "MRNPLA72S03L219D"},
    {9, "D'ANGELO SALVATORE", "VIA ETNEA 88", "95131", "CATANIA", "CT", "09012340876",
     "DNGSVT65E20C351B"},
    {10, "CONTI & PARTNERS S.N.C.", "PIAZZA DELLA LOGGIA 1", "25121", "BRESCIA", "BS",
     "10123450174", "10123450174"},
    {11, "GALLI ROBERTO", "VIA EMILIA 300", "40139", "BOLOGNA", "BO", "11234560376",
     "GLLRRT60L01A944F"},
    {12, "LOMBARDI SARA", "VIA INDIPENDENZA 18", "40121", "BOLOGNA", "BO", "12345670379",
     "LMBSRA85P48A944S"},
    {13, "BRUNO GIORGIO", "VIA NAZIONALE 7", "00184", "ROMA", "RM", "13456780588",
     "BRNGRG77R21H501U"},
    {14, "SANTORO MARTINA", "VIA SPARANO 30", "70121", "BARI", "BA", "14567890729",
     "SNTMTN90A41A662E"},
    {21, "BAR SPORT DI FONTANA LUIGI", "PIAZZA DEL DUOMO 2", "20122", "MILANO", "MI", "21234560151",
     "FNTLGU66C05F205R"},
    {22, "SUPERMERCATO LA BOTTEGA S.R.L.", "VIA LORENTEGGIO 255", "20152", "MILANO", "MI",
     "22345670152", "22345670152"},
    {23, "ALIMENTARI GIANNINI ROSA", "VIA PO 14", "10123", "TORINO", "TO", "23456780015",
     "GNNRSO59E50L219M"},
    {24, "RISTORANTE DA GINO S.N.C.", "VIA CARACCIOLO 10", "80122", "NAPOLI", "NA", "24567890634",
     "24567890634"},
    {25, "TABACCHERIA CENTRALE", "CORSO ITALIA 33", "95129", "CATANIA", "CT", "25678900877",
     "TBCCNT71M10C351Y"},
    {26, "PANIFICIO MORETTI", "VIA BROSETA 8", "24128", "BERGAMO", "BG", "26789010164",
     "MRTGNN64P12A794C"},
    {27, "HOTEL BELVEDERE S.P.A.", "VIA PANORAMICA 1", "22021", "BELLAGIO", "CO", "27890120139",
     "27890120139"},
    {28, "FARMACIA SAN MARCO", "VIA SAN MARCO 40", "20121", "MILANO", "MI", "28901230155",
     "SNMFRM80A01F205K"},
    {29, "CARTIERA VENETA S.P.A.", "VIA DELL'INDUSTRIA 15", "35129", "PADOVA", "PD", "29012340285",
     "29012340285"},
};

constexpr int supplierKind = 1;
constexpr int customerKind = 0;
// Divisional entities of kind 3 are agents.
constexpr int agentEntity = 3;

// Account codes: a customer is 1000 + its registry code, a supplier 2000 + its registry code.
int customerCode(int registry)
{
    return 1000 + registry;
}

int supplierCode(int registry)
{
    return 2000 + registry;
}

TableWriter registryWriter(Connection& c)
{
    return {c,
            QStringLiteral("CG16_ANAGGEN"),
            {QStringLiteral("CG16_CODICE"), QStringLiteral("CG16_RAGSOANAG"),
             QStringLiteral("CG16_INDIRIZZO"), QStringLiteral("CG16_CAP"),
             QStringLiteral("CG16_CITTA"), QStringLiteral("CG16_PROVINCIA"),
             QStringLiteral("CG16_PARTIVA"), QStringLiteral("CG16_CODFISC")}};
}

TableWriter accountWriter(Connection& c)
{
    return {c,
            QStringLiteral("CG44_CLIFOR"),
            {QStringLiteral("CG44_DITTA_CG18"), QStringLiteral("CG44_TIPOCF"),
             QStringLiteral("CG44_CLIFOR"), QStringLiteral("CG44_CODICE_CG16")}};
}

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

// Priority tables have no company; returns the id of the first one.
qint64 writePriorityTables(Connection& c)
{
    TableWriter writer(c, QStringLiteral("LP09_TESTATAPRIORITA"),
                       {QStringLiteral("LP09_CODICE"), QStringLiteral("LP09_DESCRIZIONE")});
    const QString id = QStringLiteral("LP09_ID");
    const qint64 first = writer.insertReturningId({"PRI1", "Priorità standard"}, id);
    writer.insertReturningId({"PRI2", "Priorità grande distribuzione"}, id);
    writer.insertReturningId({"PRI3", "Priorità Ho.Re.Ca."}, id);
    return first;
}

// The agents of one company, written in an order where a reference agent comes before the
// agents referring to it; area and zone managers follow from the reference chain.
class AgentWriter {
public:
    AgentWriter(Connection& connection, int company)
        : m_company(company)
        , m_writer(connection, QStringLiteral("MG17_AGENTI"),
                   {QStringLiteral("MG17_DITTA_CG18"), QStringLiteral("MG17_AGENTE"),
                    QStringLiteral("MG17_ANAGEN_CG16"), QStringLiteral("MG17_CLIFOR_CG44"),
                    QStringLiteral("MG17_TIPOCF_CG44"), QStringLiteral("MG17_INDTIPOAGE"),
                    QStringLiteral("MG17_IDAGERIF_MG17"), QStringLiteral("MG17_IDCAPOAREA_MG17"),
                    QStringLiteral("MG17_IDCAPOZONA_MG17")})
    {}

    enum Type { Agent = 0, ZoneManager = 1, AreaManager = 2 };

    // reference: the id of the reference agent, 0 written as 0, Null for none.
    qint64 add(const QString& code, const Value& registry, const Value& supplier, Type type,
               const Value& reference, const Pairs& extra = {})
    {
        Value areaManager = Value::null();
        Value zoneManager = Value::null();
        const auto parent = m_managers.constFind(reference.isNull() ? 0 : reference.toInt64());
        if (parent != m_managers.cend()) {
            areaManager = parent->type == AreaManager ? Value(parent->id) : parent->areaManager;
            if (parent->type == ZoneManager)
                zoneManager = parent->id;
        }
        const Value supplierKindValue = supplier.isNull() ? Value::null() : Value(supplierKind);
        const qint64 id =
            m_writer.insertReturningId({m_company, code, registry, supplier, supplierKindValue,
                                        int(type), reference, areaManager, zoneManager},
                                       QStringLiteral("MG17_IDAGENTE"), extra);
        if (type != Agent)
            m_managers.insert(id, {id, type, areaManager});
        m_ids.insert(code, id);
        return id;
    }

    qint64 id(const QString& code) const { return m_ids.value(code); }

private:
    struct Manager {
        qint64 id;
        Type type;
        Value areaManager;
    };

    int m_company;
    TableWriter m_writer;
    QHash<qint64, Manager> m_managers;
    QHash<QString, qint64> m_ids;
};

// The detail tables of agents, one writer each.
struct DetailWriters {
    explicit DetailWriters(Connection& c)
        : partners(c, QStringLiteral("MG18_AGENTISOCI"),
                   {QStringLiteral("MG18_DITTA_CG18"), QStringLiteral("MG18_IDAGENTE_MG17"),
                    QStringLiteral("MG18_CODSOCIO"), QStringLiteral("MG18_NOMECOGN"),
                    QStringLiteral("MG18_MATRSOCIO"), QStringLiteral("MG18_CODFISOCIO"),
                    QStringLiteral("MG18_PERQUOTA"), QStringLiteral("MG18_DATAINRAPP"),
                    QStringLiteral("MG18_DATACESS")})
        , maturation(c, QStringLiteral("MG16_AGENTIMAT"),
                     {QStringLiteral("MG16_DITTA_CG18"), QStringLiteral("MG16_IDAGENTE_MG17"),
                      QStringLiteral("MG16_TIPOEFF"), QStringLiteral("MG16_GGMATUR")})
        , vanSales(c, QStringLiteral("MG34_AGENTITV"),
                   {QStringLiteral("MG34_DITTA_CG18"), QStringLiteral("MG34_IDAGENTE_MG17"),
                    QStringLiteral("MG34_TVDEP_MG58"), QStringLiteral("MG34_TVSEZ_CG68"),
                    QStringLiteral("MG34_TVTARA"), QStringLiteral("MG34_TVTARGA"),
                    QStringLiteral("MG34_TVINDXH")})
        , routes(c, QStringLiteral("MG1H_GIRI"),
                 {QStringLiteral("MG1H_DITTA_CG18"), QStringLiteral("MG1H_GIRO"),
                  QStringLiteral("MG1H_DESCRIZIONE")})
        , routeDetail(c, QStringLiteral("MG1I_DETTAGLIOGIRI"),
                      {QStringLiteral("MG1I_DITTA_CG18"), QStringLiteral("MG1I_IDAGENTE_MG17"),
                       QStringLiteral("MG1I_GIRO_MG1H"), QStringLiteral("MG1I_PROGRESSIVO"),
                       QStringLiteral("MG1I_TIPOCF_CG44"), QStringLiteral("MG1I_CLIFOR_CG44"),
                       QStringLiteral("MG1I_CODDEST_MG22"), QStringLiteral("MG1I_NOTE")})
        , severalAgents(c, QStringLiteral("MG1C_CLIFORAGEMUL"),
                        {QStringLiteral("MG1C_DITTA_CG18"), QStringLiteral("MG1C_TIPOCF_CG44"),
                         QStringLiteral("MG1C_CLIFOR_CG44"), QStringLiteral("MG1C_IDAGENTE_MG17")})
        , entities(c, QStringLiteral("CO1C_ENTITADIV"),
                   {QStringLiteral("CO1C_DITTA_CG18"), QStringLiteral("CO1C_IDENTITA"),
                    QStringLiteral("CO1C_IDAGENTE_MG17"), QStringLiteral("CO1C_DESCRIZIONE")})
        , entityDetail(c, QStringLiteral("CO1G_DETTAGENTE"),
                       {QStringLiteral("CO1G_IDENTITADIV_CO1C"), QStringLiteral("CO1G_DIVISIONE"),
                        QStringLiteral("CO1G_PERPROV")})
    {}

    // A route's customers in visiting order: positions 1, 2, 3 ...
    void addRoute(int company, qint64 agent, const QString& route,
                  const QList<std::pair<int, Value>>& customersWithDestination,
                  const QStringList& notes = {})
    {
        int position = 0;
        for (const auto& [customer, destination] : customersWithDestination) {
            const Value note = position < notes.size() && !notes[position].isEmpty()
                                   ? Value(notes[position])
                                   : Value::null();
            ++position;
            routeDetail.insert(
                {company, agent, route, position, customerKind, customer, destination, note});
        }
    }

    // An agent's divisional entity with its detail rows (division, commission percentage).
    void addDivisional(int company, qint64 agent, const QString& description,
                       const QList<std::pair<const char*, Decimal>>& divisions)
    {
        const qint64 entity = entities.insertReturningId({company, agentEntity, agent, description},
                                                         QStringLiteral("CO1C_IDENTITADIV"));
        for (const auto& [division, percentage] : divisions)
            entityDetail.insert({entity, division, percentage});
    }

    TableWriter partners;
    TableWriter maturation;
    TableWriter vanSales;
    TableWriter routes;
    TableWriter routeDetail;
    TableWriter severalAgents;
    TableWriter entities;
    TableWriter entityDetail;
};

// Rows of the five document tables of other modules that name an agent.
void writeDocuments(Connection& c, const QList<std::tuple<const char*, int, qint64>>& rows)
{
    int number = 0;
    for (const auto& [table, company, agent] : rows) {
        const QString name = QString::fromLatin1(table);
        const QString prefix = name.left(4);
        TableWriter writer(c, name,
                           {prefix + QStringLiteral("_DITTA_CG18"),
                            prefix + QStringLiteral("_IDAGENTE_MG17"),
                            prefix + QStringLiteral("_NUMDOC"), prefix + QStringLiteral("_DATADOC"),
                            prefix + QStringLiteral("_IMPORTO")});
        ++number;
        writer.insert({company, agent, number, QDate(2024, 1, 31).addMonths(number),
                       dec(125000 + number * 1075, 2)});
    }
}

void writeRegistryAndAccounts(Connection& c)
{
    TableWriter registry = registryWriter(c);
    for (const RegistryEntry& e : registryEntries) {
        registry.insert({e.code, QString::fromUtf8(e.name), QString::fromUtf8(e.address),
                         e.postcode, QString::fromUtf8(e.town), e.province, e.vatNumber,
                         e.taxCode});
    }
    TableWriter accounts = accountWriter(c);
    const int divisional = DemoCompanies::divisional;
    const int plain = DemoCompanies::plain;
    // Marino Paolo (8) is an agent without a supplier account.
    for (int registryCode : {1, 2, 3, 4, 5, 6, 7, 9, 10, 14, 29})
        accounts.insert({divisional, supplierKind, supplierCode(registryCode), registryCode});
    for (int registryCode : {11, 12})
        accounts.insert({plain, supplierKind, supplierCode(registryCode), registryCode});
    for (int registryCode = 21; registryCode <= 28; ++registryCode)
        accounts.insert({divisional, customerKind, customerCode(registryCode), registryCode});
    for (int registryCode : {21, 22, 23})
        accounts.insert({plain, customerKind, customerCode(registryCode), registryCode});

    TableWriter destinations(c, QStringLiteral("MG22_DESTINATARI"),
                             {QStringLiteral("MG22_DITTA_CG18"), QStringLiteral("MG22_TIPOCF_CG44"),
                              QStringLiteral("MG22_CLIFOR_CG44"), QStringLiteral("MG22_CODDESTIN"),
                              QStringLiteral("MG22_DESCRDEST"), QStringLiteral("MG22_INDIRIZZO"),
                              QStringLiteral("MG22_CAP"), QStringLiteral("MG22_CITTA"),
                              QStringLiteral("MG22_PROVINCIA")});
    destinations.insert({divisional, customerKind, customerCode(22), "0001", "MAGAZZINO CENTRALE",
                         "VIA LORENTEGGIO 255", "20152", "MILANO", "MI"});
    destinations.insert({divisional, customerKind, customerCode(22), "0002",
                         "PUNTO VENDITA CORSO BUENOS AIRES", "CORSO BUENOS AIRES 60", "20124",
                         "MILANO", "MI"});
    destinations.insert({divisional, customerKind, customerCode(27), "0001",
                         "RISTORANTE PANORAMICO", "VIA PANORAMICA 3", "22021", "BELLAGIO", "CO"});
    destinations.insert({plain, customerKind, customerCode(22), "0001", "MAGAZZINO DI BOLOGNA",
                         "VIA DEL LAVORO 4", "40127", "BOLOGNA", "BO"});
}

void writeHandMadeSet(Connection& c)
{
    const int divisional = DemoCompanies::divisional;
    const int plain = DemoCompanies::plain;
    writeRegistryAndAccounts(c);
    const qint64 priorityTable = writePriorityTables(c);

    TableWriter media(c, QStringLiteral("CG99_MULTIMEDIA"),
                      {QStringLiteral("CG99_NOMEFILE"), QStringLiteral("CG99_PERCORSO"),
                       QStringLiteral("CG99_DESCRIZIONE")});
    const qint64 photo = media.insertReturningId(
        {"ricci_francesca.jpg", "archivio/agenti/ricci_francesca.jpg", "Fotografia dell'agente"},
        QStringLiteral("CG99_IDMEDIA"));

    const auto reg = [](int code) { return Value(code); };
    const auto sup = [](int registryCode) { return Value(supplierCode(registryCode)); };
    const auto s = [](const char* text) { return QString::fromUtf8(text); };
    const auto territory = [&](const char* macroarea, const char* area, const char* zone) {
        Pairs pairs{{s("MG17_MACROAREA_MGL1"), s(macroarea)}};
        if (*area)
            pairs.append({s("MG17_AREA_MGL2"), s(area)});
        if (*zone)
            pairs.append({s("MG17_ZONA_MGL3"), s(zone)});
        return pairs;
    };
    const auto commission = [&](int regime, Decimal percentage) {
        return Pairs{{s("MG17_REGIMEPROV"), regime}, {s("MG17_PERPROV"), percentage}};
    };
    const auto relationship = [&](QDate start) {
        return Pairs{{s("MG17_DATAINRAPP"), start}, {s("MG17_DATAINMAN"), start}};
    };

    AgentWriter agents(c, divisional);
    using T = AgentWriter::Type;
    const qint64 ca01 = agents.add(
        s("CA01"), reg(1), sup(1), T::AreaManager, Value::null(),
        territory("NOR", "", "") + commission(1, dec(25, 1)) + relationship(QDate(2008, 1, 1)) +
            Pairs{{s("MG17_TIPOAGENTE_MG1P"), 1}, {s("MG17_TIPORAPPOR"), 0}});
    // A root whose reference agent is stored as 0 rather than Null.
    const qint64 ca02 = agents.add(
        s("CA02"), reg(2), sup(2), T::AreaManager, 0,
        territory("SUD", "", "") + commission(1, dec(25, 1)) + relationship(QDate(2010, 4, 1)) +
            Pairs{{s("MG17_TIPOAGENTE_MG1P"), 1}, {s("MG17_TIPORAPPOR"), 0}});
    const qint64 cz01 =
        agents.add(s("CZ01"), reg(3), sup(3), T::ZoneManager, ca01,
                   territory("NOR", "LOM", "") + Pairs{{s("MG17_REGIMEPROV"), 2},
                                                       {s("MG17_FLGREGIMECL"), 1},
                                                       {s("MG17_TIPOAGENTE_MG1P"), 1}});
    const qint64 cz02 =
        agents.add(s("CZ02"), reg(4), sup(4), T::ZoneManager, ca01,
                   territory("NOR", "PIE", "") +
                       Pairs{{s("MG17_REGIMEPROV"), 15}, {s("MG17_ID_LP09"), priorityTable}});
    const qint64 cz03 = agents.add(s("CZ03"), reg(5), sup(5), T::ZoneManager, ca02,
                                   territory("SUD", "CAM", "") + Pairs{{s("MG17_REGIMEPROV"), 5},
                                                                       {s("MG17_INDTIPOLISFIX"), 1},
                                                                       {s("MG17_NUMLISFIX"), 1}});
    const qint64 a001 =
        agents.add(s("A001"), reg(6), sup(6), T::Agent, cz01,
                   territory("NOR", "LOM", "MI") + commission(1, dec(55, 1)) +
                       relationship(QDate(2012, 5, 2)) +
                       Pairs{{s("MG17_MACROCAT_MGL4"), s("ALI")},
                             {s("MG17_CATEG_MGL5"), s("FRE")},
                             {s("MG17_SOTTOCAT_MGL6"), s("LAT")},
                             {s("MG17_RAGGR1_MGL7"), s("GDO")},
                             {s("MG17_RAGGR2_MGL8"), s("A")},
                             {s("MG17_RAGGR3_MGL9"), s("WEB")},
                             {s("MG17_TIPOAGENTE_MG1P"), 1},
                             {s("MG17_FLGADEGUAMSCMAG"), 1},
                             {s("MG17_CODPROVSC_PA10"), s("SCONTI10")},
                             {s("MG17_INDCALCSCMAG"), 2},
                             {s("MG17_IMPMINFATT"), dec(15000, 2)},
                             {s("MG17_MATRENASARCO"), s("1234567")},
                             {s("MG17_DATAISCR"), QDate(2012, 5, 2)},
                             {s("MG17_GUID"), s("6F9619FF-8B86-D011-B42D-00C04FC964FF")},
                             {s("MG17_IDMEDIA_CG99"), photo}});
    const qint64 a002 =
        agents.add(s("A002"), reg(7), sup(7), T::Agent, cz01,
                   territory("NOR", "LOM", "BG") + relationship(QDate(2016, 9, 15)) +
                       Pairs{{s("MG17_MACROCAT_MGL4"), s("BEV")},
                             {s("MG17_CATEG_MGL5"), s("ALC")},
                             {s("MG17_SOTTOCAT_MGL6"), s("VIN")},
                             {s("MG17_RAGGR1_MGL7"), s("HOR")},
                             {s("MG17_RAGGR2_MGL8"), s("B")},
                             {s("MG17_RAGGR3_MGL9"), s("TEL")}});
    // No supplier account: supplier and its kind stay Null.
    agents.add(s("A003"), reg(8), Value::null(), T::Agent, cz02,
               territory("NOR", "PIE", "TO") + relationship(QDate(2015, 2, 1)) +
                   Pairs{{s("MG17_REGIMEPROV"), 3},
                         {s("MG17_TIPOMAND"), 1},
                         {s("MG17_TIPOAGENTE_MG1P"), 2},
                         {s("MG17_DATAFINEMAN"), QDate(2023, 12, 31)}});
    const qint64 dangelo = agents.add(
        s("D'ANGELO"), reg(9), sup(9), T::Agent, ca02,
        territory("SUD", "SIC", "CT") + commission(1, dec(6, 0)) + relationship(QDate(2019, 3, 1)) +
            Pairs{{s("MG17_RAGGR1_MGL7"), s("DET")}, {s("MG17_TIPOAGENTE_MG1P"), 3}});
    const qint64 a004 = agents.add(s("A004"), reg(10), sup(10), T::Agent, cz01,
                                   territory("NOR", "LOM", "BS") + commission(1, dec(4, 0)) +
                                       Pairs{{s("MG17_TIPOSOC"), 2}, {s("MG17_NUMSOCI"), 3}});
    // Not in the general registry: it has no name and stays out of the hierarchy tree.
    agents.add(s("A099"), Value::null(), Value::null(), T::Agent, Value::null());

    AgentWriter plainAgents(c, plain);
    const qint64 plainAreaManager =
        plainAgents.add(s("CA01"), reg(11), sup(11), T::AreaManager, Value::null(),
                        territory("NOR", "EMR", "") + commission(1, dec(3, 0)));
    const qint64 plainAgent =
        plainAgents.add(s("A001"), reg(12), sup(12), T::Agent, plainAreaManager,
                        territory("NOR", "EMR", "BO") + commission(1, dec(5, 0)));

    DetailWriters details(c);
    const QDate partnersSince(2010, 1, 1);
    details.partners.insert({divisional, a004, 1, "CONTI ANDREA", "S0001", "CNTNDR70A01B157X",
                             dec(40, 0), partnersSince, Value::null()});
    details.partners.insert({divisional, a004, 2, "CONTI BEATRICE", "S0002", "CNTBTR73B45B157Y",
                             dec(35, 0), partnersSince, Value::null()});
    details.partners.insert({divisional, a004, 3, "FABBRI MATTEO", "S0003", "FBBMTT81C12B157Z",
                             dec(25, 0), QDate(2015, 6, 1), Value::null()});

    for (const auto& [agent, paymentType, days] :
         QList<std::tuple<qint64, int, int>>{{a001, 2, 60},
                                             {a001, 13, 30},
                                             {dangelo, 1, 0},
                                             {dangelo, 14, 30},
                                             {ca01, 99, 90},
                                             {a004, 14, 60}})
        details.maturation.insert({divisional, agent, paymentType, days});

    details.vanSales.insert({divisional, dangelo, "V2", "B2", dec(185050, 2), "CT123AB", 1});
    details.vanSales.insert({divisional, a001, "V1", "B1", dec(2100, 0), "MI456CD", 0});

    for (const auto& [code, description] :
         QList<std::pair<const char*, const char*>>{{"G01", "Giro del lunedì - Milano centro"},
                                                    {"G02", "Giro del martedì - Milano periferia"},
                                                    {"G03", "Giro del mercoledì - Bergamo e lago"},
                                                    {"G04", "Giro del giovedì - Napoli"},
                                                    {"G05", "Giro del venerdì - Catania"},
                                                    {"G06", "Giro del sabato - Torino"}})
        details.routes.insert({divisional, code, s(description)});
    details.routes.insert({plain, "G01", "Giro unico - Bologna"});

    const Value noDestination = Value::null();
    details.addRoute(
        divisional, a001, s("G01"),
        {{customerCode(21), noDestination},
         {customerCode(22), "0001"},
         {customerCode(28), noDestination}},
        {s("Consegna entro le 9:00"), s("Scarico dal retro, citofonare al magazzino")});
    // The same customer on a second route of the same agent.
    details.addRoute(divisional, a001, s("G02"),
                     {{customerCode(22), "0002"}, {customerCode(21), noDestination}});
    // A customer that another agent also visits.
    details.addRoute(divisional, a002, s("G03"),
                     {{customerCode(26), noDestination},
                      {customerCode(27), "0001"},
                      {customerCode(21), noDestination}},
                     {{}, s("Chiuso il lunedì")});
    details.addRoute(divisional, cz03, s("G04"), {{customerCode(24), noDestination}});
    details.addRoute(divisional, dangelo, s("G05"), {{customerCode(25), noDestination}},
                     {s("Pagamento in contanti alla consegna")});
    details.addRoute(plain, plainAgent, s("G01"),
                     {{customerCode(21), noDestination},
                      {customerCode(22), "0001"},
                      {customerCode(23), noDestination}});

    details.severalAgents.insert({divisional, customerKind, customerCode(21), a001});
    details.severalAgents.insert({divisional, customerKind, customerCode(21), a002});
    details.severalAgents.insert({divisional, customerKind, customerCode(22), a001});
    details.severalAgents.insert({plain, customerKind, customerCode(21), plainAgent});

    details.addDivisional(divisional, a001, s("Dati divisionali di RICCI FRANCESCA"),
                          {{"ALI", dec(45, 1)}, {"BEV", dec(3, 0)}});
    details.addDivisional(divisional, dangelo, s("Dati divisionali di D'ANGELO SALVATORE"),
                          {{"ALI", dec(6, 0)}});
    // An entity of another kind, which the deletion of an agent leaves alone.
    details.entities.insert(
        {divisional, 1, Value::null(), s("Cliente BAR SPORT - dati divisionali")});

    writeDocuments(c, {{"DO21_DOCTESTAPROV", divisional, ca01},
                       {"DO29_DOCTESAGENTI", divisional, a001},
                       {"DO32_DOCCORPOPROV", divisional, a001},
                       {"CT05_CATESTA", divisional, a002},
                       {"CT06_CACORPO", divisional, a002},
                       {"DO21_DOCTESTAPROV", plain, plainAgent}});
}

// Codes of generated rows: a prefix and a zero-padded number.
QString numbered(const char* prefix, qint64 number, int width)
{
    return QString::fromLatin1(prefix) + QStringLiteral("%1").arg(number, width, 10, QChar(u'0'));
}

// Three characters, as route codes are.
QString routeCode(int index)
{
    return QString::number(index + 1, 36).toUpper().rightJustified(3, u'0');
}

// N agents of the first company: one area manager per hundred agents, one zone manager per
// ten, each agent under the latest zone manager; registry entries 1..N are the agents',
// the customers' follow.
void writeGeneratedSet(Connection& c, int count)
{
    const int company = DemoCompanies::divisional;
    writePriorityTables(c);
    const int customers = std::max(10, count / 2);
    const int routes = std::max(5, count / 20);
    const auto customerAccount = [](int index) { return 100000 + index; };
    const auto supplierAccount = [](int agent) { return 300000 + agent; };

    TableWriter registry = registryWriter(c);
    TableWriter accounts = accountWriter(c);
    for (int i = 1; i <= count; ++i) {
        registry.insert({i, numbered("AGENTE ", i, 6), numbered("VIA DEI MILLE ", i % 200 + 1, 0),
                         "20100", "MILANO", "MI", numbered("", i, 11), Value::null()});
        if (i % 7 != 0)
            accounts.insert({company, supplierKind, supplierAccount(i), i});
    }
    for (int j = 1; j <= customers; ++j) {
        const int code = count + j;
        registry.insert({code, numbered("CLIENTE ", j, 6),
                         numbered("CORSO ITALIA ", j % 300 + 1, 0), "10100", "TORINO", "TO",
                         numbered("", code, 11), Value::null()});
        accounts.insert({company, customerKind, customerAccount(j), code});
    }

    DetailWriters details(c);
    for (int r = 0; r < routes; ++r)
        details.routes.insert({company, routeCode(r), numbered("Giro ", r + 1, 0)});

    AgentWriter agents(c, company);
    qint64 areaManager = 0;
    qint64 zoneManager = 0;
    for (int i = 1; i <= count; ++i) {
        const bool partnership = i % 20 == 0;
        const Pairs extra = partnership ? Pairs{{QStringLiteral("MG17_TIPOSOC"), 2},
                                                {QStringLiteral("MG17_NUMSOCI"), 2}}
                                        : Pairs{};
        const Value supplier = i % 7 != 0 ? Value(supplierAccount(i)) : Value::null();
        const QString code = numbered("AG", i, 6);
        qint64 id = 0;
        if (i % 100 == 1) {
            // Roots alternate between a Null and a 0 reference agent.
            const Value root = (i / 100) % 2 == 0 ? Value::null() : Value(0);
            id = agents.add(code, i, supplier, AgentWriter::AreaManager, root, extra);
            areaManager = id;
            zoneManager = 0;
        } else if (i % 10 == 1) {
            id = agents.add(code, i, supplier, AgentWriter::ZoneManager, areaManager, extra);
            zoneManager = id;
        } else {
            const qint64 reference = zoneManager != 0 ? zoneManager : areaManager;
            id = agents.add(code, i, supplier, AgentWriter::Agent, reference, extra);
        }

        if (partnership) {
            details.partners.insert({company, id, 1, numbered("SOCIO A ", i, 6), Value::null(),
                                     Value::null(), dec(60, 0), QDate(2020, 1, 1), Value::null()});
            details.partners.insert({company, id, 2, numbered("SOCIO B ", i, 6), Value::null(),
                                     Value::null(), dec(40, 0), QDate(2020, 1, 1), Value::null()});
        }
        details.maturation.insert({company, id, 2, 60});
        if (i % 2 == 0)
            details.maturation.insert({company, id, 13, 30});
        if (i % 4 == 0) {
            details.vanSales.insert({company, id, "V1", "B1", dec(2000 + i % 500, 0),
                                     numbered("TV", i % 100000, 5), i % 8 == 0 ? 1 : 0});
        }
        const int first = (i * 3) % customers;
        details.addRoute(company, id, routeCode(i % routes),
                         {{customerAccount(first + 1), Value::null()},
                          {customerAccount((first + 1) % customers + 1), Value::null()},
                          {customerAccount((first + 2) % customers + 1), Value::null()}});
        if (i % 10 == 0)
            details.severalAgents.insert({company, customerKind, customerAccount(first + 1), id});
        if (i % 50 == 0)
            details.addDivisional(company, id, numbered("Dati divisionali agente ", i, 0),
                                  {{"ALI", dec(5, 0)}});
        if (i % 25 == 0)
            writeDocuments(c, {{"DO21_DOCTESTAPROV", company, id}});
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
