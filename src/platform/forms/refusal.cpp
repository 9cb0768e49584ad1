// Follows a refusal from the box to its end.
#include "platform/forms/refusal.h"

#include "platform/forms/growing.h"

namespace wynconfig {

namespace {

/// What a person would change in a box, in some form that can be compared. An edit changes as well
/// when only its caret moves.
std::string contentOf(const Control& control) {
    switch (control.kind()) {
        case ControlKind::Edit:
            return static_cast<const Edit&>(control).text();
        case ControlKind::ComboBox:
            return std::to_string(static_cast<const ComboBox&>(control).selectedIndex());
        default:
            return std::to_string(static_cast<const ListView&>(control).selectedNumber());
    }
}

}  // namespace

void Refusal::turnedTo(const Control& control) {
    if (!m_isTold || !isBox(control)) return;
    m_marked = &control;
    m_content = contentOf(control);
}

void Refusal::changed(const Control& control) {
    if (m_marked == &control && contentOf(control) != m_content) m_marked = nullptr;
}

void Refusal::wentTo(const Control& control) {
    if (m_marked != &control) m_marked = nullptr;
}

}  // namespace wynconfig
