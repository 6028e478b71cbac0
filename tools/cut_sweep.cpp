// lumidex-cut-sweep: cuts picture files at many lengths and decodes what is left. No cut may crash, take more
// than a few seconds or show less of the picture than a shorter one.

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <charconv>
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <iostream>
#include <string>
#include <vector>

#include "base/run_time_error.h"
#include "pictures/codec.h"
#include "platform/posix/posix_file_system.h"
#include "ports/open_picture.h"

namespace lumidex {
namespace {

constexpr const char* usage =
    "usage: lumidex-cut-sweep [--cuts N] [--seconds S] FILE-OR-FOLDER...\n"
    "Decodes each picture cut at N lengths (16 if not given) and looks that nothing crashes and that a "
    "longer\n"
    "part shows no less than a shorter one. Starts no new picture after S seconds (no bound if not given).\n";

constexpr rlim_t mostSecondsOfAFile = 60;

bool IsBlank(std::uint32_t word) {
  return word == blankPixel || word >> 24 == 0;
}

// The rows that are shown: with anything but blank pixels, or blank because the whole picture is so there.
int RowsShown(const Pixels& pixels, const Pixels& whole) {
  int shown = 0;
  for (int y = 0; y < pixels.Height(); ++y) {
    const auto row = pixels.Row(y);
    shown += !std::ranges::all_of(row, IsBlank) || std::ranges::equal(row, whole.Row(y)) ? 1 : 0;
  }
  return shown;
}

// A row that is half there may look blank again when more of it is, and of an icon another picture may be
// chosen.
int Slack(const Pixels& pixels) {
  return 1 + pixels.Height() / 50;
}

// Half of the lengths are spread over the head, where cuts are most telling, half over the whole file.
std::vector<std::uint64_t> Lengths(std::uint64_t size, int cuts) {
  std::vector<std::uint64_t> lengths;
  const std::uint64_t head = std::min<std::uint64_t>(size, 1024);
  const auto half = static_cast<std::uint64_t>(std::max(1, cuts / 2));
  for (std::uint64_t i = 1; i <= half; ++i) {
    lengths.push_back(head * i / (half + 1));
    lengths.push_back(size * i / (half + 1));
  }
  std::ranges::sort(lengths);
  return lengths;
}

// What is wrong with the picture's cuts; nothing when all is well.
std::string SweepPicture(const std::string& path, int cuts) {
  const PictureData data = OpenPictureData(PosixFileSystem(), path);
  const auto open = [&](std::uint64_t length) -> std::unique_ptr<Decoder> {
    PictureData cut(StretchOf(data.SharedSource(), 0, length), data.Extension());
    cut.paletteFile = data.paletteFile;
    try {
      return OpenDecoder(cut);
    } catch (const RunTimeError&) {
      return nullptr;
    }
  };
  const auto wholeDecoder = open(data.Size());
  const Pixels whole = wholeDecoder ? wholeDecoder->Decode({}) : Pixels();
  int shown = 0;
  for (const std::uint64_t length : Lengths(data.Size(), cuts)) {
    const auto decoder = open(length);
    const std::string place = "cut to " + std::to_string(length) + " of " + std::to_string(data.Size());
    if (!decoder) {
      if (shown > 0) return place + ": refused, though a shorter part was shown";
      continue;
    }
    const Pixels pixels = decoder->Decode({});
    if (pixels.GetSize() != decoder->Facts().size) return place + ": not in the size told";
    // Of the whole nothing is known, the shorter part was taken for something else, or what is drawn later
    // covers what was drawn first.
    if (whole.IsEmpty() || whole.GetSize() != pixels.GetSize() || decoder->Facts().scalable) continue;
    const int now = RowsShown(pixels, whole);
    if (now + Slack(pixels) < shown)
      return place + ": " + std::to_string(now) + " rows shown, " + std::to_string(shown) +
             " by a shorter part";
    shown = now;
  }
  return {};
}

enum Outcome { Good = 0, Wrong = 1 };

// In a process of its own, so that one crash does not hide the next.
bool SweepApart(const std::string& path, int cuts) {
  std::fflush(stdout);
  const pid_t child = fork();
  if (child == 0) {
    const rlimit most{mostSecondsOfAFile, mostSecondsOfAFile};
    setrlimit(RLIMIT_CPU, &most);
    std::string wrong;
    try {
      wrong = SweepPicture(path, cuts);
    } catch (const RunTimeError& error) {
      wrong = error.what();
    }
    if (!wrong.empty()) std::printf("%s\t%s\n", path.c_str(), wrong.c_str());
    std::fflush(stdout);
    _exit(wrong.empty() ? Good : Wrong);
  }
  int status = 0;
  if (child < 0 || waitpid(child, &status, 0) != child) return false;
  const bool ended = WIFEXITED(status) && (WEXITSTATUS(status) == Good || WEXITSTATUS(status) == Wrong);
  if (!ended) std::printf("%s\tended by a crash or took too long\n", path.c_str());
  return ended && WEXITSTATUS(status) == Good;
}

struct Arguments {
  int cuts = 16;
  int seconds = 1 << 30;
  std::vector<std::string> paths;
};

bool ReadArguments(const std::vector<std::string>& words, Arguments& arguments) {
  for (std::size_t i = 0; i < words.size(); ++i) {
    int* const number = words[i] == "--cuts"      ? &arguments.cuts
                        : words[i] == "--seconds" ? &arguments.seconds
                                                  : nullptr;
    if (!number) {
      arguments.paths.push_back(words[i]);
      continue;
    }
    if (++i == words.size()) return false;
    const char* const end = words[i].data() + words[i].size();
    if (std::from_chars(words[i].data(), end, *number).ptr != end || *number < 1) return false;
  }
  return !arguments.paths.empty();
}

std::vector<std::string> FilesIn(const std::vector<std::string>& paths) {
  std::vector<std::string> files;
  for (const std::string& path : paths) {
    if (!std::filesystem::is_directory(path)) {
      files.push_back(path);
      continue;
    }
    for (const auto& entry : std::filesystem::recursive_directory_iterator(path))
      if (entry.is_regular_file()) files.push_back(entry.path().string());
  }
  std::ranges::sort(files);
  return files;
}

int Run(const std::vector<std::string>& words) {
  Arguments arguments;
  if (!ReadArguments(words, arguments)) {
    std::cerr << usage;
    return 2;
  }
  const auto start = std::chrono::steady_clock::now();
  int swept = 0, wrong = 0, left = 0;
  for (const std::string& file : FilesIn(arguments.paths)) {
    if (std::chrono::steady_clock::now() - start > std::chrono::seconds(arguments.seconds)) {
      ++left;
      continue;
    }
    ++swept;
    wrong += SweepApart(file, arguments.cuts) ? 0 : 1;
  }
  std::printf("%d pictures cut, %d wrong, %d left out\n", swept, wrong, left);
  return wrong == 0 && swept > 0 ? 0 : 1;
}

}  // namespace
}  // namespace lumidex

int main(int argc, char** argv) {
  return lumidex::Run({argv + 1, argv + argc});
}
