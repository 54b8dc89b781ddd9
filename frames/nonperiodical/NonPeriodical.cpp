#include "frames/nonperiodical/NonPeriodical.h"

#include <source_location>

#include "diagnostics/CommonFormProcessingFunctions.h"
#include "diagnostics/Procedure.h"
#include "diagnostics/TranslatorWrapper.h"
#include "frames/common/FrameForms.h"
#include "frames/nonperiodical/NonPeriodicalForm.h"
#include "platform/Arrays.h"
#include "platform/Late.h"
#include "platform/ReleasePool.h"
#include "platform/Screen.h"
#include "proxy/FrameParent.h"
#include "surface/ComboBox.h"
#include "surface/ControlCollection.h"
#include "surface/DataObject.h"
#include "surface/FormatterSettings.h"
#include "surface/Frame.h"
#include "surface/Label.h"
#include "surface/OptionButton.h"
#include "surface/OutputTemplate.h"
#include "surface/TextBox.h"
#include "toggler/DepWidgetToggler.h"

namespace kelmora {

namespace {

std::string_view keyOf(const std::shared_ptr<Object>& widget) {
  return CommonFormProcessingFunctions::GetTag(widget, false);
}

// The title type of sub-work titles in the host's numbering.
constexpr int16_t kSubworkTitleType = 3;

}  // namespace

// ---------------------------------------------------------------------------
// The form and the public operations

NonPeriodical::NonPeriodical() {
  buildForm(NonPeriodicalForm::kRows);
  Width(NonPeriodicalForm::kWidth / Screen::kTwipsPerPixel);
  Height(NonPeriodicalForm::kHeight / Screen::kTwipsPerPixel);
}

NonPeriodical::~NonPeriodical() = default;

std::shared_ptr<ControlCollection> NonPeriodical::getControls() {
  return FrameForms::getControls(this, procedureName<"NonPeriodical.getControls">(), *this);
}

std::shared_ptr<Widget> NonPeriodical::GetActiveControl() {
  return FrameForms::GetActiveControl(this, procedureName<"NonPeriodical.GetActiveControl">(),
                                      *this);
}

void NonPeriodical::UpdateFrame(int16_t& Index, bool& showAllFields) {
  Procedure proc{this,
                 procedureName<"NonPeriodical.UpdateFrame">(),
                 {arg("Index", Index), arg("showAllFields", showAllFields)}};
  proc.run([&] {
    // Selecting raises OptionButton_Click at once; a negative Index keeps
    // the template shown.
    proc.step([&] {
      if (Index >= 0)
        optionButton(Index)->Value(true);
    });
    proc.step([&] { mShowAllFields = showAllFields; });
    // The proxy arranges the fields itself once the rules have run.
    proc.step([&] { ToggleShowAllFields(false); });
  });
}

void NonPeriodical::initialize() {
  Procedure proc{this, procedureName<"NonPeriodical.initialize">()};
  proc.run([&] {
    proc.step(
        [&] { WorkAroundForAvoidingActxFileDependencyWhenPopulatingComboboxesAtDesignTime(); });
  });
}

// A list stored with the form would make the control depend on a data file
// beside it, so the one list of the form is filled here. It is not cleared
// first: it runs once per frame.
void NonPeriodical::WorkAroundForAvoidingActxFileDependencyWhenPopulatingComboboxesAtDesignTime() {
  Procedure proc{this, procedureName<"NonPeriodical."
                                     "WorkAroundForAvoidingActxFileDependencyWhenPopulatingCombobox"
                                     "esAtDesignTime">()};
  proc.run([&] {
    int16_t i = 0;
    int16_t count = 0;
    proc.local("i", i);
    proc.step([&] { count = arrayCount("ComboBox"); });
    for (i = 0; i <= count - 1; ++i) {
      proc.step([&] {
        auto list = comboBox(i);
        if (keyOf(list) == "v8_PublicationDateTypeComboBox") {
          list->AddItem("Published");
          list->AddItem("Updated");
        }
      });
    }
  });
}

void NonPeriodical::setReferenceListColumnNames(std::vector<std::string>& columnNames) {
  Procedure proc{this, procedureName<"NonPeriodical.setReferenceListColumnNames">()};
  proc.run([&] {
    proc.step([&] { Arrays::ReDim(columnNames, 3); });
    proc.step([&] { Arrays::at(columnNames, 0) = "Title"; });
    proc.step([&] { Arrays::at(columnNames, 1) = "Author"; });
    proc.step([&] { Arrays::at(columnNames, 2) = "Date"; });
    proc.step([&] { Arrays::at(columnNames, 3) = "Location"; });
  });
}

void NonPeriodical::Terminate() {
  Procedure proc{this, procedureName<"NonPeriodical.Terminate">()};
  proc.run([&] {
    proc.step([&] { ReleasePool::release(mOnlineTemplate); });
    proc.step([&] { ReleasePool::release(mTranslatorWrapper); });
  });
}

void NonPeriodical::UserControl_Terminate() {
  Procedure proc{this, procedureName<"NonPeriodical.UserControl_Terminate">()};
  proc.run([&] { proc.step([&] { Terminate(); }); });
}

void NonPeriodical::vbwDump() const {
  vbwProtector::dumpModule(
      {arg("mEnableAccessDate", mEnableAccessDate), arg("mWebsiteImpliesDate", mWebsiteImpliesDate),
       arg("mFormat", mFormat), arg("mOnlineTemplate", mOnlineTemplate),
       arg("mShowAllFields", mShowAllFields), arg("mTranslatorWrapper", mTranslatorWrapper)});
}

// ---------------------------------------------------------------------------
// Show-all and option handling

void NonPeriodical::ToggleShowAllFields(bool rearrangeAfterwards) {
  Procedure proc{this,
                 procedureName<"NonPeriodical.ToggleShowAllFields">(),
                 {arg("rearrangeAfterwards", rearrangeAfterwards)}};
  proc.run([&] {
    bool isBookTemplate = false;
    bool MLAWebsiteIsURL = false;
    bool showAdvancedWebFields = false;
    proc.local("isBookTemplate", isBookTemplate);
    proc.local("MLAWebsiteIsURL", MLAWebsiteIsURL);
    proc.local("showAdvancedWebFields", showAdvancedWebFields);
    proc.step([&] { isBookTemplate = Late::object(BookOption()).Value(); });
    if (isBookTemplate) {
      proc.step([&] { subFrame("PublicationMediumFrame")->Visible(mShowAllFields); });
      proc.step([&] { subFrame("PlaceFrame")->Visible(true); });
      proc.step([&] { subFrame("PageFrame")->Visible(true); });
      proc.step([&] { subFrame("EditionFrame")->Visible(mShowAllFields); });
      proc.step([&] { subFrame("SubworkFrame")->Visible(mShowAllFields); });
      // A book's website block is a show-all extra.
      proc.step([&] { subFrame("WebsiteFrame")->Visible(mShowAllFields); });
      proc.step([&] { PublishDateVisible(false); });
      proc.step([&] { subFrame("EditorFrame")->Visible(mShowAllFields); });
      proc.step([&] { subFrame("MultipartWorkFrame")->Visible(mShowAllFields); });
      proc.step([&] { subFrame("PublisherFrame")->Visible(true); });
    } else {
      proc.step([&] { subFrame("PublicationMediumFrame")->Visible(false); });
      proc.step([&] { subFrame("PlaceFrame")->Visible(false); });
      proc.step([&] { subFrame("WebsiteFrame")->Visible(true); });
      if (mFormat == 2) {
        // A website that the format's online template takes for a URL has
        // a publisher row, whatever the show-all flag says.
        proc.step([&] {
          std::string text = Late::object(Website()).Text();
          MLAWebsiteIsURL = Late::object(mOnlineTemplate).isURL(text);
        });
        proc.step([&] { subFrame("PublisherFrame")->Visible(MLAWebsiteIsURL); });
      } else {
        proc.step([&] { subFrame("PublisherFrame")->Visible(mShowAllFields); });
      }
      proc.step([&] { subFrame("PageFrame")->Visible(mFormat == 1 && mShowAllFields); });
      proc.step([&] { showAdvancedWebFields = (mFormat == 1 || mFormat == 2) && mShowAllFields; });
      proc.step([&] { subFrame("EditionFrame")->Visible(showAdvancedWebFields); });
      proc.step([&] { subFrame("EditorFrame")->Visible(showAdvancedWebFields); });
      proc.step([&] {
        subFrame("SubworkFrame")->Visible(mFormat == 3 ? mShowAllFields : showAdvancedWebFields);
      });
      proc.step([&] { subFrame("MultipartWorkFrame")->Visible(false); });
      proc.step([&] {
        if (mFormat == 2)
          PublishDateVisible(true);
      });
    }
    // For both templates, after their own steps; the rule rows that run
    // next may hide it again.
    proc.step([&] {
      if (mFormat == 2)
        AccessDateVisible(true);
    });
    proc.step([&] { subFrame("NotesFrame")->Visible(mShowAllFields); });
    proc.step([&] {
      if (rearrangeAfterwards)
        ArrangeAllFields();
    });
  });
}

// Neither date setter touches the date type combo.
void NonPeriodical::PublishDateVisible(bool visible) {
  Procedure proc{
      this, procedureName<"NonPeriodical.PublishDateVisible[Let]">(), {arg("visible", visible)}};
  proc.run([&] {
    proc.step([&] { Late::object(PublishDate()).Visible(visible); });
    proc.step([&] { namedLabel("PublishDateLabel")->Visible(visible); });
  });
}

void NonPeriodical::AccessDateVisible(bool visible) {
  Procedure proc{
      this, procedureName<"NonPeriodical.AccessDateVisible[Let]">(), {arg("visible", visible)}};
  proc.run([&] {
    proc.step([&] { Late::object(AccessDate()).Visible(visible); });
    proc.step([&] { namedLabel("AccessDateLabel")->Visible(visible); });
  });
}

void NonPeriodical::OptionButton_Click(int16_t Index) {
  Procedure proc{this, procedureName<"NonPeriodical.OptionButton_Click">(), {arg("Index", Index)}};
  proc.run([&] {
    int16_t i = 0;
    int16_t count = 0;
    proc.local("i", i);
    proc.step([&] { FrameParent::of(*this).OptionButtonChanged(Index); });
    proc.step([&] { count = arrayCount("OptionButton"); });
    // The button switched off reports too, so that both stored keys change.
    for (i = 0; i <= count - 1; ++i) {
      proc.step([&] { FrameParent::of(*this).widgetChangeHandler(optionButton(i)); });
    }
  });
}

// An unknown stored value shows as the first entry.
void NonPeriodical::SelectItem(std::string& str, int16_t& Index) {
  FrameForms::SelectItem(this, procedureName<"NonPeriodical.SelectItem">(), *this, str, Index);
}

void NonPeriodical::ComboBox_Click(int16_t Index) {
  Procedure proc{this, procedureName<"NonPeriodical.ComboBox_Click">(), {arg("Index", Index)}};
  proc.run(
      [&] { proc.step([&] { FrameParent::of(*this).widgetChangeHandler(comboBox(Index)); }); });
}

// The sub-work label stores a title type, not what it shows; the other
// three store their captions.
void NonPeriodical::ComboLabel_Change(int16_t Index) {
  Procedure proc{this, procedureName<"NonPeriodical.ComboLabel_Change">(), {arg("Index", Index)}};
  proc.run([&] {
    std::string value;
    proc.local("value", value);
    proc.step([&] {
      if (Index == Late::object(SubworkComboLabel()).Index()) {
        value = FrameParent::of(*this).CaptionToTitleType(
            kSubworkTitleType, Late::object(SubworkComboLabel()).Caption());
        FrameParent::of(*this).widgetChangeHandler(comboLabel(Index), {.value = value});
      } else {
        FrameParent::of(*this).widgetChangeHandler(comboLabel(Index));
      }
    });
  });
}

std::string NonPeriodical::ComboLabelCaption(int16_t& Index, std::string& value) {
  Procedure proc{this,
                 procedureName<"NonPeriodical.ComboLabelCaption">(),
                 {arg("Index", Index), arg("value", value)}};
  return proc.run<std::string>([&](std::string& result) {
    proc.step([&] {
      if (Index == Late::object(SubworkComboLabel()).Index()) {
        result = FrameParent::of(*this).TitleTypeToCaption(kSubworkTitleType, value);
      } else {
        result = value;
      }
    });
  });
}

// ---------------------------------------------------------------------------
// Field events

void NonPeriodical::Change(Widget& source) {
  if (source.Name() == "TextBox") {
    TextBox_Change(source.Index());
  } else if (source.Name() == "ComboLabel") {
    ComboLabel_Change(source.Index());
  }
}

void NonPeriodical::Click(Widget& source) {
  if (source.Name() == "ComboBox") {
    ComboBox_Click(source.Index());
  } else if (source.Name() == "OptionButton") {
    OptionButton_Click(source.Index());
  }
}

void NonPeriodical::LostFocus(Widget& source) {
  if (source.Name() == "TextBox")
    TextBox_LostFocus(source.Index());
}

// SubworkFrame and PublicationMediumFrame forward nothing.
void NonPeriodical::MouseMove(Widget& source, const MouseArgs&) {
  const std::string& name = source.Name();
  if (&source == this) {
    UserControl_MouseMove();
  } else if (name == "TextBox") {
    TextBox_MouseMove(source.Index());
  } else if (name == "AccessDateHack") {
    AccessDateHack_MouseMove();
  } else if (name == "PublisherFrame") {
    subFrame_MouseMove(procedureName<"NonPeriodical.PublisherFrame_MouseMove">());
  } else if (name == "PlaceFrame") {
    subFrame_MouseMove(procedureName<"NonPeriodical.PlaceFrame_MouseMove">());
  } else if (name == "PageFrame") {
    subFrame_MouseMove(procedureName<"NonPeriodical.PageFrame_MouseMove">());
  } else if (name == "EditionFrame") {
    subFrame_MouseMove(procedureName<"NonPeriodical.EditionFrame_MouseMove">());
  } else if (name == "WebsiteFrame") {
    subFrame_MouseMove(procedureName<"NonPeriodical.WebsiteFrame_MouseMove">());
  } else if (name == "EditorFrame") {
    subFrame_MouseMove(procedureName<"NonPeriodical.EditorFrame_MouseMove">());
  } else if (name == "MultipartWorkFrame") {
    subFrame_MouseMove(procedureName<"NonPeriodical.MultipartWorkFrame_MouseMove">());
  } else if (name == "NotesFrame") {
    subFrame_MouseMove(procedureName<"NonPeriodical.NotesFrame_MouseMove">());
  }
}

void NonPeriodical::OLEDragDrop(Widget& source, std::shared_ptr<DataObject>& Data,
                                const DropArgs&) {
  const std::string& name = source.Name();
  if (&source == this) {
    UserControl_OLEDragDrop(Data);
  } else if (name == "PublisherFrame") {
    subFrame_OLEDragDrop(procedureName<"NonPeriodical.PublisherFrame_OLEDragDrop">(), Data);
  } else if (name == "PlaceFrame") {
    subFrame_OLEDragDrop(procedureName<"NonPeriodical.PlaceFrame_OLEDragDrop">(), Data);
  } else if (name == "PageFrame") {
    subFrame_OLEDragDrop(procedureName<"NonPeriodical.PageFrame_OLEDragDrop">(), Data);
  } else if (name == "EditionFrame") {
    subFrame_OLEDragDrop(procedureName<"NonPeriodical.EditionFrame_OLEDragDrop">(), Data);
  } else if (name == "WebsiteFrame") {
    subFrame_OLEDragDrop(procedureName<"NonPeriodical.WebsiteFrame_OLEDragDrop">(), Data);
  } else if (name == "EditorFrame") {
    subFrame_OLEDragDrop(procedureName<"NonPeriodical.EditorFrame_OLEDragDrop">(), Data);
  } else if (name == "MultipartWorkFrame") {
    subFrame_OLEDragDrop(procedureName<"NonPeriodical.MultipartWorkFrame_OLEDragDrop">(), Data);
  } else if (name == "NotesFrame") {
    subFrame_OLEDragDrop(procedureName<"NonPeriodical.NotesFrame_OLEDragDrop">(), Data);
  }
}

void NonPeriodical::TextBox_Change(int16_t Index) {
  Procedure proc{this, procedureName<"NonPeriodical.TextBox_Change">(), {arg("Index", Index)}};
  proc.run([&] {
    std::string_view tag;
    std::string secondaryText;
    proc.local("tag", tag);
    proc.local("secondaryText", secondaryText);
    proc.step([&] { tag = keyOf(textBox(Index)); });
    if (tag == "Translator") {
      // The translator has no label to send as its second control; one
      // wrapper stands in for it for the frame's life.
      proc.step([&] {
        if (!mTranslatorWrapper)
          mTranslatorWrapper = std::make_shared<TranslatorWrapper>();
      });
    } else if (tag == "Subwork") {
      proc.step([&] {
        secondaryText = FrameParent::of(*this).CaptionToTitleType(
            kSubworkTitleType, Late::object(SubworkComboLabel()).Caption());
      });
    } else if (tag == "AccessDate") {
      // Under a format where a website implies a date, the year field
      // holds a date while an access date exists.
      proc.step([&] {
        if (mWebsiteImpliesDate)
          namedLabel("YearLabel")
              ->Caption(Late::object(AccessDate()).Text().empty() ? "Year" : "Date");
      });
    }
    proc.step([&] {
      auto& parent = FrameParent::of(*this);
      if (tag == "Author") {
        parent.widgetChangeHandler(textBox(Index), {.secondaryText = "Prematter"});
      } else if (tag == "MultiPartWork") {
        parent.widgetChangeHandler(textBox(Index), {.theSecondControl = MultiPartComboLabel()});
      } else if (tag == "CompilerOrEditor") {
        parent.widgetChangeHandler(textBox(Index),
                                   {.theSecondControl = CompilerOrEditorComboLabel()});
      } else if (tag == "Translator") {
        // The wrapper goes by reference: the host may hand back another
        // object, or none, and the frame keeps what comes back.
        WidgetChange change{.theSecondControl = mTranslatorWrapper};
        parent.widgetChangeHandler(textBox(Index), change);
        mTranslatorWrapper = std::move(change.theSecondControl);
      } else if (tag == "Subwork") {
        parent.widgetChangeHandler(textBox(Index), {.theSecondControl = SubworkComboLabel(),
                                                    .secondaryText = secondaryText});
      } else if (tag == "Year") {
        parent.widgetChangeHandler(
            textBox(Index), {.suppressShowSubform = !Late::object(AccessDate()).Text().empty() &&
                                                    mWebsiteImpliesDate});
      } else if (tag == "Online") {
        parent.widgetChangeHandler(Online(),
                                   {.toggleSecondIndex = Late::object(AccessDate()).Index()});
      } else if (tag == "v8_PublicationMedium") {
        parent.widgetChangeHandler(textBox(Index), {.theSecondControl = PublicationMediumLabel()});
      } else {
        parent.widgetChangeHandler(textBox(Index));
      }
    });
    // A new website can change the publisher row, and the rules may have
    // changed the rows of WebsiteFrame.
    proc.step([&] {
      if (tag == "AccessDate" || tag == "Online")
        ToggleShowAllFields(true);
    });
  });
}

void NonPeriodical::TextBox_LostFocus(int16_t Index) {
  Procedure proc{this, procedureName<"NonPeriodical.TextBox_LostFocus">(), {arg("Index", Index)}};
  proc.run([&] {
    std::string_view tag;
    proc.local("tag", tag);
    // Focus that leaves the control altogether leaves no active widget.
    proc.step([&] {
      if (!ActiveControl())
        proc.exitAfterStatement();
    });
    proc.step([&] { tag = keyOf(textBox(Index)); });
    // The place goes with the publisher, the year with the access date.
    proc.step([&] {
      auto& parent = FrameParent::of(*this);
      if (tag == "MultiPartWork") {
        parent.ProcessTextField(textBox(Index), Late::object(MultiPartComboLabel()).Caption());
      } else if (tag == "Place") {
        parent.ProcessTextField(textBox(Index), Late::object(Publisher()).Text());
      } else if (tag == "Subwork") {
        parent.ProcessTextField(
            textBox(Index), parent.CaptionToTitleType(kSubworkTitleType,
                                                      Late::object(SubworkComboLabel()).Caption()));
      } else if (tag == "Year") {
        parent.ProcessTextField(textBox(Index),
                                mWebsiteImpliesDate ? Late::object(AccessDate()).Text() : "");
      } else if (tag == "v8_PublicationMedium") {
        parent.ProcessTextField(textBox(Index), Late::object(PublicationMediumLabel()).Caption());
      } else {
        parent.ProcessTextField(textBox(Index));
      }
    });
  });
}

// The flag is a hint that the field means something special now.
void NonPeriodical::TextBox_MouseMove(int16_t Index) {
  Procedure proc{this, procedureName<"NonPeriodical.TextBox_MouseMove">(), {arg("Index", Index)}};
  proc.run([&] {
    std::string_view tag;
    bool flag = false;
    proc.local("tag", tag);
    proc.local("flag", flag);
    proc.step([&] { tag = keyOf(textBox(Index)); });
    proc.step([&] {
      if (tag == "Year") {
        if (!mWebsiteImpliesDate)
          proc.exitProcedure();
        flag = Late::object(AccessDate()).Text().empty();
      } else if (tag == "AccessDate" || tag == "v579_BookPublishDate") {
        flag = mWebsiteImpliesDate;
      } else if (tag == "Online" || tag == "Publisher") {
        flag = mWebsiteImpliesDate && !Late::object(BookOption()).Value();
      } else if (tag == "v8_PublicationMedium") {
        const std::string& medium = Late::object(PublicationMediumLabel()).Caption();
        flag = medium == "Microform" || medium == "Microfilm" || medium == "Microfiche";
      }
    });
    proc.step([&] {
      FrameParent::of(*this).HandleMouseMove({.field = textBox(Index), .isNewspaperSection = flag});
    });
  });
}

// The access date catcher. WebsiteFrame clips it at every height the layout
// gives, so it is kept ready rather than reached.
void NonPeriodical::AccessDateHack_MouseMove() {
  Procedure proc{this, procedureName<"NonPeriodical.AccessDateHack_MouseMove">()};
  proc.run([&] {
    proc.step([&] {
      if (mEnableAccessDate)
        proc.exitAfterStatement();
    });
    proc.step([&] {
      FrameParent::of(*this).HandleMouseMove({.field = widget<Label>("AccessDateHack")});
    });
  });
}

void NonPeriodical::UserControl_EnterFocus() {
  Procedure proc{this, procedureName<"NonPeriodical.UserControl_EnterFocus">()};
  proc.run([&] { proc.step([&] { FrameParent::of(*this).UserFormEnterFocus(ActiveControl()); }); });
}

// Movement over the form or a sub-frame reaches the host with no field at
// all, so that it can clear what it shows.
void NonPeriodical::UserControl_MouseMove() {
  Procedure proc{this, procedureName<"NonPeriodical.UserControl_MouseMove">()};
  proc.run([&] { proc.step([&] { FrameParent::of(*this).HandleMouseMove(); }); });
}

void NonPeriodical::subFrame_MouseMove(const ProcedureName& name) {
  Procedure proc{this, name};
  proc.run([&] { proc.step([&] { FrameParent::of(*this).HandleMouseMove(); }); });
}

void NonPeriodical::UserControl_OLEDragDrop(std::shared_ptr<DataObject>& Data) {
  Procedure proc{
      this, procedureName<"NonPeriodical.UserControl_OLEDragDrop">(), {arg("Data", Data)}};
  proc.run([&] { proc.step([&] { forwardDrop(Data); }); });
}

void NonPeriodical::subFrame_OLEDragDrop(const ProcedureName& name,
                                         std::shared_ptr<DataObject>& Data) {
  Procedure proc{this, name, {arg("Data", Data)}};
  proc.run([&] { proc.step([&] { forwardDrop(Data); }); });
}

// The host may hand back other data; the dropper sees what it left.
void NonPeriodical::forwardDrop(std::shared_ptr<DataObject>& Data) {
  FrameForms::forwardDrop(this, procedureName<"NonPeriodical.forwardDrop">(), *this, Data);
}

// ---------------------------------------------------------------------------
// Layout
//
// Sub-frames on the form count pixels, widgets inside them twips. The left
// column moves by fixed slots, the design tops of its rows; the right column
// below WebsiteFrame stacks each frame 6 pixels below the one above it.

void NonPeriodical::ArrangeAllFields() {
  Procedure proc{this, procedureName<"NonPeriodical.ArrangeAllFields">()};
  proc.run([&] {
    proc.step([&] { ArrangeLeftFields(); });
    proc.step([&] { ArrangeAndSetHeightOfWebFrame(); });
    // WebsiteFrame is a reference even while hidden: its height counts.
    proc.step([&] { AlignFrame(subFrame("EditorFrame"), subFrame("WebsiteFrame")); });
    proc.step([&] {
      if (subFrame("EditorFrame")->Visible()) {
        AlignFrame(subFrame("MultipartWorkFrame"), subFrame("EditorFrame"));
      } else {
        AlignFrame(subFrame("MultipartWorkFrame"), subFrame("WebsiteFrame"));
      }
    });
    proc.step([&] {
      if (subFrame("MultipartWorkFrame")->Visible()) {
        AlignFrame(subFrame("NotesFrame"), subFrame("MultipartWorkFrame"));
      } else if (subFrame("EditorFrame")->Visible()) {
        AlignFrame(subFrame("NotesFrame"), subFrame("EditorFrame"));
      } else {
        AlignFrame(subFrame("NotesFrame"), subFrame("WebsiteFrame"));
      }
    });
  });
}

// The tree is asymmetric on purpose: only where publisher shows and place
// and page are hidden is the edition row asked about; elsewhere the
// sub-work row sits one slot below the edition's slot even when the edition
// is hidden. The publisher row never moves.
void NonPeriodical::ArrangeLeftFields() {
  Procedure proc{this, procedureName<"NonPeriodical.ArrangeLeftFields">()};
  proc.run([&] {
    bool publisher = false;
    bool place = false;
    bool page = false;
    bool edition = false;
    // Taken once, before anything has moved: the design is the only source
    // of the slots.
    if (PlaceFrameTop == 0.0f) {
      proc.step([&] { PublisherFrameTop = subFrame("PublisherFrame")->Top(); });
      proc.step([&] { PlaceFrameTop = subFrame("PlaceFrame")->Top(); });
      proc.step([&] { PageFrameTop = subFrame("PageFrame")->Top(); });
      proc.step([&] { EditionFrameTop = subFrame("EditionFrame")->Top(); });
      proc.step([&] { SubworkFrameTop = subFrame("SubworkFrame")->Top(); });
    }
    proc.step([&] { publisher = subFrame("PublisherFrame")->Visible(); });
    proc.step([&] { place = subFrame("PlaceFrame")->Visible(); });
    proc.step([&] { page = subFrame("PageFrame")->Visible(); });
    const float P = PublisherFrameTop;
    const float L = PlaceFrameTop;
    const float G = PageFrameTop;
    const float E = EditionFrameTop;
    const float S = SubworkFrameTop;
    auto placeAt = [&](const char* frame, float top,
                       std::source_location at = std::source_location::current()) {
      proc.step([&] { AlignFields(subFrame(frame), nullptr, top); }, at);
    };
    if (publisher) {
      if (place && page) {
        placeAt("PageFrame", G);
        placeAt("EditionFrame", E);
        placeAt("SubworkFrame", S);
      } else if (place) {
        placeAt("PageFrame", G);
        placeAt("EditionFrame", G);
        placeAt("SubworkFrame", E);
      } else if (page) {
        placeAt("PageFrame", L);
        placeAt("EditionFrame", G);
        placeAt("SubworkFrame", E);
      } else {
        proc.step([&] { edition = subFrame("EditionFrame")->Visible(); });
        if (edition) {
          placeAt("PageFrame", L);
          placeAt("EditionFrame", L);
          placeAt("SubworkFrame", G);
        } else {
          placeAt("PageFrame", L);
          placeAt("SubworkFrame", L);
        }
      }
    } else if (place && page) {
      placeAt("PlaceFrame", P);
      placeAt("PageFrame", L);
      placeAt("EditionFrame", G);
      placeAt("SubworkFrame", E);
    } else if (place) {
      placeAt("PlaceFrame", P);
      placeAt("PageFrame", L);
      placeAt("EditionFrame", L);
      placeAt("SubworkFrame", G);
    } else if (page) {
      placeAt("PlaceFrame", P);
      placeAt("PageFrame", P);
      placeAt("EditionFrame", L);
      placeAt("SubworkFrame", G);
    } else {
      placeAt("PlaceFrame", P);
      placeAt("PageFrame", P);
      placeAt("EditionFrame", P);
      placeAt("SubworkFrame", L);
    }
  });
}

// Three rows of 405 twips' pitch: the website, then the dates that show.
// The date type combo keeps its design place beside the second row, which
// holds only because the format that shows it shows both dates. With the
// website row hidden the dates are not looked at: the collapsed frame cuts
// them off.
void NonPeriodical::ArrangeAndSetHeightOfWebFrame() {
  // The literals are pixels: the frame's place below the medium row, and
  // the height that marks a collapsed frame.
  static constexpr float kBelowMedium = 27.0f;
  static constexpr float kCollapsed = 1.0f;
  Procedure proc{this, procedureName<"NonPeriodical.ArrangeAndSetHeightOfWebFrame">()};
  proc.run([&] {
    bool online = false;
    bool access = false;
    bool publish = false;
    if (FirstRowTop == 0.0f) {
      proc.step([&] { FirstRowTop = Late::object(AccessDate()).Top(); });
      proc.step([&] { SecondRowTop = Late::object(PublishDate()).Top(); });
    }
    proc.step([&] {
      subFrame("WebsiteFrame")
          ->Top(subFrame("PublicationMediumFrame")->Visible() ? kBelowMedium : 0.0f);
    });
    proc.step([&] { online = Late::object(Online()).Visible(); });
    if (!online) {
      proc.step([&] { subFrame("WebsiteFrame")->Height(kCollapsed); });
      return;
    }
    proc.step([&] { access = Late::object(AccessDate()).Visible(); });
    proc.step([&] { publish = Late::object(PublishDate()).Visible(); });
    if (access) {
      proc.step([&] { AlignFields(AccessDate(), namedLabel("AccessDateLabel"), FirstRowTop); });
      if (publish) {
        proc.step(
            [&] { AlignFields(PublishDate(), namedLabel("PublishDateLabel"), SecondRowTop); });
        proc.step([&] { subFrame("WebsiteFrame")->Height(FrameBottomEdge(PublishDate())); });
      } else {
        proc.step([&] { subFrame("WebsiteFrame")->Height(FrameBottomEdge(AccessDate())); });
      }
    } else if (publish) {
      proc.step([&] { AlignFields(PublishDate(), namedLabel("PublishDateLabel"), FirstRowTop); });
      proc.step([&] { subFrame("WebsiteFrame")->Height(FrameBottomEdge(PublishDate())); });
    } else {
      proc.step([&] { subFrame("WebsiteFrame")->Height(FrameBottomEdge(Online())); });
    }
  });
}

// A collapsed reference frame (height exactly 1) takes no room and no gap.
void NonPeriodical::AlignFrame(const std::shared_ptr<Frame>& targetFrame,
                               const std::shared_ptr<Frame>& referenceFrame) {
  static constexpr float kGap = 6.0f;
  Procedure proc{this,
                 procedureName<"NonPeriodical.AlignFrame">(),
                 {arg("targetFrame", targetFrame), arg("referenceFrame", referenceFrame)}};
  proc.run([&] {
    float height = 0.0f;
    proc.local("height", height);
    proc.step([&] { height = Late::object(referenceFrame).Height(); });
    proc.step([&] {
      if (height == 1.0f) {
        height = 0.0f;
      } else {
        height += kGap;
      }
    });
    proc.step(
        [&] { AlignFields(targetFrame, nullptr, Late::object(referenceFrame).Top() + height); });
  });
}

// Hidden rows keep their old place.
void NonPeriodical::AlignFields(const std::shared_ptr<Widget>& Control,
                                const std::shared_ptr<Widget>& Label, float top) {
  Procedure proc{this,
                 procedureName<"NonPeriodical.AlignFields">(),
                 {arg("Control", Control), arg("Label", Label), arg("top", top)}};
  proc.run([&] {
    proc.step([&] {
      if (!Late::object(Control).Visible())
        proc.exitAfterStatement();
    });
    proc.step([&] { Late::object(Control).Top(top); });
    // Centred on its field.
    proc.step([&] {
      if (Label) {
        auto& field = Late::object(Control);
        Label->Top(field.Top() + (field.Height() - Label->Height()) / 2);
      }
    });
  });
}

// The bottom edge of a widget inside WebsiteFrame, in twips, as a height of
// the frame in pixels.
float NonPeriodical::FrameBottomEdge(const std::shared_ptr<kelmora::TextBox>& TextBox) {
  Procedure proc{this, procedureName<"NonPeriodical.FrameBottomEdge">(), {arg("TextBox", TextBox)}};
  return proc.run<float>([&](float& result) {
    proc.step([&] {
      auto& box = Late::object(TextBox);
      result = (box.Top() + box.Height()) / Screen::instance()->TwipsPerPixelY();
    });
  });
}

// ---------------------------------------------------------------------------
// Format rules

void NonPeriodical::initializeFormatDependentWidgetToggler(
    std::shared_ptr<FormatterSettings>& formatterSettings,
    std::shared_ptr<DepWidgetToggler>& dependentWidgetToggler,
    std::shared_ptr<Dictionary>& keyToOverallIndex) {
  Procedure proc{this,
                 procedureName<"NonPeriodical.initializeFormatDependentWidgetToggler">(),
                 {arg("formatterSettings", formatterSettings),
                  arg("dependentWidgetToggler", dependentWidgetToggler),
                  arg("keyToOverallIndex", keyToOverallIndex)}};
  proc.run([&] {
    bool usesBookPageRange = false;
    std::string pageAndRangeWidgets;
    proc.local("usesBookPageRange", usesBookPageRange);
    proc.local("pageAndRangeWidgets", pageAndRangeWidgets);
    auto addRule = [&](const char* enableKey, const char* dependentWidgets, bool toggleByHiding) {
      Late::object(dependentWidgetToggler)
          .Add(Late::object(keyToOverallIndex), enableKey, dependentWidgets,
               {.toggleByHiding = toggleByHiding});
    };
    // Website rows and access date only while the medium label still reads
    // "Medium" or the website option is on: a book in a named medium has
    // no website row.
    static constexpr const char* kWebsiteWhileUnnamedMedium =
        "v8_PublicationMediumComboLabel=Medium||v6_WebsiteOption=True";
    static constexpr const char* kWebsiteRows = "WebsiteLabel,Online,AccessDateLabel,AccessDate";

    proc.step([&] { mWebsiteImpliesDate = Late::object(formatterSettings).WebsiteImpliesDate(); });
    proc.step([&] { mEnableAccessDate = true; });
    proc.step([&] { mFormat = Late::object(formatterSettings).Format(); });
    proc.step([&] {
      if (mFormat != 0)
        namedLabel("PublishDateLabel")->Caption("Publish date");
    });
    proc.step([&] { mOnlineTemplate.reset(); });
    // Any other number runs none of these and keeps the state as it stands.
    if (mFormat == 0) {
      proc.step([&] { addRule(kWebsiteWhileUnnamedMedium, kWebsiteRows, true); });
      proc.step([&] {
        addRule("Online<>", "AccessDateLabel,AccessDate,PublishDateLabel,v579_BookPublishDate",
                true);
      });
      proc.step([&] { namedLabel("PublishDateLabel")->Caption("Update date"); });
      proc.step([&] { showPublicationType(false); });
    } else if (mFormat == 1) {
      // The website row shows always, and the access date is never used.
      proc.step(
          [&] { addRule("v8_PublicationMediumComboLabel=__ALWAYS_ENABLE__", kWebsiteRows, true); });
      proc.step([&] { addRule("Online=__ALWAYS_ENABLE__", "WebsiteLabel", true); });
      proc.step(
          [&] { addRule("AccessDate=__ALWAYS_DISABLE__", "AccessDateLabel,AccessDate", true); });
      proc.step([&] {
        addRule("v6_WebsiteOption=True&&Online<>", "PublishDateLabel,v579_BookPublishDate", true);
      });
      proc.step([&] { mEnableAccessDate = false; });
      proc.step([&] { showPublicationType(false); });
    } else if (mFormat == 2) {
      proc.step([&] { mOnlineTemplate = Late::object(formatterSettings).outputTemplates(13); });
      proc.step([&] { addRule(kWebsiteWhileUnnamedMedium, kWebsiteRows, true); });
      proc.step([&] { showPublicationType(false); });
    } else if (mFormat == 3) {
      proc.step([&] { addRule(kWebsiteWhileUnnamedMedium, kWebsiteRows, true); });
      proc.step([&] {
        addRule("Online<>",
                "AccessDateLabel,AccessDate,v8_PublicationDateTypeComboBox,v579_BookPublishDate",
                true);
      });
      // Greyed, not hidden, while a book's sub-work is an entry.
      proc.step([&] {
        addRule("SubworkComboLabel<>Entry||v6_WebsiteOption=True", "PageLabel,Page", false);
      });
      proc.step([&] { usesBookPageRange = true; });
      proc.step([&] { showPublicationType(true); });
    }
    // Named but ruled by nothing; no rule is to be made of it.
    proc.step([&] { pageAndRangeWidgets = "PageLabel,Page,PageRangeLabel,v579_PageRange"; });
    proc.step([&] { configureFormForBookPageRange(usesBookPageRange); });
    // The first format of a frame's life shows nothing yet: UpdateFrame does.
    proc.step([&] {
      if (isSecondCall) {
        ToggleShowAllFields(true);
      } else {
        isSecondCall = true;
      }
    });
  });
}

// The date row holds the date type combo in place of its fixed label.
void NonPeriodical::showPublicationType(bool value) {
  Procedure proc{
      this, procedureName<"NonPeriodical.showPublicationType[Let]">(), {arg("value", value)}};
  proc.run([&] {
    proc.step([&] { Late::object(PublicationDateTypeComboBox()).Visible(value); });
    proc.step([&] { namedLabel("PublishDateLabel")->Visible(!value); });
  });
}

// Switches the page row between one wide page field and page plus page
// range. The guards compare widths exactly: the row is in range state
// precisely when page and place are of one width, so no other code may set
// those widths.
void NonPeriodical::configureFormForBookPageRange(bool usesBookPageRange) {
  Procedure proc{this,
                 procedureName<"NonPeriodical.configureFormForBookPageRange">(),
                 {arg("usesBookPageRange", usesBookPageRange)}};
  proc.run([&] {
    float gap = 0.0f;
    proc.step([&] { gap = 8 * Screen::instance()->TwipsPerPixelX(); });
    if (usesBookPageRange) {
      proc.step([&] { namedLabel("PageRangeLabel")->Visible(true); });
      proc.step([&] { Late::object(BookPageRange()).Visible(true); });
      proc.step([&] {
        if (Late::object(Page()).Width() == Late::object(Place()).Width())
          proc.exitProcedure();
      });
      proc.step([&] {
        auto& page = Late::object(Page());
        page.Width(namedLabel("PageRangeLabel")->Left() - page.Left() - gap);
      });
      proc.step([&] { Late::object(Place()).Width(Late::object(Page()).Width()); });
    } else {
      proc.step([&] { namedLabel("PageRangeLabel")->Visible(false); });
      proc.step([&] { Late::object(BookPageRange()).Visible(false); });
      proc.step([&] {
        auto& range = Late::object(BookPageRange());
        const float widthToRangeEnd = range.Left() + range.Width() - Late::object(Page()).Left();
        if (Late::object(Page()).Width() == widthToRangeEnd)
          proc.exitProcedure();
      });
      // The page field takes over the room of the range field.
      proc.step([&] {
        auto& range = Late::object(BookPageRange());
        auto& page = Late::object(Page());
        page.Width(range.Left() + range.Width() - page.Left());
      });
      // The place field grows up to the year label, so the two fields are
      // no longer of one width.
      proc.step([&] {
        auto& place = Late::object(Place());
        place.Width(namedLabel("YearLabel")->Left() - place.Left() - gap);
      });
    }
  });
}

// ---------------------------------------------------------------------------
// Widget getters and lookups

template <typename T>
std::shared_ptr<T> NonPeriodical::member(const ProcedureName& name, const char* array,
                                         int16_t index, const char* verifyTag) {
  return FrameForms::member<T>(this, name, *this, array, index, verifyTag);
}

std::shared_ptr<Label> NonPeriodical::SubworkComboLabel() {
  return member<Label>(procedureName<"NonPeriodical.SubworkComboLabel[Get]">(), "ComboLabel",
                       kSubworkComboLabel, "SubworkComboLabel");
}
std::shared_ptr<Label> NonPeriodical::PublicationMediumLabel() {
  return member<Label>(procedureName<"NonPeriodical.PublicationMediumLabel[Get]">(), "ComboLabel",
                       1, "v8_PublicationMediumComboLabel");
}
std::shared_ptr<Label> NonPeriodical::CompilerOrEditorComboLabel() {
  return member<Label>(procedureName<"NonPeriodical.CompilerOrEditorComboLabel[Get]">(),
                       "ComboLabel", 2, "CompilerOrEditorComboLabel");
}
std::shared_ptr<Label> NonPeriodical::MultiPartComboLabel() {
  return member<Label>(procedureName<"NonPeriodical.MultiPartComboLabel[Get]">(), "ComboLabel", 3,
                       "MultiPartComboLabel");
}
std::shared_ptr<ComboBox> NonPeriodical::PublicationDateTypeComboBox() {
  return member<kelmora::ComboBox>(
      procedureName<"NonPeriodical.PublicationDateTypeComboBox[Get]">(), "ComboBox", 0,
      "v8_PublicationDateTypeComboBox");
}
std::shared_ptr<TextBox> NonPeriodical::Publisher() {
  return member<kelmora::TextBox>(procedureName<"NonPeriodical.Publisher[Get]">(), "TextBox", 2,
                                  "Publisher");
}
std::shared_ptr<TextBox> NonPeriodical::Place() {
  return member<kelmora::TextBox>(procedureName<"NonPeriodical.Place[Get]">(), "TextBox", 3,
                                  "Place");
}
std::shared_ptr<TextBox> NonPeriodical::Page() {
  return member<kelmora::TextBox>(procedureName<"NonPeriodical.Page[Get]">(), "TextBox", 5, "Page");
}
std::shared_ptr<TextBox> NonPeriodical::BookPageRange() {
  return member<kelmora::TextBox>(procedureName<"NonPeriodical.BookPageRange[Get]">(), "TextBox", 6,
                                  "v579_PageRange");
}
std::shared_ptr<TextBox> NonPeriodical::Subwork() {
  return member<kelmora::TextBox>(procedureName<"NonPeriodical.Subwork[Get]">(), "TextBox", 8,
                                  "Subwork");
}
// Website and Online are two names for one text box, both in use.
std::shared_ptr<TextBox> NonPeriodical::Website() {
  return member<kelmora::TextBox>(procedureName<"NonPeriodical.Website[Get]">(), "TextBox", 10,
                                  "Online");
}
std::shared_ptr<TextBox> NonPeriodical::Online() {
  return member<kelmora::TextBox>(procedureName<"NonPeriodical.Online[Get]">(), "TextBox", 10,
                                  "Online");
}
std::shared_ptr<TextBox> NonPeriodical::AccessDate() {
  return member<kelmora::TextBox>(procedureName<"NonPeriodical.AccessDate[Get]">(), "TextBox", 11,
                                  "AccessDate");
}
std::shared_ptr<TextBox> NonPeriodical::PublishDate() {
  return member<kelmora::TextBox>(procedureName<"NonPeriodical.PublishDate[Get]">(), "TextBox", 12,
                                  "v579_BookPublishDate");
}
// Hands back the translator box, not the multi-volume box its key names.
// Nothing reads it, so the mismatch shows nowhere; it stays as it is.
std::shared_ptr<TextBox> NonPeriodical::MultiPartWork() {
  return member<kelmora::TextBox>(procedureName<"NonPeriodical.MultiPartWork[Get]">(), "TextBox",
                                  14, "MultiPartWork");
}
std::shared_ptr<OptionButton> NonPeriodical::BookOption() {
  return member<kelmora::OptionButton>(procedureName<"NonPeriodical.BookOption[Get]">(),
                                       "OptionButton", 0, "v6_BookOption");
}

std::shared_ptr<Frame> NonPeriodical::subFrame(const char* name) const {
  return widget<Frame>(name);
}
std::shared_ptr<Label> NonPeriodical::namedLabel(const char* name) const {
  return widget<Label>(name);
}
std::shared_ptr<TextBox> NonPeriodical::textBox(int16_t Index) const {
  return widget<kelmora::TextBox>("TextBox", Index);
}
std::shared_ptr<OptionButton> NonPeriodical::optionButton(int16_t Index) const {
  return widget<kelmora::OptionButton>("OptionButton", Index);
}
std::shared_ptr<ComboBox> NonPeriodical::comboBox(int16_t Index) const {
  return widget<kelmora::ComboBox>("ComboBox", Index);
}
std::shared_ptr<Label> NonPeriodical::comboLabel(int16_t Index) const {
  return widget<Label>("ComboLabel", Index);
}

int16_t NonPeriodical::arrayCount(const char* array) const {
  return FrameForms::arrayCount(*this, array);
}

}  // namespace kelmora
