
#include "support/test_program.h"
#include "base/text.h"
#include "forms/WPaper2.h"

namespace lumidex {

std::string BitmapFile(int width, int height) {
  std::string bytes;
  const auto add = [&](std::uint32_t value, int count) {
    for (int i = 0; i < count; ++i) bytes += static_cast<char>(value >> (8 * i) & 0xFF);
  };
  const int rowBytes = (width * 3 + 3) / 4 * 4;
  bytes += "BM";
  add(static_cast<std::uint32_t>(54 + rowBytes * height), 4);
  add(0, 4);
  add(54, 4);
  add(40, 4);
  add(static_cast<std::uint32_t>(width), 4);
  add(static_cast<std::uint32_t>(height), 4);
  add(1, 2);
  add(24, 2);
  for (int i = 0; i < 6; ++i) add(0, 4);
  bytes.append(static_cast<std::size_t>(rowBytes * height), '\0');
  return bytes;
}

void TestProgram::ShowMainWindow() {
  WireWindows(app);
  app.WPaper2.OnLoad = nullptr;
  app.WPaper2.Show();
}

void TestProgram::FillDisplayList(int count, int width, int height) {
  for (int i = 0; i < count; ++i) {
    const std::string path = "C:\\Pics\\p" + Number(i) + ".bmp";
    platform.files.AddFile(path, BitmapFile(width, height));
    app.WPaper2.LstRight.AddItem(path);
  }
  app.WPaper2.lblCount.Caption = Number(count);
}

void TestProgram::FillSelectionList(int count) {
  for (int i = 0; i < count; ++i) {
    const std::string path = "C:\\Found\\f" + Number(i) + ".bmp";
    platform.files.AddFile(path, BitmapFile(20, 10));
    app.WPaper2.LstLeft.AddItem(path);
  }
}

}  // namespace lumidex
