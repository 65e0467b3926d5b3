#include "foundation/Uuid.h"

#include <gtest/gtest.h>

#include <set>

namespace zenivo {
namespace {

TEST(Uuid, FormAndNoRepetition) {
  std::set<std::string> seen;
  for (int i = 0; i < 2000; ++i) {
    const std::string uuid = uuidString();
    ASSERT_EQ(uuid.size(), 36u);
    EXPECT_EQ(uuid.find_first_not_of("0123456789ABCDEF-"), std::string::npos) << uuid;
    EXPECT_EQ(uuid[14], '4') << uuid;                                          // random
    EXPECT_NE(std::string("89AB").find(uuid[19]), std::string::npos) << uuid;  // of RFC 4122
    EXPECT_TRUE(seen.insert(uuid).second) << uuid;
  }
}

}  // namespace
}  // namespace zenivo
