// Values that several threads need and one computes.

#pragma once

#include <map>
#include <mutex>
#include <utility>

namespace zenivo {

/// A map whose values are made when they are first asked for.  Who asks for a value that
/// is being made waits for it; different values are made at the same time.  A reference
/// holds as long as the map.
template <class Key, class Value>
class OnceMap {
 public:
  template <class Make>
  const Value& get(const Key& key, Make&& make) {
    Entry& entry = entryOf(key);
    std::call_once(entry.once, [&] { entry.value = std::forward<Make>(make)(); });
    return entry.value;
  }

 private:
  struct Entry {
    std::once_flag once;
    Value value;
  };

  Entry& entryOf(const Key& key) {
    const std::lock_guard lock(mutex_);
    return entries_[key];
  }

  std::mutex mutex_;
  std::map<Key, Entry> entries_;
};

}  // namespace zenivo
