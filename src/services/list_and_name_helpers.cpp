// The helpers that dialogs share.
#include "services/list_and_name_helpers.h"

#include <memory>

#include "platform/files/file_system.h"
#include "platform/text/text.h"
#include "services/on_error.h"
#include "store/config_global_module.h"
#include "store/item_names.h"
#include "wynconfig/view.h"

namespace wynconfig {

using namespace ConfigGlobalModule;

void SetTopMost(Form& form, bool bTopMost) {
    installedView()->raise(form, bTopMost);
}

bool IsInvalidName(const std::string& sName) {
    return isRefusedName(sName, kNotInNames);
}

bool IsInvalidFileName(const std::string& sName) {
    return isRefusedName(sName, "\\/:*?\"<>|");
}

bool IsItemInUniListView(const ListView& list, const std::string& sName) {
    OnError on{"ConfigGlobalModule:IsItemInUniListView"};
    bool found = false;
    on([&] { found = list.hasKey(sName); });
    return found;
}

bool IsItemInCollection(const Collection<Dataset>& items, const std::string& sKey) {
    return items.HasKey(sKey);
}

bool IsFactorySession(const std::string& sName) {
    return !fileSystem().find(ItemPath::item(g_SessionFolder, UCase(sName))).empty();
}

bool IsFactoryPartFormat(const std::string& sName) {
    return !fileSystem().find(ItemPath::item(g_PartFormatFolder, UCase(sName))).empty();
}

bool AddFDToConfigPartFormats(const std::string& sName) {
    bool found = false;
    OnError on{"ConfigGlobalModule:AddFDToConfigPartFormats"};
    on([&] {
        const std::string file =
            fileSystem().find(ItemPath::item(g_PartFormatFolder, UCase(sName)));
        if (file.empty()) return;
        auto format = std::make_shared<Dataset>();
        format->Load(ItemPath{g_PartFormatFolder, file});
        if (g_PartFormats.HasKey(sName)) g_PartFormats.Remove(sName);
        g_PartFormats.Add(format, sName);
        found = true;
    });
    return found;
}

}  // namespace wynconfig
