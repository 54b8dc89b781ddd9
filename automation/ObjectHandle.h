#pragma once

#include <atomic>
#include <cstdint>
#include <memory>

#include "automation/kelmora.h"
#include "platform/Object.h"

// What a host holds of any object: one reference-counted handle around the
// library's shared reference. Every live handle counts towards "can unload
// now"; the last release lets go of the object.
struct kelmora_object {
  explicit kelmora_object(std::shared_ptr<kelmora::Object> object);
  ~kelmora_object();
  kelmora_object(const kelmora_object&) = delete;
  kelmora_object& operator=(const kelmora_object&) = delete;

  static kelmora_object* make(std::shared_ptr<kelmora::Object> object) {
    return new kelmora_object(std::move(object));
  }
  static int64_t alive() { return sLive.load(); }

  uint32_t addRef() { return ++mReferences; }
  uint32_t release();

  std::shared_ptr<kelmora::Object> object;

 private:
  std::atomic<uint32_t> mReferences{1};
  static std::atomic<int64_t> sLive;
};
