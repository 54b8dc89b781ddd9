#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace kelmora {

class ControlCollection;
class DepWidgetToggler;
class Dictionary;
class FormatterSettings;
class Widget;

// What a frame offers the library: its ten public operations. The three
// frames share no base class beyond this contract and the user control
// they are (which gives Visible and SetFocus). A frame that leaves an
// operation out fails with 438 when it is called, as a call by name on a
// control without that member would.
//
// Arguments go by reference where the frame may change them and the caller
// looks afterwards.
class ReferenceFrame {
 public:
  // The frame's widget collection, in form table order.
  virtual std::shared_ptr<ControlCollection> getControls();
  virtual std::shared_ptr<Widget> GetActiveControl();
  // Runs once, after the proxy has built its registry.
  virtual void initialize();
  // Selects the option `Index` (none when negative) and stores the show-all
  // flag. The proxy arranges the fields right after.
  virtual void UpdateFrame(int16_t& Index, bool& showAllFields);
  // Resizes and fills the column captions of the host's reference list.
  virtual void setReferenceListColumnNames(std::vector<std::string>& columnNames);
  // Registers the frame's rule rows for the format.
  virtual void initializeFormatDependentWidgetToggler(
      std::shared_ptr<FormatterSettings>& formatterSettings,
      std::shared_ptr<DepWidgetToggler>& dependentWidgetToggler,
      std::shared_ptr<Dictionary>& keyToOverallIndex);
  // Closes the form up around the rows that are hidden.
  virtual void ArrangeAllFields();
  // The caption to show for a stored value in the ComboLabel `Index`.
  virtual std::string ComboLabelCaption(int16_t& Index, std::string& value);
  // Selects the entry of the ComboBox `Index` that matches a stored value.
  virtual void SelectItem(std::string& str, int16_t& Index);
  // The format family the frame read when it last registered its rules, for
  // explaining them; -1 for a frame that keeps none. Not one of the ten
  // operations: it reads a field and calls nothing.
  virtual int32_t formatFamily() const { return -1; }
  // Harmless on a second run: it runs when the proxy ends and again when
  // the toolkit ends the control.
  virtual void Terminate();

 protected:
  ~ReferenceFrame() = default;
};

}  // namespace kelmora
