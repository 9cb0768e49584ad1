// Small questions of the host: which store, which session of it, whether to remove or to quit.
#pragma once

#include <filesystem>
#include <optional>
#include <string>

class QString;
class QWidget;

namespace host {

/// Asks for the folder of a store.
/// @param now  the one that is open
std::optional<std::filesystem::path> askForStore(QWidget* window, const std::filesystem::path& now);

/// A session of another store, to be kept in the database.
struct TakeOver {
    std::filesystem::path root;  ///< of the other store
    std::string session;
    std::string name;  ///< under which it is kept
};
std::optional<TakeOver> askForTakeOver(QWidget* window);

bool askToRemove(QWidget* window, const std::string& name);

/// Says why something could not be done.
void tellFailure(QWidget* window, const QString& why);

/// Asks whether to quit with a parts list that was not sent, and will not be there again.
bool askToQuit(QWidget* window);

}  // namespace host
