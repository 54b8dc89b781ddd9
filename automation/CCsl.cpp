// CSL-JSON through the C interface, by the host kit's mapping: for hosts in
// other languages that exchange references with reference managers.

#include <string>

#include "automation/CGuard.h"
#include "automation/CVariants.h"
#include "automation/kelmora.h"
#include "hosting/Main2.h"
#include "hostkit/BadInput.h"
#include "hostkit/Csl.h"
#include "hostkit/JsonReader.h"

namespace {

using kelmora::host::BadInput;
using kelmora::host::Csl;
using kelmora::host::Json;
using kelmora::host::JsonReader;
using kelmora::host::Record;

// Bad input is the caller's invalid argument, said in its own words.
template <typename Body>
void refusingBadInput(Body&& body) {
  try {
    body();
  } catch (const BadInput& refused) {
    throw kelmora::RuntimeError(kelmora::kInvalidProcedureCall, refused.what());
  }
}

}  // namespace

extern "C" {

int32_t kelmora_csl_read(kelmora_object* main, const char* item, kelmora_variant* out,
                         kelmora_error* error) {
  return kelmora::cabi::guarded(error, [&] {
    if (out == nullptr || item == nullptr)
      throw kelmora::RuntimeError(kelmora::kInvalidProcedureCall);
    const auto service = kelmora::cabi::typed<kelmora::Main2>(main);
    refusingBadInput([&] {
      const Record record = Csl::read(*service, JsonReader::parse(item, "the CSL item"));
      Json answer = record.toJson();
      answer["option"] = Csl::optionOf(record);
      kelmora::CVariants::fromVariant(kelmora::Variant(answer.dump()), *out);
    });
  });
}

int32_t kelmora_csl_write(kelmora_object* main, const char* record, kelmora_variant* out,
                          kelmora_error* error) {
  return kelmora::cabi::guarded(error, [&] {
    if (out == nullptr || record == nullptr)
      throw kelmora::RuntimeError(kelmora::kInvalidProcedureCall);
    const auto service = kelmora::cabi::typed<kelmora::Main2>(main);
    refusingBadInput([&] {
      const Record read =
          Record::fromJson(*service, JsonReader::parse(record, "the record"), "the record");
      kelmora::CVariants::fromVariant(kelmora::Variant(Csl::write(read).dump()), *out);
    });
  });
}

}  // extern "C"
