// Questions to the calculators of one user.

#pragma once

#include <gmock/gmock.h>

#include <map>
#include <string>

#include "answers/calculators/DepthOfField.h"
#include "answers/common/CalculatorSession.h"
#include "input/InputError.h"
#include "support/TestHome.h"

namespace zenivo {

/// A frame of exactly 36 by 24 mm.
inline constexpr const char* kFullFrameCamera = "Canon EOS 5D Mark IV";

class CalculatorAnswers : public TestHome {
 protected:
  /// Asked of the session, which keeps what is given.
  template <class Question>
  auto ask(const Question& question) {
    return answer(question, session_);
  }
  template <class Question>
  Json jsonOf(const Question& question) {
    return json(ask(question));
  }
  template <class Question>
  std::string refusalOf(const Question& question) {
    return thrownBy<InputError>([&] { ask(question); });
  }

  Home home_ = home();
  CalculatorSession session_{home_};
};

}  // namespace zenivo
