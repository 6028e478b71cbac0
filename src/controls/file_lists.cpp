#include "controls/file_lists.h"

#include <algorithm>

#include "base/run_time_error.h"
#include "base/text.h"
#include "base/widths.h"
#include "controls/form.h"

namespace lumidex {
namespace {

bool IsRoot(const std::string& path, char separator) {
  return path.size() == 1 || (path.size() == 3 && path[1] == ':' && path[2] == separator);
}

// The directory that `path` stands in; empty for a root.
std::string ParentOf(const std::string& path, char separator) {
  if (path.empty() || IsRoot(path, separator)) return {};
  const auto cut = path.rfind(separator);
  if (cut == std::string::npos) return {};
  const bool parentIsRoot = cut == 0 || (cut == 2 && path[1] == ':');
  return path.substr(0, parentIsRoot ? cut + 1 : cut);
}

std::string Join(const std::string& directory, const std::string& name, char separator) {
  return directory.ends_with(separator) ? directory + name : directory + separator + name;
}

// Counts are signed 16-bit, so a longer list ends there.
std::int16_t Count16(std::size_t count) {
  return static_cast<std::int16_t>(std::min<std::size_t>(count, 32767));
}

}  // namespace

DriveList::DriveList(Form& owner, std::string name) : Control(owner, std::move(name)) {}

std::optional<std::string> DriveList::ReadProperty(std::string_view name) {
  if (name == "Drive") return drive_;
  return Control::ReadProperty(name);
}

bool DriveList::WriteProperty(std::string_view name, std::string_view text) {
  if (name != "Drive") return Control::WriteProperty(name, text);
  SetDrive(std::string(text));
  return true;
}

void DriveList::RestoreDesign() {
  Control::RestoreDesign();
  drive_.clear();
  Changed.Emit();
}

void DriveList::SetDrive(const std::string& path) {
  const std::string drive = Owner().GetPlatform().files.DriveOf(path);
  if (drive.empty()) throw RunTimeError(ErrorNumber::DeviceUnavailable).About(path);
  if (drive == drive_) return;
  drive_ = drive;
  Changed.Emit();
  OnChange();
}

std::vector<std::string> DriveList::Drives() const {
  return const_cast<DriveList*>(this)->Owner().GetPlatform().files.Drives();
}

void DriveList::UserSelect(const std::string& drive) {
  if (UserMayAct()) SetDrive(drive);
}

DirList::DirList(Form& owner, std::string name, DirectoryReader& reader)
    : Control(owner, std::move(name)), reader_(reader) {}

std::optional<std::string> DirList::ReadProperty(std::string_view name) {
  if (name == "Path") return path_;
  if (name == "ListCount") return Number(ListCount());
  if (name == "ListIndex") return Number(ListIndex());
  if (const auto index = Argument(name, "List")) return List(*index);
  return Control::ReadProperty(name);
}

bool DirList::WriteProperty(std::string_view name, std::string_view text) {
  if (name == "Path") {
    SetPath(std::string(text));
  } else if (name == "ListIndex") {
    SetListIndex(ToInt32(Val(text)));
  } else {
    return Control::WriteProperty(name, text);
  }
  return true;
}

void DirList::RestoreDesign() {
  Control::RestoreDesign();
  path_.clear();
  listing_.reset();
  listIndex_ = -1;
  Changed.Emit();
}

void DirList::SetPath(const std::string& path) {
  const std::string wanted = Owner().GetPlatform().files.Normalised(path);
  if (wanted == path_) {
    SetListIndex(-1);
    return;
  }
  listing_ = reader_.Read(wanted);
  path_ = wanted;
  listIndex_ = -1;
  Changed.Emit();
  OnChange();
}

void DirList::Refresh() {
  if (path_.empty()) return;
  DirectoryReader::Shared now;
  try {
    now = reader_.Read(path_);
  } catch (const RunTimeError&) {
    now = std::make_shared<DirectoryReader::Listing>();
  }
  if (now == listing_) return;
  const std::string highlighted = List(listIndex_);
  listing_ = std::move(now);
  if (listIndex_ >= 0) {
    listIndex_ = ListCount() - 1;
    while (listIndex_ >= 0 && List(listIndex_) != highlighted) --listIndex_;
  }
  Changed.Emit();
}

std::int16_t DirList::ListCount() const {
  return listing_ ? Count16(listing_->directories.size()) : std::int16_t{0};
}

std::string DirList::List(int index) const {
  const char separator = const_cast<DirList*>(this)->Owner().GetPlatform().files.Separator();
  if (index >= ListCount()) return {};
  if (index >= 0) return Join(path_, listing_->directories[static_cast<std::size_t>(index)].name, separator);
  std::string row = path_;
  for (; index < -1 && !row.empty(); ++index) row = ParentOf(row, separator);
  return row;
}

bool DirList::IsLink(int index) const {
  return index >= 0 && index < ListCount() && listing_->directories[static_cast<std::size_t>(index)].isLink;
}

int DirList::Depth() const {
  const char separator = const_cast<DirList*>(this)->Owner().GetPlatform().files.Separator();
  int depth = 0;
  for (std::string row = path_; !row.empty(); row = ParentOf(row, separator)) ++depth;
  return depth;
}

void DirList::SetListIndex(int index) {
  if (index == listIndex_) return;
  if (index >= ListCount() || index < -Depth()) throw RunTimeError(ErrorNumber::InvalidPropertyValue);
  listIndex_ = index;
  Changed.Emit();
}

void DirList::OpenHighlighted() {
  try {
    SetPath(List(listIndex_));
  } catch (const RunTimeError&) {
    SetListIndex(-1);
  }
}

void DirList::UserHighlight(int index) {
  if (UserMayAct()) SetListIndex(index);
}

void DirList::UserOpen(int index) {
  if (!UserMayAct()) return;
  SetListIndex(index);
  OpenHighlighted();
}

FileList::FileList(Form& owner, std::string name, DirectoryReader& reader)
    : Control(owner, std::move(name)),
      Pattern(*this, "Pattern", "*", ruled<std::string, nullptr, &PatternChanged>),
      reader_(reader) {}

std::optional<std::string> FileList::ReadProperty(std::string_view name) {
  if (name == "Path") return path_;
  if (name == "ListCount") return Number(ListCount());
  if (name == "ListIndex") return Number(ListIndex());
  if (name == "FileName") return FileName();
  if (const auto index = Argument(name, "List")) return List(*index);
  return Control::ReadProperty(name);
}

bool FileList::WriteProperty(std::string_view name, std::string_view text) {
  if (name == "Path") {
    SetPath(std::string(text));
  } else if (name == "ListIndex") {
    SetListIndex(ToInt32(Val(text)));
  } else {
    return Control::WriteProperty(name, text);
  }
  return true;
}

void FileList::RestoreDesign() {
  Control::RestoreDesign();
  path_.clear();
  TakePattern();
}

void FileList::SetPath(const std::string& path) {
  const std::string wanted = Owner().GetPlatform().files.Normalised(path);
  if (wanted == path_) return;
  path_ = wanted;
  Forget();
}

void FileList::Refresh() {
  if (!listing_) return;
  bool isSame = false;
  IgnoreError([&] { isSame = reader_.Read(path_) == listing_; });
  if (!isSame) Forget();
}

void FileList::TakePattern() {
  patterns_ = PatternList(Pattern.Get());
  Forget();
}

void FileList::Forget() {
  listing_.reset();
  names_.clear();
  listIndex_ = -1;
  Changed.Emit();
}

const std::vector<std::string>& FileList::Names() const {
  if (listing_ || path_.empty()) return names_;
  try {
    listing_ = reader_.Read(path_);
  } catch (const RunTimeError&) {
    // A directory that has gone since it was set holds no files; whoever counts them is no place for an
    // error.
    listing_ = std::make_shared<DirectoryReader::Listing>();
  }
  std::vector<const std::string*> matching;
  for (const std::string& name : listing_->files) {
    if (patterns_.Matches(name)) matching.push_back(&name);
  }
  std::ranges::sort(matching, [](const auto* a, const auto* b) { return CompareText(*a, *b) < 0; });
  names_.reserve(matching.size());
  for (const std::string* name : matching) names_.push_back(*name);
  return names_;
}

std::int16_t FileList::ListCount() const {
  return Count16(Names().size());
}

int FileList::FileCount() const {
  return static_cast<int>(Names().size());
}

std::string FileList::List(int index) const {
  if (index < 0 || index >= FileCount()) return {};
  return Names()[static_cast<std::size_t>(index)];
}

void FileList::SetListIndex(int index) {
  if (index < -1 || index >= ListCount()) throw RunTimeError(ErrorNumber::InvalidPropertyValue);
  if (index == listIndex_) return;
  listIndex_ = index;
  Changed.Emit();
  OnClick();
}

void FileList::UserSelect(int index) {
  if (!UserMayAct() || index < 0 || index >= ListCount()) return;
  if (index != listIndex_) {
    listIndex_ = index;
    Changed.Emit();
  }
  OnClick();
}

}  // namespace lumidex
