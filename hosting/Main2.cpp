#include "hosting/Main2.h"

#include "diagnostics/Procedure.h"
#include "diagnostics/VarRef.h"
#include "diagnostics/vbwProtector.h"
#include "hosting/FrameContainer.h"
#include "hosting/LibraryControls.h"
#include "hosting/Startup.h"
#include "platform/Late.h"
#include "platform/RuntimeError.h"
#include "surface/ControlRegistry.h"
#include "surface/ControlWrapper.h"
#include "surface/HostControls.h"
#include "surface/HostForm.h"

namespace kelmora {

namespace {

// The slot of a type. The comparison is unsigned on the sign-extended
// value, so a negative type fails as well instead of wrapping round to a
// valid slot. Every access to the slots goes through here.
std::shared_ptr<Model>& slotOf(std::array<std::shared_ptr<Model>, 5>& models, int16_t whichType) {
  const auto index = static_cast<uint32_t>(static_cast<int32_t>(whichType));
  if (index >= models.size())
    throw RuntimeError(kSubscriptOutOfRange);
  return models[index];
}

}  // namespace

Main2::Main2() {
  Startup::ensureForThisThread();
  LibraryControls::Register();
}

Main2::~Main2() {
  for (size_t i = 0; i < mModels.size(); ++i) mModels[i].reset();
}

void Main2::ChangeFormatType(int16_t whichType) {
  Procedure proc{this, procedureName<"Main2.ChangeFormatType">(), {arg("whichType", whichType)}};
  proc.run([&] {
    proc.step([&] {
      const std::shared_ptr<kelmora::Model> model = Model(whichType);
      if (model == nullptr)
        throw RuntimeError(kObjectNotSet);
      model->initializedToFormat = false;
    });
  });
}

std::shared_ptr<ControlWrapper> Main2::BuildFrameContainer(
    const std::shared_ptr<HostForm>& footnoteForm, std::string name) {
  Procedure proc{this,
                 procedureName<"Main2.BuildFrameContainer">(),
                 {arg("footnoteForm", footnoteForm), arg("name", name)}};
  return proc.run<std::shared_ptr<ControlWrapper>>([&](std::shared_ptr<ControlWrapper>& result) {
    std::shared_ptr<FrameContainer> control;
    proc.local("control", control);
    proc.step([&] {
      result = Late::object(Late::object(footnoteForm).controls())
                   .Add(ControlRegistry::kFrameContainer, name);
    });
    proc.step([&] {
      control = std::dynamic_pointer_cast<FrameContainer>(Late::object(result).Object());
      if (!control)
        throw RuntimeError(kTypeMismatch);
    });
    proc.step([&] {
      auto self = weak_from_this().lock();
      // A Main2 that nobody shares cannot be pointed back to.
      if (!self)
        throw RuntimeError(kObjectNotSet);
      Late::object(control).controller(std::move(self));
    });
  });
}

std::shared_ptr<Model> Main2::Model(int16_t whichType) {
  Procedure proc{this, procedureName<"Main2.model[Get]">(), {arg("whichType", whichType)}};
  return proc.run<std::shared_ptr<kelmora::Model>>([&](std::shared_ptr<kelmora::Model>& result) {
    proc.step([&] {
      std::shared_ptr<kelmora::Model>& slot = slotOf(mModels, whichType);
      if (slot == nullptr) {
        slot = std::make_shared<kelmora::Model>();
        slot->initialize(whichType);
      }
    });
    proc.step([&] { result = slotOf(mModels, whichType); });
  });
}

std::shared_ptr<const void> Main2::lifeline() const {
  return weak_from_this().lock();
}

void Main2::vbwDump() const {
  vbwProtector::dumpModule({arg("mModels", mModels)});
}

}  // namespace kelmora
