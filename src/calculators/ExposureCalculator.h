// The calculator of equivalent exposures, and the table of exposure values.

#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "calculators/CameraCalculator.h"
#include "calculators/models/Exposure.h"

namespace zenivo {

/// A light and its exposure value at ISO 100, both keys of the table ExposureValues.
struct ExposureValueRow {
  std::string lightCondition;
  std::string ev100;

  std::string lightConditionText() const;
  /// A text for people, such as "12 to 15".
  std::string ev100Text() const;
};

struct ExposureValueSection {
  std::string title;  ///< a key of the table ExposureValues; empty for none
  std::vector<ExposureValueRow> rows;

  std::string titleText() const;
};

/// The sections of `file`, by default the resource exposureValues.plist.  Empty for a
/// file that is missing or is no such table; what is broken inside is left out.
std::vector<ExposureValueSection> exposureValueSections();
std::vector<ExposureValueSection> exposureValueSections(const std::filesystem::path& file);

/// The mean of the whole numbers in the text behind an "EV100" key, without its
/// fraction; 0 for a text without any.
std::int64_t getEVValue(std::string_view ev100);
/// The same of the text itself.
std::int64_t evValueOfText(std::string_view text);

/// Fields of the calculator by number: those of the test shot, those of the equivalent
/// exposure, and its filter.
enum class ExposureField {
  testAperture = 0,
  testShutterSpeed = 1,
  testIso = 2,
  aperture = 3,
  shutterSpeed = 4,
  iso = 5,
  filter = 6,
};

/// A test shot tells the light; the equivalent exposure takes that light with other
/// values and a filter, one of which, the free variable, follows from the others.
/// Every edit computes it.
class ExposureCalculator {
 public:
  explicit ExposureCalculator(const CalculatorEnvironment& environment);

  void load();
  void save() const;

  const Exposure& testExposureModel() const { return models_.test; }
  const Exposure& equivalentExposureModel() const { return models_.equivalent; }

  /// False while the light comes from the table of exposure values instead.
  bool usedTestModel() const { return models_.usedTestModel; }

  /// aperture, shutterSpeed or iso.  Changing it computes nothing.
  ExposureField freeVariable() const { return freeVariable_; }
  void setFreeVariable(ExposureField variable);

  /// The localised names of the free variables, in the order of their numbers.
  static std::vector<std::string> freeVariableNames();
  /// The localised name and the icon of a field.
  static std::string labelOf(ExposureField field);
  static std::string iconOf(ExposureField field);

  // Edits.  The field tells the test shot from the equivalent exposure.  What leaves
  // no value for the free variable is refused.

  EditResult setAperture(ExposureField field, const Aperture& aperture);
  EditResult setShutterSpeed(ExposureField field, float seconds);
  EditResult setIso(ExposureField field, float iso);
  /// Whole stops and the fraction beside them.
  EditResult setFilter(float stops, float fraction);

  /// Takes the light from a row of the table: the test shot becomes that of f/8 at
  /// ISO 100.
  EditResult selectRow(const ExposureValueRow& row);

 private:
  struct Models {
    Exposure test;
    Exposure equivalent;
    bool usedTestModel = true;
  };

  template <class Change>
  EditResult edit(ExposureField field, Change change);
  EditResult calculateInverseData(Models& models) const;

  CalculatorEnvironment environment_;
  Models models_;
  ExposureField freeVariable_ = ExposureField::shutterSpeed;
};

}  // namespace zenivo
