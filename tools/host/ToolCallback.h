#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>

#include "host/Kit.h"
#include "hostkit/Callback.h"

namespace kelmora::tools {

class EventSink;

// The program's callback: the host kit's, which answers as a host does,
// telling each call to the sink with its arguments and what it returned,
// and each answer it gives the library.
class ToolCallback : public host::Callback {
 public:
  explicit ToolCallback(EventSink& sink) : mSink(sink) {}

  // How a value travels in an event: a widget as "Name(Index)" or its
  // name, another object by its class, nothing as null, texts, numbers and
  // truth values as themselves.
  static Json describe(const Variant& value);
  static Json describe(const std::shared_ptr<Object>& object);

 protected:
  void heard(std::string_view member, std::span<const Argument> arguments,
             const std::string* answer) override;
  void answering(int16_t whichType, int16_t Index) override;

 private:
  EventSink& mSink;
};

}  // namespace kelmora::tools
