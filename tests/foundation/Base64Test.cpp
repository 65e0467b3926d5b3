#include "foundation/Base64.h"

#include <gtest/gtest.h>

#include <utility>

namespace zenivo {
namespace {

TEST(Base64, VectorsOfRfc4648) {
  for (const auto& [bytes, text] : {std::pair{"", ""},
                                    {"f", "Zg=="},
                                    {"fo", "Zm8="},
                                    {"foo", "Zm9v"},
                                    {"foob", "Zm9vYg=="},
                                    {"fooba", "Zm9vYmE="},
                                    {"foobar", "Zm9vYmFy"}}) {
    const std::string_view content(bytes);
    const std::vector<std::uint8_t> data(content.begin(), content.end());
    EXPECT_EQ(base64String(data), text);
    EXPECT_EQ(dataFromBase64String(text), data);
  }
}

}  // namespace
}  // namespace zenivo
