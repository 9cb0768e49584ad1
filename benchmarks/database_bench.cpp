// A database of a hundred thousand sessions, listed and searched, against the bare queries.
#include <unistd.h>

#include <QSqlDatabase>
#include <QSqlQuery>
#include <QString>
#include <filesystem>
#include <string>

#include "figures.h"
#include "wynconfig/database.h"

namespace wynconfig::bench {

namespace {

constexpr std::size_t kSessions = 100'000;
constexpr std::size_t kFound = 10;

/// A bare connection to the database.
class Bare {
  public:
    explicit Bare(const std::string& file) {
        m_database = QSqlDatabase::addDatabase("QSQLITE", "bare");
        m_database.setDatabaseName(QString::fromStdString(file));
        m_database.open();
    }
    ~Bare() {
        m_database = {};
        QSqlDatabase::removeDatabase("bare");
    }
    Bare(const Bare&) = delete;
    Bare& operator=(const Bare&) = delete;

    QSqlQuery query() const { return QSqlQuery(m_database); }

  private:
    QSqlDatabase m_database;
};

/// A file of SQLite, for the life of the process, with sessions whose texts are as long as those of
/// real ones.
class BenchDatabase {
  public:
    BenchDatabase() {
        std::filesystem::remove(address.name);
        const SessionDatabase makesTheTables(address, "bench");
        Bare(address.name)
            .query()
            .exec(
                "WITH RECURSIVE n(i) AS (SELECT 0 UNION ALL SELECT i + 1 FROM n WHERE i < 99999) "
                "INSERT INTO config_session (name, xml, version, changed_by, changed_at) "
                "SELECT printf('DESK %05d', i), printf('<order %d>%.*c', i, 1500, 'x'), i, "
                "'carl', '2025-11-30T14:05:09Z' FROM n");
    }
    ~BenchDatabase() { std::filesystem::remove(address.name); }
    BenchDatabase(const BenchDatabase&) = delete;
    BenchDatabase& operator=(const BenchDatabase&) = delete;

    const DatabaseAddress address =
        DatabaseAddress::file((std::filesystem::temp_directory_path() /
                               ("wynconfig-bench-" + std::to_string(getpid()) + ".sqlite"))
                                  .string());
};

const DatabaseAddress& kept() {
    static const BenchDatabase database;
    return database.address;
}

Work ours(const ItemSearch& search, std::size_t rows) {
    return [search, rows](benchmark::State& state) {
        SessionDatabase database(kept(), "bench");
        for (auto _ : state) {
            if (database.list(ItemKind::Session, search).size() != rows)
                state.SkipWithError("the list is not as it should be");
        }
    };
}

/// Reads the same columns of the same rows.
Work bare(const QString& condition, std::size_t rows) {
    return [condition, rows](benchmark::State& state) {
        const Bare database(kept().name);
        for (auto _ : state) {
            QSqlQuery query = database.query();
            query.setForwardOnly(true);
            query.exec("SELECT name, version, changed_by, changed_at FROM config_session " +
                       condition + " ORDER BY name");
            std::size_t count = 0;
            for (; query.next(); ++count) {
                for (int column = 0; column < 4; ++column)
                    benchmark::DoNotOptimize(query.value(column));
            }
            if (count != rows) state.SkipWithError("the rows are not as they should be");
        }
    };
}

}  // namespace

void registerDatabaseFigures() {
    constexpr auto ms = benchmark::kMillisecond;
    figure("database-list-100000", ms, ours({}, kSessions), bare("", kSessions), {5});
    figure("database-search-100000", ms, ours({.name = "k 0123"}, kFound),
           bare("WHERE name LIKE '%K 0123%'", kFound), {5});
}

}  // namespace wynconfig::bench
