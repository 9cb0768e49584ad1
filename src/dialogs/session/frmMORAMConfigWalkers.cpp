// Carrying a part format's new name, or its deletion, through the sessions that refer to it.
#include "dialogs/session/frmMORAMConfig.h"
#include "platform/files/file_system.h"
#include "services/item_lists.h"
#include "services/on_error.h"
#include "store/config_global_module.h"
#include "store/session_record.h"
#include "wynconfig/error.h"

namespace wynconfig {

using namespace ConfigGlobalModule;

// One record object serves a whole walk. A session that can't be loaded shows a box, and the walk
// goes on with what the object holds from the session before.

bool frmMORAMConfig::CheckForLastPartNumberFormatInAllMORAMs(const std::string& sPartformat,
                                                             std::string& sSession) {
    OnError on{"UnifrmMORAMConfig:CheckForLastPartNumberFormatInAllMORAMs"};
    std::vector<std::string> names;
    on([&] { names = listItemNames(g_SessionFolder); });
    Dataset record;
    for (const std::string& name : names) {
        on([&] { record.Load(ItemPath::item(g_SessionFolder, name), 0); });
        bool only = false;
        // A session whose rows can't be read is passed over in silence.
        OnError skip = OnError::ignoring();
        skip([&] { only = session::isOnlyFormat(record, sPartformat); });
        if (only) {
            sSession = name;
            return true;
        }
    }
    sSession.clear();
    return false;
}

void frmMORAMConfig::UpdatePartNumberFormatsInAllMORAMs(const std::string& sOldName,
                                                        const std::string& sNewName) {
    if (g_DatasetMode) return;
    OnError on{"UnifrmMORAMConfig:UpdatePartNumberFormatsInAllMORAMs"};
    std::vector<std::string> names;
    on([&] { names = listItemNames(g_SessionFolder); });
    if (names.empty()) return;
    SaveBatch batch(fileSystem());
    Dataset record;
    for (const std::string& name : names) {
        const ItemPath file = ItemPath::item(g_SessionFolder, name);
        on([&] { record.Load(file, 0); });
        OnError skip = OnError::ignoring();
        skip([&] { session::carryFormat(record, sOldName, sNewName); });
        on([&] { record.Save(file); });
    }
    on([&] { batch.commit(); });
}

void frmMORAMConfig::RenamePartNumberFormatsInCurrentMORAM(const std::string& sOldName,
                                                           const std::string& sNewName) {
    OnError skip = OnError::ignoring();
    skip([&] { session::carryFormat(*dataset(), sOldName, sNewName); });
}

}  // namespace wynconfig
