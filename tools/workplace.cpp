// Finds the store, and prints.
#include "workplace.h"

#include <cstdio>

#include "command.h"
#include "items.h"
#include "wynconfig/error.h"

namespace tool {

namespace {

std::string withSeparator(std::string root) {
    if (!root.ends_with('/') && !root.ends_with('\\')) root += '/';
    return root;
}

/// Text that is no UTF-8 gets a replacement character for each byte of it.
std::string textOfJson(const Json& json) {
    return json.dump(2, ' ', false, Json::error_handler_t::replace) + "\n";
}

}  // namespace

wynconfig::Store Workplace::store() const {
    return storeAt(namedRoot());
}

wynconfig::Store Workplace::storeAt(const std::string& root) {
    wynconfig::Store store(withSeparator(root));
    if (!store.isMade())
        throw wynconfig::Error(wynconfig::errc::FileNotFound,
                               "There is no store in " + store.root() +
                                   ": it lacks the folders MORAM and PARTFORMAT with their "
                                   "catalogues.");
    return store;
}

std::string Workplace::namedRoot() const {
    if (root.empty())
        throw UsageError("Which store? Name its root by --store, or in WYNCONFIG_STORE.");
    return withSeparator(root);
}

void Workplace::answer(const Json& json, const std::string& text) const {
    std::fputs((asJson ? textOfJson(json) : text).c_str(), stdout);
}

void Workplace::remark(const std::string& sentence) const {
    if (asJson) return;
    std::fflush(stdout);  // what was said before stands before
    std::fprintf(stderr, "wynconfig: %s\n", plain(sentence).c_str());
}

wynconfig::StoreProgress Workplace::progress(const std::string& what) const {
    return [shown = std::make_shared<Progress>(what, showsProgress)](
               std::size_t done, std::size_t all) { (*shown)(done, all); };
}

void printError(bool asJson, const std::string& kind, long number, const std::string& message) {
    if (!asJson) {
        std::fprintf(stderr, "wynconfig: %s\n", plain(message).c_str());
        return;
    }
    Json error{{"kind", kind}, {"message", message}};
    if (number != 0) error["number"] = number;
    std::fputs(textOfJson({{"error", error}}).c_str(), stdout);
}

}  // namespace tool
