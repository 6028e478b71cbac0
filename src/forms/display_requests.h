#pragma once
// What has been asked of the picture area. Bringing a picture up serves events, and any of them may ask for
// another one: a display takes a token and asks it whether it is stale. The newest request wins.

#include <cstdint>
#include <functional>
#include <string>

namespace lumidex {

class DisplayRequests {
 public:
  using Display = std::function<void()>;

  // Taken before something that serves events, asked behind it.
  class Token {
   public:
    // Something newer was asked for since.
    bool IsStale() const { return *newest_ != number_; }

   private:
    friend class DisplayRequests;
    explicit Token(const std::uint64_t& newest) : newest_(&newest), number_(newest) {}
    const std::uint64_t* newest_;
    std::uint64_t number_;
  };

  // Displays nest inside each other's events so deep and no deeper.
  static constexpr int mostNested = 16;

  DisplayRequests() = default;
  DisplayRequests(const DisplayRequests&) = delete;
  DisplayRequests& operator=(const DisplayRequests&) = delete;

  // The picture of `path` is brought up, empty for none: whoever shows another one leaves the picture alone
  // from now on, and what is told of another one is out of date.
  Token AskForPicture(const std::string& path) {
    if (path != toldOf_) AskForWords(path);
    return Token(++pictures_);
  }
  // The token of whoever asks for nothing, but works on the picture that was asked for last.
  Token WatchPicture() const { return Token(pictures_); }

  // Lasts while a display is under way that the status bar will tell of, as long as none is asked for that it
  // is to tell of another file.
  class Telling {
   public:
    Telling(DisplayRequests& requests, std::string path)
        : requests_(requests), token_(requests.AskForWords(path)) {
      requests_.onItsWay_ = true;
    }
    ~Telling() {
      if (!IsStale()) requests_.onItsWay_ = false;
    }
    Telling(const Telling&) = delete;
    Telling& operator=(const Telling&) = delete;
    bool IsStale() const { return token_.IsStale(); }

   private:
    DisplayRequests& requests_;
    Token token_;
  };

  // The status bar tells of `path` from now on, empty for none.
  Token AskForWords(const std::string& path) {
    toldOf_ = path;
    onItsWay_ = false;
    return Token(++words_);
  }
  Token WatchWords() const { return Token(words_); }
  // The file of the last Telling as long as it lasts, else empty.
  const std::string& OnItsWay() const {
    static const std::string none;
    return onItsWay_ ? toldOf_ : none;
  }

  // Zoom, stretch or the area have changed. A display that has not placed its picture yet places it for what
  // holds by then; one that has done so already places it anew.
  void AskForPlace(float zoom) {
    zoom_ = zoom;
    isMisplaced_ = true;
  }
  // Another picture is there, which is to be placed as was asked for last.
  void AskForPlace() { isMisplaced_ = true; }
  bool IsMisplaced() const { return isMisplaced_; }
  // The picture is being placed now: answers the zoom that was asked for last.
  float TakePlace() {
    isMisplaced_ = false;
    return zoom_;
  }

  // Runs a display. One that is asked for inside more than `mostNested` others is kept, the newest only, and
  // run at the end of the outermost.
  void Run(const Display& display);
  // The same for one that shows what is there at another zoom, stretch or size. It replaces none that is
  // kept, since that one will be shown so itself.
  void RunAgain(float zoom, const Display& display);
  // The picture area is emptied: nothing that was kept is to be shown there.
  void ForgetKept() { kept_ = nullptr; }

 private:
  void RunNested(const Display& display);

  std::uint64_t pictures_ = 0, words_ = 0;
  std::string toldOf_;
  bool onItsWay_ = false;
  float zoom_ = 0;
  bool isMisplaced_ = false;
  int nested_ = 0;
  Display kept_;
};

}  // namespace lumidex
