// Texts and font of the dialogs, from the host's resource manager.
#pragma once

#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>
#include <variant>

#include "services/on_error.h"
#include "wynconfig/controls.h"
#include "wynconfig/form.h"

namespace wynconfig {

/// The text of a key from the host's resource manager. Raises `Error` without a manager, and
/// whatever the manager raises.
std::string GetString(const std::string& key);

/// A text without which the dialogs do, from the host's resource manager; empty without a manager,
/// and when that raises.
std::string findString(const std::string& key) noexcept;

/// The text of a key, as a statement of its own; empty after a failure, which `on` deals with.
std::string fetchString(OnError& on, const std::string& key);

/// One tab of a `Tabs`, as a place for a caption.
struct TabCaption {
    Tabs* tabs;
    int index;
};

/// One row of a dialog's table of texts: a place, its key, and the text that it gets by default.
struct CaptionText {
    using Place = std::variant<CaptionedControl*, TabCaption, Form*, std::string*>;

    /// By default the place gets its design caption.
    CaptionText(CaptionedControl* control, std::string_view textKey)
        : place(control), key(textKey) {}
    CaptionText(TabCaption tab, std::string_view textKey) : place(tab), key(textKey) {}
    /// A caption bar has no design caption.
    CaptionText(FormCaption* bar, std::string_view textKey) = delete;
    /// For a place without a design caption. A row without a key is only written by default.
    CaptionText(Place where, std::string_view textKey, std::string_view defaultText)
        : place(where), key(textKey), byDefault(defaultText) {}

    Place place;
    std::string_view key;
    std::optional<std::string_view> byDefault;
};

/// Writes each text of a table into its place, in order. At the first failure all places get their
/// default texts, and no box comes up.
void applyTexts(std::initializer_list<CaptionText> table);

/// The texts of a browse dialog.
struct BrowseTexts {
    std::string title;
    std::string ok;
    std::string cancel;
};

/// Fetches the texts of a browse dialog. A text that can't be had, or is empty, gives way to
/// `titleByDefault`, "OK" and "Cancel"; no box comes up.
BrowseTexts fetchBrowseTexts(const std::string& titleKey, const std::string& titleByDefault);

/// Fetches the font of a form and gives it to the form and each of its controls. Failures are
/// passed over in silence.
void SetFormFont(Form& form);

}  // namespace wynconfig
