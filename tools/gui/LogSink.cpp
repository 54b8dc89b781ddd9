#include "gui/LogSink.h"

#include <sstream>

#include "host/ReadableSink.h"

namespace kelmora::tools {

void LogSink::emit(const Json& event) {
  std::ostringstream text;
  ReadableSink(text).emit(event);
  std::string line = text.str();
  while (!line.empty() && line.back() == '\n') line.pop_back();
  if (line.empty())
    return;
  if (mListener)
    mListener(line);
  else
    mPending += line + '\n';
}

void LogSink::listen(std::function<void(const std::string&)> listener) {
  mListener = std::move(listener);
  if (mListener && !mPending.empty()) {
    std::string pending = std::move(mPending);
    mPending.clear();
    pending.pop_back();
    mListener(pending);
  }
}

}  // namespace kelmora::tools
