// Rules of the house that the sources themselves can be asked about: the layers point one way, and what a
// routine is given outlives its yields.

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <map>
#include <set>
#include <sstream>
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
        {"platform/web", {"platform/web"}},
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

// Those whose routines may yield.
constexpr const char* yieldingRooms[] = {"core",       "imaging", "lists",   "preferences", "slideshow",
                                         "thumbnails", "batch",   "reports", "auxiliary",   "windows"};

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
        EXPECT_TRUE(layer == "platform/qt" || layer == "platform/web") << file << ": " << line;
      }
      if (!line.starts_with("#include \"")) continue;
      const std::string included = line.substr(10, line.rfind('"') - 10);
      EXPECT_TRUE(Allowed().at(layer).contains(LayerOf(included))) << file << ": " << line;
      ++includes;
    }
  }
  EXPECT_GT(includes, 500) << "the sources were not found";
}

// Whoever is given the program that it may change can yield, and in a yield the list or the field that a text
// stood in may be written anew.
TEST(Layers, Routines_that_may_yield_take_text_and_pictures_by_value) {
  constexpr const char* begin = "(App& app,";
  int routines = 0;
  for (const char* room : yieldingRooms) {
    const std::filesystem::path folder = std::filesystem::path("src") / room;
    if (!std::filesystem::exists(folder)) continue;
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
      std::ostringstream content;
      content << std::ifstream(entry.path()).rdbuf();
      const std::string text = content.str();
      for (auto start = text.find(begin); start != std::string::npos; start = text.find(begin, start + 1)) {
        const std::string parameters = text.substr(start, text.find(')', start) - start);
        for (const char* borrowed : {"const std::string&", "std::string_view", "const Picture&"}) {
          EXPECT_EQ(parameters.find(borrowed), std::string::npos) << entry.path() << ": " << parameters;
        }
        ++routines;
      }
    }
  }
  EXPECT_GT(routines, 20) << "the sources were not found";
}

}  // namespace
