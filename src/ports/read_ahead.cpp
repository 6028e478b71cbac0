#include "ports/read_ahead.h"

#include <algorithm>
#include <cmath>
#include <exception>

#include "base/run_time_error.h"

namespace lumidex {
namespace {

// Ends early once the mark is set: to a decoder the file is cut there, so it soon comes to its end. What it
// gives then is of no use.
class StoppableSource final : public ByteSource {
 public:
  StoppableSource(std::shared_ptr<const ByteSource> source, std::shared_ptr<const std::atomic<bool>> stop)
      : source_(std::move(source)), stop_(std::move(stop)) {}
  std::uint64_t Size() const override { return source_->Size(); }
  std::size_t ReadAt(std::uint64_t offset, std::span<std::uint8_t> into) const override {
    return *stop_ ? 0 : source_->ReadAt(offset, into);
  }

 private:
  std::shared_ptr<const ByteSource> source_;
  std::shared_ptr<const std::atomic<bool>> stop_;
};

// What the pixels will take. Formats that can reduce do so in eighths of both sides, until neither would be
// shorter than asked for.
std::size_t BytesFor(const Picture& picture, Size wanted) {
  const Size full = picture.GetSize();
  const auto eighths = [](int whole, int asked) { return (std::int64_t{asked} * 8 + whole - 1) / whole; };
  const std::int64_t kept =
      picture.IsReducible()
          ? std::clamp<std::int64_t>(
                std::max(eighths(full.width, wanted.width), eighths(full.height, wanted.height)), 1, 8)
          : 8;
  const auto side = [&](int whole) { return static_cast<std::size_t>((whole * kept + 7) / 8); };
  return side(full.width) * side(full.height) * 4;
}

}  // namespace

std::size_t ReadAhead::Rank(const std::string& path) const {
  return static_cast<std::size_t>(std::ranges::find(wish_.paths, path) - wish_.paths.begin());
}

bool ReadAhead::Knows(const std::string& path) const {
  const auto isIt = [&](const OpenedPicture& opened) {
    return opened.path == path && opened.decoder == wish_.decoder;
  };
  return isIt(current_) || std::ranges::any_of(ready_, isIt) ||
         (running_ && !*running_->stop && isIt(running_->opened));
}

std::size_t ReadAhead::HeldBytes() const {
  std::size_t bytes = current_.picture.HeldBytes();
  for (const OpenedPicture& opened : ready_) bytes += opened.picture.HeldBytes();
  return bytes;
}

void ReadAhead::StopUnlessTaken() {
  if (running_ && !running_->taken) *running_->stop = true;
}

void ReadAhead::StopRunning() {
  const std::scoped_lock lock(mutex_);
  pending_.clear();
  StopUnlessTaken();
}

void ReadAhead::Want(const OpenedPicture& current, Wish wish) {
  {
    const std::scoped_lock lock(mutex_);
    wish_ = std::move(wish);
    const std::size_t unwanted = wish_.paths.size();
    // What was current is a neighbour now, as after each step.
    if (!(current_.picture == current.picture)) ready_.push_back(current_);
    current_ = current;
    std::erase_if(ready_, [&](const OpenedPicture& opened) {
      return Rank(opened.path) == unwanted || opened.path == current_.path ||
             !(opened.decoder == wish_.decoder);
    });
    std::ranges::sort(ready_, {}, [&](const OpenedPicture& opened) { return Rank(opened.path); });
    while (!ready_.empty() && HeldBytes() > budget_) ready_.pop_back();
    if (running_ && Rank(running_->opened.path) == unwanted) StopUnlessTaken();
    pending_.clear();
    for (const std::string& path : wish_.paths) {
      if (!Knows(path)) pending_.push_back(path);
    }
  }
  Woken();
}

Picture ReadAhead::Find(const std::string& path, std::uint64_t stamp, const DecoderOptions& decoder) {
  Picture found;
  {
    const std::scoped_lock lock(mutex_);
    if (current_.IsFor(path, stamp, decoder)) found = current_.picture;
    for (const OpenedPicture& opened : ready_) {
      if (opened.IsFor(path, stamp, decoder)) found = opened.picture;
    }
    if (running_ && !*running_->stop && running_->opened.IsFor(path, stamp, decoder)) {
      found = running_->opened.picture;
      running_->taken = true;
    }
    if (found.IsEmpty()) {
      pending_.clear();
      StopUnlessTaken();
    }
  }
  Woken();
  return found;
}

bool ReadAhead::HasWork() const {
  const std::scoped_lock lock(mutex_);
  return !pending_.empty();
}

bool ReadAhead::CurrentIsPending() const {
  const std::scoped_lock lock(mutex_);
  return !current_.picture.IsEmpty() && current_.picture.HeldBytes() == 0;
}

std::optional<ReadAhead::Job> ReadAhead::StartNext() {
  const std::scoped_lock lock(mutex_);
  if (pending_.empty()) return {};
  Job job{pending_.front(), wish_.decoder, wish_.shown, std::make_shared<std::atomic<bool>>(false)};
  pending_.erase(pending_.begin());
  running_ = Running{{job.path, 0, job.decoder, {}}, job.stop};
  return job;
}

OpenedPicture ReadAhead::Open(const Job& job) const {
  const std::uint64_t stamp = PictureStamp(files_, job.path);
  if (stamp == 0) throw RunTimeError(ErrorNumber::FileNotFound);
  PictureData data = OpenPictureData(files_, job.path);
  PictureData stoppable(std::make_shared<StoppableSource>(data.SharedSource(), job.stop), data.Extension());
  stoppable.paletteFile = std::move(data.paletteFile);
  OpenOptions options;
  options.decoder = job.decoder;
  return {job.path, stamp, job.decoder, Picture::Open(stoppable, options)};
}

Size ReadAhead::DeviceSize(Size shown) const {
  const auto side = [this](int length) {
    return std::max(1, static_cast<int>(std::ceil(length * devicePixels_)));
  };
  return {side(shown.width), side(shown.height)};
}

bool ReadAhead::Admit(const OpenedPicture& opened, Size wanted) {
  const std::scoped_lock lock(mutex_);
  if (*running_->stop || HeldBytes() + BytesFor(opened.picture, wanted) > budget_) return false;
  running_->opened = opened;
  return true;
}

void ReadAhead::Finish(bool keep) {
  const std::scoped_lock lock(mutex_);
  OpenedPicture& opened = running_->opened;
  const bool wanted = Rank(opened.path) < wish_.paths.size();
  // What is held may have grown since the picture was let in.
  const bool fits = HeldBytes() + opened.picture.HeldBytes() <= budget_;
  if (keep && wanted && fits && !*running_->stop) ready_.push_back(std::move(opened));
  running_.reset();
}

bool ReadAhead::RunNext() {
  const std::optional<Job> job = StartNext();
  if (!job) return false;
  bool keep = false;
  try {
    const OpenedPicture opened = Open(*job);
    const Size full = opened.picture.GetSize();
    const Size wanted = DeviceSize(job->shown ? job->shown(full) : full);
    keep = Admit(opened, wanted);
    // A drawing is made at the very size it is shown at, and quickly; having it open is enough.
    if (keep && !opened.picture.IsScalable()) static_cast<void>(opened.picture.PixelsFor(wanted));
  } catch (const std::exception&) {
    // Whoever shows the picture meets the same again, be it a bad file or a lack of memory.
    keep = false;
  }
  Finish(keep);
  return true;
}

}  // namespace lumidex
