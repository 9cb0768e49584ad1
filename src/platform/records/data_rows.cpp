// The rows of a record: linked slots in one block, the first of which is no row, and, where they
// are many, an index with open addressing over their keys.
#include <algorithm>
#include <utility>

#include "platform/records/key_hash.h"
#include "wynconfig/dataset.h"

namespace wynconfig {

namespace {

/// So few rows are sooner looked through than hashed.
constexpr std::size_t kMostWithoutIndex = 32;

/// An entry of the index: the hash above, the slot below. No row is in slot 0: that is no entry.
std::uint64_t entryOf(std::uint32_t hash, std::uint32_t slot) {
    return std::uint64_t{hash} << 32U | slot;
}
std::uint32_t slotIn(std::uint64_t entry) {
    return static_cast<std::uint32_t>(entry);
}
std::uint32_t hashIn(std::uint64_t entry) {
    return static_cast<std::uint32_t>(entry >> 32U);
}

using Index = std::vector<std::uint64_t>;

/// The place behind one, around the end of the index. Its size is a power of two.
std::size_t behind(const Index& index, std::size_t place) {
    return (place + 1) & (index.size() - 1);
}

std::size_t homeOf(const Index& index, std::uint64_t entry) {
    return hashIn(entry) & (index.size() - 1);
}

/// Enters what is not there yet; there is room.
void enter(Index& index, std::uint64_t entry) {
    std::size_t place = homeOf(index, entry);
    while (index[place]) place = behind(index, place);
    index[place] = entry;
}

/// Takes out an entry, and lets those move up that had to go past it.
void takeOut(Index& index, std::uint64_t entry) {
    std::size_t hole = homeOf(index, entry);
    while (index[hole] != entry) hole = behind(index, hole);
    const std::size_t mask = index.size() - 1;
    for (std::size_t at = behind(index, hole); index[at]; at = behind(index, at)) {
        // Whether the way from its home to its place leads over the hole.
        if (((at - homeOf(index, index[at])) & mask) < ((at - hole) & mask)) continue;
        index[hole] = index[at];
        hole = at;
    }
    index[hole] = 0;
}

}  // namespace

std::uint32_t DataRows::hashOf(std::string_view key) const {
    if (m_index.empty() && m_size < kMostWithoutIndex) return 0;
    return static_cast<std::uint32_t>(keyHash(processHashKey(), key));
}

std::uint32_t DataRows::slotOf(std::string_view key, std::uint32_t hash) const {
    if (m_index.empty()) {
        const auto size = static_cast<std::uint32_t>(m_slots.size());
        const Slot* const slots = m_slots.data();
        for (std::uint32_t slot = 1; slot < size; ++slot)
            if (slots[slot].row[0] == key && slots[slot].previous != kNoSlot) return slot;
        return 0;
    }
    for (std::size_t place = hash & (m_index.size() - 1); m_index[place];
         place = behind(m_index, place)) {
        const std::uint32_t slot = slotIn(m_index[place]);
        if (hashIn(m_index[place]) == hash && m_slots[slot].row[0] == key) return slot;
    }
    return 0;
}

const DataRow* DataRows::find(std::string_view key) const {
    const std::uint32_t slot = slotOf(key, hashOf(key));
    return slot ? &m_slots[slot].row : nullptr;
}

void DataRows::makeRoom() {
    if (m_slots.empty()) {
        m_slots.reserve(kMostWithoutIndex);
        m_slots.emplace_back().previous = 0;
    }
    if (m_size < kMostWithoutIndex || 4 * (m_size + 1) <= 3 * m_index.size()) return;
    Index larger(std::max(4 * kMostWithoutIndex, 2 * m_index.size()));
    if (m_index.empty()) {
        for (auto row = begin(); row != end(); ++row)
            enter(larger, entryOf(hashOf((*row)[0]), row.m_slot));
    } else {
        for (const std::uint64_t entry : m_index)
            if (entry) enter(larger, entry);
    }
    m_index = std::move(larger);
}

std::string* DataRows::add(std::string_view key) {
    const std::uint32_t hash = hashOf(key);
    if (slotOf(key, hash)) return nullptr;
    std::string own(key);
    makeRoom();
    if (!m_free) {
        m_slots.emplace_back();
        m_free = static_cast<std::uint32_t>(m_slots.size() - 1);
    }
    // From here on nothing fails.
    const std::uint32_t slot = m_free;
    Slot& added = m_slots[slot];
    added.row[0] = std::move(own);
    if (!m_index.empty()) enter(m_index, entryOf(hash, slot));
    m_free = std::exchange(added.next, 0);
    added.previous = std::exchange(m_slots[0].previous, slot);
    m_slots[added.previous].next = slot;
    ++m_size;
    return &added.row[1];
}

bool DataRows::remove(std::string_view key) {
    const std::uint32_t hash = hashOf(key);
    const std::uint32_t slot = slotOf(key, hash);
    if (!slot) return false;
    if (!m_index.empty()) takeOut(m_index, entryOf(hash, slot));
    const Slot removed = std::exchange(m_slots[slot], {});
    m_slots[removed.previous].next = removed.next;
    m_slots[removed.next].previous = removed.previous;
    m_slots[slot].next = std::exchange(m_free, slot);
    --m_size;
    return true;
}

void DataRows::replace(std::string_view key, DataRow row) {
    const std::uint32_t hash = hashOf(key);
    const std::uint32_t slot = slotOf(key, hash);
    if (!m_index.empty()) {
        takeOut(m_index, entryOf(hash, slot));
        enter(m_index, entryOf(hashOf(row[0]), slot));
    }
    m_slots[slot].row = std::move(row);
}

void DataRows::clear() {
    *this = DataRows();
}

}  // namespace wynconfig
