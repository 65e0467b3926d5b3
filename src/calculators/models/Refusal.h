// What a calculator answers when it will not take a value.

#pragma once

#include <cmath>
#include <optional>
#include <string>
#include <string_view>

namespace zenivo {

/// Why an edit was not taken.  The calculator and the settings are then exactly as
/// they were before.
struct Refusal {
  std::string_view titleKey;  ///< keys of the table Calculators
  std::string_view messageKey;

  std::string title() const;
  std::string message() const;

  friend bool operator==(const Refusal&, const Refusal&) = default;
};

/// Nullopt when an edit was taken.
using EditResult = std::optional<Refusal>;

/// A result that no lens and no camera can have: not a number, 0, negative or
/// infinite.
inline bool isRefusedResult(double result) {
  return !(result > 0) || std::isinf(result);
}

/// Changes a copy of a model and solves it (`solve` answers an EditResult); only what
/// is not refused is taken over.
template <class Model, class Change, class Solve>
EditResult editModel(Model& model, Change change, Solve solve) {
  Model edited = model;
  change(edited);
  if (const EditResult refusal = solve(edited)) return refusal;
  model = edited;
  return std::nullopt;
}

/// The camera fixes the value that was to change.
Refusal cannotChangeFocalLength();
Refusal cannotChangeAperture();

/// A typed circle of confusion is none.
Refusal noCircleOfConfusion();

/// There is no value that gives the wanted result.
Refusal noFocalLength();
Refusal noAperture();
Refusal noSubjectDistance();
Refusal noShutterSpeed();
Refusal noIso();

}  // namespace zenivo
