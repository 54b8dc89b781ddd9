#pragma once

#include <cstdint>
#include <memory>
#include <string>

namespace kelmora {
class FrameContainer;
class HeadlessHostForm;
class Main2;
class MessageBox;
}  // namespace kelmora

namespace kelmora::tools {

class EventSink;
class ToolCallback;

class ToolTracingService;

// The host's part, played for real: the tracing bridge registered before
// the first library object, a Main2, a form with one frame container built
// on it, shown and initialised with the host's callback, and the message
// box replaced for the thread. Ending takes the container off the form
// (which ends the frames and the thread's tracing), then lets go of Main2,
// revokes the bridge and puts the former message box back.
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

  Main2& main() const { return *mMain; }
  FrameContainer& container() const { return *mContainer; }
  const std::shared_ptr<FrameContainer>& containerObject() const { return mContainer; }
  ToolCallback& callback() const { return *mCallback; }
  const std::shared_ptr<ToolCallback>& callbackObject() const { return mCallback; }
  HeadlessHostForm& form() const { return *mForm; }
  const std::shared_ptr<HeadlessHostForm>& formObject() const { return mForm; }
  const ToolTracingService& tracing() const { return *mTracing; }

 private:
  EventSink& mSink;
  bool mEnded = false;
  std::shared_ptr<ToolTracingService> mTracing;
  std::shared_ptr<MessageBox> mFormerMessageBox;
  std::shared_ptr<Main2> mMain;
  std::shared_ptr<HeadlessHostForm> mForm;
  std::shared_ptr<FrameContainer> mContainer;
  std::shared_ptr<ToolCallback> mCallback;
};

}  // namespace kelmora::tools
