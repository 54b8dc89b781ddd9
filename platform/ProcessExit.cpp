#include "platform/ProcessExit.h"

#include <unistd.h>

#include <vector>

namespace kelmora {

bool ProcessExit::threadEndsWithProcess() {
  return gettid() == getpid();
}

void ProcessExit::keep(std::shared_ptr<const void> object) {
  // Reachable from a static pointer to the last, so that a leak checker
  // that runs at exit sees it as held rather than lost.
  static auto* kept = new std::vector<std::shared_ptr<const void>>;
  kept->push_back(std::move(object));
}

}  // namespace kelmora
