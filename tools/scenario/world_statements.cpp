// Statements that set up the rest of the world: the clock, the process, and the services of the platform.

#include "pictures/pixels.h"
#include "scenario/moments.h"
#include "scenario/sample_pictures.h"
#include "scenario/statements.h"
#include "scenario/targets.h"

namespace lumidex::scenario {
namespace {

// True for the first of two words.
bool Either(Arguments& words, const char* yes, const char* no) {
  return words.Choice({yes, no}) == 0;
}

void Clock(Execution& run, Arguments& words) {
  DateTime now = run.World().events.Now();
  TakeMoment(words, now);
  run.World().events.SetNow(now);
}

// The raw command line: its own quotes belong to it.
void CommandLine(Execution& run, Arguments& words) {
  words.Need("line");
  const Word* first = words.Peek();
  const std::string& text = words.Line().text;
  run.World().process.commandLine = first ? text.substr(first->start) : std::string();
  words.Rest();
}

void AnotherInstance(Execution& run, Arguments& words) {
  words.Need("instance");
  words.Need("runs");
  run.World().process.hasPreviousInstance = true;
}

void ProgramFolder(Execution& run, Arguments& words) {
  words.Need("folder");
  run.World().process.executableFolder = words.Next("the folder");
}

void SpecialFolder(Execution& run, Arguments& words) {
  words.Need("folder");
  FixedFolders& folders = run.World().folders;
  std::string* const places[] = {&folders.desktop, &folders.documents, &folders.favorites};
  std::string& place = *places[words.Choice({"Desktop", "Documents", "Favorites"})];
  place = words.Next("the path");
  run.World().files.AddDirectory(place);
}

void Setting(Execution& run, Arguments& words) {
  const std::string& section = words.Next("the section");
  const std::string& key = words.Next("the key");
  run.World().settings.Put(section, key, words.Next("the value"));
}

void Settings(Execution& run, Arguments& words) {
  run.World().settings.works = Either(words, "work", "fail");
}

void Screen(Execution& run, Arguments& words) {
  const auto pixels = Measures(words.Next("the size"));
  run.World().windows.screenWidth = static_cast<float>(pixels[0]) * twipsPerPixel;
  run.World().windows.screenHeight = static_cast<float>(pixels[1]) * twipsPerPixel;
}

// "desktop fails", "desktop fails RegOpenKeyExA", "desktop works"
void Desktop(Execution& run, Arguments& words) {
  auto& failing = run.World().desktop.failing;
  if (Either(words, "works", "fails")) {
    failing.clear();
  } else if (words.AtEnd()) {
    failing = MemoryDesktop::Calls();
  } else {
    const std::string& call = words.Next("the call");
    if (!MemoryDesktop::Calls().contains(call)) throw Failure{"the desktop has no call \"" + call + "\""};
    failing.insert(call);
  }
}

// registry "PATH\NAME" dword 5, string "text", bytes 0D 0A
void Registry(Execution& run, Arguments& words) {
  const std::string& name = words.Next("the path and the name of the value");
  MemoryDesktop::Value value;
  switch (words.Choice({"string", "dword", "bytes"})) {
    case 0:
      value.type = REG_SZ;
      value.bytes = words.Next("the text") + '\0';
      break;
    case 1: {
      value.type = REG_DWORD;
      auto number = static_cast<std::uint32_t>(words.NextNumber("the number"));
      for (int i = 0; i < 4; ++i, number >>= 8) value.bytes += static_cast<char>(number & 0xFF);
      break;
    }
    default:
      value.type = REG_BINARY;
      value.bytes = TakeBytes(words);
  }
  run.World().desktop.registry[name] = value;
}

void Programs(Execution& run, Arguments& words) {
  run.World().shell.programsAreThere = Either(words, "there", "missing");
}

void Shell(Execution& run, Arguments& words) {
  words.Need("answers");
  run.World().shell.executeAnswer = words.NextInt("the answer");
}

void Clipboard(Execution& run, Arguments& words) {
  run.World().clipboard.works = Either(words, "works", "fails");
}

void Popup(Execution& run, Arguments& words) {
  run.World().popup.works = Either(words, "works", "fails");
}

void Loader(Execution& run, Arguments& words) {
  using Way = MemoryPictureLoader::Way;
  static constexpr Way ways[] = {Way::Same, Way::Inverted, Way::Failing};
  run.World().loader.way = ways[words.Choice({"works", "inverts", "fails"})];
}

// browser 0 busy, ready, named "A", fails, works
void Browser(Execution& run, Arguments& words) {
  MemoryBrowser::Page& page = run.World().browser.pages[words.NextInt("the browser's number")];
  switch (words.Choice({"busy", "ready", "named", "fails", "works"})) {
    case 0:
      page.busy = true;
      break;
    case 1:
      page.busy = false;
      break;
    case 2:
      page.locationName = words.Next("the name");
      break;
    case 3:
      page.fails = true;
      break;
    default:
      page.fails = false;
  }
}

// "picture of frmBackground.Image1 64x48": as if it had been drawn into the design.
void DesignPicture(Execution& run, Arguments& words) {
  words.Need("of");
  const std::string name = words.Next("the control");
  const auto measures = Measures(words.Next("the size"));
  words.End();
  const Picture picture =
      Picture::FromPixels(SamplePixels({measures[0], measures[1]}), measures.size() == 3 ? measures[2] : 24);
  const auto put = [name, picture](App& app) { SetDesignPicture(FindTarget(app, name), picture); };
  run.BeforeStart(put);
  if (run.HasProgram()) put(run.Program());
}

// "image control fails Rotate 2": the second one; "image control fails 3718 on PATH 2 times"
void ImageControl(Execution& run, Arguments& words) {
  words.Need("control");
  words.Need("fails");
  const std::string& what = words.Next("the operation or the error");
  const bool isError = what.find_first_not_of("0123456789") == std::string::npos;
  if (!isError) {
    constexpr int invalidCall = 5;
    const int which = words.AtEnd() ? 1 : words.NextInt("which of them");
    return run.GetImageControls().Refuse(what, which, 1, invalidCall);
  }
  words.Need("on");
  const std::string& path = words.Next("the path");
  int times = 1;
  if (!words.AtEnd()) {
    times = words.NextInt("how often");
    words.Choice({"times", "time"});
  }
  run.GetImageControls().Refuse("FileName = " + path, 1, times, static_cast<int>(WholeNumber(what)));
}

// "log image control": what it is asked to do stands in the log from now on.
void Log(Execution& run, Arguments& words) {
  words.Need("image");
  words.Need("control");
  run.GetImageControls().LogOperations();
}

void World(Execution&, Arguments&) {
  // Looked for before the first statement.
}

}  // namespace

void AddWorldStatements(StatementTable& table) {
  table["drives"] = table["slashes"] = World;
  table["clock"] = Clock;
  table["command"] = CommandLine;
  table["another"] = AnotherInstance;
  table["program"] = ProgramFolder;
  table["special"] = SpecialFolder;
  table["setting"] = Setting;
  table["settings"] = Settings;
  table["screen"] = Screen;
  table["desktop"] = Desktop;
  table["registry"] = Registry;
  table["programs"] = Programs;
  table["shell"] = Shell;
  table["clipboard"] = Clipboard;
  table["popup"] = Popup;
  table["loader"] = Loader;
  table["browser"] = Browser;
  table["picture"] = DesignPicture;
  table["image"] = ImageControl;
  table["log"] = Log;
}

}  // namespace lumidex::scenario
