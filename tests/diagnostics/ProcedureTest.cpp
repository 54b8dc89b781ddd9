#include "diagnostics/Procedure.h"

#include <gtest/gtest.h>

#include "platform/RuntimeError.h"
#include "support/ErrorOf.h"
#include "support/FreshThread.h"
#include "support/RecordingTracingService.h"

namespace kelmora {
namespace {

using testing::errorOf;
using testing::onFreshThread;
using testing::ScopedBridge;

// A traced class whose procedures fail on demand. Each statement records
// its ordinal in `ran`, so a test sees which statements ran and how often.
class Sample : public Dumpable {
 public:
  int16_t mCount = 7;
  std::string mName = "sample";
  std::vector<int> ran;
  int failureLine = 0;

  void vbwDump() const override {
    vbwProtector::dumpModule({arg("mCount", mCount), arg("mName", mName)});
  }

  // Three statements; the second fails with `number` for its first `times`
  // runs. The result is 42 when the third statement ran.
  int16_t Work(int32_t number, int times) {
    Procedure proc{this, procedureName<"Sample.Work">(), {arg("number", number)}};
    return proc.run<int16_t>([&](int16_t& result) {
      int attempts = 0;
      proc.local("attempts", attempts);
      proc.step([&] { ran.push_back(1); });
      proc.step([&] {
        failureLine = __LINE__;
        ran.push_back(2);
        if (attempts++ < times)
          throw RuntimeError(number);
      });
      proc.step([&] {
        ran.push_back(3);
        result = 42;
      });
    });
  }

  // Calls Work from one of its statements, then goes on.
  void Outer(int32_t number) {
    Procedure proc{this, procedureName<"Sample.Outer">()};
    proc.run([&] {
      proc.step([&] { Work(number, 1); });
      proc.step([&] { ran.push_back(10); });
    });
  }

  void Careless() {
    Procedure proc{this, procedureName<"Sample.Careless">()};
    proc.run([&] {
      proc.goOnPastFailures();
      proc.step([&] { throw RuntimeError(kTypeMismatch); });
      proc.step([&] { ran.push_back(1); });
    });
  }

  // Walks five statements in a loop and leaves at the third, by unwinding
  // or by skipping what follows; a statement after the loop must not run.
  int16_t Leave(bool unwinding) {
    Procedure proc{this, procedureName<"Sample.Leave">()};
    return proc.run<int16_t>([&](int16_t& result) {
      for (int i = 1; i <= 5 && !proc.exited(); ++i) {
        proc.step([&] {
          ran.push_back(i);
          result = static_cast<int16_t>(i);
          if (i == 3) {
            if (unwinding)
              proc.exitProcedure();
            proc.exitAfterStatement();
          }
        });
      }
      proc.step([&] { ran.push_back(10); });
    });
  }

  void NoParameters() {
    Procedure proc{this, procedureName<"Sample.NoParameters">()};
    proc.run([] {});
  }
};

TEST(ProcedureTest, AnswersDecideWhatRunsAfterAFailure) {
  struct Row {
    const char* what;
    std::vector<Variant> answers;
    int failures;
    std::vector<int> expectedRan;
    int16_t expectedResult;
    int expectedQuestions;
  };
  const std::vector<Row> rows = {
      {"ignore runs the next statement", {Variant(5)}, 1, {1, 2, 3}, 42, 1},
      {"retry runs the statement again",
       {Variant(4), Variant(4), Variant(5)},
       2,
       {1, 2, 2, 2, 3},
       42,
       2},
      {"retry keeps asking", {Variant(4), Variant(4), Variant(4)}, 3, {1, 2, 2, 2, 2, 3}, 42, 3},
      {"none leaves with the default result", {Variant(0)}, 1, {1, 2}, 0, 1},
      {"an unknown answer leaves", {Variant(7)}, 1, {1, 2}, 0, 1},
      {"an answer that is no number leaves", {Variant("later")}, 1, {1, 2}, 0, 1},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.what);
    onFreshThread([&] {
      ScopedBridge bridge;
      bridge.service().answers.assign(row.answers.begin(), row.answers.end());
      vbwProtector::vbwTraceProc() = true;
      Sample sample;
      EXPECT_EQ(sample.Work(kSubscriptOutOfRange, row.failures), row.expectedResult);
      EXPECT_EQ(sample.ran, row.expectedRan);
      EXPECT_EQ(bridge.service().countOf("after"), row.expectedQuestions);
      // Leaving still runs the epilogue.
      EXPECT_EQ(bridge.service().calls.back(), "out");
    });
  }
}

TEST(ProcedureTest, AbortEndsTheThreadsTracingAndLeaves) {
  onFreshThread([] {
    ScopedBridge bridge;
    bridge.service().answers = {Variant(3)};
    vbwProtector::vbwTraceProc() = true;
    Sample sample;
    EXPECT_EQ(sample.Work(kSubscriptOutOfRange, 1), 0);
    EXPECT_EQ(sample.ran, (std::vector<int>{1, 2}));
    auto& calls = bridge.service().calls;
    auto exit = std::find(calls.begin(), calls.end(), "exit True");
    ASSERT_NE(exit, calls.end());
    // The epilogue after the abort looks the tracing object up anew.
    EXPECT_EQ(std::next(exit), std::prev(calls.end()));
    EXPECT_EQ(calls.back(), "out");
  });
}

TEST(ProcedureTest, OnlyTheFirstFailureThatIsNotRetriedIsAsked) {
  onFreshThread([] {
    ScopedBridge bridge;
    bridge.service().answers = {Variant(4), Variant(0)};
    vbwProtector::vbwTraceProc() = true;
    Sample sample;
    sample.Work(kSubscriptOutOfRange, 1);  // retried, then succeeds
    EXPECT_FALSE(vbwProtector::answerLatch());
    sample.Work(kSubscriptOutOfRange, 1);  // answered 0: the latch closes
    EXPECT_TRUE(vbwProtector::answerLatch());
    sample.ran.clear();
    EXPECT_EQ(sample.Work(kTypeMismatch, 1), 42);  // dumped, then ignored unasked
    EXPECT_EQ(sample.ran, (std::vector<int>{1, 2, 3}));
    EXPECT_EQ(bridge.service().countOf("before"), 3);
    EXPECT_EQ(bridge.service().countOf("after"), 2);
  });
}

TEST(ProcedureTest, TheDumpReportsTheCallTheObjectAndTheProcess) {
  onFreshThread([] {
    ScopedBridge bridge;
    vbwProtector::vbwTraceProc() = true;
    Sample sample;
    sample.Work(kSubscriptOutOfRange, 1);
    const auto& calls = bridge.service().calls;
    auto before = std::find_if(calls.begin(), calls.end(),
                               [](const std::string& call) { return call.starts_with("before"); });
    ASSERT_NE(before, calls.end());
    const std::vector<std::string> dump(before, calls.end());
    const std::vector<std::string> expected = {
        "before Kelmora Sample Work " + std::to_string(sample.failureLine - 1) +
            " 9 Subscript out of range 0",
        "open",
        "file " + vbwProtector::localHeader(),
        "var number=9",
        "var attempts=1",
        "file " + vbwProtector::moduleHeader(),
        "var mCount=7",
        "var mName=sample",
        "file " + vbwProtector::globalHeader(),
        "var vbwProtector.vbwTraceProc=True",
        "var vbwProtector.vbwTraceParameters=False",
        "object VB.App",
        "object Err",
        "object VB.Screen",
        "object VB.Printer",
        "close",
        "after",
        "out",
    };
    EXPECT_EQ(dump, expected);
    EXPECT_EQ(vbwProtector::localHeader(),
              "\r\n**************************\r\n* LOCAL LEVEL VARIABLES  *\r\n"
              "**************************\r\n");
    EXPECT_EQ(vbwProtector::moduleHeader().substr(30, 26), "* MODULE LEVEL VARIABLES *");
    EXPECT_EQ(vbwProtector::globalHeader().substr(30, 26), "* GLOBAL LEVEL VARIABLES *");
  });
}

TEST(ProcedureTest, AFailingExitReportDumpsOnlyWhatStillLives) {
  onFreshThread([] {
    ScopedBridge bridge;
    bridge.service().failing["vbwProcOut"] = kMemberNotSupported;
    vbwProtector::vbwTraceProc() = true;
    Sample sample;
    // The body has ended when the exit report fails: its locals are gone,
    // the parameters are not.
    EXPECT_EQ(sample.Work(kSubscriptOutOfRange, 0), 42);
    EXPECT_EQ(bridge.service().countOf("before Kelmora Sample Work 0 438"), 1);
    EXPECT_EQ(bridge.service().callsStartingWith("var "),
              (std::vector<std::string>{"var number=9", "var mCount=7", "var mName=sample",
                                        "var vbwProtector.vbwTraceProc=True",
                                        "var vbwProtector.vbwTraceParameters=False"}));
  });
}

TEST(ProcedureTest, ALargeErrorNumberFailsTheCallersStatementInstead) {
  onFreshThread([] {
    ScopedBridge bridge;
    vbwProtector::vbwTraceProc() = true;
    Sample sample;
    sample.Outer(static_cast<int32_t>(0x80020009u));
    const auto before = bridge.service().callsStartingWith("before");
    ASSERT_EQ(before.size(), 1u);
    EXPECT_TRUE(before[0].starts_with("before Kelmora Sample Outer ")) << before[0];
    EXPECT_NE(before[0].find(" 6 Overflow "), std::string::npos) << before[0];
    // Work left in its failure path: its third statement never ran; Outer
    // went on with its next statement after the answer 5.
    EXPECT_EQ(sample.ran, (std::vector<int>{1, 2, 10}));
  });
}

TEST(ProcedureTest, AFailingServiceInsideTheFailurePathReachesTheCaller) {
  onFreshThread([] {
    ScopedBridge bridge;
    bridge.service().failing["vbwOpenDumpFile"] = kMemberNotSupported;
    vbwProtector::vbwTraceProc() = true;
    Sample sample;
    EXPECT_EQ(errorOf([&] { sample.Outer(kSubscriptOutOfRange); }), kMemberNotSupported);
    EXPECT_EQ(bridge.service().countOf("before"), 2);  // Work's, then Outer's
    EXPECT_EQ(sample.ran, (std::vector<int>{1, 2}));
  });
}

TEST(ProcedureTest, WithoutABridgeTheOutermostCallFailsAndNoLogicRuns) {
  onFreshThread([] {
    vbwProtector::vbwTraceProc() = true;
    Sample sample;
    EXPECT_EQ(errorOf([&] { sample.Outer(kSubscriptOutOfRange); }), kCannotCreateObject);
    EXPECT_TRUE(sample.ran.empty());
  });
}

TEST(ProcedureTest, GoingOnPastFailuresSkipsSilently) {
  onFreshThread([] {
    ScopedBridge bridge;
    vbwProtector::vbwTraceProc() = true;
    Sample sample;
    sample.Careless();
    EXPECT_EQ(sample.ran, (std::vector<int>{1}));
    EXPECT_EQ(bridge.service().calls,
              (std::vector<std::string>{"in Kelmora.Sample.Careless ", "out"}));
  });
}

TEST(ProcedureTest, LeavingKeepsTheResultSkipsTheRestAndReportsTheExit) {
  for (bool unwinding : {true, false}) {
    SCOPED_TRACE(unwinding);
    onFreshThread([unwinding] {
      ScopedBridge bridge;
      vbwProtector::vbwTraceProc() = true;
      Sample sample;
      EXPECT_EQ(sample.Leave(unwinding), 3);
      EXPECT_EQ(sample.ran, (std::vector<int>{1, 2, 3}));
      EXPECT_EQ(bridge.service().calls,
                (std::vector<std::string>{"in Kelmora.Sample.Leave ", "out"}));
    });
  }
}

TEST(ProcedureTest, ParameterTextIsBuiltOnlyUnderParameterTracing) {
  onFreshThread([] {
    ScopedBridge bridge;
    bridge.service().answers = {Variant(5)};
    vbwProtector::vbwTraceProc() = true;
    Sample sample;
    sample.NoParameters();
    sample.Work(kSubscriptOutOfRange, 0);
    vbwProtector::vbwTraceParameters() = true;
    sample.NoParameters();
    sample.Work(kSubscriptOutOfRange, 0);
    EXPECT_EQ(bridge.service().callsStartingWith("in "),
              (std::vector<std::string>{
                  "in Kelmora.Sample.NoParameters ", "in Kelmora.Sample.Work ",
                  "in Kelmora.Sample.NoParameters ()", "in Kelmora.Sample.Work (number=9) "}));
  });
}

TEST(ProcedureTest, ExitThreadDropsTheTracingObjectWhateverTheServiceSays) {
  onFreshThread([] {
    ScopedBridge bridge;
    bridge.service().failing["vbwExitThread"] = kMemberNotSupported;
    vbwProtector::vbwTraceProc() = true;
    vbwProtector::vbwExitThread(false);  // nothing cached yet: nothing to do
    Sample sample;
    sample.NoParameters();
    ASSERT_TRUE(vbwProtector::hasTracingObject());
    vbwProtector::vbwExitThread(false);
    EXPECT_FALSE(vbwProtector::hasTracingObject());
  });
}

}  // namespace
}  // namespace kelmora
