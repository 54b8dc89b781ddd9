#include "scenario/ScenarioPlayer.h"

#include <cmath>

#include "host/Kit.h"
#include "host/EventSink.h"
#include "host/FieldValues.h"
#include "host/OutputFile.h"
#include "host/TextDataObject.h"
#include "host/ToolCallback.h"
#include "host/ToolHost.h"
#include "hosting/FrameContainer.h"
#include "hosting/Main2.h"
#include "model/Model.h"
#include "platform/RuntimeError.h"
#include "render/SvgRenderer.h"
#include "scenario/WidgetLocator.h"
#include "surface/CheckBox.h"
#include "surface/ComboBox.h"
#include "surface/ControlWrapper.h"
#include "surface/Frame.h"
#include "surface/HeadlessHostForm.h"
#include "surface/Label.h"
#include "surface/OptionButton.h"
#include "surface/TextBox.h"
#include "surface/UserActions.h"

namespace kelmora::tools {

namespace {

std::string where(const Scenario& scenario, const Scenario::Step& step) {
  return scenario.origin + ": step " + std::to_string(step.number) + ": ";
}

// A step's argument as written, or its default.
Json argument(const Scenario::Step& step, std::string_view name) {
  const Json& args = step.written.contains("args") ? step.written["args"] : Json::object();
  if (args.contains(std::string(name)))
    return args[std::string(name)];
  for (const auto& parameter : *Scenario::parametersOf(step.written["call"].get<std::string>())) {
    if (parameter.name == name && parameter.defaultJson)
      return Json::parse(*parameter.defaultJson);
  }
  return nullptr;
}

template <typename T>
T& as(const std::shared_ptr<Widget>& widget, const std::string& ref, const char* what) {
  auto* typed = dynamic_cast<T*>(widget.get());
  if (typed == nullptr)
    throw BadInput("'" + ref + "' is a " + widget->ClassName() + ", not " + what);
  return *typed;
}

// Pixels to two decimals, as a scenario would write them.
double rounded(float value) {
  return std::round(static_cast<double>(value) * 100.0) / 100.0;
}

std::string describe(const std::shared_ptr<Widget>& widget) {
  std::string text = ToolCallback::describe(widget).get<std::string>();
  const std::string key = Record::fieldKey(*widget);
  if (!key.empty() && key != text)
    text += " (" + key + ")";
  return text;
}

}  // namespace

ScenarioPlayer::ScenarioPlayer(ToolHost& host, EventSink& sink,
                               std::filesystem::path pictureDirectory)
    : mHost(host), mSink(sink), mPictureDirectory(std::move(pictureDirectory)) {}

int ScenarioPlayer::play(const Scenario& scenario) {
  for (const auto& step : scenario.steps) {
    try {
      playStep(scenario, step);
    } catch (const BadInput& error) {
      const std::string message = error.what();
      // Messages about widgets and files come without the place.
      if (message.starts_with(scenario.origin))
        throw;
      throw BadInput(where(scenario, step) + message);
    }
    if (!step.svg.empty())
      writePicture(mPictureDirectory / step.svg);
  }
  endStage();
  return mUnmet;
}

void ScenarioPlayer::playStep(const Scenario& scenario, const Scenario::Step& step) {
  if (step.kind == Scenario::StepKind::Stage) {
    endStage();
    ++mStage;
    mStageEnded = false;
    mStageTitle = step.written["stage"].get<std::string>();
    mSink.emit({{"stage", mStageTitle}});
    return;
  }
  if (step.kind == Scenario::StepKind::Expect) {
    expect(step);
    return;
  }
  try {
    if (step.kind == Scenario::StepKind::Call) {
      call(scenario, step);
    } else {
      act(step);
    }
  } catch (const RuntimeError& error) {
    mSink.emit({{"failedCall",
                 {{"step", step.number},
                  {"number", error.Number()},
                  {"description", error.Description()}}}});
    if (step.fails != error.Number())
      ++mUnmet;
    return;
  }
  if (step.fails) {
    unmet(step, {{"property", "fails"}, {"expected", *step.fails}, {"actual", nullptr}});
  }
}

void ScenarioPlayer::endStage() {
  if (mStage == 0 || mStageEnded)
    return;
  mStageEnded = true;
  if (onStageEnd)
    onStageEnd(mStage, mStageTitle);
}

void ScenarioPlayer::writePicture(const std::filesystem::path& path) const {
  std::error_code ignored;
  if (path.has_parent_path())
    std::filesystem::create_directories(path.parent_path(), ignored);
  OutputFile::write(path, SvgRenderer::render(mHost.container(), {}));
}

std::shared_ptr<Widget> ScenarioPlayer::widget(const Scenario::Step&,
                                               const std::string& ref) const {
  return WidgetLocator::find(mHost.container(), ref);
}

std::shared_ptr<FormatterSettings> ScenarioPlayer::settings(const Scenario& scenario,
                                                            const Json& value,
                                                            const std::string& place) const {
  if (value.is_null())
    return nullptr;
  if (value.is_number_integer())
    return FormatSettings::family(value.get<int32_t>());
  if (value.is_string())
    return FormatSettings::load(scenario.baseDirectory / value.get<std::string>());
  return std::make_shared<FormatSettings>(value, place + "formatterSettings");
}

void ScenarioPlayer::call(const Scenario& scenario, const Scenario::Step& step) {
  const std::string name = step.written["call"].get<std::string>();
  const std::string place = where(scenario, step);
  Json shown = Json::array();
  for (const auto& parameter : *Scenario::parametersOf(name))
    shown.push_back(argument(step, parameter.name));
  mSink.emit({{"host", name}, {"args", shown}});

  auto int16 = [&](std::string_view arg) { return argument(step, arg).get<int16_t>(); };
  auto boolean = [&](std::string_view arg) { return argument(step, arg).get<bool>(); };
  auto text = [&](std::string_view arg) { return argument(step, arg).get<std::string>(); };
  auto optionalWidget = [&](std::string_view arg) -> std::shared_ptr<Widget> {
    const Json ref = argument(step, arg);
    return ref.is_null() ? nullptr : widget(step, ref.get<std::string>());
  };
  auto result = [&](Json value) { mSink.emit({{"result", name}, {"value", std::move(value)}}); };

  Main2& main = mHost.main();
  FrameContainer& container = mHost.container();
  if (name == "ChangeFormatType") {
    main.ChangeFormatType(int16("whichType"));
  } else if (name == "BuildFrameContainer") {
    auto wrapper = main.BuildFrameContainer(mHost.formObject(), text("name"));
    result(wrapper ? Json(text("name")) : Json(nullptr));
  } else if (name == "Model") {
    auto model = main.Model(int16("whichType"));
    if (!model) {
      result(nullptr);
    } else {
      result({{"KeyIndex", model->KeyIndex()},
              {"SecondKeyIndex", model->SecondKeyIndex()},
              {"fields", model->keyToInternalIndex()->Keys()}});
    }
  } else if (name == "initialize") {
    container.initialize(mHost.callbackObject());
  } else if (name == "setReferenceListColumnNames") {
    auto columnNames = argument(step, "columnNames").get<std::vector<std::string>>();
    container.setReferenceListColumnNames(int16("whichType"), columnNames);
    result(columnNames);
  } else if (name == "SetVisibleFrame") {
    container.SetVisibleFrame(int16("theModelType"));
  } else if (name == "UpdateFrame") {
    container.UpdateFrame(int16("Index"), boolean("showAllFields"));
  } else if (name == "initializeFormatDependentWidgetToggler") {
    container.initializeFormatDependentWidgetToggler(
        int16("whichType"), settings(scenario, argument(step, "formatterSettings"), place));
  } else if (name == "ToggleFormatDependentWidgets") {
    container.ToggleFormatDependentWidgets(
        int16("whichType"), settings(scenario, argument(step, "formatterSettings"), place));
  } else if (name == "SynchronizeFieldsWithModel") {
    auto values =
        FieldValues::record(main, int16("whichType"), argument(step, "values"), place + "values");
    host::Loading loading(mHost.callback());
    container.SynchronizeFieldsWithModel(int16("whichType"), values);
  } else if (name == "HandleUnsupportedReferenceType") {
    container.HandleUnsupportedReferenceType(int16("whichType"), boolean("supported"));
  } else if (name == "ExecuteDependentWidgetToggler") {
    container.ExecuteDependentWidgetToggler(int16("whichType"), int16("Index"));
  } else if (name == "Reset") {
    host::Loading loading(mHost.callback());
    container.Reset(int16("whichType"), boolean("showAllFields"));
  } else if (name == "SetFocus") {
    container.SetFocus();
  } else if (name == "getControls") {
    auto controls = container.getControls();
    Json names = Json::array();
    if (controls) {
      for (const auto& control : *controls) names.push_back(ToolCallback::describe(control));
    }
    result(names);
  } else if (name == "widgetChangeHandler") {
    container.widgetChangeHandler(widget(step, text("theControl")),
                                  {.theSecondControl = optionalWidget("theSecondControl"),
                                   .suppressShowSubform = boolean("suppressShowSubform"),
                                   .toggleSecondIndex = int16("toggleSecondIndex"),
                                   .value = text("value"),
                                   .secondaryText = text("secondaryText")});
  } else if (name == "CaptionToTitleType") {
    result(container.CaptionToTitleType(int16("whichType"), text("text")));
  } else if (name == "TitleTypeToCaption") {
    result(container.TitleTypeToCaption(int16("whichType"), text("text")));
  } else if (name == "OptionButtonChanged") {
    container.OptionButtonChanged(int16("Index"));
  } else if (name == "HandleMouseMove") {
    container.HandleMouseMove(
        {.field = optionalWidget("field"), .isNewspaperSection = boolean("isNewspaperSection")});
  } else if (name == "HandleDragDrop") {
    std::shared_ptr<DataObject> data = std::make_shared<TextDataObject>(text("Data"));
    container.HandleDragDrop(data);
  } else if (name == "UserFormEnterFocus") {
    container.UserFormEnterFocus(optionalWidget("anyField"));
  } else if (name == "ProcessTextField") {
    container.ProcessTextField(widget(step, text("field")), text("secondaryText"));
  } else if (name == "Terminate") {
    // The host ends the container the way a host does: by taking it off
    // its form.
    mHost.form().remove(ToolHost::kContainerName);
  }
}

void ScenarioPlayer::act(const Scenario::Step& step) {
  const Json& written = step.written;
  auto user = [&](const std::string& sentence) { mSink.emit({{"user", sentence}}); };
  switch (step.kind) {
    case Scenario::StepKind::Type: {
      const std::string ref = written["type"].get<std::string>();
      auto target = widget(step, ref);
      auto& box = as<TextBox>(target, ref, "a text box");
      const std::string typed = written["text"].get<std::string>();
      user("types " + Json(typed).dump() + " into " + describe(target));
      UserActions::typeInto(box, typed);
      break;
    }
    case Scenario::StepKind::Clear: {
      const std::string ref = written["clear"].get<std::string>();
      auto target = widget(step, ref);
      auto& box = as<TextBox>(target, ref, "a text box");
      user("clears " + describe(target));
      UserActions::clear(box);
      break;
    }
    case Scenario::StepKind::Select: {
      const std::string ref = written["select"].get<std::string>();
      auto target = widget(step, ref);
      auto& combo = as<ComboBox>(target, ref, "a combo box");
      if (written.contains("item")) {
        user("selects " + written["item"].dump() + " in " + describe(target));
        UserActions::selectItem(combo, written["item"].get<std::string>());
      } else {
        user("selects entry " + written["index"].dump() + " in " + describe(target));
        UserActions::selectItem(combo, written["index"].get<int16_t>());
      }
      break;
    }
    case Scenario::StepKind::Click:
    case Scenario::StepKind::Check: {
      const bool isCheck = step.kind == Scenario::StepKind::Check;
      const std::string ref = written[isCheck ? "check" : "click"].get<std::string>();
      auto target = widget(step, ref);
      if (!isCheck) {
        if (auto* option = dynamic_cast<OptionButton*>(target.get())) {
          user("clicks " + describe(target));
          UserActions::click(*option);
          break;
        }
      }
      auto& box = as<CheckBox>(target, ref, isCheck ? "a check box" : "an option or check box");
      const bool wanted = written.value("value", box.Value() == CheckBox::kUnchecked);
      if ((box.Value() == CheckBox::kChecked) != wanted) {
        user(std::string(wanted ? "checks " : "unchecks ") + describe(target));
        UserActions::click(box);
      }
      break;
    }
    case Scenario::StepKind::Focus: {
      const std::string ref = written["focus"].get<std::string>();
      if (ref == "away") {
        user("moves the focus away from the form");
        UserActions::focusAway();
        break;
      }
      auto target = widget(step, ref);
      user("moves the focus to " + describe(target));
      UserActions::focus(*target);
      break;
    }
    case Scenario::StepKind::Mouse: {
      const Json& target = written["mouse"];
      if (target.is_string()) {
        auto over = widget(step, target.get<std::string>());
        user("moves the mouse over " + describe(over));
        UserActions::moveMouseOver(*over);
        break;
      }
      auto frame = WidgetLocator::frame(mHost.container(), -1);
      if (!frame)
        throw BadInput("no frame is shown to move the mouse on");
      user("moves the mouse to " + target.dump());
      UserActions::moveMouseAt(*frame, target["x"].get<float>(), target["y"].get<float>());
      break;
    }
    case Scenario::StepKind::Drop: {
      const std::string ref = written["drop"].get<std::string>();
      auto target = widget(step, ref);
      user("drops " + written["text"].dump() + " on " + describe(target));
      UserActions::drop(*target,
                        std::make_shared<TextDataObject>(written["text"].get<std::string>()));
      break;
    }
    case Scenario::StepKind::Call:
    case Scenario::StepKind::Expect:
    case Scenario::StepKind::Stage:
      break;
  }
}

void ScenarioPlayer::unmet(const Scenario::Step& step, Json details) {
  ++mUnmet;
  Json event = {{"step", step.number}};
  for (auto& [key, value] : details.items()) event[key] = value;
  mSink.emit({{"unmet", event}});
}

void ScenarioPlayer::expect(const Scenario::Step& step) {
  const Json& written = step.written;
  const std::string ref = written["expect"].get<std::string>();
  auto target = widget(step, ref);
  auto check = [&](const char* property, const Json& actual) {
    if (written.contains(property) && written[property] != actual)
      unmet(step, {{"widget", ref},
                   {"property", property},
                   {"expected", written[property]},
                   {"actual", actual}});
  };
  check("visible", target->Visible());
  check("showing", target->isShowing());
  check("enabled", target->Enabled());
  check("tooltip", target->ToolTipText());
  if (written.contains("caption")) {
    const std::string* caption = nullptr;
    try {
      caption = &target->caption();
    } catch (const RuntimeError&) {
      throw BadInput("'" + ref + "' is a " + target->ClassName() + ", which has no caption");
    }
    check("caption", *caption);
  }
  if (written.contains("text")) {
    if (auto* box = dynamic_cast<TextBox*>(target.get()))
      check("text", box->Text());
    else if (auto* combo = dynamic_cast<ComboBox*>(target.get()))
      check("text", combo->Text());
    else
      throw BadInput("'" + ref + "' is a " + target->ClassName() + ", which has no text");
  }
  if (written.contains("value")) {
    if (auto* option = dynamic_cast<OptionButton*>(target.get()))
      check("value", option->Value());
    else if (auto* box = dynamic_cast<CheckBox*>(target.get()))
      check("value", box->Value());
    else
      throw BadInput("'" + ref + "' is a " + target->ClassName() + ", which has no value");
  }
  if (written.contains("rect")) {
    const SurfaceRect rect = target->surfaceRect();
    const float actual[] = {rect.left, rect.top, rect.width, rect.height};
    bool same = true;
    for (size_t i = 0; i < 4; ++i)
      same = same && std::fabs(written["rect"][i].get<float>() - actual[i]) < 0.01f;
    if (!same)
      unmet(step,
            {{"widget", ref},
             {"property", "rect"},
             {"expected", written["rect"]},
             {"actual",
              {rounded(actual[0]), rounded(actual[1]), rounded(actual[2]), rounded(actual[3])}}});
  }
}

}  // namespace kelmora::tools
