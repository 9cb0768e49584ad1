// SipHash-2-4, as its authors define it.
#include "platform/records/key_hash.h"

#include <bit>
#include <cstddef>
#include <random>

namespace wynconfig {

namespace {

struct SipState {
    std::uint64_t a;
    std::uint64_t b;
    std::uint64_t c;
    std::uint64_t d;

    void mix(int rounds) {
        for (int i = 0; i < rounds; ++i) {
            a += b;
            b = std::rotl(b, 13) ^ a;
            a = std::rotl(a, 32);
            c += d;
            d = std::rotl(d, 16) ^ c;
            a += d;
            d = std::rotl(d, 21) ^ a;
            c += b;
            b = std::rotl(b, 17) ^ c;
            c = std::rotl(c, 32);
        }
    }
    void take(std::uint64_t word) {
        d ^= word;
        mix(2);
        a ^= word;
    }
};

constexpr std::size_t kWord = 8;

/// Up to eight bytes as a number, the first one the lowest.
std::uint64_t wordOf(std::string_view bytes) {
    std::uint64_t word = 0;
    for (std::size_t i = 0; i < bytes.size(); ++i)
        word |= std::uint64_t{static_cast<unsigned char>(bytes[i])} << (8 * i);
    return word;
}

}  // namespace

const HashKey& processHashKey() {
#ifdef FUZZING_BUILD_MODE_UNSAFE_FOR_PRODUCTION
    // A fuzzer is to come by the same ways each time.
    static constexpr HashKey key{1, 2};
#else
    static const HashKey key = [] {
        std::random_device chance;
        std::uniform_int_distribution<std::uint64_t> any;
        return HashKey{any(chance), any(chance)};
    }();
#endif
    return key;
}

std::uint64_t keyHash(const HashKey& key, std::string_view text) {
    SipState state{0x736f6d6570736575U ^ key.first, 0x646f72616e646f6dU ^ key.second,
                   0x6c7967656e657261U ^ key.first, 0x7465646279746573U ^ key.second};
    std::size_t at = 0;
    for (; text.size() - at >= kWord; at += kWord) state.take(wordOf(text.substr(at, kWord)));
    state.take(wordOf(text.substr(at)) | std::uint64_t{text.size()} << 56U);
    state.c ^= 0xFFU;
    state.mix(4);
    return state.a ^ state.b ^ state.c ^ state.d;
}

}  // namespace wynconfig
