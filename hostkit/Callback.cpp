#include "hostkit/Callback.h"

#include "hosting/FrameContainer.h"
#include "hostkit/TitleTypeTable.h"
#include "proxy/FrameProxy.h"
#include "surface/DataObject.h"
#include "surface/Widget.h"

namespace kelmora::host {

namespace {

Variant objectValue(const std::shared_ptr<Object>& object) {
  return Variant(object);
}

}  // namespace

void Callback::widgetChangeHandler(bool& isKeyField, int16_t& Index, std::string& value,
                                   std::shared_ptr<Object>& theControl,
                                   std::shared_ptr<Object>& theSecondControl,
                                   std::string& secondaryText, bool suppressShowSubform,
                                   int16_t& toggleSecondIndex) {
  const Argument arguments[] = {{"isKeyField", Variant(isKeyField)},
                                {"Index", Variant(Index)},
                                {"value", Variant(value)},
                                {"theControl", objectValue(theControl)},
                                {"theSecondControl", objectValue(theSecondControl)},
                                {"secondaryText", Variant(secondaryText)},
                                {"suppressShowSubform", Variant(suppressShowSubform)},
                                {"toggleSecondIndex", Variant(toggleSecondIndex)}};
  heard("widgetChangeHandler", arguments, nullptr);
  auto container = mContainer.lock();
  auto* widget = dynamic_cast<const Widget*>(theControl.get());
  if (!mAnswerChanges || mLoading || !container || widget == nullptr || Index < 0)
    return;
  // The changed field's own type: a hidden frame may be loading while
  // another is shown.
  for (int16_t whichType : {int16_t{0}, int16_t{1}, int16_t{4}}) {
    auto proxy = container->existingProxy(whichType);
    if (!proxy || proxy->frame().get() != widget->Parent())
      continue;
    answering(whichType, Index);
    container->ExecuteDependentWidgetToggler(whichType, Index);
    return;
  }
}

std::string Callback::CaptionToTitleType(int16_t& whichType, std::string& text) {
  std::string answer = TitleTypeTable::CaptionToTitleType(whichType, text);
  const Argument arguments[] = {{"whichType", Variant(whichType)}, {"text", Variant(text)}};
  heard("CaptionToTitleType", arguments, &answer);
  return answer;
}

std::string Callback::TitleTypeToCaption(int16_t& whichType, std::string& text) {
  std::string answer = TitleTypeTable::TitleTypeToCaption(whichType, text);
  const Argument arguments[] = {{"whichType", Variant(whichType)}, {"text", Variant(text)}};
  heard("TitleTypeToCaption", arguments, &answer);
  return answer;
}

void Callback::OptionButtonChanged(int16_t& whichType, int16_t& Index) {
  const Argument arguments[] = {{"whichType", Variant(whichType)}, {"Index", Variant(Index)}};
  heard("OptionButtonChanged", arguments, nullptr);
}

void Callback::HandleMouseMove(std::shared_ptr<Object>& field, bool& isNewspaperSection) {
  const Argument arguments[] = {{"field", objectValue(field)},
                                {"isNewspaperSection", Variant(isNewspaperSection)}};
  heard("HandleMouseMove", arguments, nullptr);
}

void Callback::HandleDragDrop(std::shared_ptr<DataObject>& Data) {
  const Argument arguments[] = {{"Data", objectValue(Data)}};
  heard("HandleDragDrop", arguments, nullptr);
}

void Callback::HideSubform() {
  heard("HideSubform", {}, nullptr);
}

void Callback::ProcessTextField(std::shared_ptr<Object>& field, int16_t& whichType,
                                bool& alreadyPreprocessed, bool& suppressSubformHiding,
                                std::string& secondaryText) {
  const Argument arguments[] = {{"field", objectValue(field)},
                                {"whichType", Variant(whichType)},
                                {"alreadyPreprocessed", Variant(alreadyPreprocessed)},
                                {"suppressSubformHiding", Variant(suppressSubformHiding)},
                                {"secondaryText", Variant(secondaryText)}};
  heard("ProcessTextField", arguments, nullptr);
}

void Callback::HandleDateExit(std::shared_ptr<Object>& field, bool isAccessDate) {
  const Argument arguments[] = {{"field", objectValue(field)},
                                {"isAccessDate", Variant(isAccessDate)}};
  heard("HandleDateExit", arguments, nullptr);
}

}  // namespace kelmora::host
