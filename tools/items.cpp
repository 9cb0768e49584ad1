// The names of items, and where they lie.
#include "items.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <functional>
#include <optional>

#include "command.h"
#include "wynconfig/error.h"
#include "wynconfig/keys.h"

namespace tool {

namespace {

constexpr std::array kKinds{ItemKind::Session, ItemKind::PartFormat};

using NamesOfKind = std::function<Names(ItemKind)>;

std::vector<Item> itemsOf(const NamesOfKind& namesOf) {
    std::vector<Item> items;
    for (const ItemKind kind : kKinds) {
        for (std::string& name : namesOf(kind)) items.push_back({kind, std::move(name)});
    }
    return items;
}

/// Takes "session:" or "format:" off the front of a text.
std::optional<ItemKind> takeKind(std::string& text) {
    for (const ItemKind kind : kKinds) {
        const std::string head = std::string(wordOf(kind)) + ":";
        if (!text.starts_with(head)) continue;
        text.erase(0, head.size());
        return kind;
    }
    return std::nullopt;
}

}  // namespace

const char* wordOf(ItemKind kind) {
    return kind == ItemKind::Session ? "session" : "format";
}

const std::string& typeOf(ItemKind kind) {
    return kind == ItemKind::Session ? wynconfig::session::kType : wynconfig::partformat::kType;
}

std::vector<Item> allItems(const Store& store) {
    return itemsOf([&](ItemKind kind) { return store.names(kind); });
}

std::vector<Item> allDeleted(const Store& store) {
    return itemsOf([&](ItemKind kind) { return store.deletedNames(kind); });
}

Item itemMeant(const std::vector<Item>& items, const std::string& text, const std::string& where) {
    std::string name = text;
    const std::optional<ItemKind> kind = takeKind(name);
    const std::string wanted = wynconfig::upperName(name);
    std::optional<Item> found;
    for (const Item& item : items) {
        if ((kind && item.kind != *kind) || wynconfig::upperName(item.name) != wanted) continue;
        if (found && found->kind != item.kind)
            throw UsageError("\"" + text + "\" is a session and a part format: say session:" +
                             name + " or format:" + name + ".");
        // Of two files that differ in their case the component takes the upper-cased one.
        if (!found || item.name == wanted) found = item;
    }
    if (!found)
        throw wynconfig::Error(wynconfig::errc::FileNotFound,
                               "There is no item \"" + text + "\" " + where + ".");
    return *found;
}

std::string textOf(const Item& item) {
    return std::string(wordOf(item.kind)) + ":" + plain(item.name);
}

Json jsonOf(const Item& item) {
    return {{"kind", wordOf(item.kind)}, {"name", item.name}};
}

std::string linesOf(const std::vector<Item>& items) {
    std::string text;
    for (const Item& item : items) text += textOf(item) + "\n";
    return text;
}

Json jsonOf(const std::vector<Item>& items) {
    Json list = Json::array();
    for (const Item& item : items) list.push_back(jsonOf(item));
    return list;
}

std::string fileOf(const Store& store, const Item& item) {
    namespace fs = std::filesystem;
    std::string root = store.root();
    std::replace(root.begin(), root.end(), '\\', '/');
    const std::string& type = typeOf(item.kind);
    std::string folder = type;
    std::error_code none;
    // On a disk that minds the case, the folder may be spelt otherwise.
    if (!fs::exists(root + type, none)) {
        for (const auto& entry : fs::directory_iterator(root, none)) {
            const std::string name = entry.path().filename().string();
            if (wynconfig::upperName(name) == type) folder = name;
        }
    }
    return root + folder + "/" + store.path(item.kind, item.name).name;
}

std::string plain(const std::string& text) {
    constexpr const char* kDigits = "0123456789ABCDEF";
    std::string shown;
    for (const char c : text) {
        const auto byte = static_cast<unsigned char>(c);
        if (c == '\n')
            shown += "\\n";
        else if (c == '\t')
            shown += "\\t";
        else if (c == '\r')
            shown += "\\r";
        else if (byte < 0x20 || byte == 0x7F)
            shown.append("\\x").append(1, kDigits[byte >> 4]).append(1, kDigits[byte & 0xF]);
        else
            shown += c;
    }
    return shown;
}

}  // namespace tool
