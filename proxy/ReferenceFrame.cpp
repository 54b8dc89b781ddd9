#include "proxy/ReferenceFrame.h"

#include "platform/RuntimeError.h"

namespace kelmora {

std::shared_ptr<ControlCollection> ReferenceFrame::getControls() {
  throw RuntimeError(kMemberNotSupported);
}
std::shared_ptr<Widget> ReferenceFrame::GetActiveControl() {
  throw RuntimeError(kMemberNotSupported);
}
void ReferenceFrame::initialize() {
  throw RuntimeError(kMemberNotSupported);
}
void ReferenceFrame::UpdateFrame(int16_t&, bool&) {
  throw RuntimeError(kMemberNotSupported);
}
void ReferenceFrame::setReferenceListColumnNames(std::vector<std::string>&) {
  throw RuntimeError(kMemberNotSupported);
}
void ReferenceFrame::initializeFormatDependentWidgetToggler(std::shared_ptr<FormatterSettings>&,
                                                            std::shared_ptr<DepWidgetToggler>&,
                                                            std::shared_ptr<Dictionary>&) {
  throw RuntimeError(kMemberNotSupported);
}
void ReferenceFrame::ArrangeAllFields() {
  throw RuntimeError(kMemberNotSupported);
}
std::string ReferenceFrame::ComboLabelCaption(int16_t&, std::string&) {
  throw RuntimeError(kMemberNotSupported);
}
void ReferenceFrame::SelectItem(std::string&, int16_t&) {
  throw RuntimeError(kMemberNotSupported);
}
void ReferenceFrame::Terminate() {
  throw RuntimeError(kMemberNotSupported);
}

}  // namespace kelmora
