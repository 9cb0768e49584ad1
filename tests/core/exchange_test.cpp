// Handing a session and part formats in as XML text and taking them back: what the dialog opens on,
// what comes back after each way out of it, and that the store's files stay as they are.
#include "support/exchange_desk.h"
#include "support/strange_texts.h"

namespace wynconfig {
namespace {

using ConfigGlobalModule::g_DatasetMode;

/// The store holds the factory format "CSV".
class Exchange : public ExchangeDesk {
  protected:
    void SetUp() override {
        ExchangeDesk::SetUp();
        putFullFormat("CSV");
    }
};
ON_EVERY_VIEW(Exchange);

TEST_P(Exchange, TheDialogOpensOnWhatIsHandedIn) {
    const auto script = [](User& u) {
        EXPECT_EQ(u.see("txtDisplayName").text, "MINE");
        EXPECT_EQ(u.see("txtProgramPath").text, "/programs/parts.exe");
        EXPECT_EQ(u.see("txtCommandLineArgs").text, "/list /quiet");
        EXPECT_FALSE(u.see("chkReverseList").value);
        EXPECT_TRUE(u.see("rdoBottom").value);
        u.changeTab("SSTab2", 1);
        EXPECT_EQ(available(u), (Names{"CSV", "TAPE"}));
        EXPECT_EQ(selectedNames(u), (Names{"TAPE"}));
        u.click("btnOK");
    };
    EXPECT_EQ(exchange(sessionXml("MINE", {"TAPE"}), {formatXml("TAPE")}, script), 0);
    EXPECT_EQ(name, "MINE");
    EXPECT_EQ(sessionBack()->Name(), "MINE");
    EXPECT_EQ(sessionBack()->Type(), "MORAM");
    EXPECT_EQ(rowsBack(), fullRows({"TAPE"}));
    EXPECT_EQ(component.GetDatasetFormatsData(), (Texts{formatXml("TAPE")}));
}

TEST_P(Exchange, WhatWasHandedInComesBackLetterByLetterAfterACancel) {
    Dataset session;
    session.Create("MORAM", "MINE", "", session::kColumns);
    auto format = fullFormat("TAPE");
    for (const StrangeText& each : strangeTexts()) {
        session.AddRow({each.what, each.text});
        format->AddRow({each.what, each.text});
    }
    const Texts formats{xmlOf(*format), formatXml("A & <B>"), formatXml("部品 ₿")};
    EXPECT_EQ(exchange(xmlOf(session), formats, pressing("btnCancel")), 1);
    EXPECT_EQ(component.GetDatasetSessionData(), xmlOf(session));
    EXPECT_EQ(component.GetDatasetFormatsData(), formats);
    for (const StrangeText& each : strangeTexts()) {
        EXPECT_EQ(sessionBack()->GetRow(each.what)[1], each.text) << each.what;
        EXPECT_EQ(formatBack(0)->GetRow(each.what)[1], each.text) << each.what;
    }
}

TEST_P(Exchange, WhatCameBackCanBeHandedInAgain) {
    exchange(sessionXml("MINE", {"TAPE", "CSV"}), {formatXml("TAPE")}, pressing("btnOK"));
    const std::string session = component.GetDatasetSessionData();
    const Texts formats = component.GetDatasetFormatsData();
    EXPECT_EQ(formatsBack(), (Names{"TAPE", "CSV"}));
    EXPECT_EQ(exchange(session, formats, pressing("btnOK")), 0);
    EXPECT_EQ(component.GetDatasetSessionData(), session);
    EXPECT_EQ(component.GetDatasetFormatsData(), formats);
}

TEST_P(Exchange, ReadingTwiceGivesTheSame) {
    exchange(sessionXml("MINE", {"TAPE"}), {formatXml("TAPE")}, pressing("btnCancel"));
    EXPECT_EQ(component.GetDatasetSessionData(), component.GetDatasetSessionData());
    EXPECT_EQ(component.GetDatasetFormatsData(), component.GetDatasetFormatsData());
    WYNConfig other;
    EXPECT_EQ(other.GetDatasetFormatsData(), component.GetDatasetFormatsData());
}

TEST_P(Exchange, BeforeAnyExchangeThereIsAnEmptyRecordAndNoFormat) {
    EXPECT_EQ(component.GetDatasetSessionData(), xmlOf(Dataset()));
    EXPECT_EQ(sessionBack()->Name(), "");
    EXPECT_TRUE(sessionBack()->Rows().empty());
    EXPECT_EQ(component.GetDatasetFormatsData(), kNoFormats);
}

TEST_P(Exchange, TheEmptyRecordOfTheStartCanBeHandedIn) {
    const auto script = [](User& u) {
        EXPECT_EQ(u.see("txtDisplayName").text, "MINE");
        EXPECT_EQ(u.see("txtProgramPath").text, "");
        EXPECT_TRUE(u.see("chkReverseList").value);
        EXPECT_TRUE(u.see("chkAutoResize").value);
        EXPECT_TRUE(u.see("rdoTop").value);
        u.click("btnCancel");
    };
    EXPECT_EQ(exchange(component.GetDatasetSessionData(), {}, script), 1);
    EXPECT_TRUE(user().boxes().empty());
}

// The name and the result.

TEST_P(Exchange, CancelGivesOneAndTheNameAsTheDialogHasIt) {
    const std::string session = sessionXml("MINE", {"CSV"});
    const auto script = [](User& u) {
        u.type("txtDisplayName", "other");
        u.type("txtCommandLineArgs", "/changed");
        u.click("btnCancel");
    };
    EXPECT_EQ(exchange(session, {}, script), 1);
    EXPECT_EQ(name, "MINE");
    EXPECT_EQ(component.GetDatasetSessionData(), session);
    EXPECT_TRUE(user().boxes().empty());
}

TEST_P(Exchange, CancelAfterApplyGivesZeroAndTheFrameOne) {
    const auto applying = [](const std::string& line, bool byFrame) {
        return [=](User& u) {
            u.type("txtCommandLineArgs", line);
            u.click("btnApply");
            if (byFrame)
                u.closeByFrame();
            else
                u.click("btnCancel");
        };
    };
    EXPECT_EQ(exchange(sessionXml("MINE", {"CSV"}), {}, applying("/a", false)), 0);
    EXPECT_EQ(rowsBack()["CommandLineArgs"], "/a");
    EXPECT_EQ(exchange(sessionXml("MINE", {"CSV"}), {}, applying("/b", true)), 1);
    EXPECT_EQ(rowsBack()["CommandLineArgs"], "/b");
    EXPECT_EQ(name, "MINE");
}

TEST_P(Exchange, TheNewNameOfARenameComesBackInTheNameAndInTheRecord) {
    const auto script = [](User& u) {
        u.type("txtDisplayName", "bench");
        u.click("btnOK");
    };
    EXPECT_EQ(exchange(sessionXml("MINE", {"CSV"}), {}, script), 0);
    EXPECT_EQ(name, "BENCH");
    EXPECT_EQ(sessionBack()->Name(), "BENCH");
}

TEST_P(Exchange, ANameOtherThanTheRecordsIsARenameAtTheFirstApply) {
    const auto looking = [](const std::string& button) {
        return [button](User& u) {
            EXPECT_EQ(u.see("txtDisplayName").text, "MINE");
            u.click(button);
        };
    };
    EXPECT_EQ(exchange(sessionXml("STORED", {"CSV"}), {}, looking("btnCancel")), 1);
    EXPECT_EQ(name, "MINE");
    EXPECT_EQ(sessionBack()->Name(), "STORED");
    EXPECT_EQ(exchange(sessionXml("STORED", {"CSV"}), {}, looking("btnOK")), 0);
    EXPECT_EQ(sessionBack()->Name(), "MINE");
}

TEST_P(Exchange, AnEmptyNameOpensTheRecordAndIsRefusedAtOk) {
    name = "";
    user().onBox();
    const auto script = [](User& u) {
        EXPECT_EQ(u.see("txtDisplayName").text, "");
        EXPECT_EQ(u.see("txtProgramPath").text, "/programs/parts.exe");
        u.click("btnOK");
        u.click("btnCancel");
    };
    EXPECT_EQ(exchange(sessionXml("MINE", {"CSV"}), {}, script), 1);
    EXPECT_EQ(name, "");
    ASSERT_EQ(user().boxes().size(), 1U);
    EXPECT_EQ(user().boxes()[0].text, "{MORAM_CONFIG_MSG_ENTER_DISPLAY_NAME}");
}

// What is kept, and what a next exchange replaces.

TEST_P(Exchange, ANextExchangeReplacesSessionAndFormatsWholly) {
    exchange(sessionXml("FIRST", {"CSV"}), {formatXml("ONE"), formatXml("TWO")},
             pressing("btnCancel"));
    Dataset second;
    second.Create("MORAM", "SECOND", "", session::kColumns);
    second.AddRow({"ProgramPath", "/other"});
    exchange(xmlOf(second), {formatXml("THREE")}, pressing("btnCancel"));
    EXPECT_EQ(component.GetDatasetSessionData(), xmlOf(second));
    EXPECT_EQ(formatsBack(), (Names{"THREE"}));
    exchange(xmlOf(second), {}, pressing("btnCancel"));
    EXPECT_EQ(component.GetDatasetFormatsData(), kNoFormats);
}

TEST_P(Exchange, AnArrayWithoutElementsOpensWithoutFormatsOfTheUser) {
    exchange(sessionXml("MINE", {"CSV"}), {formatXml("LEFT OVER")}, pressing("btnCancel"));
    const auto script = onFormatTab([](User& u) { EXPECT_EQ(available(u), (Names{"CSV"})); });
    EXPECT_EQ(exchange(sessionXml("MINE", {"CSV"}), {}, script), 0);
    EXPECT_TRUE(user().boxes().empty());
}

TEST_P(Exchange, TheResultsOutliveTheDialogAndTheObjectThatShowedIt) {
    {
        WYNConfig shortLived;
        user().onForm("frmMORAMConfig", pressing("btnOK"));
        shortLived.showMORAMConfigDlgEX(name, sessionXml("MINE", {"TAPE"}), {formatXml("TAPE")});
    }
    EXPECT_EQ(sessionBack()->Name(), "MINE");
    EXPECT_EQ(formatsBack(), (Names{"TAPE"}));
}

TEST_P(Exchange, FormatsComeBackInTheOrderOfTheirComing) {
    const auto script = onFormatTab([](User& u) {
        EXPECT_EQ(available(u), (Names{"CSV", "Z", "A", "M"}));
        act(u, "Z", "btnCopy");
    });
    exchange(sessionXml("MINE", {"M"}), {formatXml("Z"), formatXml("A"), formatXml("M")}, script);
    EXPECT_EQ(formatsBack(), (Names{"Z", "A", "M", "COPY OF Z"}));
}

// Factory formats: those of the store.

TEST_P(Exchange, AFactoryFormatThatIsHandedInIsDropped) {
    for (const std::string spelling : {"CSV", "csv", "cSv"}) {
        const auto script = [](User& u) {
            u.changeTab("SSTab2", 1);
            EXPECT_EQ(available(u), (Names{"CSV", "TAPE"}));
            u.click("btnCancel");
        };
        exchange(sessionXml("MINE", {"TAPE"}), {formatXml(spelling), formatXml("TAPE")}, script);
        EXPECT_EQ(formatsBack(), (Names{"TAPE"})) << spelling;
    }
    EXPECT_TRUE(user().boxes().empty());
}

TEST_P(Exchange, AFactoryFormatComesBackOnceTheSessionSelectsItAndIsConfirmed) {
    const auto adding = [](const std::string& button) {
        return [button](User& u) {
            u.changeTab("SSTab2", 1);
            act(u, "CSV", "btnAdd");
            u.click(button);
        };
    };
    const std::string session = sessionXml("MINE", {"TAPE"});
    EXPECT_EQ(exchange(session, {formatXml("TAPE")}, adding("btnCancel")), 1);
    EXPECT_EQ(formatsBack(), (Names{"TAPE"}));
    EXPECT_EQ(exchange(session, {formatXml("TAPE")}, adding("btnOK")), 0);
    EXPECT_EQ(formatsBack(), (Names{"TAPE", "CSV"}));
    EXPECT_EQ(formatBack(1)->Rows(), formatRecord("CSV")->Rows());
    EXPECT_EQ(formatsOf(*sessionBack()), (Names{"TAPE", "CSV"}));
}

TEST_P(Exchange, TheStoresContentOfAFactoryFormatCountsNotTheHosts) {
    auto stale = fullFormat("CSV");
    stale->UpdateRow({"Header", ""}, {"Header", "the host's"});
    EXPECT_EQ(exchange(sessionXml("MINE", {"CSV"}), {xmlOf(*stale)}, pressing("btnOK")), 0);
    ASSERT_EQ(formatsBack(), (Names{"CSV"}));
    EXPECT_EQ(headerOf(*formatBack(0)), "head of CSV");
}

TEST_P(Exchange, AFactoryFormatOfAnEarlierApplyIsReadAfresh) {
    const auto script = [this](User& u) {
        u.click("btnApply");
        Dataset changed;
        changed.Load(ItemPath::item(formatFolder, "CSV"));
        changed.UpdateRow({"Header", ""}, {"Header", "changed since"});
        memory->save(ItemPath::item(formatFolder, "CSV"), xmlOf(changed));
        u.click("btnApply");
        u.click("btnCancel");
    };
    EXPECT_EQ(exchange(sessionXml("MINE", {"CSV"}), {}, script), 0);
    ASSERT_EQ(formatsBack(), (Names{"CSV"}));
    EXPECT_EQ(headerOf(*formatBack(0)), "changed since");
}

TEST_P(Exchange, AFormatThatTheSessionNoLongerSelectsStaysWithTheHost) {
    const auto script = onFormatTab([](User& u) {
        u.pick("lstSelectedFormats2", "TAPE");
        u.click("btnRemove");
    });
    EXPECT_EQ(exchange(sessionXml("MINE", {"TAPE", "CSV"}), {formatXml("TAPE")}, script), 0);
    EXPECT_EQ(formatsOf(*sessionBack()), (Names{"CSV"}));
    EXPECT_EQ(formatsBack(), (Names{"TAPE", "CSV"}));
}

TEST_P(Exchange, WithoutAnyFormatOneEmptyTextComesBackWhichIsNotTakenAgain) {
    exchange(sessionXml("MINE", {}), {}, pressing("btnCancel"));
    const Texts none = component.GetDatasetFormatsData();
    EXPECT_EQ(none, kNoFormats);
    user().onBox();
    EXPECT_EQ(refused(sessionXml("MINE", {}), none), 1);
    ASSERT_EQ(user().boxes().size(), 1U);
    EXPECT_EQ(user().forms(), (Names{"frmMORAMConfig"})) << "that of the first call";
}

// The mode.

TEST_P(Exchange, TheModeIsOnInTheDialogAndStaysOnBehindIt) {
    const auto script = [](User& u) {
        EXPECT_TRUE(g_DatasetMode);
        u.click("btnOK");
    };
    EXPECT_FALSE(g_DatasetMode);
    exchange(sessionXml("MINE", {"CSV"}), {}, script);
    EXPECT_TRUE(g_DatasetMode);
    exchange(sessionXml("MINE", {"CSV"}), {}, pressing("btnCancel"));
    EXPECT_TRUE(g_DatasetMode);
}

TEST_P(Exchange, ReadingBackNeitherBeginsNorEndsTheMode) {
    component.GetDatasetSessionData();
    component.GetDatasetFormatsData();
    EXPECT_FALSE(g_DatasetMode);
    g_DatasetMode = true;
    component.GetDatasetSessionData();
    component.GetDatasetFormatsData();
    EXPECT_TRUE(g_DatasetMode);
}

// An exchange within an exchange.

TEST_P(Exchange, AnInnerExchangeReplacesWhatTheOuterDialogHasOpen) {
    const auto outer = [this](User& u) {
        user().onForm("frmMORAMConfig", [](User& inner) {
            EXPECT_EQ(inner.see("txtDisplayName").text, "INNER");
            inner.click("btnCancel");
        });
        WYNConfig another;
        std::string innerName = "inner";
        EXPECT_EQ(another.showMORAMConfigDlgEX(innerName, sessionXml("INNER", {"CSV"}),
                                               {formatXml("OF THE INNER")}),
                  1);
        EXPECT_EQ(u.see("txtDisplayName").text, "OUTER");
        u.click("btnCancel");
    };
    name = "outer";
    EXPECT_EQ(exchange(sessionXml("OUTER", {"TAPE"}), {formatXml("TAPE")}, outer), 1);
    EXPECT_EQ(name, "OUTER");
    EXPECT_EQ(component.GetDatasetSessionData(), sessionXml("INNER", {"CSV"}));
    EXPECT_EQ(formatsBack(), (Names{"OF THE INNER"}));
}

TEST_P(Exchange, AMigrationWithinTheDialogTakesTheSessionAwayFromIt) {
    memory->makeFolder("/old");
    WYNConfig().init("/old/");
    component.init("/store/");
    Dataset other;
    other.Create("MORAM", "MIGRATED", "", session::kColumns);
    other.AddRow({"FormatCount", "0"});
    memory->save(ItemPath::item("/old/MORAM\\", "MIGRATED"), xmlOf(other));
    const auto script = [this](User& u) {
        EXPECT_TRUE(component.MigrateSession("/old/", "MIGRATED"));
        u.type("txtCommandLineArgs", "/into the old record");
        u.click("btnOK");
    };
    EXPECT_EQ(exchange(sessionXml("MINE", {"CSV"}), {}, script), 0);
    EXPECT_EQ(name, "MINE");
    EXPECT_EQ(component.GetDatasetSessionData(), xmlOf(other));
    EXPECT_EQ(formatsBack(), (Names{"CSV"})) << "the one that OK brought in";
}

}  // namespace
}  // namespace wynconfig
