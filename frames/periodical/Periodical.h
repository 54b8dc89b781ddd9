#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "diagnostics/Dumpable.h"
#include "diagnostics/ProcedureName.h"
#include "proxy/ReferenceFrame.h"
#include "surface/UserControl.h"

namespace kelmora {

class ComboBox;
class Frame;
class Label;
class OptionButton;
class TextBox;

// The frame of journal, magazine and newspaper articles. The basic fields
// stand on the form at the left; the further fields stand in
// AdvancedFieldsFrame at the right, shown only when the host asks for all
// fields, and close up around the rows that are hidden.
//
// The type is chosen by three hidden option buttons that the host selects
// through UpdateFrame; the format family (mFormat, 0 to 3) comes with the
// format's settings. Together they decide which rows, captions and list
// entries show. The one list, JournalComboBox, has no value of its own: it
// writes the captions of two stored labels and is rebuilt from them.
//
// Sections of the source: the form and the public operations; type options
// and the journal list; field events; layout; format rules.
class Periodical : public UserControl, public ReferenceFrame, public Dumpable {
 public:
  Periodical();
  ~Periodical() override;

  std::string ClassName() const override { return "Periodical"; }

  // The frame contract, in the order of its slots.
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
  int32_t formatFamily() const override { return mFormat; }
  void Terminate() override;

  // Widget events, told apart by the source's name and Index.
  void Change(Widget& source) override;
  void Click(Widget& source) override;
  void LostFocus(Widget& source) override;
  void MouseMove(Widget& source, const MouseArgs& args) override;
  void OLEDragDrop(Widget& source, std::shared_ptr<DataObject>& Data,
                   const DropArgs& args) override;
  void UserControl_EnterFocus() override;
  void UserControl_Terminate() override;

  void vbwDump() const override;

 private:
  // The first row of AdvancedFieldsFrame that moves; rows are numbered by
  // the TextBox index of their field, and the Online row above is fixed.
  static constexpr int16_t kFirstMovingRow = 9;

  // Type options and the journal list.
  int16_t OptionButtonSelectedIndex();
  std::string PeriodicalType(int16_t& selectedIndex);
  void TogglePeriodicalOptionWidgets(int16_t selectedIndex);
  void JournalFrameVisible(bool visible);
  std::string JournalItem();
  void JournalItem(std::string& value);
  void SetComboBoxToOneItem(const std::shared_ptr<kelmora::ComboBox>& ComboBox,
                            const std::string& item);
  std::string RemoveAllComboBoxEntries(const std::shared_ptr<kelmora::ComboBox>& ComboBox);
  void ComboBox_Click(int16_t Index);
  void OptionButton_Click(int16_t Index);

  // Field events.
  void TextBox_Change(int16_t Index);
  void TextBox_LostFocus(int16_t Index);
  void TextBox_MouseMove(int16_t Index);
  void ComboLabel_Change(int16_t Index);
  void AccessDateHack_MouseMove();
  void UserControl_MouseMove();
  void UserControl_OLEDragDrop(std::shared_ptr<DataObject>& Data);
  void AdvancedFieldsFrame_OLEDragDrop(std::shared_ptr<DataObject>& Data);
  void JournalFrame_OLEDragDrop(std::shared_ptr<DataObject>& Data);
  void AdvancedFieldsFrame_MouseMove();
  void JournalFrame_MouseMove();
  void OptionButton_MouseMove(int16_t Index);
  void forwardDrop(std::shared_ptr<DataObject>& Data);

  // Layout.
  bool isRefersToRowVisible(int16_t Index);
  void PublishDateVisible(bool visible);
  void AccessDateVisible(bool visible);
  void RefersToVisible(bool visible);
  void IssueVisible(bool isNewspaper, bool visible);
  void VolumeVisible(bool visible);
  void NumberVisible(bool visible);
  void PageRangeVisible(bool visible);
  void PageNumberVisible(bool visible);

  // Widget getters: the member of the array that holds the field, checked
  // in name only against the key it is expected to carry.
  std::shared_ptr<OptionButton> PeriodicalNewspaperOption();
  std::shared_ptr<TextBox> PeriodicalArticleTitle();
  std::shared_ptr<TextBox> PeriodicalDate();
  std::shared_ptr<TextBox> PeriodicalPage();
  std::shared_ptr<TextBox> PeriodicalPageRange();
  std::shared_ptr<TextBox> PeriodicalVolume();
  std::shared_ptr<TextBox> PeriodicalNumber();
  std::shared_ptr<TextBox> AccessDate();
  std::shared_ptr<TextBox> PublishDate();
  std::shared_ptr<TextBox> Issue();
  std::shared_ptr<TextBox> RefersTo();
  std::shared_ptr<ComboBox> JournalComboBox();
  std::shared_ptr<Label> ArticleComboLabel();
  std::shared_ptr<Label> IssueTypeComboLabel();
  std::shared_ptr<Label> RefersToComboLabel();
  template <typename T>
  std::shared_ptr<T> member(const ProcedureName& name, const char* array, int16_t index,
                            const char* verifyTag);

  // Named widgets and array members, looked up without a trace of their
  // own; a missing one fails with 5 in the caller's statement.
  Frame& AdvancedFieldsFrame() const;
  Frame& JournalFrame() const;
  Label& JournalFrameLabel() const;
  Label& namedLabel(const char* name) const;
  std::shared_ptr<kelmora::TextBox> textBox(int16_t Index) const;
  std::shared_ptr<kelmora::OptionButton> optionButton(int16_t Index) const;
  std::shared_ptr<kelmora::ComboBox> comboBox(int16_t Index) const;
  std::shared_ptr<Label> comboLabel(int16_t Index) const;
  // Count and upper bound of a control array.
  int16_t arrayCount(const char* array) const;
  int16_t arrayUBound(const char* array) const;
  // The label of a moving row and its recorded top, by row number.
  std::shared_ptr<Widget>& rowLabel(int16_t row);
  float& rowTop(int16_t row);

  bool mHasPeriodicalPageNumbers = false;
  std::string mTooltipTextJournal;
  std::string mTooltipTextPeriodical;
  bool mEnableAccessDate = false;
  int32_t mFormat = 0;
  bool mShowAllFields = false;
  // The label of each moving row; slot 0 is row 9. Empty until the first
  // arrangement, and again after Terminate.
  std::vector<std::shared_ptr<Widget>> mLabels;
  int16_t mLastSelectedIndex = 0;

  // Kept per frame between calls of one procedure: the re-entrance guard
  // of TogglePeriodicalOptionWidgets, and the row grid of ArrangeAllFields
  // in twips, slot 0 being row 9.
  bool isProcessing = false;
  std::vector<float> tops;
};

}  // namespace kelmora
