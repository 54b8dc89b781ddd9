#include "diagnostics/Dumpable.h"

#include "diagnostics/vbwProtector.h"

namespace kelmora {

namespace {
constinit thread_local int tAlive = 0;
}  // namespace

Dumpable::Dumpable() {
  ++tAlive;
}

Dumpable::Dumpable(const Dumpable&) : Dumpable() {}

Dumpable::~Dumpable() {
  if (--tAlive == 0)
    vbwProtector::lastObjectEnded();
}

}  // namespace kelmora
