// The one table of commands.
#include "commands.h"

namespace tool {

const std::vector<Command>& commands() {
    static const std::vector<Command> all{
        {"list", "Lists the sessions and part formats.", declareList},
        {"show", "Shows the keys of an item and their values.", declareShow},
        {"check", "Looks at every item, and tells what is not as it should be.", declareCheck},
        {"refs", "Lists the sessions that have a part format.", declareRefs},
    };
    return all;
}

}  // namespace tool
