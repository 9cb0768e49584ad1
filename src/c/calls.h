// What all calls of the C interface have in common: nothing is thrown out of them, texts and
// structs come in and go out alike.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <memory>
#include <string>

#include "c/handles.h"
#include "wynconfig/export.h"

namespace wynconfig::c {

/// As `run`, for what `act` stands for. Exported, as others of these are, for the desktop view's
/// calls in the library of their own.
WYNCONFIG_API std::int32_t runErased(const char* function, void (*call)(const void* act),
                                     const void* act) noexcept;

/// Does what a call is for, and keeps what is thrown for wyn_last_error.
/// @param function  the call's name (a literal)
/// @return WYN_OK or the number of the failure
template <class Act>
std::int32_t run(const char* function, const Act& act) noexcept {
    const auto call = [](const void* erased) { (*static_cast<const Act*>(erased))(); };
    return runErased(function, call, &act);
}

/// A handle for a played person.
WYNCONFIG_API wyn_user* openUser(std::shared_ptr<User> user);

/// Raises what a function of the host failed with, unless it did not.
/// @param what      names the function
/// @param failures  `failureCount()` before it was called
void requireOk(std::int32_t status, const char* what, std::size_t failures);

/// How many calls have failed on this thread.
std::size_t failureCount();

/// A text that came in. Raises `Error` (WYN_ERROR_TEXT) when it is no UTF-8.
WYNCONFIG_API std::string textIn(const char* text);
/// A text for the caller, who frees it. Raises std::bad_alloc.
char* textOut(const std::string& text);

/// Raises `Error` (WYN_ERROR_CALL) when there is no place for a result.
WYNCONFIG_API void requirePlace(const void* place);

/// A struct that came in, as far as its caller knows it; the rest is empty. Raises `Error`
/// (WYN_ERROR_STRUCT).
/// @param least  what every caller knows of it
template <class T>
T structIn(const T* given, std::size_t least = sizeof(T)) {
    if (!given || given->size < least)
        throw Error(WYN_ERROR_STRUCT, "A struct has to begin with its size.");
    T taken{};
    std::memcpy(&taken, given, std::min(given->size, sizeof(T)));
    return taken;
}

/// Fills a struct in for the caller. Raises `Error` (WYN_ERROR_STRUCT).
template <class T>
void structOut(T* place, T value) {
    value.size = structIn(place).size;
    std::memcpy(place, &value, sizeof(T));
}

/// Functions of the host and what they are called with; releases that at the end.
template <class Functions>
class Hosted {
  public:
    explicit Hosted(const Functions& functions) : m_functions(functions) {}
    ~Hosted() {
        if (m_functions.release) m_functions.release(m_functions.context);
    }
    Hosted(const Hosted&) = delete;
    Hosted& operator=(const Hosted&) = delete;
    const Functions& operator*() const { return m_functions; }
    const Functions* operator->() const { return &m_functions; }

  private:
    Functions m_functions;
};

/// Calls a function of the host and raises what it fails with.
template <class Function, class... Arguments>
void callHost(const char* what, Function function, Arguments... arguments) {
    const std::size_t failures = failureCount();
    requireOk(function(arguments...), what, failures);
}

/// A list handle of rows.
wyn_list* listOf(Rows rows);
wyn_list* listOf(const std::vector<std::string>& texts);

/// One of the two kinds of items. Raises `Error` (WYN_ERROR_CALL).
ItemKind itemKind(std::int32_t kind);

/// Gives functions of the host a form to act on, for as long as they run. While something else is
/// in front, see `Covered`, nobody can act on it.
class FormScope {
  public:
    FormScope(std::shared_ptr<User> user, std::string name, Form* form);
    ~FormScope();
    FormScope(const FormScope&) = delete;
    FormScope& operator=(const FormScope&) = delete;
    wyn_form* handle() const { return m_handle; }

  private:
    std::shared_ptr<OpenForm> m_form;
    wyn_form* m_handle;
};

/// A box is in front of all forms.
class Covered {
  public:
    Covered();
    ~Covered();
    Covered(const Covered&) = delete;
    Covered& operator=(const Covered&) = delete;
};

/// What a box is to a function of the host. The texts are those of the box.
wyn_box boxOut(const MessageRequest& box);

}  // namespace wynconfig::c
