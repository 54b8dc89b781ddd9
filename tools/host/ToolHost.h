#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "hostkit/Host.h"

namespace kelmora {
class MessageBox;
}  // namespace kelmora

namespace kelmora::host {
class Tracing;
}  // namespace kelmora::host

namespace kelmora::tools {

class EventSink;
class ToolCallback;

// The program's host: the host kit's, with the program's callback, every
// failure report and message box told to the sink, and the thread's message
// box replaced for its life. Ending takes the container off the form,
// lets go of everything, revokes the bridge and puts the former message
// box back.
//
// One host at a time per process: the bridge's name is process-wide.
class ToolHost {
 public:
  struct Options {
    // The answer to every failure report: 5 goes on with the next statement.
    int32_t failureAnswer = 5;
    bool answerChanges = true;
  };

  static constexpr const char* kContainerName = "Reference";

  ToolHost(EventSink& sink, Options options);
  // Ends the host if end() has not.
  ~ToolHost();
  // Takes the container off the form, lets go of everything and revokes
  // the bridge. A failure of the container's end is told to the sink.
  void end();
  ToolHost(const ToolHost&) = delete;
  ToolHost& operator=(const ToolHost&) = delete;

  host::Host& host() { return mHost; }
  Main2& main() const { return mHost.main(); }
  FrameContainer& container() const { return mHost.container(); }
  const std::shared_ptr<FrameContainer>& containerObject() const { return mHost.containerObject(); }
  ToolCallback& callback() const { return *mCallback; }
  const std::shared_ptr<ToolCallback>& callbackObject() const { return mCallback; }
  HeadlessHostForm& form() const { return mHost.form(); }
  const std::shared_ptr<HeadlessHostForm>& formObject() const { return mHost.formObject(); }
  const host::Tracing& tracing() const { return *mTracing; }

 private:
  EventSink& mSink;
  bool mEnded = false;
  std::shared_ptr<host::Tracing> mTracing;
  std::shared_ptr<ToolCallback> mCallback;
  // The program's message box for the host's life, also when building the
  // host fails.
  struct MessageBoxInstalled {
    explicit MessageBoxInstalled(std::shared_ptr<MessageBox> mine);
    ~MessageBoxInstalled();
    MessageBoxInstalled(const MessageBoxInstalled&) = delete;
    MessageBoxInstalled& operator=(const MessageBoxInstalled&) = delete;
    void restore();
    std::shared_ptr<MessageBox> former;
    bool restored = false;
  };
  MessageBoxInstalled mMessageBox;
  host::Host mHost;
};

}  // namespace kelmora::tools
