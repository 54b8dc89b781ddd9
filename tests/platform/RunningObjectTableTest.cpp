#include "platform/RunningObjectTable.h"

#include <gtest/gtest.h>

#include "platform/RuntimeError.h"
#include "support/ErrorOf.h"

namespace kelmora {
namespace {

TEST(RunningObjectTableTest, AttachesOnlyToWhatAHostRegistered) {
  EXPECT_EQ(testing::errorOf([] { RunningObjectTable::GetObject("Nobody.Registered"); }),
            kCannotCreateObject);
  auto object = std::make_shared<Object>();
  std::weak_ptr<Object> watch = object;
  RunningObjectTable::Register("Host.Thing", object);
  EXPECT_EQ(RunningObjectTable::GetObject("Host.Thing"), object);
  object.reset();
  EXPECT_FALSE(watch.expired());  // the table keeps it running
  RunningObjectTable::Revoke("Host.Thing");
  EXPECT_TRUE(watch.expired());
  EXPECT_THROW(RunningObjectTable::GetObject("Host.Thing"), RuntimeError);
}

}  // namespace
}  // namespace kelmora
