#include "render/PngConverter.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <iterator>
#include <vector>

extern char** environ;

namespace kelmora::tools {

std::optional<std::filesystem::path> PngConverter::find(const std::string& searchPath) {
  size_t start = 0;
  while (start <= searchPath.size()) {
    size_t end = searchPath.find(':', start);
    if (end == std::string::npos)
      end = searchPath.size();
    const std::string directory = searchPath.substr(start, end - start);
    if (!directory.empty()) {
      const std::filesystem::path candidate = std::filesystem::path(directory) / kProgram;
      if (::access(candidate.c_str(), X_OK) == 0)
        return candidate;
    }
    start = end + 1;
  }
  return std::nullopt;
}

std::optional<std::filesystem::path> PngConverter::find() {
  const char* path = std::getenv("PATH");
  return find(path != nullptr ? path : "");
}

std::vector<std::string> PngConverter::fontEnvironment(const std::filesystem::path& folder) {
  std::vector<std::string> environment;
  for (char** variable = environ; *variable != nullptr; ++variable)
    environment.emplace_back(*variable);
  // Debian puts Wine's Tahoma where fontconfig does not look. Unless the
  // system or the caller says where fonts are, the converter is told of
  // that folder too, so that it draws the forms' own font.
  std::error_code error;
  if (std::getenv("FONTCONFIG_FILE") != nullptr ||
      !std::filesystem::exists(std::filesystem::path(kWineFonts) / "tahoma.ttf", error))
    return environment;
  const auto file = folder / "fonts.conf";
  std::ofstream out(file);
  out << "<?xml version=\"1.0\"?>\n<!DOCTYPE fontconfig SYSTEM \"fonts.dtd\">\n<fontconfig>\n"
      << "  <include ignore_missing=\"yes\">/etc/fonts/fonts.conf</include>\n"
      << "  <dir>" << kWineFonts << "</dir>\n</fontconfig>\n";
  if (out.good())
    environment.push_back("FONTCONFIG_FILE=" + file.string());
  return environment;
}

std::string PngConverter::convert(const std::filesystem::path& converter,
                                  const std::filesystem::path& svg,
                                  const std::filesystem::path& png) {
  std::vector<std::string> arguments = {converter.string(), "--format",   "png",
                                        "--output",         png.string(), svg.string()};
  std::vector<char*> argv;
  for (auto& argument : arguments) argv.push_back(argument.data());
  argv.push_back(nullptr);
  std::vector<std::string> environment = fontEnvironment(svg.parent_path());
  std::vector<char*> envp;
  for (auto& variable : environment) envp.push_back(variable.data());
  envp.push_back(nullptr);
  // The converter's own complaints would reach the user beside ours; the
  // caller prints one line of its own instead.
  posix_spawn_file_actions_t quiet;
  ::posix_spawn_file_actions_init(&quiet);
  ::posix_spawn_file_actions_addopen(&quiet, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
  ::posix_spawn_file_actions_addopen(&quiet, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
  pid_t child = 0;
  const int started =
      ::posix_spawn(&child, converter.c_str(), &quiet, nullptr, argv.data(), envp.data());
  ::posix_spawn_file_actions_destroy(&quiet);
  if (started != 0)
    return "cannot run " + converter.string() + ": " + std::strerror(started);
  int status = 0;
  while (::waitpid(child, &status, 0) < 0) {
    if (errno != EINTR)
      return "lost track of " + converter.string() + ": " + std::strerror(errno);
  }
  if (!WIFEXITED(status) || WEXITSTATUS(status) != 0)
    return converter.string() + " could not convert " + svg.string();
  return {};
}

PngConverter::Drawing PngConverter::draw(const std::filesystem::path& converter,
                                         std::string_view svg) {
  std::error_code error;
  std::string folder =
      (std::filesystem::temp_directory_path(error) / "kelmora-png-XXXXXX").string();
  if (error || ::mkdtemp(folder.data()) == nullptr)
    return {.png = {}, .problem = "cannot make a folder to draw the PNG in"};
  const std::filesystem::path work(folder);
  const auto svgFile = work / "picture.svg";
  const auto pngFile = work / "picture.png";
  Drawing drawing;
  {
    std::ofstream out(svgFile, std::ios::binary);
    out.write(svg.data(), static_cast<std::streamsize>(svg.size()));
    out.close();
    if (!out)
      drawing.problem = "cannot write a copy of the picture in " + folder;
  }
  if (drawing.problem.empty())
    drawing.problem = convert(converter, svgFile, pngFile);
  if (drawing.problem.empty()) {
    std::ifstream in(pngFile, std::ios::binary);
    drawing.png.assign(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
    if (!in.is_open() || in.bad() || drawing.png.empty())
      drawing = {.png = {}, .problem = converter.string() + " wrote no PNG"};
  }
  std::filesystem::remove_all(work, error);
  return drawing;
}

}  // namespace kelmora::tools
