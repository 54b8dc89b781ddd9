#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "diagnostics/Dumpable.h"
#include "platform/Dictionary.h"
#include "platform/Object.h"
#include "toggler/DepWidgetToggler.h"

namespace kelmora {

class FormatterSettings;
class Model;
class ReferenceFrame;
class UserControl;
class Widget;

// The adapter between the frame container, one frame and its model. It
// holds the frame's registry: the frame's widgets in one flat table (the
// overall index is a widget's place in it) and the index tables that tie
// the table to the model's fields. Everything after set-up works through
// the registry; no widget is looked up by name.
//
// Three index spaces meet here: overall (place in mControls), internal
// (place of a field in the model and in the host's `values`), and
// synchronisable (place in the list of widgets that take part in loading).
class FrameProxy : public Object, public Dumpable {
 public:
  FrameProxy() = default;
  // The proxy's end: the frame's Terminate while its widgets still stand,
  // then every reference in a fixed order. Not traced: a destructor has no
  // caller to hand a failure to.
  ~FrameProxy() override;
  FrameProxy(const FrameProxy&) = delete;
  FrameProxy& operator=(const FrameProxy&) = delete;

  std::string TypeName() const override { return "FrameProxy"; }

  void initialize(const std::shared_ptr<Widget>& frame, const std::shared_ptr<Model>& metaData);
  // Ends the proxy now, so that a failure of the frame's Terminate reaches
  // the caller; the destructor then has nothing left to do.
  void classEnd();

  // Loading and reset.
  void SynchronizeFieldsWithModel(std::vector<std::string>& values);
  void Reset(bool showAllFields);

  // A field change on its way to the host: the field's internal index, the
  // value completed from the widget, whether the host should keep its
  // sub-form hidden; the result says whether it is a key field.
  bool widgetChangeHandler(const std::shared_ptr<Widget>& theControl, int16_t& Index,
                           std::string& value, bool& suppressShowForm);

  void HandleUnsupportedReferenceType(bool supported);
  void ExecuteDependentWidgetToggler(int16_t Index);
  void UpdateFrame(int16_t Index, bool showAllFields);
  void ToggleFormatDependentWidgets();
  void initializeFormatDependentWidgetToggler(std::shared_ptr<FormatterSettings> formatterSettings);
  void setReferenceListColumnNames(std::vector<std::string>& columnNames);
  void Show(bool visible);
  void visible(bool value);
  void SetFocus();

  // The registry, for the container and for hosts that inspect it.
  const DepWidgetToggler::Controls& controls() const { return mControls; }
  const std::shared_ptr<Widget>& frame() const { return mFrame; }
  const std::shared_ptr<DepWidgetToggler>& dependentWidgetToggler() const {
    return mDependentWidgetToggler;
  }

  void vbwDump() const override;

  static constexpr const char* kAlternateReferenceTypeInstructions =
      "Use the \"Non-periodicals\" template instead";

 private:
  void initControls(const std::shared_ptr<Object>& controls);
  bool convertToBool(const std::string& value);
  bool isKeyField(std::string_view str);
  ReferenceFrame& frameOperations() const;

  std::shared_ptr<Widget> mFrame;
  // mFrame seen through the frame contract, looked up once with mFrame.
  ReferenceFrame* mFrameOperations = nullptr;
  DepWidgetToggler::Controls mControls;
  std::vector<int16_t> mSynchronizableControlIndices;
  std::shared_ptr<Dictionary> mKeyToInternalIndex;
  std::shared_ptr<Dictionary> mKeyToOverallIndex;
  std::vector<int16_t> mInternalKeyToControlKey;
  std::vector<std::string> mTooltips;
  std::vector<int16_t> mSynchronizableToInternalIndex;
  std::shared_ptr<DepWidgetToggler> mDependentWidgetToggler;
  std::shared_ptr<Widget> mAuthor;
  // True only while SetFocus hands the focus to the frame: a nested call
  // returns at once.
  bool mCallingSetFocus = false;
};

}  // namespace kelmora
