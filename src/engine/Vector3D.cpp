#include "engine/Vector3D.h"

#include <cmath>

#include "engine/Angles.h"

namespace zenivo {

Vector3D Vector3D::withPolar(double phi, double theta, double r) {
  const double cosTheta = std::cos(theta);
  Vector3D v(r * cosTheta * std::cos(phi), r * cosTheta * std::sin(phi), r * std::sin(theta));
  v.phi_ = phi;
  v.theta_ = theta;
  v.r_ = r;
  v.bPolarValid_ = true;
  return v;
}

Vector3D Vector3D::cross(const Vector3D& o) const {
  return {y() * o.z() - z() * o.y(), z() * o.x() - x() * o.z(), x() * o.y() - y() * o.x()};
}

void Vector3D::derivePolar() const {
  const double rhoSquared = x() * x() + y() * y();
  const double rho = std::sqrt(rhoSquared);
  r_ = std::sqrt(rhoSquared + z() * z());
  phi_ = rho == 0.0 ? 0.0 : std::atan2(y(), x());
  if (phi_ < 0.0) phi_ += kTwoPi;
  theta_ = r_ == 0.0 ? 0.0 : std::atan2(z(), rho);
  bPolarValid_ = true;
}

Vector3D operator*(const Matrix3D& m, const Vector3D& v) {
  const auto row = [&](std::size_t i) {
    return m[i][0] * v.x() + m[i][1] * v.y() + m[i][2] * v.z();
  };
  return {row(0), row(1), row(2)};
}

}  // namespace zenivo
