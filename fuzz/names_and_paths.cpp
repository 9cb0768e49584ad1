// Judges any text as a name, and saves, finds, reads and deletes files by any names: none leads out
// of its folder, and whatever case a name is asked in, it is the same file.
#include <algorithm>
#include <array>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "input.h"
#include "onlooker.h"
#include "platform/files/file_system.h"
#include "platform/text/numbers.h"
#include "platform/text/text.h"
#include "services/list_and_name_helpers.h"
#include "wynconfig/error.h"
#include "wynconfig/item_path.h"
#include "wynconfig/store.h"

namespace wynconfig::fuzz {
namespace {

bool holdsAny(const std::string& text, std::string_view marks) {
    return text.find_first_of(marks) != std::string::npos;
}

/// Number of the failure that a call raises; 0 for none.
template <class Call>
long raisedBy(const Call& call) {
    try {
        call();
    } catch (const Error& error) {
        require(!error.description().empty());
        require(isUtf8(error.description()), error.description());
        return error.number();
    }
    return 0;
}

void judge(const std::string& name) {
    std::string trimmed = name;
    trimmed.erase(0, trimmed.find_first_not_of(' '));
    trimmed.erase(trimmed.find_last_not_of(' ') + 1);
    const bool isNumber = IsNumeric(trimmed);
    require(IsInvalidName(name) == (isNumber || holdsAny(trimmed, "\\/:*?\"<>|.")), name);
    require(IsInvalidFileName(name) == (isNumber || holdsAny(trimmed, "\\/:*?\"<>|")), name);
    require(isItemName(name) == (!trimmed.empty() && !IsInvalidName(name)), name);
    const std::string upper = upperName(name);
    require(upperName(upper) == upper, name);
    require(charCount(upper) == charCount(name), name);
}

void takeApart(const std::string& text) {
    const ItemPath path = ItemPath::of(text);
    require(path.text() == text, text);
    require(!holdsAny(path.name, "/\\"), text);
    require(path.folder.empty() || holdsAny(path.folder.substr(path.folder.size() - 1), "/\\"),
            text);
    const ItemPath item = ItemPath::item(text, "NAME");
    require(item.folder == text && item.name == "NAME.vla", text);
}

/// Whether a name can be that of one file in a folder.
bool isUsable(const std::string& name) {
    return !name.empty() && name != "." && name != ".." &&
           !holdsAny(name, std::string_view("/\\\0", 3));
}

/// A store among other folders, and a person who tries names on it.
class Trial {
  public:
    Trial() {
        for (const char* folder : {"/other", "/store", "/store/Sub", "/store/Sub/deeper"})
            m_files->makeFolder(folder);
        for (const char* file : {"/other/SECRET.vla", "/SECRET.vla", "/store/top.vla"})
            m_files->save(ItemPath::of(file), "as it was");
    }

    void step(Input& input) {
        static constexpr std::array<const char*, 8> kFolders{
            "/store/",     "/STORE\\",         "/store/sub/", "/Store\\SUB\\Deeper\\",
            "/store/SUB/", "//store//sub\\\\", "/none/",      "/store/top.vla/"};
        m_path.folder = input.oneOf(kFolders);
        const std::size_t act = input.below(6);
        m_path.name = input.line();
        m_before = m_onlooker.tree("/");
        switch (act) {
            case 0:
            case 1:
                return save(act == 0 ? "a" : "b");
            case 2:
                return remove();
            case 3:
                return list();
            case 4:
                return makeFolder();
            default:
                return look();
        }
    }

  private:
    /// The folder of the trial as it is on the disk; none for one that is not there.
    std::optional<std::string> folder() const {
        const std::string wanted = UCase(m_path.folder);
        if (wanted.find("NONE") != wanted.npos || wanted.find("TOP") != wanted.npos) return {};
        if (wanted.find("DEEPER") != wanted.npos) return "/store/Sub/deeper/";
        return wanted.find("SUB") != wanted.npos ? "/store/Sub/" : "/store/";
    }
    /// What is there under the name, a path of the tree: the exact spelling, else the first one.
    std::optional<std::string> present(bool isFolder) const {
        if (!folder() || !isUsable(m_path.name)) return {};
        const std::string end = isFolder ? "/" : "";
        const std::string exact = *folder() + m_path.name + end;
        if (m_before.contains(exact)) return exact;
        const std::string wanted = UCase(exact);
        for (const auto& each : m_before) {
            // Of folders the parts above are as they are on the disk.
            if (each.first.starts_with(*folder()) && UCase(each.first) == wanted) return each.first;
        }
        return {};
    }
    static std::string nameIn(const std::string& path) {
        return path.substr(path.rfind('/', path.size() - 2) + 1);
    }
    bool isTooLong() const { return m_path.name.size() > 255; }

    void save(const std::string& content) {
        const auto there = present(false);
        const long failure = raisedBy([&] { m_files->save(m_path, content); });
        const bool can =
            folder() && isUsable(m_path.name) && !isTooLong() && (there || !present(true));
        require(failure == (can ? 0 : errc::FileAccess), m_path.name);
        Tree expected = m_before;
        if (can) expected[there ? *there : *folder() + m_path.name] = content;
        require(m_onlooker.tree("/") == expected, m_path.name);
        if (!can) return;
        const std::string spelt = there ? nameIn(*there) : m_path.name;
        require(m_files->find(m_path) == spelt, m_path.name);
        const ItemPath inCapitals{UCase(m_path.folder), UCase(m_path.name)};
        require(UCase(m_files->find(inCapitals)) == UCase(spelt), m_path.name);
        require(m_files->read(m_path) == content, m_path.name);
    }
    void remove() {
        const auto there = present(false);
        const long failure = raisedBy([&] { m_files->remove(m_path); });
        require(failure == (there ? 0 : errc::FileNotFound), m_path.name);
        Tree expected = m_before;
        if (there) expected.erase(*there);
        require(m_onlooker.tree("/") == expected, m_path.name);
    }
    void look() {
        const auto there = present(false);
        require(m_files->find(m_path) == (there ? nameIn(*there) : ""), m_path.name);
        std::string content;
        const long failure = raisedBy([&] { content = m_files->read(m_path); });
        require(failure == (there ? 0 : errc::FileNotFound), m_path.name);
        if (there) require(content == m_before.at(*there), m_path.name);
        require(m_onlooker.tree("/") == m_before, m_path.name);
    }
    void makeFolder() {
        // Glued, as a host does it: what stands behind the folder's end may hold separators.
        if (!isUsable(m_path.name)) return;
        const bool can = folder() && !isTooLong() && !present(false) && !present(true);
        const long failure = raisedBy([&] { m_files->makeFolder(m_path.text()); });
        require(failure == (can ? 0 : errc::FileAccess), m_path.name);
        Tree expected = m_before;
        if (can) expected[*folder() + m_path.name + "/"];
        require(m_onlooker.tree("/") == expected, m_path.name);
    }
    void list() {
        std::vector<std::pair<std::string, std::string>> items;
        for (const auto& each : m_before) {
            const std::string& path = each.first;
            if (!folder() || !path.starts_with(*folder()) || path.ends_with('/')) continue;
            const std::string name = nameIn(path);
            const bool isBelow = path.size() != folder()->size() + name.size();
            if (!isBelow && UCase(name).ends_with(".VLA")) items.emplace_back(UCase(name), name);
        }
        std::sort(items.begin(), items.end());
        std::vector<std::string> names;
        for (auto& each : items) names.push_back(each.second);
        require(m_files->listItems(m_path.folder) == names, m_path.folder);
    }

    std::unique_ptr<FileSystem> m_files = makeMemoryFileSystem();
    Onlooker m_onlooker{*m_files};
    ItemPath m_path;
    Tree m_before;
};

}  // namespace
}  // namespace wynconfig::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace wynconfig::fuzz;
    static const bool isSet = (wynconfig::setNumberLocale("en-US"), true);
    require(isSet);
    constexpr int kMostSteps = 40;
    Input names(data, size);
    for (int i = 0; i < kMostSteps && !names.atEnd(); ++i) {
        const std::string name = names.line();
        judge(name);
        takeApart(name);
    }
    Input input(data, size);
    Trial trial;
    for (int i = 0; i < kMostSteps && !input.atEnd(); ++i) trial.step(input);
    return 0;
}
