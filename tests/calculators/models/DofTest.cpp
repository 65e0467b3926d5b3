#include "calculators/models/Dof.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "calculators/RandomOptics.h"
#include "calculators/models/CocCalculator.h"
#include "calculators/models/QuarticSolver.h"

namespace zenivo {
namespace {

constexpr Aperture exactly(double N) {
  return {N, N};
}

// "Hyperfocal distance", Wikipedia, worked example: 50 mm at f/8 with 0.03 mm has its
// hyperfocal distance at 10.467 m; focused there, all from about 5.2 m on is sharp.
TEST(Dof, HyperfocalDistanceAsPublished) {
  const Dof dof(0.05F, exactly(8), 10.467F, 1, 1, 0.03F);
  EXPECT_NEAR(dof.hyperfocal(), 10.467, 0.0005);
  EXPECT_NEAR(dof.hyperfocalNearLimit(), 5.2, 0.05);
  EXPECT_NEAR(dof.dofNearLimit(), 5.23, 0.005);
  EXPECT_EQ(dof.dofFarLimit(), -1);
}

// H. M. Merklinger, The INs and OUTs of FOCUS (1992), and A. Conrad, Depth of Field in
// Depth (2006), give the limits in the form of the symmetric image space: with
// v = F s / (s - F) the limits lie where v' = v / (1 +- N c / F).
TEST(Dof, LimitsAgreeWithImageSpace) {
  RandomOptics random(1);
  for (int i = 0; i < 20000; ++i) {
    const Dof dof = random.dof();
    const double F = static_cast<double>(dof.focalLength()) * dof.teleconverter();
    const double s = dof.subjectDistance(), t = dof.aperture().value * dof.circleOfConfusion() / F;
    const double v = F * s / (s - F);
    const double nearImage = v / (1 - t), farImage = v / (1 + t);
    const double nearLimit = F * nearImage / (nearImage - F);
    EXPECT_NEAR(dof.dofNearLimit(), nearLimit, 2e-5 * nearLimit);
    if (std::abs(dof.hyperfocal() - s) < 0.02 * s) continue;  // ill-conditioned at infinity
    const double farLimit = F * farImage / (farImage - F);
    EXPECT_EQ(dof.dofFarLimit() > 0, farLimit > 0);
    EXPECT_NEAR(dof.dofFarLimit(), farLimit, 1e-3 * std::abs(farLimit));
  }
}

// Focus at one n-th of the hyperfocal distance is sharp from its (n+1)-th to its
// (n-1)-th part: C. Welborne Piper, A First Book of the Lens (1901).  Exact for distances
// counted as h is.
TEST(Dof, DepthsFollowEachOtherHarmonically) {
  Dof dof(0.1F, exactly(11), 10, 1, 1, 0.03F);
  const float h = dof.hyperfocal() - dof.focalLength();
  for (int n = 2; n < 6; ++n) {
    dof.setSubjectDistance(h / static_cast<float>(n));
    dof.calculateDOFValues();
    EXPECT_NEAR(dof.dofNearLimit() / (h / static_cast<float>(n + 1)), 1, 0.01);
    EXPECT_NEAR(dof.dofFarLimit() / (h / static_cast<float>(n - 1)), 1, 0.03);
  }
}

TEST(Dof, BoundariesOfInfinity) {
  Dof dof(0.05F, exactly(8), 5, 1, 1, 0.03F);
  const float hyperfocal = dof.hyperfocal();
  const auto focusAt = [&dof](float distance) {
    dof.setSubjectDistance(distance);
    dof.calculateDOFValues();
  };
  for (const float offset : {-0.009F, 0.0F, 0.009F}) {
    focusAt(hyperfocal + offset);
    EXPECT_EQ(dof.dofFarLimit(), -1) << offset;
  }
  focusAt(hyperfocal - 0.02F);
  EXPECT_GT(dof.dofFarLimit(), 1000);
  focusAt(hyperfocal + 0.02F);
  EXPECT_LT(dof.dofFarLimit(), 0);
  EXPECT_GT(dof.dofNearLimit(), 0);
  EXPECT_LT(dof.depthOfField(), 0) << "read as infinite";
  EXPECT_EQ(dof.inverseDepthOfField(), dof.depthOfField());
  focusAt(0.03F);  // inside the focal length
  EXPECT_EQ(dof.dofNearLimit(), 0.03F);
  EXPECT_EQ(dof.dofFarLimit(), 0.03F);
  EXPECT_EQ(dof.depthOfFieldInFront(), 0);
}

TEST(Dof, TeleconvertersBelowNothingAreNone) {
  for (const float factor : {0.0F, -2.0F, std::nanf("")}) {
    Dof dof;
    dof.setTeleconverter1(factor);
    dof.setTeleconverter2(1.4F);
    EXPECT_EQ(dof.teleconverter(), 1.4F);
  }
}

/// How much of its 24 bits a result of near - far kind has left: limits a few millionths
/// of the distance apart lose as much in single precision.
double tolerance(const Dof& dof, float limit) {
  const double apart = std::abs(limit - dof.subjectDistance()) / dof.subjectDistance();
  return 1e-6 / apart + 1e-5;
}

TEST(DofInverse, UndoesTheForwardModel) {
  RandomOptics random(2);
  int sharp = 0;
  for (int i = 0; i < 20000; ++i) {
    const Dof dof = random.dof();
    const double f = dof.focalLength(), N = dof.aperture().value, s = dof.subjectDistance();
    const auto same = [](double result, double value, double relative) {
      EXPECT_NEAR(result, value, value * relative);
    };
    same(dof.calculateFocalLengthForHyperfocal(dof.hyperfocal()), f, 1e-5);
    same(dof.calculateFocalLengthForHyperfocalNearLimit(dof.hyperfocalNearLimit()), f, 1e-5);
    same(dof.calculateApertureForHyperfocal(dof.hyperfocal()), N, 1e-4);
    same(dof.calculateApertureForHyperfocalNearLimit(dof.hyperfocalNearLimit()), N, 1e-4);
    // Beyond a hundredth of the distance, single precision leaves little to solve for.
    const bool resolves =
        dof.depthOfFieldInFront() > 0.01 * s && dof.subjectDistance() < 0.9 * dof.hyperfocal();
    if (!resolves) continue;
    ++sharp;
    const double nearError = tolerance(dof, dof.dofNearLimit());
    const double farError = tolerance(dof, dof.dofFarLimit()) * 10;
    same(dof.calculateSubjectDistanceForDOFNearLimit(dof.dofNearLimit()), s, nearError);
    same(dof.calculateFocalLengthForDOFNearLimit(dof.dofNearLimit()), f, nearError);
    same(dof.calculateApertureForDOFNearLimit(dof.dofNearLimit()), N, nearError);
    same(dof.calculateSubjectDistanceForDOFFarLimit(dof.dofFarLimit()), s, farError);
    same(dof.calculateFocalLengthForDOFFarLimit(dof.dofFarLimit()), f, farError);
    same(dof.calculateApertureForDOFFarLimit(dof.dofFarLimit()), N, farError);
    same(dof.calculateSubjectDistanceForDOF(dof.depthOfField()), s, farError);
    same(dof.calculateFocalLengthForDOF(dof.depthOfField()), f, farError);
    same(dof.calculateApertureForDOF(dof.depthOfField()), N, farError);
  }
  EXPECT_GT(sharp, 5000);
}

TEST(DofInverse, WhatNoLensCanDoIsNoPositiveNumber) {
  const Dof dof(0.05F, exactly(8), 5, 1, 1, 0.03F);
  EXPECT_LT(dof.calculateApertureForHyperfocal(0.04F), 0);
  EXPECT_TRUE(std::isinf(dof.calculateApertureForHyperfocal(0.05F)));
  EXPECT_LT(dof.calculateApertureForDOFNearLimit(6), 0) << "a near limit behind the subject";
  EXPECT_LT(dof.calculateApertureForDOFFarLimit(4), 0) << "a far limit before it";
  EXPECT_LT(dof.calculateSubjectDistanceForDOFNearLimit(20), 0) << "beyond the hyperfocal distance";
  EXPECT_EQ(dof.calculateFocalLengthForDOF(0), -1);
  EXPECT_TRUE(std::isnan(Dof::quadraticSolverForA(1, 0, 1)));
  EXPECT_EQ(Dof::quadraticSolverForA(1, 1, 0), 0);
  EXPECT_EQ(Dof::quadraticSolverForA(1, -1, -6), 3);
  EXPECT_EQ(Dof::quadraticSolverForA(-1, 1, 6), 3) << "the first root is -2";
}

double evaluate(const std::array<double, 5>& c, double y) {
  return (((c[4] * y + c[3]) * y + c[2]) * y + c[1]) * y + c[0];
}

/// The polynomial of four roots, two of which may be a complex pair.
std::array<double, 5> polynomial(double a, double b, double pairSum, double pairProduct) {
  // (y - a)(y - b)(y^2 - sum y + product)
  const double s = a + b, p = a * b;
  return {p * pairProduct, -s * pairProduct - p * pairSum, p + s * pairSum + pairProduct,
          -s - pairSum, 1};
}

TEST(QuarticSolver, FindsTheRootsItWasMadeOf) {
  const auto real = solveQuartic(polynomial(1, -2, 7, 12));  // and 3, 4
  EXPECT_EQ(real.realCount, 4);
  auto sorted = real.real;
  std::ranges::sort(sorted);
  const double expected[] = {-2, 1, 3, 4};
  for (int i = 0; i < 4; ++i) EXPECT_NEAR(sorted[static_cast<std::size_t>(i)], expected[i], 1e-12);

  const auto mixed = solveQuartic(polynomial(5, -1, 2, 10));  // and 1 +- 3i
  EXPECT_EQ(mixed.realCount, 2);
  for (std::size_t i = 0; i < 4; ++i) {
    if (mixed.imaginary[i] != 0) {
      EXPECT_NEAR(mixed.real[i], 1, 1e-12);
      EXPECT_NEAR(std::abs(mixed.imaginary[i]), 3, 1e-12);
    }
  }
  EXPECT_EQ(solveQuartic({4, 0, 5, 0, 1}).realCount, 0);   // +-i, +-2i
  EXPECT_EQ(solveQuartic({4, 0, -5, 0, 1}).realCount, 4);  // +-1, +-2
  EXPECT_EQ(solveQuartic({1, 2, 3, 4, 0}).realCount, 0) << "no fourth power";
}

TEST(QuarticSolver, RealRootsAreZeros) {
  RandomOptics random(3);
  for (int i = 0; i < 20000; ++i) {
    const double a = random.between(0.1, 10), b = -random.between(0.1, 10);
    const auto c = polynomial(a, b, random.between(0.1, 10), random.between(0.1, 50));
    const QuarticRoots roots = solveQuartic(c);
    EXPECT_GE(roots.realCount, 2);
    for (std::size_t k = 0; k < 4; ++k) {
      if (roots.imaginary[k] != 0) continue;
      const double y = roots.real[k];
      const double size = std::abs(c[0]) + std::abs(c[1] * y) + std::abs(c[2] * y * y) +
                          std::abs(c[3] * y * y * y) + y * y * y * y;
      EXPECT_NEAR(evaluate(c, y), 0, size * 1e-11);
    }
  }
}

TEST(CocCalculator, FollowsPrintDistanceAndEyesight) {
  CocCalculator calculator;
  calculator.setCameraCoc(0.03F);
  EXPECT_NEAR(calculator.adjustedCoc(), 0.03, 1e-8) << "the reference print";
  calculator.setPrintWidth(0.508F);
  calculator.setPrintHeight(0.4064F);
  EXPECT_NEAR(calculator.adjustedCoc(), 0.015, 1e-8) << "20 by 16 inches";
  calculator.setViewingDistance(0.508F);
  EXPECT_NEAR(calculator.adjustedCoc(), 0.03, 1e-8) << "seen from twice as far";
  calculator.setEyesight(1);
  EXPECT_NEAR(calculator.adjustedCoc(), 0.009, 1e-8);
  calculator.setPrintWidth(0);
  calculator.setPrintHeight(0);
  EXPECT_TRUE(std::isinf(calculator.adjustedCoc()));
  calculator.setAutoCalculateCoc(false);
  calculator.setAdjustedCoc(0.02F);
  EXPECT_EQ(calculator.adjustedCoc(), 0.02F);
}

TEST(CocCalculator, ArchivesKeepAllButTheCamera) {
  CocCalculator calculator;
  calculator.setCameraCoc(0.03F);
  calculator.setEyesight(1);
  calculator.setPrintWidth(0.4F);
  calculator.setAutoCalculateCoc(false);
  calculator.setAdjustedCoc(0.02F);
  const auto read = unarchivedObject<CocCalculator>(archivedObject(calculator));
  ASSERT_TRUE(read);
  EXPECT_EQ(archivedObject(*read), archivedObject(calculator));
  EXPECT_EQ(read->cameraCoc(), 0);

  auto fields = *archivedObject(calculator).dictionary();
  fields.erase("coc_autocalculate");
  fields.erase("coc_adjusted");
  auto old = *unarchivedObject<CocCalculator>(fields);
  EXPECT_TRUE(old.autoCalculateCoc());
  old.setAutoCalculateCoc(false);
  EXPECT_EQ(old.adjustedCoc(), 0);
}

}  // namespace
}  // namespace zenivo
