// The objects of a thread that programs in C hold by handles.
#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "wynconfig/c.h"
#include "wynconfig/dataset.h"
#include "wynconfig/error.h"
#include "wynconfig/form.h"
#include "wynconfig/store.h"
#include "wynconfig/user.h"

namespace wynconfig::c {

/// A row of a `wyn_list`.
struct Row {
    std::string key;
    std::string text;
};
using Rows = std::vector<Row>;

/// The text that a function of the host gives.
struct Answer {
    std::string text;
};

/// A form that a function of the host acts on.
struct OpenForm {
    std::shared_ptr<User> user;
    std::string name;
    Form* form = nullptr;  ///< null where a view of the component shows it
    std::map<std::string, wyn_control*, std::less<>> controls;  ///< those that were asked for
};

/// A control of such a form, which lives as long.
struct OpenControl {
    wyn_form* form;
    std::string name;
};

/// What stands for an object of a type in C.
template <class T>
struct HandleOf;
template <>
struct HandleOf<const Rows> {
    using Type = wyn_list;
    static constexpr const char* name = "list";
};
template <>
struct HandleOf<Answer> {
    using Type = wyn_answer;
    static constexpr const char* name = "answer";
};
template <>
struct HandleOf<Dataset> {
    using Type = wyn_record;
    static constexpr const char* name = "record";
};
template <>
struct HandleOf<Store> {
    using Type = wyn_store;
    static constexpr const char* name = "store";
};
template <>
struct HandleOf<OpenForm> {
    using Type = wyn_form;
    static constexpr const char* name = "form";
};
template <>
struct HandleOf<OpenControl> {
    using Type = wyn_control;
    static constexpr const char* name = "control";
};
template <>
struct HandleOf<User> {
    using Type = wyn_user;
    static constexpr const char* name = "user";
};

// A handle is a number that no other handle of the process ever had, so that one that was closed,
// or that another thread got, is known for what it is.

/// Keeps an object, whatever its type, and gives it a number.
std::uintptr_t keep(std::shared_ptr<void> object, const char* kind, bool closable);
/// The object of a number. Raises `Error` (WYN_ERROR_HANDLE) when there is none of this kind.
std::shared_ptr<void> kept(std::uintptr_t number, const char* kind);
/// Forgets an object. Raises as `kept` does, also where the caller may not close it.
void forget(std::uintptr_t number, bool byCaller);

/// Forgets what the caller may close.
void forgetAll();

/// Opens a handle.
/// @param closable  whether the caller closes it by wyn_close
template <class T>
typename HandleOf<T>::Type* open(std::shared_ptr<T> object, bool closable = true) {
    std::shared_ptr<void> kept = std::const_pointer_cast<std::remove_const_t<T>>(std::move(object));
    const std::uintptr_t number = keep(std::move(kept), HandleOf<T>::name, closable);
    using Handle = typename HandleOf<T>::Type;
    return reinterpret_cast<Handle*>(number);  // NOLINT(performance-no-int-to-ptr)
}

/// The object of a handle. Raises `Error` (WYN_ERROR_HANDLE) when it is none, or not open here.
template <class T>
std::shared_ptr<T> get(typename HandleOf<T>::Type* handle) {
    return std::static_pointer_cast<T>(
        kept(reinterpret_cast<std::uintptr_t>(handle), HandleOf<T>::name));
}

template <class Handle>
void close(Handle* handle) {
    forget(reinterpret_cast<std::uintptr_t>(handle), false);
}

/// A handle that closes at the end of a block.
template <class T>
class Scoped {
  public:
    explicit Scoped(std::shared_ptr<T> object) : m_handle(open(std::move(object), false)) {}
    ~Scoped() { close(m_handle); }
    Scoped(const Scoped&) = delete;
    Scoped& operator=(const Scoped&) = delete;
    typename HandleOf<T>::Type* handle() const { return m_handle; }

  private:
    typename HandleOf<T>::Type* m_handle;
};

}  // namespace wynconfig::c
