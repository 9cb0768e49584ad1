// The commands of the program by their groups; each group has a file of its own.
#pragma once

#include <string>
#include <vector>

#include "command.h"

namespace tool {

/// The table of all commands, in the order of --help.
const std::vector<Command>& commands();

/// Whether a command line may hold the password of a database, so that nothing of it is to be
/// shown.
bool mayHoldPassword(const std::vector<std::string>& arguments);

// looking.cpp: what is in a store.
Run declareList(CLI::App& app);
Run declareShow(CLI::App& app);
Run declareCheck(CLI::App& app);
Run declareRefs(CLI::App& app);

// changing.cpp: making a store, and changing its items.
Run declareInit(CLI::App& app);
Run declareRename(CLI::App& app);
Run declareDelete(CLI::App& app);
Run declareDeleted(CLI::App& app);
Run declareRestore(CLI::App& app);

// exchange.cpp: carrying items from one store to another.
Run declareExport(CLI::App& app);
Run declareImport(CLI::App& app);
Run declareMigrate(CLI::App& app);

// sql.cpp: carrying items into a database and back; only where that library is built.
Run declareSql(CLI::App& app);

}  // namespace tool
