// What tells the observer.
#pragma once

#include <string>

#include "wynconfig/view.h"

namespace wynconfig {

/// Names the operation that is at work as long as it lives. They nest.
class OperationScope {
  public:
    /// @param name  outlives the object (a literal)
    explicit OperationScope(const char* name);
    OperationScope(const OperationScope&) = delete;
    OperationScope& operator=(const OperationScope&) = delete;
    ~OperationScope();

  private:
    const char* m_outer;
};

// None of these raises anything.

void tellFailure(const std::string& tag, long number, const std::string& description) noexcept;
void tellBox(const MessageRequest& box, int answer) noexcept;

}  // namespace wynconfig
