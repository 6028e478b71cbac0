// The memory that a window is painted into.

#include "platform/qt/painted_memory.h"

#include <sys/mman.h>
#include <unistd.h>

#include <QBackingStore>

#include "qt/qt_world.h"

namespace lumidex {
namespace {

struct PaintedMemoryTest : testing::Test {
  PaintedMemoryTest() {
    window.setUpdatesEnabled(false);
    window.resize(1500, 1000);
    window.show();
  }
  // Of the pages that the window will be painted into those that the system has given.
  double ProvidedShare() const {
    const auto* image = dynamic_cast<const QImage*>(window.backingStore()->paintDevice());
    if (!image) return 0;
    const auto page = static_cast<std::uintptr_t>(sysconf(_SC_PAGESIZE));
    const auto address = reinterpret_cast<std::uintptr_t>(image->constBits());
    const std::uintptr_t begin = address / page * page;
    const std::size_t length = address + static_cast<std::size_t>(image->sizeInBytes()) - begin;
    std::vector<unsigned char> pages((length + page - 1) / page);
    if (mincore(reinterpret_cast<void*>(begin), length, pages.data()) != 0) return 0;
    const auto provided = std::ranges::count_if(pages, [](unsigned char state) { return (state & 1) != 0; });
    return static_cast<double>(provided) / static_cast<double>(pages.size());
  }

  QWidget window;
  PaintedMemory memory;
};

TEST_F(PaintedMemoryTest, Is_there_before_the_window_is_painted) {
  if (madvise(nullptr, 0, MADV_POPULATE_WRITE) != 0)
    GTEST_SKIP() << "this system provides pages one by one alone";
  memory.Begin(window);
  memory.Finish();
  EXPECT_EQ(window.backingStore()->size(), window.size());
  EXPECT_EQ(ProvidedShare(), 1);
}

TEST_F(PaintedMemoryTest, Begun_anew_is_that_of_the_size_that_the_window_has_then) {
  if (madvise(nullptr, 0, MADV_POPULATE_WRITE) != 0)
    GTEST_SKIP() << "this system provides pages one by one alone";
  memory.Begin(window);
  window.resize(1700, 1100);
  memory.Begin(window);
  memory.Finish();
  EXPECT_EQ(window.backingStore()->size(), window.size());
  EXPECT_EQ(ProvidedShare(), 1);
}

TEST_F(PaintedMemoryTest, Of_a_window_that_has_none_is_none) {
  QWidget unseen;
  memory.Begin(unseen);
  memory.Finish();
  EXPECT_FALSE(unseen.backingStore());
}

}  // namespace
}  // namespace lumidex
