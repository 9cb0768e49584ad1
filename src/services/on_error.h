// What happens after a failure, statement by statement.
#pragma once

#include <string_view>
#include <utility>

namespace wynconfig {

/// Guards the statements of one procedure. After a failure the procedure goes on at the next
/// statement; a test that fails counts as true, since the next statement is the first one inside.
///
///     OnError on{"frmAddMORAMConfig:init"};         // a failure shows the box with this tag
///     on([&] { txtName.setText(sName); });          // one statement
///     if (on.test([&] { return exists(path); }))    // a failed test enters the branch
///     on.resumeNext();                              // from here no box ...
///     on.standard();                                // ... and from here again
class OnError {
  public:
    /// @param tag  names the procedure in the box; the text must outlive the object (a literal)
    explicit OnError(std::string_view tag) : m_tag(tag) {}
    /// Guards a procedure that shows no box for any failure.
    static OnError ignoring() {
        OnError on{std::string_view{}};
        on.resumeNext();
        return on;
    }

    /// Runs one statement. @return whether it succeeded
    template <class Statement>
    bool operator()(Statement&& statement) {
        try {
            std::forward<Statement>(statement)();
            return true;
        } catch (...) {
            tell();
            return false;
        }
    }

    /// Evaluates a test; true when it fails.
    template <class Test>
    bool test(Test&& condition) {
        try {
            return std::forward<Test>(condition)();
        } catch (...) {
            tell();
            return true;
        }
    }

    void resumeNext() { m_silent = true; }
    void standard() { m_silent = false; }

  private:
    /// Shows the box for the exception being handled, unless failures are ignored.
    void tell();

    std::string_view m_tag;
    bool m_silent = false;
};

}  // namespace wynconfig
