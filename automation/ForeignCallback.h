#pragma once

#include "automation/ForeignAdapter.h"
#include "surface/HostCallback.h"

namespace kelmora {

// A host callback that answers only by name, seen as the library's
// HostCallback. What the host writes into an argument passed by reference
// comes back to the caller.
class ForeignCallback : public HostCallback, public ForeignAdapter {
 public:
  using ForeignAdapter::ForeignAdapter;

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
};

}  // namespace kelmora
