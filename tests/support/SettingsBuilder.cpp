#include "support/SettingsBuilder.h"

#include "platform/RuntimeError.h"

namespace kelmora::testing {

namespace {

class PredicateTemplate : public OutputTemplate {
 public:
  explicit PredicateTemplate(std::function<bool(const std::string&)> isURL)
      : mIsURL(std::move(isURL)) {}
  bool isURL(std::string& text) override { return mIsURL(text); }

 private:
  std::function<bool(const std::string&)> mIsURL;
};

class BuiltSettings : public FormatterSettings {
 public:
  BuiltSettings(SettingsBuilder::Values values, std::set<std::string> missing,
                std::map<int32_t, std::shared_ptr<OutputTemplate>> templates)
      : mValues(std::move(values)),
        mMissing(std::move(missing)),
        mTemplates(std::move(templates)) {}

  int32_t Format() override { return offered("Format", mValues.Format); }
  bool hasPeriodicalPageNumbers() override {
    return offered("hasPeriodicalPageNumbers", mValues.hasPeriodicalPageNumbers);
  }
  std::string tooltipTextJournal() override {
    return offered("tooltipTextJournal", mValues.tooltipTextJournal);
  }
  std::string tooltipTextPeriodical() override {
    return offered("tooltipTextPeriodical", mValues.tooltipTextPeriodical);
  }
  std::string accessDateFormat() override {
    return offered("accessDateFormat", mValues.accessDateFormat);
  }
  bool alwaysEnableAccessDate() override {
    return offered("alwaysEnableAccessDate", mValues.alwaysEnableAccessDate);
  }
  bool WebsiteImpliesDate() override {
    return offered("WebsiteImpliesDate", mValues.WebsiteImpliesDate);
  }
  std::shared_ptr<OutputTemplate> outputTemplates(int32_t index) override {
    offered("outputTemplates", 0);
    auto found = mTemplates.find(index);
    if (found == mTemplates.end())
      throw RuntimeError(kSubscriptOutOfRange);
    return found->second;
  }
  bool esourceShowsAuthorPopup() override {
    return offered("esourceShowsAuthorPopup", mValues.esourceShowsAuthorPopup);
  }
  bool esourceHasTitle() override { return offered("esourceHasTitle", mValues.esourceHasTitle); }
  bool esourceHasTo() override { return offered("esourceHasTo", mValues.esourceHasTo); }
  bool emailListTitleVisible() override {
    return offered("emailListTitleVisible", mValues.emailListTitleVisible);
  }
  bool supportsWebtitle() override { return offered("supportsWebtitle", mValues.supportsWebtitle); }
  bool SupportsURL() override { return offered("SupportsURL", mValues.SupportsURL); }
  bool supportsAccessDate() override {
    return offered("supportsAccessDate", mValues.supportsAccessDate);
  }
  bool supportsSocialMedia() override {
    return offered("supportsSocialMedia", mValues.supportsSocialMedia);
  }
  int32_t DegreeSupport() override { return offered("DegreeSupport", mValues.DegreeSupport); }
  int32_t esourceType() override { return offered("esourceType", mValues.esourceType); }

 private:
  template <typename T>
  T offered(const char* member, const T& value) const {
    if (mMissing.contains(member))
      throw RuntimeError(kMemberNotSupported);
    return value;
  }

  SettingsBuilder::Values mValues;
  std::set<std::string> mMissing;
  std::map<int32_t, std::shared_ptr<OutputTemplate>> mTemplates;
};

}  // namespace

SettingsBuilder& SettingsBuilder::outputTemplate(int32_t index,
                                                 std::function<bool(const std::string&)> isURL) {
  mTemplates[index] = std::move(isURL);
  return *this;
}

SettingsBuilder& SettingsBuilder::without(const std::string& member) {
  mMissing.insert(member);
  return *this;
}

std::shared_ptr<FormatterSettings> SettingsBuilder::build() const {
  std::map<int32_t, std::shared_ptr<OutputTemplate>> templates;
  for (const auto& [index, isURL] : mTemplates) {
    templates[index] = std::make_shared<PredicateTemplate>(isURL);
  }
  return std::make_shared<BuiltSettings>(mValues, mMissing, std::move(templates));
}

}  // namespace kelmora::testing
