// Each block of the parser stands behind its size, which `operator new` does not tell.
#include "platform/records/parser_memory.h"

#include <algorithm>
#include <cstring>
#include <limits>
#include <new>

namespace wynconfig {

namespace {

constexpr std::size_t kHead = alignof(std::max_align_t);
static_assert(kHead >= sizeof(std::size_t));

std::size_t sizeOf(const void* memory) {
    std::size_t size = 0;
    std::memcpy(&size, static_cast<const char*>(memory) - kHead, sizeof size);
    return size;
}

}  // namespace

ParserMemory& parserMemory() {
    thread_local ParserMemory memory;
    return memory;
}

void* allocateForParser(std::size_t size) {
    ParserMemory& all = parserMemory();
    if (all.blocks >= ParserMemory::kMostBlocks) {
        all.isExceeded = true;
        return nullptr;
    }
    char* const block = size > std::numeric_limits<std::size_t>::max() - kHead
                            ? nullptr
                            : static_cast<char*>(::operator new(kHead + size, std::nothrow));
    if (!block) {
        all.hasRunOut = true;
        return nullptr;
    }
    ++all.blocks;
    std::memcpy(block, &size, sizeof size);
    return block + kHead;
}

void* reallocateForParser(void* memory, std::size_t size) {
    if (!memory) return allocateForParser(size);
    void* const larger = allocateForParser(size);
    if (!larger) return nullptr;
    std::memcpy(larger, memory, std::min(size, sizeOf(memory)));
    freeForParser(memory);
    return larger;
}

void freeForParser(void* memory) {
    if (!memory) return;
    --parserMemory().blocks;
    ::operator delete(static_cast<char*>(memory) - kHead);
}

}  // namespace wynconfig
