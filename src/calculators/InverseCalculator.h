// A calculator turned round: one result is given and drives one input.

#pragma once

#include <string>
#include <vector>

#include "calculators/models/Refusal.h"

namespace zenivo {

/// `Forward` is a calculator with load(), save(), edit() and solve().  `Form` tells what can
/// be turned round in it:
///
///   Model, Variable (the inputs that can be solved for), Field (the results)
///   freeVariableNames()        localised, in the order of the settings
///   load(defaults), save(…)    the choice of both in the settings
///   firstField(variable)       that can drive the variable; all from there on can
///   kFirstVariable, kLastVariable, kLastField
///   fixed(model, variable)     the refusal of a variable that the camera fixes, or none
///   value(model, field)        the field as it stands in the model
///   setValue(model, field, x)  as it is wanted, before anything follows
///   solve(model, variable, field)     the variable's value that gives the field's
///   setVariable(model, variable, x)
///   noResult(variable)         the refusal where no value of it does
template <class Forward, class Form>
class InverseCalculator : public Forward {
 public:
  using Model = typename Form::Model;
  using Variable = typename Form::Variable;
  using Field = typename Form::Field;

  using Forward::Forward;

  void load() override {
    Forward::load();
    const auto [variable, field] = Form::load(this->defaults(), activeField_);
    setFreeVariable(variable);
    setActiveField(field);
  }
  void save() const override {
    Form::save(this->defaults(), freeVariable_, activeField_);
    Forward::save();
  }

  /// The localised names of the free variables.
  static std::vector<std::string> freeVariableNames() { return Form::freeVariableNames(); }

  /// The input that is solved for.
  Variable freeVariable() const { return freeVariable_; }
  /// Where the given result cannot drive the new free variable, the first that can
  /// takes its place.
  void setFreeVariable(Variable variable) {
    if (variable > Form::kLastVariable) return;
    freeVariable_ = variable;
    if (activeField_ < Form::firstField(variable)) activeField_ = Form::firstField(variable);
  }

  /// The results that can drive the free variable.
  std::vector<Field> offeredFields() const {
    std::vector<Field> fields;
    for (int field = static_cast<int>(Form::firstField(freeVariable_));
         field <= static_cast<int>(Form::kLastField); ++field) {
      fields.push_back(static_cast<Field>(field));
    }
    return fields;
  }
  /// The result that is given.
  Field activeField() const { return activeField_; }
  /// Nothing happens when the field is not offered.
  void setActiveField(Field field) {
    if (field >= Form::firstField(freeVariable_) && field <= Form::kLastField) activeField_ = field;
  }
  /// False while the camera fixes the free variable.
  bool isActiveFieldEnabled() const { return !Form::fixed(this->model(), freeVariable_); }

  /// Gives the active field a value, in metres or degrees, and solves for the free variable.
  EditResult setActiveFieldValue(float value) {
    if (const EditResult refusal = Form::fixed(this->model(), freeVariable_)) return refusal;
    return this->edit([this, value](Model& model) { Form::setValue(model, activeField_, value); });
  }
  float activeFieldValue() const { return Form::value(this->model(), activeField_); }

 protected:
  EditResult solve(Model& edited) const override {
    // With a free variable that the camera fixes, nothing can follow the given result.
    if (!Form::fixed(edited, freeVariable_)) {
      const float result = Form::solve(edited, freeVariable_, activeField_);
      if (isRefusedResult(result)) return Form::noResult(freeVariable_);
      Form::setVariable(edited, freeVariable_, result);
    }
    return Forward::solve(edited);
  }

 private:
  Variable freeVariable_ = Form::kFirstVariable;
  Field activeField_ = Form::firstField(Form::kFirstVariable);
};

}  // namespace zenivo
