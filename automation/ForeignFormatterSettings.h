#pragma once

#include "automation/ForeignAdapter.h"
#include "surface/FormatterSettings.h"

namespace kelmora {

// A host's format settings that answer only by name, read member by member
// as property reads.
class ForeignFormatterSettings : public FormatterSettings, public ForeignAdapter {
 public:
  using ForeignAdapter::ForeignAdapter;

  int32_t Format() override { return get("Format").toLong(); }
  bool hasPeriodicalPageNumbers() override { return get("hasPeriodicalPageNumbers").toBoolean(); }
  std::string tooltipTextJournal() override { return get("tooltipTextJournal").toString(); }
  std::string tooltipTextPeriodical() override { return get("tooltipTextPeriodical").toString(); }
  std::string accessDateFormat() override { return get("accessDateFormat").toString(); }
  bool alwaysEnableAccessDate() override { return get("alwaysEnableAccessDate").toBoolean(); }
  bool WebsiteImpliesDate() override { return get("WebsiteImpliesDate").toBoolean(); }
  std::shared_ptr<OutputTemplate> outputTemplates(int32_t index) override;
  bool esourceShowsAuthorPopup() override { return get("esourceShowsAuthorPopup").toBoolean(); }
  bool esourceHasTitle() override { return get("esourceHasTitle").toBoolean(); }
  bool esourceHasTo() override { return get("esourceHasTo").toBoolean(); }
  bool emailListTitleVisible() override { return get("emailListTitleVisible").toBoolean(); }
  bool supportsWebtitle() override { return get("supportsWebtitle").toBoolean(); }
  bool SupportsURL() override { return get("SupportsURL").toBoolean(); }
  bool supportsAccessDate() override { return get("supportsAccessDate").toBoolean(); }
  bool supportsSocialMedia() override { return get("supportsSocialMedia").toBoolean(); }
  int32_t DegreeSupport() override { return get("DegreeSupport").toLong(); }
  int32_t esourceType() override { return get("esourceType").toLong(); }
};

}  // namespace kelmora
