// The memory of the XML parser: the program's own, with a bound to the number of its blocks.
#pragma once

#include <cstddef>

namespace wynconfig {

/// What the parser of this thread has of memory. It keeps each name of a text, once, in a block of
/// its own, while the values need but few blocks, whatever their size: so it is the number of
/// blocks that tells when a text has too many names, in the middle of a tag as well, of which
/// nobody else hears before its end.
struct ParserMemory {
    std::size_t blocks = 0;   ///< that it has now
    bool isExceeded = false;  ///< it was refused one for their number
    bool hasRunOut = false;   ///< it was refused one since there was no memory

    /// The bound: some sixteen thousand names.
    static constexpr std::size_t kMostBlocks = std::size_t{16} * 1024;
};

/// That of this thread.
ParserMemory& parserMemory();

// As the C functions of these names; memory comes from `operator new`.

void* allocateForParser(std::size_t size);
void* reallocateForParser(void* memory, std::size_t size);
void freeForParser(void* memory);

}  // namespace wynconfig
