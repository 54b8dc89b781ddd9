#include "frames/periodical/Periodical.h"

#include "diagnostics/CommonFormProcessingFunctions.h"
#include "diagnostics/Procedure.h"
#include "frames/common/FrameForms.h"
#include "frames/periodical/PeriodicalForm.h"
#include "platform/Arrays.h"
#include "platform/Late.h"
#include "platform/Screen.h"
#include "proxy/FrameParent.h"
#include "surface/ComboBox.h"
#include "surface/ControlCollection.h"
#include "surface/DataObject.h"
#include "surface/FormatterSettings.h"
#include "surface/Frame.h"
#include "surface/Label.h"
#include "surface/OptionButton.h"
#include "surface/TextBox.h"
#include "toggler/DepWidgetToggler.h"

namespace kelmora {

namespace {

std::string_view keyOf(const std::shared_ptr<Object>& widget) {
  return CommonFormProcessingFunctions::GetTag(widget, false);
}

}  // namespace

// ---------------------------------------------------------------------------
// The form and the public operations

Periodical::Periodical() {
  buildForm(PeriodicalForm::kRows);
  Width(PeriodicalForm::kWidth / Screen::kTwipsPerPixel);
  Height(PeriodicalForm::kHeight / Screen::kTwipsPerPixel);
}

Periodical::~Periodical() = default;

std::shared_ptr<ControlCollection> Periodical::getControls() {
  return FrameForms::getControls(this, procedureName<"Periodical.getControls">(), *this);
}

std::shared_ptr<Widget> Periodical::GetActiveControl() {
  return FrameForms::GetActiveControl(this, procedureName<"Periodical.GetActiveControl">(), *this);
}

void Periodical::initialize() {
  Procedure proc{this, procedureName<"Periodical.initialize">()};
  proc.run([&] { proc.step([&] { mLastSelectedIndex = -1; }); });
}

void Periodical::UpdateFrame(int16_t& Index, bool& showAllFields) {
  Procedure proc{this,
                 procedureName<"Periodical.UpdateFrame">(),
                 {arg("Index", Index), arg("showAllFields", showAllFields)}};
  proc.run([&] {
    // Selecting raises OptionButton_Click at once: the whole type toggle
    // runs inside this statement.
    proc.step([&] {
      if (Index >= 0)
        optionButton(Index)->Value(true);
    });
    proc.step([&] { mShowAllFields = showAllFields; });
    proc.step([&] { AdvancedFieldsFrame().Visible(mShowAllFields); });
    // Written back unchanged, so that the list is refilled and brought into
    // line with the labels.
    proc.step([&] {
      if (mShowAllFields)
        JournalFrameVisible(JournalFrame().Visible());
    });
  });
}

void Periodical::setReferenceListColumnNames(std::vector<std::string>& columnNames) {
  Procedure proc{this, procedureName<"Periodical.setReferenceListColumnNames">()};
  proc.run([&] {
    proc.step([&] { Arrays::ReDim(columnNames, 3); });
    // The first column names the article, not the periodical.
    proc.step([&] { Arrays::at(columnNames, 0) = "Article Title"; });
    proc.step([&] { Arrays::at(columnNames, 1) = "Author"; });
    proc.step([&] { Arrays::at(columnNames, 2) = "Date"; });
    proc.step([&] { Arrays::at(columnNames, 3) = "Location"; });
  });
}

void Periodical::Terminate() {
  Procedure proc{this, procedureName<"Periodical.Terminate">()};
  // The row grid stays: a later arrangement records it again only because
  // the labels are gone.
  proc.run([&] { proc.step([&] { mLabels.clear(); }); });
}

void Periodical::UserControl_Terminate() {
  Procedure proc{this, procedureName<"Periodical.UserControl_Terminate">()};
  proc.run([&] { proc.step([&] { Terminate(); }); });
}

void Periodical::vbwDump() const {
  vbwProtector::dumpModule({arg("mHasPeriodicalPageNumbers", mHasPeriodicalPageNumbers),
                            arg("mTooltipTextJournal", mTooltipTextJournal),
                            arg("mTooltipTextPeriodical", mTooltipTextPeriodical),
                            arg("mEnableAccessDate", mEnableAccessDate), arg("mFormat", mFormat),
                            arg("mShowAllFields", mShowAllFields), arg("mLabels", mLabels),
                            arg("mLastSelectedIndex", mLastSelectedIndex)});
}

// ---------------------------------------------------------------------------
// Type options and the journal list

int16_t Periodical::OptionButtonSelectedIndex() {
  Procedure proc{this, procedureName<"Periodical.OptionButtonSelectedIndex[Get]">()};
  return proc.run<int16_t>([&](int16_t& result) {
    int16_t i = 0;
    int16_t count = 0;
    proc.local("i", i);
    proc.step([&] { count = arrayCount("OptionButton"); });
    for (i = 0; i <= count - 1 && !proc.exited(); ++i) {
      proc.step([&] {
        if (optionButton(i)->Value()) {
          result = i;
          proc.exitAfterStatement();
        }
      });
    }
  });
}

std::string Periodical::PeriodicalType(int16_t& selectedIndex) {
  Procedure proc{this,
                 procedureName<"Periodical.PeriodicalType[Get]">(),
                 {arg("selectedIndex", selectedIndex)}};
  return proc.run<std::string>([&](std::string& result) {
    std::string tag;
    proc.local("tag", tag);
    proc.step([&] {
      if (selectedIndex == -1)
        selectedIndex = OptionButtonSelectedIndex();
    });
    proc.step([&] { tag = keyOf(optionButton(selectedIndex)); });
    proc.step([&] {
      if (tag == "PeriodicalJournalOption") {
        result = "Journal";
      } else if (tag == "PeriodicalMagazineOption") {
        result = "Magazine";
      } else if (tag == "PeriodicalNewspaperOption") {
        result = "Newspaper";
      }
    });
  });
}

void Periodical::OptionButton_Click(int16_t Index) {
  Procedure proc{this, procedureName<"Periodical.OptionButton_Click">(), {arg("Index", Index)}};
  proc.run([&] {
    int16_t i = 0;
    int16_t count = 0;
    proc.local("i", i);
    proc.step([&] { FrameParent::of(*this).OptionButtonChanged(Index); });
    proc.step([&] { TogglePeriodicalOptionWidgets(Index); });
    proc.step([&] { count = arrayCount("OptionButton"); });
    // Each option is a stored field of its own, so every one reports.
    for (i = 0; i <= count - 1; ++i) {
      proc.step([&] { FrameParent::of(*this).widgetChangeHandler(optionButton(i)); });
    }
  });
}

void Periodical::TogglePeriodicalOptionWidgets(int16_t selectedIndex) {
  Procedure proc{this,
                 procedureName<"Periodical.TogglePeriodicalOptionWidgets">(),
                 {arg("selectedIndex", selectedIndex)}};
  proc.run([&] {
    std::string optionType;
    bool isNewspaper = false;
    proc.local("optionType", optionType);
    proc.local("isNewspaper", isNewspaper);
    // The index moves before the re-entrance test, so a refused call still
    // counts as handled.
    proc.step([&] {
      if (mLastSelectedIndex == selectedIndex)
        proc.exitProcedure();
      mLastSelectedIndex = selectedIndex;
    });
    // The writes below raise widget events that lead back here.
    proc.step([&] {
      if (isProcessing)
        proc.exitProcedure();
      isProcessing = true;
    });
    proc.step([&] { optionType = PeriodicalType(selectedIndex); });
    proc.step([&] { isNewspaper = false; });

    if (optionType == "Journal") {
      proc.step([&] { Late::object(PeriodicalDate()).ToolTipText(mTooltipTextJournal); });
      proc.step([&] { namedLabel("PeriodicalTitleLabel").Caption("Journal Title"); });
      proc.step([&] { VolumeVisible(true); });
      proc.step([&] { NumberVisible(true); });
      proc.step([&] { PageNumberVisible(mFormat != 0); });
      proc.step([&] { RefersToVisible(mFormat != 1); });
      proc.step([&] { IssueVisible(false, mFormat != 1); });
      proc.step([&] { JournalFrameVisible(mFormat == 1 || mFormat == 3); });
      // The page range is left alone: a journal keeps the state of the
      // type shown before it.
    } else if (optionType == "Magazine") {
      proc.step([&] { Late::object(PeriodicalDate()).ToolTipText(mTooltipTextPeriodical); });
      proc.step([&] { namedLabel("PeriodicalTitleLabel").Caption("Magazine Title"); });
      // The volume goes first where the number's setter reads it.
      if (mFormat == 0) {
        proc.step([&] { PageRangeVisible(true); });
        proc.step([&] { PageNumberVisible(false); });
        proc.step([&] { VolumeVisible(true); });
        proc.step([&] { NumberVisible(false); });
      } else if (mFormat == 1) {
        proc.step([&] { PageRangeVisible(true); });
        proc.step([&] { PageNumberVisible(true); });
        proc.step([&] { VolumeVisible(true); });
        proc.step([&] { NumberVisible(true); });
      } else if (mFormat == 2 || mFormat == 3) {
        proc.step([&] { PageNumberVisible(true); });
        proc.step([&] { PageRangeVisible(true); });
        proc.step([&] { VolumeVisible(false); });
        proc.step([&] { NumberVisible(false); });
      }
      proc.step([&] { RefersToVisible(false); });
      proc.step([&] { JournalFrameVisible(false); });
      proc.step([&] { IssueVisible(false, false); });
    } else if (optionType == "Newspaper") {
      proc.step([&] { isNewspaper = true; });
      proc.step([&] { Late::object(PeriodicalDate()).ToolTipText(mTooltipTextPeriodical); });
      proc.step([&] { namedLabel("PeriodicalTitleLabel").Caption("Newspaper"); });
      proc.step([&] { PageNumberVisible(mFormat != 0); });
      proc.step([&] { PageRangeVisible(mFormat != 3); });
      proc.step([&] { VolumeVisible(false); });
      proc.step([&] { NumberVisible(false); });
      proc.step([&] { RefersToVisible(mFormat == 2); });
      proc.step([&] { IssueVisible(true, mFormat == 2 || mFormat == 3); });
      proc.step([&] { JournalFrameVisible(false); });
    }

    // Families 0 and 3 leave the access date to the format's rule rows.
    proc.step([&] {
      if (mFormat == 1) {
        AccessDateVisible(false);
      } else if (mFormat == 2) {
        AccessDateVisible(true);
      }
    });
    // Where a format numbers the pages of a newspaper, its second page
    // field holds the section; the field and its key stay the same.
    proc.step([&] {
      namedLabel("PeriodicalPageRangeLabel")
          .Caption(isNewspaper && mHasPeriodicalPageNumbers ? "Section" : "Page Range");
    });
    proc.step([&] { ArrangeAllFields(); });
    proc.step([&] { isProcessing = false; });
  });
}

void Periodical::JournalFrameVisible(bool visible) {
  Procedure proc{
      this, procedureName<"Periodical.JournalFrameVisible[Let]">(), {arg("visible", visible)}};
  proc.run([&] {
    proc.step([&] { JournalFrame().Visible(visible); });
    // The box's own flag stays True while only its frame is hidden, so the
    // list is kept filled for a hidden frame too.
    proc.step([&] {
      if (!Late::object(JournalComboBox()).Visible())
        proc.exitProcedure();
    });
    if (mFormat != 1) {
      proc.step([&] { JournalFrameLabel().Caption("Abstract type"); });
      proc.step([&] {
        auto& list = Late::object(JournalComboBox());
        if (list.ListCount() != 2) {
          list.Clear();
          list.AddItem("Regular");
          list.AddItem("Abstract");
        }
      });
      // Writing Text selects the entry and raises ComboBox_Click.
      proc.step([&] {
        auto& list = Late::object(JournalComboBox());
        if (JournalItem() != list.Text()) {
          const std::string item = JournalItem();
          list.Text(item == "Regular" || item == "Abstract" ? item : "Regular");
        }
      });
    }
    if (mFormat == 1) {
      proc.step([&] {
        auto& list = Late::object(JournalComboBox());
        if (list.ListCount() != 5) {
          JournalFrameLabel().Caption("Issue type");
          list.Clear();
          for (const char* entry : {"Regular", "Abstract", "Special issue", "Special section",
                                    "Supplemental material"}) {
            list.AddItem(entry);
          }
        }
      });
      proc.step([&] {
        auto& list = Late::object(JournalComboBox());
        if (JournalItem() != list.Text())
          list.Text(JournalItem());
      });
    }
  });
}

std::string Periodical::JournalItem() {
  Procedure proc{this, procedureName<"Periodical.JournalItem[Get]">()};
  return proc.run<std::string>([&](std::string& result) {
    proc.step([&] {
      const std::string issueType = Late::object(IssueTypeComboLabel()).Caption();
      if (issueType == "Supplement") {
        result = "Supplemental material";
      } else if (issueType == "Special issue" || issueType == "Special section") {
        result = issueType;
      } else if (Late::object(RefersToComboLabel()).Caption().starts_with("Abstract")) {
        result = "Abstract";
      } else {
        result = "Regular";
      }
    });
  });
}

void Periodical::JournalItem(std::string& value) {
  Procedure proc{this, procedureName<"Periodical.JournalItem[Let]">(), {arg("value", value)}};
  proc.run([&] {
    if (mFormat != 1) {
      proc.step([&] {
        if (value == "Abstract") {
          Late::object(RefersToComboLabel()).Caption("Abstract");
        } else if (value == "Regular") {
          Late::object(RefersToComboLabel()).Caption("Refers to");
        }
      });
    }
    if (mFormat == 1) {
      // The label says "Supplement" where the list says "Supplemental
      // material", and a regular issue shows the label's own word.
      proc.step([&] {
        if (value == "Supplemental material") {
          Late::object(IssueTypeComboLabel()).Caption("Supplement");
          Late::object(RefersToComboLabel()).Caption("Refers to");
        } else if (value == "Abstract") {
          Late::object(IssueTypeComboLabel()).Caption("Issue type");
          Late::object(RefersToComboLabel()).Caption("Abstract");
        } else {
          if (value == "Regular")
            value = "Issue type";
          Late::object(IssueTypeComboLabel()).Caption(value);
          Late::object(RefersToComboLabel()).Caption("Refers to");
        }
      });
    }
  });
}

void Periodical::SetComboBoxToOneItem(const std::shared_ptr<kelmora::ComboBox>& ComboBox,
                                      const std::string& item) {
  Procedure proc{this,
                 procedureName<"Periodical.SetComboBoxToOneItem">(),
                 {arg("ComboBox", ComboBox), arg("item", item)}};
  proc.run([&] {
    proc.step([&] {
      if (Late::object(ComboBox).List(0) == item)
        proc.exitProcedure();
    });
    proc.step([&] { RemoveAllComboBoxEntries(ComboBox); });
    proc.step([&] { Late::object(ComboBox).AddItem(item); });
    proc.step([&] { Late::object(ComboBox).ListIndex(0); });
  });
}

std::string Periodical::RemoveAllComboBoxEntries(
    const std::shared_ptr<kelmora::ComboBox>& ComboBox) {
  Procedure proc{
      this, procedureName<"Periodical.RemoveAllComboBoxEntries">(), {arg("ComboBox", ComboBox)}};
  return proc.run<std::string>([&](std::string& result) {
    int16_t i = 0;
    proc.local("i", i);
    proc.step([&] {
      if (Late::object(ComboBox).ListCount() == 0)
        proc.exitProcedure();
    });
    proc.step([&] {
      if (ComboBox->ListIndex() == -1)
        ComboBox->ListIndex(0);
    });
    proc.step([&] { result = ComboBox->List(ComboBox->ListIndex()); });
    for (i = static_cast<int16_t>(ComboBox->ListCount() - 1); i >= 0; --i) {
      proc.step([&] { ComboBox->RemoveItem(i); });
    }
  });
}

void Periodical::ComboBox_Click(int16_t Index) {
  Procedure proc{this, procedureName<"Periodical.ComboBox_Click">(), {arg("Index", Index)}};
  proc.run([&] {
    bool isJournalList = false;
    proc.step([&] { isJournalList = Index == Late::object(JournalComboBox()).Index(); });
    if (isJournalList) {
      // The container hears of it through the labels' own change events.
      proc.step([&] {
        std::string text = Late::object(JournalComboBox()).Text();
        JournalItem(text);
      });
    } else {
      // The general rule for a further list; the form has none yet.
      proc.step([&] { TogglePeriodicalOptionWidgets(OptionButtonSelectedIndex()); });
      proc.step([&] { FrameParent::of(*this).widgetChangeHandler(comboBox(Index)); });
    }
  });
}

std::string Periodical::ComboLabelCaption(int16_t& Index, std::string& value) {
  Procedure proc{this,
                 procedureName<"Periodical.ComboLabelCaption">(),
                 {arg("Index", Index), arg("value", value)}};
  return proc.run<std::string>([&](std::string& result) {
    // The issue type label stores its caption as it stands.
    proc.step([&] {
      if (Index == Late::object(ArticleComboLabel()).Index()) {
        result = FrameParent::of(*this).TitleTypeToCaption(3, value);
      } else if (Index == Late::object(RefersToComboLabel()).Index()) {
        result = FrameParent::of(*this).TitleTypeToCaption(12, value);
      } else {
        result = value;
      }
    });
  });
}

void Periodical::SelectItem(std::string& str, int16_t& Index) {
  FrameForms::SelectItem(this, procedureName<"Periodical.SelectItem">(), *this, str, Index);
}

// ---------------------------------------------------------------------------
// Field events

void Periodical::Change(Widget& source) {
  if (source.Name() == "TextBox") {
    TextBox_Change(source.Index());
  } else if (source.Name() == "ComboLabel") {
    ComboLabel_Change(source.Index());
  }
}

void Periodical::Click(Widget& source) {
  if (source.Name() == "ComboBox") {
    ComboBox_Click(source.Index());
  } else if (source.Name() == "OptionButton") {
    OptionButton_Click(source.Index());
  }
}

void Periodical::LostFocus(Widget& source) {
  if (source.Name() == "TextBox")
    TextBox_LostFocus(source.Index());
}

void Periodical::MouseMove(Widget& source, const MouseArgs&) {
  if (&source == this) {
    UserControl_MouseMove();
  } else if (source.Name() == "TextBox") {
    TextBox_MouseMove(source.Index());
  } else if (source.Name() == "OptionButton") {
    OptionButton_MouseMove(source.Index());
  } else if (source.Name() == "AdvancedFieldsFrame") {
    AdvancedFieldsFrame_MouseMove();
  } else if (source.Name() == "JournalFrame") {
    JournalFrame_MouseMove();
  } else if (source.Name() == "AccessDateHack") {
    AccessDateHack_MouseMove();
  }
}

void Periodical::OLEDragDrop(Widget& source, std::shared_ptr<DataObject>& Data, const DropArgs&) {
  if (&source == this) {
    UserControl_OLEDragDrop(Data);
  } else if (source.Name() == "AdvancedFieldsFrame") {
    AdvancedFieldsFrame_OLEDragDrop(Data);
  } else if (source.Name() == "JournalFrame") {
    JournalFrame_OLEDragDrop(Data);
  }
}

void Periodical::TextBox_Change(int16_t Index) {
  Procedure proc{this, procedureName<"Periodical.TextBox_Change">(), {arg("Index", Index)}};
  proc.run([&] {
    std::shared_ptr<Object> secondControl;
    std::string secondaryText;
    bool suppressShowSubform = false;
    std::string_view key;
    proc.local("secondControl", secondControl);
    proc.local("secondaryText", secondaryText);
    proc.local("suppressShowSubform", suppressShowSubform);
    proc.step([&] { key = keyOf(textBox(Index)); });
    proc.step([&] {
      if (key == "PeriodicalAuthor") {
        // An author in family 0 is a discussant.
        secondaryText = mFormat == 0 ? "Discussant" : "";
      } else if (key == "PeriodicalTitle") {
        secondControl = PeriodicalNewspaperOption();
      } else if (key == "PeriodicalRefersTo") {
        secondControl = RefersToComboLabel();
      } else if (key == "PeriodicalArticleTitle") {
        secondControl = ArticleComboLabel();
        secondaryText = FrameParent::of(*this).CaptionToTitleType(
            3, Late::object(ArticleComboLabel()).Caption());
      } else if (key == "PeriodicalRefersTo") {
        // Never reached: the first entry of this key wins, so a change of
        // the refers-to text goes without its title type. Only the loss of
        // focus sends one, and hosts rely on that difference.
        secondControl = RefersToComboLabel();
        secondaryText = FrameParent::of(*this).CaptionToTitleType(
            12, Late::object(RefersToComboLabel()).Caption());
      } else if (key == "v579_PeriodicalIssue") {
        secondControl = IssueTypeComboLabel();
        // The host keeps its sub-form closed for a newspaper's edition.
        suppressShowSubform = optionButton(OptionButtonSelectedIndex())->Caption() == "Newspaper";
      }
    });
    proc.step([&] {
      FrameParent::of(*this).widgetChangeHandler(textBox(Index),
                                                 {.theSecondControl = secondControl,
                                                  .suppressShowSubform = suppressShowSubform,
                                                  .secondaryText = secondaryText});
    });
    // A rule row may have shown or hidden the access and publish dates:
    // the rows close up.
    proc.step([&] {
      if (keyOf(textBox(Index)) == "PeriodicalOnline")
        ArrangeAllFields();
    });
  });
}

void Periodical::TextBox_LostFocus(int16_t Index) {
  Procedure proc{this, procedureName<"Periodical.TextBox_LostFocus">(), {arg("Index", Index)}};
  proc.run([&] {
    std::string_view key;
    proc.local("key", key);
    // Focus can leave a field with nothing active on the frame, as while
    // the frame comes down.
    proc.step([&] {
      if (!ActiveControl())
        proc.exitAfterStatement();
    });
    proc.step([&] { key = keyOf(textBox(Index)); });
    proc.step([&] {
      auto& parent = FrameParent::of(*this);
      if (key == "PeriodicalArticleTitle") {
        parent.ProcessTextField(
            textBox(Index),
            parent.CaptionToTitleType(3, Late::object(ArticleComboLabel()).Caption()));
      } else if (key == "PeriodicalRefersTo") {
        parent.ProcessTextField(
            textBox(Index),
            parent.CaptionToTitleType(12, Late::object(RefersToComboLabel()).Caption()));
      } else {
        parent.ProcessTextField(textBox(Index));
      }
    });
  });
}

void Periodical::TextBox_MouseMove(int16_t Index) {
  Procedure proc{this, procedureName<"Periodical.TextBox_MouseMove">(), {arg("Index", Index)}};
  proc.run([&] {
    bool flag = false;
    proc.local("flag", flag);
    // True over every box of a newspaper in a format with page numbers
    // but the page box itself, not only over the section field.
    proc.step([&] {
      if (keyOf(textBox(Index)) != "PeriodicalPage") {
        int16_t present = -1;
        flag = PeriodicalType(present) == "Newspaper" && mHasPeriodicalPageNumbers;
      }
    });
    proc.step([&] {
      FrameParent::of(*this).HandleMouseMove({.field = textBox(Index), .isNewspaperSection = flag});
    });
  });
}

void Periodical::ComboLabel_Change(int16_t Index) {
  Procedure proc{this, procedureName<"Periodical.ComboLabel_Change">(), {arg("Index", Index)}};
  proc.run([&] {
    std::string value;
    proc.local("value", value);
    // The issue type goes untranslated: the proxy stores its caption.
    proc.step([&] {
      if (Index == Late::object(ArticleComboLabel()).Index()) {
        value = FrameParent::of(*this).CaptionToTitleType(
            3, Late::object(ArticleComboLabel()).Caption());
      } else if (Index == Late::object(RefersToComboLabel()).Index()) {
        value = FrameParent::of(*this).CaptionToTitleType(
            12, Late::object(RefersToComboLabel()).Caption());
      }
    });
    proc.step(
        [&] { FrameParent::of(*this).widgetChangeHandler(comboLabel(Index), {.value = value}); });
    // Brings the list into line with the labels; when the list caused the
    // change it finds nothing to do, and the loop ends.
    proc.step([&] { JournalFrameVisible(JournalFrame().Visible()); });
  });
}

void Periodical::AccessDateHack_MouseMove() {
  Procedure proc{this, procedureName<"Periodical.AccessDateHack_MouseMove">()};
  proc.run([&] {
    // An always-enabled access date answers for itself. The catcher stands
    // disabled on this form, so the toolkit never raises this; it is kept
    // ready like its live twin on the other frame.
    proc.step([&] {
      if (mEnableAccessDate)
        proc.exitProcedure();
    });
    proc.step([&] {
      FrameParent::of(*this).HandleMouseMove({.field = widget<Label>("AccessDateHack")});
    });
  });
}

void Periodical::UserControl_EnterFocus() {
  Procedure proc{this, procedureName<"Periodical.UserControl_EnterFocus">()};
  proc.run([&] { proc.step([&] { FrameParent::of(*this).UserFormEnterFocus(ActiveControl()); }); });
}

// Movement over the form, a Frame widget or an option button reaches the
// host with no field at all, so that it can clear what it shows.
void Periodical::UserControl_MouseMove() {
  Procedure proc{this, procedureName<"Periodical.UserControl_MouseMove">()};
  proc.run([&] { proc.step([&] { FrameParent::of(*this).HandleMouseMove(); }); });
}

void Periodical::AdvancedFieldsFrame_MouseMove() {
  Procedure proc{this, procedureName<"Periodical.AdvancedFieldsFrame_MouseMove">()};
  proc.run([&] { proc.step([&] { FrameParent::of(*this).HandleMouseMove(); }); });
}

void Periodical::JournalFrame_MouseMove() {
  Procedure proc{this, procedureName<"Periodical.JournalFrame_MouseMove">()};
  proc.run([&] { proc.step([&] { FrameParent::of(*this).HandleMouseMove(); }); });
}

void Periodical::OptionButton_MouseMove(int16_t Index) {
  Procedure proc{this, procedureName<"Periodical.OptionButton_MouseMove">(), {arg("Index", Index)}};
  proc.run([&] { proc.step([&] { FrameParent::of(*this).HandleMouseMove(); }); });
}

void Periodical::UserControl_OLEDragDrop(std::shared_ptr<DataObject>& Data) {
  Procedure proc{this, procedureName<"Periodical.UserControl_OLEDragDrop">(), {arg("Data", Data)}};
  proc.run([&] { proc.step([&] { forwardDrop(Data); }); });
}

void Periodical::AdvancedFieldsFrame_OLEDragDrop(std::shared_ptr<DataObject>& Data) {
  Procedure proc{
      this, procedureName<"Periodical.AdvancedFieldsFrame_OLEDragDrop">(), {arg("Data", Data)}};
  proc.run([&] { proc.step([&] { forwardDrop(Data); }); });
}

void Periodical::JournalFrame_OLEDragDrop(std::shared_ptr<DataObject>& Data) {
  Procedure proc{this, procedureName<"Periodical.JournalFrame_OLEDragDrop">(), {arg("Data", Data)}};
  proc.run([&] { proc.step([&] { forwardDrop(Data); }); });
}

// The host may hand back other data; the dropper sees what it left.
void Periodical::forwardDrop(std::shared_ptr<DataObject>& Data) {
  FrameForms::forwardDrop(this, procedureName<"Periodical.forwardDrop">(), *this, Data);
}

// ---------------------------------------------------------------------------
// Layout

void Periodical::ArrangeAllFields() {
  Procedure proc{this, procedureName<"Periodical.ArrangeAllFields">()};
  proc.run([&] {
    int16_t i = 0;
    int16_t j = 0;
    int16_t upper = 0;
    proc.local("i", i);
    proc.local("j", j);
    // Rows are arranged only while they can be seen; the caller of
    // UpdateFrame arranges again after showing them.
    proc.step([&] {
      if (!AdvancedFieldsFrame().Visible())
        proc.exitAfterStatement();
    });
    if (proc.exited())
      return;
    proc.step([&] { upper = arrayUBound("TextBox"); });
    if (mLabels.empty()) {
      proc.step([&] { Arrays::ReDim(mLabels, upper - kFirstMovingRow); });
      proc.step([&] { rowLabel(9) = widget<Label>("PeriodicalAccessDateLabel"); });
      proc.step([&] { rowLabel(10) = widget<Label>("PeriodicalPublishDateLabel"); });
      proc.step([&] { rowLabel(11) = IssueTypeComboLabel(); });
      proc.step([&] { rowLabel(12) = RefersToComboLabel(); });
      proc.step([&] { rowLabel(13) = widget<Label>("NotesLabel"); });
      proc.step([&] { rowLabel(14) = widget<Label>("KeywordsLabel"); });
      // The form is the only source of the row grid, so it is recorded
      // once, before anything has moved.
      proc.step([&] { Arrays::ReDim(tops, upper - kFirstMovingRow); });
      for (i = kFirstMovingRow; i <= upper; ++i) {
        proc.step([&] { rowTop(i) = textBox(i)->Top(); });
      }
    }
    proc.step([&] { j = kFirstMovingRow; });
    // A hidden row is not touched: it keeps its last place, unseen.
    for (i = kFirstMovingRow; i <= upper; ++i) {
      bool taken = false;
      proc.step([&] {
        // Both sides are evaluated, as the run time's Or does: the refers-to
        // test runs (and is traced) even for a row whose box is shown.
        const bool boxShown = textBox(i)->Visible();
        const bool refersToShown = isRefersToRowVisible(i);
        taken = boxShown || refersToShown;
      });
      if (!taken)
        continue;
      proc.step([&] { textBox(i)->Top(rowTop(j)); });
      // Centred on its text box; the array holds labels of different kinds.
      proc.step([&] {
        Late::object(rowLabel(i))
            .Top(rowTop(j) + (textBox(i)->Height() - Late::object(rowLabel(i)).Height()) / 2);
      });
      proc.step([&] { ++j; });
    }
    // JournalFrame lies over whatever stands at its Top; the rows do not
    // make room for it.
    proc.step([&] {
      if (!JournalFrame().Visible())
        return;
      if (mFormat == 1) {
        // Level with the article title on the form, which counts pixels.
        JournalFrame().Top(Late::object(PeriodicalArticleTitle()).Top() *
                           Screen::instance()->TwipsPerPixelY());
      } else {
        JournalFrame().Top(Late::object(RefersTo()).Top());
      }
    });
  });
}

bool Periodical::isRefersToRowVisible(int16_t Index) {
  Procedure proc{this, procedureName<"Periodical.isRefersToRowVisible">(), {arg("Index", Index)}};
  // The row counts as taken while its label shows, even with its box hidden.
  return proc.run<bool>([&](bool& result) {
    proc.step([&] {
      if (Index == Late::object(RefersTo()).Index())
        result = Late::object(RefersToComboLabel()).Visible();
    });
  });
}

// No caller: the publish date follows the format's rule rows. It stays
// beside the setters of the other rows.
void Periodical::PublishDateVisible(bool visible) {
  Procedure proc{
      this, procedureName<"Periodical.PublishDateVisible[Let]">(), {arg("visible", visible)}};
  proc.run([&] {
    proc.step([&] { namedLabel("PeriodicalPublishDateLabel").Visible(visible); });
    proc.step([&] { Late::object(PublishDate()).Visible(visible); });
  });
}

void Periodical::AccessDateVisible(bool visible) {
  Procedure proc{
      this, procedureName<"Periodical.AccessDateVisible[Let]">(), {arg("visible", visible)}};
  proc.run([&] {
    proc.step([&] { namedLabel("PeriodicalAccessDateLabel").Visible(visible); });
    proc.step([&] { Late::object(AccessDate()).Visible(visible); });
  });
}

void Periodical::RefersToVisible(bool visible) {
  Procedure proc{
      this, procedureName<"Periodical.RefersToVisible[Let]">(), {arg("visible", visible)}};
  proc.run([&] {
    proc.step([&] { Late::object(RefersToComboLabel()).Visible(visible); });
    proc.step([&] { Late::object(RefersTo()).Visible(visible); });
  });
}

// isNewspaper only shows in the trace.
void Periodical::IssueVisible(bool isNewspaper, bool visible) {
  Procedure proc{this,
                 procedureName<"Periodical.IssueVisible[Let]">(),
                 {arg("isNewspaper", isNewspaper), arg("visible", visible)}};
  proc.run([&] {
    proc.step([&] { Late::object(Issue()).Visible(visible); });
    proc.step([&] { Late::object(IssueTypeComboLabel()).Visible(visible); });
  });
}

void Periodical::VolumeVisible(bool visible) {
  Procedure proc{this, procedureName<"Periodical.VolumeVisible[Let]">(), {arg("visible", visible)}};
  proc.run([&] {
    proc.step([&] { Late::object(PeriodicalVolume()).Visible(visible); });
    proc.step([&] { namedLabel("PeriodicalVolumeLabel").Visible(visible); });
  });
}

// Reads the volume's visibility as it stands, so callers set the volume
// first where its width is to change.
void Periodical::NumberVisible(bool visible) {
  Procedure proc{this, procedureName<"Periodical.NumberVisible[Let]">(), {arg("visible", visible)}};
  proc.run([&] {
    proc.step([&] {
      auto& volume = Late::object(PeriodicalVolume());
      if (!volume.Visible())
        return;
      if (visible) {
        volume.Width(Late::object(PeriodicalPage()).Width());
      } else {
        // Without a number beside it, the volume reaches the number's
        // right edge.
        auto& number = Late::object(PeriodicalNumber());
        volume.Width(number.Left() + number.Width() - volume.Left());
      }
    });
    proc.step([&] { Late::object(PeriodicalNumber()).Visible(visible); });
    proc.step([&] { namedLabel("PeriodicalNumberLabel").Visible(visible); });
  });
}

void Periodical::PageRangeVisible(bool visible) {
  // The page box's width beside a page range: the 1095 twips of the form.
  static constexpr float kPageWidthBesideRange = 73.0f;
  Procedure proc{
      this, procedureName<"Periodical.PageRangeVisible[Let]">(), {arg("visible", visible)}};
  proc.run([&] {
    proc.step([&] {
      if (visible) {
        Late::object(PeriodicalPage()).Width(kPageWidthBesideRange);
      } else {
        // Alone, the page box takes the whole width of the date box.
        Late::object(PeriodicalPage()).Width(Late::object(PeriodicalDate()).Width());
      }
    });
    proc.step([&] { namedLabel("PeriodicalPageRangeLabel").Visible(visible); });
    proc.step([&] { Late::object(PeriodicalPageRange()).Visible(visible); });
  });
}

// The page row and the volume row share two slots: the first at the
// volume's Left, the second at the number's. With a page number the page
// range takes the second slot, without one the first in full width. The
// rows of the left column keep their Tops.
void Periodical::PageNumberVisible(bool visible) {
  Procedure proc{
      this, procedureName<"Periodical.PageNumberVisible[Let]">(), {arg("visible", visible)}};
  proc.run([&] {
    if (visible) {
      proc.step([&] {
        auto& numberLabel = namedLabel("PeriodicalNumberLabel");
        auto& rangeLabel = namedLabel("PeriodicalPageRangeLabel");
        rangeLabel.Left(numberLabel.Left() + numberLabel.Width() - rangeLabel.Width());
      });
      proc.step([&] {
        Late::object(PeriodicalPageRange()).Left(Late::object(PeriodicalNumber()).Left());
      });
      proc.step([&] {
        Late::object(PeriodicalPageRange()).Width(Late::object(PeriodicalNumber()).Width());
      });
    } else {
      proc.step([&] {
        auto& volumeLabel = namedLabel("PeriodicalVolumeLabel");
        auto& rangeLabel = namedLabel("PeriodicalPageRangeLabel");
        rangeLabel.Left(volumeLabel.Left() + volumeLabel.Width() - rangeLabel.Width());
      });
      proc.step([&] {
        Late::object(PeriodicalPageRange()).Left(Late::object(PeriodicalVolume()).Left());
      });
      proc.step([&] {
        Late::object(PeriodicalPageRange()).Width(Late::object(PeriodicalDate()).Width());
      });
    }
    proc.step([&] { namedLabel("PeriodicalPageLabel").Visible(visible); });
    proc.step([&] { Late::object(PeriodicalPage()).Visible(visible); });
  });
}

// ---------------------------------------------------------------------------
// Format rules

void Periodical::initializeFormatDependentWidgetToggler(
    std::shared_ptr<FormatterSettings>& formatterSettings,
    std::shared_ptr<DepWidgetToggler>& dependentWidgetToggler,
    std::shared_ptr<Dictionary>& keyToOverallIndex) {
  Procedure proc{this,
                 procedureName<"Periodical.initializeFormatDependentWidgetToggler">(),
                 {arg("formatterSettings", formatterSettings),
                  arg("dependentWidgetToggler", dependentWidgetToggler),
                  arg("keyToOverallIndex", keyToOverallIndex)}};
  proc.run([&] {
    std::shared_ptr<FormatterSettings> settings;
    std::shared_ptr<Dictionary> keys;
    bool hasAccessDateFormat = false;
    bool alwaysEnable = false;
    std::string dependentWidgets;
    proc.local("settings", settings);
    proc.local("dependentWidgets", dependentWidgets);
    // Every Add gets the same local reference, written back after each.
    auto addRule = [&](const std::string& enableKey, const std::string& widgets,
                       DepWidgetToggler::AddOptions options) {
      keys = keyToOverallIndex;
      Late::object(dependentWidgetToggler).Add(Late::object(keys), enableKey, widgets, options);
      keyToOverallIndex = keys;
    };

    proc.step([&] { settings = formatterSettings; });
    proc.step([&] { mFormat = Late::object(settings).Format(); });
    proc.step(
        [&] { mHasPeriodicalPageNumbers = Late::object(settings).hasPeriodicalPageNumbers(); });
    proc.step([&] { mTooltipTextJournal = Late::object(settings).tooltipTextJournal(); });
    proc.step([&] { mTooltipTextPeriodical = Late::object(settings).tooltipTextPeriodical(); });
    proc.step([&] { mEnableAccessDate = false; });
    // Only whether the format writes access dates at all counts here.
    proc.step([&] { hasAccessDateFormat = !Late::object(settings).accessDateFormat().empty(); });
    if (hasAccessDateFormat) {
      proc.step([&] { dependentWidgets = "PeriodicalAccessDateLabel,PeriodicalAccessDate"; });
      if (mFormat != 0)
        proc.step([&] { alwaysEnable = Late::object(settings).alwaysEnableAccessDate(); });
      if (mFormat != 0 && alwaysEnable) {
        proc.step([&] {
          addRule(std::string("PeriodicalOnline") + "=__ALWAYS_ENABLE__", dependentWidgets, {});
        });
        proc.step([&] { mEnableAccessDate = true; });
      } else if (mFormat != 0) {
        // Hidden, not greyed, while there is no website.
        proc.step(
            [&] { addRule("PeriodicalOnline<>", dependentWidgets, {.toggleByHiding = true}); });
      } else {
        // Family 0 shows the access and publish dates together.
        proc.step([&] {
          addRule("PeriodicalOnline<>",
                  dependentWidgets + "," + "PeriodicalPublishDateLabel,v579_PeriodicalPublishDate",
                  {.toggleByHiding = true});
        });
      }
    }
    // A magazine or newspaper calls its labels "Serialized" and "Edition";
    // a journal gets back the captions they had.
    proc.step([&] {
      addRule("PeriodicalJournalOption=True",
              "v579_PeriodicalRefersToComboLabel(KEEP_EXISTING|Serialized)", {});
    });
    proc.step([&] {
      addRule("PeriodicalJournalOption=True",
              "v574_PeriodicalIssueTypeComboLabel(KEEP_EXISTING|Edition)", {});
    });
    proc.step([&] { settings.reset(); });
    // Every branch of the toggle depends on the fields just read, so the
    // next one must run whatever index it handled last.
    proc.step([&] { mLastSelectedIndex = -2; });
    proc.step([&] { TogglePeriodicalOptionWidgets(OptionButtonSelectedIndex()); });
  });
}

// ---------------------------------------------------------------------------
// Widget getters and lookups

template <typename T>
std::shared_ptr<T> Periodical::member(const ProcedureName& name, const char* array, int16_t index,
                                      const char* verifyTag) {
  return FrameForms::member<T>(this, name, *this, array, index, verifyTag);
}

std::shared_ptr<OptionButton> Periodical::PeriodicalNewspaperOption() {
  return member<kelmora::OptionButton>(procedureName<"Periodical.PeriodicalNewspaperOption[Get]">(),
                                       "OptionButton", 2, "PeriodicalNewspaperOption");
}
std::shared_ptr<TextBox> Periodical::PeriodicalArticleTitle() {
  return member<kelmora::TextBox>(procedureName<"Periodical.PeriodicalArticleTitle[Get]">(),
                                  "TextBox", 1, "PeriodicalArticleTitle");
}
std::shared_ptr<TextBox> Periodical::PeriodicalDate() {
  return member<kelmora::TextBox>(procedureName<"Periodical.PeriodicalDate[Get]">(), "TextBox", 3,
                                  "PeriodicalDate");
}
std::shared_ptr<TextBox> Periodical::PeriodicalPage() {
  return member<kelmora::TextBox>(procedureName<"Periodical.PeriodicalPage[Get]">(), "TextBox", 4,
                                  "PeriodicalPage");
}
std::shared_ptr<TextBox> Periodical::PeriodicalPageRange() {
  return member<kelmora::TextBox>(procedureName<"Periodical.PeriodicalPageRange[Get]">(), "TextBox",
                                  5, "PeriodicalPageRange");
}
std::shared_ptr<TextBox> Periodical::PeriodicalVolume() {
  return member<kelmora::TextBox>(procedureName<"Periodical.PeriodicalVolume[Get]">(), "TextBox", 6,
                                  "PeriodicalVolume");
}
std::shared_ptr<TextBox> Periodical::PeriodicalNumber() {
  return member<kelmora::TextBox>(procedureName<"Periodical.PeriodicalNumber[Get]">(), "TextBox", 7,
                                  "PeriodicalNumber");
}
std::shared_ptr<TextBox> Periodical::AccessDate() {
  return member<kelmora::TextBox>(procedureName<"Periodical.AccessDate[Get]">(), "TextBox", 9,
                                  "PeriodicalAccessDate");
}
std::shared_ptr<TextBox> Periodical::PublishDate() {
  return member<kelmora::TextBox>(procedureName<"Periodical.PublishDate[Get]">(), "TextBox", 10,
                                  "v579_PeriodicalPublishDate");
}
std::shared_ptr<TextBox> Periodical::Issue() {
  return member<kelmora::TextBox>(procedureName<"Periodical.Issue[Get]">(), "TextBox", 11,
                                  "v579_PeriodicalIssue");
}
std::shared_ptr<TextBox> Periodical::RefersTo() {
  return member<kelmora::TextBox>(procedureName<"Periodical.RefersTo[Get]">(), "TextBox", 12,
                                  "PeriodicalRefersTo");
}
std::shared_ptr<ComboBox> Periodical::JournalComboBox() {
  return member<kelmora::ComboBox>(procedureName<"Periodical.JournalComboBox[Get]">(), "ComboBox",
                                   0, "vIgnore_JournalCombo");
}
std::shared_ptr<Label> Periodical::ArticleComboLabel() {
  return member<Label>(procedureName<"Periodical.ArticleComboLabel[Get]">(), "ComboLabel", 0,
                       "v579_PeriodicalArticleComboLabel");
}
std::shared_ptr<Label> Periodical::IssueTypeComboLabel() {
  return member<Label>(procedureName<"Periodical.IssueTypeComboLabel[Get]">(), "ComboLabel", 1,
                       "v574_PeriodicalIssueTypeComboLabel");
}
std::shared_ptr<Label> Periodical::RefersToComboLabel() {
  return member<Label>(procedureName<"Periodical.RefersToComboLabel[Get]">(), "ComboLabel", 2,
                       "v579_PeriodicalRefersToComboLabel");
}

Frame& Periodical::AdvancedFieldsFrame() const {
  return *widget<Frame>("AdvancedFieldsFrame");
}
Frame& Periodical::JournalFrame() const {
  return *widget<Frame>("JournalFrame");
}
Label& Periodical::JournalFrameLabel() const {
  return *widget<Label>("JournalFrameLabel");
}
Label& Periodical::namedLabel(const char* name) const {
  return *widget<Label>(name);
}
std::shared_ptr<TextBox> Periodical::textBox(int16_t Index) const {
  return widget<kelmora::TextBox>("TextBox", Index);
}
std::shared_ptr<OptionButton> Periodical::optionButton(int16_t Index) const {
  return widget<kelmora::OptionButton>("OptionButton", Index);
}
std::shared_ptr<ComboBox> Periodical::comboBox(int16_t Index) const {
  return widget<kelmora::ComboBox>("ComboBox", Index);
}
std::shared_ptr<Label> Periodical::comboLabel(int16_t Index) const {
  return widget<Label>("ComboLabel", Index);
}

int16_t Periodical::arrayCount(const char* array) const {
  return FrameForms::arrayCount(*this, array);
}

int16_t Periodical::arrayUBound(const char* array) const {
  int16_t upper = -1;
  for (const auto& widget : Controls().members(array)) {
    if (widget->Index() > upper)
      upper = widget->Index();
  }
  return upper;
}

std::shared_ptr<Widget>& Periodical::rowLabel(int16_t row) {
  return Arrays::at(mLabels, row - kFirstMovingRow);
}

float& Periodical::rowTop(int16_t row) {
  return Arrays::at(tops, row - kFirstMovingRow);
}

}  // namespace kelmora
