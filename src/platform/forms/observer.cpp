// The installed observer, and the operation that it is told.
#include "wynconfig/observer.h"

#include <utility>

#include "platform/forms/observing.h"

namespace wynconfig {

namespace {

std::shared_ptr<Observer>& installedObserver() {
    thread_local std::shared_ptr<Observer> observer;
    return observer;
}

const char*& currentOperation() {
    thread_local const char* operation = "";
    return operation;
}

/// Calls the observer, which may replace itself meanwhile.
template <class Call>
void tell(const Call& call) noexcept {
    try {
        if (const std::shared_ptr<Observer> held = installedObserver()) call(*held);
    } catch (...) {
        // It only watches: what fails there is nothing to the one who is watched.
    }
}

}  // namespace

void Observer::failed(const Failure&) {}

void Observer::answered(const MessageRequest&, int) {}

void installObserver(std::shared_ptr<Observer> observer) {
    installedObserver().swap(observer);
}

OperationScope::OperationScope(const char* name)
    : m_outer(std::exchange(currentOperation(), name)) {}

OperationScope::~OperationScope() {
    currentOperation() = m_outer;
}

void tellFailure(const std::string& tag, long number, const std::string& description) noexcept {
    tell([&](Observer& observer) {
        observer.failed({currentOperation(), tag, number, description});
    });
}

void tellBox(const MessageRequest& box, int answer) noexcept {
    tell([&](Observer& observer) { observer.answered(box, answer); });
}

}  // namespace wynconfig
