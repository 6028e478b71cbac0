#include <gmock/gmock.h>
#include <sys/stat.h>

#include "desktop/recorded_tools.h"
#include "platform/posix/wallpaper/wallpaper_changer.h"
#include "posix/temporary_folder.h"

namespace lumidex {
namespace {

// A desktop that shows one file and tells it as its state.
class SmallDesktop final : public WallpaperBackend {
 public:
  SmallDesktop(std::string name, std::string folder, std::string first)
      : shown(std::move(first)), name_(std::move(name)), folder_(std::move(folder)) {}
  std::string Name() const override { return name_; }
  bool ShowsOurs() override { return shown.starts_with(folder_); }
  std::optional<std::string> Remember() override {
    return tells ? std::optional<std::string>(shown) : std::nullopt;
  }
  bool Set(const std::string& file, WallpaperMode) override {
    if (!takes) return false;
    shown = file;
    content = Get(file);
    return true;
  }
  bool Restore(const std::optional<std::string>& remembered) override {
    shown = remembered.value_or("(nothing)");
    return true;
  }

  std::string shown, content;
  bool takes = true, tells = true;

 private:
  std::string name_, folder_;
};

class WallpaperChangerTest : public testing::Test {
 protected:
  WallpaperChangerTest() { Restart(); }
  // As another run of the program would find everything.
  void Restart() {
    const std::string shown = desktop_ ? desktop_->shown : "/usr/share/default.png";
    auto first = std::make_unique<SmallDesktop>("first", folder_, shown);
    auto second = std::make_unique<SmallDesktop>("second", folder_, "/usr/share/second.png");
    desktop_ = first.get();
    second_ = second.get();
    std::vector<std::unique_ptr<WallpaperBackend>> ways;
    ways.push_back(std::move(first));
    ways.push_back(std::move(second));
    changer_ = std::make_unique<WallpaperChanger>(std::move(ways), folder_);
  }
  bool SetTo(const std::string& content) {
    Put(home_ / "Lumidex.bmp", content);
    return changer_->Set(home_ / "Lumidex.bmp", WallpaperMode::Centered);
  }

  TemporaryFolder home_;
  const std::string folder_ = home_ / "data/wallpaper";
  SmallDesktop* desktop_ = nullptr;
  SmallDesktop* second_ = nullptr;
  std::unique_ptr<WallpaperChanger> changer_;
};

TEST_F(WallpaperChangerTest, The_desktop_gets_another_name_for_every_picture) {
  EXPECT_TRUE(SetTo("one"));
  const std::string first = desktop_->shown;
  EXPECT_EQ(desktop_->content, "one");
  EXPECT_TRUE(SetTo("two"));
  EXPECT_NE(desktop_->shown, first);
  EXPECT_EQ(desktop_->content, "two");
  EXPECT_TRUE(SetTo("three"));
  EXPECT_EQ(desktop_->shown, first);
  EXPECT_EQ(desktop_->content, "three");
}

TEST_F(WallpaperChangerTest, The_names_alternate_over_several_runs_of_the_program) {
  SetTo("one");
  const std::string first = desktop_->shown;
  Restart();
  SetTo("two");
  EXPECT_NE(desktop_->shown, first);
}

TEST_F(WallpaperChangerTest, What_the_desktop_shows_stays_when_the_wallpaper_file_is_replaced) {
  SetTo("one");
  std::filesystem::remove(home_ / "Lumidex.bmp");
  Put(home_ / "Lumidex.bmp", "two");
  EXPECT_EQ(Get(desktop_->shown), "one");
}

TEST_F(WallpaperChangerTest, Taking_the_file_over_copies_nothing_on_the_same_disk) {
  SetTo("one");
  struct stat a {
  }, b{};
  ASSERT_EQ(stat((home_ / "Lumidex.bmp").c_str(), &a), 0);
  ASSERT_EQ(stat(desktop_->shown.c_str(), &b), 0);
  EXPECT_EQ(a.st_ino, b.st_ino);
}

TEST_F(WallpaperChangerTest, Removal_gives_back_what_was_there_before_the_first_change) {
  SetTo("one");
  SetTo("two");
  Restart();
  SetTo("three");
  changer_->Clear();
  EXPECT_EQ(desktop_->shown, "/usr/share/default.png");
  EXPECT_EQ(Get(home_ / "Lumidex.bmp"), "three");
}

TEST_F(WallpaperChangerTest, Our_own_files_go_with_the_removal) {
  SetTo("one");
  const std::string shown = desktop_->shown;
  changer_->Clear();
  EXPECT_FALSE(std::filesystem::exists(shown));
}

TEST_F(WallpaperChangerTest, A_picture_that_the_user_chose_since_is_not_taken_away) {
  SetTo("one");
  desktop_->shown = "/home/ada/chosen.png";
  changer_->Clear();
  EXPECT_EQ(desktop_->shown, "/home/ada/chosen.png");
}

TEST_F(WallpaperChangerTest, A_picture_that_the_user_chose_since_is_what_comes_back) {
  SetTo("one");
  desktop_->shown = "/home/ada/chosen.png";
  SetTo("two");
  changer_->Clear();
  EXPECT_EQ(desktop_->shown, "/home/ada/chosen.png");
}

TEST_F(WallpaperChangerTest, Removal_without_a_change_before_it_leaves_the_user_s_picture) {
  changer_->Clear();
  EXPECT_EQ(desktop_->shown, "/usr/share/default.png");
}

TEST_F(WallpaperChangerTest, Where_nothing_could_be_remembered_the_picture_goes) {
  desktop_->tells = false;
  SetTo("one");
  changer_->Clear();
  EXPECT_EQ(desktop_->shown, "(nothing)");
}

TEST_F(WallpaperChangerTest, The_next_way_is_tried_when_the_first_does_not_work) {
  desktop_->takes = false;
  EXPECT_TRUE(SetTo("one"));
  EXPECT_EQ(desktop_->shown, "/usr/share/default.png");
  EXPECT_EQ(second_->content, "one");
  changer_->Clear();
  EXPECT_EQ(second_->shown, "/usr/share/second.png");
}

TEST_F(WallpaperChangerTest, No_way_at_all_is_told) {
  desktop_->takes = second_->takes = false;
  EXPECT_FALSE(SetTo("one"));
}

TEST_F(WallpaperChangerTest, A_wallpaper_file_that_is_gone_changes_nothing) {
  EXPECT_FALSE(changer_->Set(home_ / "none.bmp", WallpaperMode::Tiled));
  EXPECT_EQ(desktop_->shown, "/usr/share/default.png");
}

}  // namespace
}  // namespace lumidex
