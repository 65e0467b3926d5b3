// Teleconverters between lens and camera.

#pragma once

namespace zenivo {

/// The factor as the optical models store it: one that is not above 0 stands for
/// no teleconverter.
constexpr float teleconverterFactor(float factor) {
  return factor > 0 ? factor : 1;
}

}  // namespace zenivo
