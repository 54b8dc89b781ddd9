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
class Label;
class TextBox;

// The frame of informal electronic sources: e-mail, list entries, blogs,
// forums and social media posts. Its form is one fixed grid with no
// options, no stored labels and no moving rows, and it registers no rule
// row: when a format comes into force the frame copies the format's
// switches into its fields, fills the degree and type lists and stretches
// or hides widgets itself. Each click on the type list then decides what
// the title, website title and URL rows show.
//
// Sections of the source: the form and the public operations; types and
// format rules; field events.
class Esource : public UserControl, public ReferenceFrame, public Dumpable {
 public:
  Esource();
  ~Esource() override;

  std::string ClassName() const override { return "Esource"; }

  // The frame contract, in the order of its slots.
  std::shared_ptr<ControlCollection> getControls() override;
  std::shared_ptr<Widget> GetActiveControl() override;
  void UpdateFrame(int16_t& Index, bool& showAllFields) override;
  void ArrangeAllFields() override;
  void initialize() override;
  void setReferenceListColumnNames(std::vector<std::string>& columnNames) override;
  void initializeFormatDependentWidgetToggler(
      std::shared_ptr<FormatterSettings>& formatterSettings,
      std::shared_ptr<DepWidgetToggler>& dependentWidgetToggler,
      std::shared_ptr<Dictionary>& keyToOverallIndex) override;
  void SelectItem(std::string& str, int16_t& Index) override;
  std::string ComboLabelCaption(int16_t& Index, std::string& value) override;
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
  // Types and format rules.
  void InitializeDegree(int32_t command);
  void InitializeEsourceType(int32_t command);
  void InitializeWebtitle();
  void InitializeAccessDate();
  void InitializeCommentDate();
  void ToggleTextBox(bool isSupported, const std::shared_ptr<kelmora::TextBox>& extendableTextBox,
                     const std::shared_ptr<Widget>& comparator);
  void HandleEsourceTypeClick();
  void EnableURL(bool value);
  void ToggleAccessDate();

  // Field events.
  void TextBox_Change(int16_t Index);
  void TextBox_LostFocus(int16_t Index);
  void TextBox_MouseMove(int16_t Index);
  void ComboBox_Click(int16_t Index);
  void UserControl_MouseMove();
  void UserControl_OLEDragDrop(std::shared_ptr<DataObject>& Data);
  void RecipientFrame_OLEDragDrop(std::shared_ptr<DataObject>& Data);
  void forwardDrop(std::shared_ptr<DataObject>& Data);

  // Widget getters: the member of the array that holds the field.
  std::shared_ptr<TextBox> AuthorTextBox();
  std::shared_ptr<TextBox> PublishDateTextBox();
  std::shared_ptr<TextBox> TitleTextBox();
  std::shared_ptr<TextBox> WebsiteTitleTextBox();
  std::shared_ptr<TextBox> URLTextBox();
  std::shared_ptr<TextBox> AccessDateTextBox();
  std::shared_ptr<TextBox> CommentDateTextBox();
  std::shared_ptr<TextBox> NotesTextBox();
  std::shared_ptr<ComboBox> DegreeComboBox();
  std::shared_ptr<ComboBox> EsourceTypeComboBox();
  template <typename T>
  std::shared_ptr<T> member(const ProcedureName& name, const char* array, int16_t index);

  // Named widgets and array members, looked up without a trace of their
  // own; a missing one fails with 5 in the caller's statement.
  Label& namedLabel(const char* name) const;
  std::shared_ptr<kelmora::TextBox> textBox(int16_t Index) const;
  std::shared_ptr<kelmora::ComboBox> comboBox(int16_t Index) const;

  // Each copies one switch of the format, but the comment date, which
  // comes with the social media entries.
  bool mesourceHasTitle = false;
  bool mesourceHasTo = false;
  bool mEmailListTitleVisible = false;
  bool mSupportsWebtitle = false;
  bool mSupportsSocialMedia = false;
  bool mSupportsURL = false;
  bool mSupportsAccessDate = false;
  bool mSupportsCommentDate = false;
  bool mShowAuthorPopup = false;
};

}  // namespace kelmora
