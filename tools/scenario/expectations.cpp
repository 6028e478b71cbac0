// What must hold: properties, lists, globals, dialogs, calls to the platform, files, the end of the program.

#include "base/text.h"
#include "ports/open_picture.h"
#include "scenario/shown_dialogs.h"
#include "scenario/targets.h"

namespace lumidex::scenario {
namespace {

const char* const comparisons[] = {"=", "not", "contains", "lacks", "above", "below"};

// The first word that is a comparison; the number of words when there is none.
std::size_t ComparisonAt(const Statement& statement, std::size_t first) {
  for (std::size_t i = first; i < statement.words.size(); ++i) {
    for (const char* comparison : comparisons) {
      if (statement.words[i].Is(comparison)) return i;
    }
  }
  return statement.words.size();
}

bool Compare(const std::string& actual, const std::string& comparison, const std::string& wanted) {
  if (comparison == "=") return actual == wanted;
  if (comparison == "not") return actual != wanted;
  if (comparison == "contains") return actual.find(wanted) != std::string::npos;
  if (comparison == "lacks") return actual.find(wanted) == std::string::npos;
  if (comparison == "above") return Val(actual) > Val(wanted);
  return Val(actual) < Val(wanted);
}

std::string TimeText(const DateTime& now) {
  char text[64];
  std::snprintf(text, sizeof text, "%02d:%02d:%02d", now.hour, now.minute, now.second);
  return text;
}

std::string ColourText(const Picture& picture, const std::string& place) {
  const auto comma = place.find(',');
  if (comma == std::string::npos) throw Failure{"the place is told as column,row"};
  const auto x = WholeNumber(place.substr(0, comma));
  const auto y = WholeNumber(place.substr(comma + 1));
  const Size size = picture.GetSize();
  if (x < 0 || y < 0 || x >= size.width || y >= size.height)
    throw Failure{"the place is outside the picture"};
  const Pixels pixels = picture.FullPixels();
  const std::uint32_t word = pixels.Row(static_cast<int>(y))[static_cast<std::size_t>(x)];
  char text[16];
  std::snprintf(text, sizeof text, "#%06X", word & 0xFFFFFFU);
  return text;
}

std::string SizeText(const Picture& picture) {
  if (picture.IsEmpty()) return "(none)";
  return Number(picture.GetSize().width) + " x " + Number(picture.GetSize().height);
}

// "pixel frmTip.Image1 at 3,4", "pixel file C:\a.bmp at 3,4"
std::string PixelText(Execution& run, const Statement& statement, std::size_t at) {
  if (statement.words.size() > at + 4 && statement.words[at + 1].Is("file")) {
    const Picture picture = OpenPicture(run.World().files, statement.words[at + 2].text);
    return ColourText(picture, statement.words[at + 4].text);
  }
  const Target target = FindTarget(run.Program(), WordAt(statement, at + 1, "the control"));
  return ColourText(PictureOf(target), WordAt(statement, at + 3, "the place"));
}

// What is told of a file: its text, "size", or its "picture".
std::string FileText(Execution& run, const Statement& statement, std::size_t at, std::size_t end) {
  const MemoryFileSystem& files = run.World().files;
  const std::string& path = WordAt(statement, at + 1, "the path");
  if (end == at + 2) return files.ReadAll(path);
  const std::string& aspect = statement.words[at + 2].text;
  if (aspect == "size") return Number(static_cast<std::int64_t>(files.ReadAll(path).size()));
  if (aspect == "hidden") return files.Look(path) && files.Look(path)->hidden ? "True" : "False";
  if (aspect == "picture") {
    const Picture picture = OpenPicture(files, path);
    return SizeText(picture) + " x " + Number(picture.BitsPerPixel()) + " " + std::string(picture.Format());
  }
  throw Failure{"of a file its text, size or picture can be told"};
}

std::string ClipboardText(const MemoryClipboard& clipboard, const std::string& aspect) {
  if (aspect == "text") return clipboard.Text();
  if (aspect == "picture") return SizeText(clipboard.GetPicture());
  throw Failure{"of the clipboard its text or picture can be told"};
}

std::string TrayText(const MemoryTray& tray, const std::string& aspect) {
  if (aspect == "icon") return tray.icon ? "shown" : "(none)";
  if (aspect == "tip") return tray.icon ? tray.icon->tip : "";
  throw Failure{"of the tray its icon or tip can be told"};
}

std::string RegistryText(const MemoryDesktop& desktop, const std::string& name) {
  const auto found = desktop.registry.find(name);
  return found == desktop.registry.end() ? "(none)" : found->second;
}

// The value that the words from `first` to the comparison at `end` name.
std::string ValueOf(Execution& run, const Statement& statement, std::size_t first, std::size_t end) {
  HeadlessPlatform& world = run.World();
  const std::string& subject = WordAt(statement, first, "what is expected");
  const auto word = [&](std::size_t offset, const char* what) -> const std::string& {
    return WordAt(statement, first + offset, what);
  };
  if (subject == "global") {
    const auto value = run.Program().ReadGlobal(word(1, "the name"));
    if (!value) throw Failure{"there is no global " + word(1, "the name")};
    return *value;
  }
  if (subject == "file") return FileText(run, statement, first, end);
  if (subject == "pixel") return PixelText(run, statement, first);
  if (subject == "clipboard") return ClipboardText(world.clipboard, word(1, "text or picture"));
  if (subject == "tray") return TrayText(world.tray, word(1, "icon or tip"));
  if (subject == "registry") return RegistryText(world.desktop, word(1, "the name"));
  if (subject == "wallpaper") return world.desktop.wallpaper;
  if (subject == "setting") {
    return world.settings.GetSetting(word(1, "the section"), word(2, "the key"), "(none)");
  }
  if (subject == "clock") return TimeText(world.events.Now());
  if (subject == "yields") return Number(world.events.Yields());
  if (subject == "reads") return Number(world.files.ReadsOf(word(2, "the directory")));
  if (subject == "focus") return world.windows.NameOf(world.windows.GetFocus());
  if (subject == "front") return world.windows.Front() ? world.windows.Front()->Name() : "(none)";
  return ReadProperty(run.Program(), subject);
}

// Expectations without a comparison.
bool HoldsPlainly(Execution& run, const Statement& statement, std::size_t first, std::string& why) {
  const std::string& subject = WordAt(statement, first, "what is expected");
  using State = Execution::State;
  static const char* const states[] = {"it was not started", "it runs", "it has ended", "it hangs"};
  why = states[static_cast<int>(run.state)];
  if (subject == "running") return run.state == State::Running;
  if (subject == "hung") return run.state == State::Hung;
  if (subject == "ended") {
    if (statement.words.size() <= first + 3) return run.state == State::Ended;
    why += " with code " + std::to_string(run.exitCode);
    return run.state == State::Ended && run.exitCode == WholeNumber(statement.words[first + 3].text);
  }
  if (subject == "file" || subject == "directory") {
    const std::string& path = WordAt(statement, first + 1, "the path");
    const std::string& state = WordAt(statement, first + 2, "\"exists\" or \"missing\"");
    if (state != "exists" && state != "missing") throw Failure{"\"" + state + "\" is no state of a file"};
    const bool exists = run.World().files.Look(path).has_value();
    why = exists ? "it exists" : "there is none";
    return exists == (state == "exists");
  }
  throw Failure{"the expectation compares nothing"};
}

// "expect list WPaper2.LstLeft:" with one row a line.
void CheckList(Execution& run, const Statement& statement) {
  const std::string& name = WordAt(statement, 2, "the list");
  const int count = static_cast<int>(Val(ReadProperty(run.Program(), name + ".ListCount")));
  std::string rows;
  for (int row = 0; row < count; ++row) {
    rows += "\n    " + ReadProperty(run.Program(), name + ".List(" + Number(row) + ")");
  }
  std::string wanted;
  for (const Statement& line : statement.block) wanted += "\n    " + RestOfLine(line.text, 0);
  if (rows != wanted) throw Failure{"the list holds" + (rows.empty() ? " nothing" : rows)};
}

// With a block: exactly these lines, or with "has" these lines in this order, others between them.
void CheckLog(Execution& run, const Statement& statement) {
  const auto& lines = run.World().log.Lines();
  const bool mayHaveMore = statement.words.size() > 2 && statement.words[2].Is("has");
  std::size_t next = 0;
  for (const Statement& wanted : statement.block) {
    const std::string text = RestOfLine(wanted.text, 0);
    const std::size_t start = next;
    while (mayHaveMore && next < lines.size() && lines[next] != text) ++next;
    if (next >= lines.size() || lines[next] != text) {
      std::string rest;
      for (std::size_t i = start; i < lines.size(); ++i) rest += "\n    " + lines[i];
      throw Failure{"instead of \"" + text + "\" the log goes on with" + (rest.empty() ? " nothing" : rest)};
    }
    ++next;
  }
  if (!mayHaveMore && next < lines.size()) throw Failure{"the log goes on with \"" + lines[next] + "\""};
}

void CheckLogLine(Execution& run, const Statement& statement) {
  const std::string& comparison = WordAt(statement, 2, "\"contains\" or \"lacks\"");
  const std::string text = RestOfLine(statement.text, statement.words[2].start + comparison.size());
  std::string found;
  for (const std::string& line : run.World().log.Lines()) {
    if (line.find(text) != std::string::npos) found = line;
  }
  if (comparison != "contains" && comparison != "lacks") throw Failure{"a log contains or lacks a text"};
  if (found.empty() == (comparison == "lacks")) return;
  std::string all;
  for (const std::string& line : run.World().log.Lines()) all += "\n    " + line;
  throw Failure{"the log is" + all};
}

void Expect(Execution& run, const Statement& statement) {
  const std::string& subject = WordAt(statement, 1, "what is expected");
  if (subject == "list") return CheckList(run, statement);
  if (subject == "log") return statement.hasBlock ? CheckLog(run, statement) : CheckLogLine(run, statement);
  if (CheckShownDialog(run, statement)) return;
  std::string why;
  if (!Holds(run, statement, 1, why)) throw Failure{statement.text + "\n    but " + why};
}

}  // namespace

bool Holds(Execution& run, const Statement& statement, std::size_t firstWord, std::string& why) {
  const std::size_t at = ComparisonAt(statement, firstWord);
  if (at == statement.words.size()) return HoldsPlainly(run, statement, firstWord, why);
  const Word& comparison = statement.words[at];
  const std::string actual = ValueOf(run, statement, firstWord, at);
  why = "it is \"" + actual + "\"";
  return Compare(actual, comparison.text,
                 RestOfLine(statement.text, comparison.start + comparison.text.size()));
}

bool ExecuteExpectation(Execution& run, const Statement& statement) {
  const std::string& verb = statement.words.front().text;
  if (verb == "expect") {
    Expect(run, statement);
  } else if (verb == "clear") {
    run.World().log.Clear();
  } else if (verb == "show") {
    // For whoever writes a scenario.
    std::string log;
    for (const std::string& line : run.World().log.Lines()) log += line + "\n";
    std::fputs(log.c_str(), stdout);
  } else {
    return false;
  }
  return true;
}

}  // namespace lumidex::scenario
