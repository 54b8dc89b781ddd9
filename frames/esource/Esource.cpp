#include "frames/esource/Esource.h"

#include "diagnostics/CommonFormProcessingFunctions.h"
#include "diagnostics/Procedure.h"
#include "frames/common/FrameForms.h"
#include "frames/esource/EsourceForm.h"
#include "platform/Arrays.h"
#include "platform/Dictionary.h"
#include "platform/Late.h"
#include "platform/Screen.h"
#include "proxy/FrameParent.h"
#include "surface/ComboBox.h"
#include "surface/ControlCollection.h"
#include "surface/DataObject.h"
#include "surface/FormatterSettings.h"
#include "surface/Label.h"
#include "surface/TextBox.h"
#include "surface/TypeName.h"
#include "toggler/DepWidgetToggler.h"

namespace kelmora {

namespace {

std::string_view keyOf(const std::shared_ptr<Object>& widget) {
  return CommonFormProcessingFunctions::GetTag(widget, false);
}

}  // namespace

// ---------------------------------------------------------------------------
// The form and the public operations

Esource::Esource() {
  buildForm(EsourceForm::kRows);
  Width(EsourceForm::kWidth / Screen::kTwipsPerPixel);
  Height(EsourceForm::kHeight / Screen::kTwipsPerPixel);
}

Esource::~Esource() = default;

std::shared_ptr<ControlCollection> Esource::getControls() {
  return FrameForms::getControls(this, procedureName<"Esource.getControls">(), *this);
}

std::shared_ptr<Widget> Esource::GetActiveControl() {
  return FrameForms::GetActiveControl(this, procedureName<"Esource.GetActiveControl">(), *this);
}

// The form has neither options nor hidden rows: there is nothing to select
// and nothing to show.
void Esource::UpdateFrame(int16_t& Index, bool& showAllFields) {
  Procedure proc{this,
                 procedureName<"Esource.UpdateFrame">(),
                 {arg("Index", Index), arg("showAllFields", showAllFields)}};
  proc.run([] {});
}

void Esource::initialize() {
  Procedure proc{this, procedureName<"Esource.initialize">()};
  proc.run([] {});
}

void Esource::setReferenceListColumnNames(std::vector<std::string>& columnNames) {
  Procedure proc{this, procedureName<"Esource.setReferenceListColumnNames">()};
  proc.run([&] {
    proc.step([&] { Arrays::ReDim(columnNames, 3); });
    proc.step([&] { Arrays::at(columnNames, 0) = "Title"; });
    proc.step([&] { Arrays::at(columnNames, 1) = "Author"; });
    proc.step([&] { Arrays::at(columnNames, 2) = "Date"; });
    proc.step([&] { Arrays::at(columnNames, 3) = "Location"; });
  });
}

// The frame holds nothing it would have to let go of.
void Esource::Terminate() {
  Procedure proc{this, procedureName<"Esource.Terminate">()};
  proc.run([] {});
}

void Esource::UserControl_Terminate() {
  Procedure proc{this, procedureName<"Esource.UserControl_Terminate">()};
  proc.run([&] { proc.step([&] { Terminate(); }); });
}

void Esource::vbwDump() const {
  vbwProtector::dumpModule(
      {arg("mesourceHasTitle", mesourceHasTitle), arg("mesourceHasTo", mesourceHasTo),
       arg("mEmailListTitleVisible", mEmailListTitleVisible),
       arg("mSupportsWebtitle", mSupportsWebtitle),
       arg("mSupportsSocialMedia", mSupportsSocialMedia), arg("mSupportsURL", mSupportsURL),
       arg("mSupportsAccessDate", mSupportsAccessDate),
       arg("mSupportsCommentDate", mSupportsCommentDate),
       arg("mShowAuthorPopup", mShowAuthorPopup)});
}

// ---------------------------------------------------------------------------
// Types and the two lists

void Esource::InitializeDegree(int32_t command) {
  Procedure proc{this, procedureName<"Esource.InitializeDegree">(), {arg("command", command)}};
  proc.run([&] {
    std::string oldStr;
    proc.local("oldStr", oldStr);
    // The degree is not put back: a change of format loses it, and a load
    // writes it again through SelectItem.
    proc.step([&] { oldStr = Late::object(DegreeComboBox()).Text(); });
    proc.step([&] { Late::object(DegreeComboBox()).Clear(); });
    if (command == 0) {
      // The single blank is the empty degree.
      proc.step([&] { Late::object(DegreeComboBox()).AddItem(" "); });
    } else if (command == 1) {
      for (const char* degree : {" ", "MD", "Phd", "RN"}) {
        proc.step([&] { Late::object(DegreeComboBox()).AddItem(degree); });
      }
    }
    if (command == 0) {
      // Raises ComboBox_Click, which reports the degree like a user's pick.
      proc.step([&] { Late::object(DegreeComboBox()).ListIndex(0); });
      proc.step([&] { Late::object(DegreeComboBox()).Visible(false); });
      // Without the list the box reaches one pixel short of the list's
      // right edge.
      proc.step([&] {
        auto& degree = Late::object(DegreeComboBox());
        auto& author = Late::object(AuthorTextBox());
        author.Width(degree.Left() + degree.Width() - author.Left() - 3 + 2);
      });
    } else {
      if (command == 1)
        proc.step([&] { Late::object(DegreeComboBox()).ListIndex(0); });
      proc.step([&] { Late::object(DegreeComboBox()).Visible(true); });
      // A gap of three pixels before the list.
      proc.step([&] {
        auto& author = Late::object(AuthorTextBox());
        author.Width(Late::object(DegreeComboBox()).Left() - author.Left() - 3);
      });
    }
  });
}

void Esource::InitializeEsourceType(int32_t command) {
  static constexpr const char* kEntries[][9] = {
      {"Email to"},
      {"Email to", "Email list entry"},
      {"Email to", "Email list entry", "Blog post", "Blog comment", "Forum post",
       "Video blog entry"},
      {"Email to", "Email list entry", "Blog post", "Blog comment", "Facebook comment",
       "Facebook post", "Forum post", "Twitter post", "Video blog entry"},
  };
  Procedure proc{this, procedureName<"Esource.InitializeEsourceType">(), {arg("command", command)}};
  proc.run([&] {
    std::string oldStr;
    int16_t Index = 0;
    proc.local("oldStr", oldStr);
    proc.step([&] { oldStr = Late::object(EsourceTypeComboBox()).Text(); });
    proc.step([&] { Late::object(EsourceTypeComboBox()).Clear(); });
    if (command >= 0 && command <= 3) {
      for (const char* entry : kEntries[command]) {
        if (entry == nullptr)
          break;
        proc.step([&] { Late::object(EsourceTypeComboBox()).AddItem(entry); });
      }
    }
    // Unlike the degree, the type survives a change of format, or falls
    // back to its nearest like. The list was just cleared, so selecting
    // raises ComboBox_Click and the widgets fit the type from here on.
    proc.step([&] { Index = Late::object(EsourceTypeComboBox()).Index(); });
    proc.step([&] { SelectItem(oldStr, Index); });
  });
}

void Esource::SelectItem(std::string& str, int16_t& Index) {
  Procedure proc{
      this, procedureName<"Esource.SelectItem">(), {arg("str", str), arg("Index", Index)}};
  proc.run([&] {
    int16_t i = 0;
    int16_t count = 0;
    proc.local("i", i);
    proc.step([&] { count = comboBox(Index)->ListCount(); });
    for (i = 0; i <= count - 1 && !proc.exited(); ++i) {
      proc.step([&] {
        auto list = comboBox(Index);
        if (list->List(i) == str) {
          list->ListIndex(i);
          proc.exitAfterStatement();
        }
      });
    }
    // An entry the format lacks falls to its nearest like: a post to a
    // blog post, a comment to a blog comment, and those to the first.
    proc.step([&] {
      if (str == "Twitter post" || str == "Facebook post") {
        std::string fallBack = "Blog post";
        SelectItem(fallBack, Index);
      } else if (str == "Facebook comment") {
        std::string fallBack = "Blog comment";
        SelectItem(fallBack, Index);
      } else {
        // An empty list refuses this with 380.
        comboBox(Index)->ListIndex(0);
      }
    });
  });
}

void Esource::ComboBox_Click(int16_t Index) {
  Procedure proc{this, procedureName<"Esource.ComboBox_Click">(), {arg("Index", Index)}};
  proc.run([&] {
    proc.step([&] {
      if (keyOf(comboBox(Index)) == "EsourceType")
        HandleEsourceTypeClick();
    });
    proc.step([&] { FrameParent::of(*this).widgetChangeHandler(comboBox(Index)); });
  });
}

void Esource::HandleEsourceTypeClick() {
  Procedure proc{this, procedureName<"Esource.HandleEsourceTypeClick">()};
  proc.run([&] {
    bool TitleVisible = true;
    bool showWebsiteTitle = true;
    bool showURL = true;
    std::string caption;
    std::string text;
    proc.local("TitleVisible", TitleVisible);
    proc.local("showWebsiteTitle", showWebsiteTitle);
    proc.local("showURL", showURL);
    proc.local("caption", caption);
    proc.step([&] { text = Late::object(EsourceTypeComboBox()).Text(); });
    if (text == "Email to") {
      // The title box holds the recipient, the website title the subject.
      proc.step([&] { caption = mesourceHasTitle ? "Subject" : ""; });
      proc.step([&] { TitleVisible = mesourceHasTo; });
      proc.step([&] { showWebsiteTitle = mesourceHasTitle; });
      proc.step([&] { showURL = false; });
    } else if (text == "Email list entry") {
      proc.step([&] { caption = "Mailing list"; });
      proc.step([&] { TitleVisible = mEmailListTitleVisible; });
    } else if (text == "Forum post") {
      proc.step([&] { caption = "Forum name"; });
    } else if (text == "Facebook post" || text == "Facebook comment") {
      proc.step([&] { showWebsiteTitle = false; });
    } else if (text == "Twitter post") {
      proc.step([&] { TitleVisible = false; });
      proc.step([&] { showWebsiteTitle = false; });
    } else {
      // "Blog post", "Blog comment", "Video blog entry".
      proc.step([&] { caption = "Blog name"; });
    }
    proc.step([&] { Late::object(TitleTextBox()).Visible(TitleVisible); });
    proc.step([&] { namedLabel("WebsiteTitleLabel").Caption(caption); });
    proc.step(
        [&] { namedLabel("WebsiteTitleLabel").Visible(showWebsiteTitle && mSupportsWebtitle); });
    proc.step([&] {
      Late::object(WebsiteTitleTextBox()).Visible(showWebsiteTitle && mSupportsWebtitle);
    });
    proc.step([&] { EnableURL(showURL && mSupportsURL); });
  });
}

void Esource::EnableURL(bool value) {
  Procedure proc{this, procedureName<"Esource.EnableURL[Let]">(), {arg("value", value)}};
  proc.run([&] {
    proc.step([&] { namedLabel("EsourceURLLabel").Visible(value); });
    proc.step([&] { Late::object(URLTextBox()).Visible(value); });
    proc.step([&] { ToggleAccessDate(); });
  });
}

// The access date is offered only for a source that has a URL typed in.
void Esource::ToggleAccessDate() {
  Procedure proc{this, procedureName<"Esource.ToggleAccessDate">()};
  proc.run([&] {
    bool enable = false;
    proc.local("enable", enable);
    // All three operands are read, as the run time's And does.
    proc.step([&] {
      const bool shown = Late::object(URLTextBox()).Visible();
      const bool typed = !Late::object(URLTextBox()).Text().empty();
      enable = shown && typed && mSupportsAccessDate;
    });
    proc.step([&] { namedLabel("AccessDateLabel").Visible(enable); });
    proc.step([&] { Late::object(AccessDateTextBox()).Visible(enable); });
  });
}

// The frame has no stored labels: every value is its own caption.
std::string Esource::ComboLabelCaption(int16_t& Index, std::string& value) {
  Procedure proc{this,
                 procedureName<"Esource.ComboLabelCaption">(),
                 {arg("Index", Index), arg("value", value)}};
  return proc.run<std::string>([&](std::string& result) { proc.step([&] { result = value; }); });
}

// ---------------------------------------------------------------------------
// Field events

void Esource::Change(Widget& source) {
  if (source.Name() == "TextBox")
    TextBox_Change(source.Index());
}

void Esource::Click(Widget& source) {
  if (source.Name() == "ComboBox")
    ComboBox_Click(source.Index());
}

void Esource::LostFocus(Widget& source) {
  if (source.Name() == "TextBox")
    TextBox_LostFocus(source.Index());
}

// Labels, lists and the check box have no movement handler: only the text
// boxes and the bare form report.
void Esource::MouseMove(Widget& source, const MouseArgs&) {
  if (&source == this) {
    UserControl_MouseMove();
  } else if (source.Name() == "TextBox") {
    TextBox_MouseMove(source.Index());
  }
}

void Esource::OLEDragDrop(Widget& source, std::shared_ptr<DataObject>& Data, const DropArgs&) {
  if (&source == this)
    UserControl_OLEDragDrop(Data);
}

void Esource::TextBox_Change(int16_t Index) {
  Procedure proc{this, procedureName<"Esource.TextBox_Change">(), {arg("Index", Index)}};
  proc.run([&] {
    // The access date shows from the URL's first character and goes with
    // its last.
    proc.step([&] {
      if (keyOf(textBox(Index)) == "EsourceURL")
        ToggleAccessDate();
    });
    // The host offers its author pop-up on the author and the publish date
    // when the field passes itself as the second control too. Both indices
    // are read, as the run time's Or does.
    proc.step([&] {
      const bool isAuthor = Index == Late::object(AuthorTextBox()).Index();
      const bool isPublishDate = Index == Late::object(PublishDateTextBox()).Index();
      if ((isAuthor || isPublishDate) && mShowAuthorPopup) {
        FrameParent::of(*this).widgetChangeHandler(textBox(Index),
                                                   {.theSecondControl = textBox(Index)});
      } else {
        FrameParent::of(*this).widgetChangeHandler(textBox(Index));
      }
    });
  });
}

void Esource::TextBox_LostFocus(int16_t Index) {
  Procedure proc{this, procedureName<"Esource.TextBox_LostFocus">(), {arg("Index", Index)}};
  proc.run([&] {
    // Focus can leave a field with nothing active on the frame, as while
    // the frame comes down.
    proc.step([&] {
      if (ActiveControl())
        FrameParent::of(*this).ProcessTextField(textBox(Index));
    });
  });
}

void Esource::TextBox_MouseMove(int16_t Index) {
  Procedure proc{this, procedureName<"Esource.TextBox_MouseMove">(), {arg("Index", Index)}};
  proc.run([&] {
    proc.step([&] { FrameParent::of(*this).HandleMouseMove({.field = textBox(Index)}); });
  });
}

void Esource::UserControl_EnterFocus() {
  Procedure proc{this, procedureName<"Esource.UserControl_EnterFocus">()};
  proc.run([&] { proc.step([&] { FrameParent::of(*this).UserFormEnterFocus(ActiveControl()); }); });
}

// Movement over the bare form reaches the host with no field at all, so
// that it can clear what it shows.
void Esource::UserControl_MouseMove() {
  Procedure proc{this, procedureName<"Esource.UserControl_MouseMove">()};
  proc.run([&] { proc.step([&] { FrameParent::of(*this).HandleMouseMove(); }); });
}

void Esource::UserControl_OLEDragDrop(std::shared_ptr<DataObject>& Data) {
  Procedure proc{this, procedureName<"Esource.UserControl_OLEDragDrop">(), {arg("Data", Data)}};
  proc.run([&] { proc.step([&] { forwardDrop(Data); }); });
}

// Kept for a recipient frame that the form no longer has: nothing raises
// it, and it forwards like a drop on the form.
void Esource::RecipientFrame_OLEDragDrop(std::shared_ptr<DataObject>& Data) {
  Procedure proc{this, procedureName<"Esource.RecipientFrame_OLEDragDrop">(), {arg("Data", Data)}};
  proc.run([&] { proc.step([&] { forwardDrop(Data); }); });
}

// The host may hand back other data; the dropper sees what it left.
void Esource::forwardDrop(std::shared_ptr<DataObject>& Data) {
  FrameForms::forwardDrop(this, procedureName<"Esource.forwardDrop">(), *this, Data);
}

// ---------------------------------------------------------------------------
// Layout

// The rows never move: the widths and the comment date row are set when a
// format comes into force.
void Esource::ArrangeAllFields() {
  Procedure proc{this, procedureName<"Esource.ArrangeAllFields">()};
  proc.run([] {});
}

// Stretches a box to the right edge of the comparator, or, for a format
// without the field it would make room for, across the right column.
void Esource::ToggleTextBox(bool isSupported,
                            const std::shared_ptr<kelmora::TextBox>& extendableTextBox,
                            const std::shared_ptr<Widget>& comparator) {
  Procedure proc{this,
                 procedureName<"Esource.ToggleTextBox">(),
                 {arg("isSupported", isSupported), arg("extendableTextBox", extendableTextBox),
                  arg("comparator", comparator)}};
  proc.run([&] {
    float width = 0.0f;
    proc.local("width", width);
    proc.step([&] { width = Late::object(comparator).Width(); });
    // A list's edge lies one pixel inside its width.
    proc.step([&] {
      if (kelmora::TypeName(comparator) != "TextBox")
        width = width - 1;
    });
    proc.step([&] {
      auto& box = Late::object(extendableTextBox);
      if (isSupported) {
        box.Width(Late::object(comparator).Left() + width - box.Left());
      } else {
        auto& column = Late::object(WebsiteTitleTextBox());
        box.Width(column.Left() + column.Width() - box.Left());
      }
    });
  });
}

void Esource::InitializeWebtitle() {
  Procedure proc{this, procedureName<"Esource.InitializeWebtitle">()};
  proc.run([&] {
    proc.step([&] { ToggleTextBox(mSupportsWebtitle, TitleTextBox(), DegreeComboBox()); });
  });
}

// Takes the title's width as InitializeWebtitle just left it: with a
// website title the URL ends where the title ends.
void Esource::InitializeAccessDate() {
  Procedure proc{this, procedureName<"Esource.InitializeAccessDate">()};
  proc.run([&] {
    proc.step([&] { ToggleTextBox(mSupportsAccessDate, URLTextBox(), TitleTextBox()); });
  });
}

void Esource::InitializeCommentDate() {
  // One row of the grid, in pixels.
  static constexpr float kRow = 27.0f;
  Procedure proc{this, procedureName<"Esource.InitializeCommentDate">()};
  proc.run([&] {
    proc.step([&] { namedLabel("CommentDateLabel").Visible(mSupportsCommentDate); });
    proc.step([&] { Late::object(CommentDateTextBox()).Visible(mSupportsCommentDate); });
    // The notes stand a row below the comment date, or move up into its
    // row where the format has none.
    if (mSupportsCommentDate) {
      proc.step([&] { namedLabel("NotesLabel").Top(namedLabel("CommentDateLabel").Top() + kRow); });
      proc.step([&] {
        Late::object(NotesTextBox()).Top(Late::object(CommentDateTextBox()).Top() + kRow);
      });
    } else {
      proc.step([&] { namedLabel("NotesLabel").Top(namedLabel("CommentDateLabel").Top()); });
      proc.step(
          [&] { Late::object(NotesTextBox()).Top(Late::object(CommentDateTextBox()).Top()); });
    }
  });
}

// ---------------------------------------------------------------------------
// Format rules

// The format's switches are copied and applied here directly: the frame
// registers no rule row, so the toggler and the key map go unused.
void Esource::initializeFormatDependentWidgetToggler(
    std::shared_ptr<FormatterSettings>& formatterSettings,
    std::shared_ptr<DepWidgetToggler>& dependentWidgetToggler,
    std::shared_ptr<Dictionary>& keyToOverallIndex) {
  Procedure proc{this,
                 procedureName<"Esource.initializeFormatDependentWidgetToggler">(),
                 {arg("formatterSettings", formatterSettings),
                  arg("dependentWidgetToggler", dependentWidgetToggler),
                  arg("keyToOverallIndex", keyToOverallIndex)}};
  proc.run([&] {
    auto& settings = formatterSettings;
    proc.step([&] { mShowAuthorPopup = Late::object(settings).esourceShowsAuthorPopup(); });
    proc.step([&] { mesourceHasTitle = Late::object(settings).esourceHasTitle(); });
    proc.step([&] { mesourceHasTo = Late::object(settings).esourceHasTo(); });
    proc.step([&] { mEmailListTitleVisible = Late::object(settings).emailListTitleVisible(); });
    proc.step([&] { mSupportsWebtitle = Late::object(settings).supportsWebtitle(); });
    proc.step([&] { mSupportsURL = Late::object(settings).SupportsURL(); });
    proc.step([&] { mSupportsAccessDate = Late::object(settings).supportsAccessDate(); });
    proc.step([&] { mSupportsSocialMedia = Late::object(settings).supportsSocialMedia(); });
    // A comment date comes with the social media entries; the format has
    // no switch of its own for it.
    proc.step([&] { mSupportsCommentDate = mSupportsSocialMedia; });
    proc.step([&] { InitializeDegree(Late::object(settings).DegreeSupport()); });
    proc.step([&] { InitializeEsourceType(Late::object(settings).esourceType()); });
    // The URL takes the title's width, so the title goes first.
    proc.step([&] { InitializeWebtitle(); });
    proc.step([&] { InitializeAccessDate(); });
    proc.step([&] { InitializeCommentDate(); });
  });
}

// ---------------------------------------------------------------------------
// Widget getters and lookups

template <typename T>
std::shared_ptr<T> Esource::member(const ProcedureName& name, const char* array, int16_t index) {
  Procedure proc{this, name};
  return proc.run<std::shared_ptr<T>>(
      [&](std::shared_ptr<T>& result) { proc.step([&] { result = widget<T>(array, index); }); });
}

std::shared_ptr<TextBox> Esource::AuthorTextBox() {
  return member<kelmora::TextBox>(procedureName<"Esource.AuthorTextBox[Get]">(), "TextBox", 0);
}
std::shared_ptr<TextBox> Esource::PublishDateTextBox() {
  return member<kelmora::TextBox>(procedureName<"Esource.PublishDateTextBox[Get]">(), "TextBox", 1);
}
std::shared_ptr<TextBox> Esource::TitleTextBox() {
  return member<kelmora::TextBox>(procedureName<"Esource.TitleTextBox[Get]">(), "TextBox", 2);
}
std::shared_ptr<TextBox> Esource::WebsiteTitleTextBox() {
  return member<kelmora::TextBox>(procedureName<"Esource.WebsiteTitleTextBox[Get]">(), "TextBox",
                                  3);
}
std::shared_ptr<TextBox> Esource::URLTextBox() {
  return member<kelmora::TextBox>(procedureName<"Esource.URLTextBox[Get]">(), "TextBox", 4);
}
std::shared_ptr<TextBox> Esource::AccessDateTextBox() {
  return member<kelmora::TextBox>(procedureName<"Esource.AccessDateTextBox[Get]">(), "TextBox", 5);
}
std::shared_ptr<TextBox> Esource::CommentDateTextBox() {
  return member<kelmora::TextBox>(procedureName<"Esource.CommentDateTextBox[Get]">(), "TextBox", 6);
}
std::shared_ptr<TextBox> Esource::NotesTextBox() {
  return member<kelmora::TextBox>(procedureName<"Esource.NotesTextBox[Get]">(), "TextBox", 7);
}
std::shared_ptr<ComboBox> Esource::DegreeComboBox() {
  return member<kelmora::ComboBox>(procedureName<"Esource.DegreeComboBox[Get]">(), "ComboBox", 0);
}
std::shared_ptr<ComboBox> Esource::EsourceTypeComboBox() {
  return member<kelmora::ComboBox>(procedureName<"Esource.EsourceTypeComboBox[Get]">(), "ComboBox",
                                   1);
}

Label& Esource::namedLabel(const char* name) const {
  return *widget<Label>(name);
}
std::shared_ptr<TextBox> Esource::textBox(int16_t Index) const {
  return widget<kelmora::TextBox>("TextBox", Index);
}
std::shared_ptr<ComboBox> Esource::comboBox(int16_t Index) const {
  return widget<kelmora::ComboBox>("ComboBox", Index);
}

}  // namespace kelmora
