// Databases for the tests: a file of SQLite, or a PostgreSQL server of the
// tests' own.
#pragma once

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QProcess>
#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <QString>
#include <filesystem>
#include <stdexcept>
#include <string>

#include "support/temporary_folder.h"
#include "wynconfig/database.h"

namespace wynconfig {

/// The server of this process: starts when a test first asks for it, and ends with the process.
class PostgresServer {
  public:
    static const std::string& socketFolder() { return instance().m_folder; }
    /// Takes the server away from all its clients, as when its machine is started anew.
    static void stop() { instance().order("stop\n"); }
    static void start() { instance().order("start\n"); }

  private:
    static PostgresServer& instance() {
        static PostgresServer server;
        return server;
    }
    void order(const char* command) {
        m_script.write(command);
        if (!m_script.waitForReadyRead(kMostMilliseconds))
            throw std::runtime_error("the PostgreSQL server of the tests does not obey");
        m_script.readLine();
    }
    static constexpr int kMostMilliseconds = 60'000;
    PostgresServer() {
        m_script.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        m_script.start(WYNCONFIG_SOURCE "/tests/support/postgres_server", QStringList());
        if (!m_script.waitForReadyRead(kMostMilliseconds))
            throw std::runtime_error("the PostgreSQL server of the tests did not start");
        m_folder = m_script.readLine().trimmed().toStdString();
    }
    ~PostgresServer() {
        m_script.closeWriteChannel();
        m_script.waitForFinished();
    }

    QProcess m_script;
    std::string m_folder;
};

/// Runs a test on SQLite and on PostgreSQL, each on an empty database.
class DatabaseDesk : public ::testing::TestWithParam<const char*> {
  protected:
    static void SetUpTestSuite() {
        static int count = 0;
        static QCoreApplication application(count, nullptr);
    }

    void SetUp() override { makeEmptyDatabase(); }

    void makeEmptyDatabase() {
        if (onSqlite()) {
            address = DatabaseAddress::file((folder / "test.sqlite").string());
            std::filesystem::remove(address.name);
            address.options = "QSQLITE_BUSY_TIMEOUT=60000";
        } else {
            address = serverAddress("postgres");
            QSqlDatabase raw = openRaw(address);
            execute(raw, "DROP DATABASE IF EXISTS test WITH (FORCE)");
            execute(raw, "CREATE DATABASE test");
            closeRaw(raw);
            address = serverAddress("test");
        }
    }

    bool onSqlite() const { return std::string(GetParam()) == "SQLite"; }

    static DatabaseAddress serverAddress(const std::string& name) {
        return DatabaseAddress::parse("postgresql://tester@/" + name +
                                      "?host=" + PostgresServer::socketFolder());
    }

    /// A connection beside the host's own.
    static QSqlDatabase openRaw(const DatabaseAddress& to) {
        const bool sqlite = to.kind == DatabaseAddress::Kind::Sqlite;
        QSqlDatabase raw = QSqlDatabase::addDatabase(sqlite ? "QSQLITE" : "QPSQL", "raw");
        raw.setDatabaseName(QString::fromStdString(to.name));
        raw.setHostName(QString::fromStdString(to.host));
        raw.setUserName(QString::fromStdString(to.user));
        if (!raw.open()) throw std::runtime_error(raw.lastError().text().toStdString());
        return raw;
    }
    static void closeRaw(QSqlDatabase& raw) {
        raw.close();
        raw = {};
        QSqlDatabase::removeDatabase("raw");
    }
    static void execute(QSqlDatabase& raw, const QString& statement) {
        QSqlQuery query(raw);
        if (!query.exec(statement))
            throw std::runtime_error(query.lastError().text().toStdString());
    }

    TemporaryFolder folder;
    DatabaseAddress address;
};

#define ON_EVERY_DATABASE(Fixture)                                          \
    INSTANTIATE_TEST_SUITE_P(SQLite, Fixture, ::testing::Values("SQLite")); \
    INSTANTIATE_TEST_SUITE_P(PostgreSQL, Fixture, ::testing::Values("PostgreSQL"))

}  // namespace wynconfig
