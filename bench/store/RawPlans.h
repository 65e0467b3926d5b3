// The peer of the object store: SQLite itself, with prepared statements, doing the same
// work on the same tables.

#pragma once

#include <sqlite3.h>

#include <array>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace zenivo::bench {

/// The columns of a plan by type.
inline constexpr std::array kTexts{"uniqueIdentifier", "name", "notes", "timezone", "mapSettings"};
inline constexpr std::array kReals{
    "date",         "latitude",         "longitude",   "altitude",    "altitudeOffset",
    "horizonLat",   "horizonLng",       "obstacleLat", "obstacleLon", "horizonAltitude",
    "mapCenterLat", "obstacleAltitude", "mapDeltaLat", "mapDeltaLng", "obstacleAltitudeOffset",
    "mapCenterLng", "mapHeading"};
inline constexpr std::array kWholes{"altitudeManual", "obstacleEnabled", "obstacleAltitudeManual",
                                    "mapState"};

/// Plans that are fetched together.
inline constexpr std::size_t kBatch = 20;

struct RawPlan {
  std::int64_t key = 0;
  std::int64_t version = 0;
  std::array<std::string, kTexts.size()> texts;
  std::array<double, kReals.size()> reals{};
  std::array<std::int64_t, kWholes.size()> wholes{};
  std::int64_t project = 0;
};

/// The n-th plan of every benchmark, with a fresh identifier.
RawPlan makePlan(int number);

/// One connection to a store file, in WAL mode with full synchronisation as the store.
class RawPlans {
 public:
  explicit RawPlans(const std::filesystem::path& file);

  /// One transaction; `perProject` plans go to each of the projects from key 1 on,
  /// which are made as well, or 0 for none.
  void insert(int count, int perProject);
  void rename(std::int64_t key, std::int64_t version, std::string_view name);

  std::vector<std::int64_t> keysByDate();
  /// Plans by what follows "FROM Planning t0", all columns; texts are bound from ?1 on.
  std::vector<RawPlan> plans(const std::string& source, const std::vector<std::string_view>& texts);
  RawPlan planOfKey(std::int64_t key);
  std::vector<RawPlan> plansOfKeys(std::span<const std::int64_t, kBatch> keys);
  std::vector<RawPlan> plansOfProject(std::int64_t project);

 private:
  using Connection = std::unique_ptr<sqlite3, decltype(&sqlite3_close_v2)>;
  using Statement = std::unique_ptr<sqlite3_stmt, decltype(&sqlite3_finalize)>;

  Statement prepare(const std::string& sql) const;
  void run(sqlite3_stmt* statement) const;
  std::vector<RawPlan> read(sqlite3_stmt* statement) const;

  Connection connection_;
  Statement begin_, commit_, insert_, rename_, keysByDate_, ofKey_, ofKeys_, ofProject_;
  std::string source_;
  Statement ofSource_;
};

}  // namespace zenivo::bench
