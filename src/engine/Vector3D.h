// Vectors, and the matrices that carry them from one frame into another.

#pragma once

#include <array>

namespace zenivo {

/// A vector that keeps its Cartesian and its polar form; the polar form is
/// derived when it is first read.  Angles are radians; a length has the unit of
/// whoever made the vector.
class Vector3D {
 public:
  /// The zero vector.
  Vector3D() = default;
  Vector3D(double x, double y, double z) : vec_{x, y, z} {}

  /// `phi` (longitude, right ascension, azimuth) and `theta` (latitude,
  /// declination, elevation) are kept as given.
  static Vector3D withPolar(double phi, double theta, double r = 1.0);

  double x() const { return vec_[0]; }
  double y() const { return vec_[1]; }
  double z() const { return vec_[2]; }

  double phi() const { return polar().phi_; }      ///< 0 up to 2 pi, 0 on the axis
  double theta() const { return polar().theta_; }  ///< -pi/2 to pi/2, 0 for no length
  double r() const { return polar().r_; }

  Vector3D cross(const Vector3D& other) const;

 private:
  const Vector3D& polar() const {
    if (!bPolarValid_) derivePolar();
    return *this;
  }
  void derivePolar() const;

  std::array<double, 3> vec_{};
  mutable double phi_ = 0;
  mutable double theta_ = 0;
  mutable double r_ = 0;
  mutable bool bPolarValid_ = false;
};

/// A matrix as three plain rows.
using Matrix3D = std::array<std::array<double, 3>, 3>;

Vector3D operator*(const Matrix3D& matrix, const Vector3D& vector);

}  // namespace zenivo
