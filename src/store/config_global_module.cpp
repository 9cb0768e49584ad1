// The variables of the module, and their values at the start.
#include "store/config_global_module.h"

namespace wynconfig::ConfigGlobalModule {

thread_local std::string g_SessionFolder;
thread_local std::string g_PartFormatFolder;
thread_local std::shared_ptr<ResourceManager> g_ResMgr;
thread_local std::shared_ptr<Dataset> g_Session = std::make_shared<Dataset>();
thread_local Collection<Dataset> g_PartFormats;
thread_local std::string g_TallyvanePartFormat;
thread_local bool g_DatasetMode = false;

void reset() {
    g_SessionFolder.clear();
    g_PartFormatFolder.clear();
    g_ResMgr.reset();
    g_Session = std::make_shared<Dataset>();
    g_PartFormats = {};
    g_TallyvanePartFormat.clear();
    g_DatasetMode = false;
}

}  // namespace wynconfig::ConfigGlobalModule
