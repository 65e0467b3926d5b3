#include "data/stores/Declarations.h"
#include "data/stores/Models.h"
#include "data/stores/StaticEntities.h"

namespace zenivo {
namespace {

EntityDeclaration camera() {
  using C = Camera;
  return declareEntity<C>({declareKey(C::cameraId), declareKey(C::model), declare(C::sensorWidth),
                           declare(C::sensorHeight), declare(C::megapixels), declare(C::aperture),
                           declare(C::focalLength), declare(C::film)},
                          {declare(C::brand, CameraBrand::cameras)});
}

EntityDeclaration cameraBrand() {
  return declareEntity<CameraBrand>({declareKey(CameraBrand::name)},
                                    {declare(CameraBrand::cameras, Camera::brand)});
}

EntityDeclaration poi() {
  using P = Poi;
  return declareEntity<P>(
      {declareKey(P::pid), declare(P::name), declare(P::notes), declare(P::link),
       declare(P::country), declare(P::latitude), declare(P::longitude)},
      {declare(P::category, PoiCategory::pois)});
}

EntityDeclaration poiCategory() {
  return declareEntity<PoiCategory>({declareKey(PoiCategory::cid), declare(PoiCategory::name)},
                                    {declare(PoiCategory::pois, Poi::category)});
}

EntityDeclaration eclipse() {
  using E = Eclipse;
  return declareEntity<E>({declareKey(E::name), declare(E::filename), declareKey(E::mjd),
                           declare(E::type), declare(E::eclipseType)},
                          {declare(E::lunarEclipse, EclipseLunar::eclipse),
                           declare(E::solarEclipse, EclipseSolar::eclipse)});
}

EntityDeclaration eclipseSolar() {
  using S = EclipseSolar;
  return declareEntity<S>(
      {declare(S::deltaT), declare(S::deltaT2), declare(S::dummy1), declare(S::dummy2),
       declare(S::t0),     declare(S::tanf1),   declare(S::tanf2),  declare(S::n0_x),
       declare(S::n1_x),   declare(S::n2_x),    declare(S::n3_x),   declare(S::n0_y),
       declare(S::n1_y),   declare(S::n2_y),    declare(S::n3_y),   declare(S::n0_d),
       declare(S::n1_d),   declare(S::n2_d),    declare(S::n0_u),   declare(S::n1_u),
       declare(S::n2_u),   declare(S::n0_l1),   declare(S::n1_l1),  declare(S::n2_l1),
       declare(S::n0_l2),  declare(S::n1_l2),   declare(S::n2_l2),  declare(S::duration)},
      {declare(S::eclipse, Eclipse::solarEclipse)});
}

EntityDeclaration eclipseLunar() {
  using L = EclipseLunar;
  return declareEntity<L>(
      {declare(L::i1),  declare(L::i2),  declare(L::i3),  declare(L::i4),  declare(L::i5),
       declare(L::i6),  declare(L::i7),  declare(L::i8),  declare(L::p1),  declare(L::u1),
       declare(L::u2),  declare(L::mid), declare(L::u3),  declare(L::u4),  declare(L::p4),
       declare(L::i16), declare(L::i17), declare(L::i18), declare(L::i19), declare(L::i20),
       declare(L::i21)},
      {declare(L::eclipse, Eclipse::lunarEclipse)});
}

}  // namespace

const std::shared_ptr<const ManagedObjectModel>& staticModel() {
  static const auto model = ManagedObjectModel::make(
      {camera(), cameraBrand(), poi(), poiCategory(), eclipse(), eclipseSolar(), eclipseLunar()});
  return model;
}

}  // namespace zenivo
