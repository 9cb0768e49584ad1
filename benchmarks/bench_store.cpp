// Filling a store for measurement.
#include "bench_store.h"

#include <unistd.h>

#include <map>
#include <memory>

#include "platform/files/file_system.h"
#include "store/config_global_module.h"
#include "wynconfig/keys.h"
#include "wynconfig/resource_manager.h"
#include "wynconfig/wynconfig.h"

namespace wynconfig::bench {

namespace {

class KeysAsTexts : public ResourceManager {
  public:
    std::string GetString(const std::string& key) override { return key; }
    Font GetFont(long) override { return {"Sans", 9, false, false}; }
};

std::string numbered(const std::string& word, int number) {
    std::string digits = std::to_string(number);
    return word + " " + std::string(5 - digits.size(), '0') + digits;
}

}  // namespace

void fillSession(Dataset& record, const std::string& name, const std::string& format) {
    record.Create("MORAM", name, "", session::kColumns);
    const std::pair<const char*, const char*> rows[] = {
        {"ProgramPath", "\"C:\\Program Files\\Dealer Order Desk\\orderdesk.exe\""},
        {"CommandLineArgs", "/import /quiet /desk:12"},
        {"ReverseList", "true"},
        {"AutoResize", "false"},
        {"Orientation", "top"},
        {"FormatCount", "6"},
        {"FORMAT1", "COMMA SEPARATED WITH HEADER"},
        {"FORMAT2", nullptr},
        {"FORMAT3", "ORDER FORM"},
        {"FORMAT4", "LABELS THREE ACROSS"},
        {"FORMAT5", "QUANTITY FIRST"},
        {"FORMAT6", "FIXED WIDTH"},
        {"WindowTitleSearchType", "starts with"},
        {"WindowClassSearchType", "contains"},
        {"WindowTitle", "Order Desk - [New Order]"},
        {"WindowClass", "OrderDeskMain"},
        {"DisableProgramLaunch", "false"},
        {"WindowTitleClassDelay", "2"},
        {"ProgramLaunchDelay", "5"},
        {"WindowTitleCaseSensitive", "true"},
        {"WindowClassCaseSensitive", "false"},
        {"PartFormat", "ORDER FORM"},
        {"FileName", "order.txt"},
        {"FileFolder", "C:\\Users\\parts\\Documents\\Orders"},
        {"FileAction", "OverWrite"},
        {"WriteFileOnly", "false"},
    };
    for (const auto& [key, value] : rows) record.AddRow({key, value ? value : format});
}

std::string sessionName(int number) {
    return numbered("SESSION", number);
}

void fillFormat(Dataset& record, int number) {
    record.Create(partformat::kType, numbered("FORMAT", number), "", session::kColumns);
    record.AddRow({partformat::kHeader, ""});
    record.AddRow({partformat::kRecord, ""});
    record.AddRow({partformat::kSeparator, ""});
    record.AddRow({partformat::kTrailer, ""});
    for (const partformat::FieldKeys& field :
         {partformat::kPart, partformat::kQty, partformat::kDesc, partformat::kVin}) {
        record.AddRow({field.flag, words::kFalse});
        record.AddRow({field.length, "20"});
        record.AddRow({field.alignment, words::kRight});
        record.AddRow({field.pad, ""});
    }
    record.AddRow({partformat::kMaxRecords, ""});
}

BenchStore::BenchStore(int sessions, int formats) {
    static int stores = 0;
    m_root = std::filesystem::temp_directory_path() /
             ("wynconfig-bench-" + std::to_string(getpid()) + "-" + std::to_string(++stores));
    std::filesystem::create_directories(m_root);
    use();
    SaveBatch batch(fileSystem());
    Dataset record;
    for (int i = 0; i < sessions; ++i) {
        const std::string name = sessionName(i);
        fillSession(record, name, "OLD NAME");
        record.Save(ItemPath::item(ConfigGlobalModule::g_SessionFolder, name));
    }
    for (int i = 0; i < formats; ++i) {
        fillFormat(record, i);
        record.Save(ItemPath::item(ConfigGlobalModule::g_PartFormatFolder, record.Name()));
    }
    batch.commit();
}

BenchStore::~BenchStore() {
    std::error_code ignored;
    std::filesystem::remove_all(m_root, ignored);
}

void BenchStore::use() const {
    WYNConfig component;
    component.InitResourceManager(std::make_shared<KeysAsTexts>());
    component.init(root());
}

BenchStore& keptStore(const std::string& label, int sessions, int formats) {
    static std::map<std::string, std::unique_ptr<BenchStore>> stores;
    auto& store = stores[label];
    if (!store) store = std::make_unique<BenchStore>(sessions, formats);
    store->use();
    return *store;
}

}  // namespace wynconfig::bench
