#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <set>
#include <string>

#include "surface/FormatterSettings.h"

namespace kelmora::testing {

// Builds the settings of a citation format for a test. Every member starts
// offered with a zero, False or empty value; `without` takes one away, so
// that reading it fails with 438 as with a host that lacks it. Templates
// answer isURL with the predicate given; an index with no template fails
// with 9.
//
//   auto settings = SettingsBuilder().Format(2).SupportsURL(true).build();
class SettingsBuilder {
 public:
  struct Values {
    int32_t Format = 0;
    bool hasPeriodicalPageNumbers = false;
    std::string tooltipTextJournal;
    std::string tooltipTextPeriodical;
    std::string accessDateFormat;
    bool alwaysEnableAccessDate = false;
    bool WebsiteImpliesDate = false;
    bool esourceShowsAuthorPopup = false;
    bool esourceHasTitle = false;
    bool esourceHasTo = false;
    bool emailListTitleVisible = false;
    bool supportsWebtitle = false;
    bool SupportsURL = false;
    bool supportsAccessDate = false;
    bool supportsSocialMedia = false;
    int32_t DegreeSupport = 0;
    int32_t esourceType = 0;
  };

  SettingsBuilder& Format(int32_t value) { return set(mValues.Format, value); }
  SettingsBuilder& hasPeriodicalPageNumbers(bool value) {
    return set(mValues.hasPeriodicalPageNumbers, value);
  }
  SettingsBuilder& tooltipTextJournal(std::string value) {
    return set(mValues.tooltipTextJournal, std::move(value));
  }
  SettingsBuilder& tooltipTextPeriodical(std::string value) {
    return set(mValues.tooltipTextPeriodical, std::move(value));
  }
  SettingsBuilder& accessDateFormat(std::string value) {
    return set(mValues.accessDateFormat, std::move(value));
  }
  SettingsBuilder& alwaysEnableAccessDate(bool value) {
    return set(mValues.alwaysEnableAccessDate, value);
  }
  SettingsBuilder& WebsiteImpliesDate(bool value) { return set(mValues.WebsiteImpliesDate, value); }
  SettingsBuilder& esourceShowsAuthorPopup(bool value) {
    return set(mValues.esourceShowsAuthorPopup, value);
  }
  SettingsBuilder& esourceHasTitle(bool value) { return set(mValues.esourceHasTitle, value); }
  SettingsBuilder& esourceHasTo(bool value) { return set(mValues.esourceHasTo, value); }
  SettingsBuilder& emailListTitleVisible(bool value) {
    return set(mValues.emailListTitleVisible, value);
  }
  SettingsBuilder& supportsWebtitle(bool value) { return set(mValues.supportsWebtitle, value); }
  SettingsBuilder& SupportsURL(bool value) { return set(mValues.SupportsURL, value); }
  SettingsBuilder& supportsAccessDate(bool value) { return set(mValues.supportsAccessDate, value); }
  SettingsBuilder& supportsSocialMedia(bool value) {
    return set(mValues.supportsSocialMedia, value);
  }
  SettingsBuilder& DegreeSupport(int32_t value) { return set(mValues.DegreeSupport, value); }
  SettingsBuilder& esourceType(int32_t value) { return set(mValues.esourceType, value); }

  SettingsBuilder& outputTemplate(int32_t index, std::function<bool(const std::string&)> isURL);
  // The member, by its name, fails with 438 from now on.
  SettingsBuilder& without(const std::string& member);

  std::shared_ptr<FormatterSettings> build() const;

 private:
  template <typename T, typename V>
  SettingsBuilder& set(T& field, V&& value) {
    field = std::forward<V>(value);
    return *this;
  }

  Values mValues;
  std::set<std::string> mMissing;
  std::map<int32_t, std::function<bool(const std::string&)>> mTemplates;
};

}  // namespace kelmora::testing
