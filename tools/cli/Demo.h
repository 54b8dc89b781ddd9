#pragma once

#include <filesystem>
#include <iosfwd>

namespace kelmora::tools {

// The demo: the scenarios compiled in from examples/demo-<type>.json, one
// reference type after the other, played on one host with
// the readable view of events. After each stage it lists the fields on
// screen with their values and writes a picture of the form,
// stage-N.svg in `pictureDirectory`.
class Demo {
 public:
  // The exit status: 0 when every expectation of the demo held.
  static int run(const std::filesystem::path& pictureDirectory, std::ostream& out);
};

}  // namespace kelmora::tools
