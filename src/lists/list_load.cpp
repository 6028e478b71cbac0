#include "lists/list_load.h"

#include "core/list_text.h"
#include "forms/WPaper2.h"

namespace lumidex {

ListLoad::ListLoad(App& app) : app_(app), number_(++app.listLoading.begun) {
  ListLoading& loading = app.listLoading;
  // A part that another load has read so far is not worth recovering; what was there before it is.
  if (!loading.isPart) {
    loading.before = app.WPaper2.LstRight.ListCount() == 0 ? std::string() : ListFileText(app);
  }
  loading.isPart = true;
}

ListLoad::~ListLoad() {
  if (!GivesWay()) IsRead();
}

bool ListLoad::GivesWay() const {
  return app_.listLoading.begun != number_;
}

void ListLoad::IsRead() {
  app_.listLoading.isPart = false;
}

void ListLoad::Stands() {
  if (!GivesWay()) app_.listLoading.before.reset();
}

}  // namespace lumidex
