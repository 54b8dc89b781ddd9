#include "platform/ReleasePool.h"

#include <vector>

namespace kelmora {

namespace {
std::vector<std::shared_ptr<const void>>& parked() {
  thread_local std::vector<std::shared_ptr<const void>> objects;
  return objects;
}
}  // namespace

void ReleasePool::park(std::shared_ptr<const void> object) {
  parked().push_back(std::move(object));
  tPending = true;
}

void ReleasePool::drain() {
  // Letting go may run a host's release, which may call the library again
  // and park more: take the list out first, and repeat until it stays empty.
  while (tPending) {
    tPending = false;
    std::vector<std::shared_ptr<const void>> objects;
    objects.swap(parked());
    const Busy releasing;
    objects.clear();
  }
}

}  // namespace kelmora
