#pragma once

#include "platform/db/connection.h"

#include <QHash>
#include <tuple>

// What the demo data is written with: one writer per table, the agents in reference order,
// the detail tables of agents; and the two sets of rows, each in a file of its own.
namespace tarvello::db::demo {

using Pairs = QList<std::pair<QString, Value>>;

Decimal dec(qint64 mantissa, int scale);

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

constexpr int supplierKind = 1;
constexpr int customerKind = 0;
// Divisional entities of kind 3 are agents.
constexpr int agentEntity = 3;

// Account codes: a customer is 1000 + its registry code, a supplier 2000 + its registry code.
int customerCode(int registry);

int supplierCode(int registry);

TableWriter registryWriter(Connection& c);

TableWriter accountWriter(Connection& c);

// Priority tables have no company; returns the id of the first one.
qint64 writePriorityTables(Connection& c);

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
void writeDocuments(Connection& c, const QList<std::tuple<const char*, int, qint64>>& rows);

// The small hand-made set of both companies.
void writeHandMadeSet(Connection& c);
// N generated agents of the first company, with customers, routes and details in proportion.
void writeGeneratedSet(Connection& c, int count);

} // namespace tarvello::db::demo
