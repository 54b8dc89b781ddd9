#include "scenario/Scenario.h"

#include <fstream>
#include <limits>
#include <map>
#include <set>

#include "host/Kit.h"

namespace kelmora::tools {

namespace {

using AK = Scenario::ArgKind;
using P = Scenario::Parameter;

// The host operations a scenario may call, with the names of their
// arguments as the library's interface gives them.
// clang-format off
const P kWhichType[] = {{"whichType", AK::Int16}};
const P kChangeFormat[] = {{"whichType", AK::Int16}};
const P kBuild[] = {{"name", AK::Text}};
const P kColumnNames[] = {{"whichType", AK::Int16}, {"columnNames", AK::Texts, "[]"}};
const P kVisibleFrame[] = {{"theModelType", AK::Int16}};
const P kUpdateFrame[] = {{"Index", AK::Int16}, {"showAllFields", AK::Bool}};
const P kSettings[] = {{"whichType", AK::Int16}, {"formatterSettings", AK::Settings}};
const P kSynchronize[] = {{"whichType", AK::Int16}, {"values", AK::Values}};
const P kUnsupported[] = {{"whichType", AK::Int16}, {"supported", AK::Bool}};
const P kExecute[] = {{"whichType", AK::Int16}, {"Index", AK::Int16}};
const P kReset[] = {{"whichType", AK::Int16}, {"showAllFields", AK::Bool}};
const P kChange[] = {{"theControl", AK::Widget},
                     {"theSecondControl", AK::OptionalWidget, "null"},
                     {"suppressShowSubform", AK::Bool, "false"},
                     {"toggleSecondIndex", AK::Int16, "-1"},
                     {"value", AK::Text, "\"\""},
                     {"secondaryText", AK::Text, "\"\""}};
const P kTitle[] = {{"whichType", AK::Int16}, {"text", AK::Text}};
const P kIndex[] = {{"Index", AK::Int16}};
const P kMouse[] = {{"field", AK::OptionalWidget, "null"}, {"isNewspaperSection", AK::Bool, "false"}};
const P kDrag[] = {{"Data", AK::Text}};
const P kEnterFocus[] = {{"anyField", AK::OptionalWidget}};
const P kProcess[] = {{"field", AK::Widget}, {"secondaryText", AK::Text, "\"\""}};

const std::map<std::string_view, std::span<const P>> kOperations = {
    {"ChangeFormatType", kChangeFormat},
    {"BuildFrameContainer", kBuild},
    {"Model", kWhichType},
    {"initialize", std::span<const P>{}},
    {"setReferenceListColumnNames", kColumnNames},
    {"SetVisibleFrame", kVisibleFrame},
    {"UpdateFrame", kUpdateFrame},
    {"initializeFormatDependentWidgetToggler", kSettings},
    {"ToggleFormatDependentWidgets", kSettings},
    {"SynchronizeFieldsWithModel", kSynchronize},
    {"HandleUnsupportedReferenceType", kUnsupported},
    {"ExecuteDependentWidgetToggler", kExecute},
    {"Reset", kReset},
    {"SetFocus", std::span<const P>{}},
    {"getControls", std::span<const P>{}},
    {"widgetChangeHandler", kChange},
    {"CaptionToTitleType", kTitle},
    {"TitleTypeToCaption", kTitle},
    {"OptionButtonChanged", kIndex},
    {"HandleMouseMove", kMouse},
    {"HandleDragDrop", kDrag},
    {"UserFormEnterFocus", kEnterFocus},
    {"ProcessTextField", kProcess},
    {"Terminate", std::span<const P>{}},
};
// clang-format on

struct KindRow {
  std::string_view key;
  Scenario::StepKind kind;
  // Further keys the step may carry, besides the common ones.
  std::set<std::string_view> keys;
};

const KindRow kKinds[] = {
    {"call", Scenario::StepKind::Call, {"args"}},
    {"type", Scenario::StepKind::Type, {"text"}},
    {"clear", Scenario::StepKind::Clear, {}},
    {"select", Scenario::StepKind::Select, {"item", "index"}},
    {"click", Scenario::StepKind::Click, {}},
    {"check", Scenario::StepKind::Check, {"value"}},
    {"focus", Scenario::StepKind::Focus, {}},
    {"mouse", Scenario::StepKind::Mouse, {}},
    {"drop", Scenario::StepKind::Drop, {"text"}},
    {"expect",
     Scenario::StepKind::Expect,
     {"visible", "showing", "enabled", "caption", "text", "value", "rect", "tooltip"}},
    {"stage", Scenario::StepKind::Stage, {}},
};

const std::set<std::string_view> kCommonKeys = {"svg", "fails", "note"};

bool isInt16(const Json& value) {
  return value.is_number_integer() && value.get<int64_t>() >= std::numeric_limits<int16_t>::min() &&
         value.get<int64_t>() <= std::numeric_limits<int16_t>::max();
}

bool isInt32(const Json& value) {
  return value.is_number_integer() && value.get<int64_t>() >= std::numeric_limits<int32_t>::min() &&
         value.get<int64_t>() <= std::numeric_limits<int32_t>::max();
}

// Field values are texts, as the host holds them; a number or a boolean
// would have to be turned into some text, and which one is the writer's
// call, not the player's.
bool allTexts(const Json& values) {
  for (const auto& value : values)
    if (!value.is_string())
      return false;
  return true;
}

// A picture goes inside the pictures folder: a relative path that never
// climbs out of it.
bool staysInside(const std::filesystem::path& path) {
  if (path.empty() || path.has_root_path() || !path.has_filename())
    return false;
  for (const auto& part : path)
    if (part == "..")
      return false;
  return true;
}

bool fitsArgument(const Json& value, AK kind) {
  switch (kind) {
    case AK::Int16:
      return isInt16(value);
    case AK::Bool:
      return value.is_boolean();
    case AK::Text:
    case AK::Widget:
      return value.is_string();
    case AK::OptionalWidget:
      return value.is_string() || value.is_null();
    case AK::Texts:
      return value.is_array() && allTexts(value);
    case AK::Settings:
      return value.is_null() || value.is_string() || value.is_object() ||
             (value.is_number_integer() && value.get<int64_t>() >= 0);
    case AK::Values:
      return (value.is_object() || value.is_array()) && allTexts(value);
  }
  return false;
}

const char* describeKind(AK kind) {
  switch (kind) {
    case AK::Int16:
      return "a 16-bit whole number";
    case AK::Bool:
      return "true or false";
    case AK::Text:
      return "a text";
    case AK::Widget:
      return "a widget name or field key";
    case AK::OptionalWidget:
      return "a widget name, a field key or null";
    case AK::Texts:
      return "a list of texts";
    case AK::Settings:
      return "a family number, a settings file, an object of settings or null";
    case AK::Values:
      return "an object of field keys and texts, or a list of texts";
  }
  return "";
}

void checkCall(const Json& step, const std::string& where) {
  if (!step["call"].is_string())
    throw BadInput(where + "\"call\" must name an operation");
  const std::string name = step["call"].get<std::string>();
  auto parameters = Scenario::parametersOf(name);
  if (!parameters)
    throw BadInput(where + "unknown operation '" + name + "'");
  const Json args = step.contains("args") ? step["args"] : Json::object();
  if (!args.is_object())
    throw BadInput(where + "\"args\" of " + name + " must be an object of named arguments");
  for (const auto& [argName, value] : args.items()) {
    const Scenario::Parameter* parameter = nullptr;
    for (const auto& candidate : *parameters)
      if (candidate.name == argName)
        parameter = &candidate;
    if (parameter == nullptr)
      throw BadInput(where + name + " has no argument '" + argName + "'");
    if (!fitsArgument(value, parameter->kind))
      throw BadInput(where + "argument '" + argName + "' of " + name + " must be " +
                     describeKind(parameter->kind));
  }
  for (const auto& parameter : *parameters) {
    if (!parameter.defaultJson && !args.contains(std::string(parameter.name)))
      throw BadInput(where + name + " needs the argument '" + std::string(parameter.name) + "'");
  }
}

void checkExpect(const Json& step, const std::string& where) {
  if (!step["expect"].is_string())
    throw BadInput(where + "\"expect\" must name a widget");
  bool any = false;
  for (const char* key : {"visible", "showing", "enabled"}) {
    if (step.contains(key)) {
      any = true;
      if (!step[key].is_boolean())
        throw BadInput(where + "\"" + key + "\" must be true or false");
    }
  }
  for (const char* key : {"caption", "text", "tooltip"}) {
    if (step.contains(key)) {
      any = true;
      if (!step[key].is_string())
        throw BadInput(where + "\"" + key + "\" must be a text");
    }
  }
  if (step.contains("value")) {
    any = true;
    if (!step["value"].is_boolean() && !step["value"].is_number_integer())
      throw BadInput(where + "\"value\" must be true, false or a number");
  }
  if (step.contains("rect")) {
    any = true;
    const Json& rect = step["rect"];
    bool good = rect.is_array() && rect.size() == 4;
    for (const auto& number : rect) good = good && number.is_number();
    if (!good)
      throw BadInput(where + "\"rect\" must be [left, top, width, height] in pixels");
  }
  if (!any)
    throw BadInput(where + "an expectation needs at least one property to check");
}

Scenario::Step checkStep(const Json& written, size_t number, const std::string& origin) {
  const std::string where = origin + ": step " + std::to_string(number) + ": ";
  if (!written.is_object())
    throw BadInput(where + "a step must be a JSON object");
  const KindRow* found = nullptr;
  for (const auto& row : kKinds) {
    if (!written.contains(std::string(row.key)))
      continue;
    if (found != nullptr)
      throw BadInput(where + "a step does one thing, but this one has both \"" +
                     std::string(found->key) + "\" and \"" + std::string(row.key) + "\"");
    found = &row;
  }
  if (found == nullptr)
    throw BadInput(where +
                   "no step kind (call, type, clear, select, click, check, focus, mouse, "
                   "drop, expect or stage)");
  for (const auto& [key, value] : written.items()) {
    if (key != found->key && !found->keys.contains(key) && !kCommonKeys.contains(key))
      throw BadInput(where + "\"" + key + "\" does not belong in a \"" + std::string(found->key) +
                     "\" step");
  }
  Scenario::Step step{found->kind, number, written, std::nullopt, {}};
  if (written.contains("svg")) {
    if (!written["svg"].is_string() || written["svg"].get<std::string>().empty())
      throw BadInput(where + "\"svg\" must be the path of the picture to write");
    step.svg = written["svg"].get<std::string>();
    if (!staysInside(step.svg))
      throw BadInput(where + "\"svg\" must be a relative path inside the pictures folder, not '" +
                     step.svg + "'");
  }
  if (written.contains("fails")) {
    if (!isInt32(written["fails"]))
      throw BadInput(where + "\"fails\" must be a run-time error number");
    step.fails = written["fails"].get<int32_t>();
  }
  const Json& target = written[std::string(found->key)];
  switch (found->kind) {
    case Scenario::StepKind::Call:
      checkCall(written, where);
      break;
    case Scenario::StepKind::Type:
    case Scenario::StepKind::Drop:
      if (!target.is_string())
        throw BadInput(where + "name the widget as a text");
      if (!written.contains("text") || !written["text"].is_string())
        throw BadInput(where + "\"text\" must give the text");
      break;
    case Scenario::StepKind::Select:
      if (!target.is_string())
        throw BadInput(where + "name the combo box as a text");
      if (written.contains("item") == written.contains("index") ||
          (written.contains("item") && !written["item"].is_string()) ||
          (written.contains("index") && !isInt16(written["index"])))
        throw BadInput(where + "select needs either \"item\" (a text) or \"index\" (a number)");
      break;
    case Scenario::StepKind::Check:
      if (written.contains("value") && !written["value"].is_boolean())
        throw BadInput(where + "\"value\" of a check must be true or false");
      [[fallthrough]];
    case Scenario::StepKind::Clear:
    case Scenario::StepKind::Click:
    case Scenario::StepKind::Focus:
    case Scenario::StepKind::Stage:
      if (!target.is_string())
        throw BadInput(where + "\"" + std::string(found->key) + "\" must be a text");
      break;
    case Scenario::StepKind::Mouse:
      if (!target.is_string() &&
          !(target.is_object() && target.size() == 2 && target.contains("x") &&
            target.contains("y") && target["x"].is_number() && target["y"].is_number()))
        throw BadInput(where + "\"mouse\" must name a widget or give {\"x\": .., \"y\": ..}");
      break;
    case Scenario::StepKind::Expect:
      checkExpect(written, where);
      break;
  }
  return step;
}

}  // namespace

const std::span<const Scenario::Parameter>* Scenario::parametersOf(std::string_view operation) {
  auto found = kOperations.find(operation);
  return found == kOperations.end() ? nullptr : &found->second;
}

Scenario Scenario::parse(const Json& document, const std::string& origin,
                         std::filesystem::path baseDirectory) {
  if (!document.is_object())
    throw BadInput(origin + ": a scenario must be a JSON object with \"steps\"");
  Scenario scenario;
  scenario.origin = origin;
  scenario.baseDirectory = std::move(baseDirectory);
  for (const auto& [key, value] : document.items()) {
    if (key == "description") {
      if (!value.is_string())
        throw BadInput(origin + ": \"description\" must be a text");
      scenario.description = value.get<std::string>();
    } else if (key == "host") {
      if (!value.is_object())
        throw BadInput(origin + ": \"host\" must be an object");
      for (const auto& [option, setting] : value.items()) {
        if (option == "failureAnswer" && isInt32(setting)) {
          scenario.failureAnswer = setting.get<int32_t>();
        } else if (option == "answerChanges" && setting.is_boolean()) {
          scenario.answerChanges = setting.get<bool>();
        } else {
          throw BadInput(origin + ": host option '" + option +
                         "' is unknown or of the wrong kind (failureAnswer: 32-bit whole number, "
                         "answerChanges: true or false)");
        }
      }
    } else if (key != "steps") {
      throw BadInput(origin + ": unknown scenario key '" + key + "'");
    }
  }
  if (!document.contains("steps") || !document["steps"].is_array())
    throw BadInput(origin + ": a scenario needs a list of \"steps\"");
  size_t number = 0;
  for (const auto& written : document["steps"])
    scenario.steps.push_back(checkStep(written, ++number, origin));
  return scenario;
}

Scenario Scenario::fromText(std::string_view text, const std::string& origin,
                            std::filesystem::path baseDirectory) {
  return parse(JsonReader::parse(text, origin), origin, std::move(baseDirectory));
}

Scenario Scenario::load(const std::filesystem::path& path) {
  std::error_code error;
  if (!std::filesystem::is_regular_file(path, error))
    throw BadInput("cannot read scenario '" + path.string() + "'");
  return parse(JsonReader::read(path, "scenario '" + path.string() + "'"), path.string(),
               path.parent_path());
}

}  // namespace kelmora::tools
