// What the fuzzers share: taking an input apart, and saying that a promise is broken.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>
#include <vector>

namespace wynconfig::fuzz {

/// A promise is kept, or the fuzzer has found something.
/// @param about  what it was about, for whoever looks at the finding
inline void require(bool kept, std::string_view about = {}, const char* file = __builtin_FILE(),
                    int line = __builtin_LINE()) {
    if (kept) return;
    std::fprintf(stderr, "%s:%d: a promise is broken: %.*s\n", file, line,
                 static_cast<int>(about.size()), about.data());
    std::abort();
}

/// The bytes of an input, one choice after the other; at its end all choices are 0.
class Input {
  public:
    Input(const std::uint8_t* data, std::size_t size)
        : m_rest(reinterpret_cast<const char*>(data), size) {}

    bool atEnd() const { return m_rest.empty(); }
    std::uint8_t byte() {
        if (m_rest.empty()) return 0;
        const auto value = static_cast<std::uint8_t>(m_rest.front());
        m_rest.remove_prefix(1);
        return value;
    }
    /// A number below a limit of at most 256.
    std::size_t below(std::size_t limit) { return limit == 0 ? 0 : byte() % limit; }
    template <class Values>
    const auto& oneOf(const Values& values) {
        return values[below(std::size(values))];
    }
    /// Up to the next end of a line, which goes as well.
    std::string line() {
        const std::size_t length = m_rest.find('\n');
        std::string text{m_rest.substr(0, length)};
        m_rest.remove_prefix(length == std::string_view::npos ? m_rest.size() : length + 1);
        return text;
    }
    /// All that is left.
    std::string rest() {
        std::string text{m_rest};
        m_rest = {};
        return text;
    }

  private:
    std::string_view m_rest;
};

}  // namespace wynconfig::fuzz
