// The sample host: a small parts catalogue that lets its user configure sessions.
#include <QApplication>
#include <QCommandLineParser>
#include <QStandardPaths>
#include <algorithm>
#include <cstdio>
#include <exception>
#include <optional>
#include <stdexcept>
#include <system_error>
#include <utility>

#include "installed_view.h"
#include "tour/pictures.h"
#include "tour/tour.h"
#include "window/appearance.h"
#include "window/language.h"
#include "window/main_window.h"
#include "window/remembered.h"
#include "window/starting.h"
#include "window/workplace.h"
#include "wynconfig/qt_view.h"
#include "wynconfig/resource_manager.h"

namespace {

namespace fs = std::filesystem;

/// Lets a machine without a display go on the tour, or show the help, all the same.
void provideScreen() {
    const auto unset = [](const char* name) { return qEnvironmentVariableIsEmpty(name); };
    if (unset("DISPLAY") && unset("WAYLAND_DISPLAY") && unset("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
}

fs::path absolutePath(const QString& text) {
    const fs::path path = fs::absolute(text.toStdString());
    std::error_code failure;
    const fs::path whole = fs::weakly_canonical(path, failure);
    // Of a link that leads round in a circle the window tells.
    return failure ? path.lexically_normal() : whole;
}

struct Arguments {
    fs::path store;
    std::string resources;
    std::string language;  ///< empty: the user's
    bool dark = false;
    std::optional<wynconfig::DatabaseAddress> database;  ///< none: the file beside the store
    fs::path tour;                                       ///< empty: no tour
    fs::path pictures;                                   ///< empty: no pictures
};

/// Reads the command line. What the parser quotes of one that it can't read may hold a password.
void process(QCommandLineParser& parser, const QApplication& application) {
    const QStringList given = QApplication::arguments();
    const bool isSecret = std::any_of(given.begin() + 1, given.end(), [](const QString& each) {
        return wynconfig::DatabaseAddress::mayHoldPassword(each.toStdString());
    });
    if (isSecret && !parser.parse(given))
        throw std::runtime_error(
            "The command line can't be read. It is not quoted, since it may hold a password; "
            "--help tells the options.");
    parser.process(application);
}

Arguments readArguments(const QApplication& application) {
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral("A sample parts catalogue."));
    parser.addHelpOption();
    parser.addOptions({
        {"store", "Folder of the store; a sample store is made there when it has none.", "folder",
         QStandardPaths::writableLocation(QStandardPaths::AppDataLocation) + "/sample-store"},
        {"resources", "Folder of the texts.", "folder",
         QString::fromStdString(wynconfig::bundleFolder())},
        {"language", "Language of the windows, such as de; otherwise the user's.", "language"},
        {"dark", "Light text on dark ground."},
        {"database",
         "Database that workstations share, such as postgresql://user@host:port/name, or the "
         "path of an SQLite file; catalogue.sqlite in the store when none is given. The password "
         "stands in PGPASSWORD or ~/.pgpass, never here.",
         "address"},
        {"tour",
         "Has a played user walk through the dialogs, puts pictures and the store into "
         "this folder, and checks the store.",
         "folder"},
        {"pictures", "Puts pictures of the main dialogs into this folder.", "folder"},
    });
    process(parser, application);
    Arguments arguments;
    arguments.store = absolutePath(parser.value("store"));
    arguments.resources = parser.value("resources").toStdString();
    arguments.language = parser.value("language").toStdString();
    arguments.dark = parser.isSet("dark");
    if (parser.isSet("database")) {
        auto address =
            wynconfig::DatabaseAddress::parseCommandLine(parser.value("database").toStdString());
        if (address.kind == wynconfig::DatabaseAddress::Kind::Sqlite)
            address.name = absolutePath(QString::fromStdString(address.name)).string();
        arguments.database = std::move(address);
    }
    if (parser.isSet("tour")) arguments.tour = absolutePath(parser.value("tour"));
    if (parser.isSet("pictures")) arguments.pictures = absolutePath(parser.value("pictures"));
    return arguments;
}

/// The file in which the window remembers what the user had in it.
fs::path settingsFile() {
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::AppConfigLocation);
    return (folder + "/window.ini").toStdString();
}

int runHost(wynconfig::WYNConfig& component, const Arguments& arguments,
            host::Remembered& remembered) {
    const auto store = host::findStore(component, arguments.store);
    if (!store) return 1;
    const host::InstalledView installed(wynconfig::makeQtView());
    component.init(store->rootText());
    host::Workplace workplace(component, *store, arguments.database, arguments.resources,
                              arguments.language);
    host::MainWindow window(workplace, &remembered);
    window.show();
    return QApplication::exec();
}

/// The host in a window, in which also a bad start is told.
int runInWindow(Arguments& arguments, host::Remembered& remembered) {
    try {
        if (arguments.language.empty()) arguments.language = remembered.language();
        const auto texts = host::findTexts(arguments.resources, arguments.language);
        if (!texts) return 1;
        if (arguments.dark) host::darken();
        wynconfig::WYNConfig component;
        component.InitResourceManager(texts);
        return runHost(component, arguments, remembered);
    } catch (const std::exception& failure) {
        host::tellBadStart(failure.what());
        throw;
    }
}

int run(const QApplication& application) {
    Arguments arguments = readArguments(application);
    if (arguments.tour.empty() && arguments.pictures.empty()) {
        host::Remembered remembered(settingsFile());
        return runInWindow(arguments, remembered);
    }
    // The tour and the pictures are the same whatever anybody had in the window.
    const auto texts = host::useLanguage(arguments.resources, arguments.language);
    if (arguments.dark) host::darken();
    wynconfig::WYNConfig component;
    component.InitResourceManager(texts);
    if (!arguments.pictures.empty()) {
        host::takePictures(component, arguments.pictures);
        return 0;
    }
    return host::Tour(component, *texts, arguments.resources, arguments.tour).run() ? 0 : 1;
}

}  // namespace

int main(int argumentCount, char* arguments[]) {
    for (int i = 1; i < argumentCount; ++i) {
        const QByteArray argument(arguments[i]);
        if (argument.startsWith("--tour") || argument.startsWith("--pictures") ||
            argument.startsWith("--help") || argument == "-h")
            provideScreen();
    }
    QApplication application(argumentCount, arguments);
    // Not the display name: that would go into the titles of the dialogs.
    QApplication::setApplicationName(QStringLiteral("Parts Catalogue"));
    try {
        return run(application);
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "sample_host: %s\n", failure.what());
        return 1;
    }
}
