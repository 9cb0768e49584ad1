// When a view is told of work that a person waits for, and what it can't do to that work.
#include "platform/forms/working.h"

#include <gtest/gtest.h>

#include <functional>
#include <stdexcept>
#include <string>
#include <vector>

#include "platform/text/count_text.h"
#include "platform/text/numbers.h"
#include "support/test_form.h"
#include "support/wait_clock.h"
#include "wynconfig/error.h"
#include "wynconfig/observer.h"
#include "wynconfig/view.h"

namespace wynconfig {
namespace {

using namespace std::chrono_literals;
using Signs = std::vector<std::string>;

/// Writes down what it is told, and does more where a test says so.
class WatchedView : public View {
  public:
    Signs signs;
    std::function<void(const Progress&)> also;

    void showModal(Form& form) override {
        signs.emplace_back("form");
        userInput().closeByFrame(form);
    }
    int showMessage(const MessageRequest&) override {
        signs.emplace_back("box");
        return answer::Ok;
    }
    std::string browse(const BrowseRequest&) override {
        signs.emplace_back("browse");
        return {};
    }
    void raise(Form&, bool) override {}
    long deviceContext(Form&) override { return 0; }
    void showProgress(const Progress& progress) override {
        switch (progress.stage) {
            case Progress::Stage::Begins:
                signs.emplace_back("begins");
                break;
            case Progress::Stage::Lasts:
                signs.push_back(progress.title + "/" + progress.text + "/" +
                                std::to_string(progress.done) + "/" + std::to_string(progress.all));
                break;
            case Progress::Stage::Ends:
                signs.emplace_back("ends");
                break;
        }
        if (also) also(progress);
    }
};

class FailureLog : public Observer {
  public:
    std::vector<Failure> failures;
    void failed(const Failure& failure) override { failures.push_back(failure); }
};

class EmptyForm : public TestForm {
  public:
    EmptyForm() : TestForm("frmTest") {}

  private:
    FormLayout declareLayout() override { return {layout::stretch(), nullptr, nullptr}; }
};

int timesAsked = 0;

Working::Words walking() {
    ++timesAsked;
    return {"Wait", "Walking: %1 of %2"};
}
Working::Words inOtherOrder() {
    return {"", "%2 / %1 %3 100%"};
}
Working::Words without() {
    throw Error(errc::NoSuchKey, "no words");
}

class WorkingTest : public ::testing::Test {
  protected:
    void SetUp() override {
        setNumberLocale("en-US");
        installView(view);
        timesAsked = 0;
    }
    void TearDown() override {
        installObserver(nullptr);
        installView(nullptr);
    }
    static void step(Working& work, int times) {
        for (int i = 0; i < times; ++i) work.step();
    }

    std::shared_ptr<WatchedView> view = std::make_shared<WatchedView>();
    WaitClock clock;
};

TEST_F(WorkingTest, BeginsAtOnceAndEndsWithTheWork) {
    {
        Working work(walking, 3);
        EXPECT_EQ(view->signs, Signs{"begins"});
        step(work, 3);
    }
    EXPECT_EQ(view->signs, (Signs{"begins", "ends"}));
    EXPECT_EQ(timesAsked, 0) << "quick work has no words";
}

TEST_F(WorkingTest, HasWordsOnceHalfASecondHasPassed) {
    Working work(walking, 2000);
    step(work, 1000);
    WaitClock::advance(499ms);
    work.step();
    EXPECT_EQ(view->signs, Signs{"begins"});
    WaitClock::advance(1ms);
    work.step();
    EXPECT_EQ(view->signs, (Signs{"begins", "Wait/Walking: 1,002 of 2,000/1002/2000"}));
}

TEST_F(WorkingTest, IsToldTenTimesASecondAtMost) {
    Working work(walking, 10);
    WaitClock::advance(500ms);
    work.step();
    WaitClock::advance(99ms);
    step(work, 2);
    EXPECT_EQ(view->signs.size(), 2U);
    WaitClock::advance(1ms);
    work.step();
    EXPECT_EQ(view->signs.size(), 3U);
    EXPECT_EQ(view->signs.back(), "Wait/Walking: 4 of 10/4/10");
    EXPECT_EQ(timesAsked, 1);
}

TEST_F(WorkingTest, TheTimeThatTheViewTakesIsNoneOfTheRest) {
    view->also = [](const Progress&) { WaitClock::advance(10s); };
    Working work(walking, 10);
    work.step();
    EXPECT_EQ(view->signs, Signs{"begins"});
    WaitClock::advance(500ms);
    step(work, 2);
    EXPECT_EQ(view->signs.size(), 2U);
}

TEST_F(WorkingTest, PutsTheNumbersWhereTheTextHasThem) {
    Working work(inOtherOrder, 1234567);
    WaitClock::advance(500ms);
    work.step();
    EXPECT_EQ(view->signs.back(), "/1,234,567 / 1 %3 100%/1/1234567");
}

TEST_F(WorkingTest, WritesTheNumbersByTheUsersLocale) {
    setNumberLocale("de-DE");
    Working work(walking, 10000);
    WaitClock::advance(500ms);
    work.step();
    EXPECT_EQ(view->signs.back(), "Wait/Walking: 1 of 10.000/1/10000");
}

TEST_F(WorkingTest, NeverCountsBeyondTheEnd) {
    Working work(walking, 2);
    step(work, 5);
    WaitClock::advance(500ms);
    work.step();
    EXPECT_EQ(view->signs.back(), "Wait/Walking: 2 of 2/2/2");
}

TEST_F(WorkingTest, IsOneWaitWithTheWorkWithinIt) {
    {
        const Working whole;
        WaitClock::advance(300ms);
        {
            Working first(walking, 7);
            first.step();
        }
        WaitClock::advance(200ms);
        Working second(walking, 9);
        second.step();
        second.expect(4);
    }
    EXPECT_EQ(view->signs,
              (Signs{"begins", "Wait/Walking: 1 of 9/1/9", "Wait/Walking: 0 of 4/0/4", "ends"}));
}

TEST_F(WorkingTest, TellsOfNoneThatThereAreNone) {
    const Working whole;
    WaitClock::advance(500ms);
    Working work(walking, 1);
    work.step();
    Working other(walking);
    other.expect(0);
    EXPECT_EQ(view->signs.size(), 2U);
}

TEST_F(WorkingTest, PausesForWhatThePersonActsOn) {
    EmptyForm form;
    {
        Working work(walking, 9);
        WaitClock::advance(500ms);
        work.step();
        form.UniMsgBox1.ShowMsg("text", boxstyle::OkOnly, "title", "");
        WaitClock::advance(400ms);
        work.step();
        form.Show();
        form.UniBrowse.browse(true, "title", "", "", nullptr);
        WaitClock::advance(500ms);
        work.step();
    }
    EXPECT_EQ(view->signs,
              (Signs{"begins", "Wait/Walking: 1 of 9/1/9", "ends", "box", "begins", "ends", "form",
                     "begins", "ends", "browse", "begins", "Wait/Walking: 3 of 9/3/9", "ends"}));
}

TEST_F(WorkingTest, WhatABoxLeadsToIsAWaitOfItsOwn) {
    const Working outer;
    const WaitPause box;
    { Working inner(walking, 1); }
    EXPECT_EQ(view->signs, (Signs{"begins", "ends", "begins", "ends"}));
}

TEST_F(WorkingTest, AllSignsGoToTheViewThatGotTheFirst) {
    const auto other = std::make_shared<WatchedView>();
    {
        const Working work;
        installView(other);
    }
    EXPECT_EQ(view->signs, (Signs{"begins", "ends"}));
    EXPECT_EQ(other->signs, Signs{});
}

TEST_F(WorkingTest, AViewThatFailsIsToldTheEndAndNothingElse) {
    const auto log = std::make_shared<FailureLog>();
    installObserver(log);
    view->also = [](const Progress&) { throw std::runtime_error("no cursor"); };
    EmptyForm form;
    {
        Working work(walking, 9);
        WaitClock::advance(500ms);
        work.step();
        form.UniMsgBox1.ShowMsg("text", boxstyle::OkOnly, "title", "");
        work.step();
    }
    EXPECT_EQ(view->signs, (Signs{"begins", "ends", "box"}));
    ASSERT_EQ(log->failures.size(), 1U);
    EXPECT_EQ(log->failures[0].tag, "View:showProgress");
    EXPECT_EQ(log->failures[0].description, "no cursor");
    view->also = nullptr;
    view->signs.clear();
    { const Working next; }
    EXPECT_EQ(view->signs, (Signs{"begins", "ends"})) << "the next wait is another one";
}

TEST_F(WorkingTest, WordsThatFailAreNoFailureOfTheWork) {
    const auto log = std::make_shared<FailureLog>();
    installObserver(log);
    {
        Working work(without, 9);
        WaitClock::advance(500ms);
        step(work, 9);
    }
    EXPECT_EQ(view->signs, (Signs{"begins", "ends"}));
    ASSERT_EQ(log->failures.size(), 1U);
    EXPECT_EQ(log->failures[0].description, "no words");
}

TEST_F(WorkingTest, WhatTheViewDoesMeanwhileIsNoWaitOfItsOwn) {
    view->also = [](const Progress&) {
        Working work(walking, 9);
        WaitClock::advance(5s);
        work.step();
    };
    { const Working work; }
    EXPECT_EQ(view->signs, (Signs{"begins", "ends"}));
}

TEST_F(WorkingTest, AViewThatTakesNoNoticeIsFine) {
    installView(nullptr);
    Working work(walking, 1);
    WaitClock::advance(500ms);
    work.step();
    EXPECT_EQ(view->signs, Signs{});
}

TEST(CountText, GroupsDigitsByTheMarksOfTheLocale) {
    setNumberLocale("en-US");
    EXPECT_EQ(countText(0), "0");
    EXPECT_EQ(countText(999), "999");
    EXPECT_EQ(countText(1000), "1,000");
    EXPECT_EQ(countText(1234567), "1,234,567");
    setNumberLocale("de-DE");
    EXPECT_EQ(countText(10000), "10.000");
    setNumberLocale("en-US");
}

}  // namespace
}  // namespace wynconfig
