#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kelmora::tools {

// Turns an SVG file into PNG with librsvg's rsvg-convert (Debian package
// librsvg2-bin), run directly, without a shell. The program does without
// it: only a PNG asked for needs it.
class PngConverter {
 public:
  static constexpr const char* kProgram = "rsvg-convert";
  static constexpr const char* kMissingMessage =
      "PNG needs rsvg-convert, which is not installed (Debian package librsvg2-bin)";

  // The converter on a search path in the form of $PATH, or nothing.
  static std::optional<std::filesystem::path> find(const std::string& searchPath);
  // The converter on this process's $PATH.
  static std::optional<std::filesystem::path> find();

  // Where Debian's fonts-wine installs the forms' font, Tahoma.
  static constexpr const char* kWineFonts = "/usr/share/wine/fonts";

  // Runs the converter; the text of what went wrong, or empty on success.
  static std::string convert(const std::filesystem::path& converter,
                             const std::filesystem::path& svg, const std::filesystem::path& png);

  // The PNG of an SVG picture, drawn in a folder of the converter's own, so
  // that where the user asked for it is written by the caller alone; or
  // what went wrong, with no bytes.
  struct Drawing {
    std::string png;
    std::string problem;
  };
  static Drawing draw(const std::filesystem::path& converter, std::string_view svg);

 private:
  // This process's environment for the converter, with a fontconfig file
  // written in `folder` that adds the forms' font where it needs adding.
  static std::vector<std::string> fontEnvironment(const std::filesystem::path& folder);
};

}  // namespace kelmora::tools
