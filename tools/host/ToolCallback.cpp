#include "host/ToolCallback.h"

#include "host/EventSink.h"
#include "host/TextDataObject.h"
#include "surface/TypeName.h"
#include "surface/Widget.h"

namespace kelmora::tools {

Json ToolCallback::describe(const std::shared_ptr<Object>& object) {
  if (!object)
    return nullptr;
  if (auto* widget = dynamic_cast<const Widget*>(object.get())) {
    if (!widget->IsArrayMember())
      return widget->Name();
    return widget->Name() + "(" + std::to_string(widget->Index()) + ")";
  }
  if (auto* data = dynamic_cast<const TextDataObject*>(object.get()))
    return "DataObject(" + Json(data->text()).dump() + ")";
  return kelmora::TypeName(object);
}

void ToolCallback::widgetChangeHandler(bool& isKeyField, int16_t& Index, std::string& value,
                                       std::shared_ptr<Object>& theControl,
                                       std::shared_ptr<Object>& theSecondControl,
                                       std::string& secondaryText, bool suppressShowSubform,
                                       int16_t& toggleSecondIndex) {
  mSink.emit({{"callback", "widgetChangeHandler"},
              {"args",
               {{"isKeyField", isKeyField},
                {"Index", Index},
                {"value", value},
                {"theControl", describe(theControl)},
                {"theSecondControl", describe(theSecondControl)},
                {"secondaryText", secondaryText},
                {"suppressShowSubform", suppressShowSubform},
                {"toggleSecondIndex", toggleSecondIndex}}}});
  Callback::widgetChangeHandler(isKeyField, Index, value, theControl, theSecondControl,
                                secondaryText, suppressShowSubform, toggleSecondIndex);
}

void ToolCallback::answering(int16_t whichType, int16_t Index) {
  mSink.emit({{"host", "ExecuteDependentWidgetToggler"}, {"args", {whichType, Index}}});
}

std::string ToolCallback::CaptionToTitleType(int16_t& whichType, std::string& text) {
  std::string titleType = Callback::CaptionToTitleType(whichType, text);
  mSink.emit({{"callback", "CaptionToTitleType"},
              {"args", {{"whichType", whichType}, {"text", text}}},
              {"returns", titleType}});
  return titleType;
}

std::string ToolCallback::TitleTypeToCaption(int16_t& whichType, std::string& text) {
  std::string caption = Callback::TitleTypeToCaption(whichType, text);
  mSink.emit({{"callback", "TitleTypeToCaption"},
              {"args", {{"whichType", whichType}, {"text", text}}},
              {"returns", caption}});
  return caption;
}

void ToolCallback::OptionButtonChanged(int16_t& whichType, int16_t& Index) {
  mSink.emit({{"callback", "OptionButtonChanged"},
              {"args", {{"whichType", whichType}, {"Index", Index}}}});
}

void ToolCallback::HandleMouseMove(std::shared_ptr<Object>& field, bool& isNewspaperSection) {
  mSink.emit({{"callback", "HandleMouseMove"},
              {"args", {{"field", describe(field)}, {"isNewspaperSection", isNewspaperSection}}}});
}

void ToolCallback::HandleDragDrop(std::shared_ptr<DataObject>& Data) {
  mSink.emit({{"callback", "HandleDragDrop"}, {"args", {{"Data", describe(Data)}}}});
}

void ToolCallback::HideSubform() {
  mSink.emit({{"callback", "HideSubform"}, {"args", Json::object()}});
}

void ToolCallback::ProcessTextField(std::shared_ptr<Object>& field, int16_t& whichType,
                                    bool& alreadyPreprocessed, bool& suppressSubformHiding,
                                    std::string& secondaryText) {
  mSink.emit({{"callback", "ProcessTextField"},
              {"args",
               {{"field", describe(field)},
                {"whichType", whichType},
                {"alreadyPreprocessed", alreadyPreprocessed},
                {"suppressSubformHiding", suppressSubformHiding},
                {"secondaryText", secondaryText}}}});
}

void ToolCallback::HandleDateExit(std::shared_ptr<Object>& field, bool isAccessDate) {
  mSink.emit({{"callback", "HandleDateExit"},
              {"args", {{"field", describe(field)}, {"isAccessDate", isAccessDate}}}});
}

}  // namespace kelmora::tools
