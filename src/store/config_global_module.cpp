// The variables of the module, and their values at the start.
#include "store/config_global_module.h"

namespace wynconfig::ConfigGlobalModule {

std::string g_SessionFolder;
std::string g_PartFormatFolder;
std::shared_ptr<ResourceManager> g_ResMgr;
std::shared_ptr<Dataset> g_Session = std::make_shared<Dataset>();
Collection<Dataset> g_PartFormats;
std::string g_TallyvanePartFormat;
bool g_DatasetMode = false;

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
