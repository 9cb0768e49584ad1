// Setting the store, and the operations in file mode: each a short fixed sequence around modal
// forms.
#include "wynconfig/wynconfig.h"

#include "core/run_dialog.h"
#include "dialogs/session/frmAddMORAMConfig.h"
#include "dialogs/session/frmMORAMConfig.h"
#include "dialogs/session/frmMORAMMaintenance.h"
#include "dialogs/session/frmSessionManager.h"
#include "platform/files/file_system.h"
#include "platform/forms/observing.h"
#include "platform/forms/view_words.h"
#include "platform/text/text.h"
#include "services/list_and_name_helpers.h"
#include "services/on_error.h"
#include "store/config_global_module.h"
#include "store/session_record.h"
#include "wynconfig/dataset.h"
#include "wynconfig/error.h"

namespace wynconfig {

using namespace ConfigGlobalModule;

namespace {

/// Writes the empty catalogue that marks a store folder, unless it is there.
void makeCatalogue(OnError& on, const std::string& type, const std::string& folder) {
    const ItemPath path{folder, type + ".vls"};
    if (!on.test([&] { return fileSystem().find(path).empty(); })) return;
    Dataset catalogue;
    on([&] { catalogue.Create(type, type, folder, session::kColumns); });
    on([&] { catalogue.SetKey(session::kColumns[0], 3); });
    on([&] { catalogue.Save(path); });
}

}  // namespace

void WYNConfig::InitResourceManager(std::shared_ptr<ResourceManager> objResMgr) {
    g_ResMgr = std::move(objResMgr);
    // The manager alone is the host's to keep.
    takeViewWordsFrom([manager = std::weak_ptr(g_ResMgr)](const std::string& key) {
        const std::shared_ptr<ResourceManager> there = manager.lock();
        return there ? there->FindString(key) : std::string();
    });
}

void WYNConfig::init(const std::string& MORRootPath) {
    const OperationScope here("init");
    // The tag is the handler's fixed one, whatever failed.
    OnError on{"Class_Initialize: WYN config folders not available"};
    g_SessionFolder = MORRootPath + session::kType + "\\";
    g_PartFormatFolder = MORRootPath + partformat::kType + "\\";
    if (!MORRootPath.empty() && !MORRootPath.ends_with('\\') && !MORRootPath.ends_with('/'))
        tellFailure("WYNConfig:init", errc::InvalidCall,
                    "The root \"" + MORRootPath +
                        "\" has no separator behind it: the store's folders are \"" +
                        g_SessionFolder + "\" and \"" + g_PartFormatFolder + "\".");
    on.resumeNext();
    on([&] { fileSystem().makeFolder(g_SessionFolder); });
    on([&] { fileSystem().makeFolder(g_PartFormatFolder); });
    on.standard();
    makeCatalogue(on, session::kType, g_SessionFolder);
    makeCatalogue(on, partformat::kType, g_PartFormatFolder);
}

long WYNConfig::showMORAMConfigDlg(std::string& sName) {
    const OperationScope here("showMORAMConfigDlg");
    OnError on{"WYNConfig:showMORAMConfigDlg"};
    frmMORAMConfig form;
    on([&] { form.init(UCase(sName)); });
    return runDialog(on, form, sName);
}

long WYNConfig::showMORAMMaintenanceDlg(std::string& sName) {
    const OperationScope here("showMORAMMaintenanceDlg");
    OnError on{"WYNConfig:showMORAMMaintenanceDlg"};
    frmMORAMMaintenance form;
    on([&] { form.init(UCase(sName)); });
    return runDialog(on, form, sName);
}

long WYNConfig::showAddMORAMConfigDlg(std::string& sName) {
    const OperationScope here("showAddMORAMConfigDlg");
    OnError on{"WYNConfig:showAddMORAMConfigDlg"};
    long result = 0;
    g_DatasetMode = false;
    frmAddMORAMConfig adding;
    frmMORAMConfig configuring;
    on([&] { adding.init(UCase(sName)); });
    on([&] { adding.Show(); });
    on([&] { sName = adding.SessionName(); });
    if (on.test([&] { return adding.Result() != 0; })) {
        sName.clear();
        result = 1;
    } else {
        on([&] { configuring.init(sName); });
        on([&] { configuring.Show(); });
        if (on.test([&] { return configuring.Result() != 0; })) {
            const ItemPath file = ItemPath::item(g_SessionFolder, sName);
            if (on.test([&] { return !fileSystem().find(file).empty(); }))
                on([&] { fileSystem().remove(file); });
            sName.clear();
            result = 1;
        } else {
            on([&] { sName = configuring.SessionName(); });
        }
    }
    on([&] { adding.Unload(); });
    on([&] { configuring.Unload(); });
    return result;
}

std::string WYNConfig::showSessionManagerDlg(const std::string& sSessions) {
    const OperationScope here("showSessionManagerDlg");
    OnError on{"WYNConfig:showSessionManagerDlg"};
    std::string picked;
    frmSessionManager form;
    on([&] { form.init(false, sSessions); });
    on([&] { form.Show(); });
    on([&] { picked = form.SessionName(); });
    on([&] { form.Unload(); });
    return picked;
}

std::string WYNConfig::showConfigurableSessionManagerDlg(const std::string& sSessions) {
    const OperationScope here("showConfigurableSessionManagerDlg");
    // The tag is that of the operation above, here as well.
    OnError on{"WYNConfig:showSessionManagerDlg"};
    std::string edited;
    frmSessionManager form;
    on([&] { form.init(true, sSessions); });
    on([&] { form.Show(); });
    on([&] { edited = form.Sessions(); });
    on([&] { form.Unload(); });
    return edited;
}

}  // namespace wynconfig
