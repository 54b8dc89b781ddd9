#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "platform/Object.h"
#include "surface/OutputTemplate.h"

namespace kelmora {

// The host's read-only view of the citation format in force. Each frame
// reads the members it needs while a format is applied; a member the host
// does not offer fails with 438, and the reading procedure takes its
// failure path.
class FormatterSettings : public Object {
 public:
  std::string TypeName() const override { return "FormatterSettings"; }

  // The format family, 0 to 3.
  virtual int32_t Format();
  virtual bool hasPeriodicalPageNumbers();
  virtual std::string tooltipTextJournal();
  virtual std::string tooltipTextPeriodical();
  // Only tested for being non-empty.
  virtual std::string accessDateFormat();
  virtual bool alwaysEnableAccessDate();
  virtual bool WebsiteImpliesDate();
  virtual std::shared_ptr<OutputTemplate> outputTemplates(int32_t index);
  virtual bool esourceShowsAuthorPopup();
  virtual bool esourceHasTitle();
  virtual bool esourceHasTo();
  virtual bool emailListTitleVisible();
  virtual bool supportsWebtitle();
  virtual bool SupportsURL();
  virtual bool supportsAccessDate();
  virtual bool supportsSocialMedia();
  virtual int32_t DegreeSupport();
  virtual int32_t esourceType();
};

}  // namespace kelmora
