#include "RawPlans.h"

#include <stdexcept>

#include "foundation/Uuid.h"

namespace zenivo::bench {
namespace {

constexpr std::int64_t kFirstPlan = 1'000;

std::string columns() {
  std::string names;
  for (const char* name : kTexts) names += std::string(", ") + name;
  for (const char* name : kReals) names += std::string(", ") + name;
  for (const char* name : kWholes) names += std::string(", ") + name;
  return names + ", project";
}

std::string selectFrom(const std::string& source) {
  std::string names = columns();
  for (std::size_t at = 0; (at = names.find(", ", at)) != std::string::npos; at += 5) {
    names.insert(at + 2, "t0.");
  }
  return "SELECT t0._id, t0._version" + names + " FROM Planning t0 " + source;
}

std::string isOneOf(std::size_t count) {
  std::string marks;
  for (std::size_t i = 0; i < count; ++i) marks += i == 0 ? "?" : ", ?";
  return "WHERE _id IN (" + marks + ")";
}

std::string insertion() {
  std::string marks;
  const std::size_t count = 3 + kTexts.size() + kReals.size() + kWholes.size() + 1;
  for (std::size_t i = 0; i < count; ++i) marks += i == 0 ? "?" : ", ?";
  return "INSERT INTO Planning(_id, _entity, _version" + columns() + ") VALUES(" + marks + ")";
}

void bindText(sqlite3_stmt* statement, int parameter, std::string_view text) {
  sqlite3_bind_text64(statement, parameter, text.data(), text.size(), SQLITE_STATIC, SQLITE_UTF8);
}

}  // namespace

RawPlan makePlan(int number) {
  RawPlan plan;
  plan.texts = {uuidString(), "Moonrise over the old lighthouse " + std::to_string(number),
                "Arrive an hour before; the path is wet at high tide.", "Europe/Madrid",
                R"({"layers":["sun","moon"],"calculator":"dof"})"};
  for (std::size_t i = 0; i < plan.reals.size(); ++i) {
    plan.reals[i] = static_cast<double>(number * 7919 % 10'007) / 8 + static_cast<double>(i);
  }
  plan.wholes = {number % 2, 1, 0, number % 4};
  return plan;
}

RawPlans::RawPlans(const std::filesystem::path& file)
    : connection_(
          [&] {
            sqlite3* opened = nullptr;
            sqlite3_open_v2(file.c_str(), &opened, SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX,
                            nullptr);
            sqlite3_exec(opened,
                         "PRAGMA journal_mode=WAL; PRAGMA synchronous=FULL; "
                         "PRAGMA foreign_keys=ON",
                         nullptr, nullptr, nullptr);
            return opened;
          }(),
          sqlite3_close_v2),
      begin_(prepare("BEGIN IMMEDIATE")),
      commit_(prepare("COMMIT")),
      insert_(prepare(insertion())),
      rename_(prepare("UPDATE Planning SET name = ?3, _version = _version + 1 "
                      "WHERE _id = ?1 AND _version = ?2")),
      keysByDate_(prepare("SELECT _id FROM Planning ORDER BY date, _id")),
      ofKey_(prepare(selectFrom("WHERE _id = ?1"))),
      ofKeys_(prepare(selectFrom(isOneOf(kBatch)))),
      ofProject_(prepare(selectFrom("WHERE project = ?1"))),
      ofSource_(nullptr, sqlite3_finalize) {}

RawPlans::Statement RawPlans::prepare(const std::string& sql) const {
  sqlite3_stmt* statement = nullptr;
  if (sqlite3_prepare_v3(connection_.get(), sql.c_str(), -1, SQLITE_PREPARE_PERSISTENT, &statement,
                         nullptr) != SQLITE_OK) {
    throw std::runtime_error(sqlite3_errmsg(connection_.get()));
  }
  return {statement, sqlite3_finalize};
}

void RawPlans::run(sqlite3_stmt* statement) const {
  if (sqlite3_step(statement) != SQLITE_DONE) {
    throw std::runtime_error(sqlite3_errmsg(connection_.get()));
  }
  sqlite3_reset(statement);
}

void RawPlans::insert(int count, int perProject) {
  run(begin_.get());
  for (int i = 0; perProject != 0 && i * perProject < count; ++i) {
    run(prepare("INSERT INTO Project(_id, _entity, _version, uniqueIdentifier, name, isArchived) "
                "SELECT " +
                std::to_string(i + 1) + ", number, 1, '" + uuidString() + "', 'Project " +
                std::to_string(i) + "', " + std::to_string(i % 2) +
                " FROM _entities WHERE name = 'Project'")
            .get());
  }
  const Statement entity = prepare("SELECT number FROM _entities WHERE name = 'Planning'");
  sqlite3_step(entity.get());
  const std::int64_t number = sqlite3_column_int64(entity.get(), 0);
  for (int i = 0; i < count; ++i) {
    const RawPlan plan = makePlan(i);
    int parameter = 1;
    sqlite3_bind_int64(insert_.get(), parameter++, kFirstPlan + i);
    sqlite3_bind_int64(insert_.get(), parameter++, number);
    sqlite3_bind_int64(insert_.get(), parameter++, 1);
    for (const auto& text : plan.texts) bindText(insert_.get(), parameter++, text);
    for (const double real : plan.reals) sqlite3_bind_double(insert_.get(), parameter++, real);
    for (const auto whole : plan.wholes) sqlite3_bind_int64(insert_.get(), parameter++, whole);
    if (perProject != 0) sqlite3_bind_int64(insert_.get(), parameter, i / perProject + 1);
    run(insert_.get());
  }
  run(prepare("UPDATE _metadata SET value = max(value, " + std::to_string(kFirstPlan + count) +
              ") WHERE key = 'nextKey'")
          .get());
  run(commit_.get());
}

void RawPlans::rename(std::int64_t key, std::int64_t version, std::string_view name) {
  run(begin_.get());
  sqlite3_bind_int64(rename_.get(), 1, key);
  sqlite3_bind_int64(rename_.get(), 2, version);
  bindText(rename_.get(), 3, name);
  run(rename_.get());
  run(commit_.get());
}

std::vector<std::int64_t> RawPlans::keysByDate() {
  std::vector<std::int64_t> keys;
  while (sqlite3_step(keysByDate_.get()) == SQLITE_ROW) {
    keys.push_back(sqlite3_column_int64(keysByDate_.get(), 0));
  }
  sqlite3_reset(keysByDate_.get());
  return keys;
}

std::vector<RawPlan> RawPlans::read(sqlite3_stmt* statement) const {
  std::vector<RawPlan> plans;
  while (sqlite3_step(statement) == SQLITE_ROW) {
    RawPlan& plan = plans.emplace_back();
    int column = 0;
    plan.key = sqlite3_column_int64(statement, column++);
    plan.version = sqlite3_column_int64(statement, column++);
    for (std::string& text : plan.texts) {
      text.assign(reinterpret_cast<const char*>(sqlite3_column_text(statement, column)),
                  static_cast<std::size_t>(sqlite3_column_bytes(statement, column)));
      ++column;
    }
    for (double& real : plan.reals) real = sqlite3_column_double(statement, column++);
    for (std::int64_t& whole : plan.wholes) whole = sqlite3_column_int64(statement, column++);
    plan.project = sqlite3_column_int64(statement, column);
  }
  sqlite3_reset(statement);
  return plans;
}

std::vector<RawPlan> RawPlans::plans(const std::string& source,
                                     const std::vector<std::string_view>& texts) {
  if (source != source_) {
    ofSource_ = prepare(selectFrom(source));
    source_ = source;
  }
  int parameter = 1;
  for (const std::string_view text : texts) bindText(ofSource_.get(), parameter++, text);
  return read(ofSource_.get());
}

RawPlan RawPlans::planOfKey(std::int64_t key) {
  sqlite3_bind_int64(ofKey_.get(), 1, key);
  return read(ofKey_.get()).at(0);
}

std::vector<RawPlan> RawPlans::plansOfKeys(std::span<const std::int64_t, kBatch> keys) {
  int parameter = 1;
  for (const std::int64_t key : keys) sqlite3_bind_int64(ofKeys_.get(), parameter++, key);
  return read(ofKeys_.get());
}

std::vector<RawPlan> RawPlans::plansOfProject(std::int64_t project) {
  sqlite3_bind_int64(ofProject_.get(), 1, project);
  return read(ofProject_.get());
}

}  // namespace zenivo::bench
