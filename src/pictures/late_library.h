#pragma once
// Libraries that only some pictures need are loaded when the first of those comes: each that is there at the
// start costs it time and memory, and brings others along.
//
// A header for each of them (late_cairo.h, late_lcms.h, late_tiff.h) declares its functions under their own
// names in our namespace, where they come before those of the library's own header: they are called as if
// they were linked.

#include <atomic>
#include <mutex>

namespace lumidex {

class LateLibrary {
 public:
  // `file` is what programs link it under, as "libtiff.so.6".
  explicit constexpr LateLibrary(const char* file) : file_(file) {}

  // Loads the library, which then stays; false where the system has none.
  bool IsThere();
  // Raises InvalidPicture where there is none: what needs it can't be shown.
  void Need();
  // The address of a function. Raises as Need() does.
  void* Find(const char* name);

 private:
  const char* file_;
  std::once_flag looked_;
  void* handle_ = nullptr;
};

template <class Function>
class LateAddress {
 public:
  constexpr LateAddress(LateLibrary& library, const char* name) : library_(library), name_(name) {}

 protected:
  Function* Get() const {
    Function* address = address_.load(std::memory_order_acquire);
    if (address == nullptr) {
      address = reinterpret_cast<Function*>(library_.Find(name_));
      address_.store(address, std::memory_order_release);
    }
    return address;
  }

 private:
  LateLibrary& library_;
  const char* name_;
  mutable std::atomic<Function*> address_ = nullptr;
};

// Is called as the function itself, and raises InvalidPicture where that is not to be had.
template <class Function>
class LateFunction;

template <class Result, class... Arguments>
class LateFunction<Result(Arguments...)> : public LateAddress<Result(Arguments...)> {
 public:
  using LateAddress<Result(Arguments...)>::LateAddress;
  Result operator()(Arguments... arguments) const { return this->Get()(arguments...); }
};

template <class Result, class... Arguments>
class LateFunction<Result(Arguments..., ...)> : public LateAddress<Result(Arguments..., ...)> {
 public:
  using LateAddress<Result(Arguments..., ...)>::LateAddress;
  template <class... More>
  Result operator()(Arguments... arguments, More... more) const {
    return this->Get()(arguments..., more...);
  }
};

}  // namespace lumidex

// Declares `function`, which a header of the library declares for the linker, in the namespace around.
#define LUMIDEX_LATE_FUNCTION(library, function) \
  inline constinit const LateFunction<decltype(::function)> function(library, #function)
