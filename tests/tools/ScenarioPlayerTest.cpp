#include "scenario/ScenarioPlayer.h"

#include <gtest/gtest.h>

#include "host/RecordingSink.h"
#include "host/ToolHost.h"
#include "hostkit/Tracing.h"
#include "support/FreshThread.h"
#include "surface/MessageBox.h"
#include "tools/KelmoraRun.h"
#include "tools/ScratchDir.h"

namespace kelmora::tools {
namespace {

using testing::KelmoraRun;
using testing::ScratchDir;

// Plays the steps after the Periodical frame has been shown.
KelmoraRun playSteps(const std::string& steps) {
  ScratchDir dir;
  const std::string path = dir.write(
      "scenario.json", R"({"steps": [{"call": "SetVisibleFrame", "args": {"theModelType": 1}})" +
                           std::string(steps.empty() ? "" : ", ") + steps + "]}");
  return KelmoraRun::of({"play", path, "--pictures", dir.path().string()});
}

TEST(ScenarioPlayerTest, TypingReachesTheHostAsOneJsonLinePerCallback) {
  const KelmoraRun run = playSteps(R"({"type": "PeriodicalAuthor", "text": "Ng"})");
  ASSERT_EQ(run.status, 0) << run.out << run.err;
  const auto changes = run.events("callback");
  ASSERT_FALSE(changes.empty());
  std::vector<std::string> values;
  for (const auto& event : changes)
    if (event["callback"] == "widgetChangeHandler")
      values.push_back(event["args"]["value"]);
  EXPECT_EQ(values, (std::vector<std::string>{"N", "Ng"}));
}

TEST(ScenarioPlayerTest, FailureReportsArePrintedAndPlayGoesOn) {
  const KelmoraRun run = playSteps(
      R"({"call": "Model", "args": {"whichType": 9}},
         {"call": "SynchronizeFieldsWithModel", "args": {"whichType": 1,
          "values": {"PeriodicalTitle": "Tidal Notes"}}},
         {"expect": "PeriodicalTitle", "text": "Tidal Notes"})");
  EXPECT_EQ(run.status, 0) << run.out;
  int modelFailures = 0;
  for (const auto& event : run.events("failure")) {
    const Json& failure = event["failure"];
    if (failure["procedure"].get<std::string>().starts_with("Main2.")) {
      ++modelFailures;
      EXPECT_EQ(failure["number"], 9);
      EXPECT_EQ(failure["locals"]["whichType"], 9) << "the report carries the procedure's locals";
    }
  }
  EXPECT_GE(modelFailures, 1);
  ASSERT_EQ(run.events("result").size(), 1u);
  EXPECT_TRUE(run.events("result")[0]["value"].is_null()) << "no model for a type out of range";
}

TEST(ScenarioPlayerTest, AHostThatAlwaysRetriesGivesUpAndSaysSo) {
  ScratchDir dir;
  // Model(9) fails the same way every time it runs.
  const std::string path = dir.write(
      "scenario.json",
      R"({"host": {"failureAnswer": 4}, "steps": [{"call": "Model", "args": {"whichType": 9}}]})");
  const KelmoraRun run = KelmoraRun::of({"play", path});
  EXPECT_EQ(run.status, 0) << run.err;
  const auto givenUp = run.events("retriesGivenUp");
  ASSERT_EQ(givenUp.size(), 1u) << run.out;
  EXPECT_EQ(givenUp[0]["retriesGivenUp"]["procedure"], "Main2.model[Get]");
  EXPECT_EQ(givenUp[0]["retriesGivenUp"]["retries"], host::Tracing::kMaxRetries);
  EXPECT_EQ(run.events("failure").size(), static_cast<size_t>(host::Tracing::kMaxRetries + 1));
}

// Each row: steps, the exit status, and the unmet property if any.
struct OutcomeRow {
  std::string what;
  std::string steps;
  int status;
  std::string unmetProperty;
};

TEST(ScenarioPlayerTest, UnmetExpectationsAndUnexpectedFailuresFailThePlay) {
  const std::vector<OutcomeRow> rows = {
      {"text held", R"({"expect": "PeriodicalTitle", "text": ""})", 0, ""},
      {"text differs", R"({"expect": "PeriodicalTitle", "text": "Nature"})", 1, "text"},
      {"fields beyond the basic ones wait for show-all",
       R"({"expect": "AdvancedFieldsFrame", "showing": true})", 1, "showing"},
      {"expected failure happens", R"j({"type": "PeriodicalAccessDate", "text": "x", "fails": 5})j",
       0, ""},
      {"unexpected failure", R"j({"type": "PeriodicalAccessDate", "text": "x"})j", 1, ""},
      {"expected failure missing", R"({"type": "PeriodicalTitle", "text": "x", "fails": 5})", 1,
       "fails"},
  };
  for (const auto& row : rows) {
    const KelmoraRun run = playSteps(row.steps);
    EXPECT_EQ(run.status, row.status) << row.what << "\n" << run.out << run.err;
    const auto unmet = run.events("unmet");
    if (row.unmetProperty.empty()) {
      EXPECT_TRUE(unmet.empty()) << row.what;
    } else {
      ASSERT_EQ(unmet.size(), 1u) << row.what;
      EXPECT_EQ(unmet[0]["unmet"]["property"], row.unmetProperty) << row.what;
    }
  }
}

TEST(ScenarioPlayerTest, FailedCallIsReportedWithItsNumber) {
  const KelmoraRun run = playSteps(R"j({"clear": "PeriodicalAccessDate"})j");
  std::vector<Json> failed;
  for (const auto& event : run.events("failedCall"))
    if (event["failedCall"].contains("step"))
      failed.push_back(event);
  ASSERT_EQ(failed.size(), 1u) << run.out;
  EXPECT_EQ(failed[0]["failedCall"]["step"], 2);
  EXPECT_EQ(failed[0]["failedCall"]["number"], 5);
}

TEST(ScenarioPlayerTest, HostAnswersChangesButNotWhileItLoads) {
  kelmora::testing::onFreshThread([] {
    RecordingSink sink;
    {
      ToolHost host(sink, {});
      ScenarioPlayer player(host, sink, ".");
      player.play(Scenario::fromText(R"({"steps": [
          {"call": "SetVisibleFrame", "args": {"theModelType": 1}},
          {"call": "SynchronizeFieldsWithModel", "args": {"whichType": 1,
           "values": {"PeriodicalTitle": "Loaded"}}},
          {"type": "PeriodicalTitle", "text": "!"}]})",
                                     "inline", "."));
    }
    std::vector<std::string> answers;
    for (const auto& event : sink.events())
      if (event.value("host", "") == "ExecuteDependentWidgetToggler")
        answers.push_back(event["args"].dump());
    ASSERT_EQ(answers.size(), 1u) << "only the typed change is answered";
    EXPECT_EQ(answers[0].substr(0, 3), "[1,");
  });
}

TEST(ScenarioPlayerTest, MessageBoxesBecomeEventsAndTheFormerBoxComesBack) {
  kelmora::testing::onFreshThread([] {
    RecordingSink sink;
    MessageBox* before = &MessageBox::current();
    {
      ToolHost host(sink, {});
      MessageBox::MsgBox("Unknown Label");
    }
    EXPECT_EQ(sink.count("messageBox"), 1);
    EXPECT_EQ(&MessageBox::current(), before);
  });
}

}  // namespace
}  // namespace kelmora::tools
