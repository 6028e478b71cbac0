#include "pictures/refusal.h"

#include "base/run_time_error.h"

namespace lumidex {

void Refuse(const std::string& reason) {
  throw RunTimeError(ErrorNumber::InvalidPicture, reason);
}

}  // namespace lumidex
