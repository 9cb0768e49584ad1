// The tables of the database, and how those of an earlier program become those of this one.
#pragma once

#include <QString>
#include <string>

#include "database/connection.h"
#include "wynconfig/store.h"

namespace wynconfig {

/// The table of the items of a kind.
QString tableOf(ItemKind kind);

/// Connects where there is no connection that answers, and makes or upgrades the tables where they
/// are not those of this program.
/// Raises `DatabaseError`, also when the tables are those of a newer program; they are then left
/// as they are.
/// @param workstation  who is noted as having upgraded them
void openTables(DatabaseConnection& database, const std::string& workstation);

}  // namespace wynconfig
