#include "eclipses/EclipseType.h"

#include <span>
#include <string_view>

#include "foundation/LocalizedString.h"

namespace zenivo {
namespace {

struct Texts {
  std::string_view shortKey;
  std::string_view longKey;
};

// By kind: display codes by catalogue type, texts by display code from 1 on.
constexpr int kSolarCodes[] = {3, 4, 2, 1};
constexpr int kLunarCodes[] = {3, 2, 1};
constexpr Texts kSolarTexts[] = {{"eclipse_partial", "eclipse_partial_sun"},
                                 {"eclipse_annular", "eclipse_annular_sun"},
                                 {"eclipse_total", "eclipse_total_sun"},
                                 {"eclipse_hybrid", "eclipse_hybrid_sun"}};
constexpr Texts kLunarTexts[] = {{"eclipse_penumbral", "eclipse_penumbral_moon"},
                                 {"eclipse_partial", "eclipse_partial_moon"},
                                 {"eclipse_total", "eclipse_total_moon"}};
constexpr Texts kNotVisible{"eclipse_not_visible_short", "eclipse_not_visible"};

std::span<const int> codesOf(EclipseKind kind) {
  if (kind == EclipseKind::solar) return kSolarCodes;
  return kLunarCodes;
}

Texts textsOf(EclipseKind kind, int displayCode) {
  std::span<const Texts> texts = kLunarTexts;
  if (kind == EclipseKind::solar) texts = kSolarTexts;
  const bool isKnown = displayCode >= 1 && static_cast<std::size_t>(displayCode) <= texts.size();
  return isKnown ? texts[static_cast<std::size_t>(displayCode) - 1] : kNotVisible;
}

}  // namespace

EclipseKind kindOf(const EclipseRow& eclipse) {
  return eclipse.isSolarEclipse() ? EclipseKind::solar : EclipseKind::lunar;
}

int eclipseTypeAsInt(const EclipseRow& eclipse) {
  const auto codes = codesOf(kindOf(eclipse));
  const bool isKnown = eclipse.type >= 0 && static_cast<std::size_t>(eclipse.type) < codes.size();
  return isKnown ? codes[static_cast<std::size_t>(eclipse.type)] : 0;
}

int eclipseType(const EclipseRow& eclipse) {
  return eclipse.type >= 0 && eclipseTypeAsInt(eclipse) == 0 ? 1 : eclipseTypeAsInt(eclipse);
}

std::string eclipseTypeToString(EclipseKind kind, int displayCode) {
  return localizedString(textsOf(kind, displayCode).shortKey, "Ephemeris");
}

std::string eclipseLongTypeToString(EclipseKind kind, int displayCode) {
  return localizedString(textsOf(kind, displayCode).longKey, "Ephemeris");
}

std::string eclipseTypeString(const EclipseRow& eclipse) {
  return eclipseTypeToString(kindOf(eclipse), eclipseType(eclipse));
}

std::string eclipseLongTypeString(const EclipseRow& eclipse) {
  return eclipseLongTypeToString(kindOf(eclipse), eclipseType(eclipse));
}

}  // namespace zenivo
