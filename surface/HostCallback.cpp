#include "surface/HostCallback.h"

#include "platform/RuntimeError.h"

namespace kelmora {

void HostCallback::widgetChangeHandler(bool&, int16_t&, std::string&, std::shared_ptr<Object>&,
                                       std::shared_ptr<Object>&, std::string&, bool, int16_t&) {
  throw RuntimeError(kMemberNotSupported);
}

std::string HostCallback::CaptionToTitleType(int16_t&, std::string&) {
  throw RuntimeError(kMemberNotSupported);
}

std::string HostCallback::TitleTypeToCaption(int16_t&, std::string&) {
  throw RuntimeError(kMemberNotSupported);
}

void HostCallback::OptionButtonChanged(int16_t&, int16_t&) {
  throw RuntimeError(kMemberNotSupported);
}

void HostCallback::HandleMouseMove(std::shared_ptr<Object>&, bool&) {
  throw RuntimeError(kMemberNotSupported);
}

void HostCallback::HandleDragDrop(std::shared_ptr<DataObject>&) {
  throw RuntimeError(kMemberNotSupported);
}

void HostCallback::HideSubform() {
  throw RuntimeError(kMemberNotSupported);
}

void HostCallback::ProcessTextField(std::shared_ptr<Object>&, int16_t&, bool&, bool&,
                                    std::string&) {
  throw RuntimeError(kMemberNotSupported);
}

void HostCallback::HandleDateExit(std::shared_ptr<Object>&, bool) {
  throw RuntimeError(kMemberNotSupported);
}

}  // namespace kelmora
