#include "support/FreshThread.h"

#include <thread>

namespace kelmora::testing {

void onFreshThread(const std::function<void()>& body) {
  std::thread thread(body);
  thread.join();
}

}  // namespace kelmora::testing
