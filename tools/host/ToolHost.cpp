#include "host/ToolHost.h"

#include "diagnostics/BridgeToVB.h"
#include "host/EventSink.h"
#include "host/ToolBridge.h"
#include "host/ToolCallback.h"
#include "host/ToolMessageBox.h"
#include "host/ToolTracingService.h"
#include "hosting/FrameContainer.h"
#include "hosting/Main2.h"
#include "platform/RunningObjectTable.h"
#include "platform/RuntimeError.h"
#include "surface/ControlWrapper.h"
#include "surface/HeadlessHostForm.h"
#include "surface/MessageBox.h"

namespace kelmora::tools {

ToolHost::ToolHost(EventSink& sink, Options options)
    : mSink(sink),
      mTracing(std::make_shared<ToolTracingService>(sink, options.failureAnswer)),
      mCallback(std::make_shared<ToolCallback>(sink)) {
  RunningObjectTable::Register(BridgeToVB::kClassName, std::make_shared<ToolBridge>(mTracing));
  mFormerMessageBox = MessageBox::install(std::make_shared<ToolMessageBox>(sink));
  mMain = std::make_shared<Main2>();
  mForm = std::make_shared<HeadlessHostForm>();
  auto wrapper = mMain->BuildFrameContainer(mForm, kContainerName);
  if (wrapper)
    mContainer = std::dynamic_pointer_cast<FrameContainer>(wrapper->Object());
  if (!mContainer) {
    // The failure itself has been reported through the bridge already.
    mForm->unload();
    mMain.reset();
    RunningObjectTable::Revoke(BridgeToVB::kClassName);
    MessageBox::install(mFormerMessageBox);
    throw RuntimeError(kCannotCreateObject, "the frame container could not be built");
  }
  mCallback->answerFor(mContainer);
  mCallback->answerChanges(options.answerChanges);
  mContainer->Visible(true);
  mContainer->initialize(mCallback);
}

ToolHost::~ToolHost() {
  end();
}

void ToolHost::end() {
  if (mEnded)
    return;
  mEnded = true;
  try {
    mForm->unload();
  } catch (const RuntimeError& error) {
    mSink.emit(
        {{"failedCall",
          {{"operation", "unload"}, {"number", error.Number()}, {"description", error.what()}}}});
  }
  mContainer.reset();
  mMain.reset();
  mForm.reset();
  RunningObjectTable::Revoke(BridgeToVB::kClassName);
  MessageBox::install(mFormerMessageBox);
}

}  // namespace kelmora::tools
