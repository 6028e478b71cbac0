#pragma once
// The memory that a window is painted into. The system provides it page by page as it is written to for the
// first time, which takes as long as all of the painting of a large window.

#include <QWidget>

namespace lumidex {

// Has it provided at once, for the size that the window has now, before it is painted for the first time. For
// a window that stands, in a time in which there is nothing else to do.
void ProvidePaintedMemory(QWidget& window);

}  // namespace lumidex
