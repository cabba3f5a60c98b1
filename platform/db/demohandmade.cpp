#include "platform/db/demodata.h"
#include "platform/db/demowriters.h"

#include <QDate>

namespace tarvello::db::demo {

namespace {

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

} // namespace

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

} // namespace tarvello::db::demo
