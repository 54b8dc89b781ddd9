#include "proxy/FrameProxy.h"

#include <iostream>

#include "diagnostics/CommonFormProcessingFunctions.h"
#include "diagnostics/Procedure.h"
#include "model/Model.h"
#include "platform/Arrays.h"
#include "platform/Late.h"
#include "platform/ReleasePool.h"
#include "proxy/ReferenceFrame.h"
#include "surface/CheckBox.h"
#include "surface/ComboBox.h"
#include "surface/ControlCollection.h"
#include "surface/Label.h"
#include "surface/MessageBox.h"
#include "surface/OptionButton.h"
#include "surface/SystemColors.h"
#include "surface/TextBox.h"
#include "surface/TypeName.h"
#include "surface/UserControl.h"

namespace kelmora {

namespace {}  // namespace

// ---------------------------------------------------------------------------
// Set-up and end

void FrameProxy::initialize(const std::shared_ptr<Widget>& frame,
                            const std::shared_ptr<Model>& metaData) {
  Procedure proc{this,
                 procedureName<"FrameProxy.initialize">(),
                 {arg("frame", frame), arg("metaData", metaData)}};
  proc.run([&] {
    std::string authorKey;
    proc.local("authorKey", authorKey);
    proc.step([&] {
      mFrame = frame;
      mFrameOperations = dynamic_cast<ReferenceFrame*>(frame.get());
    });
    proc.step([&] { initControls(frameOperations().getControls()); });
    proc.step([&] {
      Late::object(metaData).getUIMetadata(mKeyToOverallIndex, mSynchronizableToInternalIndex,
                                           mSynchronizableControlIndices, mInternalKeyToControlKey,
                                           mTooltips, authorKey);
    });
    proc.step([&] { mKeyToInternalIndex = Late::object(metaData).keyToInternalIndex(); });
    proc.step([&] {
      mAuthor = Arrays::at(mControls, Late::object(mKeyToOverallIndex).Item(authorKey).toInteger());
    });
    proc.step([&] { frameOperations().initialize(); });
    // Made last: nothing may reach the rule table before the frame's own
    // initialize has returned.
    proc.step([&] { mDependentWidgetToggler = std::make_shared<DepWidgetToggler>(); });
  });
}

void FrameProxy::initControls(const std::shared_ptr<Object>& controls) {
  Procedure proc{this, procedureName<"FrameProxy.initControls">()};
  proc.run([&] {
    int16_t i = 0;
    int16_t j = 0;
    int16_t upper = -1;
    proc.local("i", i);
    proc.local("j", j);
    ControlCollection* collection = nullptr;
    proc.step([&] {
      collection = &Late::as<ControlCollection>(controls);
      upper = Variant(collection->Count() - 1).toInteger();
      Arrays::ReDim(mControls, upper);
    });
    // A left-out widget is written into the next free slot and then
    // overwritten, so the registered widgets stay contiguous.
    for (i = 0; i <= upper; ++i) {
      proc.step([&] {
        Arrays::at(mControls, j) = Late::object(collection).Item(i);
        if (!Late::object(Arrays::at(mControls, j)).Tag().starts_with("vIgnore_"))
          ++j;
      });
    }
    // The table keeps one slot more than it has registered widgets when any
    // was left out; no index table points at that slot.
    proc.step([&] {
      if (i != j)
        Arrays::ReDimPreserve(mControls, j);
    });
  });
}

void FrameProxy::classEnd() {
  if (!mFrame)
    return;
  // The frame's Terminate first, while its widgets still stand.
  frameOperations().Terminate();
  // The host may end the control from inside a call of this proxy's: what
  // that call still uses is let go of once it has returned.
  ReleasePool::release(mFrame);
  mFrameOperations = nullptr;
  mControls.clear();
  ReleasePool::release(mKeyToInternalIndex);
  ReleasePool::release(mKeyToOverallIndex);
  ReleasePool::release(mDependentWidgetToggler);
  ReleasePool::release(mAuthor);
}

FrameProxy::~FrameProxy() {
  if (!mFrame)
    return;
  try {
    classEnd();
  } catch (const RuntimeError& error) {
    // A destructor cannot hand the failure on; say so rather than lose it.
    std::cerr << "Kelmora: FrameProxy ended with error " << error.Number() << ": "
              << error.Description() << "\n";
  }
}

ReferenceFrame& FrameProxy::frameOperations() const {
  Late::object(mFrame);
  // A frame that does not honour the contract has none of its members.
  if (mFrameOperations == nullptr)
    throw RuntimeError(kMemberNotSupported);
  return *mFrameOperations;
}

// ---------------------------------------------------------------------------
// Loading and reset

void FrameProxy::SynchronizeFieldsWithModel(std::vector<std::string>& values) {
  Procedure proc{this, procedureName<"FrameProxy.SynchronizeFieldsWithModel">()};
  proc.run([&] {
    int16_t i = 0;
    std::string value;
    bool boolvalue = false;
    std::shared_ptr<Widget> ctrl;
    int16_t upper = -1;
    proc.local("i", i);
    proc.local("value", value);
    proc.local("boolvalue", boolvalue);
    proc.local("ctrl", ctrl);
    proc.step([&] { upper = Arrays::UBound(mSynchronizableControlIndices); });
    for (i = 0; i <= upper; ++i) {
      proc.step(
          [&] { ctrl = Arrays::at(mControls, Arrays::at(mSynchronizableControlIndices, i)); });
      proc.step([&] { value = Arrays::at(values, Arrays::at(mSynchronizableToInternalIndex, i)); });
      proc.step([&] {
        // A filled field shows its own content as its tooltip.
        Late::object(ctrl).ToolTipText(
            value.empty() ? Arrays::at(mTooltips, Arrays::at(mSynchronizableToInternalIndex, i))
                          : value);
      });
      proc.step([&] {
        const std::string className = kelmora::TypeName(ctrl.get());
        if (className == "TextBox") {
          Late::as<TextBox>(ctrl).Text(value);
        } else if (className == "ComboBox") {
          int16_t index = ctrl->Index();
          frameOperations().SelectItem(value, index);
        } else if (className == "OptionButton") {
          boolvalue = convertToBool(value);
          Late::as<OptionButton>(ctrl).Value(boolvalue);
        } else if (className == "CheckBox") {
          boolvalue = convertToBool(value);
          Late::as<CheckBox>(ctrl).Value(boolvalue ? 1 : 0);
        } else if (className == "Label") {
          if (ctrl->Name() == "ComboLabel") {
            int16_t index = ctrl->Index();
            Late::as<Label>(ctrl).Caption(frameOperations().ComboLabelCaption(index, value));
          } else {
            MessageBox::MsgBox("Unknown Label");
          }
        } else {
          MessageBox::MsgBox("Unknown " + className);
        }
      });
    }
    proc.step(
        [&] { Late::object(mDependentWidgetToggler).ToggleFormatDependentWidgets(mControls); });
  });
}

bool FrameProxy::convertToBool(const std::string& value) {
  Procedure proc{this, procedureName<"FrameProxy.convertToBool">(), {arg("value", value)}};
  return proc.run<bool>([&](bool& result) {
    // Anything that is no boolean is False, and nobody needs to hear of it.
    // Stored records leave most switches empty, so the text is read without
    // a failure to skip.
    proc.goOnPastFailures();
    proc.step([&] {
      if (!Variant::parseBoolean(value, result))
        result = false;
    });
  });
}

void FrameProxy::Reset(bool showAllFields) {
  Procedure proc{this, procedureName<"FrameProxy.Reset">(), {arg("showAllFields", showAllFields)}};
  proc.run([&] {
    int16_t upper = -1;
    int16_t index = -1;
    proc.step([&] { upper = Arrays::UBound(mControls); });
    for (int16_t i = 0; i <= upper; ++i) {
      // Empty slots and left-out widgets fall through the class test.
      proc.step([&] {
        const auto& ctrl = Arrays::at(mControls, i);
        if (kelmora::TypeName(ctrl.get()) == "TextBox")
          ctrl->ForeColor(kColorWindowText);
      });
    }
    proc.step([&] { UpdateFrame(index, showAllFields); });
  });
}

bool FrameProxy::isKeyField(std::string_view str) {
  Procedure proc{this, procedureName<"FrameProxy.isKeyField">(), {arg("str", str)}};
  return proc.run<bool>([&](bool& result) {
    proc.step([&] {
      switch (str.size()) {
        case 3:
          result = str == "key";
          break;
        case 4:
          result = str == "date" || str == "year";
          break;
        case 5:
          result = str == "title";
          break;
        case 6:
          result = str == "author";
          break;
        case 9:
          result = str == "onlineKey";
          break;
        case 11:
          result = str == "esourceDate";
          break;
        case 12:
          result = str == "articletitle" || str == "EsourceTitle";
          break;
        case 13:
          result = str == "esourceAuthor";
          break;
        case 15:
          result = str == "headingTitleKey";
          break;
        default:
          result = false;
      }
    });
  });
}

// ---------------------------------------------------------------------------
// Change handling and pass-through

bool FrameProxy::widgetChangeHandler(const std::shared_ptr<Widget>& theControl, int16_t& Index,
                                     std::string& value, bool& suppressShowForm) {
  Procedure proc{this,
                 procedureName<"FrameProxy.widgetChangeHandler">(),
                 {arg("theControl", theControl), arg("Index", Index), arg("value", value),
                  arg("suppressShowForm", suppressShowForm)}};
  return proc.run<bool>([&](bool& result) {
    // The index first: the tooltip below needs it.
    proc.step([&] {
      Index = Late::object(mKeyToInternalIndex)
                  .Item(CommonFormProcessingFunctions::GetTag(theControl, false))
                  .toInteger();
    });
    proc.step([&] {
      const std::string className = kelmora::TypeName(theControl.get());
      if (className == "TextBox") {
        if (value.empty())
          theControl->defaultText(value);
        theControl->ToolTipText(value.empty() ? Arrays::at(mTooltips, Index) : value);
      } else if (className == "ComboBox") {
        if (value.empty())
          value = Late::as<ComboBox>(theControl).Text();
      } else if (className == "OptionButton" || className == "CheckBox") {
        // Compared as numbers: a check box holds 1 or 0, an option button
        // True (-1) or False (0), so a selected option reads "True" below.
        const Variant state = theControl->DefaultValue();
        const int32_t number = state.toLong();
        if (number == 1) {
          if (value.empty())
            value = "True";
        } else if (number == 0) {
          if (value.empty())
            value = "False";
        } else if (value.empty()) {
          value = state.toString();
        }
      } else if (className == "Label") {
        if (theControl->Name().ends_with("ComboLabel")) {
          if (value.empty())
            value = Late::as<Label>(theControl).Caption();
        } else {
          MessageBox::MsgBox("Unknown " + className);
        }
      } else {
        MessageBox::MsgBox("Unknown " + className);
      }
    });
    proc.step([&] { suppressShowForm = !Late::object(theControl).Enabled(); });
    proc.step(
        [&] { result = isKeyField(CommonFormProcessingFunctions::GetTag(theControl, true)); });
  });
}

void FrameProxy::HandleUnsupportedReferenceType(bool supported) {
  Procedure proc{this,
                 procedureName<"FrameProxy.HandleUnsupportedReferenceType">(),
                 {arg("supported", supported)}};
  proc.run([&] {
    const std::string alternateReferenceTypeInstructions = kAlternateReferenceTypeInstructions;
    proc.local("alternateReferenceTypeInstructions", alternateReferenceTypeInstructions);
    if (supported) {
      proc.step([&] { Late::object(mAuthor).Enabled(true); });
      proc.step([&] {
        // A text the user typed stays; only the instructions go.
        auto& author = Late::object(mAuthor);
        if (author.DefaultValue().toString() == alternateReferenceTypeInstructions) {
          author.setDefaultText("");
        }
      });
    } else {
      proc.step([&] { Late::object(mAuthor).Enabled(false); });
      proc.step([&] { Late::object(mAuthor).setDefaultText(alternateReferenceTypeInstructions); });
    }
  });
}

void FrameProxy::ExecuteDependentWidgetToggler(int16_t Index) {
  Procedure proc{
      this, procedureName<"FrameProxy.ExecuteDependentWidgetToggler">(), {arg("Index", Index)}};
  proc.run([&] {
    proc.step([&] {
      const int16_t trigger = Arrays::at(mInternalKeyToControlKey, Index);
      Late::object(mDependentWidgetToggler).Execute(mControls, trigger);
    });
    proc.step([&] { frameOperations().ArrangeAllFields(); });
  });
}

void FrameProxy::UpdateFrame(int16_t Index, bool showAllFields) {
  Procedure proc{this,
                 procedureName<"FrameProxy.UpdateFrame">(),
                 {arg("Index", Index), arg("showAllFields", showAllFields)}};
  proc.run([&] {
    proc.step([&] { frameOperations().UpdateFrame(Index, showAllFields); });
    proc.step(
        [&] { Late::object(mDependentWidgetToggler).ToggleFormatDependentWidgets(mControls); });
    proc.step([&] { frameOperations().ArrangeAllFields(); });
  });
}

void FrameProxy::ToggleFormatDependentWidgets() {
  Procedure proc{this, procedureName<"FrameProxy.ToggleFormatDependentWidgets">()};
  proc.run([&] {
    proc.step(
        [&] { Late::object(mDependentWidgetToggler).ToggleFormatDependentWidgets(mControls); });
    proc.step([&] { frameOperations().ArrangeAllFields(); });
  });
}

void FrameProxy::initializeFormatDependentWidgetToggler(
    std::shared_ptr<FormatterSettings> formatterSettings) {
  Procedure proc{this, procedureName<"FrameProxy.initializeFormatDependentWidgetToggler">()};
  proc.run([&] {
    // No settings: the rules of the format before stay in force.
    if (!formatterSettings)
      return;
    proc.step([&] { Late::object(mDependentWidgetToggler).Reset(); });
    proc.step([&] {
      // The frame could replace either object; take back what it leaves.
      auto toggler = mDependentWidgetToggler;
      auto keys = mKeyToOverallIndex;
      ReferenceFrame& frame = frameOperations();
      frame.initializeFormatDependentWidgetToggler(formatterSettings, toggler, keys);
      mDependentWidgetToggler = std::move(toggler);
      mKeyToOverallIndex = std::move(keys);
      if (mDependentWidgetToggler)
        mDependentWidgetToggler->explanations().registeredFor(frame.formatFamily());
    });
  });
}

void FrameProxy::setReferenceListColumnNames(std::vector<std::string>& columnNames) {
  Procedure proc{this, procedureName<"FrameProxy.setReferenceListColumnNames">()};
  proc.run([&] { proc.step([&] { frameOperations().setReferenceListColumnNames(columnNames); }); });
}

void FrameProxy::Show(bool visible) {
  Procedure proc{this, procedureName<"FrameProxy.Show">(), {arg("visible", visible)}};
  proc.run([&] { proc.step([&] { Late::object(mFrame).Visible(visible); }); });
}

void FrameProxy::visible(bool value) {
  Procedure proc{this, procedureName<"FrameProxy.visible[Let]">(), {arg("value", value)}};
  proc.run([&] { proc.step([&] { Late::object(mFrame).Visible(value); }); });
}

void FrameProxy::SetFocus() {
  Procedure proc{this, procedureName<"FrameProxy.SetFocus">()};
  proc.run([&] {
    if (mCallingSetFocus)
      return;
    proc.step([&] { mCallingSetFocus = true; });
    // The flag must come down even when the frame cannot take the focus.
    proc.goOnPastFailures();
    proc.step([&] { Late::object(mFrame).SetFocus(); });
    proc.step([&] { mCallingSetFocus = false; });
  });
}

void FrameProxy::vbwDump() const {
  vbwProtector::dumpModule(
      {arg("mSynchronizableControlIndices", mSynchronizableControlIndices),
       arg("mInternalKeyToControlKey", mInternalKeyToControlKey), arg("mTooltips", mTooltips),
       arg("mSynchronizableToInternalIndex", mSynchronizableToInternalIndex), arg("mFrame", mFrame),
       arg("mControls", mControls), arg("mKeyToInternalIndex", mKeyToInternalIndex),
       arg("mKeyToOverallIndex", mKeyToOverallIndex),
       arg("mDependentWidgetToggler", mDependentWidgetToggler), arg("mAuthor", mAuthor)});
}

}  // namespace kelmora
