#include "model/Model.h"

#include <cstddef>
#include <string_view>

#include "diagnostics/Procedure.h"
#include "diagnostics/VarRef.h"
#include "diagnostics/vbwProtector.h"
#include "model/Catalogue.h"
#include "model/EsourceCatalogue.h"
#include "model/NonPeriodicalCatalogue.h"
#include "model/PeriodicalCatalogue.h"
#include "platform/RuntimeError.h"
#include "platform/Variant.h"

namespace kelmora {

namespace {

// The model's arrays behave as the run time's: bounds are 0 to an upper
// bound, an array without dimensions has no upper bound, and any access
// outside the bounds fails with 9. An empty vector stands for an array
// without dimensions; the model never dimensions one to hold nothing.
template <typename T>
int16_t upperBound(const std::vector<T>& array) {
  if (array.empty())
    throw RuntimeError(kSubscriptOutOfRange);
  return static_cast<int16_t>(array.size() - 1);
}

template <typename T>
T& element(std::vector<T>& array, int32_t index) {
  if (index < 0 || static_cast<size_t>(index) >= array.size()) {
    throw RuntimeError(kSubscriptOutOfRange);
  }
  return array[static_cast<size_t>(index)];
}

template <typename T>
const T& element(const std::vector<T>& array, int32_t index) {
  if (index < 0 || static_cast<size_t>(index) >= array.size()) {
    throw RuntimeError(kSubscriptOutOfRange);
  }
  return array[static_cast<size_t>(index)];
}

// Dimensions the array 0 to upper, every entry empty; an upper bound below
// 0 fails with 9 and leaves the array as it was.
template <typename T>
void dimension(std::vector<T>& array, int32_t upper) {
  if (upper < 0)
    throw RuntimeError(kSubscriptOutOfRange);
  array.assign(static_cast<size_t>(upper) + 1, T{});
}

Dictionary& map(const std::shared_ptr<Dictionary>& dictionary) {
  if (dictionary == nullptr)
    throw RuntimeError(kObjectNotSet);
  return *dictionary;
}

// The catalogue of each type, branched in the order 0, 1, 4. Types 2 and 3
// have a slot in Main2 but no catalogue.
const Catalogue* catalogueFor(int16_t whichType) {
  switch (whichType) {
    case 0:
      return &NonPeriodicalCatalogue::kCatalogue;
    case 1:
      return &PeriodicalCatalogue::kCatalogue;
    case 4:
      return &EsourceCatalogue::kCatalogue;
    default:
      return nullptr;
  }
}

constexpr std::string_view kHiddenSuffix = "_hidden";

}  // namespace

Model::~Model() {
  if (mKeyToInternalIndex != nullptr) {
    mKeyToInternalIndex->RemoveAll();
    mKeyToInternalIndex.reset();
  }
  if (mKeyToOverallIndex != nullptr) {
    mKeyToOverallIndex->RemoveAll();
    mKeyToOverallIndex.reset();
  }
}

std::shared_ptr<Dictionary> Model::keyToInternalIndex() const {
  Procedure proc{this, procedureName<"Model.keyToInternalIndex[Get]">()};
  return proc.run<std::shared_ptr<Dictionary>>([&](std::shared_ptr<Dictionary>& result) {
    proc.step([&] { result = mKeyToInternalIndex; });
  });
}

int16_t Model::KeyIndex() const {
  Procedure proc{this, procedureName<"Model.KeyIndex[Get]">()};
  return proc.run<int16_t>([&](int16_t& result) { proc.step([&] { result = mKeyIndex; }); });
}

int16_t Model::SecondKeyIndex() const {
  Procedure proc{this, procedureName<"Model.SecondKeyIndex[Get]">()};
  return proc.run<int16_t>([&](int16_t& result) { proc.step([&] { result = mSecondKeyIndex; }); });
}

std::string Model::setting(int16_t Index) const {
  Procedure proc{this, procedureName<"Model.setting[Get]">(), {arg("Index", Index)}};
  return proc.run<std::string>(
      [&](std::string& result) { proc.step([&] { result = element(mSettings, Index); }); });
}

std::vector<int16_t> Model::ReferenceFormDisplayIndex() const {
  Procedure proc{this, procedureName<"Model.ReferenceFormDisplayIndex[Get]">()};
  return proc.run<std::vector<int16_t>>([&](std::vector<int16_t>& result) {
    proc.step([&] { result = mReferenceFormDisplayIndex; });
  });
}

std::vector<int16_t> Model::controlIndices() const {
  Procedure proc{this, procedureName<"Model.controlIndices[Get]">()};
  return proc.run<std::vector<int16_t>>(
      [&](std::vector<int16_t>& result) { proc.step([&] { result = mControlIndices; }); });
}

void Model::initialize(int16_t whichType) {
  Procedure proc{this, procedureName<"Model.initialize">(), {arg("whichType", whichType)}};
  proc.run([&] {
    std::vector<std::string> synchronizableKeys;
    int16_t numAfterV4Keywords = 0;
    std::vector<int16_t> hiddenMap;
    std::vector<int16_t> controlKeyToInternalKey;
    proc.local("synchronizableKeys", synchronizableKeys);
    proc.local("numAfterV4Keywords", numAfterV4Keywords);
    proc.local("hiddenMap", hiddenMap);
    proc.local("controlKeyToInternalKey", controlKeyToInternalKey);

    proc.step([&] { mKeyToOverallIndex = std::make_shared<Dictionary>(); });

    // Without a catalogue nothing is loaded, and the first read of
    // synchronizableKeys below fails with 9.
    if (const Catalogue* catalogue = catalogueFor(whichType)) {
      const Catalogue& constants = *catalogue;
      proc.step([&] {
        dimension(synchronizableKeys, constants.synchronizableKeysUpperBound);
        for (const auto& row : constants.synchronizableKeys) {
          element(synchronizableKeys, row.internalIndex) = row.key;
        }
      });
      proc.step([&] {
        dimension(mSettings, static_cast<int32_t>(Catalogue::kSettingCount) - 1);
        for (const auto& row : constants.settings) {
          element(mSettings, row.index) =
              row.number ? Variant(*row.number).toString() : std::string(row.text);
        }
      });
      proc.step([&] {
        dimension(mReferenceFormDisplayIndex, 3);
        for (size_t i = 0; i < constants.referenceFormDisplayIndex.size(); ++i) {
          element(mReferenceFormDisplayIndex, static_cast<int32_t>(i)) =
              constants.referenceFormDisplayIndex[i];
        }
      });
      proc.step([&] { mKeyIndex = constants.keyIndex; });
      proc.step([&] { mSecondKeyIndex = constants.secondKeyIndex; });
      proc.step([&] {
        for (const auto& row : constants.keyToOverallIndex) {
          map(mKeyToOverallIndex).Add(std::string(row.key), Variant(row.overallIndex));
        }
      });
      proc.step([&] { numAfterV4Keywords = constants.numAfterV4Keywords; });
      proc.step([&] {
        const auto upper = static_cast<int32_t>(constants.synchronizableControlIndices.size()) - 1;
        dimension(mTooltips, upper);
        dimension(mSynchronizableControlIndices, upper);
        for (const auto& row : constants.synchronizableControlIndices) {
          element(mSynchronizableControlIndices, row.position) = row.overallIndex;
        }
        for (const auto& row : constants.tooltips) {
          element(mTooltips, row.position) = row.text;
        }
      });
    }

    proc.step([&] { mAuthorKey = element(synchronizableKeys, 1); });
    proc.step([&] { element(synchronizableKeys, Catalogue::kKeywordsIndex) = "v4_keywords"; });
    proc.step([&] { AddHiddenControls(synchronizableKeys, hiddenMap); });
    proc.step([&] {
      initializeKeyToInternalIndex(synchronizableKeys, mKeyToOverallIndex, controlKeyToInternalKey);
    });
    proc.step([&] {
      initSynchronizableToInternal(hiddenMap, controlKeyToInternalKey, numAfterV4Keywords);
    });
  });
}

void Model::AddHiddenControls(std::vector<std::string>& synchronizableKeys,
                              std::vector<int16_t>& hiddenMap) {
  Procedure proc{this,
                 procedureName<"Model.AddHiddenControls">(),
                 {arg("synchronizableKeys", synchronizableKeys), arg("hiddenMap", hiddenMap)}};
  proc.run([&] {
    // The two hidden fields travel only in the host's record: no frame has a
    // widget for them.
    proc.step([&] {
      element(synchronizableKeys, Catalogue::kLocationHiddenIndex) = "v4_location_hidden";
    });
    proc.step(
        [&] { element(synchronizableKeys, Catalogue::kVotesHiddenIndex) = "v4_votes_hidden"; });
    proc.step([&] { dimension(hiddenMap, 1); });
    proc.step([&] { element(hiddenMap, 0) = Catalogue::kLocationHiddenIndex; });
    proc.step([&] { element(hiddenMap, 1) = Catalogue::kVotesHiddenIndex; });
  });
}

void Model::initializeKeyToInternalIndex(std::vector<std::string>& synchronizableKeys,
                                         std::shared_ptr<Dictionary>& keyToOverallIndex,
                                         std::vector<int16_t>& controlKeyToInternalKey) {
  Procedure proc{
      this,
      procedureName<"Model.initializeKeyToInternalIndex">(),
      {arg("synchronizableKeys", synchronizableKeys), arg("keyToOverallIndex", keyToOverallIndex),
       arg("controlKeyToInternalKey", controlKeyToInternalKey)}};
  proc.run([&] {
    int16_t i = 0;
    proc.local("i", i);

    proc.step([&] { mKeyToInternalIndex = std::make_shared<Dictionary>(); });
    proc.step([&] { dimension(mInternalKeyToControlKey, upperBound(synchronizableKeys)); });
    // The registry's fixed bound: overall indices above 50 fail with 9.
    proc.step([&] { dimension(controlKeyToInternalKey, Catalogue::kMaxOverallIndex); });
    // A loop whose bound fails to evaluate runs no iteration.
    int16_t last = -1;
    proc.step([&] { last = upperBound(synchronizableKeys); });
    for (i = 0; i <= last; ++i) {
      proc.step([&] { map(mKeyToInternalIndex).Add(element(synchronizableKeys, i), Variant(i)); });
      proc.step([&] {
        const std::string& key = element(synchronizableKeys, i);
        if (!key.ends_with(kHiddenSuffix)) {
          // A key missing from the key table reads as empty, which adds it
          // there and converts to overall index 0.
          element(mInternalKeyToControlKey, i) = map(keyToOverallIndex).Item(key).toInteger();
          element(controlKeyToInternalKey, element(mInternalKeyToControlKey, i)) = i;
        }
      });
    }
  });
}

void Model::initSynchronizableToInternal(std::vector<int16_t>& hiddenMap,
                                         std::vector<int16_t>& controlKeyToInternalKey,
                                         int16_t& numAfterV4Keywords) {
  Procedure proc{
      this,
      procedureName<"Model.initSynchronizableToInternal">(),
      {arg("hiddenMap", hiddenMap), arg("controlKeyToInternalKey", controlKeyToInternalKey),
       arg("numAfterV4Keywords", numAfterV4Keywords)}};
  proc.run([&] {
    int16_t i = 0;
    int16_t j = 0;
    std::vector<std::string> temp;
    proc.local("i", i);
    proc.local("j", j);
    proc.local("temp", temp);

    proc.step([&] {
      dimension(mSynchronizableToInternalIndex, upperBound(mSynchronizableControlIndices));
    });
    proc.step([&] { dimension(mControlIndices, map(mKeyToInternalIndex).Count() - 1); });
    proc.step([&] { temp = mTooltips; });
    proc.step([&] { dimension(mTooltips, map(mKeyToInternalIndex).Count() - 1); });

    // The keys that sort before the hidden ones: record position and
    // synchronisable position agree.
    int16_t lastBeforeHidden = -1;
    proc.step([&] {
      lastBeforeHidden =
          static_cast<int16_t>(upperBound(mSynchronizableControlIndices) - numAfterV4Keywords);
    });
    for (i = 0; i <= lastBeforeHidden; ++i) {
      proc.step([&] {
        element(mControlIndices, i) =
            element(controlKeyToInternalKey, element(mSynchronizableControlIndices, i));
      });
      proc.step([&] { element(mSynchronizableToInternalIndex, i) = element(mControlIndices, i); });
      proc.step([&] { element(mTooltips, element(mControlIndices, i)) = element(temp, i); });
    }

    bool stop = false;
    proc.step([&] { stop = i > upperBound(mControlIndices); });
    if (stop)
      return;

    // The two hidden fields take the record positions directly after the
    // last key that sorts before them.
    proc.step([&] { j = 0; });
    int16_t lastHidden = -1;
    proc.step([&] { lastHidden = static_cast<int16_t>(i + upperBound(hiddenMap)); });
    for (; i <= lastHidden; ++i) {
      proc.step([&] { element(mControlIndices, i) = element(hiddenMap, j); });
      proc.step([&] { ++j; });
    }

    proc.step([&] { stop = i > upperBound(mControlIndices); });
    if (stop)
      return;

    // The keys after the hidden ones sit that many record positions behind
    // their synchronisable position.
    int16_t lastRecord = -1;
    proc.step([&] { lastRecord = upperBound(mControlIndices); });
    for (; i <= lastRecord; ++i) {
      proc.step([&] { j = static_cast<int16_t>(i - upperBound(hiddenMap) - 1); });
      proc.step([&] {
        element(mControlIndices, i) =
            element(controlKeyToInternalKey, element(mSynchronizableControlIndices, j));
      });
      proc.step([&] { element(mSynchronizableToInternalIndex, j) = element(mControlIndices, i); });
      proc.step([&] { element(mTooltips, element(mControlIndices, i)) = element(temp, j); });
    }
  });
}

void Model::getUIMetadata(std::shared_ptr<Dictionary>& keyToOverallIndex,
                          std::vector<int16_t>& synchronizableToInternalIndex,
                          std::vector<int16_t>& synchronizableControlIndices,
                          std::vector<int16_t>& internalKeyToControlKey,
                          std::vector<std::string>& tooltips, std::string& authorKey) {
  Procedure proc{this,
                 procedureName<"Model.getUIMetadata">(),
                 {arg("keyToOverallIndex", keyToOverallIndex),
                  arg("synchronizableToInternalIndex", synchronizableToInternalIndex),
                  arg("synchronizableControlIndices", synchronizableControlIndices),
                  arg("internalKeyToControlKey", internalKeyToControlKey),
                  arg("tooltips", tooltips), arg("authorKey", authorKey)}};
  proc.run([&] {
    proc.step([&] { keyToOverallIndex = mKeyToOverallIndex; });
    proc.step([&] { synchronizableToInternalIndex = mSynchronizableToInternalIndex; });
    proc.step([&] { synchronizableControlIndices = mSynchronizableControlIndices; });
    proc.step([&] { internalKeyToControlKey = mInternalKeyToControlKey; });
    proc.step([&] { tooltips = mTooltips; });
    proc.step([&] { authorKey = mAuthorKey; });

    // A hand-over, not a read: the first proxy owns these tables from now on.
    proc.step([&] { mKeyToOverallIndex.reset(); });
    proc.step([&] { mSynchronizableToInternalIndex.clear(); });
    proc.step([&] { mSynchronizableControlIndices.clear(); });
    proc.step([&] { mInternalKeyToControlKey.clear(); });
    proc.step([&] { mTooltips.clear(); });
    proc.step([&] { mAuthorKey.clear(); });
  });
}

void Model::vbwDump() const {
  vbwProtector::dumpModule({
      arg("initializedToFormat", initializedToFormat),
      arg("mSettings", mSettings),
      arg("mReferenceFormDisplayIndex", mReferenceFormDisplayIndex),
      arg("mControlIndices", mControlIndices),
      arg("mKeyIndex", mKeyIndex),
      arg("mSecondKeyIndex", mSecondKeyIndex),
      arg("mKeyToInternalIndex", mKeyToInternalIndex),
      arg("mKeyToOverallIndex", mKeyToOverallIndex),
      arg("mSynchronizableToInternalIndex", mSynchronizableToInternalIndex),
      arg("mSynchronizableControlIndices", mSynchronizableControlIndices),
      arg("mInternalKeyToControlKey", mInternalKeyToControlKey),
      arg("mTooltips", mTooltips),
      arg("mAuthorKey", mAuthorKey),
  });
}

}  // namespace kelmora
