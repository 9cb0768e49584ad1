// The walks over the session folder.
#include "services/format_walks.h"

#include <vector>

#include "services/on_error.h"
#include "services/progress_words.h"
#include "store/config_global_module.h"
#include "store/item_names.h"
#include "store/session_record.h"
#include "store/session_walk.h"

namespace wynconfig {

using namespace ConfigGlobalModule;

// One record object serves a whole walk. A session that can't be loaded shows a box, and the walk
// goes on with what the object holds from the session before.

bool isOnlyFormatOfASession(const std::string& format, std::string& session) {
    OnError on{"UnifrmMORAMConfig:CheckForLastPartNumberFormatInAllMORAMs"};
    Working work(checkingSessions);
    std::vector<std::string> names;
    on([&] { names = listItemNames(g_SessionFolder); });
    work.expect(names.size());
    Dataset record;
    for (const std::string& name : names) {
        on([&] { record.Load(ItemPath::item(g_SessionFolder, name), 0); });
        bool only = false;
        OnError skip = OnError::ignoring();
        skip([&] { only = session::isOnlyFormat(record, format); });
        if (only) {
            session = name;
            return true;
        }
        work.step();
    }
    session.clear();
    return false;
}

void carryFormatThroughSessions(const std::string& oldName, const std::string& newName) {
    if (g_DatasetMode) return;
    OnError on{"UnifrmMORAMConfig:UpdatePartNumberFormatsInAllMORAMs"};
    const auto carry = [&](Dataset& record) { carryFormatThroughRecord(record, oldName, newName); };
    rewriteSessions(g_SessionFolder, on, carry, updatingSessions, savingSessions);
}

void carryFormatThroughRecord(Dataset& record, const std::string& oldName,
                              const std::string& newName) {
    OnError skip = OnError::ignoring();
    skip([&] { session::carryFormat(record, oldName, newName); });
}

}  // namespace wynconfig
