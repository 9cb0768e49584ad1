// How items are named on the command line and in what the program prints: NAME, or session:NAME and
// format:NAME, which no name can be mistaken for since none holds a colon.
#pragma once

#include <string>
#include <vector>

#include "json.h"
#include "wynconfig/store.h"

namespace tool {

using wynconfig::ItemKind;
using wynconfig::Store;
using Names = std::vector<std::string>;

/// An item of a store.
struct Item {
    ItemKind kind = ItemKind::Session;
    std::string name;
};

/// "session" or "format": how JSON and item names tell the kinds apart.
const char* wordOf(ItemKind kind);

/// The type of the records of a kind, which is the name of their folder as well.
const std::string& typeOf(ItemKind kind);

/// All sessions, then all part formats.
std::vector<Item> allItems(const Store& store);
std::vector<Item> allDeleted(const Store& store);

/// The item of these that a person means. Raises `UsageError` when it may be either a session or a
/// part format, and `wynconfig::Error` when it is none of them.
/// @param text   NAME, session:NAME or format:NAME, in any case
/// @param where  what a message says of these items, such as "in the store"
Item itemMeant(const std::vector<Item>& items, const std::string& text, const std::string& where);

/// Such as `session:DESK`.
std::string textOf(const Item& item);
/// {"kind": ..., "name": ...}
Json jsonOf(const Item& item);
/// A line for each item, and {"items": [...]}.
std::string linesOf(const std::vector<Item>& items);
Json jsonOf(const std::vector<Item>& items);

/// Where an item's file lies or would lie, as other programs of this system find it.
std::string fileOf(const Store& store, const Item& item);

/// Text in which no control character works on a terminal: they stand there as `\n` or `\x1B`.
std::string plain(const std::string& text);

}  // namespace tool
