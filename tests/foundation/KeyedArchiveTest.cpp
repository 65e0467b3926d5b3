#include "foundation/KeyedArchive.h"

#include <gtest/gtest.h>

namespace zenivo {
namespace {

struct Layer {
  static constexpr std::string_view kClassName = "Layer";
  bool isVisible = false;
  float height = 0;

  void encodeWithCoder(KeyedArchiver& coder) const {
    coder.encode("isVisible", isVisible);
    coder.encode("height", height);
  }
  static std::optional<Layer> initWithCoder(const KeyedUnarchiver& coder) {
    return Layer{coder.decodeBool("isVisible"), coder.decodeFloat("height")};
  }
  friend bool operator==(const Layer&, const Layer&) = default;
};

struct Place {
  static constexpr std::string_view kClassName = "Place";
  std::string name;
  double latitude = 0;
  std::int64_t count = 0;
  std::optional<Date> seen;
  std::optional<Layer> layer;

  void encodeWithCoder(KeyedArchiver& coder) const {
    coder.encode("name", name);
    coder.encode("latitude", latitude);
    coder.encode("count", count);
    if (seen) coder.encode("seen", *seen);
    if (layer) coder.encodeObject("layer", *layer);
  }
  static std::optional<Place> initWithCoder(const KeyedUnarchiver& coder) {
    if (!coder.containsValueForKey("latitude")) return std::nullopt;
    return Place{coder.decodeString("name"), coder.decodeDouble("latitude"),
                 coder.decodeInteger("count"), coder.decodeDate("seen"),
                 coder.decodeObject<Layer>("layer")};
  }
  friend bool operator==(const Place&, const Place&) = default;
};

TEST(KeyedArchive, ObjectsComeBackThroughTheirFile) {
  const Place place{"Matterhorn & Riffelsee", 45.983333333333334, -3,
                    Date::withTimeIntervalSinceReferenceDate(803712345.25), Layer{true, 0.1F}};
  for (const Place& each : {place, Place{"", 1, 0, std::nullopt, std::nullopt}}) {
    const auto archive = parsePropertyList(formatPropertyList(archivedObject(each)).value());
    ASSERT_TRUE(archive);
    EXPECT_EQ(unarchivedObject<Place>(*archive), each);
  }
}

TEST(KeyedArchive, ForeignArchivesGiveNothing) {
  const PropertyList layer = archivedObject(Layer{true, 2});
  EXPECT_FALSE(unarchivedObject<Place>(layer));
  EXPECT_FALSE(unarchivedObject<Place>("text"));
  EXPECT_FALSE(unarchivedObject<Place>(PropertyList::Dictionary{{"latitude", 1.0}}));
  EXPECT_FALSE(unarchivedObject<Place>(PropertyList::Dictionary{{"$class", "Place"}}));
  // A field of another type or class reads as if it were missing.
  const PropertyList odd = PropertyList::Dictionary{
      {"$class", "Place"}, {"latitude", 46}, {"name", 5}, {"count", "7"}, {"layer", true}};
  EXPECT_EQ(unarchivedObject<Place>(odd), (Place{"", 46, 0, std::nullopt, std::nullopt}));
}

}  // namespace
}  // namespace zenivo
