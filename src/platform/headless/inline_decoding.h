#pragma once
// Decodes what is to be shown at once, where it is asked for. Reads nothing ahead unless a test lets it, so
// that scenarios are the same with and without.

#include "ports/decoding.h"

namespace lumidex {

class InlineDecoding final : public DecodingService {
 public:
  using DecodingService::DecodingService;

 private:
  void Woken(bool isToShow) override {
    while (isToShow && RunNextShowing()) {
    }
  }
};

}  // namespace lumidex
