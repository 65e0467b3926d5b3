// The catalogue of meteor showers.

#pragma once

#include <filesystem>
#include <memory>
#include <optional>
#include <vector>

#include "foundation/Bundle.h"
#include "meteors/MeteorShower.h"

namespace zenivo {

/// The showers of the list, by class, and those that a moment concerns.  Every shower
/// stands in `showers` and in the list of its class, in the order of the file.  Without
/// a file that can be read all lists are empty.
///
/// Knows no lock: who shares a catalogue between threads guards it.
class MeteorShowers {
 public:
  using List = std::vector<std::shared_ptr<MeteorShower>>;

  explicit MeteorShowers(const std::optional<ZVLocation>& location,
                         const std::filesystem::path& file = resourcePath("meteors.json"));

  const std::optional<ZVLocation>& location() const { return location_; }
  /// Takes every shower there.  What the periods hold for the old place stays: see
  /// clearPeaksInfo.
  void setLocation(const std::optional<ZVLocation>& location);

  const List& showers() const { return showers_; }
  const List& majorShowers() const { return majorShowers_; }
  const List& minorShowers() const { return minorShowers_; }
  const List& variableShowers() const { return variableShowers_; }
  const List& weakShowers() const { return weakShowers_; }
  /// Any other number than 1, 2 and 3 means the weak ones.
  const List& showersOfClass(int showerClass) const;
  const List& activeShowers() const { return activeShowers_; }
  const List& upcomingShowers() const { return upcomingShowers_; }

  /// nullptr when there is none of that number.
  std::shared_ptr<MeteorShower> showerWithId(std::int64_t meteorId) const;

  /// Makes each shower's periods anew (MeteorShower::calculateActivitiesWithYear).
  void calculateMeteorShowersActivitiesWithYear(std::int64_t year, const Calendar& calendar);

  /// Fills the lists of the active showers and of those that begin within 31 days, each
  /// shower in one of them at most.
  void refreshActiveMeteorShowersForMjd(double mjd);

  /// Sorts those two lists by compareShowersWithLhs.  That relation is not transitive
  /// where the real peaks of some showers only are known; the order is then one in
  /// which no shower comes right after one that it goes before.
  void sortActiveAndUpcomingShowersForMjd(double mjd);
  /// Sorts the lists of the classes by their next peaks.
  void sortShowersForMjd(double mjd);

  /// Whether lhs goes first: the active one of two, else the one whose peak is nearer.
  static bool compareShowersWithLhs(const MeteorShower& lhs, const MeteorShower& rhs, Date date,
                                    double mjdDate);
  /// Whether lhs goes first: the one whose current or next peak is earlier.
  static bool compareShowersByPeakDateWithLhs(const MeteorShower& lhs, const MeteorShower& rhs,
                                              Date date);

  /// Forgets every real peak, with all that holds for its place.
  void clearPeaksInfo();

 private:
  List& listOfClass(int showerClass);

  std::optional<ZVLocation> location_;
  List showers_;
  List majorShowers_;
  List minorShowers_;
  List variableShowers_;
  List weakShowers_;
  List activeShowers_;
  List upcomingShowers_;
};

}  // namespace zenivo
