// Reading the address of a database.
#include "wynconfig/database.h"

#include <QRegularExpression>
#include <QString>
#include <QStringList>
#include <QUrl>
#include <QUrlQuery>

namespace wynconfig {

namespace {

/// Says nothing of the address: what is not where it belongs may be a password.
[[noreturn]] void refuse(const std::string& fault) {
    throw DatabaseError("The database address can't be read: " + fault +
                        ". It has to be the path of a file, or like "
                        "postgresql://user@host:port/name, where %40 stands for @, %3A for :, %2F "
                        "for /, %3F for ? and %23 for # within a part.");
}

/// The options of a server that the driver knows, but for those that are parts of the address.
bool isKnownOption(const QString& key) {
    static const QStringList known{"application_name",
                                   "channel_binding",
                                   "client_encoding",
                                   "connect_timeout",
                                   "fallback_application_name",
                                   "gssencmode",
                                   "gsslib",
                                   "hostaddr",
                                   "keepalives",
                                   "keepalives_count",
                                   "keepalives_idle",
                                   "keepalives_interval",
                                   "krbsrvname",
                                   "options",
                                   "passfile",
                                   "requirepeer",
                                   "service",
                                   "sslcert",
                                   "sslcompression",
                                   "sslcrl",
                                   "sslcrldir",
                                   "sslkey",
                                   "sslmode",
                                   "sslpassword",
                                   "sslrootcert",
                                   "sslsni",
                                   "ssl_max_protocol_version",
                                   "ssl_min_protocol_version",
                                   "target_session_attrs",
                                   "tcp_user_timeout"};
    return known.contains(key);
}

/// Puts the options behind the question mark into the address.
void readOptions(const QUrlQuery& query, DatabaseAddress& address) {
    QStringList options;
    // A server that is not there is to be told in seconds.
    if (!query.hasQueryItem(QStringLiteral("connect_timeout")))
        options << QStringLiteral("connect_timeout=5");
    for (const auto& [key, value] : query.queryItems(QUrl::FullyDecoded)) {
        if (key == QStringLiteral("host"))
            address.host = value.toStdString();
        else if (key == QStringLiteral("user"))
            address.user = value.toStdString();
        else if (key == QStringLiteral("password"))
            address.password = value.toStdString();
        else if (!isKnownOption(key))
            refuse("it has an option that is not known");
        else if (value.contains(';'))
            refuse("an option holds a semicolon");
        else
            options << key + '=' + value;
    }
    address.options = options.join(';').toStdString();
}

bool holdsAny(const std::string& text, const char* characters) {
    return text.find_first_of(characters) != std::string::npos;
}

/// Whether something stands between the marks of an address that would be taken for a part of the
/// user's name, and may be the mark in front of a password.
bool hasStrayMark(const std::string& text) {
    static const QRegularExpression stray(QStringLiteral("://[^:@/?#]*[\\s;,|][^@/?#]*@"));
    return stray.match(QString::fromStdString(text)).hasMatch();
}

DatabaseAddress serverAddress(const std::string& text) {
    const QUrl url(QString::fromStdString(text));
    if (!url.isValid() || text.find("://") == std::string::npos)
        refuse("its host or port is none, or its parts are not set apart");
    if (url.hasFragment()) refuse("it holds a #");
    if (hasStrayMark(text)) refuse("the user's name holds a blank, or a ; , or |");
    DatabaseAddress address;
    address.kind = DatabaseAddress::Kind::PostgreSql;
    address.name = url.path(QUrl::FullyDecoded).mid(1).toStdString();
    address.host = url.host(QUrl::FullyDecoded).toStdString();
    address.port = url.port(0);
    address.user = url.userName(QUrl::FullyDecoded).toStdString();
    address.password = url.password(QUrl::FullyDecoded).toStdString();
    readOptions(QUrlQuery(url), address);
    // These are shown. Marks in them come of a password that was not written as it has to be.
    if (address.name.empty()) refuse("it names no database");
    if (holdsAny(address.name, "/:@")) refuse("the name of the database holds a /, : or @");
    if (holdsAny(address.user, ":")) refuse("the user's name holds a :");
    if (holdsAny(address.host, "@")) refuse("the host holds an @");
    return address;
}

/// Whether a text may be that of a server, written wrongly, and so hold a password.
bool mayBeServer(const std::string& path) {
    static const QRegularExpression marks(
        QStringLiteral("://|:.*@|^[^/.].*@|^[^/.:]{2,}:|^\\s*postgres|(pass\\w*|pwd)\\s*[=:]"),
        QRegularExpression::CaseInsensitiveOption | QRegularExpression::DotMatchesEverythingOption);
    return marks.match(QString::fromStdString(path)).hasMatch();
}

}  // namespace

DatabaseAddress DatabaseAddress::file(const std::string& path) {
    DatabaseAddress address;
    address.name = path;
    return address;
}

DatabaseAddress DatabaseAddress::parse(const std::string& text) {
    const QString scheme = QString::fromStdString(text).section(':', 0, 0).toLower();
    if (scheme == "postgresql" || scheme == "postgres") return serverAddress(text);
    const std::string sqlite = "sqlite:";
    const std::string path = text.starts_with(sqlite) ? text.substr(sqlite.size()) : text;
    if (path.empty()) refuse("it is empty");
    if (mayBeServer(path)) refuse("it is no path, or one that looks like the address of a server");
    return file(path);
}

DatabaseAddress DatabaseAddress::parseCommandLine(const std::string& text) {
    DatabaseAddress address = parse(text);
    const bool keyHasPassword = address.options.find("sslpassword=") != std::string::npos;
    if (address.password.empty() && !keyHasPassword) return address;
    throw DatabaseError(
        "A password must not stand on the command line, where every user of this machine can see "
        "it. Leave it out of the database address, and put it into the variable PGPASSWORD, or as "
        "a line HOST:PORT:NAME:USER:PASSWORD into the file ~/.pgpass, or one that PGPASSFILE "
        "names, which nobody but you may read.");
}

bool DatabaseAddress::mayHoldPassword(const std::string& text) {
    return mayBeServer(text);
}

std::string DatabaseAddress::text() const {
    if (kind == Kind::Sqlite) return name;
    const std::string place =
        (user.empty() ? "" : user + "@") + host + (port == 0 ? "" : ":" + std::to_string(port));
    return "postgresql://" + place + "/" + name;
}

}  // namespace wynconfig
