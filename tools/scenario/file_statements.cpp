// Statements that build the files of the world, or change them behind the program's back.

#include <filesystem>
#include <fstream>
#include <sstream>

#include "platform/headless/civil_time.h"
#include "scenario/moments.h"
#include "scenario/sample_pictures.h"
#include "scenario/statements.h"

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
  for (fs::path folder = fs::current_path() / run.Folder();; folder = folder.parent_path()) {
    if (fs::is_regular_file(folder / name)) return ReadRealFile(folder / name);
    if (folder == folder.parent_path()) break;
  }
  throw Failure{"there is no file " + name + " in the scenario's folder or above it"};
}

std::string ExtensionOf(const std::string& path) {
  const auto point = path.rfind('.');
  return point == std::string::npos ? std::string() : path.substr(point);
}

std::string SampleContent(Arguments& words, const std::string& path) {
  const auto measures = Measures(words.Next("the size of the picture"));
  const std::string extension = words.Take("as") ? words.Next("the format") : ExtensionOf(path);
  return SampleFile(extension, {measures[0], measures[1]}, measures.size() == 3 ? measures[2] : 0);
}

std::string ContentOf(Arguments& words, const std::string& path) {
  // "lines" stands before a colon, so it may have a block.
  switch (words.Choice({"picture", "text", "lines", "bytes", "size", "empty"})) {
    case 0:
      return SampleContent(words, path);
    case 1:
      if (words.AtEnd()) throw Failure{"the text is missing"};
      return words.Rest();
    case 2:
      return TextOfLines(words.Block());
    case 3:
      return TakeBytes(words);
    case 4:
      return std::string(static_cast<std::size_t>(words.NextNumber("the size")), 'x');
    default:
      return {};
  }
}

const std::string& Path(Arguments& words) {
  return words.Next("the path");
}

void File(Execution& run, Arguments& words) {
  const std::string& path = Path(words);
  MemoryFileSystem& files = run.World().files;
  if (words.Take("reported")) {
    files.SetReportedSize(path, static_cast<std::uint64_t>(words.NextNumber("the size in bytes")));
  } else {
    files.AddFile(path, ContentOf(words, path));
  }
}

void Files(Execution& run, Arguments& words) {
  const auto count = words.NextNumber("the number of files");
  const std::string& path = Path(words);
  const auto mark = path.rfind('#');
  if (mark == std::string::npos) throw Failure{"the path has no # where the number goes"};
  const std::string content = ContentOf(words, path);
  const std::size_t digits = std::to_string(count).size();
  for (long long i = 1; i <= count; ++i) {
    std::string number = std::to_string(i);
    number.insert(0, digits - number.size(), '0');
    run.World().files.AddFile(path.substr(0, mark) + number + path.substr(mark + 1), content);
  }
}

void Copy(Execution& run, Arguments& words) {
  const std::string& from = words.Next("the file of the repository");
  words.Need("to");
  run.World().files.AddFile(Path(words), RealFile(run, from));
}

void Link(Execution& run, Arguments& words) {
  const std::string& path = Path(words);
  words.Need("to");
  run.World().files.AddLink(path, words.Next("where the link leads to"));
}

void Drive(Execution& run, Arguments& words) {
  const std::string& name = words.Next("the drive");
  const bool notReady = words.Take("not");
  if (notReady) words.Need("ready");
  run.World().files.AddDrive(name, !notReady);
}

void Disk(Execution& run, Arguments& words) {
  words.Choice({"space", "free"});
  if (words.Take("unlimited")) return run.World().files.SetFreeBytes({});
  run.World().files.SetFreeBytes(static_cast<std::uint64_t>(words.NextNumber("the number of free bytes")));
}

void CurrentDirectory(Execution& run, Arguments& words) {
  words.Need("directory");
  run.World().files.SetCurrentDirectory(Path(words));
}

void Modified(Execution& run, Arguments& words) {
  const std::string& path = Path(words);
  DateTime moment;
  moment.hour = moment.minute = moment.second = 0;
  TakeMoment(words, moment);
  run.World().files.SetModified(path, SecondsSince1970(moment));
}

using Change = void (MemoryFileSystem::*)(const std::string& path, bool on);

template <Change change, bool on>
void Switch(Execution& run, Arguments& words) {
  (run.World().files.*change)(Path(words), on);
}

}  // namespace

void AddFileStatements(StatementTable& table) {
  table["file"] = File;
  table["files"] = Files;
  table["copy"] = Copy;
  table["directory"] = [](Execution& run, Arguments& words) { run.World().files.AddDirectory(Path(words)); };
  table["link"] = Link;
  table["device"] = [](Execution& run, Arguments& words) { run.World().files.AddOther(Path(words)); };
  table["remove"] = [](Execution& run, Arguments& words) { run.World().files.RemoveTree(Path(words)); };
  table["hide"] = Switch<&MemoryFileSystem::SetHidden, true>;
  table["unhide"] = Switch<&MemoryFileSystem::SetHidden, false>;
  table["lock"] = Switch<&MemoryFileSystem::SetLocked, true>;
  table["unlock"] = Switch<&MemoryFileSystem::SetLocked, false>;
  table["protect"] = Switch<&MemoryFileSystem::SetReadOnly, true>;
  table["unprotect"] = Switch<&MemoryFileSystem::SetReadOnly, false>;
  table["modified"] = Modified;
  table["drive"] = Drive;
  table["disk"] = Disk;
  table["current"] = CurrentDirectory;
}

}  // namespace lumidex::scenario
