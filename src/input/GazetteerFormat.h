// The tables in the file of places, as docs/gazetteer-format.md tells them: what the
// builder of the file writes and Gazetteer reads.

#pragma once

#include <cstdint>
#include <string_view>

namespace zenivo::gazetteer {

inline constexpr std::string_view kMagic = "ZVPLACE1";

/// Numbers of rows, in the order of the tables; `text` in bytes.
struct Header {
  std::uint32_t places, keys, entries, regions, countries, text;
};

/// Texts are places in the table of texts; each ends in a zero byte.
using Text = std::uint32_t;

inline constexpr std::uint16_t kNone = 0xFFFF;  // no region, no country
inline constexpr std::int16_t kUnknownAltitude = -32768;

enum class Kind : std::uint16_t { place, capital, pointOfInterest };

struct Place {
  std::int32_t latitude, longitude;  // 1e-5 degree
  std::uint32_t population;          // 0 where it is not known
  Text name;
  std::int16_t altitude;  // metres
  std::uint16_t region, country;
  Kind kind;
};

/// A folded name; its entries end where those of the next key begin.
struct Key {
  Text text;
  std::uint32_t firstEntry;
};

/// A place that bears the name, with what kind of name it is in the upper bits.
struct Entry {
  static constexpr std::uint32_t kOwn = 1U << 31;   // its own, or that in plain letters
  static constexpr std::uint32_t kCode = 1U << 30;  // a code of three capitals
  std::uint32_t bits;

  std::uint32_t place() const { return bits & ~(kOwn | kCode); }
  bool isOwn() const { return (bits & kOwn) != 0; }
  bool isCode() const { return (bits & kCode) != 0; }
};

struct Region {
  Text code, name, postal;  // "BC" where `code` is "02"
  std::uint32_t country;
};

struct Country {
  Text code, code3, name, domain;
};

}  // namespace zenivo::gazetteer
