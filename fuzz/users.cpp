// A person who does anything at any dialog, on a disk that fails where the input says. Whatever the
// person does, all items can be read, nobody's items change but those that the person is at, what
// is deleted is kept aside, and every dialog can be left. On a disk that works, what the person
// confirmed is what the dialog showed.
#include <algorithm>
#include <array>
#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "input.h"
#include "onlooker.h"
#include "platform/text/numbers.h"
#include "platform/text/text.h"
#include "services/global_error.h"
#include "store/config_global_module.h"
#include "store/session_record.h"
#include "wynconfig/error.h"
#include "wynconfig/form.h"
#include "wynconfig/keys.h"
#include "wynconfig/resource_manager.h"
#include "wynconfig/scripted_view.h"
#include "wynconfig/store.h"
#include "wynconfig/wynconfig.h"

namespace wynconfig::fuzz {
namespace {

using Operation = FaultyFileSystem::Operation;
using Rows = std::map<std::string, std::string>;

const std::string kSessions = "/store/MORAM/";
const std::string kFormats = "/store/PARTFORMAT/";

/// The record of an item file; none when the text is no record.
std::shared_ptr<const Dataset> recordOf(const std::string& text) {
    auto record = std::make_shared<Dataset>();
    try {
        Document document;
        if (!document.loadXML(text)) return nullptr;
        record->Load(document);
    } catch (const Error&) {
        return nullptr;
    }
    return record;
}

Rows rowsOf(const std::string& text) {
    const auto record = recordOf(text);
    require(record != nullptr, text);
    Rows rows;
    for (const DataRow& row : record->Rows()) rows.emplace(row[0], row[1]);
    return rows;
}

/// The rows of a session but for those that follow the part formats.
Rows ownRows(const std::string& text) {
    Rows rows = rowsOf(text);
    std::erase_if(rows, [](const auto& row) {
        return session::isFormatKey(row.first) || row.first == session::kFormatCount;
    });
    return rows;
}

bool isItem(const std::string& path) {
    return path.ends_with(".vla");
}

bool isDeleted(const std::string& path) {
    return path.find("/deleted/") != path.npos;
}

/// Upper-cased name of an item file.
std::string nameOf(const std::string& path) {
    const std::string file = path.substr(path.rfind('/') + 1);
    return UCase(file.substr(0, file.size() - 4));
}

/// The store as it was at the last look, and what may have become of it since.
class Watch {
  public:
    Watch(FileSystem& disk, bool isFaulty) : m_onlooker(disk), m_isFaulty(isFaulty) {
        m_now = m_onlooker.tree("/store");
    }

    /// @param changesFiles  false for an operation that must leave every file as it is
    void beginOperation(bool changesFiles) {
        m_changesFiles = changesFiles;
        m_touched.clear();
        m_born.clear();
        m_added.clear();
    }
    /// A session of this name is being added. When its configuring is not confirmed it is taken
    /// back, also one that was there before, since who closes the window to add a session by its
    /// frame is asked nothing.
    void add(const std::string& name) { m_added.insert(UCase(name)); }
    /// The person is at an item of this name.
    void touch(const std::string& name) {
        m_touched.insert(UCase(Trim(name)));
        m_touched.insert(UCase(name));
        m_touched.insert("COPY OF " + UCase(name));
    }

    void look() {
        Tree now = m_onlooker.tree("/store");
        if (now == m_now) return;
        require(m_changesFiles, "an operation in memory changed a file");
        for (const auto& [path, text] : now) {
            const auto before = m_now.find(path);
            if (before == m_now.end() || before->second != text) lookAtNew(path, text);
            if (before == m_now.end()) m_born.insert(path);
        }
        for (const auto& [path, text] : m_now) {
            const auto after = now.find(path);
            if (after == now.end())
                lookAtGone(path, text, now);
            else if (after->second != text)
                lookAtChanged(path, text, after->second);
        }
        m_now = std::move(now);
    }

    /// The rows of an item of this name; none when it is not there.
    std::optional<Rows> rows(const std::string& folder, const std::string& name) const {
        for (const auto& [path, text] : m_now)
            if (path.starts_with(folder) && !isDeleted(path) && isItem(path) &&
                nameOf(path) == UCase(name))
                return rowsOf(text);
        return {};
    }
    bool isFaulty() const { return m_isFaulty; }

  private:
    void lookAtNew(const std::string& path, const std::string& text) const {
        if (!isItem(path)) return;
        const auto record = recordOf(text);
        require(record != nullptr, path);
        if (m_isFaulty) return;
        const bool isSession = path.starts_with(kSessions);
        // A session that the session dialog was opened for without a name has no type.
        require(record->Type() == (isSession ? session::kType : partformat::kType) ||
                    (isSession && record->Type().empty()),
                path);
        // The dialogs beside the session's save it under the name that is entered by then, which it
        // bears only when the session itself is applied.
        const std::string name = UCase(record->Name());
        require(name == nameOf(path) || (isSession && m_touched.contains(name)), path);
    }
    void lookAtGone(const std::string& path, const std::string& text, const Tree& now) const {
        require(isItem(path) && !isDeleted(path), path);
        require(m_touched.contains(nameOf(path)), path);
        if (m_isFaulty || m_born.contains(path)) return;
        if (path.starts_with(kSessions) && m_added.contains(nameOf(path))) return;
        const std::string folder = path.substr(0, path.rfind('/') + 1);
        const bool isRenamed = std::any_of(now.begin(), now.end(), [&](const auto& each) {
            return each.first.starts_with(folder) && !isDeleted(each.first) && isItem(each.first) &&
                   !m_now.contains(each.first);
        });
        if (isRenamed) return;
        const auto aside = std::find_if(now.begin(), now.end(), [&](const auto& each) {
            return each.first.starts_with(folder + "deleted/") && isItem(each.first) &&
                   nameOf(each.first) == nameOf(path);
        });
        require(aside != now.end(), path);
        require(rowsOf(aside->second) == rowsOf(text), path);
    }
    void lookAtChanged(const std::string& path, const std::string& before,
                       const std::string& after) const {
        require(isItem(path), path);
        if (m_touched.contains(nameOf(path))) return;
        require(path.starts_with(kSessions) && !isDeleted(path), path);
        require(ownRows(before) == ownRows(after), path);
    }

    Onlooker m_onlooker;
    bool m_isFaulty;
    bool m_changesFiles = true;
    Tree m_now;
    std::set<std::string> m_touched;  ///< names of this operation
    std::set<std::string> m_born;     ///< paths of this operation
    std::set<std::string> m_added;    ///< names of sessions that this operation is to add
};

/// A view whose person does what the input says.
class Screen : public ScriptedView {
  public:
    Screen(Input& input, Watch& watch) : m_input(input), m_watch(watch) {}

    void showModal(Form& form) override {
        user().onForm(std::string(form.name()), [&](User&) { work(form); });
        m_forms.push_back(&form);
        ScriptedView::showModal(form);
        m_forms.pop_back();
        require(!form.loaded(), form.name());
        m_watch.look();
    }
    int showMessage(const MessageRequest& box) override {
        ++m_boxes;
        m_watch.look();
        require(isUtf8(box.text), box.text);
        static constexpr std::array<int, 2> kAnswers{answer::No, answer::Yes};
        const bool asks = (box.style & 0xF) == boxstyle::YesNo;
        user().onBox(asks ? m_input.oneOf(kAnswers) : answer::Ok);
        return ScriptedView::showMessage(box);
    }
    std::string browse(const BrowseRequest& request) override {
        static constexpr std::array<const char*, 4> kPaths{"", "/store", "/programs/parts",
                                                           "/none"};
        user().onBrowse(m_input.oneOf(kPaths));
        return ScriptedView::browse(request);
    }

  private:
    void work(Form& form) {
        constexpr int kMostActs = 60;
        constexpr int kMostOfAll = 100;
        for (int i = 0; i < kMostActs && m_acts < kMostOfAll && !m_input.atEnd(); ++i, ++m_acts) {
            touchAll();
            try {
                act(form);
            } catch (const UserError&) {
                // A person can't do that here.
            }
            if (!form.loaded()) return;
            m_watch.look();
        }
        touchAll();
        user().closeByFrame();
        require(!form.loaded(), form.name());
    }

    /// The person is at whatever is selected or entered in a dialog that is open.
    void touchAll() {
        for (const Form* form : m_forms) {
            if (!form->loaded()) continue;
            for (const Control* control : form->controls()) {
                if (control->kind() == ControlKind::Edit) {
                    const std::string& text = static_cast<const Edit*>(control)->text();
                    m_watch.touch(text);
                    if (form->name() == "frmAddMORAMConfig") m_watch.add(text);
                } else if (control->kind() == ControlKind::ListView) {
                    const auto* row = static_cast<const ListView*>(control)->selectedItem();
                    if (row) m_watch.touch(row->text);
                }
            }
        }
    }

    std::string text() {
        static const std::array<const char*, 24> kTexts{"",
                                                        "A",
                                                        "b ",
                                                        "NEW",
                                                        " new ",
                                                        "/programs/parts",
                                                        "\"/programs/parts\"",
                                                        "1",
                                                        "2.5",
                                                        "-3",
                                                        "1E3",
                                                        "<TAB>",
                                                        "<Part #>, <Quantity>",
                                                        "a.b",
                                                        "A,B",
                                                        "x/y",
                                                        "\u00E4rger",
                                                        "\u00DF",
                                                        "A&B <c> \"d\"",
                                                        "COPY OF PLAIN",
                                                        "PLAIN",
                                                        "true",
                                                        "list.txt",
                                                        "two\r\nlines\t"};
        const std::size_t pick = m_input.below(kTexts.size() + 4);
        if (pick < kTexts.size()) return kTexts[pick];
        const std::string line = m_input.line().substr(0, 40);
        return isUtf8(line) && line.find('\0') == line.npos ? line : "?";
    }

    void act(Form& form) {
        const std::size_t way = m_input.below(24);
        if (way < 14) return actOn(*m_input.oneOf(form.controls()));
        switch (way) {
            case 14:
                return user().pressEnter();
            case 15:
                return user().pressTab();
            case 16:
                return user().pressDelete();
            case 17:
                return user().pressF2();
            case 18:
                return user().pressMnemonic(user().see(m_input.oneOf(form.controls())->name()).key);
            case 19:
                return user().resize(m_input.byte() * 100, m_input.byte() * 100);
            case 20:
                return user().typeAhead(m_input.oneOf(form.controls())->name(), text());
            case 21:
                return m_input.below(4) == 0 ? user().pressEscape() : user().pressTab();
            case 22:
                return m_input.below(4) == 0 ? user().closeByFrame() : user().pressTab();
            default:
                return press(form, m_input.below(2) == 0 ? "btnOK" : "btnApply");
        }
    }

    void actOn(const Control& control) {
        const std::string name{control.name()};
        switch (control.kind()) {
            case ControlKind::Edit:
                return user().type(name, text());
            case ControlKind::ListView: {
                const auto rows = user().see(name).rowTexts();
                if (rows.empty()) return;
                const std::string row = m_input.oneOf(rows);
                user().pick(name, row);
                touchAll();
                return m_input.below(4) == 0 ? user().doubleClick(name, row) : void();
            }
            case ControlKind::ComboBox: {
                const auto rows = user().see(name).rowTexts();
                return rows.empty() ? void() : user().choose(name, m_input.oneOf(rows));
            }
            case ControlKind::Tabs:
                return user().changeTab(name, static_cast<int>(m_input.below(3)));
            case ControlKind::Button:
                return press(*m_forms.back(), name);
            default:
                return user().click(name);
        }
    }

    /// Presses a button. What was confirmed has to be in the store as it was shown.
    void press(Form& form, const std::string& button) {
        const bool isSession = form.name() == "frmMORAMConfig";
        const bool isFormat = form.name() == "frmPartNumberFormat";
        const bool isConfirming = (isSession && (button == "btnOK" || button == "btnApply")) ||
                                  (isFormat && button == "btnOk");
        if (!isConfirming || m_watch.isFaulty() || ConfigGlobalModule::g_DatasetMode)
            return user().click(button);
        const Rows shown = isSession ? shownSession() : shownFormat();
        const std::string name =
            UCase(Trim(user().see(isSession ? "txtDisplayName" : "txtFormatName").text));
        const int boxes = m_boxes;
        user().click(button);
        if (m_boxes != boxes) return;
        require(form.loaded() == (button == "btnApply"), button);
        m_watch.look();
        const auto stored = m_watch.rows(isSession ? kSessions : kFormats, name);
        require(stored.has_value(), name);
        for (const auto& [key, value] : shown) {
            const auto row = stored->find(key);
            require(row != stored->end() && row->second == value, key + " of " + name);
        }
    }

    std::string shownText(const char* box) { return user().see(box).text; }
    std::string shownSwitch(const char* box) {
        return user().see(box).value ? words::kTrue : words::kFalse;
    }

    Rows shownSession() {
        Rows rows{{session::kProgramPath, shownText("txtProgramPath")},
                  {session::kCommandLineArgs, shownText("txtCommandLineArgs")},
                  {session::kReverseList, shownSwitch("chkReverseList")},
                  {session::kAutoResize, shownSwitch("chkAutoResize")},
                  {session::kOrientation, words::kLeft}};
        for (const auto& [option, word] : {std::pair{"rdoTop", words::kTop},
                                           {"rdoBottom", words::kBottom},
                                           {"rdoRight", words::kRight}})
            if (user().see(option).value) rows[session::kOrientation] = word;
        const auto formats = user().see("lstSelectedFormats2").rowTexts();
        rows[session::kFormatCount] = std::to_string(formats.size());
        for (std::size_t i = 0; i < formats.size(); ++i)
            rows[session::formatKey(static_cast<int>(i) + 1)] = formats[i];
        return rows;
    }
    Rows shownFormat() {
        return {{partformat::kHeader, shownText("txtHeader")},
                {partformat::kRecord, shownText("txtRecord")},
                {partformat::kSeparator, shownText("txtSeparator")},
                {partformat::kTrailer, shownText("txtTrailer")},
                {partformat::kMaxRecords, shownText("txtMaxRecords")}};
    }

    Input& m_input;
    Watch& m_watch;
    std::vector<Form*> m_forms;
    int m_boxes = 0;
    int m_acts = 0;
};

void put(const std::string& folder, const std::string& type, const std::string& name,
         const std::vector<DataRow>& rows) {
    Dataset record;
    record.Create(type, name, folder, session::kColumns);
    for (const DataRow& row : rows) record.AddRow(row);
    record.Save(ItemPath::item(folder, name));
}

void fillStore() {
    FileSystem& disk = fileSystem();
    disk.makeFolder("/store");
    disk.makeFolder("/programs");
    disk.save(ItemPath::of("/programs/parts"), "a program");
    WYNConfig().init("/store/");
    for (const char* name : {"PLAIN", "TABBED", "\u00C4RGER"})
        put(kFormats, partformat::kType, name,
            {{partformat::kHeader, name}, {partformat::kRecord, "<Part #>"}});
    put(kSessions, session::kType, "A",
        {{session::kProgramPath, "/programs/parts"},
         {session::kFormatCount, "2"},
         {session::formatKey(1), "PLAIN"},
         {session::formatKey(2), "TABBED"}});
    put(kSessions, session::kType, "B",
        {{session::kFormatCount, "1"}, {session::formatKey(1), "PLAIN"}});
    put(kSessions, session::kType, "OLDER", {});
}

void announceFaults(Input& input, FaultyFileSystem& disk) {
    static constexpr std::array<const char*, 6> kPlaces{"",        "MORAM", "PARTFORMAT",
                                                        "deleted", "A.vla", "PLAIN.vla"};
    for (std::size_t faults = 1 + input.below(4); faults > 0; --faults) {
        const auto operation = static_cast<Operation>(input.below(6));
        const char* const place = input.oneOf(kPlaces);
        const int skip = static_cast<int>(input.below(20));
        disk.failOn(operation, place, skip, 1 + static_cast<int>(input.below(3)));
    }
}

/// Calls one operation, as a host does.
void operate(Input& input, Watch& watch) {
    static constexpr std::array<const char*, 6> kNames{"A", "b", "OLDER", "", "NONE", "\u00E4rger"};
    const std::size_t which = input.below(10);
    std::string name = input.oneOf(kNames);
    WYNConfig component;
    watch.beginOperation(which < 6);
    watch.touch(name);
    switch (which) {
        case 0:
        case 1:
            component.showMORAMConfigDlg(name);
            break;
        case 2:
            component.showAddMORAMConfigDlg(name);
            break;
        case 3:
            component.showMORAMMaintenanceDlg(name);
            break;
        case 4:
            component.showConfigurableSessionManagerDlg("A,OLDER,gone,B");
            break;
        case 5:
            component.showSessionManagerDlg("B,A");
            break;
        case 6: {
            const std::string held = component.GetDatasetSessionData();
            component.showMORAMConfigDlgEX(name, held, component.GetDatasetFormatsData());
            break;
        }
        case 7:
            component.showAddMORAMConfigDlgEX(name);
            break;
        case 8:
            component.MigrateSession("/store/", name);
            break;
        default:
            component.GetDatasetFormatsData();
    }
    watch.look();
}

}  // namespace
}  // namespace wynconfig::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace wynconfig;
    using namespace wynconfig::fuzz;
    static const auto texts = makeBundleResourceManager(WYNCONFIG_RESOURCES, "en");
    Input input(data, size);
    ConfigGlobalModule::reset();
    resetGlobalError();
    setNumberLocale("en-US");
    const auto memory = makeMemoryFileSystem();
    FaultyFileSystem disk(*memory);
    setFileSystem(&disk);
    WYNConfig().InitResourceManager(texts);
    fillStore();
    const bool isFaulty = input.below(2) == 1;
    if (isFaulty) announceFaults(input, disk);
    Watch watch(*memory, isFaulty);
    installView(std::make_shared<Screen>(input, watch));
    constexpr int kMostOperations = 4;
    for (int i = 0; i < kMostOperations && !input.atEnd(); ++i) operate(input, watch);
    installView(nullptr);
    setFileSystem(nullptr);
    ConfigGlobalModule::reset();
    return 0;
}
