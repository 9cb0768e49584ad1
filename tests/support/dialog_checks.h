// What the tests of several dialogs look at: captions against a dialog's table of texts, and the
// boxes that refuse an entry.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "support/caption_tables.h"
#include "support/desk.h"
#include "wynconfig/controls.h"
#include "wynconfig/form.h"
#include "wynconfig/user.h"

namespace wynconfig {

/// What a dialog about one session gives to its caller.
struct Outcome {
    long result;
    std::string name;
    bool operator==(const Outcome&) const = default;
};

inline Captions captionsOf(const Form& form) {
    Captions captions;
    for (const Control* each : form.controls()) {
        if (const auto* captioned = dynamic_cast<const CaptionedControl*>(each))
            captions.emplace(each->name(), captioned->caption());
    }
    return captions;
}

/// Checks the captions of all controls of a form: by their keys, by default when any one of the
/// keys fails, and empty where the manager's text is empty.
/// @param unkeyed  captions of the controls that the table leaves out
template <class AForm>
void expectTexts(TestTexts& texts, const std::vector<KeyedText>& table,
                 const Captions& unkeyed = {}) {
    Captions keyed = unkeyed;
    Captions byDefault = unkeyed;
    std::vector<std::string> keys;
    for (const KeyedText& row : table) {
        keyed[row.place] = "{" + row.key + "}";
        byDefault[row.place] = row.byDefault;
        keys.push_back(row.key);
    }
    AForm form;
    form.Hide();
    EXPECT_EQ(captionsOf(form), keyed);
    texts.asked.clear();
    form.SetTextStrings();
    // A key that serves two places in a row may be asked for twice.
    texts.asked.erase(std::unique(texts.asked.begin(), texts.asked.end()), texts.asked.end());
    EXPECT_EQ(texts.asked, keys);
    for (const std::string& key : keys) {
        texts.missing = {key};
        form.SetTextStrings();
        EXPECT_EQ(captionsOf(form), byDefault) << "without " << key;
        texts.missing.clear();
        form.SetTextStrings();
        EXPECT_EQ(captionsOf(form), keyed) << "with " << key << " again";
    }
    for (const std::string& key : keys) texts.texts[key] = "";
    form.SetTextStrings();
    for (const auto& [control, caption] : captionsOf(form)) {
        const auto own = unkeyed.find(control);
        EXPECT_EQ(caption, own == unkeyed.end() ? "" : own->second) << control;
    }
    texts.texts.clear();
    form.Unload();
}

/// Checks a box that refuses an entry: OK alone, with the stop icon.
inline void expectRefusal(const SeenBox& box, const std::string& text, const std::string& title,
                          const std::string& okCaption = "{BUTTON_OK}") {
    EXPECT_EQ(box.text, text);
    EXPECT_EQ(box.title, title);
    EXPECT_EQ(box.style, 16);
    EXPECT_EQ(box.okCaption, okCaption);
}

/// Checks the box of an unexpected failure.
inline void expectFailure(const SeenBox& box, const std::string& text,
                          const std::string& okCaption = "{BUTTON_OK}") {
    EXPECT_EQ(box.text, text);
    EXPECT_EQ(box.title, "{GLOBAL_MOD_UNEXPECTED}");
    EXPECT_EQ(box.style, 4112);
    EXPECT_EQ(box.okCaption, okCaption);
}

/// Checks that a loaded form and each of its controls with a face share the manager's font.
inline void expectFontEverywhere(const Form& form, const Font& font) {
    ASSERT_NE(form.font(), nullptr);
    EXPECT_EQ(*form.font(), font);
    for (const Control* each : form.controls())
        EXPECT_EQ(each->font(), each->hasFace() ? form.font() : nullptr) << each->name();
}

}  // namespace wynconfig
