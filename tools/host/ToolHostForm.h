#pragma once

#include <memory>
#include <string>
#include <vector>

#include "surface/HostForm.h"
#include "surface/UserControl.h"

namespace kelmora::tools {

// The host's form: controls.Add makes a control by registered identifier,
// places it hidden under its instance name and lists it among the open
// forms. Taking a control off or unloading the form ends the controls with
// Terminate, the last placed first.
class ToolHostForm : public HostForm {
 public:
  ToolHostForm();
  ~ToolHostForm() override;
  ToolHostForm(const ToolHostForm&) = delete;
  ToolHostForm& operator=(const ToolHostForm&) = delete;

  std::shared_ptr<HostControls> controls() override;

  const std::vector<std::shared_ptr<UserControl>>& placed() const;
  // Takes the control of that name off the form; false when there is none.
  bool remove(const std::string& name);
  void unload();

  struct Placed;

 private:
  std::shared_ptr<Placed> mPlaced;
};

}  // namespace kelmora::tools
