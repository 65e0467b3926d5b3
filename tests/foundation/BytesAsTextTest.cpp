// Texts of bytes: checksums, encodings, identifiers.

#include <gtest/gtest.h>

#include <set>
#include <utility>

#include "foundation/Base64.h"
#include "foundation/Digest.h"
#include "foundation/Uuid.h"

namespace zenivo {
namespace {

TEST(Digest, SuiteOfRfc1321) {
  EXPECT_EQ(md5String(""), "d41d8cd98f00b204e9800998ecf8427e");
  EXPECT_EQ(md5String("abc"), "900150983cd24fb0d6963f7d28e17f72");
  EXPECT_EQ(md5String("abcdefghijklmnopqrstuvwxyz"), "c3fcd3d76192e4007dfb496cca67e13b");
}

TEST(Base64, VectorsOfRfc4648) {
  const std::string_view content = "foobar";
  std::size_t length = 0;
  for (const char* text : {"", "Zg==", "Zm8=", "Zm9v", "Zm9vYg==", "Zm9vYmE=", "Zm9vYmFy"}) {
    const std::vector<std::uint8_t> data(content.begin(), content.begin() + length++);
    EXPECT_EQ(base64String(data), text);
    EXPECT_EQ(dataFromBase64String(text), data);
  }
}

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
