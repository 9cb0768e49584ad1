// The client side of the resource manager.
#include "services/texts.h"

#include <memory>

#include "store/config_global_module.h"
#include "wynconfig/error.h"

namespace wynconfig {

namespace {

/// The resource manager, held by whoever asks it: it may be replaced while it answers.
std::shared_ptr<ResourceManager> resourceManager() {
    if (!ConfigGlobalModule::g_ResMgr)
        throw Error(errc::ObjectNotSet, "There is no resource manager.");
    return ConfigGlobalModule::g_ResMgr;
}

struct WriteText {
    std::string text;

    void operator()(CaptionedControl* control) { control->setCaption(std::move(text)); }
    void operator()(const TabCaption& tab) { tab.tabs->setCaption(tab.index, std::move(text)); }
    void operator()(Form* form) { form->setCaption(std::move(text)); }
    void operator()(std::string* field) { *field = std::move(text); }
};

struct DesignCaption {
    std::string_view operator()(const CaptionedControl* control) const {
        return control->designCaption();
    }
    std::string_view operator()(const TabCaption& tab) const {
        return tab.tabs->designCaption(tab.index);
    }
    std::string_view operator()(const Form*) const { return {}; }
    std::string_view operator()(const std::string*) const { return {}; }
};

std::string defaultTextOf(const CaptionText& row) {
    return std::string(row.byDefault ? *row.byDefault : std::visit(DesignCaption{}, row.place));
}

}  // namespace

std::string GetString(const std::string& key) {
    return resourceManager()->GetString(key);
}

std::string findString(const std::string& key) noexcept {
    try {
        const std::shared_ptr<ResourceManager> manager = ConfigGlobalModule::g_ResMgr;
        return manager ? manager->FindString(key) : std::string();
    } catch (...) {
        // What can be done without is no reason for anything to fail.
        return {};
    }
}

std::string fetchString(OnError& on, const std::string& key) {
    std::string text;
    on([&] { text = GetString(key); });
    return text;
}

void applyTexts(std::initializer_list<CaptionText> table) {
    try {
        for (const CaptionText& row : table) {
            if (!row.key.empty()) std::visit(WriteText{GetString(std::string(row.key))}, row.place);
        }
    } catch (...) {
        for (const CaptionText& row : table) std::visit(WriteText{defaultTextOf(row)}, row.place);
    }
}

BrowseTexts fetchBrowseTexts(const std::string& titleKey, const std::string& titleByDefault) {
    OnError on = OnError::ignoring();
    const auto fetch = [&](const std::string& key, const std::string& byDefault) {
        const std::string text = fetchString(on, key);
        return text.empty() ? byDefault : text;
    };
    return {fetch(titleKey, titleByDefault), fetch("BUTTON_OK", "OK"),
            fetch("BUTTON_CANCEL", "Cancel")};
}

void SetFormFont(Form& form) {
    OnError on = OnError::ignoring();
    on([&] {
        const long handle = form.hDC();
        form.setFont(std::make_shared<const Font>(resourceManager()->GetFont(handle)));
    });
    for (Control* control : form.controls()) on([&] { control->setFont(form.font()); });
}

}  // namespace wynconfig
