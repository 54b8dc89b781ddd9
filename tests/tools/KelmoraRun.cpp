#include "tools/KelmoraRun.h"

#include <gtest/gtest.h>

#include <sstream>

#include "cli/Cli.h"
#include "support/FreshThread.h"

namespace kelmora::tools::testing {

KelmoraRun KelmoraRun::of(const std::vector<std::string>& arguments) {
  KelmoraRun run;
  kelmora::testing::onFreshThread([&] {
    std::ostringstream out, err;
    run.status = Cli::run(arguments, out, err);
    run.out = out.str();
    run.err = err.str();
  });
  return run;
}

std::vector<std::string> KelmoraRun::errLines() const {
  std::vector<std::string> lines;
  std::istringstream in(err);
  for (std::string line; std::getline(in, line);) lines.push_back(line);
  return lines;
}

std::vector<Json> KelmoraRun::events() const {
  std::vector<Json> parsed;
  std::istringstream in(out);
  for (std::string line; std::getline(in, line);) {
    Json event = Json::parse(line, nullptr, false);
    EXPECT_TRUE(event.is_object()) << "not a JSON object: " << line;
    parsed.push_back(event);
  }
  return parsed;
}

std::vector<Json> KelmoraRun::events(const std::string& kind) const {
  std::vector<Json> found;
  for (auto& event : events())
    if (event.contains(kind))
      found.push_back(event);
  return found;
}

}  // namespace kelmora::tools::testing
