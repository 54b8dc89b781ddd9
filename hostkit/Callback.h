#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>

#include "platform/Variant.h"
#include "surface/HostCallback.h"

namespace kelmora {
class FrameContainer;
}

namespace kelmora::host {

// A host's callback with all nine members, each of which a host overrides
// on its own. By default it answers as a host must for the form to follow
// the author: a field change with ExecuteDependentWidgetToggler for the
// changed field's type and index, so that the format's rules follow the
// typing; the title lookups through TitleTypeTable; everything else
// quietly. While the host loads a reference itself (`loading`), changes go
// unanswered: the load ends with an evaluation of all rules anyway.
//
// An override that still wants the default answer calls the base member.
// A host that only wants to hear the calls overrides `heard`.
class Callback : public HostCallback {
 public:
  struct Argument {
    const char* name;
    Variant value;
  };

  // The container whose changes are answered; not owned. Host sets it.
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

 protected:
  // Every call of the library on this callback, with its arguments by name
  // as they came and, for the two title lookups, the answer; before the
  // call is answered.
  virtual void heard(std::string_view /*member*/, std::span<const Argument> /*arguments*/,
                     const std::string* /*answer*/) {}
  // Called with the type and field about to be evaluated, before the call.
  virtual void answering(int16_t /*whichType*/, int16_t /*Index*/) {}

 private:
  std::weak_ptr<FrameContainer> mContainer;
  bool mAnswerChanges = true;
  bool mLoading = false;
};

// Keeps a callback `loading` for the length of one scope.
class Loading {
 public:
  explicit Loading(Callback& callback) : mCallback(callback) { mCallback.loading(true); }
  ~Loading() { mCallback.loading(false); }
  Loading(const Loading&) = delete;
  Loading& operator=(const Loading&) = delete;

 private:
  Callback& mCallback;
};

}  // namespace kelmora::host
