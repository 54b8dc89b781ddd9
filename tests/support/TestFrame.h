#pragma once

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "model/Catalogue.h"
#include "proxy/ReferenceFrame.h"
#include "surface/FormRow.h"
#include "surface/UserControl.h"

namespace kelmora::testing {

// A frame for tests that honours the whole frame contract. Its widgets are
// made from a catalogue's key table, one per overall index and tagged with
// the key, so that a real Model's tables fit it; a last "vIgnore_" widget
// stays out of the registry. Classes follow the keys: "...Option" are
// option buttons, "...ComboLabel" combo labels, "...Label" and captions
// plain labels, check boxes and combo boxes where the key says so, the rest
// text boxes. `classes` overrides the class of a key.
//
// Every contract operation is written to log() as it runs; events go to
// the Parent the way the real frames send them.
class TestFrame : public UserControl, public ReferenceFrame {
 public:
  explicit TestFrame(const Catalogue& catalogue,
                     const std::map<std::string, WidgetClass>& classes = {});

  std::string ClassName() const override { return "TestFrame"; }

  // What the frames did, oldest first, for all frames of this thread.
  static std::vector<std::string>& log();
  // The rule rows initializeFormatDependentWidgetToggler registers, as
  // {enableKey, dependentWidgets}, for all frames of this thread.
  static std::vector<std::pair<std::string, std::string>>& rules();
  // Registers frames made from the three real catalogues under the
  // library's identifiers of the three frames, in place of the real ones.
  static void registerForAllTypes();

  // The widget registered under `key`.
  std::shared_ptr<Widget> byKey(const std::string& key) const;

  std::shared_ptr<ControlCollection> getControls() override;
  std::shared_ptr<Widget> GetActiveControl() override;
  void initialize() override;
  void UpdateFrame(int16_t& Index, bool& showAllFields) override;
  void setReferenceListColumnNames(std::vector<std::string>& columnNames) override;
  void initializeFormatDependentWidgetToggler(
      std::shared_ptr<FormatterSettings>& formatterSettings,
      std::shared_ptr<DepWidgetToggler>& dependentWidgetToggler,
      std::shared_ptr<Dictionary>& keyToOverallIndex) override;
  void ArrangeAllFields() override;
  std::string ComboLabelCaption(int16_t& Index, std::string& value) override;
  void SelectItem(std::string& str, int16_t& Index) override;
  void Terminate() override;

  void Change(Widget& source) override;
  void Click(Widget& source) override;
  void LostFocus(Widget& source) override;
  void MouseMove(Widget& source, const MouseArgs& args) override;
  void OLEDragDrop(Widget& source, std::shared_ptr<DataObject>& Data,
                   const DropArgs& args) override;
  void UserControl_EnterFocus() override;
  void UserControl_Terminate() override { Terminate(); }

 private:
  std::map<std::string, std::shared_ptr<Widget>> mByKey;
};

}  // namespace kelmora::testing
