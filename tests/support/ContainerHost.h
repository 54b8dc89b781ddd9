#pragma once

#include <memory>
#include <string>
#include <vector>

#include "hosting/FrameContainer.h"
#include "hosting/Main2.h"
#include "support/RecordingHostCallback.h"
#include "support/RecordingTracingService.h"
#include "surface/ControlWrapper.h"
#include "surface/HeadlessHostForm.h"

namespace kelmora::testing {

// A host as a test plays it: a running tracing bridge, a Main2, a form with
// one frame container built on it, and a recording callback given to the
// container. Members end in reverse order, so the form ends the container
// while the bridge still runs.
struct ContainerHost {
  ScopedBridge bridge;
  std::shared_ptr<Main2> main = std::make_shared<Main2>();
  std::shared_ptr<HeadlessHostForm> form = std::make_shared<HeadlessHostForm>();
  std::shared_ptr<FrameContainer> container = build("Container");
  std::shared_ptr<RecordingHostCallback> callback = std::make_shared<RecordingHostCallback>();

  // Shown and initialised, as a host does after building it.
  ContainerHost() {
    container->Visible(true);
    container->initialize(callback);
  }

  std::shared_ptr<FrameContainer> build(const std::string& name) {
    auto wrapper = main->BuildFrameContainer(form, name);
    return std::dynamic_pointer_cast<FrameContainer>(wrapper->Object());
  }

  std::vector<std::string> failures() const { return bridge.service().failures(); }
};

}  // namespace kelmora::testing
