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
class OutputTemplate;
class TextBox;
class TranslatorWrapper;

// The frame of books and websites. Author and title stand on the form; every
// further row lives in a sub-frame of its own, five in the left column and
// five in the right, so that a row hides and moves as one.
//
// The template is the hidden option pair (book or website) that the host
// selects through UpdateFrame; the format family (mFormat, 0 to 3) and two
// more settings come with the format. ToggleShowAllFields turns template,
// family and the host's show-all flag into the sub-frames that show; the
// format's rule rows then rule the rows inside WebsiteFrame and the page
// row; ArrangeAllFields closes both columns up around what is hidden.
//
// Sections of the source: the form and the public operations; show-all and
// option handling; field events; layout; format rules.
class NonPeriodical : public UserControl, public ReferenceFrame, public Dumpable {
 public:
  NonPeriodical();
  ~NonPeriodical() override;

  std::string ClassName() const override { return "NonPeriodical"; }

  // The frame contract, in the order of its slots.
  std::shared_ptr<ControlCollection> getControls() override;
  std::shared_ptr<Widget> GetActiveControl() override;
  void UpdateFrame(int16_t& Index, bool& showAllFields) override;
  void initialize() override;
  void setReferenceListColumnNames(std::vector<std::string>& columnNames) override;
  void initializeFormatDependentWidgetToggler(
      std::shared_ptr<FormatterSettings>& formatterSettings,
      std::shared_ptr<DepWidgetToggler>& dependentWidgetToggler,
      std::shared_ptr<Dictionary>& keyToOverallIndex) override;
  void SelectItem(std::string& str, int16_t& Index) override;
  std::string ComboLabelCaption(int16_t& Index, std::string& value) override;
  void ArrangeAllFields() override;
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
  // The ComboLabel whose stored value is a title type, not its caption.
  static constexpr int16_t kSubworkComboLabel = 0;

  void WorkAroundForAvoidingActxFileDependencyWhenPopulatingComboboxesAtDesignTime();

  // Show-all and option handling.
  void ToggleShowAllFields(bool rearrangeAfterwards);
  void PublishDateVisible(bool visible);
  void AccessDateVisible(bool visible);
  void OptionButton_Click(int16_t Index);
  void ComboBox_Click(int16_t Index);
  void ComboLabel_Change(int16_t Index);

  // Field events.
  void TextBox_Change(int16_t Index);
  void TextBox_LostFocus(int16_t Index);
  void TextBox_MouseMove(int16_t Index);
  void AccessDateHack_MouseMove();
  void UserControl_MouseMove();
  void UserControl_OLEDragDrop(std::shared_ptr<DataObject>& Data);
  void subFrame_MouseMove(const ProcedureName& name);
  void subFrame_OLEDragDrop(const ProcedureName& name, std::shared_ptr<DataObject>& Data);
  void forwardDrop(std::shared_ptr<DataObject>& Data);

  // Layout.
  void ArrangeLeftFields();
  void ArrangeAndSetHeightOfWebFrame();
  void AlignFrame(const std::shared_ptr<Frame>& targetFrame,
                  const std::shared_ptr<Frame>& referenceFrame);
  // Label may be nothing.
  void AlignFields(const std::shared_ptr<Widget>& Control, const std::shared_ptr<Widget>& Label,
                   float top);
  float FrameBottomEdge(const std::shared_ptr<kelmora::TextBox>& TextBox);

  // Format rules.
  void showPublicationType(bool value);
  void configureFormForBookPageRange(bool usesBookPageRange);

  // Widget getters: the member of the array that holds the field, checked
  // in name only against the key it is expected to carry.
  std::shared_ptr<Label> SubworkComboLabel();
  std::shared_ptr<Label> PublicationMediumLabel();
  std::shared_ptr<Label> CompilerOrEditorComboLabel();
  std::shared_ptr<Label> MultiPartComboLabel();
  std::shared_ptr<ComboBox> PublicationDateTypeComboBox();
  std::shared_ptr<TextBox> Publisher();
  std::shared_ptr<TextBox> Place();
  std::shared_ptr<TextBox> Page();
  std::shared_ptr<TextBox> BookPageRange();
  std::shared_ptr<TextBox> Subwork();
  std::shared_ptr<TextBox> Website();
  std::shared_ptr<TextBox> Online();
  std::shared_ptr<TextBox> AccessDate();
  std::shared_ptr<TextBox> PublishDate();
  std::shared_ptr<TextBox> MultiPartWork();
  std::shared_ptr<OptionButton> BookOption();
  template <typename T>
  std::shared_ptr<T> member(const ProcedureName& name, const char* array, int16_t index,
                            const char* verifyTag);

  // Named widgets and array members, looked up without a trace of their
  // own; a missing one fails with 5 in the caller's statement.
  std::shared_ptr<Frame> subFrame(const char* name) const;
  std::shared_ptr<Label> namedLabel(const char* name) const;
  std::shared_ptr<kelmora::TextBox> textBox(int16_t Index) const;
  std::shared_ptr<kelmora::OptionButton> optionButton(int16_t Index) const;
  std::shared_ptr<kelmora::ComboBox> comboBox(int16_t Index) const;
  std::shared_ptr<Label> comboLabel(int16_t Index) const;
  int16_t arrayCount(const char* array) const;

  bool mEnableAccessDate = false;
  bool mWebsiteImpliesDate = false;
  int32_t mFormat = 0;
  std::shared_ptr<OutputTemplate> mOnlineTemplate;
  bool mShowAllFields = false;
  // A TranslatorWrapper made here, or whatever object the host handed
  // back in its place.
  std::shared_ptr<Object> mTranslatorWrapper;

  // Kept per frame between calls of one procedure: whether the format was
  // initialised before, and the design tops that the layout takes once (the
  // two date rows of WebsiteFrame in twips, the left rows in pixels).
  bool isSecondCall = false;
  float FirstRowTop = 0.0f;
  float SecondRowTop = 0.0f;
  float PublisherFrameTop = 0.0f;
  float PlaceFrameTop = 0.0f;
  float PageFrameTop = 0.0f;
  float EditionFrameTop = 0.0f;
  float SubworkFrameTop = 0.0f;
};

}  // namespace kelmora
