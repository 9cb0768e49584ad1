// The names of temporaries, made and taken apart.
#include "platform/files/temporary_names.h"

#include <algorithm>
#include <atomic>
#include <cstddef>
#include <cstdio>
#include <random>

namespace wynconfig {

namespace {

constexpr std::string_view kSuffix = ".tmp";
constexpr std::string_view kDigits = "0123456789";

/// Takes a number as `std::to_string` writes it off the front of a text.
bool takeNumber(std::string_view& text) {
    constexpr std::size_t kMostDigits = 10;
    const std::size_t length = std::min(text.find_first_not_of(kDigits), text.size());
    if (length == 0 || length > kMostDigits || text.front() == '0') return false;
    text.remove_prefix(length);
    return true;
}

bool takeDash(std::string_view& text) {
    if (!text.starts_with('-')) return false;
    text.remove_prefix(1);
    return true;
}

bool takeChance(std::string_view& text) {
    constexpr std::size_t kLength = 8;
    if (text.size() < kLength) return false;
    if (text.find_first_not_of("0123456789abcdef") < kLength) return false;
    text.remove_prefix(kLength);
    return true;
}

}  // namespace

std::string temporariesOf(unsigned long process) {
    static const unsigned chance = std::random_device{}();
    char writer[32];
    std::snprintf(writer, sizeof writer, "%lu-%08x-", process, chance);
    return std::string{kTemporaryPrefix} + writer;
}

std::string newTemporaryName(unsigned long process) {
    static std::atomic<unsigned> counter{0};
    std::string name = temporariesOf(process) + std::to_string(++counter);
    name += kSuffix;
    return name;
}

std::string followerOf(const std::string& leader, unsigned number) {
    std::string name = leader.substr(0, leader.size() - kSuffix.size());
    name += '-';
    name += std::to_string(number);
    name += kSuffix;
    return name;
}

std::optional<std::string> leaderOf(std::string_view name) {
    if (!name.starts_with(kTemporaryPrefix) || !name.ends_with(kSuffix)) return std::nullopt;
    std::string_view rest = name.substr(0, name.size() - kSuffix.size());
    const std::string_view body = rest;
    rest.remove_prefix(kTemporaryPrefix.size());
    if (!takeNumber(rest) || !takeDash(rest) || !takeChance(rest) || !takeDash(rest) ||
        !takeNumber(rest)) {
        return std::nullopt;
    }
    std::string leader{body.substr(0, body.size() - rest.size())};
    leader += kSuffix;
    if (!rest.empty() && !(takeDash(rest) && takeNumber(rest) && rest.empty())) return std::nullopt;
    return leader;
}

}  // namespace wynconfig
