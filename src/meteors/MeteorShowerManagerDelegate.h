// What a meteor shower manager tells its screen.

#pragma once

namespace zenivo {

/// Called on the main thread.
class MeteorShowerManagerDelegate {
 public:
  virtual ~MeteorShowerManagerDelegate() = default;

  /// The real peaks of a shower have come in from the background.
  virtual void didUpdateShowersPeaks() {}
  /// All real peaks that were asked for are there.
  virtual void didFinishShowersPeaks() {}
};

}  // namespace zenivo
