#include "model/Model.h"

#include "platform/Arrays.h"
#include "platform/Late.h"

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

Dictionary& map(const std::shared_ptr<Dictionary>& dictionary) {
  return Late::object(dictionary);
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
      [&](std::string& result) { proc.step([&] { result = Arrays::at(mSettings, Index); }); });
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
        Arrays::ReDim(synchronizableKeys, constants.synchronizableKeysUpperBound);
        for (const auto& row : constants.synchronizableKeys) {
          Arrays::at(synchronizableKeys, row.internalIndex) = row.key;
        }
      });
      proc.step([&] {
        Arrays::ReDim(mSettings, static_cast<int32_t>(Catalogue::kSettingCount) - 1);
        for (const auto& row : constants.settings) {
          Arrays::at(mSettings, row.index) =
              row.number ? Variant(*row.number).toString() : std::string(row.text);
        }
      });
      proc.step([&] {
        Arrays::ReDim(mReferenceFormDisplayIndex, 3);
        for (size_t i = 0; i < constants.referenceFormDisplayIndex.size(); ++i) {
          Arrays::at(mReferenceFormDisplayIndex, static_cast<int32_t>(i)) =
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
        Arrays::ReDim(mTooltips, upper);
        Arrays::ReDim(mSynchronizableControlIndices, upper);
        for (const auto& row : constants.synchronizableControlIndices) {
          Arrays::at(mSynchronizableControlIndices, row.position) = row.overallIndex;
        }
        for (const auto& row : constants.tooltips) {
          Arrays::at(mTooltips, row.position) = row.text;
        }
      });
    }

    proc.step([&] { mAuthorKey = Arrays::at(synchronizableKeys, 1); });
    proc.step([&] { Arrays::at(synchronizableKeys, Catalogue::kKeywordsIndex) = "v4_keywords"; });
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
      Arrays::at(synchronizableKeys, Catalogue::kLocationHiddenIndex) = "v4_location_hidden";
    });
    proc.step(
        [&] { Arrays::at(synchronizableKeys, Catalogue::kVotesHiddenIndex) = "v4_votes_hidden"; });
    proc.step([&] { Arrays::ReDim(hiddenMap, 1); });
    proc.step([&] { Arrays::at(hiddenMap, 0) = Catalogue::kLocationHiddenIndex; });
    proc.step([&] { Arrays::at(hiddenMap, 1) = Catalogue::kVotesHiddenIndex; });
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
    proc.step([&] { Arrays::ReDim(mInternalKeyToControlKey, Arrays::UBound(synchronizableKeys)); });
    // The registry's fixed bound: overall indices above 50 fail with 9.
    proc.step([&] { Arrays::ReDim(controlKeyToInternalKey, Catalogue::kMaxOverallIndex); });
    // A loop whose bound fails to evaluate runs no iteration.
    int16_t last = -1;
    proc.step([&] { last = Arrays::UBound(synchronizableKeys); });
    for (i = 0; i <= last; ++i) {
      proc.step(
          [&] { map(mKeyToInternalIndex).Add(Arrays::at(synchronizableKeys, i), Variant(i)); });
      proc.step([&] {
        const std::string& key = Arrays::at(synchronizableKeys, i);
        if (!key.ends_with(kHiddenSuffix)) {
          // A key missing from the key table reads as empty, which adds it
          // there and converts to overall index 0.
          Arrays::at(mInternalKeyToControlKey, i) = map(keyToOverallIndex).Item(key).toInteger();
          Arrays::at(controlKeyToInternalKey, Arrays::at(mInternalKeyToControlKey, i)) = i;
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
      Arrays::ReDim(mSynchronizableToInternalIndex, Arrays::UBound(mSynchronizableControlIndices));
    });
    proc.step([&] { Arrays::ReDim(mControlIndices, map(mKeyToInternalIndex).Count() - 1); });
    proc.step([&] { temp = mTooltips; });
    proc.step([&] { Arrays::ReDim(mTooltips, map(mKeyToInternalIndex).Count() - 1); });

    // The keys that sort before the hidden ones: record position and
    // synchronisable position agree.
    int16_t lastBeforeHidden = -1;
    proc.step([&] {
      lastBeforeHidden =
          static_cast<int16_t>(Arrays::UBound(mSynchronizableControlIndices) - numAfterV4Keywords);
    });
    for (i = 0; i <= lastBeforeHidden; ++i) {
      proc.step([&] {
        Arrays::at(mControlIndices, i) =
            Arrays::at(controlKeyToInternalKey, Arrays::at(mSynchronizableControlIndices, i));
      });
      proc.step(
          [&] { Arrays::at(mSynchronizableToInternalIndex, i) = Arrays::at(mControlIndices, i); });
      proc.step(
          [&] { Arrays::at(mTooltips, Arrays::at(mControlIndices, i)) = Arrays::at(temp, i); });
    }

    bool stop = false;
    proc.step([&] { stop = i > Arrays::UBound(mControlIndices); });
    if (stop)
      return;

    // The two hidden fields take the record positions directly after the
    // last key that sorts before them.
    proc.step([&] { j = 0; });
    int16_t lastHidden = -1;
    proc.step([&] { lastHidden = static_cast<int16_t>(i + Arrays::UBound(hiddenMap)); });
    for (; i <= lastHidden; ++i) {
      proc.step([&] { Arrays::at(mControlIndices, i) = Arrays::at(hiddenMap, j); });
      proc.step([&] { ++j; });
    }

    proc.step([&] { stop = i > Arrays::UBound(mControlIndices); });
    if (stop)
      return;

    // The keys after the hidden ones sit that many record positions behind
    // their synchronisable position.
    int16_t lastRecord = -1;
    proc.step([&] { lastRecord = Arrays::UBound(mControlIndices); });
    for (; i <= lastRecord; ++i) {
      proc.step([&] { j = static_cast<int16_t>(i - Arrays::UBound(hiddenMap) - 1); });
      proc.step([&] {
        Arrays::at(mControlIndices, i) =
            Arrays::at(controlKeyToInternalKey, Arrays::at(mSynchronizableControlIndices, j));
      });
      proc.step(
          [&] { Arrays::at(mSynchronizableToInternalIndex, j) = Arrays::at(mControlIndices, i); });
      proc.step(
          [&] { Arrays::at(mTooltips, Arrays::at(mControlIndices, i)) = Arrays::at(temp, j); });
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
