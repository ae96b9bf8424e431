#include "zorvex/base/Faults.h"

#include <stdexcept>

#include "zorvex/base/Checked.h"
#include "zorvex/base/ErrorCatalogue.h"
#include "zorvex/base/Event.h"

namespace zorvex::test {

namespace {

Error Caught(const std::function<void()>& step) {
    const auto error = Attempt(step);
    EXPECT_TRUE(error) << "nothing was raised";
    return error.value_or(Error(0, "", ""));
}

}  // namespace

TEST(Faults, CatalogueErrorsCarryBaseTextAndFillers) {
    const Error error = Caught([] { RaiseCatalogue(505, "source", "%2", "vol.%1"); });
    EXPECT_EQ(error.Number(), -2147221504 + 505);
    EXPECT_EQ(error.Id(), 505);
    EXPECT_EQ(error.Source(), "source");
    // What a filler brings in is not filled again.
    EXPECT_EQ(error.Description(), "Invalid resource location (%2) in vol.%1.");
    EXPECT_EQ(CatalogueText(505, {"17"}), "Invalid resource location (17) in %2.");
    EXPECT_EQ(CatalogueText(505), "Invalid resource location (%1) in %2.");
    EXPECT_EQ(CatalogueText(1), "");
    EXPECT_NE(CatalogueText(4001), "");
    EXPECT_NE(CatalogueText(5108), "");
}

TEST(Faults, EveryNumberHasAKind) {
    const auto kindOf = [](std::int32_t id) { return Caught([=] { RaiseCatalogue(id, "s"); }).Kind(); };
    const auto plainKind = [](std::int32_t number) { return Caught([=] { RaiseRuntime(number); }).Kind(); };
    EXPECT_EQ(kindOf(606), ErrorKind::FileNotFound);
    EXPECT_EQ(plainKind(reFileNotFound), ErrorKind::FileNotFound);
    EXPECT_EQ(plainKind(rePermissionDenied), ErrorKind::PermissionDenied);
    EXPECT_EQ(plainKind(reDiskFull), ErrorKind::DiskFull);
    EXPECT_EQ(kindOf(501), ErrorKind::AlreadyOpen);
    EXPECT_EQ(kindOf(563), ErrorKind::NotLoaded);
    EXPECT_EQ(kindOf(697), ErrorKind::AlreadyExists);
    EXPECT_EQ(kindOf(4164), ErrorKind::SourceError);
    EXPECT_EQ(kindOf(649), ErrorKind::Other);
    EXPECT_EQ(plainKind(123456), ErrorKind::Other);
    // Only numbers with a text of their own have a kind.
    for (std::int32_t id = -10; id < 5000; ++id) {
        const bool known = !CatalogueText(id).empty() || RuntimeText(id) != RuntimeText(0);
        const bool other = KindOfError(id) == ErrorKind::Other;
        EXPECT_TRUE(known || id > 4000 || other) << id;
        EXPECT_FALSE(RuntimeText(id) != RuntimeText(0) && other) << id;
    }
    EXPECT_TRUE(Caught([] { RaiseRuntime(reSubscript); }).Is(9));
    EXPECT_FALSE(Caught([] { RaiseRuntime(reSubscript); }).Is(509));
    EXPECT_TRUE(Caught([] { RaiseCatalogue(509, "s"); }).Is(509));
}

TEST(Faults, AnythingThrownBecomesAnError) {
    EXPECT_EQ(Caught([] { throw std::bad_alloc(); }).Number(), reOutOfMemory);
    EXPECT_EQ(Caught([] { throw std::out_of_range("x"); }).Number(), reSubscript);
    EXPECT_EQ(Caught([] { throw std::runtime_error("text"); }).Description(), "text");
    EXPECT_EQ(Caught([] { throw 5; }).Number(), reInternal);
}

TEST(Faults, WrappedQuotesTheFaultUnlessItIsExpected) {
    const auto wrapped = Caught([] { Wrapped(646, [] { RaiseRuntime(reSubscript, "inner"); }, {502, 506}); });
    EXPECT_TRUE(wrapped.Is(646));
    EXPECT_EQ(wrapped.Source(), "inner");
    EXPECT_TRUE(Has(wrapped.Description(), "(9:Subscript out of range)"));

    const auto passed = Caught([] {
        Wrapped(646, [] { RaiseCatalogue(506, "inner", 1 ? "a" : "", "b"); }, {502, 506});
    });
    EXPECT_TRUE(passed.Is(506));
    EXPECT_EQ(Wrapped(646, [] { return 7; }), 7);
}

TEST(Faults, GuardedCleansUpAndKeepsTheFirstFault) {
    bool cleaned = false;
    const auto error = Caught([&] {
        Guarded([] { RaiseRuntime(reDiskFull, "step"); },
                [&] {
                    cleaned = true;
                    RaiseRuntime(reFileNotFound, "clean-up");
                });
    });
    EXPECT_TRUE(cleaned);
    EXPECT_EQ(error.Number(), reDiskFull);
    EXPECT_EQ(Library().LastErrorNumber, reDiskFull);
    EXPECT_EQ(Library().LastErrorSource, "step");
}

TEST(Checked, WidthsAndIndexesHaveBounds) {
    EXPECT_EQ(Narrow<std::int16_t>(-32768), -32768);
    EXPECT_EQ(Caught([] { Narrow<std::int16_t>(32768); }).Number(), reOverflow);
    EXPECT_EQ(Caught([] { Narrow<std::uint8_t>(-1); }).Number(), reOverflow);
    EXPECT_EQ(Caught([] { Narrow<std::int32_t>(std::uint64_t{1} << 40U); }).Number(), reOverflow);

    std::vector<int> values{1, 2, 3};
    At(values, 2) = 5;
    EXPECT_EQ(values[2], 5);
    EXPECT_EQ(Caught([&] { At(values, 3); }).Number(), reSubscript);
    EXPECT_EQ(Caught([&] { At(values, -1); }).Number(), reSubscript);
}

TEST(Events, HandlersMayComeAndGoWhileTheyRun) {
    Event<int> event;
    std::string calls;
    Subscription second;
    Subscription late;
    Subscription first = event.Subscribe([&](int) {
        calls += "first ";
        second.Reset();
        late = event.Subscribe([&](int) { calls += "late "; });
        first.Reset();
    });
    second = event.Subscribe([&](int) { calls += "second "; });
    Subscription third = event.Subscribe([&](int value) { calls += "third" + std::to_string(value) + " "; });
    event.Raise(1);
    EXPECT_EQ(calls, "first third1 ");
    event.Raise(2);
    EXPECT_EQ(calls, "first third1 third2 late ");
}

TEST(Events, HandlersStayWithTheirEvent) {
    Event<> event;
    int calls = 0;
    const Subscription subscription = event.Subscribe([&] { ++calls; });
    Event<> copy = event;
    copy.Raise();
    EXPECT_EQ(calls, 0);
    event = copy;
    event.Raise();
    EXPECT_EQ(calls, 1);
    const Event<> moved = std::move(event);
    moved.Raise();
    event.Raise();
    EXPECT_EQ(calls, 2);
}

TEST(Events, SubscriptionsMayOutliveTheEvent) {
    auto event = std::make_unique<Event<>>();
    int calls = 0;
    Subscription subscription = event->Subscribe([&] { ++calls; });
    Subscription moved = std::move(subscription);
    event->Raise();
    event.reset();
    moved.Reset();
    EXPECT_EQ(calls, 1);
}

}  // namespace zorvex::test
