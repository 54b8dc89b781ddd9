#include "support/RecordingHostCallback.h"

#include "platform/RuntimeError.h"
#include "surface/DataObject.h"
#include "surface/TypeName.h"
#include "surface/Widget.h"

namespace kelmora::testing {

namespace {

std::string yesNo(bool value) {
  return value ? "True" : "False";
}

}  // namespace

std::string RecordingHostCallback::describe(const std::shared_ptr<Object>& object) {
  if (auto* widget = dynamic_cast<const Widget*>(object.get())) {
    if (!widget->IsArrayMember())
      return widget->Name();
    return widget->Name() + "(" + std::to_string(widget->Index()) + ")";
  }
  return kelmora::TypeName(object);
}

void RecordingHostCallback::record(const std::string& member,
                                   const std::vector<std::string>& arguments) {
  if (missing.contains(member))
    throw RuntimeError(kMemberNotSupported);
  std::string line = member + "(";
  for (size_t i = 0; i < arguments.size(); ++i) {
    if (i > 0)
      line += ", ";
    line += arguments[i];
  }
  calls.push_back(line + ")");
}

std::vector<std::string> RecordingHostCallback::callsTo(const std::string& member) const {
  std::vector<std::string> found;
  for (const auto& call : calls) {
    if (call.starts_with(member + "("))
      found.push_back(call);
  }
  return found;
}

void RecordingHostCallback::widgetChangeHandler(
    bool& isKeyField, int16_t& Index, std::string& value, std::shared_ptr<Object>& theControl,
    std::shared_ptr<Object>& theSecondControl, std::string& secondaryText, bool suppressShowSubform,
    int16_t& toggleSecondIndex) {
  secondControls.push_back(theSecondControl);
  record("widgetChangeHandler", {yesNo(isKeyField), std::to_string(Index), value,
                                 describe(theControl), describe(theSecondControl), secondaryText,
                                 yesNo(suppressShowSubform), std::to_string(toggleSecondIndex)});
  if (onChange)
    onChange(theSecondControl);
}

std::string RecordingHostCallback::CaptionToTitleType(int16_t& whichType, std::string& text) {
  record("CaptionToTitleType", {std::to_string(whichType), text});
  auto found = titleTypes.find(text);
  return found != titleTypes.end() ? found->second : text;
}

std::string RecordingHostCallback::TitleTypeToCaption(int16_t& whichType, std::string& text) {
  record("TitleTypeToCaption", {std::to_string(whichType), text});
  auto found = captions.find(text);
  return found != captions.end() ? found->second : text;
}

void RecordingHostCallback::OptionButtonChanged(int16_t& whichType, int16_t& Index) {
  record("OptionButtonChanged", {std::to_string(whichType), std::to_string(Index)});
}

void RecordingHostCallback::HandleMouseMove(std::shared_ptr<Object>& field,
                                            bool& isNewspaperSection) {
  record("HandleMouseMove", {describe(field), yesNo(isNewspaperSection)});
}

void RecordingHostCallback::HandleDragDrop(std::shared_ptr<DataObject>& Data) {
  record("HandleDragDrop", {describe(Data)});
  if (replacementData)
    Data = replacementData;
}

void RecordingHostCallback::HideSubform() {
  record("HideSubform", {});
}

void RecordingHostCallback::ProcessTextField(std::shared_ptr<Object>& field, int16_t& whichType,
                                             bool& alreadyPreprocessed, bool& suppressSubformHiding,
                                             std::string& secondaryText) {
  record("ProcessTextField",
         {describe(field), std::to_string(whichType), yesNo(alreadyPreprocessed),
          yesNo(suppressSubformHiding), secondaryText});
}

void RecordingHostCallback::HandleDateExit(std::shared_ptr<Object>& field, bool isAccessDate) {
  record("HandleDateExit", {describe(field), yesNo(isAccessDate)});
}

}  // namespace kelmora::testing
