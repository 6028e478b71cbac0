#pragma once
// One load of a list file, from the emptying of the Display list to the closing steps. Others may be asked
// for in its yields: the newest is the one that counts.

#include "forms/app.h"

namespace lumidex {

class ListLoad {
 public:
  // Begins: a load that is under way gives way to this one. From here on the Display list counts as a part.
  explicit ListLoad(App& app);
  ~ListLoad();
  ListLoad(const ListLoad&) = delete;
  ListLoad& operator=(const ListLoad&) = delete;

  // True when another load or Remove All has come since; the Display list is theirs then.
  bool GivesWay() const;
  // The list is whole, as far as the file goes.
  void IsRead();
  // The load has ended as it should, so there is nothing to recover. A load that never says so has failed.
  void Stands();

 private:
  App& app_;
  std::uint64_t number_;
};

}  // namespace lumidex
