// The world of the random user: pictures of many kinds, some of them damaged, lists, a second drive.

#include "base/text.h"
#include "random_user/acts.h"

namespace lumidex::random_user {
namespace {

using scenario::Execution;

struct Places {
  const char* separator;
  std::string pictures, more, deep, program, other;
};

Places PlacesOf(bool drives) {
  if (drives) return {"\\", "C:\\Pics", "C:\\Pics\\more", "C:\\Pics\\more\\deep", "C:\\Lumidex", "D:\\"};
  return {"/",
          "/home/ada/Pictures",
          "/home/ada/Pictures/more",
          "/home/ada/Pictures/more/deep",
          "/opt/lumidex",
          "/media/disc/"};
}

Places PlacesOf(Execution& run) {
  return PlacesOf(run.World().files.Separator() == '\\');
}

std::string Quoted(const std::string& text) {
  return "\"" + text + "\"";
}

std::string PictureLine(const std::string& path, Random& random) {
  return "file " + Quoted(path) + " picture " + Number(random.Between(1, 300)) + "x" +
         Number(random.Between(1, 200));
}

// A path at which something may stand or may not.
std::string AnyPath(const Places& places, Random& random) {
  static const std::vector<std::string> names{"a.bmp", "b.jpg", "c.gif",   "d.png",    "e.ico",   "f.tif",
                                              "g.bmp", "h.ppm", "bad.bmp", "note.txt", "new.bmp", "list.lst"};
  const std::vector<std::string> folders{places.pictures, places.more, places.deep};
  return random.Of(folders) + places.separator + random.Of(names);
}

}  // namespace

std::vector<std::string> WorldLines(Random& random) {
  const bool drives = random.Chance(70);
  const Places places = PlacesOf(drives);
  std::vector<std::string> lines{drives ? "drives" : "slashes"};
  lines.push_back(drives ? "drive D:" : "drive /media/disc");
  for (const char* name : {"a.bmp", "b.jpg", "c.gif", "d.png", "e.ico", "f.tif", "g.bmp", "h.ppm"}) {
    lines.push_back(PictureLine(places.pictures + places.separator + name, random));
  }
  for (const char* name : {"a.bmp", "b.jpg"}) {
    lines.push_back(PictureLine(places.more + places.separator + name, random));
    lines.push_back(PictureLine(places.deep + places.separator + name, random));
  }
  lines.push_back("file " + Quoted(places.pictures + places.separator + "bad.bmp") + " text \"no picture\"");
  lines.push_back("file " + Quoted(places.pictures + places.separator + "note.txt") + " text \"a note\"");
  lines.push_back(PictureLine(places.other + "a.bmp", random));
  lines.push_back("file " + Quoted(places.program + places.separator + "TIPOFDAY.TXT") +
                  " text \"one%0D%0Atwo%0D%0A\"");
  if (random.Chance(70)) lines.push_back("current directory " + Quoted(places.pictures));
  if (random.Chance(20)) {
    lines.push_back("command line \"" + places.pictures + places.separator + "a.bmp\"");
  }
  return lines;
}

std::string AnyWorldChange(Execution& run, Random& random) {
  const Places places = PlacesOf(run);
  const MemoryFileSystem& files = run.World().files;
  const std::string path = AnyPath(places, random);
  const auto facts = files.Look(path);
  switch (random.Below(5)) {
    case 0:
      return facts ? "remove " + Quoted(path)
                   : PictureLine(places.pictures + places.separator + "new.bmp", random);
    case 1:
      return "file " + Quoted(path) + " text \"not any more\"";
    case 2:
      return facts ? "hide " + Quoted(path) : "directory " + Quoted(places.deep);
    case 3: {
      const std::string& folder = random.Chance(50) ? places.more : places.deep;
      return files.Look(folder) ? "remove " + Quoted(folder) : "directory " + Quoted(folder);
    }
    default:
      return PictureLine(places.deep + places.separator + "new" + Number(random.Below(20)) + ".bmp", random);
  }
}

std::string AnyAnswer(Execution& run, ScriptedDialogs::Box box, Random& random) {
  static const std::vector<std::string> replies{"1", "5", "30", "31", "0", "-5", "2.6", "abc", "", " 7"};
  static const std::vector<std::vector<std::string>> buttons{
      {"Ok"},        {"Ok", "Cancel"},   {"Abort", "Retry", "Ignore"}, {"Yes", "No", "Cancel"},
      {"Yes", "No"}, {"Retry", "Cancel"}};
  switch (box) {
    case ScriptedDialogs::Box::Message: {
      const auto kind = static_cast<std::size_t>(run.World().dialogs.messages.back().buttons);
      return "answer " + random.Of(buttons[kind]);
    }
    case ScriptedDialogs::Box::Input:
      return random.Chance(25) ? "cancel input" : "answer input \"" + random.Of(replies) + "\"";
    case ScriptedDialogs::Box::File:
      if (random.Chance(25)) return "cancel file";
      return "answer file " + Quoted(AnyPath(PlacesOf(run), random)) + " filter " +
             Number(random.Between(1, 2));
  }
  return {};
}

}  // namespace lumidex::random_user
