#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "diagnostics/CommonFormProcessingFunctions.h"
#include "diagnostics/Dumpable.h"
#include "diagnostics/Procedure.h"
#include "diagnostics/ProcedureName.h"
#include "surface/UserControl.h"

namespace kelmora {

class DataObject;

// What the frames do alike, each traced under the calling frame's own
// procedure name: the frame passes itself and the name it reports.
class FrameForms {
 public:
  // getControls and GetActiveControl of the frame contract.
  static std::shared_ptr<ControlCollection> getControls(const Dumpable* owner,
                                                        const ProcedureName& name,
                                                        const UserControl& frame);
  static std::shared_ptr<Widget> GetActiveControl(const Dumpable* owner, const ProcedureName& name,
                                                  const UserControl& frame);
  // SelectItem of the frame contract: the first entry of ComboBox(Index)
  // that equals str exactly, else entry 0.
  static void SelectItem(const Dumpable* owner, const ProcedureName& name, const UserControl& frame,
                         std::string& str, int16_t& Index);
  // Hands a drop to the container; the host may hand back other data, and
  // the dropper sees what it left.
  static void forwardDrop(const Dumpable* owner, const ProcedureName& name, const Widget& frame,
                          std::shared_ptr<DataObject>& Data);
  // A widget getter: the member of the array that holds a field, checked in
  // name only against the key it is expected to carry.
  template <typename T>
  static std::shared_ptr<T> member(const Dumpable* owner, const ProcedureName& name,
                                   const UserControl& frame, const char* array, int16_t index,
                                   const char* verifyTag) {
    Procedure proc{owner, name};
    return proc.run<std::shared_ptr<T>>([&](std::shared_ptr<T>& result) {
      proc.step([&] {
        result = CommonFormProcessingFunctions::getWidgetWithTag(frame.widget<T>(array, index),
                                                                 verifyTag);
      });
    });
  }
  // The count of a control array.
  static int16_t arrayCount(const UserControl& frame, const char* array);
};

}  // namespace kelmora
