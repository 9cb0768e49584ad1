// The way from the windows of a form to its controls, for views whose toolkit must not be thrown
// through.
#pragma once

#include <exception>
#include <functional>
#include <utility>

#include "wynconfig/view.h"

namespace wynconfig {

/// Once shut it lets nothing through: the form has gone, and a touch of a control would load it
/// again. Nothing thrown leaves by it, since what calls it is a toolkit's event loop.
class Door {
  public:
    /// @param failed  is told that something was thrown; `failure` has it then
    Door(UserInput input, std::function<void()> failed)
        : m_input(input), m_failed(std::move(failed)) {}

    void shut() { m_open = false; }
    bool isOpen() const { return m_open; }
    std::exception_ptr failure() const { return m_failure; }

    template <class Report>
    void operator()(const Report& report) noexcept {
        if (!m_open) return;
        try {
            report(m_input);
        } catch (...) {
            m_failure = std::current_exception();
            m_failed();
        }
    }

  private:
    UserInput m_input;
    std::function<void()> m_failed;
    std::exception_ptr m_failure;
    bool m_open = true;
};

}  // namespace wynconfig
