#pragma once
// What the decoding service has in work; for its own files alone. Everything is guarded by the service's
// mutex but for what the one thread that works on it uses by itself.

#include <algorithm>
#include <atomic>
#include <stop_token>

#include "ports/decoding.h"

namespace lumidex {

// A picture that is to be shown.
struct DecodingService::Order {
  Picture picture;
  Size size;
  DecodingPriority priority;
  Ready ready;
  std::stop_source stop;
  std::atomic<DecodingState> state{DecodingState::HeaderKnown};
  bool isRunning = false;
};

// A file that is read ahead.
struct DecodingService::Reading {
  // From its beginning on the same.
  DecodingExtent extent = DecodingExtent::Header;
  ShownSize shown;
  std::stop_source stop;

  OpenedPicture opened;  // the picture comes with the state HeaderKnown
  DecodingState state = DecodingState::Asked;
  Size size{};               // that its pixels are being made for, once that is known
  std::size_t place = 0;     // in the wish
  std::size_t estimate = 0;  // of the bytes that decoding it will take
  bool isRunning = false;
  bool waitsForRoom = false;
  bool isTaken = false;  // whoever it was read for has it now

  // While it runs, its pixels may take what was estimated.
  std::size_t HeldBytes() const {
    const std::size_t held = opened.picture.HeldBytes();
    return isRunning && !waitsForRoom ? std::max(estimate, held) : held;
  }
  bool IsSpent() const { return isTaken && extent == DecodingExtent::Header && HeldBytes() == 0; }
};

// What one client wishes and what has been read for it.
struct DecodingService::Record {
  // More opened files than this are not kept for later.
  static constexpr std::size_t mostAhead = 32, mostHeadersAhead = 256;

  DecodingPriority priority = DecodingPriority::Neighbours;
  Wish wish;
  OpenedPicture current;
  std::deque<std::shared_ptr<Reading>> readings;
  std::size_t running = 0;  // of the readings
  std::size_t next = 0;     // the path to begin next
  std::size_t behind = 0;   // the paths before it have been opened by now
  bool gaveWay = false;     // until the next wish
  bool headersComeSlowly = false;

  // True when there is room for another file. Headers come from one thread as fast as they are asked for, and
  // threads that share such short work wait for each other and for a processor; others help out when they
  // have to be waited for.
  bool HasPlace() const {
    if (!IsForHeaders()) return readings.size() < mostAhead;
    constexpr std::size_t few = 4;
    const bool needsHelp = headersComeSlowly && readings.size() - running < few;
    return readings.size() < mostHeadersAhead && (running == 0 || needsHelp);
  }
  // True when somebody should be woken to read on: for a file that goes at once into each free place a thread
  // would be woken as often as files are opened.
  bool IsHungry() const {
    const bool isLow = readings.size() <= (IsForHeaders() ? mostHeadersAhead : mostAhead) / 2;
    if (next < wish.paths.Count() && (IsNeighbours() || (isLow && HasPlace()))) return true;
    if (IsForHeaders()) return false;  // which need no room
    return std::ranges::any_of(readings, [](const auto& reading) { return reading->waitsForRoom; });
  }
  bool IsForHeaders() const { return !IsNeighbours() && wish.extent == DecodingExtent::Header; }
  bool IsNeighbours() const { return priority == DecodingPriority::Neighbours; }
  // The place of a path from `first` on, but no further than `most` behind it; their number for none.
  std::size_t PlaceOf(const std::string& path, std::size_t first, std::size_t most) const;
  bool Knows(std::string_view path) const;
  static std::size_t PlaceIn(const std::shared_ptr<Reading>& reading) { return reading->place; }
  // Its end when it is not one of these.
  std::deque<std::shared_ptr<Reading>>::iterator Find(const std::shared_ptr<Reading>& reading);
  // What was opened for that; null when there is none.
  Reading* ReadingOf(const std::string& path, std::uint64_t stamp, const DecoderOptions& decoder) const;
  // Forgets what was read for the paths before this place; of what runs the work ends. Who goes through
  // files has read them in this order.
  void DropBefore(std::size_t place, std::vector<std::shared_ptr<Reading>>& spent);
};

// A piece of work: one file, or some of which only the headers are wanted.
struct DecodingService::Taken {
  static constexpr std::size_t mostHeaders = 8;
  std::vector<std::shared_ptr<Reading>> readings;
  std::vector<std::shared_ptr<Reading>> spent;  // go with this, outside of the mutex
};

}  // namespace lumidex
