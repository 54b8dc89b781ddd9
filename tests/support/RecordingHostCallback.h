#pragma once

#include <functional>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "surface/HostCallback.h"

namespace kelmora::testing {

// A host callback that records each call as one line, arguments in order,
// widgets by name and Index, booleans as True/False:
//   "widgetChangeHandler(True, 3, abc, TextBox(1), Nothing, , False, -1)"
//   "HandleMouseMove(Nothing, False)"   "HideSubform()"
// Members named in `missing` fail with 438, as for a host without them.
class RecordingHostCallback : public HostCallback {
 public:
  std::vector<std::string> calls;
  std::set<std::string> missing;
  // Answers of CaptionToTitleType and TitleTypeToCaption by text; a text not
  // listed comes back as it is.
  std::map<std::string, std::string> titleTypes;
  std::map<std::string, std::string> captions;
  // The second control of each widgetChangeHandler call, as given.
  std::vector<std::shared_ptr<Object>> secondControls;
  // When set, runs inside widgetChangeHandler after the call is recorded,
  // with the second control by reference: a host may replace it, or do
  // anything else a host may do from inside its member.
  std::function<void(std::shared_ptr<Object>& theSecondControl)> onChange;
  // When set, HandleDragDrop puts this in place of the data it was given.
  std::shared_ptr<DataObject> replacementData;

  void widgetChangeHandler(bool& isKeyField, int16_t& Index, std::string& value,
                           std::shared_ptr<Object>& theControl,
                           std::shared_ptr<Object>& theSecondControl, std::string& secondaryText,
                           bool suppressShowSubform, int16_t& toggleSecondIndex) override;
  std::string CaptionToTitleType(int16_t& whichType, std::string& text) override;
  std::string TitleTypeToCaption(int16_t& whichType, std::string& text) override;
  void OptionButtonChanged(int16_t& whichType, int16_t& Index) override;
  void HandleMouseMove(std::shared_ptr<Object>& field, bool& isNewspaperSection) override;
  void HandleDragDrop(std::shared_ptr<DataObject>& Data) override;
  void HideSubform() override;
  void ProcessTextField(std::shared_ptr<Object>& field, int16_t& whichType,
                        bool& alreadyPreprocessed, bool& suppressSubformHiding,
                        std::string& secondaryText) override;
  void HandleDateExit(std::shared_ptr<Object>& field, bool isAccessDate) override;

  // The calls to one member, in order.
  std::vector<std::string> callsTo(const std::string& member) const;

  // How an object shows in a record: a widget by name and Index, anything
  // else by its class, nothing as "Nothing".
  static std::string describe(const std::shared_ptr<Object>& object);

 private:
  void record(const std::string& member, const std::vector<std::string>& arguments);
};

}  // namespace kelmora::testing
