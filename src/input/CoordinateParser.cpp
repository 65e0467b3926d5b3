#include "input/CoordinateParser.h"

#include <fmt/format.h>
#include <unicode/uchar.h>

#include <array>
#include <charconv>
#include <cmath>
#include <optional>
#include <string>
#include <vector>

#include "input/Characters.h"
#include "input/InputError.h"
#include "input/PlaceLinks.h"

namespace zenivo {
namespace {

enum class Kind { number, degreeMark, minuteMark, secondMark, compassPoint, comma };

struct Token {
  Kind kind;
  double value = 0;      // of a number, without its sign
  char sign = 0;         // of a number: '+', '-' or none
  bool isWhole = false;  // a number without a decimal point
  char letter = 0;       // of a compass point: N, S, E or W
};

/// What one character can be; letters are decided where they stand.
enum class Symbol {
  space,
  digit,
  point,
  plus,
  minus,
  comma,
  colon,
  degree,
  minute,
  second,
  letter,
  none
};

Symbol symbolOf(UChar32 c) {
  switch (c) {
    case ' ':
    case '\t':
    case 0x00A0:
    case 0x202F:
      return Symbol::space;
    case '.':
      return Symbol::point;
    case '+':
      return Symbol::plus;
    case '-':
    case 0x2212:
      return Symbol::minus;
    case ',':
    case ';':
      return Symbol::comma;
    case ':':
      return Symbol::colon;
    case 0x00B0:
    case 0x00BA:
    case 'd':
    case 'D':
      return Symbol::degree;
    case '\'':
    case 0x2019:
    case 0x2032:
    case 'm':
    case 'M':
      return Symbol::minute;
    case '"':
    case 0x201D:
    case 0x2033:
      return Symbol::second;
    case 'n':
    case 'N':
    case 's':
    case 'S':
    case 'e':
    case 'E':
    case 'w':
    case 'W':
      return Symbol::letter;
    default:
      return c >= '0' && c <= '9' ? Symbol::digit : Symbol::none;
  }
}

[[noreturn]] void failToRead(std::string_view text, std::string_view reason) {
  throw InputError(fmt::format(
      "{} is no place: {}; write LAT,LON[,ALT_M], for example 48.8584,2.2945 or 48°51'30\"N "
      "2°17'40\"E",
      inQuotes(text), reason));
}

/// The place if its angles and altitude are within their ranges.
const ZVLocation& checked(std::string_view text, const ZVLocation& location) {
  const auto& [latitude, longitude] = location.coordinate;
  if (!(std::fabs(latitude) <= 90)) {
    failToRead(text, "the latitude is not between -90 and 90 degrees");
  }
  if (!(std::fabs(longitude) <= 180)) {
    failToRead(text, "the longitude is not between -180 and 180 degrees");
  }
  if (!(location.altitude >= -500 && location.altitude <= 20000)) {
    failToRead(text, "the altitude is not between -500 and 20000 metres");
  }
  return location;
}

class Reader {
 public:
  /// `typed` is what a message quotes.
  Reader(std::string_view text, std::string_view typed) : text_(text), typed_(typed) { tokenize(); }

  ZVLocation location() {
    const int numbersPerAngle = countNumbersPerAngle();
    const Angle first = angle(numbersPerAngle);
    accept(Kind::comma);
    if (at_ == tokens_.size()) fail("the longitude is missing");
    const Angle second = angle(numbersPerAngle);
    if (!first.isMarked && !second.isMarked && first.numbers != second.numbers) {
      fail("latitude and longitude are not written alike");
    }
    ZVLocation result(ordered(first, second));
    if (accept(Kind::comma) || (second.letter != 0 && isNext(Kind::number))) {
      result = {result.coordinate, altitude()};
    }
    if (at_ < tokens_.size()) fail("there is more than a latitude, a longitude and an altitude");
    return result;
  }

 private:
  struct Angle {
    double degrees = 0;
    int numbers = 0;
    bool isMarked = false;  // by marks of degrees, minutes or seconds
    char letter = 0;
  };

  [[noreturn]] void fail(std::string_view reason) const { failToRead(typed_, reason); }

  void tokenize() {
    for (std::size_t next = 0; next < text_.size();) {
      const std::size_t start = next;
      const UChar32 c = nextCharacter(text_, next);
      switch (symbolOf(c)) {
        case Symbol::space:
          break;
        case Symbol::digit:
        case Symbol::point:
          next = number(start, 0);
          break;
        case Symbol::plus:
        case Symbol::minus:
          next = number(next, c == '+' ? '+' : '-');
          break;
        case Symbol::comma:
          tokens_.push_back({.kind = Kind::comma});
          break;
        case Symbol::colon:
          colon();
          break;
        case Symbol::degree:
          tokens_.push_back({.kind = Kind::degreeMark});
          break;
        case Symbol::minute:
          minuteOrSecond();
          break;
        case Symbol::second:
          tokens_.push_back({.kind = Kind::secondMark});
          break;
        case Symbol::letter:
          letter(static_cast<char>(c), start);
          break;
        case Symbol::none:
          fail("it has a character that coordinates do not");
      }
    }
  }

  std::size_t number(std::size_t start, char sign) {
    const char* first = text_.data() + start;
    const char* const end = text_.data() + text_.size();
    Token token{.kind = Kind::number, .sign = sign};
    const bool follows =
        !tokens_.empty() && tokens_.back().kind == Kind::number && start == numberEnd_;
    const bool begins = first != end && (*first == '.' || (*first >= '0' && *first <= '9'));
    const auto [last, error] = std::from_chars(first, end, token.value, std::chars_format::fixed);
    if (follows || !begins || error != std::errc()) fail("a number is not written right");
    const std::string_view digits(first, static_cast<std::size_t>(last - first));
    token.isWhole = digits.find('.') == std::string_view::npos;
    tokens_.push_back(token);
    numberEnd_ = static_cast<std::size_t>(last - text_.data());
    return numberEnd_;
  }

  /// The first colon of an angle ends the degrees, the second the minutes.
  void colon() {
    const std::size_t count = tokens_.size();
    const bool isSecond = count >= 2 && tokens_[count - 2].kind == Kind::degreeMark;
    tokens_.push_back({.kind = isSecond ? Kind::minuteMark : Kind::degreeMark});
  }

  /// Two single primes are the mark of the seconds.
  void minuteOrSecond() {
    if (!tokens_.empty() && tokens_.back().kind == Kind::minuteMark) {
      tokens_.back().kind = Kind::secondMark;
    } else {
      tokens_.push_back({.kind = Kind::minuteMark});
    }
  }

  void letter(char c, std::size_t start) {
    const std::size_t count = tokens_.size();
    const bool closesSeconds =
        c == 's' && count >= 2 && tokens_[count - 1].kind == Kind::number &&
        tokens_[count - 2].kind == Kind::minuteMark &&
        symbolOf(static_cast<unsigned char>(text_[start - 1])) != Symbol::space;
    if (closesSeconds) {
      tokens_.push_back({.kind = Kind::secondMark});
    } else {
      const char upper = static_cast<char>(c >= 'a' ? c - 'a' + 'A' : c);
      tokens_.push_back({.kind = Kind::compassPoint, .letter = upper});
    }
  }

  int countNumbersPerAngle() const {
    int numbers = 0;
    for (const Token& token : tokens_) {
      if (token.kind == Kind::number) {
        ++numbers;
      } else if (token.kind != Kind::minuteMark && token.kind != Kind::secondMark) {
        return 3;  // something else tells where an angle ends
      }
    }
    if (numbers < 2) fail("the longitude is missing");
    if (numbers != 2 && numbers != 4 && numbers != 6) {
      fail("a comma must stand between latitude and longitude");
    }
    return numbers / 2;
  }

  bool isNext(Kind kind, std::size_t ahead = 0) const {
    return at_ + ahead < tokens_.size() && tokens_[at_ + ahead].kind == kind;
  }

  bool accept(Kind kind) {
    if (!isNext(kind)) return false;
    ++at_;
    return true;
  }

  Angle angle(int maxNumbers) {
    constexpr std::array kMarks{Kind::degreeMark, Kind::minuteMark, Kind::secondMark};
    Angle result;
    if (isNext(Kind::compassPoint)) result.letter = tokens_[at_++].letter;
    if (!isNext(Kind::number)) fail("an angle is missing");
    const char sign = tokens_[at_].sign;
    double unit = 1;
    for (int i = 0; i < maxNumbers; ++i) {
      const Token number = tokens_[at_++];
      if (i > 0 && number.value >= 60) fail("minutes and seconds are less than 60");
      result.degrees += number.value / unit;
      unit *= 60;
      ++result.numbers;
      const bool isMarked = accept(kMarks.at(static_cast<std::size_t>(i)));
      result.isMarked = result.isMarked || isMarked;
      const bool continues = number.isWhole && isNext(Kind::number) && tokens_[at_].sign == 0 &&
                             !isNext(Kind::degreeMark, 1);
      if (!continues) break;
    }
    if (result.letter == 0 && isNext(Kind::compassPoint)) result.letter = tokens_[at_++].letter;
    if (result.letter != 0 && sign != 0) fail("an angle has both a sign and a compass point");
    if (sign == '-' || result.letter == 'S' || result.letter == 'W') {
      result.degrees = 0 - result.degrees;
    }
    return result;
  }

  Coordinate ordered(Angle first, Angle second) const {
    const auto isLongitude = [](char letter) { return letter == 'E' || letter == 'W'; };
    const auto isLatitude = [](char letter) { return letter == 'N' || letter == 'S'; };
    if ((isLongitude(first.letter) && isLongitude(second.letter)) ||
        (isLatitude(first.letter) && isLatitude(second.letter))) {
      fail("one angle must be a latitude (N or S), the other a longitude (E or W)");
    }
    if (isLongitude(first.letter) || isLatitude(second.letter)) std::swap(first, second);
    return {.latitude = first.degrees, .longitude = second.degrees};
  }

  double altitude() {
    if (!isNext(Kind::number)) fail("the altitude is missing");
    const Token token = tokens_[at_++];
    accept(Kind::minuteMark);  // "35 m"
    return token.sign == '-' ? -token.value : token.value;
  }

  std::string_view text_;
  std::string_view typed_;
  std::vector<Token> tokens_;
  std::size_t numberEnd_ = 0;  // in text_, of the last number
  std::size_t at_ = 0;         // in tokens_
};

/// Without blanks around it, nor brackets around the whole.
std::string_view unwrapped(std::string_view text) {
  const auto trim = [&] {
    while (text.starts_with(' ')) text.remove_prefix(1);
    while (text.ends_with(' ')) text.remove_suffix(1);
  };
  trim();
  if ((text.starts_with('(') && text.ends_with(')')) ||
      (text.starts_with('[') && text.ends_with(']'))) {
    text = text.substr(1, text.size() - 2);
    trim();
  }
  return text;
}

std::optional<ZVLocation> attempt(std::string_view text, std::string_view typed) {
  try {
    return Reader(text, typed).location();
  } catch (const InputError&) {
    return std::nullopt;
  }
}

/// A comma between two digits may part the angles or begin the decimals.  Decimals are
/// written so only where something else parts the angles: a semicolon, a point of the
/// compass, or a blank between two of them.
ZVLocation readAngles(std::string_view text, std::string_view typed) {
  std::string withPoints(text);
  int replaced = 0;
  for (std::size_t i = 1; i + 1 < text.size(); ++i) {
    if (text[i] != ',' || !isDigit(text[i - 1]) || !isDigit(text[i + 1])) continue;
    withPoints[i] = '.';
    ++replaced;
  }
  if (text.find('.') != std::string_view::npos || replaced == 0) {
    return Reader(text, typed).location();
  }
  if (text.find(';') != std::string_view::npos) return Reader(withPoints, typed).location();
  const bool hasLetter = text.find_first_of("NSEWnsew") != std::string_view::npos;
  if (replaced >= 2 || hasLetter) {
    const auto decimal = attempt(withPoints, typed);
    const auto parted = attempt(text, typed);
    if (decimal && parted && *decimal != *parted) {
      failToRead(typed, "its commas can be read in two ways");
    }
    if (decimal) return *decimal;
  }
  return Reader(text, typed).location();
}

}  // namespace

bool looksLikeCoordinates(std::string_view text) {
  if (isPlaceLink(text) || locationOfIso6709(unwrapped(text))) return true;
  bool hasDigit = false;
  for (std::size_t next = 0; next < text.size();) {
    const UChar32 c = nextCharacter(text, next);
    const Symbol symbol = symbolOf(c);
    if (symbol == Symbol::none && (c < 0 || u_isalpha(c) || c >= 0x80)) return false;
    hasDigit = hasDigit || symbol == Symbol::digit;
  }
  return hasDigit;
}

ZVLocation parseCoordinates(std::string_view text) {
  if (isPlaceLink(text)) {
    const auto location = locationOfLink(text);
    if (!location) failToRead(text, "the address has no coordinates");
    return checked(text, *location);
  }
  const std::string_view plain = unwrapped(text);
  const auto location = locationOfIso6709(plain);
  return checked(text, location ? *location : readAngles(plain, text));
}

}  // namespace zenivo
