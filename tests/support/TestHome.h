// A user's folder for one test.

#pragma once

#include <gtest/gtest.h>

#include "answers/common/Home.h"
#include "support/TemporaryFolder.h"

namespace zenivo {

class TestHome : public testing::Test {
 protected:
  /// The home as a process that starts now sees it.
  Home home() const { return Home(folder()); }
  /// Made when something is first kept.
  std::filesystem::path folder() const { return parent_ / "home"; }
  bool isUntouched() const { return !std::filesystem::exists(folder()); }

 private:
  const TemporaryFolder parent_;
};

/// What the call throws as an Error; fails the test when it throws nothing.
template <class Error, class Call>
std::string thrownBy(Call call) {
  try {
    call();
  } catch (const Error& error) {
    return error.what();
  }
  ADD_FAILURE() << "nothing was thrown";
  return "";
}

}  // namespace zenivo
