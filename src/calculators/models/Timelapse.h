// Time-lapse: interval, length of the clip and duration of the event.
//
//   frames = clip length * frame rate = event duration / interval
//
// Error: whole numbers of frames and photographs are exact; a clip comes back to a hundredth.
// Special cases: an interval of 0 has an infinite clip and no photographs.
// Source: the equation above; frames are rounded up, photographs down.

#pragma once

#include <cstdint>

namespace zenivo {

/// A time-lapse.  Durations are seconds, sizes megabytes.  Nothing is refused: an
/// interval of 0 gives an infinite clip.
struct Timelapse {
  double shootingInterval = 0;  ///< from one shot to the next
  std::int32_t fps = 0;         ///< frames a second of the clip
  double clipLength = 0;
  double eventDuration = 0;
  double imageSize = 0;  ///< of one photograph

  static Timelapse initWithFps(std::int32_t fps, double clipLength, double eventDuration,
                               double imageSize);

  // Each takes one of the three from the other two and the frame rate; the number of
  // frames is rounded up.

  void calculateShootingInterval();
  void calculateClipLength();
  void calculateEventDuration();

  /// Whole intervals of the event: where it is no multiple of the interval, one fewer
  /// than the frames of the clip.  0 when there is no such number, and at most
  /// 2147483647.
  std::int32_t numberOfPhotos() const;

  float totalMemoryUsage() const;
};

}  // namespace zenivo
