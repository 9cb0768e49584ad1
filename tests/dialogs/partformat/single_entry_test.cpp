// The prompt for one line of text: what it shows, and what it gives back however it is closed.
#include <set>

#include "dialogs/partformat/dlgSingleEntry.h"
#include "support/caption_tables.h"
#include "support/desk.h"
#include "support/dialog_checks.h"

namespace wynconfig {
namespace {

class SingleEntry : public Desk {
  protected:
    /// Shows the prompt with a text in its box, and gives its result. `entered` is what it leaves.
    long ask(const std::string& text, User::Script script) {
        user().onForm("dlgSingleEntry", std::move(script));
        dlgSingleEntry form;
        form.setTextBox(text);
        form.Show();
        entered = form.TextBox();
        return form.Result();
    }
    static void expectCaptionsSeen(User& u, bool byDefault) {
        for (const KeyedText& row : kSingleEntryTexts) {
            const std::string caption = byDefault ? row.byDefault : "{" + row.key + "}";
            EXPECT_EQ(captionSeenAt(u, row.place), caption) << row.place;
        }
    }

    std::string entered = "nothing asked yet";
};
ON_EVERY_VIEW(SingleEntry);

TEST_P(SingleEntry, HasItsControlsAndNoOthers) {
    const dlgSingleEntry form;
    std::multiset<std::string> names;
    for (const Control* each : form.controls()) names.emplace(each->name());
    EXPECT_EQ(names, (std::multiset<std::string>{"UniCaption1", "lblLabel", "txtTextBox",
                                                 "OKButton", "CancelButton"}));
}

TEST_P(SingleEntry, TakesItsTextsByKeyOrAllByDefault) {
    expectTexts<dlgSingleEntry>(*texts, kSingleEntryTexts);
}

TEST_P(SingleEntry, ShowsItsTexts) {
    ask("", [](User& u) {
        expectCaptionsSeen(u, false);
        EXPECT_TRUE(u.canUse("txtTextBox"));
        u.click("CancelButton");
    });
}

TEST_P(SingleEntry, OpensInEnglishAndWithoutABoxWhenTheResourceManagerFails) {
    texts->failing = true;
    ask("", [](User& u) {
        expectCaptionsSeen(u, true);
        u.click("CancelButton");
    });
    texts->failing = false;
    texts->missing = {"BUTTON_CANCEL"};
    ask("", [](User& u) {
        expectCaptionsSeen(u, true);
        u.click("CancelButton");
    });
    ConfigGlobalModule::g_ResMgr = nullptr;
    EXPECT_EQ(ask("a",
                  [](User& u) {
                      expectCaptionsSeen(u, true);
                      u.click("OKButton");
                  }),
              0);
    EXPECT_EQ(entered, "A");
    EXPECT_TRUE(user().boxes().empty());
}

TEST_P(SingleEntry, SharesTheFontOfTheResourceManager) {
    texts->font = {"Serif", 12.0, true, false};
    dlgSingleEntry form;
    form.Hide();
    expectFontEverywhere(form, texts->font);
}

TEST_P(SingleEntry, WhatItsCallerWritesReplacesItsOwnTexts) {
    user().onForm("dlgSingleEntry", [](User& u) {
        EXPECT_EQ(u.see("lblLabel").caption, "What now?");
        EXPECT_EQ(u.see("txtTextBox").text, "Old name");
        EXPECT_EQ(u.see("OKButton").caption, "{BUTTON_OK}");
        u.click("CancelButton");
    });
    dlgSingleEntry form;
    form.setLabel("What now?");
    form.setTextBox("Old name");
    form.Show();
}

TEST_P(SingleEntry, ConfirmedItGivesTheTextInCapitalsWithItsBlanks) {
    EXPECT_EQ(ask("",
                  [](User& u) {
                      u.type("txtTextBox", " ab ");
                      u.click("OKButton");
                  }),
              0);
    EXPECT_EQ(entered, " AB ");
}

TEST_P(SingleEntry, TextOfItsCallerIsGivenBackInCapitals) {
    EXPECT_EQ(ask(" str\u00E4\u00DFe ", [](User& u) { u.click("OKButton"); }), 0);
    EXPECT_EQ(entered, " STR\u00C4\u00DFE ");
}

TEST_P(SingleEntry, EmptyTextIsAccepted) {
    EXPECT_EQ(ask("old",
                  [](User& u) {
                      u.type("txtTextBox", "");
                      u.click("OKButton");
                  }),
              0);
    EXPECT_EQ(entered, "");
    EXPECT_TRUE(user().boxes().empty());
}

TEST_P(SingleEntry, NothingIsChecked) {
    for (const char* text : {"a\\b/c:d*e?f\"g<h>i|j.k", "123", "   "}) {
        EXPECT_EQ(ask("",
                      [&](User& u) {
                          u.type("txtTextBox", text);
                          u.click("OKButton");
                      }),
                  0);
    }
    EXPECT_EQ(entered, "   ");
    EXPECT_TRUE(user().boxes().empty());
}

TEST_P(SingleEntry, TextMayBeOfAnyLength) {
    const std::string text(100'000, 'a');
    ask("", [&](User& u) {
        u.type("txtTextBox", text);
        u.click("OKButton");
    });
    EXPECT_TRUE(entered == std::string(text.size(), 'A'));
}

TEST_P(SingleEntry, CancelledItGivesTheTextAllTheSame) {
    EXPECT_EQ(ask("old",
                  [](User& u) {
                      u.type("txtTextBox", " new ");
                      u.click("CancelButton");
                  }),
              1);
    EXPECT_EQ(entered, " NEW ");
}

TEST_P(SingleEntry, ClosedByItsFrameItCountsAsCancelled) {
    EXPECT_EQ(ask("old", [](User& u) { u.closeByFrame(); }), 1);
    EXPECT_EQ(entered, "OLD");
}

TEST_P(SingleEntry, EnterConfirmsAndEscapeCancels) {
    EXPECT_EQ(ask("",
                  [](User& u) {
                      u.type("txtTextBox", "by key");
                      u.pressEnter();
                  }),
              0);
    EXPECT_EQ(entered, "BY KEY");
    EXPECT_EQ(ask("", [](User& u) { u.pressEscape(); }), 1);
}

TEST_P(SingleEntry, TextCanBeAskedForOnlyOnceItIsClosed) {
    dlgSingleEntry form;
    EXPECT_EQ(form.TextBox(), "");
    form.setTextBox("written");
    EXPECT_EQ(form.TextBox(), "");
    EXPECT_EQ(form.Result(), 1);
    form.Unload();
    EXPECT_EQ(form.TextBox(), "WRITTEN");
    EXPECT_EQ(form.Result(), 1);
    form.Unload();
    EXPECT_EQ(form.TextBox(), "WRITTEN");
    EXPECT_FALSE(form.loaded());
}

TEST_P(SingleEntry, UnloadedBeforeItWasEverLoadedItDoesNothing) {
    dlgSingleEntry form;
    form.Unload();
    EXPECT_EQ(form.TextBox(), "");
    EXPECT_FALSE(form.loaded());
    EXPECT_TRUE(texts->asked.empty());
}

TEST_P(SingleEntry, LoadingTakesTheResultBack) {
    user().onForm("dlgSingleEntry", [](User& u) { u.click("OKButton"); });
    dlgSingleEntry form;
    form.setTextBox("first");
    form.Show();
    EXPECT_EQ(form.Result(), 0);
    form.setTextBox("second");
    EXPECT_EQ(form.Result(), 1);
    EXPECT_EQ(form.TextBox(), "FIRST");
}

TEST_P(SingleEntry, BindsItsCaptionBarUntilItUnloads) {
    dlgSingleEntry form;
    form.Hide();
    EXPECT_TRUE(form.UniCaption1.bound());
    form.Unload();
    EXPECT_FALSE(form.UniCaption1.bound());
}

}  // namespace
}  // namespace wynconfig
