#pragma once

#include <memory>
#include <string>
#include <vector>

#include "surface/HostForm.h"
#include "surface/UserControl.h"

namespace kelmora {

// A host's form where no GUI toolkit is at hand (tools, benchmarks,
// tests): its controls.Add creates a control through the control registry,
// places it hidden under the instance name and lists it among the open
// forms; the wrapper's Object is the control. Removing a control, unloading
// the form or destroying it ends the controls with Terminate, the last
// placed first.
class HeadlessHostForm : public HostForm {
 public:
  HeadlessHostForm();
  ~HeadlessHostForm() override;
  HeadlessHostForm(const HeadlessHostForm&) = delete;
  HeadlessHostForm& operator=(const HeadlessHostForm&) = delete;

  std::shared_ptr<HostControls> controls() override;

  // The controls standing on the form, in the order they were placed.
  const std::vector<std::shared_ptr<UserControl>>& placed() const;
  void remove(const std::string& name);
  void unload();

  struct Placed;

 private:
  static void endAndRelease(std::shared_ptr<UserControl>& control);

  std::shared_ptr<Placed> mPlaced;
};

}  // namespace kelmora
