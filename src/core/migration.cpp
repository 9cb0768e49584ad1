// Reading a session and its part formats out of another store.
#include "core/migration.h"

#include <memory>
#include <string_view>
#include <vector>

#include "platform/files/file_system.h"
#include "platform/forms/observing.h"
#include "platform/text/numbers.h"
#include "platform/text/text.h"
#include "services/on_error.h"
#include "services/progress_words.h"
#include "store/comma_list.h"
#include "store/config_global_module.h"
#include "store/row_variable.h"
#include "store/session_record.h"
#include "wynconfig/dataset.h"
#include "wynconfig/wynconfig.h"

namespace wynconfig {

using namespace ConfigGlobalModule;

namespace {

/// The names of a session's part formats, joined by commas. A row that is missing gives the name
/// before it once more.
std::string formatListOf(OnError& on, const Dataset& session) {
    RowVariable row;
    std::int16_t count = 0;
    on([&] { row.read(session, session::kFormatCount); });
    on([&] { count = toInt16(row.data()); });
    std::string list;
    for (int i = 1; i <= count; ++i) {
        on([&] { row.read(session, session::formatKey(i)); });
        on([&] { list += row.data(); });
        if (i < count) list += ',';
    }
    return list;
}

}  // namespace

bool MigratePartFormats(const std::string& path, const std::string& formatList) {
    OnError on{"ConfigGlobalModule:MigratePartFormats"};
    bool allRead = false;
    on([&] {
        g_PartFormats = {};
        const std::vector<std::string_view> names = splitAtCommas(formatList);
        Working work(transferringFormats, names.size());
        for (const std::string_view name : names) {
            const std::string upper = UCase(name);
            const std::string file = fileSystem().find(ItemPath::item(path, upper));
            if (file.empty()) return;
            const auto format = std::make_shared<Dataset>();
            format->Load(ItemPath{path, file}, 0);
            if (g_PartFormats.HasKey(upper)) g_PartFormats.Remove(upper);
            g_PartFormats.Add(format, upper);
            work.step();
        }
        allRead = true;
    });
    return allRead;
}

bool WYNConfig::MigrateSession(const std::string& migrationPath,
                               const std::string& strSessionName) {
    const OperationScope here("MigrateSession");
    OnError on{"WYNConfig:MigrateSession"};
    const Working wait;
    const std::string sessionFolder = migrationPath + session::kType + "\\";
    const std::string partFolder = migrationPath + partformat::kType + "\\";
    if (on.test([&] { return !fileSystem().folderExists(partFolder); })) return false;
    std::string file;
    if (on.test([&] {
            file = fileSystem().find(ItemPath::item(sessionFolder, strSessionName));
            return file.empty();
        }))
        return false;
    const auto session = std::make_shared<Dataset>();
    on([&] { session->Load(ItemPath{sessionFolder, file}, 0); });
    if (!MigratePartFormats(partFolder, formatListOf(on, *session))) return false;
    g_Session = session;
    return true;
}

}  // namespace wynconfig
