// The sample host: a small parts catalogue that lets its user configure sessions.
#include <QApplication>
#include <QCommandLineParser>
#include <cstdio>
#include <exception>

#include "installed_view.h"
#include "main_window.h"
#include "sample_store.h"
#include "tour.h"
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
    return fs::weakly_canonical(fs::absolute(text.toStdString()));
}

struct Arguments {
    fs::path store;
    std::string resources;
    fs::path tour;  ///< empty: no tour
};

Arguments readArguments(const QApplication& application) {
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral("A sample parts catalogue."));
    parser.addHelpOption();
    parser.addOptions({
        {"store", "Folder of the store; a sample store is made there when it has none.", "folder",
         QCoreApplication::applicationDirPath() + "/sample-store"},
        {"resources", "Folder of the compiled texts.", "folder", HOST_RESOURCES},
        {"tour",
         "Has a played user walk through the dialogs, puts pictures and the store into "
         "this folder, and checks the store.",
         "folder"},
    });
    parser.process(application);
    Arguments arguments;
    arguments.store = absolutePath(parser.value("store"));
    arguments.resources = parser.value("resources").toStdString();
    if (parser.isSet("tour")) arguments.tour = absolutePath(parser.value("tour"));
    return arguments;
}

int runHost(wynconfig::WYNConfig& component, const fs::path& folder) {
    const host::StoreFolders store(folder);
    if (!store.exist()) host::makeSampleStore(component, store);
    const host::InstalledView installed(wynconfig::makeQtView());
    component.init(store.rootText());
    host::MainWindow window(component, store);
    window.show();
    return QApplication::exec();
}

int run(const QApplication& application) {
    const Arguments arguments = readArguments(application);
    const auto texts = wynconfig::makeBundleResourceManager(arguments.resources);
    wynconfig::WYNConfig component;
    component.InitResourceManager(texts);
    if (arguments.tour.empty()) return runHost(component, arguments.store);
    return host::Tour(component, *texts, arguments.tour).run() ? 0 : 1;
}

}  // namespace

int main(int argumentCount, char* arguments[]) {
    for (int i = 1; i < argumentCount; ++i) {
        const QByteArray argument(arguments[i]);
        if (argument.startsWith("--tour") || argument.startsWith("--help") || argument == "-h")
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
