#pragma once

#include <functional>

namespace kelmora::testing {

// Runs the body on a new thread and waits for it. Trace flags, the cached
// tracing object and the answer latch live per thread and the latch never
// resets, so each scenario that depends on them gets a thread of its own.
void onFreshThread(const std::function<void()>& body);

}  // namespace kelmora::testing
