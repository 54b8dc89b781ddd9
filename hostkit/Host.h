#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

#include "hostkit/Record.h"

namespace kelmora {
class FormatterSettings;
class FrameContainer;
class HeadlessHostForm;
class Main2;
}  // namespace kelmora

namespace kelmora::host {

class Callback;
class Tracing;

// A host's part in one place, in the order the library expects it:
//
//   host::Host host;                                 // bridge, Main2, form, container
//   host.show(0);                                    // the NonPeriodical frame
//   host.applyFormat(host::FormatSettings::family(2));
//   auto book = host.newRecord();
//   book.set("Title", "On tides");
//   host.load(book);                                 // fields, option, layout
//   ... the author types; the callback answers each change ...
//   auto now = host.read();                          // back from the widgets
//   host.end();                                      // or at destruction
//
// Construction registers the tracing bridge under "TessalyDot.BridgeToVB"
// before the first library object, builds Main2 and a frame container on a
// headless form, shows the container and initialises it with the callback.
// End takes the container off its form (which ends the frames and the
// thread's tracing), lets go of Main2 and revokes the bridge. One Host at a
// time per process: the bridge's name is the process's.
class Host {
 public:
  struct Options {
    // Answers changes with ExecuteDependentWidgetToggler when not given.
    std::shared_ptr<Callback> callback;
    // Silent, answering every failure with 5 (go on), when not given.
    std::shared_ptr<Tracing> tracing;
    std::string containerName = "Reference";
  };

  Host();
  explicit Host(Options options);
  // Ends the host if end() has not; a failure of the end is lost there.
  ~Host();
  Host(const Host&) = delete;
  Host& operator=(const Host&) = delete;

  // Shows the frame of a type: 0 NonPeriodical, 1 Periodical, 4 Esource.
  void show(int16_t whichType);
  // The citation format's rules for the type shown, registered anew.
  void applyFormat(std::shared_ptr<FormatterSettings> settings);
  // A new reference of the type shown (or of `whichType`), with its
  // defaults.
  Record newRecord(std::optional<int16_t> whichType = std::nullopt);
  // Loads a record into its type's frame, then lays the frame out for the
  // record's option (`option` -1) or the one given, with or without all
  // fields. The changes that loading causes go unanswered.
  void load(Record& record, int16_t option = -1, bool showAllFields = false);
  // The record of the type shown as its widgets hold it now, over the
  // record last loaded.
  Record read();
  // Takes the container off the form and lets go of everything. The first
  // failure of the container's end is raised once all is released. After
  // the end every call above fails with 91, as a call on nothing does.
  void end();

  Main2& main() const { return *mMain; }
  FrameContainer& container() const { return *mContainer; }
  const std::shared_ptr<FrameContainer>& containerObject() const { return mContainer; }
  HeadlessHostForm& form() const { return *mForm; }
  const std::shared_ptr<HeadlessHostForm>& formObject() const { return mForm; }
  Callback& callback() const { return *mCallback; }
  const std::shared_ptr<Callback>& callbackObject() const { return mCallback; }
  Tracing& tracing() const { return *mTracing; }

 private:
  bool mEnded = false;
  std::shared_ptr<Tracing> mTracing;
  std::shared_ptr<Callback> mCallback;
  std::shared_ptr<Main2> mMain;
  std::shared_ptr<HeadlessHostForm> mForm;
  std::shared_ptr<FrameContainer> mContainer;
  int16_t mShown = 0;
  std::optional<Record> mLoaded;
};

}  // namespace kelmora::host
