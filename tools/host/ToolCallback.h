#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "host/Kit.h"
#include "hostkit/Callback.h"

namespace kelmora::tools {

class EventSink;

// The program's callback: the host kit's, which answers as a host does,
// telling each call to the sink with its arguments and what it returned,
// and each answer it gives the library.
class ToolCallback : public host::Callback {
 public:
  explicit ToolCallback(EventSink& sink) : mSink(sink) {}

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

  // How an object travels in an event: a widget as "Name(Index)" or its
  // name, anything else by its class, nothing as null.
  static Json describe(const std::shared_ptr<Object>& object);

 protected:
  void answering(int16_t whichType, int16_t Index) override;

 private:
  EventSink& mSink;
};

}  // namespace kelmora::tools
