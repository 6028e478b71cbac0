#include "platform/qt/driver_hooks.h"

#include <QCoreApplication>
#include <QFile>
#include <QPixmap>

#include "platform/qt/mirror.h"

namespace lumidex {

void QtDriverHooks::Settle() {
  YieldInRoutine::PushPostponed();
  // What is posted while events are served, as by a list that grows, comes in the second turn.
  for (int turn = 0; turn < 2; ++turn) QCoreApplication::processEvents();
}

bool QtDriverHooks::Screenshot(const std::string& file) {
  Settle();
  QWidget* front = views_.DialogParent();
  return front && front->grab().save(QFile::decodeName(file.c_str()), "PNG");
}

}  // namespace lumidex
