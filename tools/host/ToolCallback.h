#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "host/Json.h"

#include "surface/HostCallback.h"

namespace kelmora {
class FrameContainer;
}

namespace kelmora::tools {

class EventSink;

// The host's callback object: it offers all nine members, tells each call
// to the sink with its arguments, translates title captions through
// TitleTypeTable, and answers a field change as a host does, with
// ExecuteDependentWidgetToggler for the changed field's type and index, so
// that the format's rules follow the author's typing. While the host loads
// a reference itself it leaves the changes that loading causes unanswered:
// the load ends with an evaluation of all rules anyway.
class ToolCallback : public HostCallback {
 public:
  explicit ToolCallback(EventSink& sink) : mSink(sink) {}

  // The container whose changes are answered; not owned.
  void answerFor(std::weak_ptr<FrameContainer> container) { mContainer = std::move(container); }
  void answerChanges(bool value) { mAnswerChanges = value; }
  void loading(bool value) { mLoading = value; }

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

 private:
  void answerChange(const std::shared_ptr<Object>& theControl, int16_t Index);

  EventSink& mSink;
  std::weak_ptr<FrameContainer> mContainer;
  bool mAnswerChanges = true;
  bool mLoading = false;
};

}  // namespace kelmora::tools
