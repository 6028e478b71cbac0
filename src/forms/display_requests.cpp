#include "forms/display_requests.h"

#include <utility>

namespace lumidex {

void DisplayRequests::RunNested(const Display& display) {
  ++nested_;
  try {
    display();
  } catch (...) {
    // What was kept goes with the display that was to run it.
    if (--nested_ == 0) kept_ = nullptr;
    throw;
  }
  --nested_;
}

void DisplayRequests::Run(const Display& display) {
  if (nested_ == mostNested) {
    kept_ = display;
    return;
  }
  RunNested(display);
  while (nested_ == 0 && kept_) RunNested(std::exchange(kept_, nullptr));
}

void DisplayRequests::RunAgain(float zoom, const Display& display) {
  AskForPlace(zoom);
  if (nested_ < mostNested) {
    Run(display);
  } else if (!kept_) {
    kept_ = display;
  }
}

}  // namespace lumidex
