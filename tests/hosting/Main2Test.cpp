#include "hosting/Main2.h"

#include <gtest/gtest.h>

#include <memory>
#include <optional>
#include <string>

#include "diagnostics/vbwProtector.h"
#include "platform/Dictionary.h"
#include "support/FreshThread.h"
#include "support/RecordingTracingService.h"

namespace kelmora {
namespace {

using testing::onFreshThread;
using testing::ScopedBridge;

bool allContain(const std::vector<std::string>& lines, const std::string& text) {
  for (const auto& line : lines) {
    if (line.find(text) == std::string::npos)
      return false;
  }
  return !lines.empty();
}

TEST(Main2Test, EachTypeHasOneSlotFilledOnFirstDemand) {
  enum class Outcome { Built, HalfBuilt, OutOfBounds };
  struct Row {
    int16_t whichType;
    Outcome outcome;
    const char* name;  // setting 0 of a built model
    int answer;        // the service's answer to the first failure
  };
  const Row rows[] = {
      {0, Outcome::Built, "NonPeriodical", 5}, {1, Outcome::Built, "Periodical", 5},
      {4, Outcome::Built, "Esource", 5},       {2, Outcome::HalfBuilt, nullptr, 5},
      {3, Outcome::HalfBuilt, nullptr, 0},     {5, Outcome::OutOfBounds, nullptr, 5},
      {-1, Outcome::OutOfBounds, nullptr, 5},  {-32768, Outcome::OutOfBounds, nullptr, 0},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.whichType);
    onFreshThread([&] {
      ScopedBridge bridge;
      bridge.service().answers = {Variant(row.answer)};
      Main2 main;
      const std::shared_ptr<Model> first = main.Model(row.whichType);
      const std::shared_ptr<Model> second = main.Model(row.whichType);
      const auto& service = bridge.service();
      EXPECT_EQ(service.countOf("in Kelmora.Main2.model[Get] "), 2);
      const auto before = service.callsStartingWith("before ");

      switch (row.outcome) {
        case Outcome::Built:
          ASSERT_NE(first, nullptr);
          EXPECT_EQ(first, second);
          EXPECT_EQ(service.countOf("in Kelmora.Model.initialize "), 1);
          EXPECT_EQ(first->setting(0), row.name);
          EXPECT_TRUE(before.empty());
          break;
        case Outcome::HalfBuilt:
          // initialize finds no catalogue and fails; the object it was
          // building stays in the slot and is not built again.
          ASSERT_NE(first, nullptr);
          EXPECT_EQ(first, second);
          EXPECT_EQ(service.countOf("in Kelmora.Model.initialize "), 1);
          ASSERT_FALSE(before.empty());
          EXPECT_TRUE(before[0].starts_with("before Kelmora Model initialize ")) << before[0];
          EXPECT_TRUE(allContain(before, " 9 Subscript out of range "));
          EXPECT_EQ(service.countOf("after"), 1);
          break;
        case Outcome::OutOfBounds:
          // No slot is touched: a negative type must not wrap round to one.
          EXPECT_EQ(first, nullptr);
          EXPECT_EQ(second, nullptr);
          EXPECT_EQ(service.countOf("in Kelmora.Model.initialize "), 0);
          EXPECT_TRUE(allContain(before, "before Kelmora Main2 model[Get] "));
          EXPECT_TRUE(allContain(before, " 9 Subscript out of range "));
          EXPECT_EQ(service.countOf("var mModels=(Nothing, Nothing, Nothing, Nothing, Nothing)"),
                    static_cast<int>(before.size()));
          break;
      }
    });
  }
}

TEST(Main2Test, AFormatChangeClearsTheModelsFormatFlag) {
  onFreshThread([] {
    ScopedBridge bridge;
    Main2 main;
    main.ChangeFormatType(1);  // builds the model on a fresh Main2
    const std::shared_ptr<Model> periodical = main.Model(1);
    ASSERT_NE(periodical, nullptr);
    EXPECT_FALSE(periodical->initializedToFormat);
    EXPECT_EQ(bridge.service().countOf("in Kelmora.Model.initialize "), 1);

    periodical->initializedToFormat = true;
    main.ChangeFormatType(1);
    EXPECT_FALSE(periodical->initializedToFormat);
    EXPECT_TRUE(bridge.service().callsStartingWith("before ").empty());

    // Outside the slots both statements of the property fail with 9 and it
    // gives nothing, which the format change then fails on with 91.
    main.ChangeFormatType(5);
    const auto before = bridge.service().callsStartingWith("before ");
    ASSERT_EQ(before.size(), 3u);
    for (size_t i = 0; i < 2; ++i) {
      EXPECT_TRUE(before[i].starts_with("before Kelmora Main2 model[Get] ")) << before[i];
      EXPECT_NE(before[i].find(" 9 "), std::string::npos) << before[i];
    }
    EXPECT_TRUE(before[2].starts_with("before Kelmora Main2 ChangeFormatType ")) << before[2];
    EXPECT_NE(before[2].find(" 91 "), std::string::npos) << before[2];
  });
}

TEST(Main2Test, EndingMain2ReleasesItsModelsButNotTheHostsReferences) {
  onFreshThread([] {
    ScopedBridge bridge;
    auto main = std::make_shared<Main2>();
    std::weak_ptr<Model> nonPeriodical = main->Model(0);
    const std::shared_ptr<Dictionary> esourceKeys = main->Model(4)->keyToInternalIndex();
    const std::shared_ptr<Model> periodical = main->Model(1);
    main.reset();

    EXPECT_TRUE(nonPeriodical.expired());
    EXPECT_EQ(esourceKeys->Count(), 0);  // emptied by the model's end
    EXPECT_EQ(periodical->KeyIndex(), 12);
    EXPECT_EQ(periodical->keyToInternalIndex()->Count(), 26);
  });
}

// A host that uses Main2 alone has no container whose end drops the
// thread's tracing object: it goes with the last library object instead,
// untold, so that nothing of the host is held once the host let go of all.
TEST(Main2Test, TheTracingObjectGoesWithTheThreadsLastLibraryObject) {
  onFreshThread([] {
    ScopedBridge bridge;
    auto main = std::make_shared<Main2>();
    auto model = main->Model(4);
    main->ChangeFormatType(4);
    EXPECT_TRUE(vbwProtector::hasTracingObject());
    main.reset();
    EXPECT_TRUE(vbwProtector::hasTracingObject()) << "a model is still alive";
    model.reset();
    EXPECT_FALSE(vbwProtector::hasTracingObject());
    EXPECT_EQ(bridge.service().calls.back().rfind("exit", 0), std::string::npos);
  });
}

}  // namespace
}  // namespace kelmora
