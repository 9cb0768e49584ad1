// The one table of commands.
#include "commands.h"

#include <algorithm>

#ifdef WITH_DATABASE
#include "wynconfig/database.h"
#endif

namespace tool {

const std::vector<Command>& commands() {
    static const std::vector<Command> all{
        {"list", "Lists the sessions and part formats.", declareList},
        {"show", "Shows the keys of an item and their values.", declareShow},
        {"check", "Looks at every item, and tells what is not as it should be.", declareCheck},
        {"refs", "Lists the sessions that have a part format.", declareRefs},
        {"init", "Makes a store in a folder; what is there of one stays untouched.", declareInit},
        {"rename", "Gives a part format another name, in all sessions too.", declareRename},
        {"delete", "Moves an item into the folder of the deleted ones.", declareDelete},
        {"deleted", "Lists the deleted items.", declareDeleted},
        {"restore", "Brings a deleted item back.", declareRestore},
        {"export", "Writes sessions with their part formats into one file.", declareExport},
        {"import", "Takes over what export has written, all of it or nothing.", declareImport},
        {"migrate", "Takes sessions with their part formats over from another store.",
         declareMigrate},
#ifdef WITH_DATABASE
        {"sql", "Carries the store into a database and back, all of it or nothing.", declareSql},
#endif
    };
    return all;
}

bool mayHoldPassword([[maybe_unused]] const std::vector<std::string>& arguments) {
#ifdef WITH_DATABASE
    // The other commands take no address, but items such as session:DESK, which look like one.
    return std::find(arguments.begin(), arguments.end(), "sql") != arguments.end() &&
           std::any_of(arguments.begin(), arguments.end(),
                       wynconfig::DatabaseAddress::mayHoldPassword);
#else
    return false;
#endif
}

}  // namespace tool
