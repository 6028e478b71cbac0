#pragma once
// Decodes pictures away from the program: those on the screen first, then those that will be asked for next.
//
// Who paints a picture calls Show, goes on painting what was there, and paints the pixels when they come.
//
// Who goes through files (a step to the neighbours, a batch, a scan) says beforehand which files, in which
// order, and how much of each, through the image control that is going to open them (Gvbox::ReadFilesAhead).
// Then it opens one after the other there as if nobody had read ahead, and finds them opened or decoded. The
// order may change on the way and so may the files: what was read in vain is let go.
//
// A page of thumbnails need not read ahead. `Picture` of an image control with a ThumbnailSize is there at
// once, and decoded when its cell is shown: in the order of the cells, on all processors. Each picture that
// is still to come keeps its file open.
//
// What is read ahead lets everybody else have the processor first, until somebody waits for it.
//
// This class decodes only when RunNext is called: by the threads of a desktop (platform/posix/
// decoding_threads.h), by a test. Headless, what is shown is decoded at once and nothing is read ahead. Every
// function may be called from any thread.

#include <atomic>
#include <deque>
#include <exception>
#include <functional>
#include <mutex>
#include <optional>

#include "ports/file_system.h"
#include "ports/open_picture.h"
#include "ports/path_list.h"

namespace lumidex {

// How far a picture has come. After Failed nothing more will come of it.
enum class DecodingState { Asked, HeaderKnown, Decoded, Failed };

// Whose turn it is: the screen's first. Neighbours wait until the program idles.
enum class DecodingPriority { Screen, Neighbours, Page, Batch };

// How much of a picture is wanted: its header alone, no fewer pixels than those of a size, pixels of just the
// size at which it will be shown, or all.
enum class DecodingExtent { Header, AtLeast, Shown, Full };

class DecodingService {
 public:
  // The size in device pixels at which a picture of that full size will be shown; called on any
  // thread.
  using ShownSize = std::function<Size(Size full)>;
  struct Wish {
    PathList paths;  // in the order in which they will be asked for
    DecodingExtent extent = DecodingExtent::Header;
    ShownSize shown = {};  // for the extents with a size
    DecoderOptions decoder = {};
  };
  // Called once, on any thread: the pixels as window systems paint them, none when they can't be had.
  using Ready = std::function<void(const Pixels& pixels)>;

  static constexpr std::size_t defaultBudget = std::size_t{256} << 20;

  // Pixels that were read ahead, and the picture that is kept for going back to it, take no more than
  // `budget` bytes together; what has no room is not decoded.
  explicit DecodingService(const FileSystem& files, std::size_t budget = defaultBudget);
  virtual ~DecodingService();
  DecodingService(const DecodingService&) = delete;
  DecodingService& operator=(const DecodingService&) = delete;

  // A picture that is to be shown. Letting go of it ends the work on it, unless `ready` is being called.
  class Showing;
  // `size` in device pixels. What needs no work is ready before this returns.
  std::unique_ptr<Showing> Show(const Picture& picture, Size size, DecodingPriority priority, Ready ready);
  // What showing a picture raises other than for a bad file or for lack of memory. Set before anything is
  // shown; called on any thread.
  std::function<void(std::exception_ptr error)> OnUnexpected;

  // Somebody who goes through files. What was read for it goes with it. The service must outlive it.
  class Client;

  // The picture if it was opened ahead and the file is still that of the stamp, else the empty one. It may
  // still be on its way to being decoded. Neighbours give way to whoever looks in vain; the other clients go
  // on behind the file that was looked for.
  Picture Find(const std::string& path, std::uint64_t stamp, const DecoderOptions& decoder);
  // Of a file that somebody goes through; nothing when nobody does.
  std::optional<DecodingState> StateOf(const std::string& path) const;

  // Does the next piece of work; false when there is none. Neighbours are left alone unless the program
  // idles. May be called by several threads at once.
  bool RunNext(bool isIdle = true);
  // The same for pictures that are to be shown alone.
  bool RunNextShowing();
  // True when something waits to be done, also where it has to wait for something else.
  bool HasWork() const;
  // True when there would be work if the program idled.
  bool HasWorkForIdleness() const;

 protected:
  // Something was asked for. `isToShow` when it is to be shown.
  virtual void Woken(bool /*isToShow*/) {}
  // Between rows of what is read ahead, until somebody waits for it: whoever else has something to do may go
  // first. Called on the thread that decodes.
  virtual void GiveWay() {}
  // Ends running work as soon as may be and begins none.
  void StopAll();

 private:
  struct Order;
  struct Reading;
  struct Record;

  std::unique_lock<std::mutex> Lock() const;
  std::shared_ptr<Order> TakeOrder();
  void Run(Order& order);
  void Withdraw(const std::shared_ptr<Order>& order);
  bool IsToBeShown(const Picture& picture) const;

  void Want(Record& record, DecodingPriority priority, Wish wish, const OpenedPicture& current);
  void Keep(Record& record, const OpenedPicture& current);
  void GoOnBehind(Record& record, const std::string& path);
  struct Taken;
  Taken TakeReadings(bool isIdle);
  std::shared_ptr<Reading> NextOf(Record& record, bool isIdle);
  std::shared_ptr<Reading> Begin(Record& record);
  bool MayBegin(const Record& record, bool isIdle) const;
  void Run(const std::shared_ptr<Reading>& reading);
  void ReadHeaders(const std::vector<std::shared_ptr<Reading>>& readings);
  OpenedPicture OpenAhead(const Reading& reading) const;
  // True when the picture is decoded now.
  bool DecodeAhead(Reading& reading);
  void TellOpened(Reading& reading, OpenedPicture opened);
  // Under the mutex.
  void Finish(const std::shared_ptr<Reading>& reading, DecodingState state);
  void StopUnwanted();
  // What is being made of the picture for being shown at another size would be waited for in vain.
  void StopOtherSizes(const Order& order);
  std::size_t HeldBytes() const;
  bool HasRoomFor(const Reading& reading) const;

  const FileSystem& files_;
  const std::size_t budget_;

  mutable std::mutex mutex_;
  bool ends_ = false;
  std::vector<std::shared_ptr<Order>> orders_;  // waiting and running, the oldest first
  std::atomic<bool> hasWaitingOrder_{false};
  std::vector<std::shared_ptr<Record>> records_;   // of the clients
  std::vector<std::shared_ptr<Reading>> running_;  // of any client, also of one that has gone
  // Opened files that were asked for and had only their headers read. To close thousands of them takes as
  // long as to open them, so that is done by those who read the next ones, but for the last, which is in use.
  std::vector<std::shared_ptr<Reading>> spent_;
};

class DecodingService::Showing {
 public:
  Showing(DecodingService& service, std::shared_ptr<Order> order);
  ~Showing();
  Showing(const Showing&) = delete;
  Showing& operator=(const Showing&) = delete;
  DecodingState State() const;

 private:
  DecodingService& service_;
  std::shared_ptr<Order> order_;
};

class DecodingService::Client {
 public:
  explicit Client(DecodingService& service);
  ~Client();
  Client(const Client&) = delete;
  Client& operator=(const Client&) = delete;
  // Replaces what was wished before. `current` is the picture that the client has now; neighbours keep it, so
  // that going back to it costs nothing.
  void Want(DecodingPriority priority, Wish wish, const OpenedPicture& current = {});

 private:
  DecodingService& service_;
  std::shared_ptr<Record> record_;
};

}  // namespace lumidex
