// Many who write one file at once.

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <thread>

#include "store/LibraryModel.h"

namespace zenivo::testing {
namespace {

constexpr int kProcesses = 2;
constexpr int kThreads = 8;
constexpr int kWriters = kProcesses * kThreads;
constexpr int kRounds = 200;

/// A board on which everybody adds to the same total and keeps a count of his own.
std::shared_ptr<const ManagedObjectModel> boardModel() {
  std::vector<AttributeDeclaration> counts;
  for (int i = -1; i < kWriters; ++i) {
    counts.push_back({.name = i < 0 ? "total" : "count" + std::to_string(i),
                      .type = AttributeType::integer64,
                      .defaultValue = 0});
  }
  return ManagedObjectModel::make(
      {{.name = "Board",
        .attributes = std::move(counts),
        .relationships = {{.name = "entries",
                           .destination = "Entry",
                           .inverse = "board",
                           .kind = RelationshipKind::toMany}}},
       {.name = "Entry",
        .attributes = {{.name = "name"}},
        .relationships = {{.name = "board", .destination = "Board", .inverse = "entries"}}}});
}

/// Adds one to the total, again and again until no other save was in between.
bool addToTotal(ManagedObjectContext& context, const ManagedObjectPtr& board) {
  context.setMergePolicy(MergePolicy::error);
  for (;;) {
    board->setValue(*board->valueForKey("total").integer() + 1, "total");
    Error error;
    if (context.save(&error)) return true;
    if (error.code != static_cast<int>(StoreErrorCode::conflict)) return false;
    context.refreshObject(board, false);
  }
}

/// Changes what nobody else does, and never mind what the others changed.
bool addToCount(ManagedObjectContext& context, const ManagedObjectPtr& board, int writer,
                int round) {
  context.setMergePolicy(round % 2 == 0 ? MergePolicy::mergeByPropertyStoreTrump
                                        : MergePolicy::mergeByPropertyObjectTrump);
  const std::string key = "count" + std::to_string(writer);
  board->setValue(*board->valueForKey(key).integer() + 1, key);
  insertNamed(context, "Entry", key)->setRelatedObject(board, "board");
  return context.save();
}

bool writeAsOneOfThem(const std::shared_ptr<PersistentStoreCoordinator>& coordinator, int writer) {
  const auto context = contextOn(coordinator);
  const auto board = fetchAll(*context, {.entityName = "Board"}).at(0);
  for (int round = 0; round < kRounds; ++round) {
    if (!addToTotal(*context, board) || !addToCount(*context, board, writer, round)) return false;
  }
  return true;
}

/// The threads of one process; its exit code is the number of those that failed.
int writeInThreads(const std::filesystem::path& file, int process) {
  const auto coordinator = openStore(file, boardModel());
  std::array<bool, kThreads> done{};
  std::vector<std::thread> threads;
  for (int i = 0; i < kThreads; ++i) {
    threads.emplace_back([&, i] {
      done[static_cast<std::size_t>(i)] = writeAsOneOfThem(coordinator, process * kThreads + i);
    });
  }
  for (std::thread& thread : threads) thread.join();
  return static_cast<int>(std::ranges::count(done, false));
}

TEST(Crowd, TwoProcessesOfEightThreadsLoseNoUpdate) {
  const TemporaryFolder folder;
  const auto file = folder / "board.sqlite";
  {
    const auto context = contextOn(openStore(file, boardModel()));
    context->insertNewObjectForEntityForName("Board");
    saveOrFail(*context);
  }
  std::vector<pid_t> children;
  for (int process = 0; process < kProcesses; ++process) {
    const pid_t child = fork();
    if (child == 0) _exit(writeInThreads(file, process));
    children.push_back(child);
  }
  for (const pid_t child : children) {
    int status = 0;
    waitpid(child, &status, 0);
    EXPECT_EQ(status, 0);
  }
  const auto context = contextOn(openStore(file, boardModel()));
  const auto board = fetchAll(*context, {.entityName = "Board"}).at(0);
  EXPECT_EQ(board->valueForKey("total"), Value(kWriters * kRounds));
  for (int i = 0; i < kWriters; ++i) {
    EXPECT_EQ(board->valueForKey("count" + std::to_string(i)), Value(kRounds));
  }
  EXPECT_EQ(board->relatedCountForKey("entries"), static_cast<std::size_t>(kWriters * kRounds));
  EXPECT_EQ(integrityOf(file), "");
}

}  // namespace
}  // namespace zenivo::testing
