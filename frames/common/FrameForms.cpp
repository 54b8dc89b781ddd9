#include "frames/common/FrameForms.h"

#include "proxy/FrameParent.h"
#include "surface/ComboBox.h"
#include "surface/ControlCollection.h"
#include "surface/DataObject.h"

namespace kelmora {

void FrameForms::SelectItem(const Dumpable* owner, const ProcedureName& name,
                            const UserControl& frame, std::string& str, int16_t& Index) {
  Procedure proc{owner, name, {arg("str", str), arg("Index", Index)}};
  proc.run([&] {
    int16_t i = 0;
    int16_t count = 0;
    proc.local("i", i);
    proc.step([&] { count = frame.widget<ComboBox>("ComboBox", Index)->ListCount(); });
    for (i = 0; i <= count - 1 && !proc.exited(); ++i) {
      proc.step([&] {
        auto list = frame.widget<ComboBox>("ComboBox", Index);
        if (list->List(i) == str) {
          list->ListIndex(i);
          proc.exitAfterStatement();
        }
      });
    }
    proc.step([&] { frame.widget<ComboBox>("ComboBox", Index)->ListIndex(0); });
  });
}

void FrameForms::forwardDrop(const Dumpable* owner, const ProcedureName& name, const Widget& frame,
                             std::shared_ptr<DataObject>& Data) {
  Procedure proc{owner, name, {arg("Data", Data)}};
  proc.run([&] {
    std::shared_ptr<DataObject> reference;
    proc.local("reference", reference);
    proc.step([&] { reference = Data; });
    proc.step([&] { FrameParent::of(frame).HandleDragDrop(reference); });
    proc.step([&] { Data = reference; });
  });
}

std::shared_ptr<ControlCollection> FrameForms::getControls(const Dumpable* owner,
                                                           const ProcedureName& name,
                                                           const UserControl& frame) {
  Procedure proc{owner, name};
  return proc.run<std::shared_ptr<ControlCollection>>(
      [&](std::shared_ptr<ControlCollection>& result) {
        proc.step([&] { result = frame.ControlsObject(); });
      });
}

std::shared_ptr<Widget> FrameForms::GetActiveControl(const Dumpable* owner,
                                                     const ProcedureName& name,
                                                     const UserControl& frame) {
  Procedure proc{owner, name};
  return proc.run<std::shared_ptr<Widget>>(
      [&](std::shared_ptr<Widget>& result) { proc.step([&] { result = frame.ActiveControl(); }); });
}

int16_t FrameForms::arrayCount(const UserControl& frame, const char* array) {
  return static_cast<int16_t>(frame.Controls().members(array).size());
}

}  // namespace kelmora
