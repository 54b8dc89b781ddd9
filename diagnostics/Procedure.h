#pragma once

#include <array>
#include <cstdint>
#include <exception>
#include <initializer_list>
#include <memory>
#include <source_location>
#include <span>
#include <utility>

#include "diagnostics/Dumpable.h"
#include "diagnostics/ProcedureName.h"
#include "diagnostics/VarRef.h"
#include "diagnostics/vbwProtector.h"
#include "platform/ReleasePool.h"
#include "platform/RuntimeError.h"

namespace kelmora {

// The guard of one traced procedure. It runs the prologue, then the body
// statement by statement, then the epilogue. When a statement fails it runs
// the failure path and acts on the service's answer: retry the statement,
// go on with the next one, or leave the procedure with its default result.
//
//   Procedure proc{this, procedureName<"Main2.ChangeFormatType">(),
//                  {arg("whichType", whichType)}};
//   proc.run([&] {
//     proc.step([&] { Model(whichType)->initializedToFormat = false; });
//   });
//
// A failure inside the failure path itself leaves the procedure at once and
// becomes a failure of the statement that called it.
class Procedure {
 public:
  static constexpr size_t kMaxVariables = 32;

  Procedure(const Dumpable* owner, const ProcedureName& name,
            std::initializer_list<VarRef> parameters = {});
  explicit Procedure(const ProcedureName& name, std::initializer_list<VarRef> parameters = {})
      : Procedure(nullptr, name, parameters) {}
  Procedure(const Procedure&) = delete;
  Procedure& operator=(const Procedure&) = delete;

  // Registers a local for the dump. Call it where the local is declared.
  template <typename T>
  void local(const char* name, const T& variable) {
    addVariable(arg(name, variable));
  }

  // From here on a failing statement is skipped without a report.
  void goOnPastFailures() { mGoOnPastFailures = true; }

  // Leaves the procedure normally, keeping the result assigned so far; the
  // epilogue still runs. Call it from inside a statement.
  [[noreturn]] void exitProcedure() { throw Exit{}; }

  // Leaves the procedure normally once the running statement ends: every
  // statement after it is skipped. Unlike exitProcedure it unwinds nothing,
  // which matters on the paths an author's keystrokes take; use it as the
  // last action of a statement; a loop of statements tests exited() in its
  // condition, and a body with other code than statements after it returns
  // when exited() says so.
  void exitAfterStatement() { mExited = true; }
  // True once exitAfterStatement was called: a loop of statements tests it
  // in its condition, so that it stops too.
  bool exited() const { return mExited; }

  // Runs one statement; its source line is the line the failure path
  // reports.
  template <typename Statement>
  void step(Statement&& statement,
            std::source_location location = std::source_location::current()) {
    stepAt(static_cast<int32_t>(location.line()), statement);
  }

  // Runs a procedure without a result.
  template <typename Body>
  void run(Body&& body) {
    try {
      prologue();
      const LocalsScope locals{*this};
      body();
    } catch (const Leave&) {
    } catch (const Exit&) {
    }
    epilogue();
  }

  // Runs a procedure with a result. The body receives the result variable;
  // leaving early gives the default value of its type.
  template <typename Result, typename Body>
  Result run(Body&& body) {
    Result result{};
    bool left = false;
    try {
      prologue();
      const LocalsScope locals{*this};
      body(result);
    } catch (const Leave&) {
      left = true;
    } catch (const Exit&) {
    }
    epilogue();
    if (left)
      return Result{};
    return result;
  }

 private:
  // Thrown to end the body at once, also from inside loops; caught by run.
  // Leave drops the result, Exit keeps it.
  struct Leave {};
  struct Exit {};

  // The locals live in the body: once it has ended, however it ended, the
  // dump of a failing epilogue must not read them.
  struct LocalsScope {
    Procedure& procedure;
    ~LocalsScope() { procedure.mVariableCount = procedure.mParameterCount; }
  };

  template <typename Statement>
  void stepAt(int32_t line, Statement& statement) {
    if (mExited)
      return;
    for (;;) {
      try {
        statement();
        return;
      } catch (const RuntimeError& error) {
        if (!shouldRetry(error, line))
          return;
      }
    }
  }

  void addVariable(const VarRef& variable);
  void prologue();
  void epilogue();
  // Handles a failure of a statement: true to run it again, false to go on
  // with the next; throws Leave to leave the procedure.
  bool shouldRetry(const RuntimeError& error, int32_t line);

  // The outermost procedure on a thread holds its object, where it is
  // shared, and every procedure marks the library as running, so that
  // what a host ends from inside one of its members is let go of only
  // once the library's code is off the stack.
  std::shared_ptr<const void> mLifeline;
  ReleasePool::Busy mBusy;
  const Dumpable* mOwner;
  const ProcedureName& mName;
  std::array<VarRef, kMaxVariables> mVariables;
  size_t mParameterCount = 0;
  size_t mVariableCount = 0;
  bool mGoOnPastFailures = false;
  bool mExited = false;
};

}  // namespace kelmora
