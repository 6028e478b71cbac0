// The part of the decoding service that reads files ahead.

#include <algorithm>
#include <exception>
#include <limits>
#include <utility>

#include "base/run_time_error.h"
#include "pictures/codec.h"
#include "pictures/pixels.h"
#include "ports/decoding_work.h"

namespace lumidex {
namespace {

std::size_t BytesOf(Size size) {
  return static_cast<std::size_t>(size.width) * static_cast<std::size_t>(size.height) * 4;
}

// What the pixels will take while they are made. For being shown, formats that can reduce make exactly the
// size asked for; for a size not known yet either twice of it on each side, or the whole halved as often as
// both sides allow, up to three times.
std::size_t BytesFor(const Picture& picture, Size wanted, DecodingExtent extent) {
  const Size full = picture.GetSize();
  if (!picture.IsReducible() || wanted.width <= 0) return BytesOf(full);
  const auto atMost = [&](std::int64_t width, std::int64_t height) {
    return Size{static_cast<int>(std::clamp<std::int64_t>(width, 1, full.width)),
                static_cast<int>(std::clamp<std::int64_t>(height, 1, full.height))};
  };
  if (extent == DecodingExtent::Shown) return BytesOf(atMost(wanted.width, wanted.height));
  Size halved = full;
  for (int part = 2; part <= 8; part *= 2) {
    const Size next{(full.width + part - 1) / part, (full.height + part - 1) / part};
    if (next.width < wanted.width || next.height < wanted.height) break;
    halved = next;
  }
  return std::max(BytesOf(halved),
                  BytesOf(atMost(std::int64_t{2} * wanted.width, std::int64_t{2} * wanted.height)));
}

constexpr std::size_t anywhere = std::numeric_limits<std::size_t>::max();

}  // namespace

std::size_t DecodingService::Record::PlaceOf(const std::string& path, std::size_t first,
                                             std::size_t most) const {
  const std::size_t end = most < wish.paths.size() - first ? first + most : wish.paths.size();
  for (std::size_t place = first; place < end; ++place) {
    if (wish.paths[place] == path) return place;
  }
  return wish.paths.size();
}

bool DecodingService::Record::Knows(const std::string& path) const {
  const auto isIt = [&](const OpenedPicture& opened) {
    return opened.path == path && opened.decoder == wish.decoder;
  };
  return isIt(current) || std::ranges::any_of(readings, [&](const auto& reading) {
           return !reading->stop.stop_requested() && isIt(reading->opened);
         });
}

void DecodingService::Record::DropBefore(std::size_t place) {
  behind = place;
  next = std::max(next, place);
  std::erase_if(readings, [&](const auto& reading) {
    if (reading->place >= place) return false;
    if (!reading->isTaken) reading->stop.request_stop();
    return true;
  });
}

DecodingService::Client::Client(DecodingService& service)
    : service_(service), record_(std::make_shared<Record>()) {
  const std::scoped_lock lock(service_.mutex_);
  service_.records_.push_back(record_);
}

DecodingService::Client::~Client() {
  const std::scoped_lock lock(service_.mutex_);
  std::erase(service_.records_, record_);
  service_.StopUnwanted();
}

void DecodingService::Client::Want(DecodingPriority priority, Wish wish, const OpenedPicture& current) {
  service_.Want(*record_, priority, std::move(wish), current);
}

void DecodingService::Want(Record& record, DecodingPriority priority, Wish wish,
                           const OpenedPicture& current) {
  {
    const std::scoped_lock lock(mutex_);
    record.priority = priority;
    record.wish = std::move(wish);
    record.next = record.behind = 0;
    record.gaveWay = false;
    if (record.IsNeighbours()) Keep(record, current);
    std::erase_if(record.readings, [&](const auto& reading) {
      const OpenedPicture& opened = reading->opened;
      reading->place = record.PlaceOf(opened.path, 0, anywhere);
      const bool isCurrent = !opened.picture.IsEmpty() && opened.picture == record.current.picture;
      if (isCurrent && reading->isRunning) return false;
      return isCurrent || reading->place == record.wish.paths.size() || opened.path == record.current.path ||
             !(opened.decoder == record.wish.decoder) || reading->extent != record.wish.extent;
    });
    std::ranges::sort(record.readings, {}, [](const auto& reading) { return reading->place; });
    while (!record.readings.empty() && HeldBytes() > budget_) record.readings.pop_back();
    StopUnwanted();
  }
  Woken(false);
}

// What was current is a neighbour now, as after each step.
void DecodingService::Keep(Record& record, const OpenedPicture& current) {
  const OpenedPicture before = std::exchange(record.current, current);
  const auto isKnown = [&](const auto& reading) { return reading->opened.picture == before.picture; };
  if (before.picture.IsEmpty() || before.picture == current.picture ||
      std::ranges::any_of(record.readings, isKnown))
    return;
  auto reading = std::make_shared<Reading>();
  reading->extent = record.wish.extent;
  reading->opened = before;
  reading->state = DecodingState::Decoded;
  record.readings.push_back(std::move(reading));
}

Picture DecodingService::Find(const std::string& path, std::uint64_t stamp, const DecoderOptions& decoder) {
  Picture found;
  bool isHungry = false;
  {
    const std::scoped_lock lock(mutex_);
    for (const auto& record : records_) {
      if (record->current.IsFor(path, stamp, decoder)) found = record->current.picture;
      for (const auto& reading : record->readings) {
        if (reading->stop.stop_requested() || !reading->opened.IsFor(path, stamp, decoder)) continue;
        if (reading->opened.picture.IsEmpty()) continue;
        found = reading->opened.picture;
        reading->isTaken = !record->IsNeighbours();
      }
    }
    for (const auto& record : records_) {
      if (!record->IsNeighbours()) {
        GoOnBehind(*record, path);
      } else if (found.IsEmpty()) {
        record->gaveWay = true;
      }
    }
    StopUnwanted();
    isHungry = std::ranges::any_of(records_, [](const auto& record) { return record->IsHungry(); });
  }
  if (isHungry) Woken(false);
  return found;
}

void DecodingService::GoOnBehind(Record& record, const std::string& path) {
  // Whoever goes through files goes forward, and seldom leaves any out.
  constexpr std::size_t mostLeftOut = 64;
  const std::size_t place = record.PlaceOf(path, record.behind, mostLeftOut);
  if (place == record.wish.paths.size()) return;
  record.DropBefore(place + 1);
}

std::optional<DecodingState> DecodingService::StateOf(const std::string& path) const {
  const std::scoped_lock lock(mutex_);
  for (const auto& record : records_) {
    for (const auto& reading : record->readings) {
      if (reading->opened.path == path) return reading->state;
    }
    if (record->PlaceOf(path, record->next, anywhere) < record->wish.paths.size())
      return DecodingState::Asked;
  }
  return std::nullopt;
}

void DecodingService::StopUnwanted() {
  for (const auto& reading : running_) {
    if (reading->isTaken || IsToBeShown(reading->opened.picture)) continue;
    const bool isWished = std::ranges::any_of(records_, [&](const auto& record) {
      return !record->gaveWay && std::ranges::find(record->readings, reading) != record->readings.end();
    });
    if (!isWished) reading->stop.request_stop();
  }
}

std::size_t DecodingService::HeldBytes() const {
  std::size_t bytes = 0;
  for (const auto& record : records_) {
    bytes += record->current.picture.HeldBytes();
    for (const auto& reading : record->readings) bytes += reading->HeldBytes();
  }
  return bytes;
}

bool DecodingService::HasRoomFor(const Reading& reading) const {
  return HeldBytes() - reading.HeldBytes() + reading.estimate <= budget_;
}

bool DecodingService::HasWork() const {
  const std::scoped_lock lock(mutex_);
  return orders_.size() > 0 || std::ranges::any_of(records_, [](const auto& record) {
           return !record->gaveWay && record->next < record->wish.paths.size();
         });
}

bool DecodingService::HasWorkForIdleness() const {
  const std::scoped_lock lock(mutex_);
  return std::ranges::any_of(records_, [&](const auto& record) {
    return record->IsNeighbours() && record->next < record->wish.paths.size() && MayBegin(*record, true);
  });
}

bool DecodingService::MayBegin(const Record& record, bool isIdle) const {
  if (ends_ || record.gaveWay) return false;
  if (!record.IsNeighbours()) return record.readings.size() < Record::mostAhead;
  // One at a time, so that a processor is left to the program.
  return isIdle && orders_.empty() &&
         std::ranges::none_of(record.readings, [](const auto& reading) { return reading->isRunning; });
}

std::shared_ptr<DecodingService::Reading> DecodingService::TakeReading(bool isIdle) {
  const std::scoped_lock lock(mutex_);
  std::vector<Record*> records;
  for (const auto& record : records_) records.push_back(record.get());
  std::ranges::stable_sort(records, {}, [](const Record* record) { return record->priority; });
  for (Record* record : records) {
    std::shared_ptr<Reading> reading = NextOf(*record, isIdle);
    if (!reading) continue;
    reading->isRunning = true;
    running_.push_back(reading);
    return reading;
  }
  return nullptr;
}

std::shared_ptr<DecodingService::Reading> DecodingService::NextOf(Record& record, bool isIdle) {
  for (const auto& reading : record.readings) {
    if (!reading->waitsForRoom || reading->isRunning) continue;
    // Those behind it wait for room too.
    if (!HasRoomFor(*reading) || ends_) return nullptr;
    reading->waitsForRoom = false;
    return reading;
  }
  if (!MayBegin(record, isIdle)) return nullptr;
  while (record.next < record.wish.paths.size()) {
    const std::string& path = record.wish.paths[record.next++];
    if (record.Knows(path)) continue;
    auto reading = std::make_shared<Reading>();
    reading->extent = record.wish.extent;
    reading->shown = record.wish.shown;
    reading->opened.path = path;
    reading->opened.decoder = record.wish.decoder;
    reading->place = record.next - 1;
    record.readings.push_back(reading);
    return reading;
  }
  return nullptr;
}

void DecodingService::Run(const std::shared_ptr<Reading>& reading) {
  DecodingState state = DecodingState::Failed;
  try {
    if (reading->state == DecodingState::Asked) OpenAhead(*reading);
    state = DecodeAhead(*reading) ? DecodingState::Decoded : DecodingState::HeaderKnown;
  } catch (const std::exception&) {
    // Whoever opens or shows the picture meets the same again, be it a bad file or a lack of memory.
  }
  Finish(reading, state);
}

void DecodingService::OpenAhead(Reading& reading) {
  OpenedPicture opened = reading.opened;
  opened.stamp = PictureStamp(files_, opened.path);
  if (opened.stamp == 0) throw RunTimeError(ErrorNumber::FileNotFound).About(opened.path);
  OpenOptions options;
  options.decoder = opened.decoder;
  opened.picture = OpenPicture(files_, opened.path, options);
  const std::scoped_lock lock(mutex_);
  reading.opened = opened;
  reading.state = DecodingState::HeaderKnown;
}

bool DecodingService::DecodeAhead(Reading& reading) {
  const Picture& picture = reading.opened.picture;
  const DecodingExtent extent = reading.extent;
  if (extent == DecodingExtent::Header) return false;
  // A drawing is made at the very size it is shown at, and quickly; having it open is enough.
  if (extent != DecodingExtent::Full && picture.IsScalable()) return false;
  Size size;
  if (extent != DecodingExtent::Full)
    size = reading.shown ? reading.shown(picture.GetSize()) : picture.GetSize();
  {
    const std::scoped_lock lock(mutex_);
    reading.estimate = 0;
    const std::size_t others = HeldBytes() - reading.HeldBytes();
    reading.estimate = BytesFor(picture, size, extent);
    reading.waitsForRoom = others + reading.estimate > budget_;
    if (reading.waitsForRoom) return false;
  }
  const std::stop_token stop = reading.stop.get_token();
  const Pixels pixels =
      extent == DecodingExtent::Shown ? picture.PixelsToShow(size, stop) : picture.PixelsFor(size, stop);
  return !pixels.IsEmpty();
}

void DecodingService::Finish(const std::shared_ptr<Reading>& reading, DecodingState state) {
  const std::scoped_lock lock(mutex_);
  reading->isRunning = false;
  reading->state = state;
  std::erase(running_, reading);
  for (const auto& record : records_) {
    const auto found = std::ranges::find(record->readings, reading);
    if (found == record->readings.end()) continue;
    // What is held may have grown since it was begun. Who goes through files can wait for room, neighbours
    // are not worth it.
    const bool isUseless = record->IsNeighbours() &&
                           (state == DecodingState::Failed || reading->waitsForRoom || HeldBytes() > budget_);
    if (isUseless || reading->stop.stop_requested()) record->readings.erase(found);
  }
}

}  // namespace lumidex
