// Stands in the place of the operators that take and give back memory.
#include "support/failing_memory.h"

#include <cstdlib>
#include <new>

namespace wynconfig {
namespace {

bool isToFail(Memory& memory) {
    if (memory.untilFailure > 0) {
        if (memory.untilFailure != Memory::kNever) --memory.untilFailure;
        return false;
    }
    const bool fails = !memory.failsOnce || !memory.hasFailed;
    memory.hasFailed = true;
    return fails;
}

void* allocate(std::size_t size) noexcept {
    Memory& memory = memoryOfThread();
    if (isToFail(memory)) return nullptr;
    void* const block = std::malloc(size ? size : 1);
    if (block) ++memory.blocks;
    return block;
}

void release(void* block) noexcept {
    if (!block) return;
    --memoryOfThread().blocks;
    std::free(block);
}

}  // namespace

Memory& memoryOfThread() {
    thread_local Memory memory;
    return memory;
}

}  // namespace wynconfig

void* operator new(std::size_t size) {
    void* const block = wynconfig::allocate(size);
    if (!block) throw std::bad_alloc();
    return block;
}
void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
    return wynconfig::allocate(size);
}
void operator delete(void* block) noexcept {
    wynconfig::release(block);
}
void operator delete(void* block, std::size_t) noexcept {
    wynconfig::release(block);
}
void operator delete(void* block, const std::nothrow_t&) noexcept {
    wynconfig::release(block);
}
