// What the host offers: all operations of the component, and what the database needs besides.
#include "window/operations.h"

#include <memory>
#include <stdexcept>
#include <system_error>

#include "installed_view.h"
#include "sample/sample_formats.h"
#include "texts/phrase.h"
#include "window/first_steps.h"
#include "window/refused_dialog.h"
#include "window/store_dialogs.h"
#include "wynconfig/scripted_view.h"

namespace host {

namespace {

using Needs = Operation::Needs;

/// What the user is told of an operation in memory.
Outcome told(const wynconfig::MemoryResult& result) {
    Outcome outcome{result.result, result.name, {}, result.xml};
    for (const std::string& format : result.leftOut)
        outcome.text += phrase("DONE_LEFT_OUT", {format}) + " ";
    if (result.result == 0) outcome.text += phrase("DONE_STORED");
    return outcome;
}

/// Lets the user decide on a refused edit, which is kept until it is stored.
Outcome settle(Workplace& workplace, QWidget* window) {
    while (true) {
        const auto decision = askAboutRefusal(window, *workplace.refused);
        if (!decision) return {1, {}, phrase("DONE_NOT_STORED"), {}, true};
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
        throw std::runtime_error(phrase("STORE_NOT_THERE", {root.string()}));
    workplace.openStore(root);
    return {{}, {}, phrase("DONE_OPEN", {root.string()})};
}

Outcome openStore(Workplace& workplace, const Selection& selection) {
    const auto root = askForStore(selection.window, workplace.store().root);
    return root ? opened(workplace, *root) : Outcome{{}, {}, phrase("DONE_NOTHING")};
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
        if (!format) return {{}, {}, phrase("DONE_NOTHING")};
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
    if (!wanted) return {{}, {}, phrase("DONE_NOTHING")};
    Outcome outcome = onDatabase(workplace, selection, [&](wynconfig::MemorySessions& memory) {
        return memory.takeOver(wanted->root.string() + "/", wanted->session, wanted->name);
    });
    if (outcome.result == 1 && outcome.text.empty()) {
        outcome.text = phrase("DONE_NOT_IN_STORE");
        outcome.failed = true;
    }
    return outcome;
}

Outcome removeFromDatabase(Workplace& workplace, const Selection& selection) {
    const auto& [kind, item] = *selection.database;
    if (!askToRemove(selection.window, item.name)) return {{}, {}, phrase("DONE_NOTHING")};
    workplace.inMemory().remove(kind, item);
    return {{}, {}, phrase("DONE_REMOVED", {item.name})};
}

Outcome settleRefusedEdit(Workplace& workplace, const Selection& selection) {
    return settle(workplace, selection.window);
}

Outcome showHeld(Workplace& workplace, const Selection&) {
    Outcome outcome;
    outcome.shown = workplace.component().GetDatasetSessionData();
    long long count = 0;
    for (const std::string& format : workplace.component().GetDatasetFormatsData()) {
        if (format.empty()) continue;  // stands for none
        outcome.shown += "\n" + format;
        ++count;
    }
    outcome.text = phrase("DEVELOPER_HELD", {wholeText(count)});
    return outcome;
}

Outcome pickFromList(Workplace& workplace, const Selection&) {
    Outcome outcome;
    outcome.name = workplace.onFiles().showSessionManagerDlg(workplace.sessionList());
    outcome.text = phrase(outcome.name.empty() ? "DONE_PICKED_NONE" : "DONE_PICKED");
    return outcome;
}

Outcome editList(Workplace& workplace, const Selection&) {
    const std::string list =
        workplace.onFiles().showConfigurableSessionManagerDlg(workplace.sessionList());
    workplace.keepSessionList(list);
    return {{}, {}, list.empty() ? phrase("DONE_LIST_EMPTY") : phrase("DONE_LIST", {list})};
}

}  // namespace

Operation openingOf(const std::filesystem::path& root) {
    return {"open-recent",
            Area::Store,
            "OPEN_RECENT",
            "OPEN_RECENT_TIP",
            "",
            Needs::Nothing,
            false,
            [root](Workplace& workplace, const Selection&) { return opened(workplace, root); }};
}

const std::vector<Operation>& operations() {
    static const std::vector<Operation> all = {
        {"open-store", Area::Store, "OPEN_STORE", "OPEN_STORE_TIP", "Ctrl+O", Needs::Nothing, false,
         openStore},
        {"add", Area::Store, "ADD_SESSION", "ADD_SESSION_TIP", "Ctrl+N", Needs::Nothing, true,
         addSession},
        {"configure", Area::Store, "CONFIGURE_SESSION", "CONFIGURE_SESSION_TIP", "Ctrl+Return",
         Needs::Session, true, configureSession},
        {"maintain", Area::Store, "MAINTAIN_SESSIONS", "MAINTAIN_SESSIONS_TIP", "Ctrl+M",
         Needs::Nothing, true, maintainSessions},

        {"add-to-database", Area::Database, "DATABASE_ADD", "DATABASE_ADD_TIP", "Ctrl+Shift+N",
         Needs::Nothing, true, addToDatabase},
        {"configure-of-database", Area::Database, "DATABASE_CONFIGURE", "DATABASE_CONFIGURE_TIP",
         "Ctrl+Shift+Return", Needs::DatabaseSession, true, configureOfDatabase},
        {"take-over", Area::Database, "TAKE_OVER", "TAKE_OVER_TIP", "Ctrl+T", Needs::Nothing, true,
         takeOver},
        {"remove-from-database", Area::Database, "DATABASE_REMOVE", "DATABASE_REMOVE_TIP",
         "Ctrl+Del", Needs::DatabaseItem, true, removeFromDatabase},
        {"refused", Area::Database, "REFUSED_EDIT", "REFUSED_EDIT_TIP", "", Needs::RefusedEdit,
         false, settleRefusedEdit},

        {"pick", Area::Tools, "PICK_SESSION", "PICK_SESSION_TIP", "Ctrl+L", Needs::Nothing, false,
         pickFromList},
        {"edit-list", Area::Tools, "EDIT_LIST", "EDIT_LIST_TIP", "Ctrl+Shift+L", Needs::Nothing,
         false, editList},

        {"first", Area::FirstSteps, "FIRST_SESSION", "FIRST_SESSION_TIP", "", Needs::Nothing, false,
         takeFirstSteps},

        {"held", Area::Developers, "SHOW_HELD", "SHOW_HELD_TIP", "Ctrl+H", Needs::Nothing, true,
         showHeld},
    };
    return all;
}

}  // namespace host
