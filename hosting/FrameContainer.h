#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "diagnostics/Dumpable.h"
#include "platform/Variant.h"
#include "proxy/FrameParent.h"
#include "surface/UserControl.h"

namespace kelmora {

class ControlCollection;
class DataObject;
class FormatterSettings;
class FrameProxy;
class HostCallback;
class Main2;

// The user control a host plants on its form: it holds up to three frames,
// shows one, and is the only door between the host and them. Calls that
// name a type go to that type's proxy, made with its frame on first demand;
// calls that name none go to the frame shown. The other way, a frame calls
// the eight FrameParent operations, and the container adds what it knows
// (the type shown, the field's role, which widget had the focus) before it
// calls the host's callback.
//
// Sections: routing from the host; events from the frames; the factory of
// frames; the end.
class FrameContainer : public UserControl, public FrameParent, public Dumpable {
 public:
  static constexpr float kDesignWidth = 9285.0f;
  static constexpr float kDesignHeight = 2760.0f;

  FrameContainer();
  ~FrameContainer() override;

  std::string ClassName() const override { return "FrameContainer"; }

  // Routing from the host.
  void initialize(std::shared_ptr<HostCallback> referenceFrameProxy);
  void setReferenceListColumnNames(int16_t whichType, std::vector<std::string>& columnNames);
  void SetVisibleFrame(int16_t theModelType);
  void UpdateFrame(int16_t Index, bool showAllFields);
  void initializeFormatDependentWidgetToggler(int16_t whichType,
                                              std::shared_ptr<FormatterSettings> formatterSettings);
  void ToggleFormatDependentWidgets(int16_t whichType,
                                    std::shared_ptr<FormatterSettings> formatterSettings);
  void SynchronizeFieldsWithModel(int16_t whichType, std::vector<std::string>& values);
  void HandleUnsupportedReferenceType(int16_t whichType, bool supported);
  void ExecuteDependentWidgetToggler(int16_t whichType, int16_t Index);
  void Reset(int16_t whichType, bool showAllFields);
  void SetFocus() override;
  std::shared_ptr<ControlCollection> getControls();

  // Events from the frames.
  using FrameParent::widgetChangeHandler;
  void widgetChangeHandler(std::shared_ptr<Widget> theControl, WidgetChange& change) override;
  std::string CaptionToTitleType(int16_t whichType, std::string text) override;
  std::string TitleTypeToCaption(int16_t whichType, std::string text) override;
  void OptionButtonChanged(int16_t Index) override;
  void HandleMouseMove(MouseMoveOver over = {}) override;
  void HandleDragDrop(std::shared_ptr<DataObject>& Data) override;
  void UserFormEnterFocus(std::shared_ptr<Widget> anyField) override;
  void ProcessTextField(std::shared_ptr<Widget> field, std::string secondaryText = "") override;

  // The service that built this container; only Main2 sets it.
  void controller(std::shared_ptr<Main2> value);

  // The type shown, and the proxy of a type if it exists, for hosts that
  // look without making anything.
  int16_t currentFrame() const { return mCurrentFrame; }
  std::shared_ptr<FrameProxy> existingProxy(int16_t whichType) const;

  // The end of the control: every proxy first, so that each frame's own
  // Terminate still finds its widgets; then each frame widget, the
  // callback, the controller, and this thread's tracing object.
  void Terminate();
  void UserControl_Terminate() override { Terminate(); }

  // A drop on the container's bare surface is handled like one on a field.
  void OLEDragDrop(Widget& source, std::shared_ptr<DataObject>& Data,
                   const DropArgs& args) override;

  void vbwDump() const override;
  std::shared_ptr<const void> lifeline() const override;

 private:
  const std::shared_ptr<FrameProxy>& frameControls(int16_t whichType);
  std::string modelName(int16_t whichType);
  std::string frameName(int16_t whichType);
  std::uintptr_t activeCtrlPtr(const std::shared_ptr<Widget>& theControl);
  bool subFormShouldBeHidden(const std::shared_ptr<Widget>& field);
  HostCallback& callback() const;

  // Identity of the frame widget that last had the focus; compared, never
  // followed. An address rather than the 32 bits of the original handle.
  std::uintptr_t mLastActiveCtrlPtr = 0;
  int16_t mCurrentFrame = 0;
  std::shared_ptr<HostCallback> mCallback;
  std::array<std::shared_ptr<FrameProxy>, 5> mFrames;
  std::shared_ptr<Main2> mController;
  std::array<Variant, 5> sModelNames;
  std::string mValueBuffer;
};

}  // namespace kelmora
