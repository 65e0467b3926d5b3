#include "foundation/UserDefaults.h"

#include <gtest/gtest.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <chrono>
#include <functional>
#include <random>
#include <thread>

#include "foundation/AtomicFile.h"
#include "foundation/FileLock.h"
#include "foundation/UserFolder.h"
#include "support/TemporaryFolder.h"

namespace zenivo {
namespace {

/// Runs `work` in a process of its own; its answer is the exit status.
pid_t inOtherProcess(const std::function<bool()>& work) {
  const pid_t child = ::fork();
  if (child == 0) ::_exit(work() ? 0 : 1);
  return child;
}

bool succeeded(pid_t child) {
  int status = 0;
  return ::waitpid(child, &status, 0) == child && WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

TEST(UserDefaults, ReadersGetTheTypeTheyAskFor) {
  UserDefaults defaults;
  const struct {
    std::optional<PropertyList> value;
    std::int64_t integer;
    double real;
    bool boolean;
    const char* text;
  } cases[] = {{std::nullopt, 0, 0, false, ""}, {2.9, 2, 2.9, true, "2.9"},
               {-0.5, 0, -0.5, true, "-0.5"},   {true, 1, 1, true, "1"},
               {-12, -12, -12, true, "-12"},    {" 7.5 mm", 7, 7.5, true, " 7.5 mm"},
               {"YES", 0, 0, true, "YES"},      {"0.5", 0, 0.5, false, "0.5"},
               {"nan", 0, 0, false, "nan"},     {Date(), 0, 0, false, ""}};
  for (const auto& expected : cases) {
    defaults.setValue(expected.value, "key");
    EXPECT_EQ(defaults.objectForKey("key"), expected.value);
    EXPECT_EQ(defaults.integerForKey("key"), expected.integer) << expected.text;
    EXPECT_EQ(defaults.doubleForKey("key"), expected.real) << expected.text;
    EXPECT_EQ(defaults.boolForKey("key"), expected.boolean) << expected.text;
    EXPECT_EQ(defaults.stringForKey("key"), expected.text);
  }
  defaults.setFloat(0.1F, "key");
  EXPECT_EQ(defaults.floatForKey("key"), 0.1F);
  EXPECT_EQ(defaults.doubleForKey("key"), 0.1) << "what was meant";
}

TEST(UserDefaults, RegisteredDefaultsAreReadButNeverStored) {
  const TemporaryFolder folder;
  UserDefaults defaults(folder / "settings.plist");
  defaults.registerDefaults({{"dof_aperture", 8.0}, {"fov_isPortrait", true}});
  EXPECT_TRUE(defaults.synchronize());
  EXPECT_TRUE(std::filesystem::is_empty(folder.path()));

  defaults.setDouble(11, "dof_aperture");
  EXPECT_EQ(defaults.doubleForKey("dof_aperture"), 11);
  EXPECT_TRUE(defaults.synchronize());
  const UserDefaults again(folder / "settings.plist");
  EXPECT_EQ(again.doubleForKey("dof_aperture"), 11);
  EXPECT_FALSE(again.objectForKey("fov_isPortrait"));
  defaults.removeObjectForKey("dof_aperture");
  EXPECT_EQ(defaults.doubleForKey("dof_aperture"), 8);
  EXPECT_TRUE(defaults.synchronize());
  EXPECT_FALSE(UserDefaults(folder / "settings.plist").objectForKey("dof_aperture"));
}

TEST(UserDefaults, OnlyOwnChangesReachTheFile) {
  const TemporaryFolder folder;
  const auto file = folder / "made on first write/settings.plist";
  UserDefaults one(file);
  UserDefaults other(file);
  one.setInteger(1, "a");
  one.setInteger(1, "b");
  ASSERT_TRUE(one.synchronize());
  EXPECT_EQ(other.integerForKey("a"), 0);  // not seen before it looks
  other.setInteger(2, "b");
  other.setInteger(2, "c");
  ASSERT_TRUE(other.synchronize());
  EXPECT_EQ(other.integerForKey("a"), 1);
  one.removeObjectForKey("a");
  ASSERT_TRUE(one.synchronize());
  ASSERT_TRUE(other.synchronize());
  for (const UserDefaults* defaults : {&one, &other}) {
    EXPECT_FALSE(defaults->objectForKey("a"));
    EXPECT_EQ(defaults->integerForKey("b"), 2);
    EXPECT_EQ(defaults->integerForKey("c"), 2);
  }
}

constexpr int kKeys = 60;

/// Sets and stores "a0", "a1" and so on; values are seen whatever others store meanwhile.
bool storeKeys(UserDefaults& defaults, const std::string& name) {
  bool stored = true;
  for (int i = 0; i < kKeys; ++i) {
    defaults.setInteger(i, name + std::to_string(i));
    stored = (i % 2 == 0 || defaults.synchronize()) && stored;
    stored = defaults.objectForKey(name + std::to_string(i)) == PropertyList(i) && stored;
  }
  return stored;
}

void expectKeys(const std::filesystem::path& file) {
  const UserDefaults defaults(file);
  for (const std::string name : {"a", "b", "c"}) {
    for (int i = 0; i < kKeys; ++i) {
      EXPECT_EQ(defaults.objectForKey(name + std::to_string(i)), PropertyList(i)) << name << i;
    }
  }
}

TEST(UserDefaults, ProcessesWritingAtOnceLoseNothing) {
  const TemporaryFolder folder;
  std::vector<pid_t> children;
  for (const char* name : {"a", "b", "c"}) {
    children.push_back(inOtherProcess([&] {
      UserDefaults defaults(folder / "settings.plist");
      return storeKeys(defaults, name);
    }));
  }
  for (const pid_t child : children) EXPECT_TRUE(succeeded(child));
  expectKeys(folder / "settings.plist");
}

TEST(UserDefaults, ThreadsMaySetReadAndSynchronize) {
  const TemporaryFolder folder;
  UserDefaults defaults(folder / "settings.plist");
  std::vector<std::thread> threads;
  for (const char* name : {"a", "b", "c"}) {
    threads.emplace_back([&defaults, name] { EXPECT_TRUE(storeKeys(defaults, name)); });
  }
  for (std::thread& thread : threads) thread.join();
  expectKeys(folder / "settings.plist");
}

// A child counts in two keys and tells each count through a pipe once it is
// stored.  Killed at any moment, it leaves a file with a count told or under way.
TEST(UserDefaults, AKilledProcessLeavesACompleteFile) {
  const TemporaryFolder folder;
  const auto file = folder / "settings.plist";
  std::mt19937 random(50);
  for (int round = 0; round < 50; ++round) {
    std::array<int, 2> pipe{};
    ASSERT_EQ(::pipe(pipe.data()), 0);
    const pid_t child = inOtherProcess([&] {
      UserDefaults defaults(file);
      for (std::int64_t count = defaults.integerForKey("count") + 1;; ++count) {
        defaults.setInteger(count, "count");
        defaults.setObject(std::string(static_cast<std::size_t>(count) * 100, 'x'), "padding");
        if (!defaults.synchronize()) return false;
        if (::write(pipe[1], &count, sizeof count) != sizeof count) return false;
      }
    });
    ::close(pipe[1]);
    std::this_thread::sleep_for(std::chrono::microseconds(random() % 6000));
    ::kill(child, SIGKILL);
    EXPECT_FALSE(succeeded(child));
    std::int64_t told = 0;
    while (::read(pipe[0], &told, sizeof told) == sizeof told) continue;
    ::close(pipe[0]);

    Error error;
    const auto content = readPropertyListFile(file, &error);
    if (!content && told == 0 && !std::filesystem::exists(file)) continue;
    ASSERT_TRUE(content) << error.description;
    const auto count = content->valueForKey("count")->integer().value();
    EXPECT_EQ(content->valueForKey("padding")->string()->size(),
              static_cast<std::size_t>(count) * 100);
    EXPECT_TRUE(told == 0 || count == told || count == told + 1) << count << " after " << told;
  }
  UserDefaults survivor(file);
  survivor.setBool(true, "alive");
  EXPECT_TRUE(survivor.synchronize());
}

TEST(UserDefaults, ABrokenFileIsReportedAndKept) {
  const TemporaryFolder folder;
  const auto file = folder / "settings.plist";
  const std::string broken = "<plist><dict>\n<key>a</key>";
  for (const char* aside : {"settings.plist.broken", "settings.plist.broken2"}) {
    ASSERT_TRUE(writeFileAtomically(file, broken));
    testing::internal::CaptureStderr();
    UserDefaults defaults(file);
    EXPECT_FALSE(defaults.synchronize());  // nothing to store: it stays where it is
    EXPECT_EQ(readFile(file, 100), broken);
    defaults.setInteger(1, "b");
    EXPECT_TRUE(defaults.synchronize());
    EXPECT_NE(testing::internal::GetCapturedStderr().find("settings.plist: line 2: "),
              std::string::npos);
    EXPECT_EQ(readFile(folder / aside, 100), broken);
    EXPECT_EQ(UserDefaults(file).integerForKey("b"), 1);
  }
  // What was known of a file that breaks later is stored again.
  UserDefaults defaults(file);
  ASSERT_TRUE(writeFileAtomically(file, formatPropertyList("no dictionary").value()));
  defaults.setInteger(2, "c");
  testing::internal::CaptureStderr();
  EXPECT_TRUE(defaults.synchronize());
  EXPECT_NE(testing::internal::GetCapturedStderr().find("no dictionary"), std::string::npos);
  EXPECT_EQ(UserDefaults(file).integerForKey("b"), 1);
  EXPECT_EQ(UserDefaults(file).integerForKey("c"), 2);
}

TEST(UserDefaults, ALinkedFileIsWrittenThroughAndLeftoversAreSweptThere) {
  const TemporaryFolder folder;
  const auto file = folder / "far/real.plist";
  std::filesystem::create_directory(folder / "far");
  std::filesystem::create_symlink("far/real.plist", folder / "settings.plist");
  for (const char* name : {".real.plist.a1B2c3", ".real.plist.keep", ".other.plist.a1B2c3"}) {
    ASSERT_TRUE(writeFileAtomically(folder / "far" / name, "half"));
  }
  UserDefaults defaults(folder / "settings.plist");
  defaults.setDouble(-0.0, "zero");
  ASSERT_TRUE(defaults.synchronize());
  EXPECT_TRUE(std::filesystem::is_symlink(folder / "settings.plist"));
  EXPECT_EQ(UserDefaults(file).stringForKey("zero"), "-0");
  EXPECT_FALSE(std::filesystem::exists(folder / "far/.real.plist.a1B2c3"));
  EXPECT_TRUE(std::filesystem::exists(folder / "far/.real.plist.keep"));
  EXPECT_TRUE(std::filesystem::exists(folder / "far/.other.plist.a1B2c3"));
}

TEST(FileLock, HasTheModeOfItsFileAndIsNotWaitedForForEver) {
  const TemporaryFolder folder;
  const auto file = folder / "shared";
  ASSERT_TRUE(writeFileAtomically(file, ""));
  std::error_code failure;
  for (const auto mode : {0600, 0664, 0444}) {
    using std::filesystem::perms;
    std::filesystem::permissions(file, static_cast<perms>(mode));
    const auto lock = FileLock::open(file, ".lock", failure);
    ASSERT_TRUE(lock && lock->acquire());
    EXPECT_EQ(std::filesystem::status(folder / "shared.lock").permissions(),
              static_cast<perms>(mode | 0600));
    EXPECT_FALSE(FileLock::open(file, ".lock", failure)->acquire(std::chrono::milliseconds(20)));
  }
  EXPECT_FALSE(FileLock::open(folder / "no/file", ".lock", failure));
  EXPECT_EQ(failure, std::errc::no_such_file_or_directory);
}

TEST(UserDefaults, AnUnreadableFileIsLeftAlone) {
  const TemporaryFolder folder;
  const auto file = folder / "settings.plist";
  std::filesystem::create_directory(file);
  testing::internal::CaptureStderr();
  UserDefaults defaults(file);
  defaults.setInteger(1, "a");
  EXPECT_FALSE(defaults.synchronize());
  testing::internal::GetCapturedStderr();
  EXPECT_TRUE(std::filesystem::is_directory(file));
}

TEST(UserDefaults, WhatAReadOnlyFolderRefusesIsStoredLater) {
  const TemporaryFolder folder;
  UserDefaults defaults(folder / "settings.plist");
  defaults.setInteger(1, "a");
  using std::filesystem::perms;
  std::filesystem::permissions(folder.path(), static_cast<perms>(0555));
  const uid_t user = ::geteuid();
  ASSERT_EQ(::seteuid(user == 0 ? 65534 : user), 0);  // root may write anywhere
  Error error;
  EXPECT_FALSE(defaults.synchronize(&error));
  EXPECT_NE(error.description.find("Permission denied"), std::string::npos) << error.description;
  EXPECT_EQ(defaults.integerForKey("a"), 1);
  ASSERT_EQ(::seteuid(user), 0);
  std::filesystem::permissions(folder.path(), perms::owner_all);
  EXPECT_TRUE(defaults.synchronize());
  EXPECT_EQ(UserDefaults(folder / "settings.plist").integerForKey("a"), 1);
}

TEST(UserFolder, VariablesInTheirOrder) {
  const auto folderWith = [](const char* zenivo, const char* data) {
    ::setenv("ZENIVO_HOME", zenivo, 1);
    ::setenv("XDG_DATA_HOME", data, 1);
    ::setenv("HOME", "/home/ada", 1);
    return userFolder().string();
  };
  const pid_t child = inOtherProcess([&] {
    return folderWith("/z", "/x") == "/z" && folderWith("", "/x") == "/x/zenivo" &&
           folderWith("", "relative") == "/home/ada/.local/share/zenivo" &&
           folderWith("", "") == "/home/ada/.local/share/zenivo" && ::unsetenv("HOME") == 0 &&
           userFolder().is_absolute();
  });
  EXPECT_TRUE(succeeded(child));
}

}  // namespace
}  // namespace zenivo
