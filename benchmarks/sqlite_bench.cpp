// What the same would cost in a database file: SQLite with a write-ahead log and full syncs, each
// row of a record by itself, or records as whole texts.
#include <unistd.h>

#include <QSqlDatabase>
#include <QSqlQuery>
#include <QString>
#include <QVariant>
#include <filesystem>
#include <memory>
#include <string>

#include "bench_store.h"
#include "dialogs/session/frmMORAMConfig.h"
#include "figures.h"
#include "store/config_global_module.h"
#include "turn.h"

namespace wynconfig::bench {

namespace {

constexpr int kSessions = 1000;

QString sessionText(int number, const std::string& format = formatNames[0]) {
    Dataset record;
    fillSession(record, sessionName(number), format);
    Document document;
    record.Save(document);
    return QString::fromStdString(document.xml());
}

/// The sessions of a store in a database file, in both forms.
class Database {
  public:
    Database() {
        std::filesystem::remove(m_file);
        m_database = QSqlDatabase::addDatabase("QSQLITE", "sqlite-bench");
        m_database.setDatabaseName(QString::fromStdString(m_file));
        m_database.open();
        run("PRAGMA journal_mode=WAL");
        run("PRAGMA synchronous=FULL");
        run("CREATE TABLE line (session TEXT, element TEXT, data TEXT, "
            "PRIMARY KEY (session, element)) WITHOUT ROWID");
        run("CREATE TABLE record (session TEXT PRIMARY KEY, text TEXT) WITHOUT ROWID");
        m_database.transaction();
        for (int i = 0; i < kSessions; ++i) fill(i);
        m_database.commit();
    }
    Database(const Database&) = delete;
    Database& operator=(const Database&) = delete;
    ~Database() {
        m_database = {};
        QSqlDatabase::removeDatabase("sqlite-bench");
        for (const char* part : {"", "-wal", "-shm"}) std::filesystem::remove(m_file + part);
    }

    QSqlQuery run(const QString& statement, const QVariantList& values = {}) const {
        QSqlQuery query(m_database);
        query.setForwardOnly(true);
        query.prepare(statement);
        for (const QVariant& value : values) query.addBindValue(value);
        query.exec();
        return query;
    }
    /// The rows that it changes.
    int changed(const QString& statement, const QVariantList& values) const {
        return run(statement, values).numRowsAffected();
    }
    void begin() { m_database.transaction(); }
    void commit() { m_database.commit(); }

  private:
    void fill(int number) const {
        Dataset record;
        fillSession(record, sessionName(number), formatNames[0]);
        const QString name = QString::fromStdString(record.Name());
        run("INSERT INTO record VALUES (?, ?)", {name, sessionText(number)});
        for (const DataRow& row : record.Rows()) {
            run("INSERT INTO line VALUES (?, ?, ?)",
                {name, QString::fromStdString(row[0]), QString::fromStdString(row[1])});
        }
    }

    std::string m_file = (std::filesystem::temp_directory_path() /
                          ("wynconfig-bench-" + std::to_string(getpid()) + "-lines.sqlite"))
                             .string();
    QSqlDatabase m_database;
};

Database& database() {
    static Database kept;
    return kept;
}

void ourSave(benchmark::State& state) {
    keptStore("sqlite", kSessions, 1);
    Dataset record;
    const ItemPath file = ItemPath::item(ConfigGlobalModule::g_SessionFolder, sessionName(0));
    record.Load(file);
    for (auto _ : state) record.Save(file);
}

void saveOfARow(benchmark::State& state) {
    int times = 0;
    for (auto _ : state) {
        if (database().changed("UPDATE line SET data = ? WHERE session = 'SESSION 00000' AND "
                               "element = 'CommandLineArgs'",
                               {++times}) != 1)
            state.SkipWithError("no row was written");
    }
}

void saveOfARecord(benchmark::State& state) {
    // Another one each time: what is as it was costs nothing.
    const QString texts[] = {sessionText(0, formatNames[1]), sessionText(0)};
    std::size_t times = 0;
    for (auto _ : state) {
        if (database().changed("UPDATE record SET text = ? WHERE session = 'SESSION 00000'",
                               {texts[times++ % 2]}) != 1)
            state.SkipWithError("no record was written");
    }
}

void ourWalk(benchmark::State& state) {
    static Turn turn;
    keptStore("sqlite-walk", kSessions, 1);
    frmMORAMConfig form;
    for (auto _ : state) {
        form.UpdatePartNumberFormatsInAllMORAMs(turn.from(), turn.to());
        turn.next();
    }
}

void walkOverRows(benchmark::State& state) {
    static Turn turn;
    for (auto _ : state) {
        const int rows = database().changed(
            "UPDATE line SET data = ? WHERE data = ? AND element LIKE 'FORMAT%'",
            {QString::fromStdString(turn.to()), QString::fromStdString(turn.from())});
        if (rows != kSessions) state.SkipWithError("not all rows were written");
        turn.next();
    }
}

void walkOverRecords(benchmark::State& state) {
    static Turn turn;
    for (auto _ : state) {
        database().begin();
        QSqlQuery all = database().run("SELECT session, text FROM record");
        while (all.next()) {
            Document document;
            document.loadXML(all.value(1).toString().toStdString());
            Dataset record;
            record.Load(document);
            const DataRow row{"FORMAT2", turn.to()};
            if (record.GetRow("FORMAT2")[1] == turn.from()) record.UpdateRow(row, row);
            record.Save(document);
            database().run("UPDATE record SET text = ? WHERE session = ?",
                           {QString::fromStdString(document.xml()), all.value(0)});
        }
        all.finish();
        database().commit();
        turn.next();
    }
}

}  // namespace

void registerSqliteFigures() {
    constexpr auto ms = benchmark::kMillisecond;
    figure("save-against-sqlite-row", ms, ourSave, saveOfARow);
    figure("save-against-sqlite-record", ms, ourSave, saveOfARecord);
    figure("walk-against-sqlite-rows-1000", ms, ourWalk, walkOverRows, {5, true});
    figure("walk-against-sqlite-records-1000", ms, ourWalk, walkOverRecords, {5, true});
}

}  // namespace wynconfig::bench
