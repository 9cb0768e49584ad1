/// @file
/// How a program sees what the component tells its user.
#pragma once

#include <memory>
#include <string>

#include "wynconfig/export.h"
#include "wynconfig/view.h"

namespace wynconfig {

/// An unexpected failure, or a call that is not as it should be. Text is UTF-8.
struct Failure {
    std::string operation;    ///< of `WYNConfig`, the innermost one, such as "init"; or empty
    std::string tag;          ///< names the procedure, as the failure box does
    long number = 0;          ///< tells kinds of failure apart, see `errc`; no box shows it
    std::string description;  ///< what the box tells first
};

/// Watches over a component's shoulder, for a log or for a host without a person. What it raises is
/// passed over.
class WYNCONFIG_API Observer {
  public:
    virtual ~Observer() = default;

    /// Is called for every failure that is told the user, before its box comes up and whether it
    /// does or not; and for what no box tells: a store's root without its separator, and a view
    /// that fails at a sign of life (`View::showProgress`).
    virtual void failed(const Failure& failure);
    /// Is called for every message box, once it has been answered.
    /// @param box     what was asked
    /// @param answer  as `View::showMessage` gives it
    virtual void answered(const MessageRequest& box, int answer);
};

/// Installs the observer of this thread; null takes it away. Every other thread has its own.
WYNCONFIG_API void installObserver(std::shared_ptr<Observer> observer);

}  // namespace wynconfig
