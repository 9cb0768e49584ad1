// The hash of the keys of rows: SipHash-2-4, under a key of chance, so that nobody who writes a
// record can make its keys meet.
#pragma once

#include <cstdint>
#include <string_view>

namespace wynconfig {

/// The key of the hash, which is none of a row.
struct HashKey {
    std::uint64_t first;
    std::uint64_t second;
};

/// The key of this process, drawn at the first call.
const HashKey& processHashKey();

std::uint64_t keyHash(const HashKey& key, std::string_view text);

}  // namespace wynconfig
