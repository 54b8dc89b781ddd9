#include "model/Model.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <iterator>
#include <memory>
#include <string>
#include <vector>

#include "diagnostics/vbwProtector.h"
#include "platform/Dictionary.h"
#include "support/FreshThread.h"
#include "support/RecordingTracingService.h"

namespace kelmora {
namespace {

using testing::onFreshThread;
using testing::ScopedBridge;

constexpr int16_t kNone = -1;

// One row of a type's field table, by internal index: the key, the overall
// index of its widget, its synchronisable and record positions and its
// default tooltip. The hidden keys have neither widget nor synchronisable
// position.
struct Field {
  int16_t internal;
  const char* key;
  int16_t overall;
  int16_t synchronizable;
  int16_t record;
  const char* tooltip;
};

struct TypeCatalogue {
  const char* name;
  int16_t whichType;
  int32_t keyTableCount;
  int16_t keyIndex;
  int16_t secondKeyIndex;
  std::array<std::string, 12> settings;
  std::vector<Field> fields;
};

// clang-format off
const std::vector<TypeCatalogue> kTypes = {
  {"NonPeriodical", 0, 42, 0, -1,
   {"NonPeriodical", "15,Chapter title,16,Multi-vol.,12,Editor,7,False,23,True,24,False,25,Medium,27,Publish date", "-1", "True", "True", "-2", "True", "yyyy", "", "False", "True", "True"},
   {
      {0, "Title", 39, 15, 15, "Title of the work"},
      {1, "Author", 35, 1, 1, "Author of the work"},
      {2, "v4_keywords", 14, 18, 18, "Enter search keywords to find this entry, separated by commas.  The author and title will automatically be added for you."},
      {3, "v4_location_hidden", kNone, kNone, 19, ""},
      {4, "Notes", 15, 8, 8, "Store notes with this reference entry"},
      {5, "Online", 3, 9, 9, "Publication medium"},
      {6, "AccessDate", 2, 0, 0, "Date that you accessed the website (e.g. 3 January 2004)"},
      {7, "IncludeInFootnotesBookDeprecated", 36, 5, 5, ""},
      {8, "Year", 31, 17, 17, ""},
      {9, "v4_votes_hidden", kNone, kNone, 20, ""},
      {10, "Page", 25, 10, 10, "Page number"},
      {11, "CompilerOrEditor", 0, 2, 2, "Editor or compiler"},
      {12, "CompilerOrEditorComboLabel", 1, 3, 3, ""},
      {13, "Edition", 29, 4, 4, "Edition information given on title or copyright page"},
      {14, "Subwork", 21, 13, 13, ""},
      {15, "SubworkComboLabel", 22, 14, 14, "If the reference is to an entire work within a book, use Subwork title.  Otherwise, use Chapter title."},
      {16, "MultiPartComboLabel", 12, 6, 6, ""},
      {17, "MultiPartWork", 10, 7, 7, "Volume or series"},
      {18, "Place", 32, 11, 11, "Place where book was published (City, State)"},
      {19, "Publisher", 23, 12, 12, "Publisher name"},
      {20, "Translator", 11, 16, 16, "Translator"},
      {21, "v579_BookPublishDate", 4, 19, 21, ""},
      {22, "v579_PageRange", 26, 20, 22, ""},
      {23, "v6_BookOption", 38, 21, 23, ""},
      {24, "v6_WebsiteOption", 37, 22, 24, ""},
      {25, "v8_PublicationMediumComboLabel", 19, 25, 27, ""},
      {26, "v8_PublicationMedium", 18, 24, 26, ""},
      {27, "v8_PublicationDateTypeComboBox", 5, 23, 25, ""},
   }},
  {"Periodical", 1, 38, 12, 0,
   {"Periodical", "14,True,15,False,16,False,20,False,13,False,21,Issue type,23,Article title,24,Refers to,7,False", "-1", "True", "True", "-2", "False", "yyyy, mmmm d", "yyyy, mmmm d", "True", "False", "True"},
   {
      {0, "PeriodicalArticleTitle", 23, 2, 2, "Title of the article"},
      {1, "PeriodicalAuthor", 0, 3, 3, "Author(s)"},
      {2, "v4_keywords", 2, 17, 17, "Enter search keywords to find this entry, separated by commas.  The author and title will automatically be added for you."},
      {3, "v4_location_hidden", kNone, kNone, 18, ""},
      {4, "PeriodicalNotes", 5, 8, 8, "Store notes with this reference entry"},
      {5, "PeriodicalOnline", 6, 10, 10, "Website or DOI"},
      {6, "PeriodicalAccessDate", 7, 1, 1, "Date that you accessed the website (e.g. 3 January 2004)"},
      {7, "IncludeInFootnotesPeriodicalDeprecated", 19, 0, 0, ""},
      {8, "PeriodicalDate", 27, 4, 4, "Format: June 1944, summer 1944, or 1944"},
      {9, "v4_votes_hidden", kNone, kNone, 19, ""},
      {10, "PeriodicalPage", 18, 11, 11, ""},
      {11, "PeriodicalPageRange", 21, 12, 12, ""},
      {12, "PeriodicalTitle", 22, 15, 15, "Title of the periodical that contains the article"},
      {13, "PeriodicalSupplementalCheckBoxDeprecated", 29, 14, 14, ""},
      {14, "PeriodicalJournalOption", 20, 5, 5, ""},
      {15, "PeriodicalMagazineOption", 25, 6, 6, ""},
      {16, "PeriodicalNewspaperOption", 17, 7, 7, ""},
      {17, "PeriodicalNumber", 26, 9, 9, ""},
      {18, "PeriodicalRefersTo", 8, 13, 13, ""},
      {19, "PeriodicalVolume", 24, 16, 16, "Volume number"},
      {20, "v574_PeriodicalOnlineForumOptionDeprecated", 28, 19, 21, ""},
      {21, "v574_PeriodicalIssueTypeComboLabel", 9, 18, 20, ""},
      {22, "v579_PeriodicalIssue", 3, 21, 23, ""},
      {23, "v579_PeriodicalArticleComboLabel", 30, 20, 22, ""},
      {24, "v579_PeriodicalRefersToComboLabel", 10, 23, 25, ""},
      {25, "v579_PeriodicalPublishDate", 4, 22, 24, ""},
   }},
  {"Esource", 4, 20, 1, 0,
   {"Esource", "10, ,11,Email to,7,False", "-1", "True", "True", "-1", "False", "yyyy, mmmm d", "", "False", "False", "False"},
   {
      {0, "EsourceTitle", 9, 5, 5, ""},
      {1, "EsourceAuthor", 8, 1, 1, ""},
      {2, "v4_keywords", 11, 10, 10, ""},
      {3, "v4_location_hidden", kNone, kNone, 11, ""},
      {4, "EsourceNotes", 0, 4, 4, "Store notes with this reference entry"},
      {5, "EsourceURL", 4, 7, 7, ""},
      {6, "EsourceAccessDate", 5, 0, 0, "Date that you accessed the website (e.g. January 3, 2010)"},
      {7, "IncludeInFootnotesEsourceDeprecated", 3, 9, 9, ""},
      {8, "EsourceDate", 10, 2, 2, "The date of when the message was sent or posted"},
      {9, "v4_votes_hidden", kNone, kNone, 12, ""},
      {10, "EsourceDegree", 7, 3, 3, ""},
      {11, "EsourceType", 6, 6, 6, ""},
      {12, "EsourceWebsiteTitle", 2, 8, 8, ""},
      {13, "v8_CommentDate", 1, 11, 13, "Date that the comment was posted, which is later than the Publish date of the blog post"},
   }},};
// clang-format on

// The tables a proxy receives from getUIMetadata.
struct Metadata {
  std::shared_ptr<Dictionary> keyToOverallIndex;
  std::vector<int16_t> synchronizableToInternalIndex;
  std::vector<int16_t> synchronizableControlIndices;
  std::vector<int16_t> internalKeyToControlKey;
  std::vector<std::string> tooltips;
  std::string authorKey;
};

Metadata handOver(Model& model) {
  Metadata m;
  model.getUIMetadata(m.keyToOverallIndex, m.synchronizableToInternalIndex,
                      m.synchronizableControlIndices, m.internalKeyToControlKey, m.tooltips,
                      m.authorKey);
  return m;
}

TEST(ModelTest, ComputedTablesMatchEachTypesCatalogueWhole) {
  for (const auto& type : kTypes) {
    SCOPED_TRACE(type.name);
    onFreshThread([&] {
      ScopedBridge bridge;
      Model model;
      model.initialize(type.whichType);

      const size_t count = type.fields.size();
      std::vector<int16_t> controlIndices(count), internalToOverall(count);
      std::vector<int16_t> synchronizableToInternal(count - 2), synchronizableToOverall(count - 2);
      std::vector<std::string> tooltips(count), keys;
      std::vector<int16_t> internalIndices;
      for (const auto& field : type.fields) {
        controlIndices[field.record] = field.internal;
        internalToOverall[field.internal] = field.overall == kNone ? 0 : field.overall;
        if (field.synchronizable != kNone) {
          synchronizableToInternal[field.synchronizable] = field.internal;
          synchronizableToOverall[field.synchronizable] = field.overall;
        }
        tooltips[field.internal] = field.tooltip;
        keys.push_back(field.key);
        internalIndices.push_back(field.internal);
      }

      EXPECT_EQ(model.controlIndices(), controlIndices);
      EXPECT_EQ(model.keyToInternalIndex()->Keys(), keys);
      std::vector<int16_t> storedIndices;
      for (const auto& item : model.keyToInternalIndex()->Items()) {
        EXPECT_EQ(item.kind(), Variant::Kind::Integer);
        storedIndices.push_back(item.toInteger());
      }
      EXPECT_EQ(storedIndices, internalIndices);
      EXPECT_EQ(model.KeyIndex(), type.keyIndex);
      EXPECT_EQ(model.SecondKeyIndex(), type.secondKeyIndex);
      EXPECT_EQ(model.ReferenceFormDisplayIndex(), (std::vector<int16_t>{0, 1, 8, 3}));
      for (int16_t index = 0; index < 12; ++index) {
        EXPECT_EQ(model.setting(index), type.settings[static_cast<size_t>(index)])
            << "setting " << index;
      }

      const Metadata metadata = handOver(model);
      EXPECT_EQ(metadata.synchronizableToInternalIndex, synchronizableToInternal);
      EXPECT_EQ(metadata.synchronizableControlIndices, synchronizableToOverall);
      EXPECT_EQ(metadata.internalKeyToControlKey, internalToOverall);
      EXPECT_EQ(metadata.tooltips, tooltips);
      EXPECT_EQ(metadata.authorKey, type.fields[1].key);
      ASSERT_NE(metadata.keyToOverallIndex, nullptr);
      EXPECT_EQ(metadata.keyToOverallIndex->Count(), type.keyTableCount);
      for (const auto& field : type.fields) {
        if (field.overall == kNone)
          continue;
        EXPECT_EQ(metadata.keyToOverallIndex->Item(field.key).toInteger(), field.overall)
            << field.key;
      }
      // Building a catalogue never goes down the failure path.
      EXPECT_EQ(bridge.service().countOf("before"), 0);
    });
  }
}

TEST(ModelTest, OnlyTheFirstCallerReceivesTheInterfaceTables) {
  onFreshThread([] {
    ScopedBridge bridge;
    Model model;
    model.initialize(4);
    const Metadata first = handOver(model);
    EXPECT_EQ(first.keyToOverallIndex->Count(), 20);

    const Metadata second = handOver(model);
    EXPECT_EQ(second.keyToOverallIndex, nullptr);
    EXPECT_TRUE(second.synchronizableToInternalIndex.empty());
    EXPECT_TRUE(second.synchronizableControlIndices.empty());
    EXPECT_TRUE(second.internalKeyToControlKey.empty());
    EXPECT_TRUE(second.tooltips.empty());
    EXPECT_EQ(second.authorKey, "");
    EXPECT_EQ(bridge.service().countOf("before"), 0);
    // The key map and the host's tables stay with the model.
    EXPECT_EQ(model.keyToInternalIndex()->Count(), 14);
    EXPECT_EQ(model.controlIndices().size(), 14u);
    EXPECT_EQ(first.keyToOverallIndex->Count(), 20);
  });
}

TEST(ModelTest, ASettingOutsideTheTableFailsWithSubscriptOutOfRange) {
  for (const int16_t index : {int16_t{12}, int16_t{-1}}) {
    SCOPED_TRACE(index);
    onFreshThread([&] {
      ScopedBridge bridge;
      Model model;
      model.initialize(1);
      model.initializedToFormat = true;
      EXPECT_EQ(model.setting(index), "");
      const auto before = bridge.service().callsStartingWith("before ");
      ASSERT_EQ(before.size(), 1u);
      EXPECT_TRUE(before[0].starts_with("before Kelmora Model setting[Get] ")) << before[0];
      EXPECT_NE(before[0].find(" 9 Subscript out of range "), std::string::npos) << before[0];

      // The dump reports the model's fields in their declared order.
      const auto& calls = bridge.service().calls;
      auto header = std::find(calls.begin(), calls.end(), "file " + vbwProtector::moduleHeader());
      ASSERT_NE(header, calls.end());
      std::vector<std::string> fields(std::next(header), std::next(header, 14));
      for (auto& field : fields) field = field.substr(0, field.find('='));
      EXPECT_EQ(fields,
                (std::vector<std::string>{
                    "var initializedToFormat", "var mSettings", "var mReferenceFormDisplayIndex",
                    "var mControlIndices", "var mKeyIndex", "var mSecondKeyIndex",
                    "var mKeyToInternalIndex", "var mKeyToOverallIndex",
                    "var mSynchronizableToInternalIndex", "var mSynchronizableControlIndices",
                    "var mInternalKeyToControlKey", "var mTooltips", "var mAuthorKey"}));
      EXPECT_EQ(*std::next(header), "var initializedToFormat=True");
      EXPECT_EQ(*std::next(header, 5), "var mKeyIndex=12");
    });
  }
}

TEST(ModelTest, EndingTheModelEmptiesTheMapItSharesWithTheProxy) {
  onFreshThread([] {
    ScopedBridge bridge;
    auto model = std::make_shared<Model>();
    model->initialize(0);
    const std::shared_ptr<Dictionary> shared = model->keyToInternalIndex();
    ASSERT_EQ(shared->Count(), 28);
    model.reset();
    EXPECT_EQ(shared->Count(), 0);
  });
}

}  // namespace
}  // namespace kelmora
