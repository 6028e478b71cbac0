#pragma once
// The small services as tests need them: they keep what they are told and write it into the call log.

#include <functional>
#include <map>
#include <optional>

#include "platform/headless/call_log.h"
#include "ports/open_picture.h"
#include "ports/services.h"

namespace lumidex {

class ScriptedProcess final : public Process {
 public:
  std::string ExecutableFolder() const override { return executableFolder; }
  std::string CommandLine() const override { return commandLine; }
  bool HasPreviousInstance() override { return hasPreviousInstance; }

  std::string executableFolder;
  std::string commandLine;
  bool hasPreviousInstance = false;
};

class MemoryClipboard final : public Clipboard {
 public:
  explicit MemoryClipboard(CallLog& log) : log_(log) {}
  void Clear() override;
  void SetText(const std::string& text) override;
  void SetData(const Picture& picture, ClipboardFormat format) override;
  std::string Text() const override { return text_; }
  const Picture& GetPicture() const { return picture_; }
  // The number with which the picture was put there; nothing without one.
  std::optional<ClipboardFormat> Format() const { return format_; }

  // False makes every call that writes raise ClipboardUnavailable.
  bool works = true;

 private:
  void CheckWorks() const;
  CallLog& log_;
  std::string text_;
  Picture picture_;
  std::optional<ClipboardFormat> format_;
};

class MemoryShell final : public Shell {
 public:
  explicit MemoryShell(CallLog& log) : log_(log) {}
  int ShellExecuteA(WindowHandle window, const std::string& verb, const std::string& file,
                    const std::string& arguments, const std::string& directory, int show) override;
  void StartProgram(const std::string& command) override;

  // What the window that asks is called; it stands in the log.
  std::function<std::string(WindowHandle)> nameOf;
  int executeAnswer = 33;
  // False makes StartProgram raise FileNotFound.
  bool programsAreThere = true;

 private:
  CallLog& log_;
};

class MemorySettingsStore final : public SettingsStore {
 public:
  explicit MemorySettingsStore(CallLog& log) : log_(log) {}
  std::string GetSetting(const std::string& section, const std::string& key,
                         const std::string& preset) const override;
  void SaveSetting(const std::string& section, const std::string& key, const std::string& value) override;

  // As another program would have it, and what is there; nothing when there is no such value.
  void Put(const std::string& section, const std::string& key, const std::string& value);
  std::optional<std::string> Stored(const std::string& section, const std::string& key) const;
  // False makes both calls raise InvalidCall.
  bool works = true;

 private:
  void CheckWorks() const;
  CallLog& log_;
  std::map<std::pair<std::string, std::string>, std::string> values_;
};

// A test can have it decode differently from the image control, so that it shows which of the two a picture
// came through.
class MemoryPictureLoader final : public PictureLoader {
 public:
  MemoryPictureLoader(const FileSystem& files, CallLog& log) : PictureLoader(files), log_(log) {}
  Picture LoadPicture(const std::string& path) override;

  enum class Way { Same, Inverted, Failing };
  // Inverted turns every colour into its opposite, Failing raises InvalidPicture.
  Way way = Way::Same;

 private:
  CallLog& log_;
};

class FixedFolders final : public SpecialFolders {
 public:
  std::string Desktop() const override { return desktop; }
  std::string Documents() const override { return documents; }
  std::string Favorites() const override { return favorites; }

  std::string desktop, documents, favorites;
};

class MemoryBrowser final : public Browser {
 public:
  explicit MemoryBrowser(CallLog& log) : log_(log) {}
  void Navigate(int browser, const std::string& address) override;
  bool Busy(int browser) const override { return Usable(browser).busy; }
  std::string LocationName(int browser) const override { return Usable(browser).locationName; }

  struct Page {
    std::string address;
    std::string locationName;
    bool busy = false;
    bool fails = false;
  };
  // There is one of every number.
  std::map<int, Page> pages;

 private:
  // Raises AutomationError when it fails.
  const Page& Usable(int browser) const;
  CallLog& log_;
};

}  // namespace lumidex
