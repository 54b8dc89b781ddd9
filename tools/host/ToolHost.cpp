#include "host/ToolHost.h"

#include "host/EventSink.h"
#include "host/ToolCallback.h"
#include "host/ToolMessageBox.h"
#include "hostkit/Tracing.h"
#include "platform/RuntimeError.h"
#include "surface/MessageBox.h"

namespace kelmora::tools {

namespace {

std::shared_ptr<host::Tracing> toldTracing(EventSink& sink, int32_t answer) {
  auto tracing = std::make_shared<host::Tracing>(answer);
  tracing->onFailure = [&sink](const host::Failure& failure) {
    Json locals = Json::object();
    for (const auto& [name, value] : failure.locals) locals[name] = ToolCallback::describe(value);
    sink.emit({{"failure",
                {{"procedure", failure.procedure},
                 {"line", failure.line},
                 {"number", failure.number},
                 {"description", failure.description},
                 {"locals", std::move(locals)}}}});
  };
  tracing->onRetriesGivenUp = [&sink](const host::Failure& failure, int32_t retries) {
    sink.emit({{"retriesGivenUp",
                {{"procedure", failure.procedure},
                 {"line", failure.line},
                 {"number", failure.number},
                 {"retries", retries},
                 {"answer", 0}}}});
  };
  return tracing;
}

}  // namespace

ToolHost::ToolHost(EventSink& sink, Options options)
    : mSink(sink),
      mTracing(toldTracing(sink, options.failureAnswer)),
      mCallback(std::make_shared<ToolCallback>(sink)),
      mMessageBox(std::make_shared<ToolMessageBox>(sink)),
      mHost(host::Host::Options{
          .callback = mCallback, .tracing = mTracing, .containerName = kContainerName}) {
  mCallback->answerChanges(options.answerChanges);
}

ToolHost::MessageBoxInstalled::MessageBoxInstalled(std::shared_ptr<MessageBox> mine)
    : former(MessageBox::install(std::move(mine))) {}

ToolHost::MessageBoxInstalled::~MessageBoxInstalled() {
  restore();
}

void ToolHost::MessageBoxInstalled::restore() {
  if (!restored)
    MessageBox::install(former);
  restored = true;
}

ToolHost::~ToolHost() {
  end();
}

void ToolHost::end() {
  if (mEnded)
    return;
  mEnded = true;
  try {
    mHost.end();
  } catch (const RuntimeError& error) {
    mSink.emit(
        {{"failedCall",
          {{"operation", "unload"}, {"number", error.Number()}, {"description", error.what()}}}});
  }
  mMessageBox.restore();
}

}  // namespace kelmora::tools
