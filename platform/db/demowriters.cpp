#include "platform/db/demowriters.h"

#include <QDate>

namespace tarvello::db::demo {

Decimal dec(qint64 mantissa, int scale)
{
    return Decimal::fromParts(mantissa, scale);
}

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

} // namespace tarvello::db::demo
