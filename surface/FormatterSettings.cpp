#include "surface/FormatterSettings.h"

#include "platform/RuntimeError.h"

namespace kelmora {

int32_t FormatterSettings::Format() {
  throw RuntimeError(kMemberNotSupported);
}
bool FormatterSettings::hasPeriodicalPageNumbers() {
  throw RuntimeError(kMemberNotSupported);
}
std::string FormatterSettings::tooltipTextJournal() {
  throw RuntimeError(kMemberNotSupported);
}
std::string FormatterSettings::tooltipTextPeriodical() {
  throw RuntimeError(kMemberNotSupported);
}
std::string FormatterSettings::accessDateFormat() {
  throw RuntimeError(kMemberNotSupported);
}
bool FormatterSettings::alwaysEnableAccessDate() {
  throw RuntimeError(kMemberNotSupported);
}
bool FormatterSettings::WebsiteImpliesDate() {
  throw RuntimeError(kMemberNotSupported);
}
std::shared_ptr<OutputTemplate> FormatterSettings::outputTemplates(int32_t) {
  throw RuntimeError(kMemberNotSupported);
}
bool FormatterSettings::esourceShowsAuthorPopup() {
  throw RuntimeError(kMemberNotSupported);
}
bool FormatterSettings::esourceHasTitle() {
  throw RuntimeError(kMemberNotSupported);
}
bool FormatterSettings::esourceHasTo() {
  throw RuntimeError(kMemberNotSupported);
}
bool FormatterSettings::emailListTitleVisible() {
  throw RuntimeError(kMemberNotSupported);
}
bool FormatterSettings::supportsWebtitle() {
  throw RuntimeError(kMemberNotSupported);
}
bool FormatterSettings::SupportsURL() {
  throw RuntimeError(kMemberNotSupported);
}
bool FormatterSettings::supportsAccessDate() {
  throw RuntimeError(kMemberNotSupported);
}
bool FormatterSettings::supportsSocialMedia() {
  throw RuntimeError(kMemberNotSupported);
}
int32_t FormatterSettings::DegreeSupport() {
  throw RuntimeError(kMemberNotSupported);
}
int32_t FormatterSettings::esourceType() {
  throw RuntimeError(kMemberNotSupported);
}

}  // namespace kelmora
