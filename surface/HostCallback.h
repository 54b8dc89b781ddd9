#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "platform/Object.h"

namespace kelmora {

class DataObject;

// The host's callback object, handed to the frame container at initialize.
// The library calls it by member; a host implements the members it offers.
// A member it leaves out fails with 438 when called, as a late-bound call on
// an object without that member would, and the calling procedure takes its
// failure path.
//
// Arguments go by reference where the host may change them and the caller
// may look; widgets travel as objects (theSecondControl may be no widget).
// Booleans are C++ bool here; the component boundary turns them into the
// 16-bit -1 and 0.
class HostCallback : public Object {
 public:
  std::string TypeName() const override { return "HostCallback"; }

  virtual void widgetChangeHandler(bool& isKeyField, int16_t& Index, std::string& value,
                                   std::shared_ptr<Object>& theControl,
                                   std::shared_ptr<Object>& theSecondControl,
                                   std::string& secondaryText, bool suppressShowSubform,
                                   int16_t& toggleSecondIndex);
  virtual std::string CaptionToTitleType(int16_t& whichType, std::string& text);
  virtual std::string TitleTypeToCaption(int16_t& whichType, std::string& text);
  virtual void OptionButtonChanged(int16_t& whichType, int16_t& Index);
  virtual void HandleMouseMove(std::shared_ptr<Object>& field, bool& isNewspaperSection);
  // The host may replace Data; the caller sees the replacement.
  virtual void HandleDragDrop(std::shared_ptr<DataObject>& Data);
  virtual void HideSubform();
  virtual void ProcessTextField(std::shared_ptr<Object>& field, int16_t& whichType,
                                bool& alreadyPreprocessed, bool& suppressSubformHiding,
                                std::string& secondaryText);
  virtual void HandleDateExit(std::shared_ptr<Object>& field, bool isAccessDate);
};

}  // namespace kelmora
