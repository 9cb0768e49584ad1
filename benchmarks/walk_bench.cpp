// Renaming one part format over a whole store of sessions, crash-safe: against the bare system
// calls of the same scheme, and against the classes of Qt that a user would reach for.
#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QDir>
#include <QFile>
#include <QSaveFile>
#include <QSettings>
#include <QXmlStreamReader>
#include <QXmlStreamWriter>
#include <chrono>
#include <functional>
#include <map>
#include <memory>
#include <thread>
#include <vector>

#include "bench_store.h"
#include "dialogs/session/frmMORAMConfig.h"
#include "figures.h"
#include "store/config_global_module.h"
#include "turn.h"

namespace wynconfig::bench {

namespace {

/// Creating files slows down for a while after many were deleted.
void rest() {
    std::this_thread::sleep_for(std::chrono::milliseconds(300));
}

Work ourWalk(int sessions) {
    return [sessions](benchmark::State& state) {
        static std::map<int, Turn> turns;
        Turn& turn = turns[sessions];
        keptStore("ours-" + std::to_string(sessions), sessions, 1);
        rest();
        frmMORAMConfig form;
        for (auto _ : state) {
            form.UpdatePartNumberFormatsInAllMORAMs(turn.from(), turn.to());
            turn.next();
        }
        Dataset last;
        last.Load(ItemPath::item(ConfigGlobalModule::g_SessionFolder, "SESSION 00000"));
        if (last.GetRow("FORMAT2")[1] != turn.from()) state.SkipWithError("nothing was renamed");
    };
}

std::string readAll(int folder, const char* name) {
    const int file = openat(folder, name, O_RDONLY | O_CLOEXEC);
    struct stat status {};
    fstat(file, &status);
    std::string text(static_cast<std::size_t>(status.st_size), ' ');
    const ssize_t got = read(file, text.data(), text.size());
    close(file);
    if (got != status.st_size) text.clear();
    return text;
}

std::vector<std::string> itemsOf(int folder) {
    std::vector<std::string> names;
    DIR* stream = fdopendir(dup(folder));
    rewinddir(stream);
    while (const dirent* entry = readdir(stream)) {
        const std::string name = entry->d_name;
        if (name.ends_with(".vla")) names.push_back(name);
    }
    closedir(stream);
    return names;
}

/// The same scheme for the same bytes: read each, write a temporary each, one sync of the file
/// system, all renames, one sync of the folder.
Work bareWalk(int sessions) {
    return [sessions](benchmark::State& state) {
        const BenchStore& store = keptStore("bare-" + std::to_string(sessions), sessions, 1);
        rest();
        const int folder = open(store.sessions().c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
        for (auto _ : state) {
            const std::vector<std::string> names = itemsOf(folder);
            for (const std::string& name : names) {
                const std::string text = readAll(folder, name.c_str());
                const std::string temporary = "." + name + ".tmp";
                const int file = openat(folder, temporary.c_str(),
                                        O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0644);
                if (write(file, text.data(), text.size()) != static_cast<ssize_t>(text.size()))
                    state.SkipWithError("a temporary can't be written");
                close(file);
            }
            syncfs(folder);
            for (const std::string& name : names) {
                const std::string temporary = "." + name + ".tmp";
                if (renameat(folder, temporary.c_str(), folder, name.c_str()) != 0)
                    state.SkipWithError("a temporary can't be renamed");
            }
            fsync(folder);
        }
        close(folder);
    };
}

using QtRows = std::vector<std::pair<QString, QString>>;

QtRows readByQt(const QString& path, QXmlStreamAttributes& head) {
    QtRows rows;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) return rows;
    QXmlStreamReader reader(&file);
    while (!reader.atEnd()) {
        if (reader.readNext() != QXmlStreamReader::StartElement) continue;
        if (reader.name() == QLatin1String("dataset")) head = reader.attributes();
        if (reader.name() == QLatin1String("row")) {
            const QString key = reader.attributes().value("key").toString();
            rows.emplace_back(key, reader.readElementText());
        }
    }
    return rows;
}

bool writeByQt(const QString& path, const QXmlStreamAttributes& head, const QtRows& rows) {
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly)) return false;
    QXmlStreamWriter writer(&file);
    writer.setAutoFormatting(true);
    writer.writeStartDocument();
    writer.writeStartElement("dataset");
    writer.writeAttributes(head);
    writer.writeTextElement("column", "Element");
    writer.writeTextElement("column", "Data");
    for (const auto& [key, value] : rows) {
        writer.writeStartElement("row");
        writer.writeAttribute("key", key);
        writer.writeCharacters(value);
        writer.writeEndElement();
    }
    writer.writeEndDocument();
    return file.commit();
}

Work saveFileWalk(int sessions) {
    return [sessions](benchmark::State& state) {
        static std::map<int, Turn> turns;
        Turn& turn = turns[sessions];
        const BenchStore& store = keptStore("qsavefile-" + std::to_string(sessions), sessions, 1);
        rest();
        const QDir folder(QString::fromStdString(store.sessions().string()));
        for (auto _ : state) {
            const QString from = QString::fromStdString(turn.from());
            for (const QString& name : folder.entryList({"*.vla"}, QDir::Files, QDir::Name)) {
                QXmlStreamAttributes head;
                QtRows rows = readByQt(folder.filePath(name), head);
                for (auto& [key, value] : rows) {
                    if (key.startsWith("FORMAT") && value == from)
                        value = QString::fromStdString(turn.to());
                }
                if (rows.empty() || !writeByQt(folder.filePath(name), head, rows))
                    state.SkipWithError("a session can't be rewritten");
            }
            turn.next();
        }
    };
}

void makeSettings(const QString& folder, int sessions, const std::function<QString(int)>& path) {
    QDir().mkpath(folder);
    Dataset record;
    fillSession(record, "SESSION", formatNames[0]);
    for (int i = 0; i < sessions; ++i) {
        QSettings settings(path(i), QSettings::IniFormat);
        for (const DataRow& row : record.Rows())
            settings.setValue(QString::fromStdString(row[0]), QString::fromStdString(row[1]));
    }
}

/// The same sessions as settings files, the way a program would keep them with `QSettings` alone.
Work settingsWalk(int sessions) {
    return [sessions](benchmark::State& state) {
        static std::map<int, Turn> turns;
        Turn& turn = turns[sessions];
        const BenchStore& store = keptStore("qsettings-" + std::to_string(sessions), 0, 0);
        const QString folder = QString::fromStdString(store.root() + "settings/");
        const auto path = [&](int i) { return folder + QString::number(i) + ".ini"; };
        if (!QDir(folder).exists()) makeSettings(folder, sessions, path);
        rest();
        for (auto _ : state) {
            const QString from = QString::fromStdString(turn.from());
            for (int i = 0; i < sessions; ++i) {
                QSettings settings(path(i), QSettings::IniFormat);
                const int count = settings.value("FormatCount").toInt();
                for (int j = 1; j <= count; ++j) {
                    const QString key = "FORMAT" + QString::number(j);
                    if (settings.value(key).toString() == from)
                        settings.setValue(key, QString::fromStdString(turn.to()));
                }
                settings.sync();
                if (settings.status() != QSettings::NoError)
                    state.SkipWithError("a session can't be rewritten");
            }
            turn.next();
        }
    };
}

double flushesOfWalk(int sessions) {
    const BenchStore store(sessions, 1);
    frmMORAMConfig form;
    const long before = flushCount();
    form.UpdatePartNumberFormatsInAllMORAMs(formatNames[0], formatNames[1]);
    return static_cast<double>(flushCount() - before);
}

}  // namespace

void registerWalkFigures() {
    constexpr auto ms = benchmark::kMillisecond;
    for (const int sessions : {1000, 10000}) {
        const std::string suffix = "-" + std::to_string(sessions);
        const Runs runs{sessions == 1000 ? 7 : 5, true};
        figure("walk-against-bare-calls" + suffix, ms, ourWalk(sessions), bareWalk(sessions), runs);
        figure("walk-against-qsavefile" + suffix, ms, ourWalk(sessions), saveFileWalk(sessions),
               {3, true});
        figure("walk-against-qsettings" + suffix, ms, ourWalk(sessions), settingsWalk(sessions),
               {3, true});
        countedFigure(
            "walk-flushes" + suffix, "goal", [=] { return flushesOfWalk(sessions); }, 8);
    }
    figure("walk-10000-against-1000", ms, ourWalk(10000), ourWalk(1000), {5, true});
}

}  // namespace wynconfig::bench
