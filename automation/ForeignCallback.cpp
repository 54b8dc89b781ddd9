#include "automation/ForeignCallback.h"

#include "automation/Dispatcher.h"
#include "automation/HostObjects.h"
#include "surface/DataObject.h"

namespace kelmora {

void ForeignCallback::widgetChangeHandler(bool& isKeyField, int16_t& Index, std::string& value,
                                          std::shared_ptr<Object>& theControl,
                                          std::shared_ptr<Object>& theSecondControl,
                                          std::string& secondaryText, bool suppressShowSubform,
                                          int16_t& toggleSecondIndex) {
  std::vector<Variant> arguments{isKeyField,
                                 Index,
                                 value,
                                 HostObjects::unwrapped(theControl),
                                 HostObjects::unwrapped(theSecondControl),
                                 secondaryText,
                                 suppressShowSubform,
                                 toggleSecondIndex};
  method("widgetChangeHandler", arguments);
  isKeyField = arguments[0].toBoolean();
  Index = arguments[1].toInteger();
  value = arguments[2].toString();
  secondaryText = arguments[5].toString();
  toggleSecondIndex = arguments[7].toInteger();
}

std::string ForeignCallback::CaptionToTitleType(int16_t& whichType, std::string& text) {
  std::vector<Variant> arguments{whichType, text};
  auto result = method("CaptionToTitleType", arguments).toString();
  whichType = arguments[0].toInteger();
  text = arguments[1].toString();
  return result;
}

std::string ForeignCallback::TitleTypeToCaption(int16_t& whichType, std::string& text) {
  std::vector<Variant> arguments{whichType, text};
  auto result = method("TitleTypeToCaption", arguments).toString();
  whichType = arguments[0].toInteger();
  text = arguments[1].toString();
  return result;
}

void ForeignCallback::OptionButtonChanged(int16_t& whichType, int16_t& Index) {
  std::vector<Variant> arguments{whichType, Index};
  method("OptionButtonChanged", arguments);
  whichType = arguments[0].toInteger();
  Index = arguments[1].toInteger();
}

void ForeignCallback::HandleMouseMove(std::shared_ptr<Object>& field, bool& isNewspaperSection) {
  std::vector<Variant> arguments{HostObjects::unwrapped(field), isNewspaperSection};
  method("HandleMouseMove", arguments);
  isNewspaperSection = arguments[1].toBoolean();
}

void ForeignCallback::HandleDragDrop(std::shared_ptr<DataObject>& Data) {
  std::vector<Variant> arguments{HostObjects::unwrapped(Data)};
  method("HandleDragDrop", arguments);
  Data = HostObjects::data(Dispatcher::object(arguments[0]));
}

void ForeignCallback::HideSubform() {
  method("HideSubform");
}

void ForeignCallback::ProcessTextField(std::shared_ptr<Object>& field, int16_t& whichType,
                                       bool& alreadyPreprocessed, bool& suppressSubformHiding,
                                       std::string& secondaryText) {
  std::vector<Variant> arguments{HostObjects::unwrapped(field), whichType, alreadyPreprocessed,
                                 suppressSubformHiding, secondaryText};
  method("ProcessTextField", arguments);
  whichType = arguments[1].toInteger();
  alreadyPreprocessed = arguments[2].toBoolean();
  suppressSubformHiding = arguments[3].toBoolean();
  secondaryText = arguments[4].toString();
}

void ForeignCallback::HandleDateExit(std::shared_ptr<Object>& field, bool isAccessDate) {
  method("HandleDateExit", {HostObjects::unwrapped(field), isAccessDate});
}

}  // namespace kelmora
