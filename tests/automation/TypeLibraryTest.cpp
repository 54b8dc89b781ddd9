#include "automation/TypeLibrary.h"

#include <gtest/gtest.h>

#include <set>

namespace kelmora {
namespace {

TEST(TypeLibraryTest, IdentifierRecordsCarryTheSizeAndTheInterfaceBytes) {
  struct Row {
    const char* name;
    const char* iid;
  };
  const Row rows[] = {
      {"_IID_ESOURCE", "{24F1D106-48AA-473C-8B5A-AD314E3C0E58}"},
      {"_IID_FRAMECONTAINER", "{8D972F36-8075-44EC-8906-56E3D57FD10F}"},
      {"_IID_MAIN2", "{66AA94C4-EEC8-428C-A18F-3E92EF0EDF24}"},
      {"_IID_MODEL", "{BE66CDC6-8609-4598-8AD8-028AB7B684BD}"},
      {"_IID_NONPERIODICAL", "{0F8692F5-405B-47A7-BEC9-980E12975E1C}"},
      {"_IID_PERIODICAL", "{E9AD6E34-44E7-4686-AEE0-94FE271844BE}"},
      {"_IID_TRANSLATORWRAPPER", "{6CD014E5-6C4B-49A1-AE48-9ADD9422907C}"},
      {"_SRCIID_ESOURCE", "{8365B663-2CC6-4CE6-92A3-62EF9564A7A0}"},
      {"_SRCIID_FRAMECONTAINER", "{C0D2D033-A47A-4D14-8453-3650269B6DA4}"},
      {"_SRCIID_NONPERIODICAL", "{A2BE2E0D-D71F-4389-A548-E911212FA6F4}"},
      {"_SRCIID_PERIODICAL", "{7C3C032B-9304-4FB4-A96B-61060C1891AC}"},
  };
  auto records = TypeLibrary::identifierRecords();
  ASSERT_EQ(records.size(), std::size(rows));
  for (size_t i = 0; i < records.size(); ++i) {
    SCOPED_TRACE(rows[i].name);
    EXPECT_EQ(records[i].name, rows[i].name);
    const std::array<uint8_t, 4> size{16, 0, 0, 0};
    EXPECT_TRUE(std::equal(size.begin(), size.end(), records[i].bytes.begin()));
    auto bytes = Guid::parse(rows[i].iid).bytes();
    EXPECT_TRUE(std::equal(bytes.begin(), bytes.end(), records[i].bytes.begin() + 4));
  }
  // The first group is stored little endian.
  EXPECT_EQ(records[0].bytes[4], 0x06);
  EXPECT_EQ(records[0].bytes[7], 0x24);
}

TEST(TypeLibraryTest, OnlyMain2IsCreatableAndTheControlsHaveEventInterfaces) {
  std::set<std::string> creatable, controls, withEvents;
  for (const auto& c : TypeLibrary::classes()) {
    if (c.kind == TypeLibrary::ClassKind::Creatable)
      creatable.insert(c.name);
    if (c.kind == TypeLibrary::ClassKind::Control)
      controls.insert(c.name);
    if (c.eventInterface != nullptr)
      withEvents.insert(c.name);
    EXPECT_NE(TypeLibrary::interfaceNamed(c.defaultInterface), nullptr) << c.name;
  }
  EXPECT_EQ(creatable, std::set<std::string>{"Main2"});
  const std::set<std::string> expected{"FrameContainer", "Periodical", "NonPeriodical", "Esource"};
  EXPECT_EQ(controls, expected);
  EXPECT_EQ(withEvents, expected);
}

}  // namespace
}  // namespace kelmora
