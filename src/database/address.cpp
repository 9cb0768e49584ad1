// Reading the address of a database.
#include "wynconfig/database.h"

#include <QString>
#include <QStringList>
#include <QUrl>
#include <QUrlQuery>

namespace wynconfig {

namespace {

DatabaseAddress serverAddress(const QUrl& url, const std::string& text) {
    DatabaseAddress address;
    address.kind = DatabaseAddress::Kind::PostgreSql;
    address.name = url.path(QUrl::FullyDecoded).mid(1).toStdString();
    if (!url.isValid() || address.name.empty() || address.name.find('/') != std::string::npos)
        throw DatabaseError("The database address " + text +
                            " can't be read. It has to be like postgresql://user@host:port/name.");
    address.host = url.host(QUrl::FullyDecoded).toStdString();
    address.port = url.port(0);
    address.user = url.userName(QUrl::FullyDecoded).toStdString();
    address.password = url.password(QUrl::FullyDecoded).toStdString();
    // A server that is not there is to be told in seconds.
    QStringList options;
    const QUrlQuery query(url);
    if (!query.hasQueryItem(QStringLiteral("connect_timeout")))
        options << QStringLiteral("connect_timeout=5");
    for (const auto& [key, value] : query.queryItems(QUrl::FullyDecoded)) {
        if (key == QStringLiteral("host"))
            address.host = value.toStdString();
        else
            options << key + '=' + value;
    }
    address.options = options.join(';').toStdString();
    return address;
}

}  // namespace

DatabaseAddress DatabaseAddress::file(const std::string& path) {
    DatabaseAddress address;
    address.name = path;
    return address;
}

DatabaseAddress DatabaseAddress::parse(const std::string& text) {
    const QUrl url(QString::fromStdString(text));
    if (url.scheme() == "postgresql" || url.scheme() == "postgres") return serverAddress(url, text);
    const std::string sqlite = "sqlite:";
    const std::string path = text.starts_with(sqlite) ? text.substr(sqlite.size()) : text;
    if (path.empty() || path.find("://") != std::string::npos)
        throw DatabaseError("The database address " + text +
                            " can't be read. It has to be the path of a file, or like "
                            "postgresql://user@host:port/name.");
    return file(path);
}

std::string DatabaseAddress::text() const {
    if (kind == Kind::Sqlite) return name;
    const std::string place =
        (user.empty() ? "" : user + "@") + host + (port == 0 ? "" : ":" + std::to_string(port));
    return "postgresql://" + place + "/" + name;
}

}  // namespace wynconfig
