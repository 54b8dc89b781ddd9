#include "hosting/FrameContainer.h"

#include "diagnostics/CommonFormProcessingFunctions.h"
#include "diagnostics/Procedure.h"
#include "hosting/Main2.h"
#include "platform/FirstFailure.h"
#include "platform/Late.h"
#include "platform/ReleasePool.h"
#include "proxy/FrameProxy.h"
#include "proxy/ReferenceFrame.h"
#include "surface/ControlCollection.h"
#include "surface/DataObject.h"
#include "surface/FormatterSettings.h"
#include "surface/HostCallback.h"

namespace kelmora {

namespace {

// The field category the host gets for a role, in the order the roles are
// tested. "year" and "refersTo" depend on the secondary text as well.
struct RoleCategory {
  const char* role;
  int16_t category;
  bool alreadyPreprocessed;
};

// clang-format off
constexpr RoleCategory kRoleCategories[] = {
    {"author",               0,  false},
    {"esourceAuthor",        0,  false},
    {"esourceDate",          17, false},
    {"edition",              8,  false},
    {"multivol",             10, true},
    {"notes",                -1, true},
    {"online",               13, false},
    {"onlineKey",            13, false},
    {"publisher",            5,  false},
    {"year",                 6,  false},
    {"page",                 7,  false},
    {"refersTo",             12, false},
    {"title",                1,  false},
    {"articletitle",         2,  false},
    {"headingTitle",         3,  false},
    {"v4_keywords",          14, false},
    {"v8_PublicationMedium", 16, false},
};
// clang-format on
static_assert(std::size(kRoleCategories) == 17);

void checkType(int16_t whichType) {
  // Unsigned on the sign-extended value, so that a negative type fails too.
  if (static_cast<uint16_t>(whichType) > 4)
    throw RuntimeError(kSubscriptOutOfRange);
}

}  // namespace

FrameContainer::FrameContainer() {
  Width(kDesignWidth / 15.0f);
  Height(kDesignHeight / 15.0f);
}

FrameContainer::~FrameContainer() = default;

// ---------------------------------------------------------------------------
// Routing from the host

void FrameContainer::initialize(std::shared_ptr<HostCallback> referenceFrameProxy) {
  Procedure proc{this,
                 procedureName<"FrameContainer.initialize">(),
                 {arg("referenceFrameProxy", referenceFrameProxy)}};
  proc.run([&] {
    proc.step([&] { mCallback = referenceFrameProxy; });
    proc.step([&] { mCurrentFrame = 0; });
  });
}

void FrameContainer::setReferenceListColumnNames(int16_t whichType,
                                                 std::vector<std::string>& columnNames) {
  Procedure proc{this,
                 procedureName<"FrameContainer.setReferenceListColumnNames">(),
                 {arg("whichType", whichType)}};
  proc.run([&] {
    proc.step(
        [&] { Late::object(frameControls(whichType)).setReferenceListColumnNames(columnNames); });
  });
}

void FrameContainer::SetVisibleFrame(int16_t theModelType) {
  Procedure proc{
      this, procedureName<"FrameContainer.SetVisibleFrame">(), {arg("theModelType", theModelType)}};
  proc.run([&] {
    proc.step([&] { Late::object(frameControls(mCurrentFrame)).Show(false); });
    proc.step([&] { Late::object(frameControls(theModelType)).Show(true); });
    proc.step([&] { mCurrentFrame = theModelType; });
  });
}

void FrameContainer::UpdateFrame(int16_t Index, bool showAllFields) {
  Procedure proc{this,
                 procedureName<"FrameContainer.UpdateFrame">(),
                 {arg("Index", Index), arg("showAllFields", showAllFields)}};
  proc.run([&] {
    proc.step(
        [&] { Late::object(frameControls(mCurrentFrame)).UpdateFrame(Index, showAllFields); });
  });
}

void FrameContainer::initializeFormatDependentWidgetToggler(
    int16_t whichType, std::shared_ptr<FormatterSettings> formatterSettings) {
  Procedure proc{this,
                 procedureName<"FrameContainer.initializeFormatDependentWidgetToggler">(),
                 {arg("whichType", whichType), arg("formatterSettings", formatterSettings)}};
  proc.run([&] {
    bool initialized = false;
    proc.step([&] {
      initialized = Late::object(Late::object(mController).Model(whichType)).initializedToFormat;
    });
    // The flag sits on the shared model: rules are built once per type and
    // format, for every container of one Main2.
    if (initialized)
      return;
    proc.step([&] {
      Late::object(frameControls(whichType))
          .initializeFormatDependentWidgetToggler(formatterSettings);
    });
    proc.step([&] {
      Late::object(Late::object(mController).Model(whichType)).initializedToFormat = true;
    });
  });
}

void FrameContainer::ToggleFormatDependentWidgets(
    int16_t whichType, std::shared_ptr<FormatterSettings> formatterSettings) {
  Procedure proc{this,
                 procedureName<"FrameContainer.ToggleFormatDependentWidgets">(),
                 {arg("whichType", whichType), arg("formatterSettings", formatterSettings)}};
  proc.run([&] {
    proc.step([&] { initializeFormatDependentWidgetToggler(whichType, formatterSettings); });
    proc.step([&] { Late::object(frameControls(whichType)).ToggleFormatDependentWidgets(); });
  });
}

void FrameContainer::SynchronizeFieldsWithModel(int16_t whichType,
                                                std::vector<std::string>& values) {
  Procedure proc{this,
                 procedureName<"FrameContainer.SynchronizeFieldsWithModel">(),
                 {arg("whichType", whichType)}};
  proc.run([&] {
    proc.step([&] { Late::object(frameControls(whichType)).SynchronizeFieldsWithModel(values); });
  });
}

void FrameContainer::HandleUnsupportedReferenceType(int16_t whichType, bool supported) {
  Procedure proc{this,
                 procedureName<"FrameContainer.HandleUnsupportedReferenceType">(),
                 {arg("whichType", whichType), arg("supported", supported)}};
  proc.run([&] {
    proc.step(
        [&] { Late::object(frameControls(whichType)).HandleUnsupportedReferenceType(supported); });
  });
}

void FrameContainer::ExecuteDependentWidgetToggler(int16_t whichType, int16_t Index) {
  Procedure proc{this,
                 procedureName<"FrameContainer.ExecuteDependentWidgetToggler">(),
                 {arg("whichType", whichType), arg("Index", Index)}};
  proc.run([&] {
    proc.step([&] { Late::object(frameControls(whichType)).ExecuteDependentWidgetToggler(Index); });
  });
}

void FrameContainer::Reset(int16_t whichType, bool showAllFields) {
  Procedure proc{this,
                 procedureName<"FrameContainer.Reset">(),
                 {arg("whichType", whichType), arg("showAllFields", showAllFields)}};
  proc.run(
      [&] { proc.step([&] { Late::object(frameControls(whichType)).Reset(showAllFields); }); });
}

void FrameContainer::SetFocus() {
  Procedure proc{this, procedureName<"FrameContainer.SetFocus">()};
  proc.run([&] { proc.step([&] { Late::object(frameControls(mCurrentFrame)).SetFocus(); }); });
}

std::shared_ptr<ControlCollection> FrameContainer::getControls() {
  Procedure proc{this, procedureName<"FrameContainer.getControls">()};
  return proc.run<std::shared_ptr<ControlCollection>>(
      [&](std::shared_ptr<ControlCollection>& result) {
        // Straight to the frame widget, past the proxy: nothing is made here.
        proc.step([&] {
          result =
              Late::as<ReferenceFrame>(Controls().Item(frameName(mCurrentFrame))).getControls();
        });
      });
}

void FrameContainer::controller(std::shared_ptr<Main2> value) {
  Procedure proc{this, procedureName<"FrameContainer.controller[Let]">()};
  proc.run([&] { proc.step([&] { mController = std::move(value); }); });
}

std::shared_ptr<FrameProxy> FrameContainer::existingProxy(int16_t whichType) const {
  checkType(whichType);
  return mFrames[static_cast<size_t>(whichType)];
}

// ---------------------------------------------------------------------------
// The factory of frames

const std::shared_ptr<FrameProxy>& FrameContainer::frameControls(int16_t whichType) {
  static const std::shared_ptr<FrameProxy> nothing;
  Procedure proc{
      this, procedureName<"FrameContainer.frameControls[Get]">(), {arg("whichType", whichType)}};
  const std::shared_ptr<FrameProxy>* result = &nothing;
  proc.run([&] {
    bool missing = false;
    std::shared_ptr<Widget> ctrl;
    std::string activeXName;
    proc.local("ctrl", ctrl);
    proc.local("activeXName", activeXName);
    proc.step([&] {
      checkType(whichType);
      missing = mFrames[static_cast<size_t>(whichType)] == nullptr;
      // Taken off its form (perhaps by the host, from inside a call that
      // is still running), the container makes no frame any more.
      if (missing && isTerminated())
        throw RuntimeError(kObjectNotSet);
    });
    if (missing) {
      proc.step([&] { activeXName = "Kelmora." + modelName(whichType); });
      proc.step([&] { ctrl = Controls().Add(activeXName, frameName(whichType)); });
      proc.step([&] { Late::object(ctrl).Left(0); });
      proc.step([&] { Late::object(ctrl).Top(0); });
      // Stored before it is initialised: a nested call for the same type
      // finds the half-made proxy and makes no second frame.
      proc.step([&] {
        checkType(whichType);
        mFrames[static_cast<size_t>(whichType)] = std::make_shared<FrameProxy>();
      });
      proc.step([&] {
        auto model = Late::object(mController).Model(whichType);
        checkType(whichType);
        mFrames[static_cast<size_t>(whichType)]->initialize(ctrl, model);
      });
    }
    proc.step([&] {
      checkType(whichType);
      result = &mFrames[static_cast<size_t>(whichType)];
    });
  });
  return *result;
}

std::string FrameContainer::modelName(int16_t whichType) {
  Procedure proc{
      this, procedureName<"FrameContainer.modelName[Get]">(), {arg("whichType", whichType)}};
  return proc.run<std::string>([&](std::string& result) {
    proc.step([&] {
      // Filled on first use; entries 2 and 3 stay empty.
      if (sModelNames[0].toString().empty()) {
        sModelNames[0] = Variant("NonPeriodical");
        sModelNames[1] = Variant("Periodical");
        sModelNames[4] = Variant("Esource");
      }
    });
    proc.step([&] {
      checkType(whichType);
      result = sModelNames[static_cast<size_t>(whichType)].toString();
    });
  });
}

std::string FrameContainer::frameName(int16_t whichType) {
  Procedure proc{
      this, procedureName<"FrameContainer.frameName[Get]">(), {arg("whichType", whichType)}};
  return proc.run<std::string>(
      [&](std::string& result) { proc.step([&] { result = modelName(whichType) + "Frame"; }); });
}

// ---------------------------------------------------------------------------
// Events from the frames

HostCallback& FrameContainer::callback() const {
  return Late::object(mCallback);
}

void FrameContainer::widgetChangeHandler(std::shared_ptr<Widget> theControl, WidgetChange& change) {
  Procedure proc{this,
                 procedureName<"FrameContainer.widgetChangeHandler">(),
                 {arg("theControl", theControl), arg("theSecondControl", change.theSecondControl),
                  arg("suppressShowSubform", change.suppressShowSubform),
                  arg("toggleSecondIndex", change.toggleSecondIndex), arg("value", change.value),
                  arg("secondaryText", change.secondaryText)}};
  proc.run([&] {
    int16_t Index = 0;
    bool isKeyField = false;
    bool forceSuppress = false;
    proc.local("Index", Index);
    proc.local("isKeyField", isKeyField);
    proc.local("forceSuppress", forceSuppress);
    // On the keystroke path nothing is reported: a failing step leaves its
    // locals at 0 or False and the host still hears of the change.
    proc.goOnPastFailures();
    // An empty value is filled from the widget: lend it the container's
    // buffer, so that a keystroke allocates nothing once the buffer has
    // grown. A nested change finds the buffer lent out and uses its own.
    const bool borrowed = change.value.empty();
    if (borrowed)
      change.value.swap(mValueBuffer);
    proc.step([&] { mLastActiveCtrlPtr = activeCtrlPtr(theControl); });
    proc.step([&] {
      isKeyField = Late::object(frameControls(mCurrentFrame))
                       .widgetChangeHandler(theControl, Index, change.value, forceSuppress);
    });
    proc.step([&] {
      std::shared_ptr<Object> control = theControl;
      callback().widgetChangeHandler(
          isKeyField, Index, change.value, control, change.theSecondControl, change.secondaryText,
          change.suppressShowSubform || forceSuppress, change.toggleSecondIndex);
    });
    if (borrowed) {
      mValueBuffer.swap(change.value);
      mValueBuffer.clear();
    }
  });
}

std::uintptr_t FrameContainer::activeCtrlPtr(const std::shared_ptr<Widget>& theControl) {
  Procedure proc{
      this, procedureName<"FrameContainer.activeCtrlPtr">(), {arg("theControl", theControl)}};
  return proc.run<std::uintptr_t>([&](std::uintptr_t& result) {
    proc.goOnPastFailures();
    if (!theControl)
      return;
    // The identity of the frame's active widget, not of theControl.
    proc.step([&] {
      result = reinterpret_cast<std::uintptr_t>(
          Late::as<ReferenceFrame>(theControl->Parent()).GetActiveControl().get());
    });
  });
}

bool FrameContainer::subFormShouldBeHidden(const std::shared_ptr<Widget>& field) {
  Procedure proc{
      this, procedureName<"FrameContainer.subFormShouldBeHidden">(), {arg("field", field)}};
  return proc.run<bool>([&](bool& result) {
    std::uintptr_t ctrlPtr = 0;
    proc.step([&] { ctrlPtr = activeCtrlPtr(field); });
    // True at most once per focus move: asking again changes nothing.
    proc.step([&] {
      if (ctrlPtr != mLastActiveCtrlPtr) {
        result = true;
        mLastActiveCtrlPtr = ctrlPtr;
      }
    });
  });
}

void FrameContainer::UserFormEnterFocus(std::shared_ptr<Widget> anyField) {
  Procedure proc{
      this, procedureName<"FrameContainer.UserFormEnterFocus">(), {arg("anyField", anyField)}};
  proc.run([&] {
    proc.step([&] {
      if (subFormShouldBeHidden(anyField))
        callback().HideSubform();
    });
  });
}

void FrameContainer::ProcessTextField(std::shared_ptr<Widget> field, std::string secondaryText) {
  Procedure proc{this,
                 procedureName<"FrameContainer.ProcessTextField">(),
                 {arg("field", field), arg("secondaryText", secondaryText)}};
  proc.run([&] {
    bool suppressSubformHiding = false;
    std::string str;
    int16_t whichType = -1;
    bool alreadyPreprocessed = false;
    std::shared_ptr<Object> fieldObject = field;
    proc.local("suppressSubformHiding", suppressSubformHiding);
    proc.local("str", str);
    proc.local("whichType", whichType);
    proc.local("alreadyPreprocessed", alreadyPreprocessed);
    proc.step([&] { suppressSubformHiding = !subFormShouldBeHidden(field); });
    proc.step([&] { str = CommonFormProcessingFunctions::GetTag(field, true); });
    proc.step([&] {
      for (const auto& row : kRoleCategories) {
        if (str != row.role)
          continue;
        if (str == "year" && !secondaryText.empty())
          break;
        if (str == "refersTo" && secondaryText != "True")
          break;
        whichType = row.category;
        alreadyPreprocessed = row.alreadyPreprocessed;
        break;
      }
    });
    proc.step([&] {
      // A year with a secondary text is a date: the host gets the date exit
      // only.
      if (str == "year" && !secondaryText.empty()) {
        callback().HandleDateExit(fieldObject, false);
        proc.exitProcedure();
      }
    });
    proc.step([&] {
      callback().ProcessTextField(fieldObject, whichType, alreadyPreprocessed,
                                  suppressSubformHiding, secondaryText);
    });
    proc.step([&] {
      if (str == "accessDate" || str == "publishDate") {
        callback().HandleDateExit(fieldObject, true);
      } else if (str == "date" || str == "esourceDate") {
        callback().HandleDateExit(fieldObject, false);
      }
    });
  });
}

std::string FrameContainer::CaptionToTitleType(int16_t whichType, std::string text) {
  Procedure proc{this,
                 procedureName<"FrameContainer.CaptionToTitleType">(),
                 {arg("whichType", whichType), arg("text", text)}};
  return proc.run<std::string>([&](std::string& result) {
    proc.step([&] { result = callback().CaptionToTitleType(whichType, text); });
  });
}

std::string FrameContainer::TitleTypeToCaption(int16_t whichType, std::string text) {
  Procedure proc{this,
                 procedureName<"FrameContainer.TitleTypeToCaption">(),
                 {arg("whichType", whichType), arg("text", text)}};
  return proc.run<std::string>([&](std::string& result) {
    proc.step([&] { result = callback().TitleTypeToCaption(whichType, text); });
  });
}

void FrameContainer::OptionButtonChanged(int16_t Index) {
  Procedure proc{
      this, procedureName<"FrameContainer.OptionButtonChanged">(), {arg("Index", Index)}};
  proc.run([&] {
    proc.step([&] {
      int16_t whichType = mCurrentFrame;
      callback().OptionButtonChanged(whichType, Index);
    });
  });
}

void FrameContainer::HandleMouseMove(MouseMoveOver over) {
  Procedure proc{this,
                 procedureName<"FrameContainer.HandleMouseMove">(),
                 {arg("field", over.field), arg("isNewspaperSection", over.isNewspaperSection)}};
  proc.run([&] {
    proc.goOnPastFailures();
    proc.step([&] {
      std::shared_ptr<Object> field = over.field;
      callback().HandleMouseMove(field, over.isNewspaperSection);
    });
  });
}

void FrameContainer::HandleDragDrop(std::shared_ptr<DataObject>& Data) {
  Procedure proc{this, procedureName<"FrameContainer.HandleDragDrop">(), {arg("Data", Data)}};
  proc.run([&] {
    proc.step([&] {
      // The host may hand back other data; the dropper sees what it left.
      auto X = Data;
      callback().HandleDragDrop(X);
      Data = std::move(X);
    });
  });
}

void FrameContainer::OLEDragDrop(Widget& source, std::shared_ptr<DataObject>& Data,
                                 const DropArgs&) {
  if (&source != this)
    return;
  Procedure proc{this, procedureName<"FrameContainer.UserControl_OLEDragDrop">()};
  proc.run([&] { proc.step([&] { HandleDragDrop(Data); }); });
}

// ---------------------------------------------------------------------------
// The end

void FrameContainer::Terminate() {
  // No failure path of its own, yet every release must happen: a proxy
  // whose frame was never made (a type without a frame, after an answer to
  // go on) has no widget to remove, and that must not keep the later frames
  // or the host's references alive. The first failure reaches the caller
  // once all is released.
  FirstFailure failure;
  for (int16_t i = 0; i <= 4; ++i) {
    auto& proxy = mFrames[static_cast<size_t>(i)];
    if (!proxy)
      continue;
    failure.attempt([&] { proxy->classEnd(); });
    ReleasePool::release(proxy);
    failure.attempt([&] { Controls().Remove(frameName(i)); });
  }
  // Released once no code of the library runs any more: the host may be
  // ending the control from inside a member that code called.
  ReleasePool::release(mCallback);
  ReleasePool::release(mController);
  failure.attempt([] { vbwProtector::vbwExitThread(false); });
  failure.raise();
}

std::shared_ptr<const void> FrameContainer::lifeline() const {
  return weak_from_this().lock();
}

void FrameContainer::vbwDump() const {
  const Variant lastActive(std::to_string(mLastActiveCtrlPtr));
  vbwProtector::dumpModule({arg("mLastActiveCtrlPtr", lastActive),
                            arg("mCurrentFrame", mCurrentFrame), arg("mCallback", mCallback),
                            arg("mFrames", mFrames), arg("mController", mController)});
}

}  // namespace kelmora
