#pragma once

#include <iosfwd>
#include <string>

namespace kelmora::tools {

// `kelmora gui`: the form in a real window. With a scenario it is played
// into the window first; with a screenshot the window is drawn into a PNG
// and the program ends, without a display (Qt's offscreen platform) unless
// another platform is chosen.
class Gui {
 public:
  struct Options {
    std::string scenario;
    std::string pictures = ".";
    std::string screenshot;
    // A CSL-JSON file whose item (or only item) the window opens with.
    std::string csl;
    std::string item;
  };

  // The exit status, as the other commands give it.
  static int run(const Options& options, std::ostream& out, std::ostream& err);
};

}  // namespace kelmora::tools
