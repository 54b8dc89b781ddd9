#include "surface/HeadlessHostForm.h"

#include "platform/ReleasePool.h"

#include "platform/FirstFailure.h"
#include "platform/RuntimeError.h"
#include "surface/ControlRegistry.h"
#include "surface/MessageBox.h"

namespace kelmora {

// Shared by the form and its controls object, so that neither outlives the
// list it works on.
struct HeadlessHostForm::Placed {
  std::vector<std::shared_ptr<UserControl>> controls;
};

namespace {

class Wrapper : public ControlWrapper {
 public:
  explicit Wrapper(std::shared_ptr<UserControl> control) : mControl(std::move(control)) {}
  std::shared_ptr<::kelmora::Object> Object() override { return mControl; }

 private:
  std::shared_ptr<UserControl> mControl;
};

class Controls : public HostControls {
 public:
  explicit Controls(std::shared_ptr<HeadlessHostForm::Placed> placed)
      : mPlaced(std::move(placed)) {}

  std::shared_ptr<ControlWrapper> Add(const std::string& identifier,
                                      const std::string& name) override {
    for (const auto& control : mPlaced->controls) {
      if (control->Name() == name)
        throw RuntimeError(kKeyAlreadyExists);
    }
    auto control = ControlRegistry::Create(identifier);
    control->Visible(false);
    control->standAlone(name);
    mPlaced->controls.push_back(control);
    return std::make_shared<Wrapper>(control);
  }

 private:
  std::shared_ptr<HeadlessHostForm::Placed> mPlaced;
};

}  // namespace

HeadlessHostForm::HeadlessHostForm() : mPlaced(std::make_shared<Placed>()) {}

HeadlessHostForm::~HeadlessHostForm() {
  // A destructor has nobody to hand a failure to; a host that wants to hear
  // it unloads the form first. It is still shown, not dropped.
  try {
    unload();
  } catch (const RuntimeError& error) {
    MessageBox::MsgBox("Unloading the form failed with " + std::to_string(error.Number()) + ": " +
                       error.Description());
  }
}

std::shared_ptr<HostControls> HeadlessHostForm::controls() {
  return std::make_shared<Controls>(mPlaced);
}

const std::vector<std::shared_ptr<UserControl>>& HeadlessHostForm::placed() const {
  return mPlaced->controls;
}

void HeadlessHostForm::endAndRelease(std::shared_ptr<UserControl>& control) {
  // The host may be taking the control off from inside a member the
  // control's own code called: that code must outlive the removal.
  try {
    control->terminate();
  } catch (const RuntimeError&) {
    ReleasePool::release(control);
    throw;
  }
  ReleasePool::release(control);
}

void HeadlessHostForm::remove(const std::string& name) {
  auto& controls = mPlaced->controls;
  for (auto it = controls.begin(); it != controls.end(); ++it) {
    if ((*it)->Name() != name)
      continue;
    auto control = *it;
    controls.erase(it);
    endAndRelease(control);
    return;
  }
  throw RuntimeError(kInvalidProcedureCall);
}

void HeadlessHostForm::unload() {
  FirstFailure failure;
  while (!mPlaced->controls.empty()) {
    auto control = mPlaced->controls.back();
    mPlaced->controls.pop_back();
    failure.attempt([&] { endAndRelease(control); });
  }
  failure.raise();
}

}  // namespace kelmora
