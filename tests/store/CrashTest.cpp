// Programs that are killed while they save.

#include <gtest/gtest.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <random>
#include <thread>

#include "store/LibraryModel.h"

namespace zenivo::testing {
namespace {

constexpr int kKills = 500;
constexpr int kKept = 5;

int counterOf(ManagedObjectContext& context) {
  const auto series = fetchAll(context, {.entityName = "Series"});
  return series.empty() ? 0 : std::stoi(series.front()->valueForKey("name").string());
}

/// The save of that number: a shelf with books, an author and a jacket comes, the oldest
/// goes with all that stands on it, and the counter tells the number.
void change(ManagedObjectContext& context, int number) {
  const std::string name = std::to_string(number);
  auto counter = fetchAll(context, {.entityName = "Series"});
  if (counter.empty()) counter.push_back(insertNamed(context, "Series", name));
  counter.front()->setValue(name, "name");
  const auto shelf = insertNamed(context, "Shelf", name);
  const auto author = insertNamed(context, "Author", name);
  for (int i = 0; i < 3; ++i) {
    const auto book = insertNamed(context, "Book", name);
    book->setRelatedObject(shelf, "shelf");
    book->addRelatedObject(author, "authors");
    counter.front()->insertRelatedObject(book, "volumes", 0);
    const auto jacket = insertNamed(context, "Jacket", name);
    jacket->setValue(Data(500, static_cast<std::uint8_t>(number)), "image");
    book->setRelatedObject(jacket, "jacket");
  }
  const auto old = Predicate::predicateWithFormat("name = %@", std::to_string(number - kKept));
  for (const char* entity : {"Shelf", "Author"}) {
    for (const auto& each : fetchAll(context, {.entityName = entity, .predicate = old})) {
      context.deleteObject(each);
    }
  }
}

/// Whether the file holds what so many saves leave, all of it and nothing else.
void expectWhole(ManagedObjectContext& context, int saves) {
  const auto kept = static_cast<std::size_t>(std::min(saves, kKept));
  EXPECT_EQ(*context.countForFetchRequest({.entityName = "Shelf"}), kept);
  EXPECT_EQ(*context.countForFetchRequest({.entityName = "Author"}), kept);
  EXPECT_EQ(*context.countForFetchRequest({.entityName = "Jacket"}), 3 * kept);
  int volume = 3 * saves;
  for (const auto& counter : fetchAll(context, {.entityName = "Series"})) {
    for (const auto& book : counter->relatedObjectsForKey("volumes")) {
      const int number = --volume / 3 + 1;
      const Value name(std::to_string(number));
      EXPECT_EQ(book->valueForKey("title"), name);
      EXPECT_EQ(book->valueForKeyPath("shelf.name"), name);
      EXPECT_EQ(book->valueForKeyPath("jacket.image"),
                Value(Data(500, static_cast<std::uint8_t>(number))));
      EXPECT_EQ(book->relatedObjectsForKey("authors").at(0)->valueForKey("name"), name);
    }
  }
  EXPECT_EQ(volume, 3 * (saves - static_cast<int>(kept)));
}

/// Saves for ever, and tells the pipe after each save.
[[noreturn]] void saveInALoop(const std::filesystem::path& file, int pipe) {
  const auto context = contextOn(openStore(file));
  for (int number = counterOf(*context) + 1;; ++number) {
    change(*context, number);
    const bool told = context->save() && ::write(pipe, &number, sizeof number) == sizeof number;
    if (!told) _exit(1);
  }
}

TEST(Crash, LosesNoSaveThatWasAcknowledgedAndLeavesNoneHalfDone) {
  const TemporaryFolder folder;
  const auto file = folder / "library.sqlite";
  std::mt19937 random(20260812);
  int acknowledged = 0;
  for (int kill = 0; kill < kKills && !HasFailure(); ++kill) {
    SCOPED_TRACE(kill);
    int pipe[2];
    ASSERT_EQ(::pipe(pipe), 0);
    const pid_t child = fork();
    if (child == 0) saveInALoop(file, pipe[1]);
    close(pipe[1]);
    int number = 0;
    // Half of the savers are killed only once they are at it, however slow the machine.
    if (kill % 4 < 2 && read(pipe[0], &number, sizeof number) > 0) acknowledged = number;
    std::this_thread::sleep_for(std::chrono::microseconds(random() % 10'000));
    EXPECT_EQ(::kill(child, SIGKILL), 0);
    int status = 0;
    waitpid(child, &status, 0);
    EXPECT_TRUE(WIFSIGNALED(status)) << "the saver gave up";
    while (read(pipe[0], &number, sizeof number) == sizeof number) acknowledged = number;
    close(pipe[0]);
    // Opened to read alone, the log stays for the next program to recover from.
    const bool readOnly = kill % 2 == 1 && std::filesystem::exists(file);
    const auto context = contextOn(openStore(file, libraryModel(), {.readOnly = readOnly}));
    const int found = counterOf(*context);
    EXPECT_TRUE(found == acknowledged || found == acknowledged + 1) << found;
    acknowledged = found;
    expectWhole(*context, found);
    EXPECT_EQ(integrityOf(file), "");
  }
  EXPECT_GE(acknowledged, kKills / 2);
}

}  // namespace
}  // namespace zenivo::testing
