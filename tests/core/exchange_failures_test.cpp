// Bad input and failures in the in-memory mode: which boxes come up, what the host is answered, and
// what stays as it was.
#include "core/exchange.h"
#include "support/bad_texts.h"
#include "support/exchange_desk.h"
#include "support/failing_views.h"

namespace wynconfig {
namespace {

using ConfigGlobalModule::g_DatasetMode;

const std::string kTag = "WYNConfig:showMORAMConfigDlgEX";

/// Whether a bad text is XML all the same, so that it is not refused but fails to load.
bool isXml(const BadText& bad) {
    if (bad.what == "UnknownEncoding") return true;
    if (bad.what == "DtdAndMore") return false;
    // A parser may or may not mind entities that nobody declares.
    if (bad.cause.empty()) return Document().loadXML(bad.xml);
    const bool isOfNoVersion = bad.cause.starts_with("it declares a version");
    const bool isBeyondBounds = bad.cause == kTooDeep || bad.cause.starts_with("it has too many");
    return !bad.cause.starts_with(kIllFormed) && !isOfNoVersion && !isBeyondBounds;
}

/// Memory holds the session "OLD" and the part format "HELD" of an earlier exchange; the store
/// holds the factory format "CSV".
class ExchangeFailures : public ExchangeDesk {
  protected:
    void SetUp() override {
        ExchangeDesk::SetUp();
        putFullFormat("CSV");
        exchange(kOld, {formatXml("HELD")}, pressing("btnCancel"));
        forget();
    }
    /// As if nothing had been shown yet, in file mode.
    void forget() {
        user().finish();
        g_DatasetMode = false;
        name = "Given";
    }
    /// The box of an argument that is no XML names project and procedure in a way of its own.
    void expectNoXml(std::size_t number, const std::string& argument) {
        ASSERT_LT(number, user().boxes().size());
        expectFailure(user().boxes()[number],
                      "{GLOBAL_MOD_ERROR}: " + argument +
                          " is not a valid XML document\r\n\r\n{GLOBAL_MOD_TEXT} WYNConfig\r\n"
                          "{GLOBAL_MOD_PROCEDURE} showMORAMConfigDlgEX\r\n\r\n{GLOBAL_MOD_MSG}");
    }
    static void expectEmptyBox(const SeenBox& box) {
        EXPECT_EQ(box.text, "");
        EXPECT_EQ(box.title, "");
        EXPECT_EQ(box.okCaption, "");
        EXPECT_EQ(box.style, 4112);
    }
    void expectOldState() {
        EXPECT_EQ(component.GetDatasetSessionData(), kOld);
        EXPECT_EQ(formatsBack(), (Names{"HELD"}));
    }

    const std::string kOld = sessionXml("OLD", {"CSV"});
    const std::string kNew = sessionXml("NEW", {"CSV"});
};
ON_EVERY_VIEW(ExchangeFailures);

// Text that is no XML.

TEST_P(ExchangeFailures, ASessionTextThatIsNoXmlIsRefusedAndChangesNothingButTheMode) {
    for (const BadText& bad : badTexts()) {
        if (isXml(bad)) continue;
        forget();
        user().onBox();
        EXPECT_EQ(refused(bad.xml, {formatXml("TAPE")}), 1) << bad.what;
        ASSERT_EQ(user().boxes().size(), 1U) << bad.what;
        expectNoXml(0, "strSessionDataXML");
        EXPECT_TRUE(user().forms().empty());
        EXPECT_EQ(name, "Given");
        expectOldState();
        EXPECT_TRUE(g_DatasetMode);
    }
}

TEST_P(ExchangeFailures, AFormatTextThatIsNoXmlIsRefusedByItsIndex) {
    for (const BadText& bad : badTexts()) {
        if (isXml(bad)) continue;
        forget();
        user().onBox();
        EXPECT_EQ(refused(kNew, {formatXml("TAPE"), bad.xml, formatXml("LAST")}), 1) << bad.what;
        ASSERT_EQ(user().boxes().size(), 1U) << bad.what;
        expectNoXml(0, "arrayPartFormats(1)");
        EXPECT_TRUE(user().forms().empty());
        EXPECT_EQ(name, "Given");
        EXPECT_EQ(component.GetDatasetSessionData(), kNew) << "the session was taken by then";
        EXPECT_EQ(formatsBack(), (Names{"TAPE"})) << "and so were the formats before the bad one";
    }
}

TEST_P(ExchangeFailures, ABadFirstFormatLeavesNoFormatAtAll) {
    user().onBox();
    EXPECT_EQ(refused(kNew, {"", formatXml("LAST")}), 1);
    ASSERT_EQ(user().boxes().size(), 1U);
    expectNoXml(0, "arrayPartFormats(0)");
    EXPECT_EQ(component.GetDatasetFormatsData(), kNoFormats);
}

TEST_P(ExchangeFailures, OnlyTheFirstBadFormatIsTold) {
    user().onBox();
    EXPECT_EQ(refused(kNew, {formatXml("A"), formatXml("B"), "<", ">"}), 1);
    ASSERT_EQ(user().boxes().size(), 1U);
    expectNoXml(0, "arrayPartFormats(2)");
    EXPECT_EQ(formatsBack(), (Names{"A", "B"}));
}

TEST_P(ExchangeFailures, TheIndexIsTheOneByWhichTheHostCounts) {
    for (const long first : {-3L, 1L, 1000L}) {
        forget();
        user().onBox();
        EXPECT_EQ(showExchange(name, kNew, {{formatXml("A"), "<"}, first}), 1);
        ASSERT_EQ(user().boxes().size(), 1U);
        expectNoXml(0, "arrayPartFormats(" + std::to_string(first + 1) + ")");
        EXPECT_EQ(formatsBack(), (Names{"A"}));
    }
}

TEST_P(ExchangeFailures, AnIndexBeyond16BitsIsTold) {
    for (const long first : {32'767L, -32'769L}) {
        forget();
        user().onBox();
        announceConfiguring(pressing("btnCancel"));
        EXPECT_EQ(showExchange(name, kNew, {{formatXml("A"), formatXml("B")}, first}), 1);
        ASSERT_EQ(user().boxes().size(), 1U);
        EXPECT_TRUE(isFailureOf(user().boxes()[0].text, "WYNConfig:showMORAMConfigDlgEX"));
        EXPECT_EQ(component.GetDatasetFormatsData(), kNoFormats);
    }
}

TEST_P(ExchangeFailures, AnArrayThatWasNeverMadeIsToldBehindTheSession) {
    user().onBox();
    announceConfiguring(pressing("btnCancel"));
    ExchangedFormats none;
    none.isThere = false;
    EXPECT_EQ(showExchange(name, kNew, none), 1);
    ASSERT_EQ(user().boxes().size(), 1U);
    EXPECT_TRUE(isFailureOf(user().boxes()[0].text, "WYNConfig:showMORAMConfigDlgEX"));
    EXPECT_EQ(component.GetDatasetSessionData(), kNew);
    EXPECT_EQ(component.GetDatasetFormatsData(), kNoFormats);
}

TEST_P(ExchangeFailures, ABadSessionIsToldBeforeABadFormat) {
    user().onBox();
    EXPECT_EQ(refused("", {""}), 1);
    ASSERT_EQ(user().boxes().size(), 1U);
    expectNoXml(0, "strSessionDataXML");
}

TEST_P(ExchangeFailures, AnExchangeAfterARefusalWorks) {
    user().onBox();
    EXPECT_EQ(refused("<a>", {}), 1);
    EXPECT_EQ(exchange(kNew, {formatXml("TAPE")}, pressing("btnCancel")), 1);
    EXPECT_EQ(name, "GIVEN");
    EXPECT_EQ(component.GetDatasetSessionData(), kNew);
    EXPECT_EQ(formatsBack(), (Names{"TAPE"}));
}

// XML that is no record.

TEST_P(ExchangeFailures, ASessionThatIsNoRecordIsToldAndTheDialogOpensOnWhatIsThere) {
    for (const BadText& bad : badTexts()) {
        if (!isXml(bad) || bad.what == "UnknownEncoding") continue;
        forget();
        user().onBox();
        const auto script = [](User& u) {
            EXPECT_EQ(u.see("txtDisplayName").text, "GIVEN");
            EXPECT_EQ(u.see("txtCommandLineArgs").text, "/list /quiet") << "of the old session";
            u.click("btnCancel");
        };
        EXPECT_EQ(exchange(bad.xml, {formatXml("TAPE")}, script), 1) << bad.what;
        ASSERT_EQ(user().boxes().size(), 1U) << bad.what;
        expectFailureBox(0, kTag);
        EXPECT_EQ(component.GetDatasetSessionData(), kOld) << bad.what;
        EXPECT_EQ(formatsBack(), (Names{"TAPE"})) << bad.what;
    }
}

TEST_P(ExchangeFailures, ASessionThatIsNoRecordMayStillBeConfirmed) {
    user().onBox();
    EXPECT_EQ(exchange("<list/>", {}, pressing("btnOK")), 0);
    ASSERT_EQ(user().boxes().size(), 1U);
    EXPECT_EQ(user().boxes()[0].text,
              failureText(kTag,
                          "The XML text holds no record: its root element is not a "
                          "dataset."));
    EXPECT_EQ(name, "GIVEN");
    EXPECT_EQ(sessionBack()->Name(), "GIVEN");
}

TEST_P(ExchangeFailures, AFormatThatIsNoRecordIsToldAndJoinsEmptyAndNameless) {
    user().onBox();
    const auto script = [](User& u) {
        u.changeTab("SSTab2", 1);
        EXPECT_EQ(available(u), (Names{"CSV", "TAPE", "", "LAST"}));
        u.click("btnOK");
    };
    EXPECT_EQ(exchange(kNew, {formatXml("TAPE"), "<list/>", formatXml("LAST")}, script), 0);
    ASSERT_EQ(user().boxes().size(), 1U);
    expectFailureBox(0, kTag);
    EXPECT_EQ(formatsBack(), (Names{"TAPE", "", "LAST", "CSV"}));
    EXPECT_EQ(component.GetDatasetFormatsData()[1], xmlOf(Dataset()));
}

TEST_P(ExchangeFailures, ASecondFormatThatIsNoRecordIsToldTwiceAndDropped) {
    for (int i = 0; i < 3; ++i) user().onBox();
    EXPECT_EQ(exchange(kNew, {"<list/>", "<more/>"}, pressing("btnCancel")), 1);
    ASSERT_EQ(user().boxes().size(), 3U);
    for (std::size_t box = 0; box < 3; ++box) expectFailureBox(box, kTag);
    EXPECT_EQ(user().boxes()[2].text, failureText(kTag, "The key \"\" is there already."));
    EXPECT_EQ(formatsBack(), (Names{""}));
}

TEST_P(ExchangeFailures, ASessionHandedInAsAFormatIsTakenForOne) {
    EXPECT_EQ(exchange(kNew, {kOld}, pressing("btnCancel")), 1);
    EXPECT_EQ(component.GetDatasetFormatsData(), (Texts{kOld}));
}

// Names of part formats.

TEST_P(ExchangeFailures, OfTwoFormatsWithOneNameTheFirstStaysBehindABox) {
    auto second = fullFormat("TAPE");
    second->UpdateRow({"Header", ""}, {"Header", "of the second"});
    for (const std::string spelling : {"TAPE", "tape", "Tape"}) {
        forget();
        user().onBox();
        second->setName(spelling);
        EXPECT_EQ(exchange(kNew, {formatXml("TAPE"), xmlOf(*second), formatXml("LAST")},
                           pressing("btnOK")),
                  0);
        ASSERT_EQ(user().boxes().size(), 1U) << spelling;
        EXPECT_EQ(user().boxes()[0].text,
                  failureText(kTag, "The key \"" + spelling + "\" is there already."));
        EXPECT_EQ(formatsBack(), (Names{"TAPE", "LAST", "CSV"}));
        EXPECT_EQ(headerOf(*formatBack(0)), "head of TAPE");
    }
}

TEST_P(ExchangeFailures, TwoFactoryFormatsOfOneNameAreBothDroppedInSilence) {
    EXPECT_EQ(exchange(kNew, {formatXml("csv"), formatXml("CSV")}, pressing("btnCancel")), 1);
    EXPECT_TRUE(user().boxes().empty());
    EXPECT_EQ(component.GetDatasetFormatsData(), kNoFormats);
}

TEST_P(ExchangeFailures, AFormatWithoutANameIsKeptUnderNone) {
    const auto script = [](User& u) {
        u.changeTab("SSTab2", 1);
        EXPECT_EQ(available(u), (Names{"CSV", ""}));
        u.click("btnCancel");
    };
    EXPECT_EQ(exchange(kNew, {formatXml("")}, script), 1);
    EXPECT_TRUE(user().boxes().empty());
    EXPECT_EQ(component.GetDatasetFormatsData(), (Texts{formatXml("")}));
}

TEST_P(ExchangeFailures, ANameThatWouldLeaveTheFolderIsNoFactoryFormat) {
    const Texts formats{formatXml("..\\PARTFORMAT\\CSV"), formatXml("../PARTFORMAT/CSV"),
                        formatXml("*"), formatXml("A,B")};
    EXPECT_EQ(exchange(kNew, formats, pressing("btnCancel")), 1);
    EXPECT_EQ(component.GetDatasetFormatsData(), formats);
    EXPECT_TRUE(user().boxes().empty());
}

// Great numbers.

TEST_P(ExchangeFailures, TenThousandFormatsAllComeBack) {
    constexpr std::size_t many = 10'000;
    Texts formats;
    for (std::size_t i = 0; i < many; ++i) {
        Dataset format;
        format.setName("FORMAT " + std::to_string(i));
        formats.push_back(xmlOf(format));
    }
    const auto script = [](User& u) {
        u.changeTab("SSTab2", 1);
        EXPECT_EQ(u.see("lstAvailableFormats").rows.size(), many + 1);
        u.click("btnCancel");
    };
    EXPECT_EQ(exchange(kNew, formats, script), 1);
    EXPECT_TRUE(component.GetDatasetFormatsData() == formats);
}

TEST_P(ExchangeFailures, BeyondTheNumbersOfSixteenBitsNoFormatIsTakenBehindOneBox) {
    constexpr std::size_t tooMany = 32'769;
    user().onBox();
    const auto script = [](User& u) {
        u.changeTab("SSTab2", 1);
        EXPECT_EQ(available(u), (Names{"CSV"}));
        u.click("btnOK");
    };
    EXPECT_EQ(exchange(kNew, Texts(tooMany, "no xml"), script), 0);
    ASSERT_EQ(user().boxes().size(), 1U);
    expectFailureBox(0, kTag);
    EXPECT_EQ(formatsBack(), (Names{"CSV"})) << "the old ones are gone";
}

TEST_P(ExchangeFailures, AsManyFormatsAsSixteenBitsCountAreLookedAt) {
    user().onBox();
    EXPECT_EQ(refused(kNew, Texts(32'768, "no xml")), 1);
    ASSERT_EQ(user().boxes().size(), 1U);
    expectNoXml(0, "arrayPartFormats(0)");
}

// Records that can't be written.

/// The host's records are too large to be stored, though small enough to be read: each `>` of them
/// is written as `&gt;`.
class ExchangeSaving : public ExchangeDesk {
  protected:
    static std::string unsavable(const std::string& xml) {
        const std::size_t grows = 1'000'000;
        const std::string data =
            std::string(kMaxItemSize - 2 * grows, 'X') + std::string(grows, '>');
        std::string text = xml;
        return text.insert(text.rfind("</dataset>"), "<row key=\"large\">" + data + "</row>");
    }
    void expectBoxes(std::size_t count, const std::string& tag) {
        ASSERT_EQ(user().boxes().size(), count);
        for (const SeenBox& box : user().boxes())
            expectFailure(box, failureText(tag, "The record is too large to be stored."));
    }
};
ON_EVERY_VIEW(ExchangeSaving);

TEST_P(ExchangeSaving, ASessionThatCannotBeSavedGivesAnEmptyTextBehindABox) {
    exchange(unsavable(sessionXml("MINE", {})), {}, pressing("btnCancel"));
    user().onBox();
    EXPECT_EQ(component.GetDatasetSessionData(), "");
    expectBoxes(1, "WYNConfig:GetDatasetSessionData");
}

TEST_P(ExchangeSaving, AFormatThatCannotBeSavedGivesTheTextOfTheOneBefore) {
    exchange(sessionXml("MINE", {}),
             {formatXml("TAPE"), unsavable(formatXml("LONG")), formatXml("LAST")},
             pressing("btnCancel"));
    user().onBox();
    EXPECT_EQ(component.GetDatasetFormatsData(),
              (Texts{formatXml("TAPE"), formatXml("TAPE"), formatXml("LAST")}));
    expectBoxes(1, "WYNConfig:GetDatasetFormatsData");
}

TEST_P(ExchangeSaving, AFirstFormatThatCannotBeSavedGivesAnEmptyText) {
    exchange(sessionXml("MINE", {}), {unsavable(formatXml("LONG")), formatXml("LAST")},
             pressing("btnCancel"));
    user().onBox();
    EXPECT_EQ(component.GetDatasetFormatsData(), (Texts{"", formatXml("LAST")}));
    expectBoxes(1, "WYNConfig:GetDatasetFormatsData");
}

TEST_P(ExchangeSaving, FormatsThatGoWhileABoxIsUpAreStillGivenBack) {
    putSession("EMPTY", {{"FormatCount", "0"}});
    exchange(sessionXml("MINE", {}), {unsavable(formatXml("LONG")), formatXml("LAST")},
             pressing("btnCancel"));
    user().onBox([this](const SeenBox&) {
        EXPECT_TRUE(component.MigrateSession("/store/", "EMPTY"));
        return answer::Ok;
    });
    EXPECT_EQ(component.GetDatasetFormatsData(), (Texts{"", formatXml("LAST")}));
    EXPECT_EQ(component.GetDatasetFormatsData(), kNoFormats);
}

// A screen or a resource manager that fails.

TEST_P(ExchangeFailures, ADialogThatCannotBeShownIsTold) {
    auto view = std::make_shared<BrokenView>();
    view->failsToShow = "*";
    installView(view);
    EXPECT_EQ(component.showMORAMConfigDlgEX(name, kNew, {}), 1);
    EXPECT_EQ(name, "GIVEN");
    ASSERT_EQ(view->boxes.size(), 1U);
    EXPECT_EQ(view->boxes[0].text, failureText(kTag, "no screen"));
    EXPECT_EQ(component.GetDatasetSessionData(), kNew);
}

TEST_P(ExchangeFailures, BehindAnAddDialogThatCannotBeShownTheOldSessionOpensWithoutAName) {
    auto view = std::make_shared<BrokenView>();
    view->failsToShow = "frmAddMORAMConfig";
    installView(view);
    EXPECT_EQ(component.showAddMORAMConfigDlgEX(name), 1);
    EXPECT_EQ(name, "");
    EXPECT_EQ(view->shown, (Names{"frmMORAMConfig"}));
    ASSERT_EQ(view->boxes.size(), 1U);
    EXPECT_EQ(view->boxes[0].text, failureText("WYNConfig:showAddMORAMConfigDlgEX", "no screen"));
}

TEST_P(ExchangeFailures, WithoutAResourceManagerARefusalIsAnEmptyBoxAndOneAllTheSame) {
    component.InitResourceManager(nullptr);
    user().onBox();
    EXPECT_EQ(refused("no xml", {}), 1);
    ASSERT_EQ(user().boxes().size(), 1U);
    expectEmptyBox(user().boxes()[0]);
    expectOldState();
}

TEST_P(ExchangeFailures, WithoutAResourceManagerTheDialogOpensInEnglish) {
    component.InitResourceManager(nullptr);
    const auto script = [](User& u) {
        EXPECT_EQ(u.formTitle(), "WYN 3rd Party Application Configuration");
        u.click("btnCancel");
    };
    EXPECT_EQ(exchange(kNew, {}, script), 1);
    EXPECT_TRUE(user().boxes().empty());
}

TEST_P(ExchangeFailures, BeforeTheStoreIsSetNothingIsFactory) {
    ConfigGlobalModule::reset();
    component.InitResourceManager(texts);
    const auto script = [](User& u) {
        u.changeTab("SSTab2", 1);
        EXPECT_EQ(available(u), Names{});
        u.click("btnOK");
    };
    EXPECT_EQ(exchange(kNew, {formatXml("CSV")}, script), 0);
    EXPECT_EQ(component.GetDatasetFormatsData(), (Texts{formatXml("CSV")}));
    EXPECT_TRUE(user().boxes().empty());
}

}  // namespace
}  // namespace wynconfig
