// The layers point one way: every #include of the sources is read and compared with what its folder may know.

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <map>
#include <set>
#include <string>

namespace {

using Folders = std::set<std::string>;

// The rooms of the logic, lowest first: each may know those before it, and itself.
constexpr const char* rooms[] = {"base",       "pictures", "ports",   "controls",    "forms",
                                 "core",       "imaging",  "lists",   "preferences", "slideshow",
                                 "thumbnails", "batch",    "reports", "auxiliary",   "windows"};

const std::map<std::string, Folders>& Allowed() {
  static const std::map<std::string, Folders> allowed = [] {
    std::map<std::string, Folders> all = {
        {"platform/headless", {"base", "pictures", "ports", "controls", "platform/headless"}},
        {"platform/posix", {"base", "pictures", "ports", "platform/posix"}},
        {"platform/qt", {"base", "pictures", "ports", "controls", "forms", "platform/qt", "platform/posix"}},
    };
    Folders below;
    for (const char* room : rooms) {
      below.insert(room);
      all[room] = below;
    }
    return all;
  }();
  return allowed;
}

// "platform/qt" for platform/qt/views/main_view.h, "core" for core/paths.h.
std::string LayerOf(const std::string& path) {
  const auto first = path.find('/');
  if (first == std::string::npos) return {};
  if (path.substr(0, first) != "platform") return path.substr(0, first);
  return path.substr(0, path.find('/', first + 1));
}

TEST(Layers, Every_include_points_down) {
  const std::filesystem::path source = "src";
  int includes = 0;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(source)) {
    const std::string extension = entry.path().extension().string();
    if (extension != ".h" && extension != ".cpp") continue;
    const std::string file = std::filesystem::relative(entry.path(), source).string();
    const std::string layer = LayerOf(file);
    if (layer.empty()) continue;  // main.cpp may know everything
    ASSERT_TRUE(Allowed().contains(layer)) << file << " is in a folder that no rule names";
    std::ifstream stream(entry.path());
    for (std::string line; std::getline(stream, line);) {
      if (line.starts_with("#include <Q")) {
        EXPECT_EQ(layer, "platform/qt") << file << ": " << line;
      }
      if (!line.starts_with("#include \"")) continue;
      const std::string included = line.substr(10, line.rfind('"') - 10);
      EXPECT_TRUE(Allowed().at(layer).contains(LayerOf(included))) << file << ": " << line;
      ++includes;
    }
  }
  EXPECT_GT(includes, 500) << "the sources were not found";
}

}  // namespace
