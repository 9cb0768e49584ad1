// What the host offers: all operations of the component, and what the database needs besides.
#include "window/operations.h"

#include <memory>
#include <stdexcept>
#include <system_error>

#include "installed_view.h"
#include "sample/sample_formats.h"
#include "window/first_steps.h"
#include "window/refused_dialog.h"
#include "window/store_dialogs.h"
#include "wynconfig/scripted_view.h"

namespace host {

namespace {

using Needs = Operation::Needs;

constexpr const char* kCancelled = "Nothing was done.";

/// What the user is told of an operation in memory.
Outcome told(const wynconfig::MemoryResult& result) {
    Outcome outcome{result.result, result.name, {}, result.xml};
    for (const std::string& format : result.leftOut)
        outcome.text += "The part format " + format + " is damaged and was left out. ";
    if (result.result == 0) outcome.text += "Stored in the database.";
    return outcome;
}

/// Lets the user decide on a refused edit, which is kept until it is stored.
Outcome settle(Workplace& workplace, QWidget* window) {
    while (true) {
        const auto decision = askAboutRefusal(window, *workplace.refused);
        if (!decision)
            return {1, {}, "Not stored. The edit is kept: Database, Refused edit.", {}, true};
        try {
            wynconfig::MemorySessions& memory = workplace.inMemory();
            const wynconfig::MemoryResult result =
                decision->again ? memory.store(workplace.refused->edit())
                                : memory.storeUnderAnotherName(*workplace.refused, decision->name);
            workplace.refused.reset();
            return told(result);
        } catch (const wynconfig::RefusedEdit& refused) {
            workplace.refused = refused;
        } catch (const wynconfig::DatabaseError& error) {
            workplace.refused = wynconfig::RefusedEdit(error.what(), workplace.refused->edit(),
                                                       workplace.refused->conflicts());
        }
    }
}

/// Calls what stores an edit, and keeps the edit when the database refuses it.
template <class Call>
Outcome onDatabase(Workplace& workplace, const Selection& selection, Call call) {
    try {
        return told(call(workplace.inMemory()));
    } catch (const wynconfig::RefusedEdit& refused) {
        workplace.refused = refused;
        return settle(workplace, selection.window);
    }
}

Outcome opened(Workplace& workplace, const std::filesystem::path& root) {
    std::error_code failure;
    if (!std::filesystem::is_directory(root, failure))
        throw std::runtime_error("The folder " + root.string() +
                                 " is not there. The store that is open stays so.");
    workplace.openStore(root);
    return {{}, {}, "The store " + root.string() + " is open now."};
}

Outcome openStore(Workplace& workplace, const Selection& selection) {
    const auto root = askForStore(selection.window, workplace.store().root);
    return root ? opened(workplace, *root) : Outcome{{}, {}, kCancelled};
}

Outcome addSession(Workplace& workplace, const Selection&) {
    Outcome outcome;
    outcome.result = workplace.onFiles().showAddMORAMConfigDlg(outcome.name);
    return outcome;
}

/// The first part format, where there is none, and a session.
Outcome takeFirstSteps(Workplace& workplace, const Selection& selection) {
    if (workplace.store().names(wynconfig::ItemKind::PartFormat).empty()) {
        const auto format = askForFirstFormat(selection.window);
        if (!format) return {{}, {}, kCancelled};
        const auto view = std::make_shared<wynconfig::ScriptedView>();
        const InstalledView installed(view);
        makeSampleFormat(workplace.onFiles(), view->user(), *format);
    }
    return addSession(workplace, selection);
}

Outcome configureSession(Workplace& workplace, const Selection& selection) {
    Outcome outcome{{}, selection.session};
    outcome.result = workplace.onFiles().showMORAMConfigDlg(outcome.name);
    return outcome;
}

Outcome maintainSessions(Workplace& workplace, const Selection& selection) {
    Outcome outcome{{}, selection.session};
    outcome.result = workplace.onFiles().showMORAMMaintenanceDlg(outcome.name);
    return outcome;
}

Outcome addToDatabase(Workplace& workplace, const Selection& selection) {
    return onDatabase(workplace, selection,
                      [](wynconfig::MemorySessions& memory) { return memory.add(); });
}

Outcome configureOfDatabase(Workplace& workplace, const Selection& selection) {
    return onDatabase(workplace, selection, [&](wynconfig::MemorySessions& memory) {
        return memory.configure(selection.database->item.name);
    });
}

Outcome takeOver(Workplace& workplace, const Selection& selection) {
    const auto wanted = askForTakeOver(selection.window);
    if (!wanted) return {{}, {}, kCancelled};
    Outcome outcome = onDatabase(workplace, selection, [&](wynconfig::MemorySessions& memory) {
        return memory.takeOver(wanted->root.string() + "/", wanted->session, wanted->name);
    });
    if (outcome.result == 1 && outcome.text.empty()) {
        outcome.text = "The session, or one of its part formats, is not in that store.";
        outcome.failed = true;
    }
    return outcome;
}

Outcome removeFromDatabase(Workplace& workplace, const Selection& selection) {
    const auto& [kind, item] = *selection.database;
    if (!askToRemove(selection.window, item.name)) return {{}, {}, kCancelled};
    workplace.inMemory().remove(kind, item);
    return {{}, {}, item.name + " was removed from the database."};
}

Outcome settleRefusedEdit(Workplace& workplace, const Selection& selection) {
    return settle(workplace, selection.window);
}

Outcome showHeld(Workplace& workplace, const Selection&) {
    Outcome outcome;
    outcome.shown = workplace.component().GetDatasetSessionData();
    std::size_t count = 0;
    for (const std::string& format : workplace.component().GetDatasetFormatsData()) {
        if (format.empty()) continue;  // stands for none
        outcome.shown += "\n" + format;
        ++count;
    }
    outcome.text = "In memory: a session, and part formats: " + std::to_string(count) + ".";
    return outcome;
}

Outcome pickFromList(Workplace& workplace, const Selection&) {
    Outcome outcome;
    outcome.name = workplace.onFiles().showSessionManagerDlg(workplace.sessionList());
    outcome.text = outcome.name.empty() ? "No session was picked." : "This session was picked.";
    return outcome;
}

Outcome editList(Workplace& workplace, const Selection&) {
    const std::string list =
        workplace.onFiles().showConfigurableSessionManagerDlg(workplace.sessionList());
    workplace.keepSessionList(list);
    return {{}, {}, "My session list: " + (list.empty() ? "empty" : list)};
}

}  // namespace

Operation openingOf(const std::filesystem::path& root) {
    return {"open-recent",
            Area::Store,
            "Open a recent store",
            "Works on a store that was open before",
            "",
            Needs::Nothing,
            false,
            [root](Workplace& workplace, const Selection&) { return opened(workplace, root); }};
}

const std::vector<Operation>& operations() {
    static const std::vector<Operation> all = {
        {"open-store", Area::Store, "&Open another store…", "Works on the store of another folder",
         "Ctrl+O", Needs::Nothing, false, openStore},
        {"add", Area::Store, "&Add session…", "Makes a new session and opens it", "Ctrl+N",
         Needs::Nothing, true, addSession},
        {"configure", Area::Store, "&Configure session…", "Opens the selected session",
         "Ctrl+Return", Needs::Session, true, configureSession},
        {"maintain", Area::Store, "&Maintain sessions…",
         "Picks, makes, edits and deletes sessions of the store", "Ctrl+M", Needs::Nothing, true,
         maintainSessions},

        {"add-to-database", Area::Database, "&Add session…",
         "Makes a new session that is kept in the database", "Ctrl+Shift+N", Needs::Nothing, true,
         addToDatabase},
        {"configure-of-database", Area::Database, "&Configure session…",
         "Opens the selected session of the database", "Ctrl+Shift+Return", Needs::DatabaseSession,
         true, configureOfDatabase},
        {"take-over", Area::Database, "Ta&ke over session…",
         "Takes a session and its part formats over from another store", "Ctrl+T", Needs::Nothing,
         true, takeOver},
        {"remove-from-database", Area::Database, "Remo&ve…",
         "Removes the selected session or part format from the database", "Ctrl+Del",
         Needs::DatabaseItem, true, removeFromDatabase},
        {"refused", Area::Database, "Re&fused edit…",
         "Opens the last edit that the database refused", "", Needs::RefusedEdit, false,
         settleRefusedEdit},

        {"pick", Area::Tools, "&Pick from my session list…",
         "Picks a session from the list of this workplace", "Ctrl+L", Needs::Nothing, false,
         pickFromList},
        {"edit-list", Area::Tools, "&Edit my session list…",
         "Changes the list of this workplace, and the sessions in it", "Ctrl+Shift+L",
         Needs::Nothing, false, editList},

        {"first", Area::FirstSteps, "Make the first session…",
         "Makes the first part format and the first session of a store", "", Needs::Nothing, false,
         takeFirstSteps},

        {"held", Area::Developers, "Show what is held in memory",
         "Shows the session and part formats of the last work in memory", "Ctrl+H", Needs::Nothing,
         true, showHeld},
    };
    return all;
}

}  // namespace host
