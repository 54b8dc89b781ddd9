#include "support/TestFrame.h"

#include "hosting/LibraryControls.h"
#include "model/EsourceCatalogue.h"
#include "model/NonPeriodicalCatalogue.h"
#include "model/PeriodicalCatalogue.h"
#include "proxy/FrameParent.h"
#include "surface/CheckBox.h"
#include "surface/ComboBox.h"
#include "surface/ControlRegistry.h"
#include "surface/Frame.h"
#include "surface/Label.h"
#include "surface/OptionButton.h"
#include "surface/TextBox.h"
#include "toggler/DepWidgetToggler.h"

namespace kelmora::testing {

namespace {

WidgetClass classOf(const std::string& key) {
  if (key.find("Deprecated") != std::string::npos) {
    return key.find("Option") != std::string::npos ? WidgetClass::OptionButton
                                                   : WidgetClass::CheckBox;
  }
  if (key.ends_with("Option"))
    return WidgetClass::OptionButton;
  if (key.ends_with("ComboLabel") || key.ends_with("Label") || key.starts_with("Label") ||
      key == "AccessDateHack") {
    return WidgetClass::Label;
  }
  if (key == "EsourceType" || key == "EsourceDegree")
    return WidgetClass::ComboBox;
  return WidgetClass::TextBox;
}

std::string arrayName(WidgetClass widgetClass, const std::string& key) {
  switch (widgetClass) {
    case WidgetClass::TextBox:
      return "TextBox";
    case WidgetClass::ComboBox:
      return "ComboBox";
    case WidgetClass::OptionButton:
      return "OptionButton";
    case WidgetClass::CheckBox:
      return "CheckBox";
    case WidgetClass::Label:
      return key.ends_with("ComboLabel") ? "ComboLabel" : key;
    case WidgetClass::Frame:
      return key;
  }
  return key;
}

std::string yesNo(bool value) {
  return value ? "True" : "False";
}

}  // namespace

std::vector<std::string>& TestFrame::log() {
  thread_local std::vector<std::string> entries;
  return entries;
}

std::vector<std::pair<std::string, std::string>>& TestFrame::rules() {
  thread_local std::vector<std::pair<std::string, std::string>> rows;
  return rows;
}

void TestFrame::registerForAllTypes() {
  // The library registers its own controls once per process, on the first
  // Main2; doing that first keeps it from replacing the test frames later.
  LibraryControls::Register();
  ControlRegistry::Register(ControlRegistry::kNonPeriodical, []() -> std::shared_ptr<UserControl> {
    return std::make_shared<TestFrame>(NonPeriodicalCatalogue::kCatalogue);
  });
  ControlRegistry::Register(ControlRegistry::kPeriodical, []() -> std::shared_ptr<UserControl> {
    return std::make_shared<TestFrame>(PeriodicalCatalogue::kCatalogue);
  });
  ControlRegistry::Register(ControlRegistry::kEsource, []() -> std::shared_ptr<UserControl> {
    return std::make_shared<TestFrame>(EsourceCatalogue::kCatalogue);
  });
}

TestFrame::TestFrame(const Catalogue& catalogue,
                     const std::map<std::string, WidgetClass>& classes) {
  std::map<std::string, int16_t> nextIndex;
  for (const auto& row : catalogue.keyToOverallIndex) {
    const std::string key(row.key);
    auto found = classes.find(key);
    const WidgetClass widgetClass = found != classes.end() ? found->second : classOf(key);
    const std::string name = arrayName(widgetClass, key);
    const bool isArray = name != key;
    const int16_t index = isArray ? nextIndex[name]++ : Widget::kNoIndex;
    std::shared_ptr<Widget> widget;
    switch (widgetClass) {
      case WidgetClass::TextBox:
        widget = add<TextBox>(name, index);
        break;
      case WidgetClass::ComboBox: {
        auto combo = add<ComboBox>(name, index);
        for (const char* item : {"", "Blog", "Forum"}) combo->AddItem(item);
        widget = combo;
        break;
      }
      case WidgetClass::OptionButton:
        widget = add<OptionButton>(name, index);
        break;
      case WidgetClass::CheckBox:
        widget = add<CheckBox>(name, index);
        break;
      case WidgetClass::Label:
        widget = add<Label>(name, index);
        break;
      case WidgetClass::Frame:
        widget = add<Frame>(name, index);
        break;
    }
    widget->Tag(key);
    mByKey[key] = widget;
  }
  add<TextBox>("Helper")->Tag("vIgnore_Helper");
}

std::shared_ptr<Widget> TestFrame::byKey(const std::string& key) const {
  return mByKey.at(key);
}

std::shared_ptr<ControlCollection> TestFrame::getControls() {
  return ControlsObject();
}

std::shared_ptr<Widget> TestFrame::GetActiveControl() {
  return ActiveControl();
}

void TestFrame::initialize() {
  log().push_back(Name() + ".initialize");
}

void TestFrame::UpdateFrame(int16_t& Index, bool& showAllFields) {
  log().push_back(Name() + ".UpdateFrame(" + std::to_string(Index) + ", " + yesNo(showAllFields) +
                  ")");
}

void TestFrame::setReferenceListColumnNames(std::vector<std::string>& columnNames) {
  columnNames = {"Title", "Author", "Date", "Location"};
}

void TestFrame::initializeFormatDependentWidgetToggler(
    std::shared_ptr<FormatterSettings>&, std::shared_ptr<DepWidgetToggler>& dependentWidgetToggler,
    std::shared_ptr<Dictionary>& keyToOverallIndex) {
  log().push_back(Name() + ".initializeFormatDependentWidgetToggler");
  for (const auto& [enableKey, dependentWidgets] : rules()) {
    dependentWidgetToggler->Add(*keyToOverallIndex, enableKey, dependentWidgets,
                                {.toggleByHiding = true});
  }
}

void TestFrame::ArrangeAllFields() {
  log().push_back(Name() + ".ArrangeAllFields");
}

std::string TestFrame::ComboLabelCaption(int16_t& Index, std::string& value) {
  log().push_back(Name() + ".ComboLabelCaption(" + std::to_string(Index) + ", " + value + ")");
  return "caption of " + value;
}

void TestFrame::SelectItem(std::string& str, int16_t& Index) {
  log().push_back(Name() + ".SelectItem(" + str + ", " + std::to_string(Index) + ")");
}

void TestFrame::Terminate() {
  log().push_back(Name() + ".Terminate with " + std::to_string(Controls().Count()) + " widgets");
}

void TestFrame::Change(Widget& source) {
  FrameParent::of(*this).widgetChangeHandler(source.shared_from_this());
}

void TestFrame::Click(Widget& source) {
  if (source.Name() == "OptionButton")
    FrameParent::of(*this).OptionButtonChanged(source.Index());
  FrameParent::of(*this).widgetChangeHandler(source.shared_from_this());
}

void TestFrame::LostFocus(Widget& source) {
  if (!ActiveControl())
    return;
  FrameParent::of(*this).ProcessTextField(source.shared_from_this());
}

void TestFrame::MouseMove(Widget& source, const MouseArgs&) {
  if (&source == this || source.ClassName() == "Frame") {
    FrameParent::of(*this).HandleMouseMove();
  } else {
    FrameParent::of(*this).HandleMouseMove({.field = source.shared_from_this()});
  }
}

void TestFrame::OLEDragDrop(Widget&, std::shared_ptr<DataObject>& Data, const DropArgs&) {
  auto data = Data;
  FrameParent::of(*this).HandleDragDrop(data);
  Data = data;
}

void TestFrame::UserControl_EnterFocus() {
  FrameParent::of(*this).UserFormEnterFocus(ActiveControl());
}

}  // namespace kelmora::testing
