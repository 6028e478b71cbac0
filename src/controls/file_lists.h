#pragma once
// The drive, directory and file lists: models of the file system that also work with no window around them. A
// directory list and the file list beside it share one reader, so each directory is read once.

#include "base/pattern_list.h"
#include "controls/control.h"
#include "controls/directory_reader.h"

namespace lumidex {

class DriveList final : public Control {
 public:
  DriveList(Form& owner, std::string name);
  std::string_view Kind() const override { return "DriveListBox"; }
  std::optional<std::string> ReadProperty(std::string_view name) override;
  bool WriteProperty(std::string_view name, std::string_view text) override;
  bool CanTakeFocus() const override { return true; }
  void RestoreDesign() override;

  std::string Drive() const { return drive_; }
  // Takes any path and keeps the drive it lies on; raises DeviceUnavailable when there is none. A new drive
  // fires Change.
  void SetDrive(const std::string& path);
  std::vector<std::string> Drives() const;
  Event<> OnChange;
  void UserSelect(const std::string& drive);

 private:
  std::string drive_;
};

class DirList final : public Control {
 public:
  DirList(Form& owner, std::string name, DirectoryReader& reader);
  std::string_view Kind() const override { return "DirListBox"; }
  // Also Path, ListCount, ListIndex and List(n).
  std::optional<std::string> ReadProperty(std::string_view name) override;
  bool WriteProperty(std::string_view name, std::string_view text) override;
  bool CanTakeFocus() const override { return true; }
  void RestoreDesign() override;

  std::string Path() const { return path_; }
  // Another directory fires Change; one that can't be entered raises PathNotFound or PathFileAccess and
  // changes nothing.
  void SetPath(const std::string& path);
  // Takes in what has changed on the disk since; a directory that is gone holds nothing any more. The
  // highlighted row stays the same directory as long as that is there.
  void Refresh();
  // Number of immediate subdirectories.
  std::int16_t ListCount() const;
  // Full path of a row: 0 and up the subdirectories by name, -1 the directory itself, -2 its parent, and so
  // on. Empty outside.
  std::string List(int index) const;
  // True for a subdirectory that is a symbolic link, into which a search does not go down.
  bool IsLink(int index) const;
  // Rows above the subdirectories: the directory and its parents.
  int Depth() const;
  int ListIndex() const { return listIndex_; }
  // Raises InvalidPropertyValue outside the rows.
  void SetListIndex(int index);

  Event<> OnChange;
  // Goes to the highlighted row, as the user asks for. One that can't be entered is left: the list stays
  // where it is, on its own directory.
  void OpenHighlighted();
  // A click highlights, a double click or Enter opens.
  void UserHighlight(int index);
  void UserOpen(int index);

 private:
  DirectoryReader& reader_;
  std::string path_;
  DirectoryReader::Shared listing_;  // of path_; null as long as nothing was set
  int listIndex_ = -1;
};

class FileList final : public Control {
 public:
  FileList(Form& owner, std::string name, DirectoryReader& reader);
  std::string_view Kind() const override { return "FileListBox"; }
  // Also Path, ListCount, ListIndex, FileName and List(n).
  std::optional<std::string> ReadProperty(std::string_view name) override;
  bool WriteProperty(std::string_view name, std::string_view text) override;
  bool CanTakeFocus() const override { return true; }
  void RestoreDesign() override;

  std::string Path() const { return path_; }
  // The directory is read when its entries are first asked for, and that is what raises when it can't be.
  void SetPath(const std::string& path);
  // Takes in what has changed on the disk since.
  void Refresh();
  // Semicolon-separated, without regard to case; empty matches nothing.
  Property<std::string> Pattern;
  // A directory that can't be read any more has none.
  std::int16_t ListCount() const;
  // As many as there are, where ListCount ends at what 16 bits can say.
  int FileCount() const;
  // Bare names, ascending; empty outside.
  std::string List(int index) const;
  int ListIndex() const { return listIndex_; }
  void SetListIndex(int index);
  // The selected name.
  std::string FileName() const { return List(listIndex_); }

  Event<> OnClick, OnDblClick;
  void UserSelect(int index);

 private:
  const std::vector<std::string>& Names() const;
  static void PatternChanged(Element& element) { static_cast<FileList&>(element).TakePattern(); }
  void TakePattern();
  void Forget();

  DirectoryReader& reader_;
  std::string path_;
  int listIndex_ = -1;
  PatternList patterns_{"*"};                // what Pattern says
  mutable DirectoryReader::Shared listing_;  // what names_ was taken from, null when it has to be taken anew
  mutable std::vector<std::string> names_;
};

}  // namespace lumidex
