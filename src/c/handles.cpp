// One table of handles a thread.
#include "c/handles.h"

#include <atomic>
#include <unordered_map>
#include <utility>

namespace wynconfig::c {

namespace {

struct Kept {
    std::shared_ptr<void> object;
    const char* kind;
    bool closable;
};

using Table = std::unordered_map<std::uintptr_t, Kept>;

/// None where the thread is at its end: what the table held may call back as it goes.
Table* table() {
    struct Owner {
        Table table;
        bool* gone;
        ~Owner() { *gone = true; }
    };
    thread_local bool gone = false;
    if (gone) return nullptr;
    thread_local Owner owner{{}, &gone};
    return &owner.table;
}

Kept& find(std::uintptr_t number, const char* kind) {
    Table* const all = table();
    const auto found = all ? all->find(number) : Table::iterator();
    if (!all || found == all->end())
        throw Error(WYN_ERROR_HANDLE, std::string("This ") + kind +
                                          " is closed, or it was not opened on this thread.");
    return found->second;
}

}  // namespace

std::uintptr_t keep(std::shared_ptr<void> object, const char* kind, bool closable) {
    Table* const all = table();
    if (!all) throw Error(WYN_ERROR_HANDLE, "This thread is at its end.");
    // Odd, as no address of an object is.
    static std::atomic<std::uintptr_t> last{1};
    const std::uintptr_t number = last += 2;
    all->emplace(number, Kept{std::move(object), kind, closable});
    return number;
}

std::shared_ptr<void> kept(std::uintptr_t number, const char* kind) {
    const Kept& found = find(number, kind);
    if (std::string_view(found.kind) != kind)
        throw Error(WYN_ERROR_HANDLE,
                    std::string("This is a ") + found.kind + " in the place of a " + kind + ".");
    return found.object;
}

void forget(std::uintptr_t number, bool byCaller) {
    const Kept& found = find(number, "handle");
    if (byCaller && !found.closable)
        throw Error(WYN_ERROR_HANDLE, std::string("A ") + found.kind + " closes by itself.");
    // What it held goes once it is out of the table, which that may call for.
    const std::shared_ptr<void> object = found.object;
    table()->erase(number);
}

void forgetAll() {
    Table* const all = table();
    if (!all) return;
    std::vector<std::shared_ptr<void>> objects;
    for (auto at = all->begin(); at != all->end();) {
        if (!at->second.closable) {
            ++at;
            continue;
        }
        objects.push_back(std::move(at->second.object));
        at = all->erase(at);
    }
}

}  // namespace wynconfig::c
