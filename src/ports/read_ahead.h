#pragma once
// Pictures that will probably be asked for next, opened and decoded before they are. What comes of it can
// only be seen in how fast they are there.
//
// This class alone decodes nothing until RunNext is called: a platform calls it where and when it sees fit,
// on a thread of its own or not at all. Every function may be called from any thread.

#include <atomic>
#include <functional>
#include <mutex>
#include <optional>

#include "ports/file_system.h"
#include "ports/open_picture.h"

namespace lumidex {

class ReadAhead {
 public:
  // The size in designed pixels at which a picture of that full size will be shown; called on any thread.
  using ShownSize = std::function<Size(Size full)>;
  struct Wish {
    std::vector<std::string> paths;  // the most likely first
    DecoderOptions decoder;
    ShownSize shown;
  };

  static constexpr std::size_t defaultBudget = std::size_t{256} << 20;

  // Pixels of the current picture and of those read ahead take no more than `budget` bytes together; what
  // does not fit in is not read.
  explicit ReadAhead(const FileSystem& files, std::size_t budget = defaultBudget)
      : files_(files), budget_(budget) {}
  virtual ~ReadAhead() = default;
  ReadAhead(const ReadAhead&) = delete;
  ReadAhead& operator=(const ReadAhead&) = delete;

  // What is shown now, which is kept so that going back to it costs nothing, and what may come next. Replaces
  // all wishes before; what is in neither is let go, and not worked on any further.
  void Want(const OpenedPicture& current, Wish wish);
  // The picture if it was opened ahead and the file is still that of the stamp. Else the empty one, and all
  // work makes way for whoever opens the file now, until somebody wants something anew. A picture that is
  // still being decoded can be had too: who asks it for pixels waits for no more than what is left of that.
  Picture Find(const std::string& path, std::uint64_t stamp, const DecoderOptions& decoder);
  // Device pixels for each designed pixel, 1 at the beginning.
  void SetDevicePixels(double ratio) { devicePixels_ = ratio; }

  // Opens and decodes the next picture that is wanted. False when none is left. Not for two threads at once.
  bool RunNext();
  // The wishes not yet worked on.
  bool HasWork() const;
  // True as long as the current picture has not been decoded: that comes first.
  bool CurrentIsPending() const;

 protected:
  // Somebody has wanted or looked for something.
  virtual void Woken() {}
  // Ends running work as soon as may be.
  void StopRunning();

 private:
  using StopMark = std::shared_ptr<std::atomic<bool>>;
  struct Job {
    std::string path;
    DecoderOptions decoder;
    ShownSize shown;
    StopMark stop;
  };
  // What RunNext works on, from its start to its end; the picture is there once it is open.
  struct Running {
    OpenedPicture opened;
    StopMark stop;
    bool taken = false;  // somebody shows it, so it must come to its end
  };

  // The place of a path among the wishes, their number for one that is not wanted.
  std::size_t Rank(const std::string& path) const;
  bool Knows(const std::string& path) const;
  std::size_t HeldBytes() const;
  void StopUnlessTaken();
  std::optional<Job> StartNext();
  OpenedPicture Open(const Job& job) const;
  Size DeviceSize(Size shown) const;
  // Makes the running picture known when it fits in the budget.
  bool Admit(const OpenedPicture& opened, Size wanted);
  void Finish(bool keep);

  const FileSystem& files_;
  const std::size_t budget_;
  std::atomic<double> devicePixels_{1.0};

  mutable std::mutex mutex_;
  Wish wish_;
  std::vector<std::string> pending_;  // of the wish's paths those that are still to be read, in their order
  OpenedPicture current_;
  std::vector<OpenedPicture> ready_;
  std::optional<Running> running_;
};

}  // namespace lumidex
