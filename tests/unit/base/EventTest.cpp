#include "base/Event.h"

#include <gmock/gmock.h>

#include <memory>
#include <optional>
#include <string>

namespace pellmark::test {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class EventTest : public ::testing::Test {
  protected:
    Subscription listen(const std::string& name) {
        return event.subscribe([this, name](int value) { heard.push_back(name + std::to_string(value)); });
    }

    std::vector<std::string> heard;
    Event<int> event;
};

TEST_F(EventTest, HandlersRunInTheOrderOfTheirSubscription) {
    const Subscription a = listen("a");
    const Subscription b = listen("b");
    event.raise(1);
    EXPECT_THAT(heard, ElementsAre("a1", "b1"));
}

TEST_F(EventTest, AHandlerStopsHearingWhenItsSubscriptionDies) {
    { const Subscription a = listen("a"); }
    event.raise(1);
    EXPECT_THAT(heard, IsEmpty());
    EXPECT_FALSE(event.hasHandlers());
}

TEST_F(EventTest, ResettingASubscriptionTwiceIsHarmless) {
    Subscription a = listen("a");
    EXPECT_TRUE(event.hasHandlers());
    a.reset();
    a.reset();
    event.raise(1);
    EXPECT_THAT(heard, IsEmpty());
}

TEST_F(EventTest, AMovedSubscriptionKeepsItsHandlerAndAnOverwrittenOneLosesIt) {
    Subscription a = listen("a");
    Subscription kept = std::move(a);
    event.raise(1);
    kept = listen("b");
    event.raise(2);
    EXPECT_THAT(heard, ElementsAre("a1", "b2"));
}

TEST_F(EventTest, ASubscriptionMayOutliveItsEvent) {
    std::optional<Event<>> gone;
    gone.emplace();
    Subscription late = gone->subscribe([] {});
    gone.reset();
    EXPECT_NE(late.mute(), nullptr);
    late.reset();
}

TEST_F(EventTest, AHandlerMayUnsubscribeItself) {
    Subscription self;
    self = event.subscribe([&](int value) {
        heard.push_back("once" + std::to_string(value));
        self.reset();
    });
    const Subscription b = listen("b");
    event.raise(1);
    event.raise(2);
    EXPECT_THAT(heard, ElementsAre("once1", "b1", "b2"));
}

TEST_F(EventTest, AHandlerThatWasUnsubscribedDuringTheRaiseIsNotCalledAnyMore) {
    Subscription later;
    const Subscription first = event.subscribe([&](int) { later.reset(); });
    later = listen("later");
    event.raise(1);
    EXPECT_THAT(heard, IsEmpty());
}

TEST_F(EventTest, AHandlerAddedDuringTheRaiseHearsTheNextOne) {
    Subscription added;
    const Subscription first = event.subscribe([&](int value) {
        if (value == 1) added = listen("added");
    });
    event.raise(1);
    EXPECT_THAT(heard, IsEmpty());
    event.raise(2);
    EXPECT_THAT(heard, ElementsAre("added2"));
}

TEST_F(EventTest, AHandlerMayDestroyTheSenderAndTheRestStillHear) {
    auto sender = std::make_unique<Event<>>();
    const Subscription destroyer = sender->subscribe([&] { sender.reset(); });
    const Subscription after = sender->subscribe([&] { heard.push_back("after"); });
    sender->raise();
    EXPECT_EQ(sender, nullptr);
    EXPECT_THAT(heard, ElementsAre("after"));
}

TEST_F(EventTest, AHandlerMayDestroyTheSenderTogetherWithEverySubscription) {
    struct Window {
        Event<> closed;
        Subscription first;
        Subscription second;
    };
    auto window = std::make_unique<Window>();
    window->first = window->closed.subscribe([&] { window.reset(); });
    window->second = window->closed.subscribe([&] { heard.push_back("second"); });
    window->closed.raise();
    EXPECT_EQ(window, nullptr);
    EXPECT_THAT(heard, IsEmpty());
}

TEST_F(EventTest, AMutedHandlerDoesNotHearItsEcho) {
    Subscription a = listen("a");
    const Subscription b = listen("b");
    {
        const auto quiet = a.mute();
        const auto quieter = a.mute();
        event.raise(1);
    }
    event.raise(2);
    EXPECT_THAT(heard, ElementsAre("b1", "a2", "b2"));
}

TEST_F(EventTest, AMuteMayOutliveItsSubscription) {
    std::shared_ptr<void> quiet;
    {
        Subscription a = listen("a");
        quiet = a.mute();
    }
    quiet.reset();
    EXPECT_EQ(Subscription().mute(), nullptr);
}

TEST_F(EventTest, AHandlerMayRaiseTheEventAgain) {
    const Subscription nested = event.subscribe([&](int value) {
        heard.push_back("n" + std::to_string(value));
        if (value > 0) event.raise(value - 1);
    });
    event.raise(2);
    EXPECT_THAT(heard, ElementsAre("n2", "n1", "n0"));
}

TEST_F(EventTest, AThrowingHandlerEndsTheRaiseAndLeavesTheEventUsable) {
    const Subscription thrower = event.subscribe([](int value) {
        if (value == 1) throw std::runtime_error("no");
    });
    const Subscription b = listen("b");
    EXPECT_THROW(event.raise(1), std::runtime_error);
    event.raise(2);
    EXPECT_THAT(heard, ElementsAre("b2"));
}

}  // namespace pellmark::test
