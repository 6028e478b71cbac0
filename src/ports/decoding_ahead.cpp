// The part of the decoding service that reads files ahead.

#include <algorithm>
#include <chrono>
#include <exception>
#include <limits>
#include <utility>

#include "base/run_time_error.h"
#include "pictures/codec.h"
#include "pictures/pace.h"
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
  const std::size_t end = most < wish.paths.Count() - first ? first + most : wish.paths.Count();
  for (std::size_t place = first; place < end; ++place) {
    if (wish.paths[place] == path) return place;
  }
  return wish.paths.Count();
}

bool DecodingService::Record::Knows(std::string_view path) const {
  const auto isIt = [&](const OpenedPicture& opened) {
    return opened.path == path && opened.decoder == wish.decoder;
  };
  return isIt(current) || std::ranges::any_of(readings, [&](const auto& reading) {
           return !reading->stop.stop_requested() && isIt(reading->opened);
         });
}

DecodingService::Reading* DecodingService::Record::ReadingOf(const std::string& path, std::uint64_t stamp,
                                                             const DecoderOptions& decoder) const {
  const auto found = std::ranges::find_if(readings, [&](const auto& reading) {
    return reading->opened.IsFor(path, stamp, decoder) && !reading->opened.picture.IsEmpty() &&
           !reading->stop.stop_requested();
  });
  return found == readings.end() ? nullptr : found->get();
}

std::deque<std::shared_ptr<DecodingService::Reading>>::iterator DecodingService::Record::Find(
    const std::shared_ptr<Reading>& reading) {
  if (!IsForHeaders()) return std::ranges::find(readings, reading);
  const auto found = std::ranges::lower_bound(readings, reading->place, {}, &PlaceIn);
  return found != readings.end() && *found == reading ? found : readings.end();
}

void DecodingService::Record::DropBefore(std::size_t place, std::vector<std::shared_ptr<Reading>>& spent) {
  behind = place;
  next = std::max(next, place);
  while (!readings.empty() && readings.front()->place < place) {
    const Reading& reading = *readings.front();
    if (!reading.isTaken) readings.front()->stop.request_stop();
    if (reading.isRunning) --running;
    if (reading.IsSpent()) spent.push_back(std::move(readings.front()));
    readings.pop_front();
  }
}

DecodingService::Client::Client(DecodingService& service)
    : service_(service), record_(std::make_shared<Record>()) {
  const auto lock = service_.Lock();
  service_.records_.push_back(record_);
}

DecodingService::Client::~Client() {
  const auto lock = service_.Lock();
  std::erase(service_.records_, record_);
  service_.StopUnwanted();
}

void DecodingService::Client::Want(DecodingPriority priority, Wish wish, const OpenedPicture& current) {
  service_.Want(*record_, priority, std::move(wish), current);
}

void DecodingService::Want(Record& record, DecodingPriority priority, Wish wish,
                           const OpenedPicture& current) {
  std::vector<std::shared_ptr<Reading>> spent;
  {
    const auto lock = Lock();
    spent.swap(spent_);
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
      return isCurrent || reading->place == record.wish.paths.Count() || opened.path == record.current.path ||
             !(opened.decoder == record.wish.decoder) || reading->extent != record.wish.extent;
    });
    std::ranges::sort(record.readings, {}, &Record::PlaceIn);
    while (!record.readings.empty() && HeldBytes() > budget_) record.readings.pop_back();
    record.running = static_cast<std::size_t>(
        std::ranges::count_if(record.readings, [](const auto& reading) { return reading->isRunning; }));
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
  bool isHungry = false, doesGiveWay = false;
  std::vector<std::shared_ptr<Reading>> tooManySpent;
  {
    const auto lock = Lock();
    for (const auto& record : records_) {
      if (record->current.IsFor(path, stamp, decoder)) found = record->current.picture;
      Reading* reading = record->ReadingOf(path, stamp, decoder);
      if (!reading) continue;
      found = reading->opened.picture;
      reading->isTaken = !record->IsNeighbours();
    }
    for (const auto& record : records_) {
      if (!record->IsNeighbours()) {
        GoOnBehind(*record, path);
      } else if (found.IsEmpty()) {
        record->gaveWay = doesGiveWay = true;
      }
      isHungry = isHungry || record->IsHungry();
    }
    if (doesGiveWay) StopUnwanted();
    constexpr std::size_t mostSpent = 2 * Record::mostHeadersAhead;
    if (spent_.size() > mostSpent) tooManySpent.swap(spent_);
  }
  if (isHungry) Woken(false);
  return found;
}

void DecodingService::GoOnBehind(Record& record, const std::string& path) {
  // Whoever goes through files goes forward, and seldom leaves any out.
  constexpr std::size_t mostLeftOut = 64;
  const std::size_t place = record.PlaceOf(path, record.behind, mostLeftOut);
  if (place == record.wish.paths.Count()) return;
  record.DropBefore(place + 1, spent_);
}

std::optional<DecodingState> DecodingService::StateOf(const std::string& path) const {
  const auto lock = Lock();
  for (const auto& record : records_) {
    for (const auto& reading : record->readings) {
      if (reading->opened.path == path) return reading->state;
    }
    if (record->PlaceOf(path, record->next, anywhere) < record->wish.paths.Count())
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
  const auto lock = Lock();
  return orders_.size() > 0 || std::ranges::any_of(records_, [](const auto& record) {
           return !record->gaveWay && record->next < record->wish.paths.Count();
         });
}

bool DecodingService::HasWorkForIdleness() const {
  const auto lock = Lock();
  return std::ranges::any_of(records_, [&](const auto& record) {
    return record->IsNeighbours() && record->next < record->wish.paths.Count() && MayBegin(*record, true);
  });
}

bool DecodingService::MayBegin(const Record& record, bool isIdle) const {
  if (ends_ || record.gaveWay) return false;
  if (!record.IsNeighbours()) return record.HasPlace();
  // One at a time, so that a processor is left to the program.
  return isIdle && orders_.empty() &&
         std::ranges::none_of(record.readings, [](const auto& reading) { return reading->isRunning; });
}

DecodingService::Taken DecodingService::TakeReadings(bool isIdle) {
  Taken taken;
  const auto lock = Lock();
  if (spent_.size() > 1) {
    taken.spent.swap(spent_);
    spent_.push_back(std::move(taken.spent.back()));
    taken.spent.pop_back();
  }
  std::vector<Record*> records;
  for (const auto& record : records_) records.push_back(record.get());
  std::ranges::stable_sort(records, {}, [](const Record* record) { return record->priority; });
  for (Record* record : records) {
    const std::size_t most = record->IsForHeaders() ? Taken::mostHeaders : 1;
    for (auto next = NextOf(*record, isIdle); next;) {
      taken.readings.push_back(std::move(next));
      const bool hasPlace = record->readings.size() < Record::mostHeadersAhead;
      if (taken.readings.size() < most && hasPlace) next = Begin(*record);
    }
    if (taken.readings.empty()) continue;
    for (const auto& reading : taken.readings) reading->isRunning = true;
    record->running += taken.readings.size();
    running_.insert(running_.end(), taken.readings.begin(), taken.readings.end());
    break;
  }
  return taken;
}

std::shared_ptr<DecodingService::Reading> DecodingService::NextOf(Record& record, bool isIdle) {
  for (const auto& reading : record.readings) {
    if (record.IsForHeaders()) break;
    if (!reading->waitsForRoom || reading->isRunning) continue;
    // Those behind it wait for room too.
    if (!HasRoomFor(*reading) || ends_) return nullptr;
    reading->waitsForRoom = false;
    return reading;
  }
  return MayBegin(record, isIdle) ? Begin(record) : nullptr;
}

std::shared_ptr<DecodingService::Reading> DecodingService::Begin(Record& record) {
  while (record.next < record.wish.paths.Count()) {
    const std::string_view path = record.wish.paths[record.next++];
    // A file that is listed twice is opened twice, which is more than a header's worth to find out.
    if (!record.IsForHeaders() && record.Knows(path)) continue;
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
    if (reading->state == DecodingState::Asked) TellOpened(*reading, OpenAhead(*reading));
    state = DecodeAhead(*reading) ? DecodingState::Decoded : DecodingState::HeaderKnown;
  } catch (const std::exception&) {
    // Whoever opens or shows the picture meets the same again, be it a bad file or a lack of memory.
  }
  const auto lock = Lock();
  Finish(reading, state);
}

void DecodingService::ReadHeaders(const std::vector<std::shared_ptr<Reading>>& readings) {
  // Told together, since whoever asks for them meets us at the mutex; but where files come slowly, as they
  // come.
  constexpr std::chrono::milliseconds slow{1};
  constexpr std::chrono::microseconds slowFile{50};  // one that the system does not have in its memory
  auto told = std::chrono::steady_clock::now();
  std::vector<OpenedPicture> opened;
  for (auto reading = readings.begin(); reading != readings.end();) {
    if (hasWaitingOrder_) RunNextShowing();
    opened.emplace_back();
    try {
      // By now somebody may have gone past it.
      if (!(*reading)->stop.stop_requested()) opened.back() = OpenAhead(**reading);
    } catch (const std::exception&) {
      // As above.
    }
    ++reading;
    const auto now = std::chrono::steady_clock::now();
    if (reading != readings.end() && now - told < slow) continue;
    const bool isSlow = now - told >= slowFile * opened.size();
    told = now;
    const auto lock = Lock();
    for (const auto& record : records_) record->headersComeSlowly = isSlow;
    auto finished = reading - static_cast<std::ptrdiff_t>(opened.size());
    for (OpenedPicture& picture : opened) {
      const bool isThere = !picture.picture.IsEmpty();
      if (isThere) (*finished)->opened = std::move(picture);
      Finish(*finished++, isThere ? DecodingState::HeaderKnown : DecodingState::Failed);
    }
    opened.clear();
  }
}

void DecodingService::TellOpened(Reading& reading, OpenedPicture opened) {
  const auto lock = Lock();
  reading.opened = std::move(opened);
  reading.state = DecodingState::HeaderKnown;
}

OpenedPicture DecodingService::OpenAhead(const Reading& reading) const {
  OpenedPicture opened = reading.opened;
  opened.stamp = PictureStamp(files_, opened.path);
  if (opened.stamp == 0) throw RunTimeError(ErrorNumber::FileNotFound).About(opened.path);
  OpenOptions options;
  options.decoder = opened.decoder;
  opened.picture = OpenPicture(files_, opened.path, options);
  return opened;
}

bool DecodingService::DecodeAhead(Reading& reading) {
  const Picture& picture = reading.opened.picture;
  const DecodingExtent extent = reading.extent;
  // A drawing is made at the very size it is shown at, and quickly; having it open is enough.
  if (extent != DecodingExtent::Full && picture.IsScalable()) return false;
  Size size;
  if (extent != DecodingExtent::Full)
    size = reading.shown ? reading.shown(picture.GetSize()) : picture.GetSize();
  {
    const auto lock = Lock();
    reading.size = size;
    reading.estimate = 0;
    const std::size_t others = HeldBytes() - reading.HeldBytes();
    reading.estimate = BytesFor(picture, size, extent);
    reading.waitsForRoom = others + reading.estimate > budget_;
    if (reading.waitsForRoom) return false;
  }
  const std::stop_token stop = reading.stop.get_token();
  const Pace pace([this, &picture] {
    if (!picture.IsAwaited()) GiveWay();
  });
  const Pixels pixels =
      extent == DecodingExtent::Shown ? picture.PixelsToShow(size, stop) : picture.PixelsFor(size, stop);
  return !pixels.IsEmpty();
}

void DecodingService::Finish(const std::shared_ptr<Reading>& reading, DecodingState state) {
  reading->isRunning = false;
  reading->state = state;
  std::erase(running_, reading);
  for (const auto& record : records_) {
    const auto found = record->Find(reading);
    if (found == record->readings.end()) continue;
    --record->running;
    // What is held may have grown since it was begun. Who goes through files can wait for room, neighbours
    // are not worth it.
    const bool isUseless = record->IsNeighbours() &&
                           (state == DecodingState::Failed || reading->waitsForRoom || HeldBytes() > budget_);
    if (isUseless || reading->stop.stop_requested()) record->readings.erase(found);
  }
}

}  // namespace lumidex
