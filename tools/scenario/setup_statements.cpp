// Statements that build the world, or change it behind the program's back.

#include <filesystem>
#include <fstream>
#include <map>
#include <sstream>

#include "base/text.h"
#include "scenario/execution.h"
#include "scenario/sample_pictures.h"

namespace lumidex::scenario {
namespace {

std::string ReadRealFile(const std::filesystem::path& path) {
  std::ifstream stream(path, std::ios::binary);
  std::ostringstream content;
  content << stream.rdbuf();
  return content.str();
}

// Looks in the folder of the scenario file and in all above it.
std::string RealFile(const Execution& run, const std::string& name) {
  namespace fs = std::filesystem;
  for (fs::path folder = fs::absolute(run.Folder());; folder = folder.parent_path()) {
    if (fs::is_regular_file(folder / name)) return ReadRealFile(folder / name);
    if (folder == folder.parent_path()) break;
  }
  throw Failure{"there is no file " + name + " in the scenario's folder or above it"};
}

std::string ExtensionOf(const std::string& path) {
  const auto point = path.rfind('.');
  return point == std::string::npos ? std::string() : path.substr(point);
}

std::string BytesOf(const Statement& statement, std::size_t first) {
  std::string bytes;
  for (std::size_t i = first; i < statement.words.size(); ++i) {
    const std::string& word = statement.words[i].text;
    if (word.size() != 2 || word.find_first_not_of("0123456789ABCDEF") != std::string::npos) {
      throw Failure{"\"" + word + "\" is no byte; write two digits as 0D or FF"};
    }
    bytes += static_cast<char>(std::stoi(word, nullptr, 16));
  }
  return bytes;
}

std::string LinesOf(const Statement& statement) {
  std::string text;
  for (const Statement& line : statement.block) text += RestOfLine(line.text, 0) + "\r\n";
  return text;
}

// What a file holds, told from the word `first` on.
std::string ContentOf(const Statement& statement, std::size_t first, const std::string& path) {
  const std::string& kind = WordAt(statement, first, "what the file holds");
  if (kind == "lines") return LinesOf(statement);
  if (kind == "empty") return {};
  if (kind == "bytes") return BytesOf(statement, first + 1);
  const std::string& value = WordAt(statement, first + 1, "what the file holds");
  if (kind == "text") return value;
  if (kind == "size") return std::string(static_cast<std::size_t>(WholeNumber(value)), 'x');
  if (kind == "picture") {
    const auto measures = Measures(value);
    const bool saysFormat = statement.words.size() > first + 3 && statement.words[first + 2].Is("as");
    const std::string extension = saysFormat ? statement.words[first + 3].text : ExtensionOf(path);
    return SampleFile(extension, {measures[0], measures[1]}, measures.size() == 3 ? measures[2] : 0);
  }
  throw Failure{"a file holds a picture, text, lines, bytes, a size or is empty; not \"" + kind + "\""};
}

void Files(Execution& run, const Statement& statement) {
  const auto count = WholeNumber(WordAt(statement, 1, "the number of files"));
  const std::string& path = WordAt(statement, 2, "the path");
  const auto mark = path.rfind('#');
  if (mark == std::string::npos) throw Failure{"the path has no # where the number goes"};
  const std::string content = ContentOf(statement, 3, path);
  const std::size_t digits = std::to_string(count).size();
  for (long long i = 1; i <= count; ++i) {
    std::string number = std::to_string(i);
    number.insert(0, digits - number.size(), '0');
    run.World().files.AddFile(path.substr(0, mark) + number + path.substr(mark + 1), content);
  }
}

void Clock(Execution& run, const Statement& statement) {
  DateTime now = run.World().events.Now();
  for (std::size_t i = 1; i < statement.words.size(); ++i) {
    const std::string& word = statement.words[i].text;
    int a = 0, b = 0, c = 0;
    if (std::sscanf(word.c_str(), "%d:%d:%d", &a, &b, &c) == 3) {
      now.hour = a, now.minute = b, now.second = c;
    } else if (std::sscanf(word.c_str(), "%d-%d-%d", &a, &b, &c) == 3) {
      now.year = a, now.month = b, now.day = c;
    } else {
      throw Failure{"\"" + word + "\" is neither a time as 23:59:58 nor a day as 2002-03-15"};
    }
  }
  run.World().events.SetNow(now);
}

void Drive(Execution& run, const Statement& statement) {
  const bool ready = !(statement.words.size() > 2 && statement.words[2].Is("not"));
  run.World().files.AddDrive(WordAt(statement, 1, "the drive"), ready);
}

void Disk(Execution& run, const Statement& statement) {
  const std::string& amount = WordAt(statement, 2, "the number of free bytes");
  if (amount == "unlimited") {
    run.World().files.SetFreeBytes({});
  } else {
    run.World().files.SetFreeBytes(static_cast<std::uint64_t>(WholeNumber(amount)));
  }
}

void Special(Execution& run, const Statement& statement) {
  const std::string& which = WordAt(statement, 2, "which folder");
  const std::string& path = WordAt(statement, 3, "the path");
  FixedFolders& folders = run.World().folders;
  if (which == "Desktop") {
    folders.desktop = path;
  } else if (which == "Documents") {
    folders.documents = path;
  } else if (which == "Favorites") {
    folders.favorites = path;
  } else {
    throw Failure{"the special folders are Desktop, Documents and Favorites"};
  }
  run.World().files.AddDirectory(path);
}

void Screen(Execution& run, const Statement& statement) {
  const auto pixels = Measures(WordAt(statement, 1, "the size"));
  run.World().windows.screenWidth = static_cast<float>(pixels[0]) * twipsPerPixel;
  run.World().windows.screenHeight = static_cast<float>(pixels[1]) * twipsPerPixel;
}

// "desktop fails", "tray missing", "programs missing", "shell answers 2" and their contraries.
void Desktop(Execution& run, const Statement& s) {
  run.World().desktop.works = WordAt(s, 1, "\"fails\" or \"works\"") == "works";
}
void Tray(Execution& run, const Statement& s) {
  run.World().tray.isAvailable = WordAt(s, 1, "\"missing\" or \"there\"") == "there";
}
void Programs(Execution& run, const Statement& s) {
  run.World().shell.programsAreThere = WordAt(s, 1, "\"missing\" or \"there\"") == "there";
}
void ShellAnswers(Execution& run, const Statement& s) {
  run.World().shell.executeAnswer = static_cast<int>(WholeNumber(WordAt(s, 2, "the answer")));
}

using Handler = void (*)(Execution&, const Statement&);

const std::string& Path(const Statement& statement) {
  return WordAt(statement, 1, "the path");
}

const std::map<std::string, Handler, std::less<>>& Handlers() {
  static const std::map<std::string, Handler, std::less<>> handlers{
      {"drives", [](Execution&, const Statement&) {}},
      {"slashes", [](Execution&, const Statement&) {}},
      {"clock", Clock},
      {"drive", Drive},
      {"directory", [](Execution& run, const Statement& s) { run.World().files.AddDirectory(Path(s)); }},
      {"file", [](Execution& run,
                  const Statement& s) { run.World().files.AddFile(Path(s), ContentOf(s, 2, Path(s))); }},
      {"files", Files},
      {"copy",
       [](Execution& run, const Statement& s) {
         run.World().files.AddFile(WordAt(s, 3, "the path to copy to"), RealFile(run, Path(s)));
       }},
      {"link",
       [](Execution& run, const Statement& s) {
         run.World().files.AddLink(Path(s), WordAt(s, 3, "where the link leads to"));
       }},
      {"device", [](Execution& run, const Statement& s) { run.World().files.AddOther(Path(s)); }},
      {"hide", [](Execution& run, const Statement& s) { run.World().files.SetHidden(Path(s), true); }},
      {"unhide", [](Execution& run, const Statement& s) { run.World().files.SetHidden(Path(s), false); }},
      {"lock", [](Execution& run, const Statement& s) { run.World().files.SetLocked(Path(s), true); }},
      {"unlock", [](Execution& run, const Statement& s) { run.World().files.SetLocked(Path(s), false); }},
      {"protect", [](Execution& run, const Statement& s) { run.World().files.SetReadOnly(Path(s), true); }},
      {"unprotect",
       [](Execution& run, const Statement& s) { run.World().files.SetReadOnly(Path(s), false); }},
      {"remove", [](Execution& run, const Statement& s) { run.World().files.RemoveTree(Path(s)); }},
      {"disk", Disk},
      {"current",
       [](Execution& run, const Statement& s) {
         run.World().files.SetCurrentDirectory(WordAt(s, 2, "the directory"));
       }},
      {"command",
       [](Execution& run, const Statement& s) {
         // The raw command line: its own quotes belong to it.
         const std::size_t start = s.words.size() > 2 ? s.words[2].start : s.text.size();
         run.World().process.commandLine = s.text.substr(start);
       }},
      {"another", [](Execution& run, const Statement&) { run.World().process.hasPreviousInstance = true; }},
      {"program",
       [](Execution& run, const Statement& s) {
         run.World().process.executableFolder = WordAt(s, 2, "the folder");
       }},
      {"special", Special},
      {"setting",
       [](Execution& run, const Statement& s) {
         run.World().settings.SaveSetting(WordAt(s, 1, "the section"), WordAt(s, 2, "the key"),
                                          WordAt(s, 3, "the value"));
       }},
      {"screen", Screen},
      {"desktop", Desktop},
      {"tray", Tray},
      {"programs", Programs},
      {"shell", ShellAnswers},
  };
  return handlers;
}

}  // namespace

bool ExecuteSetup(Execution& run, const Statement& statement) {
  const auto found = Handlers().find(statement.words.front().text);
  if (found == Handlers().end()) return false;
  found->second(run, statement);
  return true;
}

}  // namespace lumidex::scenario
