// An ordered, keyed container of shared objects, whose keys compare without regard to case.
#pragma once

#include <iterator>
#include <list>
#include <memory>
#include <string>
#include <unordered_map>
#include <utility>

#include "platform/text/text.h"
#include "wynconfig/error.h"

namespace wynconfig {

/// Objects in the order of their adding, each under a key of its own. Indexes count from 1. To go
/// through all of them, iterate; asking by index walks from the first.
template <class T>
class Collection {
  public:
    using Items = std::list<std::pair<std::string, std::shared_ptr<T>>>;

    Collection() = default;
    // The index refers into the list, which keeps its elements when it is moved but not when it is
    // copied.
    Collection(const Collection&) = delete;
    Collection& operator=(const Collection&) = delete;
    Collection(Collection&&) noexcept = default;
    Collection& operator=(Collection&&) noexcept = default;
    ~Collection() = default;

    std::size_t Count() const { return m_items.size(); }

    /// Raises `Error` (errc::DuplicateKey) when the key is present.
    void Add(std::shared_ptr<T> object, const std::string& key) {
        const std::string upper = UCase(key);
        if (m_index.contains(upper))
            throw Error(errc::DuplicateKey, "The key \"" + key + "\" is there already.");
        m_items.emplace_back(upper, std::move(object));
        m_index.emplace(upper, std::prev(m_items.end()));
    }
    /// Raises `Error` (errc::NoSuchKey) when the key is absent.
    std::shared_ptr<T> Item(const std::string& key) const { return found(key)->second->second; }
    /// Raises `Error` (errc::SubscriptRange) when there is no such item.
    std::shared_ptr<T> Item(std::size_t index) const { return at(index)->second; }
    void Remove(const std::string& key) {
        const auto entry = found(key);
        const auto item = entry->second;
        m_index.erase(entry);
        m_items.erase(item);
    }
    void Remove(std::size_t index) {
        const auto item = at(index);
        m_index.erase(item->first);
        m_items.erase(item);
    }
    bool HasKey(const std::string& key) const { return m_index.contains(UCase(key)); }

    typename Items::const_iterator begin() const { return m_items.begin(); }
    typename Items::const_iterator end() const { return m_items.end(); }

  private:
    using Index = std::unordered_map<std::string, typename Items::const_iterator>;

    typename Index::const_iterator found(const std::string& key) const {
        const auto entry = m_index.find(UCase(key));
        if (entry == m_index.end())
            throw Error(errc::NoSuchKey, "There is no item of the key \"" + key + "\".");
        return entry;
    }
    typename Items::const_iterator at(std::size_t index) const {
        if (index < 1 || index > m_items.size())
            throw Error(errc::SubscriptRange, "There is no item " + std::to_string(index) + ".");
        return std::next(m_items.begin(), static_cast<std::ptrdiff_t>(index - 1));
    }

    Items m_items;
    Index m_index;
};

}  // namespace wynconfig
