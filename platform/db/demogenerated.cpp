#include "platform/db/demodata.h"
#include "platform/db/demowriters.h"

#include <QDate>
#include <algorithm>

namespace tarvello::db::demo {

namespace {

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

} // namespace

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

} // namespace tarvello::db::demo
