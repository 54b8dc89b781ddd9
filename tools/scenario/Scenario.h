#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "host/Kit.h"

namespace kelmora::tools {

// A scenario: what the host calls and what the user does, step by step,
// with expectations on what the form then shows. The format is told in
// docs/scenarios.md. Everything but widget names is checked when the
// scenario is read, so that a malformed scenario is refused before anything
// runs; widgets can only be found while the form exists.
class Scenario {
 public:
  enum class StepKind {
    Call,
    Type,
    Clear,
    Select,
    Click,
    Check,
    Focus,
    Mouse,
    Drop,
    Expect,
    Stage
  };

  struct Step {
    StepKind kind;
    // Counted from 1, as messages and events name it.
    size_t number;
    // The step as written.
    Json written;
    // The run-time failure number the step is expected to fail with.
    std::optional<int32_t> fails;
    // An SVG picture of the form to write after the step.
    std::string svg;
  };

  // How a host operation's argument is written in a scenario.
  enum class ArgKind { Int16, Bool, Text, Texts, Settings, Values, Widget, OptionalWidget };
  struct Parameter {
    std::string_view name;
    ArgKind kind;
    // Written out only where the argument is optional.
    std::optional<std::string_view> defaultJson = std::nullopt;
  };
  // The parameters of a host operation by name, or nothing for a name that
  // is no operation of Main2 or FrameContainer.
  static const std::span<const Parameter>* parametersOf(std::string_view operation);

  static Scenario parse(const Json& document, const std::string& origin,
                        std::filesystem::path baseDirectory);
  static Scenario load(const std::filesystem::path& path);
  static Scenario fromText(std::string_view text, const std::string& origin,
                           std::filesystem::path baseDirectory);

  std::string origin;
  std::string description;
  // Relative paths of settings files are read from here.
  std::filesystem::path baseDirectory;
  int32_t failureAnswer = 5;
  bool answerChanges = true;
  std::vector<Step> steps;
};

}  // namespace kelmora::tools
