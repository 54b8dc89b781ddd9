#pragma once

#include <functional>
#include <string>

namespace kelmora {
class FrameContainer;
class UserControl;
class Widget;
}  // namespace kelmora

namespace kelmora::tools {

// Draws a user control and everything on it as an SVG picture, reading the
// widgets and changing nothing. A widget is drawn when it and all its
// containers are Visible, at its rectangle converted to pixels; a Frame
// clips what stands inside it. Text is set in the forms' font, Tahoma at
// 11 pixels, each character at the font's own advance, so that any viewer
// draws it as the window does; labels lay their captions out as the window
// does (broken at spaces, clipped below, never cut at their start), text
// and combo boxes show their text (a combo box with its arrow), option
// buttons and check boxes their state, disabled widgets are greyed on the
// inactive back colour, and a tooltip becomes the widget's SVG title.
//
// Each widget is one group that names it, for people and for tests:
//   <g class="widget" data-name="TextBox(8)" data-class="TextBox"
//      data-key="PeriodicalOnline"><rect class="box" x=... .../>...</g>
// With outlineHidden, every widget that is not shown gets a dashed outline
// (class "hidden") at its rectangle, above everything else.
class SvgRenderer {
 public:
  struct Options {
    bool outlineHidden = false;
    // Why a widget stands as it does, added to its title; nothing by
    // default.
    std::function<std::string(const Widget&)> explain;
  };

  // The explanations of the widgets of the frame a container shows, as
  // Options::explain takes them. The container must outlive the result.
  static std::function<std::string(const Widget&)> explanationsOf(const FrameContainer& container);

  static std::string render(const UserControl& root, Options options);
};

}  // namespace kelmora::tools
