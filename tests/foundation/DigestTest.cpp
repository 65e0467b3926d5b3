#include "foundation/Digest.h"

#include <gtest/gtest.h>

namespace zenivo {
namespace {

TEST(Digest, SuiteOfRfc1321) {
  EXPECT_EQ(md5String(""), "d41d8cd98f00b204e9800998ecf8427e");
  EXPECT_EQ(md5String("abc"), "900150983cd24fb0d6963f7d28e17f72");
  EXPECT_EQ(md5String("abcdefghijklmnopqrstuvwxyz"), "c3fcd3d76192e4007dfb496cca67e13b");
}

}  // namespace
}  // namespace zenivo
