// What the host offers of the component: one table, from which its buttons and menus are made.
#pragma once

#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "window/outcome.h"
#include "window/workplace.h"

class QWidget;

namespace host {

/// The menu and the list that an operation belongs to.
enum class Area { Store, Database, Tools, Developers, FirstSteps };

/// An item of the database as the user sees it in the list.
struct SelectedItem {
    wynconfig::ItemKind kind = wynconfig::ItemKind::Session;
    wynconfig::ListedItem item;
};

/// What is selected in the window when an operation is called.
struct Selection {
    std::string session;                   ///< of the store; empty: none
    std::optional<SelectedItem> database;  ///< of the database, no factory item
    QWidget* window = nullptr;             ///< for questions of the host's own; may be null
};

/// One thing that the host can do.
struct Operation {
    enum class Needs { Nothing, Session, DatabaseSession, DatabaseItem, RefusedEdit };
    const char* id;  ///< for code that looks it up
    Area area;
    const char* caption;   ///< key of its text, which marks a key
    const char* tip;       ///< key of one sentence for the status bar
    const char* shortcut;  ///< key sequence; empty: none
    Needs needs;           ///< what must be there for it to be offered
    bool button;           ///< has a button besides its place in the menu
    /// Does it, with the selection that it needs.
    /// Raises `std::exception` with a text for the user.
    std::function<Outcome(Workplace& workplace, const Selection& selection)> call;
};

/// Opening this store; not among `operations`.
Operation openingOf(const std::filesystem::path& root);

/// All operations, in the order in which they are offered.
const std::vector<Operation>& operations();

}  // namespace host
