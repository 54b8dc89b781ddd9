#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "diagnostics/Dumpable.h"
#include "platform/Dictionary.h"
#include "platform/Object.h"

namespace kelmora {

// The field catalogue of one reference type: which fields a reference of
// the type has, where each stands in the host's record, which widget shows
// it, what a new reference holds and which default tooltip it carries.
// Main2 makes one per type and initialises it once; the tables are the same
// on every run and come from the type's constant catalogue, the rest is
// computed from those.
//
// Four kinds of number meet here. An internal index is a field's place in
// the host's `values` record; an overall index is a widget's place in the
// frame's widget registry; a synchronisable position is a field's place in
// the binary order of the keys without the two hidden keys; a record
// position is its place in that order with them.
//
// Every member runs under the procedure guard: a failure is reported to
// the tracing service, and its answer decides what runs next.
class Model : public Object, public Dumpable {
 public:
  Model() = default;
  // The class end empties the key-to-internal-index map, which the proxy
  // shares, and lets go of both maps. It runs without the guard: a
  // destructor has no caller to hand a failure to, and releasing a model
  // must not depend on the host's tracing service being there.
  ~Model() override;
  Model(const Model&) = delete;
  Model& operator=(const Model&) = delete;

  std::string TypeName() const override { return "Model"; }

  // Set by the container once this type's format rules are built, cleared
  // by Main2::ChangeFormatType. The model itself never reads it.
  bool initializedToFormat = false;

  // Read by the host and the proxy.

  // The live map of key to internal index, hidden keys included; not a copy.
  std::shared_ptr<Dictionary> keyToInternalIndex() const;
  // Internal index of the field that identifies a reference of this type.
  int16_t KeyIndex() const;
  // Internal index of the second identifying field, -1 where there is none.
  int16_t SecondKeyIndex() const;
  // One of the twelve settings the host reads; outside 0 to 11 fails with 9.
  std::string setting(int16_t Index) const;
  // Internal indices of the four columns of the host's reference list.
  std::vector<int16_t> ReferenceFormDisplayIndex() const;
  // Record position to internal index.
  std::vector<int16_t> controlIndices() const;

  // Internal to the library.

  // Loads the constants of the type and computes the derived tables. Types
  // other than 0, 1 and 4 have no catalogue and fail with 9.
  void initialize(int16_t whichType);
  // Hands the interface tables over to the first proxy and empties the
  // model's own copies; a later call receives nothing and empty arrays.
  // Only the key-to-internal-index map stays shared.
  void getUIMetadata(std::shared_ptr<Dictionary>& keyToOverallIndex,
                     std::vector<int16_t>& synchronizableToInternalIndex,
                     std::vector<int16_t>& synchronizableControlIndices,
                     std::vector<int16_t>& internalKeyToControlKey,
                     std::vector<std::string>& tooltips, std::string& authorKey);

  void vbwDump() const override;

 private:
  // The steps of initialize.
  void initializeKeyToInternalIndex(std::vector<std::string>& synchronizableKeys,
                                    std::shared_ptr<Dictionary>& keyToOverallIndex,
                                    std::vector<int16_t>& controlKeyToInternalKey);
  void AddHiddenControls(std::vector<std::string>& synchronizableKeys,
                         std::vector<int16_t>& hiddenMap);
  void initSynchronizableToInternal(std::vector<int16_t>& hiddenMap,
                                    std::vector<int16_t>& controlKeyToInternalKey,
                                    int16_t& numAfterV4Keywords);

  // Arrays without dimensions are empty vectors; every array is indexed
  // from 0.
  std::vector<std::string> mSettings;
  std::vector<int16_t> mReferenceFormDisplayIndex;
  std::vector<int16_t> mControlIndices;
  int16_t mKeyIndex = 0;
  int16_t mSecondKeyIndex = 0;
  std::shared_ptr<Dictionary> mKeyToInternalIndex;
  std::shared_ptr<Dictionary> mKeyToOverallIndex;
  std::vector<int16_t> mSynchronizableToInternalIndex;
  std::vector<int16_t> mSynchronizableControlIndices;
  std::vector<int16_t> mInternalKeyToControlKey;
  // By synchronisable position while the constants load, by internal index
  // once initSynchronizableToInternal has moved them.
  std::vector<std::string> mTooltips;
  std::string mAuthorKey;
};

}  // namespace kelmora
