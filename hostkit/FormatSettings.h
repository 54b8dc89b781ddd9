#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>

#include "hostkit/Json.h"

#include "surface/FormatterSettings.h"

namespace kelmora::host {

// A citation format's settings read from JSON: one member per key, named
// exactly as the library reads it. A member the file leaves out fails with
// 438 when read, as it would on a host's format object without it.
// `outputTemplates` is a list; template i answers isURL for texts that
// start with one of its "urlPrefixes". Unknown keys and values of the
// wrong kind are refused when the file is read.
//
//   {"Format": 2, "accessDateFormat": "d mmmm yyyy", "alwaysEnableAccessDate": false}
class FormatSettings : public FormatterSettings {
 public:
  // Checks the members; `origin` names the source in messages.
  FormatSettings(Json members, const std::string& origin);

  // The settings from a file, or from a family shipped with the program.
  static std::shared_ptr<FormatSettings> load(const std::filesystem::path& path);
  static std::shared_ptr<FormatSettings> family(int32_t number);

  const Json& members() const { return mMembers; }

  int32_t Format() override;
  bool hasPeriodicalPageNumbers() override;
  std::string tooltipTextJournal() override;
  std::string tooltipTextPeriodical() override;
  std::string accessDateFormat() override;
  bool alwaysEnableAccessDate() override;
  bool WebsiteImpliesDate() override;
  std::shared_ptr<OutputTemplate> outputTemplates(int32_t index) override;
  bool esourceShowsAuthorPopup() override;
  bool esourceHasTitle() override;
  bool esourceHasTo() override;
  bool emailListTitleVisible() override;
  bool supportsWebtitle() override;
  bool SupportsURL() override;
  bool supportsAccessDate() override;
  bool supportsSocialMedia() override;
  int32_t DegreeSupport() override;
  int32_t esourceType() override;

 private:
  const Json& member(const char* name) const;

  Json mMembers;
};

}  // namespace kelmora::host
