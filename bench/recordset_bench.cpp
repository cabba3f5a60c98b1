// Opens the agents of a generated database, changes one column of every row and saves
// them all (each variant on its own copy of the same file), through the project's Recordset and,
// side by side in the same run, through the SQLite C API (the floor), plain QSqlQuery and, on
// request, QSqlTableModel.
//
//   recordset_bench [--agents N[,N...]] [--only-recordset] [--with-model]
//                   (default 10000,100000)
//
// QSqlTableModel's submitAll grows with the square of the rows (10,000 rows take minutes),
// so it runs only when asked and only up to modelLimit rows.

#include "bench/support/benchhost.h"
#include "platform/db/connection.h"
#include "platform/db/recordset.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <QSqlRecord>
#include <QSqlTableModel>
#include <cstdio>
#include <cstring>
#include <functional>
#include <malloc.h>
#include <sqlite3.h>
#include <string>
#include <vector>

using namespace tarvello;
using namespace tarvello::db;
using bench::require;

namespace {

constexpr int company = 1;
constexpr int modelLimit = 10000;
const char* const selectAgents = "SELECT * FROM MG17_AGENTI WHERE MG17_DITTA_CG18 = 1";
const char* const idColumn = "MG17_IDAGENTE";
const char* const updateAgent =
    "UPDATE MG17_AGENTI SET MG17_MATRENASARCO = ? WHERE MG17_IDAGENTE = ?";

struct Timing {
    QString name;
    double openMs = 0;
    double saveMs = 0;
    qsizetype rows = 0;
    double total() const { return openMs + saveMs; }
};

QString stamp(int variant, qsizetype row)
{
    return QStringLiteral("V%1-%2").arg(variant).arg(row);
}

Timing viaSqliteApi(const QString& path, int variant)
{
    Timing t{QStringLiteral("SQLite C API (floor)")};
    sqlite3* db = nullptr;
    require(sqlite3_open(path.toUtf8().constData(), &db) == SQLITE_OK, "open");
    QElapsedTimer timer;
    timer.start();
    sqlite3_stmt* select = nullptr;
    require(sqlite3_prepare_v2(db, selectAgents, -1, &select, nullptr) == SQLITE_OK, "prepare");
    const int columns = sqlite3_column_count(select);
    int id = -1;
    for (int c = 0; c < columns; ++c) {
        if (std::strcmp(sqlite3_column_name(select, c), idColumn) == 0)
            id = c;
    }
    require(id >= 0, "key column");
    // Rows kept as text and numbers, as a client would hold them.
    std::vector<std::vector<std::string>> rows;
    std::vector<sqlite3_int64> ids;
    while (sqlite3_step(select) == SQLITE_ROW) {
        std::vector<std::string> row(columns);
        for (int c = 0; c < columns; ++c) {
            if (const auto* text = sqlite3_column_text(select, c))
                row[c].assign(reinterpret_cast<const char*>(text), sqlite3_column_bytes(select, c));
        }
        ids.push_back(sqlite3_column_int64(select, id));
        rows.push_back(std::move(row));
    }
    sqlite3_finalize(select);
    t.openMs = timer.nsecsElapsed() / 1e6;
    t.rows = qsizetype(rows.size());

    timer.restart();
    sqlite3_exec(db, "BEGIN", nullptr, nullptr, nullptr);
    sqlite3_stmt* update = nullptr;
    require(sqlite3_prepare_v2(db, updateAgent, -1, &update, nullptr) == SQLITE_OK, "prepare");
    for (size_t i = 0; i < ids.size(); ++i) {
        const QByteArray value = stamp(variant, qsizetype(i)).toUtf8();
        sqlite3_bind_text(update, 1, value.constData(), int(value.size()), SQLITE_TRANSIENT);
        sqlite3_bind_int64(update, 2, ids[i]);
        require(sqlite3_step(update) == SQLITE_DONE, "update");
        sqlite3_reset(update);
    }
    sqlite3_finalize(update);
    require(sqlite3_exec(db, "COMMIT", nullptr, nullptr, nullptr) == SQLITE_OK, "commit");
    t.saveMs = timer.nsecsElapsed() / 1e6;
    sqlite3_close(db);
    return t;
}

// The rows of the file holding the variant's stamp: every variant must have saved every row.
qsizetype stampedRows(const QString& path, int variant)
{
    sqlite3* db = nullptr;
    require(sqlite3_open(path.toUtf8().constData(), &db) == SQLITE_OK, "open");
    sqlite3_stmt* count = nullptr;
    require(sqlite3_prepare_v2(db,
                               "SELECT COUNT(*) FROM MG17_AGENTI WHERE MG17_MATRENASARCO LIKE ?",
                               -1, &count, nullptr) == SQLITE_OK,
            "prepare");
    const QByteArray pattern = QStringLiteral("V%1-%").arg(variant).toUtf8();
    sqlite3_bind_text(count, 1, pattern.constData(), int(pattern.size()), SQLITE_TRANSIENT);
    require(sqlite3_step(count) == SQLITE_ROW, "count");
    const qsizetype rows = sqlite3_column_int64(count, 0);
    sqlite3_finalize(count);
    sqlite3_close(db);
    return rows;
}

QSqlDatabase qtDatabase(const QString& path, const QString& name)
{
    QSqlDatabase db = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), name);
    db.setDatabaseName(path);
    require(db.open(), "QSQLITE open");
    return db;
}

Timing viaQSqlQuery(const QString& path, int variant)
{
    Timing t{QStringLiteral("QSqlQuery prepared")};
    {
        QSqlDatabase db = qtDatabase(path, QStringLiteral("bench-query"));
        QElapsedTimer timer;
        timer.start();
        QSqlQuery select(db);
        select.setForwardOnly(true);
        require(select.exec(QString::fromLatin1(selectAgents)), "select");
        const int columns = select.record().count();
        const int id = select.record().indexOf(QString::fromLatin1(idColumn));
        require(id >= 0, "key column");
        std::vector<std::vector<QVariant>> rows;
        while (select.next()) {
            std::vector<QVariant> row(columns);
            for (int c = 0; c < columns; ++c)
                row[c] = select.value(c);
            rows.push_back(std::move(row));
        }
        t.openMs = timer.nsecsElapsed() / 1e6;
        t.rows = qsizetype(rows.size());

        timer.restart();
        require(db.transaction(), "begin");
        QSqlQuery update(db);
        require(update.prepare(QString::fromLatin1(updateAgent)), "prepare");
        for (size_t i = 0; i < rows.size(); ++i) {
            update.bindValue(0, stamp(variant, qsizetype(i)));
            update.bindValue(1, rows[i][id]);
            require(update.exec(), "update");
        }
        require(db.commit(), "commit");
        t.saveMs = timer.nsecsElapsed() / 1e6;
    }
    QSqlDatabase::removeDatabase(QStringLiteral("bench-query"));
    return t;
}

Timing viaQSqlTableModel(const QString& path, int variant)
{
    Timing t{QStringLiteral("QSqlTableModel")};
    {
        QSqlDatabase db = qtDatabase(path, QStringLiteral("bench-model"));
        QElapsedTimer timer;
        timer.start();
        QSqlTableModel model(nullptr, db);
        model.setEditStrategy(QSqlTableModel::OnManualSubmit);
        model.setTable(QStringLiteral("MG17_AGENTI"));
        model.setFilter(QStringLiteral("MG17_DITTA_CG18 = %1").arg(company));
        require(model.select(), "select");
        while (model.canFetchMore())
            model.fetchMore();
        t.openMs = timer.nsecsElapsed() / 1e6;
        t.rows = model.rowCount();

        timer.restart();
        const int column = model.fieldIndex(QStringLiteral("MG17_MATRENASARCO"));
        for (int row = 0; row < model.rowCount(); ++row)
            model.setData(model.index(row, column), stamp(variant, row));
        require(db.transaction(), "begin");
        require(model.submitAll(), "submitAll");
        require(db.commit(), "commit");
        t.saveMs = timer.nsecsElapsed() / 1e6;
    }
    QSqlDatabase::removeDatabase(QStringLiteral("bench-model"));
    return t;
}

// The heap the process holds, in bytes.
double heapInUse()
{
    const struct mallinfo2 info = mallinfo2();
    return double(info.uordblks + info.hblkhd);
}

Timing viaRecordset(const QString& path, int variant, double& heapPerRow)
{
    Timing t{QStringLiteral("Tarvello Recordset")};
    Connection connection;
    connection.open(QStringLiteral("Data Source=") + path);
    connection.log().setEnabled(false);
    const double heapBefore = heapInUse();
    QElapsedTimer timer;
    timer.start();
    const RecordsetPtr rs = Recordset::open(connection, QString::fromLatin1(selectAgents));
    t.openMs = timer.nsecsElapsed() / 1e6;
    t.rows = rs->recordCount();
    heapPerRow = (heapInUse() - heapBefore) / double(qMax<qsizetype>(t.rows, 1));

    timer.restart();
    qsizetype i = 0;
    for (rs->moveFirst(); !rs->eof(); rs->moveNext())
        rs->setValue(u"MG17_MATRENASARCO", stamp(variant, i++));
    rs->updateBatch();
    t.saveMs = timer.nsecsElapsed() / 1e6;
    return t;
}

struct Options {
    bool onlyRecordset = false;
    bool withModel = false;
};

// The Recordset's timing at this size.
Timing runFor(int agents, const Options& options)
{
    const bench::BenchDatabase database(agents);
    std::vector<std::function<Timing(const QString&, int)>> variants{viaSqliteApi};
    if (!options.onlyRecordset)
        variants.push_back(viaQSqlQuery);
    const bool withModel = options.withModel && !options.onlyRecordset && agents <= modelLimit;
    if (withModel)
        variants.push_back(viaQSqlTableModel);
    double heapPerRow = 0;
    variants.push_back(
        [&heapPerRow](const QString& file, int n) { return viaRecordset(file, n, heapPerRow); });
    std::vector<Timing> timings;
    int variant = 0;
    for (const auto& run : variants) {
        ++variant;
        const QString file = database.copy(QStringLiteral("variant%1.db").arg(variant));
        timings.push_back(run(file, variant));
        require(stampedRows(file, variant) == timings.back().rows, "every row saved");
    }

    const Timing& floor = timings.front();
    std::printf("\n%d agents generated; rows read and saved: %lld\n", agents,
                static_cast<long long>(floor.rows));
    std::printf("%-24s %10s %10s %10s %8s %8s %8s\n", "variant", "open ms", "save ms", "total ms",
                "open x", "save x", "total x");
    for (const Timing& t : timings) {
        std::printf("%-24s %10.1f %10.1f %10.1f %8.2f %8.2f %8.2f\n", qPrintable(t.name), t.openMs,
                    t.saveMs, t.total(), t.openMs / floor.openMs, t.saveMs / floor.saveMs,
                    t.total() / floor.total());
    }
    const Timing& ours = timings.back();
    std::printf("Recordset: save %.2fx the floor (target <= 1.5), open plus save %.2fx (target "
                "<= 1.3); heap held after the open: %.0f bytes per row\n",
                ours.saveMs / floor.saveMs, ours.total() / floor.total(), heapPerRow);
    if (!options.onlyRecordset)
        std::printf("QSqlQuery / Recordset: save %.2fx, open plus save %.2fx (target > 1)\n",
                    timings[1].saveMs / ours.saveMs, timings[1].total() / ours.total());
    if (withModel)
        std::printf("QSqlTableModel / Recordset: %.2fx\n", timings[2].total() / ours.total());
    return ours;
}

} // namespace

int main(int argc, char** argv)
{
    QCoreApplication app(argc, argv);
    QList<int> sizes{10000, 100000};
    const QStringList args = app.arguments();
    const qsizetype at = args.indexOf(QStringLiteral("--agents"));
    if (at >= 0 && at + 1 < args.size()) {
        sizes.clear();
        for (const QString& n : args[at + 1].split(u','))
            sizes << n.toInt();
    }
    Options options;
    // --only-recordset keeps the floor and ours, for profiling.
    options.onlyRecordset = args.contains(QStringLiteral("--only-recordset"));
    options.withModel = args.contains(QStringLiteral("--with-model"));
    std::vector<std::pair<int, Timing>> ours;
    for (int agents : sizes)
        ours.emplace_back(agents, runFor(agents, options));
    for (size_t i = 1; i < ours.size(); ++i) {
        std::printf("\nRecordset save, %d rows / %d rows: %.2fx for %.0fx the rows (target "
                    "<= 11x for 10x)\n",
                    ours[i].first, ours[i - 1].first,
                    ours[i].second.saveMs / ours[i - 1].second.saveMs,
                    double(ours[i].first) / ours[i - 1].first);
    }
    return 0;
}
