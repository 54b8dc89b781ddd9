#pragma once

#include <exception>
#include <memory>
#include <new>
#include <string>

#include "automation/ObjectHandle.h"
#include "automation/kelmora.h"
#include "platform/RuntimeError.h"

namespace kelmora::cabi {

inline int32_t fail(kelmora_error* error, int32_t number, const std::string& description) {
  kelmora_error_set(error, number, description.c_str());
  return number;
}

// Runs the body of a C entry point and turns any failure into its C error
// result: no C++ exception ever crosses into the host.
template <typename Body>
int32_t guarded(kelmora_error* error, Body&& body) {
  try {
    body();
    return 0;
  } catch (const RuntimeError& failure) {
    return fail(error, failure.Number(), failure.Description());
  } catch (const std::bad_alloc&) {
    return fail(error, 7, "Out of memory");
  } catch (const std::exception& failure) {
    // Nothing but RuntimeError is meant to leave the library; should
    // anything else, the host still hears of it.
    return fail(error, kInvalidProcedureCall, failure.what());
  } catch (...) {
    // No C++ exception may cross into a C host, whatever threw it.
    return fail(error, kInvalidProcedureCall, "A failure of no known kind");
  }
}

inline Object& objectOf(kelmora_object* handle) {
  if (handle == nullptr || !handle->object)
    throw RuntimeError(kObjectNotSet);
  return *handle->object;
}

// The object behind a handle, held for the call: the host may release the
// handle from inside it.
template <typename T>
std::shared_ptr<T> typed(kelmora_object* handle) {
  objectOf(handle);
  auto found = std::dynamic_pointer_cast<T>(handle->object);
  if (!found)
    throw RuntimeError(kTypeMismatch);
  return found;
}

}  // namespace kelmora::cabi
