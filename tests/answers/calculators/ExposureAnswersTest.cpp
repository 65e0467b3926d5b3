// Equivalent exposures, the night, time-lapses and the timer.

#include <cmath>
#include <limits>

#include "answers/calculators/CalculatorAnswers.h"
#include "answers/calculators/Countdown.h"
#include "answers/calculators/EquivalentExposure.h"
#include "answers/calculators/StarTimes.h"
#include "answers/calculators/TimeLapses.h"
#include "foundation/TimeZone.h"

namespace zenivo {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

class ExposureAnswers : public CalculatorAnswers {};

ExposureQuestion shutterOf(float testSeconds, const char* filter) {
  ExposureQuestion question;
  question.test.shutterSpeed = testSeconds;
  question.filter = CameraValuesParser::parseFilter(filter);
  return question;
}

// The exposure charts that makers print for their filters (Lee Stopper guides, Hoya Pro ND):
// speeds of the standard series, which stand for powers of 2 and are up to 7 % off them.
TEST_F(ExposureAnswers, ChartsOfNeutralDensityFilters) {
  const struct {
    const char* filter;
    float bare;
    double seconds;
  } cases[] = {{"ND1000", 1 / 60.F, 16},   {"ND3.0", 1 / 125.F, 8},      {"10 stops", 1 / 8.F, 128},
               {"10", 1, 17 * 60},         {"ND64", 1 / 125.F, 1 / 2.0}, {"ND1.8", 1 / 30.F, 2},
               {"15 stops", 1 / 60.F, 546}};
  for (const auto& [filter, bare, seconds] : cases) {
    EXPECT_NEAR(ask(shutterOf(bare, filter)).shot.shutterSpeed(), seconds, seconds * 0.07)
        << filter;
  }
}

// The sunny 16 rule: in full sun f/16 and the reciprocal of the ISO value; EV 15.
TEST_F(ExposureAnswers, SunnySixteen) {
  const struct {
    float fstop, iso;
    double seconds;
  } cases[] = {{16, 100, 1 / 125.}, {8, 100, 1 / 500.}, {16, 400, 1 / 500.}, {22, 200, 1 / 125.}};
  for (const auto& [fstop, iso, seconds] : cases) {
    ExposureQuestion question;
    question.light = "sun, distinct shadows";
    question.shot = {fstop, {}, iso};
    const ExposureReport report = ask(question);
    EXPECT_NEAR(report.shot.shutterSpeed(), seconds, seconds * 0.07) << fstop;
    EXPECT_EQ(report.shot.ev(), 15);
  }
  ExposureQuestion second;
  second.light = "2";
  const Json json = jsonOf(second);
  EXPECT_EQ(json["inputs"]["light"]["value"], "Full or slightly hazy sun, distinct shadows");
  EXPECT_EQ(json["inputs"]["testAperture"]["text"], "f/8");
}

TEST_F(ExposureAnswers, SolvingForAnotherValueUndoesTheFirst) {
  for (const char* filter : {"0", "6", "9 1/3"}) {
    ExposureQuestion question = shutterOf(1 / 60.F, filter);
    question.shot = {5.6F, {}, 800.0F};
    question.solveFor = ExposureField::shutterSpeed;
    const float seconds = ask(question).shot.shutterSpeed();
    question.shot = {5.6F, seconds, {}};
    question.solveFor = ExposureField::iso;
    EXPECT_NEAR(ask(question).shot.iso(), 800, 0.8) << filter;
    question.shot = {{}, seconds, 800.0F};
    question.solveFor = ExposureField::aperture;
    EXPECT_EQ(ask(question).shot.aperture().fstop, 5.6) << filter;
  }
}

TEST_F(ExposureAnswers, WhatIsGivenIsNotSolvedFor) {
  const std::pair<ShotQuestion, const char*> cases[] = {{{}, "shutterSpeed"},
                                                        {{{}, {}, 200.0F}, "shutterSpeed"},
                                                        {{{}, 1.0F, {}}, "aperture"},
                                                        {{8.0F, 1.0F, {}}, "iso"}};
  for (const auto& [shot, solved] : cases) {
    CalculatorSession session(home_);
    ExposureQuestion question;
    question.shot = shot;
    EXPECT_EQ(json(answer(question, session))["solved"], solved);
  }
  const std::pair<TimelapseQuestion, const char*> lapses[] = {
      {{}, "shootingInterval"},
      {{.interval = 5}, "clipLength"},
      {{.interval = 5, .clip = 9}, "eventDuration"},
      {{.solveFor = TimelapseField::eventDuration}, "eventDuration"},
      {{.event = "3"}, "clipLength"}};
  for (const auto& [question, solved] : lapses) {
    CalculatorSession session(home_);
    EXPECT_EQ(json(answer(question, session))["solved"], solved);
  }
}

TEST_F(ExposureAnswers, GivenValuesAreShownAsTheyAre) {
  const auto textOf = [this](const ShotQuestion& shot, const char* key) {
    ExposureQuestion question;
    question.shot = shot;
    question.filter = CameraValuesParser::parseFilter("8 2/3");
    return jsonOf(question)["inputs"][key]["text"].get<std::string>();
  };
  EXPECT_EQ(textOf({{}, 1 / 90.F, {}}, "shutterSpeed"), "1/90s") << "on no dial";
  EXPECT_EQ(textOf({{}, 1 / 15.F, {}}, "shutterSpeed"), "1/15s");
  EXPECT_EQ(textOf({{}, 120.0F, {}}, "shutterSpeed"), "2min");
  EXPECT_EQ(textOf({{}, {}, 150.0F}, "iso"), "150") << "on no ladder";
  EXPECT_EQ(textOf({}, "filter"), "8 2/3 stops");
}

TEST_F(ExposureAnswers, SayWhereTheLadderEnds) {
  const auto noteOf = [this](const char* filter, ExposureField solved) {
    ExposureQuestion question;
    question.filter = CameraValuesParser::parseFilter(filter);
    question.solveFor = solved;
    CalculatorSession session(home_);
    return json(answer(question, session))["notes"].dump();
  };
  EXPECT_EQ(noteOf("10", ExposureField::aperture),
            "[\"f/0.95 is the nearest there is, and 3.9 stops too dark.\"]");
  EXPECT_THAT(noteOf("20", ExposureField::iso), HasSubstr("stops too dark."));
  EXPECT_EQ(noteOf("10", ExposureField::shutterSpeed), "[]");
}

TEST_F(ExposureAnswers, ATestShotsValuesGoOnToTheOther) {
  ExposureQuestion question;
  question.test = {5.6F, 0.5F, 400.0F};
  Exposure shot = ask(question).shot;
  EXPECT_EQ(shot.aperture().fstop, 5.6);
  EXPECT_EQ(shot.iso(), 400);
  EXPECT_NEAR(shot.shutterSpeed(), 0.5, 1e-6);
  question.shot = {8.0F, {}, {}};
  shot = ask(question).shot;
  EXPECT_EQ(shot.aperture().fstop, 8) << "its own";
  question.solveFor = ExposureField::iso;
  question.shot = {{}, 2.0F, {}};
  EXPECT_NEAR(ask(question).shot.iso(), 100, 0.01);
}

TEST_F(ExposureAnswers, TheFilterThatIsMissingIsFound) {
  ExposureQuestion question;
  question.test.shutterSpeed = 1 / 125.F;
  question.shot = {8.0F, 30.0F, 100.0F};
  const Json found = jsonOf(question);
  EXPECT_EQ(found["solved"], "filter");
  EXPECT_NEAR(found["inputs"]["filter"]["value"].get<double>(), std::log2(30 * 125.), 1e-4);
  EXPECT_EQ(found["inputs"]["filter"]["text"], "11.9 stops");
  EXPECT_EQ(found["inputs"]["shutterSpeed"]["text"], "30s");
  EXPECT_THAT(found["notes"],
              ElementsAre("Nearest of the filters sold: ND1024/3.0 + ND4/0.6, 12 stops, 0.1 stops "
                          "too dark."));
  // The filter that was found gives the exposure.
  ExposureQuestion again = question;
  again.filter = FilterValue{static_cast<float>(found["inputs"]["filter"]["value"]), 0};
  again.shot.shutterSpeed.reset();
  EXPECT_NEAR(ask(again).shot.shutterSpeed(), 30, 0.01);

  question.solveFor = ExposureField::filter;
  question.shot.shutterSpeed = 1 / 125.F;
  EXPECT_THAT(jsonOf(question)["notes"], ElementsAre("No filter is needed."));
  question.shot.shutterSpeed = 1 / 1000.F;
  EXPECT_EQ(refusalOf(question),
            "no filter brightens: without one the photograph is 3.0 stops too dark");
  question.shot.shutterSpeed = 1e9F;
  EXPECT_THAT(refusalOf(question), HasSubstr("no filter takes 36.9 stops away"));
  question.filter = FilterValue{3, 0};
  EXPECT_EQ(refusalOf(question), "--filter is what is solved for; leave it out");
}

TEST_F(ExposureAnswers, StacksAreTheFewestThatComeNear) {
  for (double stops = 0.6; stops < 25; stops += 0.1) {
    const auto stack = nearestStack(stops);
    ASSERT_FALSE(stack.empty()) << stops;
    double sum = 0;
    for (const CameraFilter& filter : stack) sum += double{filter.fStopReduction};
    EXPECT_NEAR(sum, stops, stops < 1 ? 1 - stops + 1e-9 : 0.51) << stops;
    if (stack.size() > 1) {
      EXPECT_GT(stops, 7) << "one filter would do";
    }
  }
  EXPECT_TRUE(nearestStack(0.1).empty());
  EXPECT_TRUE(nearestStack(-3).empty());
}

TEST_F(ExposureAnswers, AnApertureOfNoLensIsSaidToBeNone) {
  ExposureQuestion question;
  question.test.shutterSpeed = 1 / 125.F;
  question.shot.shutterSpeed = 30;
  question.solveFor = ExposureField::aperture;
  const Json found = jsonOf(question);
  EXPECT_THAT(found["notes"],
              ElementsAre("No lens has f/512: take a filter, or less time or sensitivity."));
}

TEST_F(ExposureAnswers, RowsOfTheTablesAreChosenByNumberOrName) {
  const LightTableReport table = ask(LightTableQuestion());
  const Light& light = table.sections[3].lights[0];
  EXPECT_EQ(light.row.ev100Text(), "-2 to -1");
  ExposureQuestion byNumber, byName;
  byNumber.light = std::to_string(light.number);
  byName.light = light.row.lightConditionText();
  EXPECT_EQ(jsonOf(byNumber), jsonOf(byName));
  EXPECT_EQ(ask(byNumber).test.shutterSpeed(), light.shot.shutterSpeed());
  for (const auto& [typed, reason] :
       {std::pair("moon", "8 rows have \"moon\"; did you mean \"Full Moon\""),
        std::pair("0", "the rows are 1 to 44"), std::pair("", "no row has \"\"")}) {
    byName.light = typed;
    EXPECT_THAT(refusalOf(byName), HasSubstr(reason));
  }
  EXPECT_THAT(refusalOf(TimelapseQuestion{.event = "sun"}),
              HasSubstr("\"Sunrise or sunset\" or \"The Sun crossing a clear sky\""));
}

// An hour with a photograph every 5 seconds, as in every introduction to time-lapses: 720
// photographs, 30 seconds of film at 24 frames, 24 at 30.
TEST_F(ExposureAnswers, TimelapseArithmetic) {
  const struct {
    TimelapseQuestion question;
    const char* key;
    double value;
    int photos;
  } cases[] = {{{.interval = 5, .duration = 3600, .fps = 24}, "clipLength", 30, 720},
               {{.interval = 5, .duration = 3600, .fps = 30}, "clipLength", 24, 720},
               {{.clip = 10, .duration = 3600, .fps = 24}, "shootingInterval", 15, 240},
               {{.interval = 5, .clip = 20, .fps = 25}, "eventDuration", 2500, 500},
               // Part of an interval is a frame of the clip, but no photograph.
               {{.interval = 5, .duration = 1801, .fps = 25}, "clipLength", 361 / 25.0, 360},
               {{.fps = 24, .event = "Star trails"}, "clipLength", 465 / 24.0, 464}};
  for (const auto& [question, key, value, photos] : cases) {
    const Json json = jsonOf(question);
    EXPECT_DOUBLE_EQ(json["inputs"][key]["value"], value);
    EXPECT_EQ(json["results"]["numberOfPhotos"]["value"], photos);
    EXPECT_GE(json["results"]["numberOfFrames"]["value"], photos);
  }
  EXPECT_EQ(jsonOf(TimelapseQuestion{
                .interval = 5, .duration = 3600, .imageSize = 20})["results"]["memoryUsage"]
                .dump(),
            R"({"value":14400.0,"unit":"MB","text":"14.06 GB"})");
}

TEST_F(ExposureAnswers, WhatDoesNotExistIsSaidSo) {
  for (const double interval : {0.0, std::nan("")}) {
    TimelapseReport report = keptTimelapse(session_);
    report.model.shootingInterval = interval;
    report.model.clipLength = std::numeric_limits<double>::infinity();
    const Readout lines = readout(report);
    EXPECT_EQ(lines.inputs[0].quantity.text, "--");
    EXPECT_EQ(lines.inputs[1].quantity.text, "--");
    EXPECT_EQ(lines.results[0].quantity.text, "--");
    EXPECT_EQ(lines.results[1].quantity.text, "--");
  }
}

TEST_F(ExposureAnswers, FilmHasNoPixels) {
  const Json json = jsonOf(StarsQuestion{"Film 35mm (135)", {}, {}, {}, {}});
  EXPECT_EQ(json["camera"]["megapixels"], nullptr);
  EXPECT_EQ(json["results"]["npf"].dump(), R"({"value":null,"unit":"s","text":"∞s"})");
  EXPECT_EQ(json["results"]["ruleOf500"]["text"], "25s");
}

TEST_F(ExposureAnswers, StarsExplainTheirRules) {
  EXPECT_TRUE(jsonOf(StarsQuestion())["notes"].empty());
  StarsQuestion question;
  question.explains = true;
  const Json notes = jsonOf(question)["notes"];
  ASSERT_EQ(notes.size(), 4U);
  EXPECT_THAT(notes[0], HasSubstr("NPF"));
  EXPECT_THAT(notes[1], HasSubstr("500"));
  question.declination = 91;
  EXPECT_EQ(refusalOf(question), "--declination must be -90 to 90 degrees");
}

// A sidereal day is 23 h 56 min 4 s: stars sweep 15.041 degrees in an hour.
TEST_F(ExposureAnswers, TrailsTurnWithTheEarth) {
  EXPECT_EQ(jsonOf(TrailsQuestion{3600.0F, {}, {}})["results"]["angle"]["text"], "15.04°");
  const Json json = jsonOf(TrailsQuestion{{}, 360.0F, false});
  EXPECT_EQ(json["inputs"]["exposureTime"]["text"], "23h 56min 4s");
  EXPECT_EQ(json["inputs"]["hemisphere"]["value"], "south");
  EXPECT_EQ(json["solved"], "exposureTime");
  EXPECT_EQ(json["given"], "angle");
  EXPECT_FALSE(json.contains("camera"));
}

TEST_F(ExposureAnswers, CountdownsTakeTheTimeOfACalculator) {
  ask(TimelapseQuestion{.clip = 20, .duration = 7200});
  const CountdownReport lapse = ask(CountdownQuestion{TimedCalculator::timelapse});
  EXPECT_EQ(lapse.seconds, 7200);
  EXPECT_DOUBLE_EQ(lapse.timelapse->model.shootingInterval, 14.4);
  ask(shutterOf(0.25F, "ND1000"));
  EXPECT_EQ(ask(CountdownQuestion{TimedCalculator::exposure}).seconds, 256);
  EXPECT_EQ(ask(CountdownQuestion{TimedCalculator::trails}).seconds, 60);
  EXPECT_EQ(ask(CountdownQuestion{TimedCalculator::stars}).seconds,
            ask(StarsQuestion()).model.maxExposureTimeWithNPFRule());
  session_.settings().setInteger(120, settings::timer_seconds);
  EXPECT_EQ(json(ask(TimerQuestion()), TimeZone())["label"], "02:00");
}

}  // namespace
}  // namespace zenivo
