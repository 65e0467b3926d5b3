#include "eclipses/EclipseMarker.h"

#include <algorithm>

namespace zenivo {
namespace {

struct Rule {
  std::string_view text;  // in lower case
  EclipseMarker marker;
};

// The first that the name contains wins.
constexpr Rule kRules[] = {
    {"greatest duration", {"gd", "iconEclipseGD", "", "eclipse_gd_point"}},
    {"greatest eclipse", {"ge", "iconEclipseGE", "", "eclipse_ge_point"}},
    {"p1", {"p1", "", "P1", ""}},
    {"p2", {"p2", "", "P2", ""}},
    {"p3", {"p3", "", "P3", ""}},
    {"p4", {"p4", "", "P4", ""}},
    {"u1", {"u1", "", "U1", ""}},
    {"u2", {"u2", "", "U2", ""}},
    {"u3", {"u3", "", "U3", ""}},
    {"u4", {"u4", "", "U4", ""}},
    {"eclipse not visible", {"", "", "", "eclipse_not_visible"}},
    {"eclipse visible", {"", "", "", "eclipse_visible"}},
    {"eclipse at moonrise", {"", "", "", "eclipse_at_moonrise"}},
    {"eclipse at moonset", {"", "", "", "eclipse_at_moonset"}},
};

constexpr char toLower(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

bool containsInAnyCase(std::string_view text, std::string_view lowerCasePart) {
  const auto equal = [](char a, char b) { return toLower(a) == b; };
  return std::search(text.begin(), text.end(), lowerCasePart.begin(), lowerCasePart.end(), equal) !=
         text.end();
}

}  // namespace

std::optional<EclipseMarker> eclipseMarkerForPlacemark(std::string_view name) {
  for (const Rule& rule : kRules) {
    if (containsInAnyCase(name, rule.text)) return rule.marker;
  }
  return std::nullopt;
}

}  // namespace zenivo
