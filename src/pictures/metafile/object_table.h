#pragma once
// The objects a metafile has made, by number.

#include <cstdint>
#include <vector>

#include "pictures/metafile/device_state.h"

namespace lumidex::metafile {

class ObjectTable {
 public:
  // A record names its objects with 16 bits; no file needs more.
  static constexpr std::size_t most = 65536;

  // Puts the object into the lowest free place.
  void Add(Object object) {
    while (lowestFree_ < places_.size() && places_[lowestFree_].used) ++lowestFree_;
    if (lowestFree_ < most) Set(lowestFree_, std::move(object));
  }
  void Set(std::size_t number, Object object) {
    if (number >= most) return;
    if (number >= places_.size()) places_.resize(number + 1);
    places_[number] = {true, std::move(object)};
  }
  void Remove(std::size_t number) {
    if (number >= places_.size()) return;
    places_[number] = {};
    lowestFree_ = std::min(lowestFree_, number);
  }
  const Object& Get(std::size_t number) const {
    static const Object none;
    return number < places_.size() ? places_[number].object : none;
  }

 private:
  struct Place {
    bool used = false;
    Object object;
  };
  std::vector<Place> places_;
  std::size_t lowestFree_ = 0;
};

}  // namespace lumidex::metafile
