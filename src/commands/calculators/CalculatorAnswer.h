// The answer of a calculator: what it worked with and what came out.

#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "calculators/camera/AbstractCamera.h"
#include "calculators/camera/DistanceUnit.h"
#include "commands/calculators/Quantity.h"
#include "commands/common/Terminal.h"

namespace zenivo::cli {

/// What a value was to an inverse calculation.
enum class Role {
  none,
  given,   ///< the result that was asked for
  solved,  ///< the input that follows from it
};

enum class Shown { everywhere, inJsonOnly };

/// One value of an answer.
struct AnswerRow {
  std::string_view key;  ///< in JSON
  std::string label;     ///< in text
  Quantity quantity;
  Role role = Role::none;
  Shown shown = Shown::everywhere;
};

class CalculatorAnswer {
 public:
  explicit CalculatorAnswer(UnitSystem units) : units_(units) {}

  /// A camera, in JSON under `key`.
  void addCamera(std::string_view key, const AbstractCamera& camera);
  void addInput(AnswerRow row) { inputs_.push_back(std::move(row)); }
  void addResult(AnswerRow row) { results_.push_back(std::move(row)); }
  /// A line above the results.
  void setResultsTitle(std::string title) { resultsTitle_ = std::move(title); }
  /// A sentence about the results.
  void addNote(std::string text) { notes_.push_back(std::move(text)); }

  /// {camera…, "units", "inputs", "results", "given", "solved", "notes"}
  std::string json() const;
  std::string text(const Terminal& terminal) const;
  std::string print(bool asJson, const Terminal& terminal) const {
    return asJson ? json() : text(terminal);
  }

 private:
  struct NamedCamera {
    std::string_view key;
    AbstractCamera camera;
  };

  Json keyOf(Role role) const;

  UnitSystem units_;
  std::vector<NamedCamera> cameras_;
  std::vector<AnswerRow> inputs_;
  std::string resultsTitle_;
  std::vector<AnswerRow> results_;
  std::vector<std::string> notes_;
};

/// "metric" or "imperial"
std::string_view nameOf(UnitSystem units);

/// "Canon EOS R6 Mark II  35.9 x 23.9 mm, circle of confusion 0.030 mm"
std::string cameraLine(const AbstractCamera& camera, const Terminal& terminal);

}  // namespace zenivo::cli
