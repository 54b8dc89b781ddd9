#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <string>

#include "diagnostics/Dumpable.h"
#include "model/Model.h"
#include "platform/Object.h"

namespace kelmora {

// The one object a host creates from outside. It owns one Model per
// reference type, built on first demand and kept until Main2 ends; the
// slot of a type is its whichType, so types 2 and 3 have slots but no
// catalogue. Planting a FrameContainer on a host form (BuildFrameContainer)
// comes with FrameContainer itself.
class Main2 : public Object, public Dumpable {
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

  // The model of the type, made and initialised on first demand. Outside 0
  // to 4 fails with 9 and gives nothing. The model is stored before it is
  // initialised, so a model whose initialisation failed stays in its slot.
  std::shared_ptr<kelmora::Model> Model(int16_t whichType);

  void vbwDump() const override;

 private:
  std::array<std::shared_ptr<kelmora::Model>, 5> mModels;
};

}  // namespace kelmora
