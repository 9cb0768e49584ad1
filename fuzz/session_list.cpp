// Gives the session manager any list of sessions, and works it as the input says: the list shown,
// the one selected and the one given back have to be those of a plain model.
#include <algorithm>
#include <cstdint>
#include <memory>
#include <string>
#include <unordered_set>
#include <utility>
#include <vector>

#include "input.h"
#include "platform/files/file_system.h"
#include "platform/text/text.h"
#include "services/global_error.h"
#include "store/comma_list.h"
#include "store/config_global_module.h"
#include "wynconfig/keys.h"
#include "wynconfig/resource_manager.h"
#include "wynconfig/scripted_view.h"
#include "wynconfig/wynconfig.h"

namespace wynconfig::fuzz {
namespace {

using Names = std::vector<std::string>;

const Names& stored() {
    static const Names all{"A", "A,B", "B", "C C", "\u00C4RGER"};
    return all;
}

// The rules of the list, in the plainest way.

Names split(const std::string& list) {
    Names parts;
    if (list.empty()) return parts;
    parts.emplace_back();
    for (const char c : list) {
        if (c == ',')
            parts.emplace_back();
        else
            parts.back() += c;
    }
    return parts;
}

std::string with(const std::string& list, const std::string& name) {
    const Names parts = split(list);
    if (list.empty()) return name;
    return std::find(parts.begin(), parts.end(), name) == parts.end() ? list + "," + name : list;
}

std::string without(const std::string& list, const std::string& name) {
    std::string kept;
    for (const std::string& part : split(list))
        if (part != name) kept = kept.empty() ? part : kept + "," + part;
    return kept;
}

void compareParts(const std::string& list, const std::string& name) {
    const auto views = splitAtCommas(list);
    require(Names(views.begin(), views.end()) == split(list), list);
    require(withName(list, name) == with(list, name), list);
    require(withoutNames(list, {name}) == without(list, name), list);
    const Names parts = split(list);
    if (parts.empty()) return;
    const std::string& other = parts[name.size() % parts.size()];
    require(withoutNames(list, {name, other}) == without(without(list, name), other), list);
}

/// The dialog as it has to be.
class Model {
  public:
    Model(std::string given, bool hasNameless)
        : list(std::move(given)), m_hasNameless(hasNameless) {
        load();
        selected = rows.empty() ? "" : rows.front();
        isSelected = !rows.empty();
    }

    void load() {
        rows.clear();
        isSelected = false;
        for (const std::string& part : split(list)) {
            if (!isThere(part))
                list = without(list, part);
            else if (std::find(rows.begin(), rows.end(), part) == rows.end())
                rows.push_back(part);
        }
    }
    void select(const std::string& name) {
        isSelected = std::find(rows.begin(), rows.end(), name) != rows.end();
        selected = name;
    }

    std::string list;
    Names rows;
    bool isSelected = false;
    std::string selected;

  private:
    bool isThere(const std::string& name) const {
        if (name.empty()) return m_hasNameless;
        return std::find(stored().begin(), stored().end(), UCase(name)) != stored().end();
    }
    bool m_hasNameless;
};

/// A person at the dialog, who does as the input says and sees what the model says.
class Play {
  public:
    Play(Input& input, bool isConfigurable, User& user, Model& model)
        : m_input(input), m_isConfigurable(isConfigurable), m_user(user), m_model(model) {}

    void run(User& user) {
        look();
        constexpr int kMostActs = 30;
        for (int i = 0; i < kMostActs && !m_input.atEnd(); ++i) {
            if (!act(user)) return;
            look();
        }
        user.click("btnCancel");
    }

    std::string picked;  ///< with OK

  private:
    void look() {
        const Sight list = m_user.see("lstAvailableTESessions");
        require(list.rowTexts() == m_model.rows, m_model.list);
        require((list.selected != 0) == m_model.isSelected, m_model.list);
        require(list.selected == 0 || list.rows[list.selected - 1].text == m_model.selected,
                m_model.selected);
        for (const char* button : {"btnAdd", "btnDelete", "btnEdit"})
            require(m_user.canUse(button) == m_isConfigurable, button);
    }
    /// False when the dialog is closed.
    bool act(User& user) {
        switch (m_input.below(m_isConfigurable ? 7 : 4)) {
            case 0:
                if (m_model.rows.empty()) return true;
                m_model.select(m_input.oneOf(m_model.rows));
                m_model.isSelected = true;
                user.pick("lstAvailableTESessions", m_model.selected);
                return true;
            case 1:
                if (m_model.isSelected) picked = m_model.selected;
                user.click("btnOK");
                return false;
            case 2:
                user.click("btnCancel");
                return false;
            case 3:
                user.closeByFrame();
                return false;
            case 4:
                if (m_model.isSelected) {
                    m_model.list = without(m_model.list, m_model.selected);
                    m_model.load();
                }
                user.click("btnDelete");
                return true;
            case 5:
                add(user);
                return true;
            default:
                if (m_model.isSelected)
                    user.onForm("frmMORAMConfig", [](User& u) { u.click("btnCancel"); });
                user.click("btnEdit");
                return true;
        }
    }
    void add(User& user) {
        const std::string& name = m_input.oneOf(stored());
        const bool isConfirmed = m_input.below(2) == 0;
        user.onForm("frmMORAMMaintenance", [&](User& u) {
            u.pick("lstAvailableMORAMs2", name);
            u.click(isConfirmed ? "btnOK" : "btnCancel");
        });
        user.click("btnAdd");
        if (isConfirmed) m_model.list = with(m_model.list, name);
        m_model.load();
        if (isConfirmed) m_model.select(name);
    }

    Input& m_input;
    bool m_isConfigurable;
    User& m_user;
    Model& m_model;
};

std::unique_ptr<FileSystem> makeStore(bool hasNameless) {
    auto disk = makeMemoryFileSystem();
    disk->makeFolder("/store");
    setFileSystem(disk.get());
    WYNConfig().init("/store/");
    Names names = stored();
    if (hasNameless) names.emplace_back();
    for (const std::string& name : names) {
        Dataset record;
        record.Create(session::kType, name, "/store/MORAM/", session::kColumns);
        record.Save(ItemPath::item("/store/MORAM/", name));
    }
    return disk;
}

void workDialog(Input& input, bool isConfigurable, bool hasNameless, const std::string& list) {
    ConfigGlobalModule::reset();
    resetGlobalError();
    static const auto texts = makeBundleResourceManager(WYNCONFIG_RESOURCES, "en");
    WYNConfig component;
    component.InitResourceManager(texts);
    const auto view = std::make_shared<ScriptedView>();
    installView(view);
    const auto disk = makeStore(hasNameless);

    Model model(list, hasNameless);
    Play play(input, isConfigurable, view->user(), model);
    bool cameUp = false;
    view->user().onForm("frmSessionManager", [&](User& user) {
        cameUp = true;
        play.run(user);
    });
    const std::string given = isConfigurable ? component.showConfigurableSessionManagerDlg(list)
                                             : component.showSessionManagerDlg(list);
    require(cameUp && given == (isConfigurable ? model.list : play.picked), list);
    // A name that stands twice is told by a box; anything else is a finding.
    for (const SeenBox& box : view->user().boxes())
        require(box.text.find("of the key") != box.text.npos, box.text);
    try {
        view->user().finish();
    } catch (const UserError& error) {
        const std::string told = error.what();
        require(told.find("at the form") == told.npos && told.find("did not come") == told.npos &&
                    told.find("left open") == told.npos,
                told);
    }
    installView(nullptr);
    setFileSystem(nullptr);
}

}  // namespace
}  // namespace wynconfig::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace wynconfig::fuzz;
    Input input(data, size);
    const std::uint8_t way = input.byte();
    const std::string list = input.line();
    compareParts(list, way % 2 == 0 ? "A" : input.line());
    workDialog(input, (way & 4) != 0, (way & 8) != 0, list);
    return 0;
}
