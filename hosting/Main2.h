#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <string>

#include "diagnostics/Dumpable.h"
#include "model/Model.h"
#include "platform/Object.h"

namespace kelmora {

class ControlWrapper;
class HostForm;

// The one object a host creates from outside. It owns one Model per
// reference type, built on first demand and kept until Main2 ends; the
// slot of a type is its whichType, so types 2 and 3 have slots but no
// catalogue. It plants frame containers on host forms; every container it
// builds shares its models. A host makes it with std::make_shared, since a
// container keeps a reference back to it.
class Main2 : public Object, public Dumpable, public std::enable_shared_from_this<Main2> {
 public:
  // Runs the library's start-up routine for this thread first.
  Main2();
  // Releases the models in rising order of type. Like any class end it runs
  // without the guard: there is no caller to hand a failure to.
  ~Main2() override;
  Main2(const Main2&) = delete;
  Main2& operator=(const Main2&) = delete;

  std::string TypeName() const override { return "Main2"; }

  // The citation format of the type changed: its model forgets that its
  // format rules are built, so the container builds them anew. Makes the
  // model if there is none yet.
  void ChangeFormatType(int16_t whichType);
  // Creates a FrameContainer on the host's form under `name`, points it
  // back here, and returns the form's wrapper around it (its Object is the
  // container). Neither shows nor initialises it: that is the host's part.
  std::shared_ptr<ControlWrapper> BuildFrameContainer(const std::shared_ptr<HostForm>& footnoteForm,
                                                      std::string name);

  // The model of the type, made and initialised on first demand. Outside 0
  // to 4 fails with 9 and gives nothing. The model is stored before it is
  // initialised, so a model whose initialisation failed stays in its slot.
  std::shared_ptr<kelmora::Model> Model(int16_t whichType);

  void vbwDump() const override;
  std::shared_ptr<const void> lifeline() const override;

 private:
  std::array<std::shared_ptr<kelmora::Model>, 5> mModels;
};

}  // namespace kelmora
