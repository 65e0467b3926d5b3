// Depth of field, field of view and the equivalent lens.

#include <cmath>

#include "answers/calculators/CalculatorAnswers.h"
#include "answers/calculators/DepthTables.h"
#include "answers/calculators/FieldOfView.h"
#include "answers/calculators/LensMatch.h"
#include "answers/calculators/StarTimes.h"
#include "calculators/camera/CameraValuesParser.h"

namespace zenivo {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

class LensAnswers : public CalculatorAnswers {
 protected:
  void useFeet() { session_.environment().units.setCurrentUnits(UnitSystem::imperial); }
};

LensQuestion lensOfMillimetres(float millimetres, std::optional<float> teleconverter = {}) {
  return {millimetres / 1000, teleconverter, {}};
}

DofQuestion dofOf(float millimetres, float fstop, float metres) {
  DofQuestion question;
  question.lens = lensOfMillimetres(millimetres);
  question.fstop = fstop;
  question.subjectDistance = metres;
  return question;
}

TEST_F(LensAnswers, InversesUndoWhatWasRead) {
  const struct {
    DofQuestion forward;
    DofField result, input;
    const char* resultKey;
    const char* inputKey;
  } cases[] = {
      {dofOf(35, 8, 3), DofField::nearLimit, DofField::subjectDistance, "nearLimit",
       "subjectDistance"},
      {dofOf(35, 8, 3), DofField::farLimit, DofField::aperture, "farLimit", "aperture"},
      {dofOf(135, 4, 20), DofField::totalDof, DofField::focalLength, "depthOfField", "focalLength"},
      {dofOf(85, 4, 20), DofField::hyperfocal, DofField::focalLength, "hyperfocal", "focalLength"},
      {dofOf(50, 16, 5), DofField::hyperfocalNearLimit, DofField::aperture, "hyperfocalNearLimit",
       "aperture"}};
  for (const UnitSystem units : {UnitSystem::metric, UnitSystem::imperial}) {
    if (units == UnitSystem::imperial) useFeet();
    for (const auto& c : cases) {
      const Json read = jsonOf(c.forward);
      const std::string text = read["results"][c.resultKey]["text"];
      DofQuestion inverse;
      inverse.wanted = {c.result, *CameraValuesParser::parseDistance(text, units)};
      inverse.solveFor = c.input;
      const Json undone = jsonOf(inverse);
      EXPECT_EQ(undone["solved"], c.inputKey);
      EXPECT_EQ(undone["given"], c.resultKey);
      const double value = read["inputs"][c.inputKey]["value"];
      EXPECT_NEAR(undone["inputs"][c.inputKey]["value"].get<double>(), value, value * 0.01);
      EXPECT_EQ(undone["results"][c.resultKey]["text"], text);
    }
  }
}

TEST_F(LensAnswers, TheFarLimitAtInfinityIsTheHyperfocalDistance) {
  DofQuestion question = dofOf(24, 11, 3);
  question.subjectDistance.reset();
  question.wanted = {DofField::farLimit, -1.0F};
  question.solveFor = DofField::subjectDistance;
  const Json json = jsonOf(question);
  EXPECT_EQ(json["inputs"]["subjectDistance"]["text"], json["results"]["hyperfocal"]["text"]);
  EXPECT_EQ(json["results"]["farLimit"].dump(), R"({"value":null,"unit":"m","text":"∞"})");
}

TEST_F(LensAnswers, WhatIsGivenIsNotSolvedFor) {
  DofQuestion question;
  question.wanted = {DofField::farLimit, 12.0F};
  EXPECT_EQ(jsonOf(question)["solved"], "focalLength") << "as it is kept at first";
  question.lens = lensOfMillimetres(35);
  EXPECT_EQ(jsonOf(question)["solved"], "aperture");
  question.fstop = 8;
  EXPECT_EQ(jsonOf(question)["solved"], "subjectDistance");
  question.subjectDistance = 3;
  EXPECT_EQ(refusalOf(question),
            "leave out one of --focal, --aperture, --distance, to be solved for");
  question.solveFor = DofField::focalLength;
  EXPECT_EQ(refusalOf(question), "--focal is what is solved for; leave it out");
}

// Two cameras with a lens of their own, of 18.3 mm and 23 mm.
TEST_F(LensAnswers, CamerasThatFixTheLens) {
  DofQuestion question;
  question.camera = "Fujifilm X100V";
  EXPECT_EQ(jsonOf(question)["inputs"]["focalLength"]["text"], "23 mm");
  question.lens = lensOfMillimetres(50);
  EXPECT_THAT(refusalOf(question), HasSubstr("The lens of this camera"));
  EXPECT_EQ(ask(HyperfocalQuestion{"Ricoh GR III", {}, {{}, true}}).rows.size(), 1U);
  const Json match =
      jsonOf(MatchQuestion{kFullFrameCamera, "Apple iPhone 11", lensOfMillimetres(50), {}, {}});
  EXPECT_EQ(match["results"]["diagonal"].dump(), R"({"value":null,"unit":"mm","text":"--"})");
}

TEST_F(LensAnswers, AnInfiniteDepthHasNoMatchingAperture) {
  const Json match = jsonOf(MatchQuestion{kFullFrameCamera, "Fujifilm X-T4", {}, {}, 1000.0F});
  EXPECT_EQ(match["results"]["diagonal"]["text"], "33 mm") << "50 mm / 1.53";
  EXPECT_EQ(match["results"]["aperture"]["value"], nullptr);
  EXPECT_THAT(match["notes"], ElementsAre("No aperture gives this result."));
}

TEST_F(LensAnswers, ACameraThatHasGoneIsNamed) {
  session_.settings().setObject("sold", settings::global_camera);
  session_.settings().setObject("sold", settings::global_camera_model);
  const std::string reason = "the camera \"sold\" is no longer there; choose one with --camera";
  EXPECT_EQ(refusalOf(DofQuestion()), reason);
  EXPECT_EQ(refusalOf(DofTableQuestion()), reason);
  EXPECT_EQ(refusalOf(HyperfocalQuestion()), reason);
  EXPECT_EQ(refusalOf(FovQuestion()), reason);
  EXPECT_EQ(refusalOf(MatchQuestion()), reason);
  EXPECT_EQ(refusalOf(StarsQuestion()), reason);
  DofQuestion question;
  question.camera = kFullFrameCamera;
  ask(question);
  EXPECT_EQ(ask(FovQuestion()).setup.camera.modelString(), kFullFrameCamera);
}

TEST_F(LensAnswers, FocalLengthsTypedAsOfAFullFrame) {
  session_.settings().setInteger(1, settings::global_focalLengthType);
  const Readout lines =
      readout(ask(FovQuestion{"Fujifilm X-T4", lensOfMillimetres(50), {}, {}, {}, {}}));
  EXPECT_EQ(lines.inputs[2].quantity.text, "32.6 mm");
  EXPECT_EQ(lines.inputs[3].quantity.text, "50 mm");
  EXPECT_EQ(lines.inputs[3].shown, Shown::everywhere);
}

TEST_F(LensAnswers, StoredZeros) {
  for (const std::string_view key :
       {settings::dof_focalLength, settings::dof_aperture, settings::dof_subjectDistance,
        settings::dof_teleconverter, settings::fov_focalLength, settings::fov_subjectDistance}) {
    session_.settings().setFloat(0, key);
  }
  const Json dof = jsonOf(DofQuestion());
  EXPECT_EQ(dof["inputs"]["teleconverter"]["text"], "--");
  EXPECT_EQ(dof["results"]["hyperfocal"]["text"], "0 m");
  EXPECT_EQ(jsonOf(FovQuestion())["results"]["diagonalAngle"]["text"], "180.00°");
}

TEST_F(LensAnswers, TablesShowTheStopsAskedFor) {
  DofTableQuestion question{kFullFrameCamera, lensOfMillimetres(35), {{8, 4}, false}, {}};
  const DofTableReport limits = ask(question);
  ASSERT_EQ(limits.stops.size(), 2U);
  EXPECT_EQ(limits.stops[0].fstop, 4);
  const Dof single = ask(dofOf(35, 8, 3)).dof;
  EXPECT_EQ(limits.rows[7].distance, 3);
  EXPECT_EQ(limits.rows[7].cells[1].nearLimit, single.dofNearLimit());
  EXPECT_EQ(limits.rows[7].cells[1].farLimit, single.dofFarLimit());
  EXPECT_EQ(limits.hyperfocals[1], single.hyperfocal());
  EXPECT_EQ(json(limits)["rows"].back()["cells"][1]["far"], nullptr);
  EXPECT_EQ(titleOf(limits), "Near and far limit (m)");
  EXPECT_THAT(cellText(limits, limits.rows[7].cells[1]), HasSubstr(" – "));

  useFeet();
  question.stops = {};
  question.show = DofTableType::totalDof;
  const DofTableReport depths = ask(question);
  EXPECT_EQ(titleOf(depths), "Depth of field (ft)");
  EXPECT_EQ(depths.stops.front().fstop, 2.8);
  EXPECT_EQ(depths.stops.back().fstop, 16);
  const Json rows = json(depths)["rows"];
  for (std::size_t i = 0; i < 50; ++i) {
    EXPECT_EQ(rows[i]["text"], std::to_string(i + 1) + "'") << "whole feet stay whole";
  }
  EXPECT_EQ(rows.back()["text"], "500'");
  question.stops.all = true;
  EXPECT_EQ(ask(question).stops, session_.environment().apertures.stops());
}

// Focus within a centimetre of the hyperfocal distance has no far limit, wherever it was
// wanted.
TEST_F(LensAnswers, AResultThatIsMissedIsToldAndNotGiven) {
  DofQuestion question = dofOf(23.1F, 8, 0.482F);
  question.fstop.reset();
  question.wanted = {DofField::farLimit, 152.0F};
  question.solveFor = DofField::aperture;
  const Readout lines = readout(ask(question));
  EXPECT_EQ(lines.results[3].role, Role::missed);
  EXPECT_THAT(lines.notes, ElementsAre("Far limit: 152 m was asked for, and ∞ comes nearest."));
  EXPECT_EQ(json(lines)["given"], "farLimit");
  question.wanted = {DofField::farLimit, 1.0F};
  EXPECT_TRUE(jsonOf(question)["notes"].empty());
}

TEST_F(LensAnswers, SmallDepthsAreMillimetres) {
  const DofQuestion macro = dofOf(100, 2.8F, 0.3F);
  Json results = jsonOf(macro)["results"];
  EXPECT_THAT(results["depthOfField"]["text"].get<std::string>(), testing::EndsWith(" mm"));
  EXPECT_THAT(results["depthInFront"]["text"].get<std::string>(),
              testing::MatchesRegex("0\\.[0-9]+ mm \\([0-9.]+%\\)"));
  EXPECT_EQ(results["nearLimit"]["text"], "0.3 m");
  useFeet();
  results = jsonOf(macro)["results"];
  EXPECT_THAT(results["depthOfField"]["text"].get<std::string>(),
              testing::MatchesRegex("0\\.0[0-9]+\""));
}

TEST_F(LensAnswers, LensesThatStopDownCanBeStoppedDown) {
  for (const char* camera : {"Fujifilm X100V", "Ricoh GR III", "Leica Q2", "Sony RX1R II"}) {
    DofQuestion question;
    question.camera = camera;
    question.fstop = 8;
    EXPECT_EQ(ask(question).dof.aperture().fstop, 8) << camera;
  }
  DofQuestion phone;
  phone.camera = "Apple iPhone 11";
  phone.fstop = 8;
  EXPECT_THAT(refusalOf(phone), HasSubstr("This camera has a fixed aperture."));
}

TEST_F(LensAnswers, AMatchThatIsNoneSaysSo) {
  // No lens of a phone's size of sensor is as fast as a full frame's f/1.4 would take.
  const Json far =
      jsonOf(MatchQuestion{kFullFrameCamera, "Sony RX100 VII", lensOfMillimetres(85), 1.4F, 2.0F});
  ASSERT_EQ(far["notes"].size(), 1U);
  EXPECT_THAT(far["notes"][0], HasSubstr("f/0.95 is the nearest there is: "));
  EXPECT_THAT(far["notes"][0], HasSubstr(" are sharp with it, "));
  const Json near =
      jsonOf(MatchQuestion{kFullFrameCamera, "Fujifilm X-T4", lensOfMillimetres(85), 4.0F, 5.0F});
  EXPECT_TRUE(near["notes"].empty());
  EXPECT_FALSE(near["results"].contains("angle"));

  const Json fixed =
      jsonOf(MatchQuestion{kFullFrameCamera, "Fujifilm X100V", lensOfMillimetres(35), 4.0F, 5.0F});
  EXPECT_THAT(fixed["notes"], ElementsAre("The lens of the Fujifilm X100V is fixed, at 23 mm."));
  const Json& results = fixed["results"];
  // Both see 63 degrees, by the makers' data sheets.
  EXPECT_NEAR(results["angle"]["value"].get<double>(), 63, 1);
  EXPECT_NEAR(results["cameraAngle"]["value"].get<double>(), 63, 1);
  const double depth = results["depth"]["value"], first = results["cameraDepth"]["value"];
  EXPECT_NEAR(depth, first, first * 0.07) << "with the stop that matches";
}

TEST_F(LensAnswers, ACircleOfOnesOwnIsTakenAndRemembered) {
  DofQuestion question;
  question.coc.own = 0.02F;
  EXPECT_EQ(ask(question).note, "");
  question.isSaved = true;
  EXPECT_THAT(ask(question).note, HasSubstr("Kept for zenivo dof --advanced"));
  DofQuestion advanced;
  advanced.coc.isAdvanced = true;
  EXPECT_FLOAT_EQ(ask(advanced).dof.circleOfConfusion(), 20e-6F);
  EXPECT_FLOAT_EQ(ask(DofQuestion()).dof.circleOfConfusion(),
                  0.001F * ask(DofQuestion()).setup.camera.coc);

  // Greenleaf, Photographic Optics (1950): H = f^2 / (N c) + f, with the geometric N; half the
  // circle has twice the distance less a focal length.
  HyperfocalQuestion table{kFullFrameCamera, {0.0375F}, {{8}, false}, 0.03F};
  const float whole = ask(table).rows.at(0).hyperfocals.at(0);
  EXPECT_NEAR(whole, 0.0375 * 0.0375 / (8 * 30e-6) + 0.0375, 1e-3) << "a length of no ladder";
  table.coc = 0.015F;
  EXPECT_NEAR(ask(table).rows[0].hyperfocals[0], 2 * whole - 0.0375F, 1e-3);
  EXPECT_EQ(jsonOf(table)["circleOfConfusion"], 0.015);
  DofTableQuestion depths{kFullFrameCamera, lensOfMillimetres(37.5F), {{8}, false}, {}, 0.015F};
  EXPECT_EQ(ask(depths).hyperfocals.at(0), ask(table).rows[0].hyperfocals[0]);
  table.camera = "Ricoh GR III";
  EXPECT_THAT(refusalOf(table), HasSubstr("The lens of this camera"));
}

TEST_F(LensAnswers, WhatIsGivenIsKeptForTheNextQuestion) {
  DofQuestion dof = dofOf(85, 4, 3.6F);
  dof.camera = "Nikon D850";
  dof.lens.teleconverter1 = 1.4F;
  DofQuestion inverse;
  inverse.wanted = {DofField::nearLimit, 3.0F};
  inverse.solveFor = DofField::subjectDistance;
  const auto expectKept = [this](const auto& question, const auto& bare) {
    const Json first = jsonOf(question), next = jsonOf(bare);
    for (const char* part : {"camera", "camera2", "inputs", "results", "rows"}) {
      EXPECT_EQ(first.value(part, Json()), next.value(part, Json())) << part;
    }
  };
  expectKept(dof, DofQuestion());
  expectKept(inverse, DofQuestion());
  expectKept(DofTableQuestion{{}, lensOfMillimetres(24), {}, DofTableType::totalDof},
             DofTableQuestion());
  expectKept(FovQuestion{{}, lensOfMillimetres(300), 1200.0F, true, {}, {}}, FovQuestion());
  expectKept(FovDistanceQuestion{{}, lensOfMillimetres(24), 125.0F, 324.0F, true},
             FovDistanceQuestion());
  expectKept(MatchQuestion{{}, "Fujifilm X-T4", lensOfMillimetres(35), 2.0F, 2.0F},
             MatchQuestion());
  expectKept(StarsQuestion{{}, lensOfMillimetres(14), 1.8F, -35.0F, SpotStarsAccuracy::accurate},
             StarsQuestion());
  expectKept(TrailsQuestion{{}, 30.0F, false}, TrailsQuestion());
  EXPECT_TRUE(isUntouched()) << "until the session is saved";

  CalculatorSession other(home_);
  EXPECT_NE(json(answer(DofQuestion(), other)), jsonOf(DofQuestion()));
  session_.save();
  Home again = home();
  CalculatorSession next(again);
  EXPECT_EQ(json(answer(DofQuestion(), next)), jsonOf(DofQuestion()));
}

}  // namespace
}  // namespace zenivo
