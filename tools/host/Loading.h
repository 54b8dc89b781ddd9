#pragma once

#include "host/ToolCallback.h"

namespace kelmora::tools {

// The host loads a reference itself for the length of one call: the
// changes that loading causes go unanswered, since the load ends with an
// evaluation of all rules anyway.
class Loading {
 public:
  explicit Loading(ToolCallback& callback) : mCallback(callback) { mCallback.loading(true); }
  ~Loading() { mCallback.loading(false); }
  Loading(const Loading&) = delete;
  Loading& operator=(const Loading&) = delete;

 private:
  ToolCallback& mCallback;
};

}  // namespace kelmora::tools
