// The end of a thread on Windows. GCC's library ends a thread's variables by one key of the thread,
// and frees their memory by another; keys act in the order in which they were made, and by itself
// the memory's would come first.
extern "C" int __cxa_thread_atexit(void (*end)(void*), void* object, void* library);

namespace {

/// Runs before anything that has a variable of a thread. What is registered here does nothing: it
/// makes the key.
[[gnu::constructor(101)]] void makeTheKeyThatEndsVariables() {
    __cxa_thread_atexit([](void*) {}, nullptr, nullptr);
}

}  // namespace
