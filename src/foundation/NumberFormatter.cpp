#include "foundation/NumberFormatter.h"

#include <unicode/decimfmt.h>
#include <unicode/numberformatter.h>

#include <algorithm>
#include <memory>

namespace zenivo {

std::string NumberFormatter::stringFromNumber(double number) const {
  using namespace icu::number;
  const int most = std::max(minimumFractionDigits, maximumFractionDigits);
  UErrorCode status = U_ZERO_ERROR;
  std::string text;
  icu::number::NumberFormatter::withLocale(icu::Locale::getEnglish())
      .precision(Precision::minMaxFraction(minimumFractionDigits, most))
      .roundingMode(UNUM_ROUND_HALFUP)
      .sign(UNUM_SIGN_NEGATIVE)
      .grouping(usesGroupingSeparator ? UNUM_GROUPING_AUTO : UNUM_GROUPING_OFF)
      .formatDouble(number, status)
      .toString(status)
      .toUTF8String(text);
  return text;
}

std::optional<double> NumberFormatter::numberFromString(std::string_view text) const {
  UErrorCode status = U_ZERO_ERROR;
  const std::unique_ptr<icu::NumberFormat> format(
      icu::NumberFormat::createInstance(icu::Locale::getEnglish(), status));
  if (U_FAILURE(status)) return std::nullopt;
  format->setGroupingUsed(usesGroupingSeparator);
  const icu::UnicodeString characters =
      icu::UnicodeString::fromUTF8(icu::StringPiece(text.data(), static_cast<int>(text.size())));
  icu::Formattable number;
  icu::ParsePosition end;
  format->parse(characters, number, end);
  if (end.getIndex() == 0 || end.getIndex() != characters.length()) return std::nullopt;
  return number.getDouble(status);
}

}  // namespace zenivo
