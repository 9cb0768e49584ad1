// The texts of the dialogs, and the twelve operations.
#include "c/calls.h"
#include "wynconfig/resource_manager.h"
#include "wynconfig/wynconfig.h"

namespace wynconfig::c {

namespace {

/// The resource manager of a host in C.
class HostedResources : public ResourceManager {
  public:
    explicit HostedResources(const wyn_resource_manager& functions) : m_host(functions) {}

    std::string GetString(const std::string& key) override {
        return ask("get_string", m_host->get_string, key);
    }
    std::string FindString(const std::string& key) override {
        return m_host->find_string ? ask("find_string", m_host->find_string, key) : std::string();
    }
    Font GetFont(long handle) override {
        if (!m_host->get_font) return {};
        wyn_font font{sizeof(wyn_font), nullptr, 0, 0, 0};
        callHost("get_font", m_host->get_font, m_host->context, std::int64_t{handle}, &font);
        return {textIn(font.family), font.point_size, font.bold != 0, font.italic != 0};
    }

  private:
    std::string ask(const char* what, int32_t (*function)(void*, const char*, wyn_answer*),
                    const std::string& key) {
        const auto answer = std::make_shared<Answer>();
        const Scoped<Answer> open(answer);
        callHost(what, function, m_host->context, key.c_str(), open.handle());
        return answer->text;
    }

    Hosted<wyn_resource_manager> m_host;
};

std::string bundle(const char* folder) {
    const std::string given = textIn(folder);
    return given.empty() ? bundleFolder() : given;
}

/// An operation that lets a name in and another one out.
template <class Operation>
std::int32_t runNamed(const char* function, const char* name, char** nameAfter,
                      std::int32_t* result, const Operation& operation) {
    return run(function, [&] {
        requirePlace(nameAfter);
        requirePlace(result);
        std::string text = textIn(name);
        const long given = operation(text);
        *nameAfter = textOut(text);
        *result = static_cast<std::int32_t>(given);
    });
}

/// An operation that gives a text.
template <class Operation>
std::int32_t runText(const char* function, char** place, const Operation& operation) {
    return run(function, [&] {
        requirePlace(place);
        *place = textOut(operation());
    });
}

std::vector<std::string> textsIn(const char* const* texts, std::size_t count) {
    if (!texts && count > 0) throw Error(WYN_ERROR_CALL, "There are no texts to count.");
    std::vector<std::string> taken;
    for (std::size_t i = 0; i < count; ++i) taken.push_back(textIn(texts[i]));
    return taken;
}

}  // namespace

}  // namespace wynconfig::c

using namespace wynconfig;
using namespace wynconfig::c;

int32_t wyn_InitResourceManager(const wyn_resource_manager* manager) {
    return run("wyn_InitResourceManager", [&] {
        if (!manager) return WYNConfig().InitResourceManager(nullptr);
        const wyn_resource_manager functions =
            structIn(manager, offsetof(wyn_resource_manager, find_string));
        if (!functions.get_string)
            throw Error(WYN_ERROR_CALL, "A resource manager has to give texts.");
        WYNConfig().InitResourceManager(std::make_shared<HostedResources>(functions));
    });
}

int32_t wyn_use_bundle(const char* folder, const char* locale) {
    return run("wyn_use_bundle", [&] {
        WYNConfig().InitResourceManager(makeBundleResourceManager(bundle(folder), textIn(locale)));
    });
}

int32_t wyn_bundle_folder(char** folder) {
    return runText("wyn_bundle_folder", folder, [] { return bundleFolder(); });
}

int32_t wyn_bundle_languages(const char* folder, wyn_list** languages) {
    return run("wyn_bundle_languages", [&] {
        requirePlace(languages);
        Rows rows;
        for (const Language& each : bundleLanguages(bundle(folder)))
            rows.push_back({each.tag, each.name});
        *languages = listOf(std::move(rows));
    });
}

int32_t wyn_bundle_right_to_left(const char* folder, const char* locale, int32_t* right_to_left) {
    return run("wyn_bundle_right_to_left", [&] {
        requirePlace(right_to_left);
        *right_to_left = bundleLanguage(bundle(folder), textIn(locale)).rightToLeft ? 1 : 0;
    });
}

int32_t wyn_init(const char* root) {
    return run("wyn_init", [&] { WYNConfig().init(textIn(root)); });
}

int32_t wyn_GetDatasetSessionData(char** xml) {
    return runText("wyn_GetDatasetSessionData", xml,
                   [] { return WYNConfig().GetDatasetSessionData(); });
}

int32_t wyn_GetDatasetFormatsData(wyn_list** texts) {
    return run("wyn_GetDatasetFormatsData", [&] {
        requirePlace(texts);
        *texts = listOf(WYNConfig().GetDatasetFormatsData());
    });
}

int32_t wyn_MigrateSession(const char* migration_path, const char* name, int32_t* migrated) {
    return run("wyn_MigrateSession", [&] {
        requirePlace(migrated);
        *migrated = WYNConfig().MigrateSession(textIn(migration_path), textIn(name)) ? 1 : 0;
    });
}

int32_t wyn_showMORAMConfigDlg(const char* name, char** name_after, int32_t* result) {
    return runNamed("wyn_showMORAMConfigDlg", name, name_after, result,
                    [](std::string& text) { return WYNConfig().showMORAMConfigDlg(text); });
}

int32_t wyn_showMORAMConfigDlgEX(const char* name, const char* session_xml,
                                 const char* const* formats, size_t format_count, char** name_after,
                                 int32_t* result) {
    return runNamed("wyn_showMORAMConfigDlgEX", name, name_after, result, [&](std::string& text) {
        return WYNConfig().showMORAMConfigDlgEX(text, textIn(session_xml),
                                                textsIn(formats, format_count));
    });
}

int32_t wyn_showMORAMMaintenanceDlg(const char* name, char** name_after, int32_t* result) {
    return runNamed("wyn_showMORAMMaintenanceDlg", name, name_after, result,
                    [](std::string& text) { return WYNConfig().showMORAMMaintenanceDlg(text); });
}

int32_t wyn_showAddMORAMConfigDlg(const char* name, char** name_after, int32_t* result) {
    return runNamed("wyn_showAddMORAMConfigDlg", name, name_after, result,
                    [](std::string& text) { return WYNConfig().showAddMORAMConfigDlg(text); });
}

int32_t wyn_showAddMORAMConfigDlgEX(const char* name, char** name_after, int32_t* result) {
    return runNamed("wyn_showAddMORAMConfigDlgEX", name, name_after, result,
                    [](std::string& text) { return WYNConfig().showAddMORAMConfigDlgEX(text); });
}

int32_t wyn_showSessionManagerDlg(const char* sessions, char** picked) {
    return runText("wyn_showSessionManagerDlg", picked,
                   [&] { return WYNConfig().showSessionManagerDlg(textIn(sessions)); });
}

int32_t wyn_showConfigurableSessionManagerDlg(const char* sessions, char** sessions_after) {
    return runText("wyn_showConfigurableSessionManagerDlg", sessions_after,
                   [&] { return WYNConfig().showConfigurableSessionManagerDlg(textIn(sessions)); });
}
