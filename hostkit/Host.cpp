#include "hostkit/Host.h"

#include "diagnostics/BridgeToVB.h"
#include "hosting/FrameContainer.h"
#include "hosting/Main2.h"
#include "hostkit/Callback.h"
#include "hostkit/Tracing.h"
#include "hostkit/TracingBridge.h"
#include "platform/Late.h"
#include "platform/RunningObjectTable.h"
#include "platform/RuntimeError.h"
#include "surface/ControlWrapper.h"
#include "surface/FormatterSettings.h"
#include "surface/HeadlessHostForm.h"
#include "surface/MessageBox.h"

namespace kelmora::host {

Host::Host() : Host(Options{}) {}

Host::Host(Options options)
    : mTracing(options.tracing ? std::move(options.tracing) : std::make_shared<Tracing>()),
      mCallback(options.callback ? std::move(options.callback) : std::make_shared<Callback>()) {
  RunningObjectTable::Register(BridgeToVB::kClassName, std::make_shared<TracingBridge>(mTracing));
  mMain = std::make_shared<Main2>();
  mForm = std::make_shared<HeadlessHostForm>();
  auto wrapper = mMain->BuildFrameContainer(mForm, options.containerName);
  if (wrapper)
    mContainer = std::dynamic_pointer_cast<FrameContainer>(wrapper->Object());
  if (!mContainer) {
    // The failure itself has been reported through the bridge already.
    mForm->unload();
    mMain.reset();
    RunningObjectTable::Revoke(BridgeToVB::kClassName);
    throw RuntimeError(kCannotCreateObject, "the frame container could not be built");
  }
  mCallback->answerFor(mContainer);
  mContainer->Visible(true);
  mContainer->initialize(mCallback);
}

Host::~Host() {
  try {
    end();
  } catch (const RuntimeError& error) {
    // A destructor has nobody to hand the failure to: it is shown instead.
    // A host that wants to hear it calls end() first.
    MessageBox::MsgBox("Ending the host failed with " + std::to_string(error.Number()) + ": " +
                       error.Description());
  }
}

void Host::show(int16_t whichType) {
  Late::object(mContainer).SetVisibleFrame(whichType);
  mShown = whichType;
}

void Host::applyFormat(std::shared_ptr<FormatterSettings> settings) {
  Late::object(mMain).ChangeFormatType(mShown);
  Late::object(mContainer).ToggleFormatDependentWidgets(mShown, std::move(settings));
}

Record Host::newRecord(std::optional<int16_t> whichType) {
  return Record::newReference(Late::object(mMain), whichType.value_or(mShown));
}

void Host::load(Record& record, int16_t option, bool showAllFields) {
  {
    const Loading loading(*mCallback);
    Late::object(mContainer).SynchronizeFieldsWithModel(record.whichType(), record.values());
  }
  mLoaded = record;
  if (record.whichType() == mShown)
    Late::object(mContainer).UpdateFrame(option, showAllFields);
}

Record Host::read() {
  Record base = mLoaded && mLoaded->whichType() == mShown ? *mLoaded : newRecord(mShown);
  return Record::fromWidgets(Late::object(mContainer), mShown, std::move(base));
}

void Host::end() {
  if (mEnded)
    return;
  mEnded = true;
  std::optional<RuntimeError> failure;
  try {
    mForm->unload();
  } catch (const RuntimeError& error) {
    failure = error;
  }
  mContainer.reset();
  mMain.reset();
  mForm.reset();
  RunningObjectTable::Revoke(BridgeToVB::kClassName);
  if (failure)
    throw *failure;
}

}  // namespace kelmora::host
