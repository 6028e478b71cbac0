#include "scenario/front_end.h"

namespace lumidex::scenario {

std::unique_ptr<FrontEnd> MakeWindows(int&, char**) {
  return nullptr;
}

}  // namespace lumidex::scenario
