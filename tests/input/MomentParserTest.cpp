#include "input/MomentParser.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <random>
#include <string>

#include "foundation/DateFormatter.h"
#include "input/InputError.h"
#include "input/ZoneParser.h"

namespace zenivo {
namespace {

const Date kNow = Date::withTimeIntervalSince1970(1782013620);  // 2026-06-21T03:47Z

double secondsSince1970(const char* text, const char* zone) {
  return parseMoment(text, parseZone(zone), kNow).timeIntervalSince1970();
}

/// The message of the InputError that the call throws.
std::string refusal(const std::function<void()>& call) {
  try {
    call();
  } catch (const InputError& error) {
    return error.what();
  }
  return "not refused";
}

TEST(MomentParser, ReadsIso8601) {
  constexpr double kMoment = 1782013620;
  for (const char* text :
       {"now", "2026-06-21T05:47", "2026-06-21 05:47", "2026-06-21t05:47:00", "20260621T0547",
        "20260621T054700", "2026-06-21T03:47Z", "2026-06-21T03:47:00z", "2026-06-21T05:47+02:00",
        "2026-06-21T05:47 +02:00", "20260621T0547+0200", "2026-06-21T05:47+02",
        "2026-06-20T23:17:00-04:30"}) {
    EXPECT_EQ(secondsSince1970(text, "Europe/Paris"), kMoment) << text;
  }
  EXPECT_DOUBLE_EQ(secondsSince1970("2026-06-21T03:47:00.25Z", "UTC"), kMoment + 0.25);
  EXPECT_DOUBLE_EQ(secondsSince1970("2026-06-21T03:47:00,5Z", "UTC"), kMoment + 0.5);
  EXPECT_EQ(secondsSince1970("2026-06-21", "UTC"), 1782000000);
  EXPECT_EQ(secondsSince1970("1583-01-01T00:00Z", "UTC"), -12212553600);
  EXPECT_EQ(secondsSince1970("9999-12-31T23:59:59Z", "UTC"), 253402300799);
}

// Local mean times, with the seconds of their offsets, and the clocks of today.
TEST(MomentParser, ReadsBackWhatIsPrinted) {
  for (const char* name : {"Europe/London", "Europe/Paris", "Africa/Monrovia", "Asia/Kolkata"}) {
    const TimeZone zone = parseZone(name);
    for (double seconds = -5e9; seconds < 3e9; seconds += 86413 * 97.0) {
      const Date date = Date::withTimeIntervalSince1970(seconds);
      const std::string text = iso8601String(date, zone);
      EXPECT_EQ(parseMoment(text, parseZone("UTC"), kNow), date) << name << " " << text;
    }
  }
}

TEST(MomentParser, RefusesWhatDoesNotExist) {
  struct Case {
    const char* text;
    const char* reason;
  };
  const Case cases[] = {
      {"2026-02-30T12:00", "that month has 28 days"},
      {"2024-02-30", "that month has 29 days"},
      {"1900-02-29", "that month has 28 days"},
      {"2026-00-10", "the month must be 1 to 12"},
      {"2026-13-10", "the month must be 1 to 12"},
      {"2026-01-00", "that month has 31 days"},
      {"2026-06-21T24:00", "the hour must be 0 to 23"},
      {"2026-06-21T25:00", "the hour must be 0 to 23"},
      {"2026-06-21T12:60", "must be 0 to 59"},
      {"2026-06-21T12:59:60", "must be 0 to 59"},
      {"2026-06-21T12:00+24:00", "less than 24 hours"},
      {"2026-06-21T12:00+01:60", "minutes must be 0 to 59"},
      {"1782036000", "write it as in"},  // seconds: no month of 31 days
      {"0178203600", "write it as in"},
      {"21.6.2026", "write it as in"},
      {"1582-10-15", "1583 to 9999"},
      {"0000-01-01", "1583 to 9999"},
      {"2026-06-21T", "write it as in"},
      {"2026-06-21T12", "write it as in"},
      {"2026-06-21T12:00 CEST", "write it as in"},
      {"2026-06-21T12:00+02:00x", "write it as in"},
      {"2026-6-21", "write it as in"},
      {"2026-0621", "write it as in"},
      {"21.06.2026", "write it as in"},
      {"10000-01-01", "1583 to 9999"},
      {"yesterday", "write it as in"},
      {"", "write it as in"},
  };
  const TimeZone paris = parseZone("Europe/Paris");
  for (const Case& c : cases) {
    EXPECT_THAT(refusal([&] { parseMoment(c.text, paris, kNow); }), testing::HasSubstr(c.reason))
        << c.text;
  }
}

TEST(MomentParser, ClockChanges) {
  // Paris jumps from 02:00 to 03:00 on 2026-03-29 and goes back on 2026-10-25.
  EXPECT_EQ(secondsSince1970("2026-03-29T01:59", "Europe/Paris"), 1774745940);
  EXPECT_EQ(secondsSince1970("2026-03-29T03:00", "Europe/Paris"), 1774746000);
  EXPECT_THAT(refusal([] { secondsSince1970("2026-03-29T02:30", "Europe/Paris"); }),
              testing::HasSubstr("in Europe/Paris the clocks go from 2026-03-29 02:00 to "
                                 "2026-03-29 03:00"));
  EXPECT_EQ(secondsSince1970("2026-10-25T02:30", "Europe/Paris"), 1792888200);
  EXPECT_EQ(secondsSince1970("2026-10-25T02:30+01:00", "Europe/Paris"), 1792891800);
  // Havana has no midnight on 2026-03-08: the day begins at 01:00.
  EXPECT_EQ(secondsSince1970("2026-03-08", "America/Havana"), 1772946000);
  // Samoa went from the 29th to the 31st in December 2011.
  const TimeZone apia = parseZone("Pacific/Apia");
  EXPECT_THAT(refusal([&] { parseDay("2011-12-30", apia, kNow); }),
              testing::HasSubstr("Pacific/Apia skipped that day"));
  EXPECT_THAT(refusal([&] { parseMoment("2011-12-30T12:00", apia, kNow); }),
              testing::HasSubstr("2011-12-30 00:00 to 2011-12-31 00:00"));
}

TEST(MomentParser, DaysMonthsAndYears) {
  EXPECT_EQ(parseDay("today", parseZone("Asia/Tokyo"), kNow),
            (DateComponents{.year = 2026, .month = 6, .day = 21}));
  EXPECT_EQ(parseDay("today", parseZone("America/Los_Angeles"), kNow),
            (DateComponents{.year = 2026, .month = 6, .day = 20}));
  EXPECT_EQ(parseDay("20240229", parseZone("UTC"), kNow),
            (DateComponents{.year = 2024, .month = 2, .day = 29}));
  EXPECT_EQ(parseMonth("2026-06"), (DateComponents{.year = 2026, .month = 6, .day = 1}));
  EXPECT_EQ(parseMonth("2026-06-21"), (DateComponents{.year = 2026, .month = 6, .day = 1}));
  EXPECT_EQ(parseYear("2200"), 2200);
  EXPECT_THAT(refusal([] { parseMonth("2026-06-31"); }), testing::HasSubstr("30 days"));
  EXPECT_THAT(refusal([] { parseMonth("June"); }), testing::HasSubstr("write it as in 2026-06"));
  EXPECT_THAT(refusal([] { parseYear("20266"); }), testing::HasSubstr("write it as in 2026"));
  EXPECT_THAT(refusal([] { parseDay("2026-06-21T05:47", TimeZone(), kNow); }),
              testing::HasSubstr("write it as in 2026-06-21"));
}

TEST(MomentParser, SurvivesAnyText) {
  const std::string alphabet = "0123456789-:T Z+.,\xff";
  const std::string valid = "2026-06-21T05:47:30.5+02:00";
  const TimeZone zone = parseZone("Europe/Paris");
  std::mt19937 random(20260329);  // fixed, so that a failure repeats
  std::uniform_int_distribution<std::size_t> letter(0, alphabet.size() - 1);
  std::uniform_int_distribution<std::size_t> place(0, valid.size() - 1);
  for (int i = 0; i < 50'000; ++i) {
    std::string text = valid.substr(0, place(random) + 1);
    for (int n = 0; n < 3; ++n) text[place(random) % text.size()] = alphabet[letter(random)];
    for (const bool wholeDay : {false, true}) {
      try {
        wholeDay ? static_cast<void>(parseDay(text, zone, kNow))
                 : static_cast<void>(parseMoment(text, zone, kNow));
      } catch (const InputError&) {
        continue;  // any other exception fails the test
      }
    }
  }
}

TEST(ZoneParser, OffersCloseNames) {
  EXPECT_EQ(parseZone("Etc/GMT+5").secondsFromGMTForDate(kNow), -5 * 3600);
  struct Case {
    const char* name;
    const char* reason;
  };
  const Case cases[] = {
      {"Paris", "\"Europe/Paris\""},
      {"europe/paris", "\"Europe/Paris\""},
      {"Europe/Pariss", "\"Europe/Paris\""},
      {"America/New York", "\"America/New_York\""},
      {"Asia/Calcuta", "\"Asia/Calcutta\""},
      {"../../etc/passwd", "write an IANA name"},
      {"/etc/localtime", "write an IANA name"},
      {"", "write an IANA name"},
      {"\n\x1b[31m", "no time zone named \"??[31m\" is known"},
  };
  for (const Case& c : cases) {
    EXPECT_THAT(refusal([&] { parseZone(c.name); }), testing::HasSubstr(c.reason)) << c.name;
  }
}

}  // namespace
}  // namespace zenivo
