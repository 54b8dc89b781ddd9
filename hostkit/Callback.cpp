#include "hostkit/Callback.h"

#include "hosting/FrameContainer.h"
#include "hostkit/TitleTypeTable.h"
#include "proxy/FrameProxy.h"
#include "surface/Widget.h"

namespace kelmora::host {

void Callback::widgetChangeHandler(bool&, int16_t& Index, std::string&,
                                   std::shared_ptr<Object>& theControl, std::shared_ptr<Object>&,
                                   std::string&, bool, int16_t&) {
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
  return TitleTypeTable::CaptionToTitleType(whichType, text);
}

std::string Callback::TitleTypeToCaption(int16_t& whichType, std::string& text) {
  return TitleTypeTable::TitleTypeToCaption(whichType, text);
}

void Callback::OptionButtonChanged(int16_t&, int16_t&) {}

void Callback::HandleMouseMove(std::shared_ptr<Object>&, bool&) {}

void Callback::HandleDragDrop(std::shared_ptr<DataObject>&) {}

void Callback::HideSubform() {}

void Callback::ProcessTextField(std::shared_ptr<Object>&, int16_t&, bool&, bool&, std::string&) {}

void Callback::HandleDateExit(std::shared_ptr<Object>&, bool) {}

}  // namespace kelmora::host
