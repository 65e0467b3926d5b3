#include "eclipses/EclipseRow.h"

namespace zenivo {

SolarElements elementVector(const EclipseSolarRow& r, double mjd) {
  return {mjd,     r.t0,    r.dummy1, r.dummy2, r.deltaT, r.deltaT2, r.n0_x,
          r.n1_x,  r.n2_x,  r.n3_x,   r.n0_y,   r.n1_y,   r.n2_y,    r.n3_y,
          r.n0_d,  r.n1_d,  r.n2_d,   r.n0_u,   r.n1_u,   r.n2_u,    r.n0_l1,
          r.n1_l1, r.n2_l1, r.n0_l2,  r.n1_l2,  r.n2_l2,  r.tanf1,   r.tanf2};
}

LunarElements elementVector(const EclipseLunarRow& r, double mjd) {
  return {mjd,  r.i1,  r.i2, r.i3, r.i4, r.i5,  r.i6,  r.i7,  r.i8,  r.p1,  r.u1,
          r.u2, r.mid, r.u3, r.u4, r.p4, r.i16, r.i17, r.i18, r.i19, r.i20, r.i21};
}

}  // namespace zenivo
