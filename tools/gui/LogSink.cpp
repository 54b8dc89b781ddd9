#include "gui/LogSink.h"

namespace kelmora::tools {

void LogSink::emit(const Json& event) {
  if (mListener)
    mListener(event);
  else
    mPending.push_back(event);
}

void LogSink::listen(std::function<void(const Json&)> listener) {
  mListener = std::move(listener);
  if (!mListener)
    return;
  std::vector<Json> pending = std::move(mPending);
  mPending.clear();
  for (const Json& event : pending) mListener(event);
}

}  // namespace kelmora::tools
