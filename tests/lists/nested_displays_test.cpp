// Displays that are asked for in the midst of another one.

#include "forms/WPaper2.h"
#include "forms/checkjpg.h"
#include "forms/display_requests.h"
#include "forms/frmPreferences.h"
#include "imaging/current_picture.h"
#include "imaging/save_picture.h"
#include "imaging/zoom_menu.h"
#include "lists/image_lists.h"
#include "support/test_program.h"

namespace lumidex {
namespace {

// Runs `act` inside as many displays as may nest.
void AtTheBottom(DisplayRequests& requests, const std::function<void()>& act, int nested = 1) {
  requests.Run([&] {
    if (nested == DisplayRequests::mostNested) {
      act();
    } else {
      AtTheBottom(requests, act, nested + 1);
    }
  });
}

class Displays : public TestProgram {
 protected:
  void SetUp() override {
    ShowMainWindow();
    app.WPaper2.Picture1.Width = 400 * twipsPerPixel + 2 * PictureBox::BorderWidth;
    app.WPaper2.Picture1.Height = 300 * twipsPerPixel + 2 * PictureBox::BorderWidth;
    for (int i = 0; i < 10; ++i) {
      const std::string path = "C:\\Pics\\p" + std::to_string(i) + ".bmp";
      platform.files.AddFile(path, BitmapFile(20 + i, 10 + i));
      app.WPaper2.LstRight.AddItem(path);
    }
    app.WPaper2.lblCount.Caption = "10";
    app.WPaper2.LstRight.UserSelect(0);
  }
  // Runs `act` in the n-th yield from now on.
  void AtYield(int n, std::function<void()> act) {
    platform.events.OnYield = [this, n, act = std::move(act), count = 0]() mutable {
      if (++count != n) return;
      const auto once = act;
      platform.events.OnYield = nullptr;
      once();
    };
  }
  // How far the stack reaches down while `act` runs, as seen from the yields.
  template <class Act>
  std::ptrdiff_t StackOf(Act act) {
    const char* const top = static_cast<const char*>(__builtin_frame_address(0));
    std::ptrdiff_t deepest = 0;
    const auto before = platform.events.OnYield;
    platform.events.OnYield = [&, before] {
      deepest = std::max(deepest, top - static_cast<const char*>(__builtin_frame_address(0)));
      if (before) before();
    };
    act();
    platform.events.OnYield = nullptr;
    return deepest;
  }
  void PressNext() { app.WPaper2.mnuPictureNext.UserClick(); }
  void ExpectShown(int number, float zoom = 1.0F) {
    const auto width = static_cast<float>(20 + number), height = static_cast<float>(10 + number);
    const ImageBox& box = app.WPaper2.Image1;
    EXPECT_EQ(box.Picture.Get().GetSize().width, 20 + number);
    EXPECT_EQ(box.Picture.Get(), app.checkjpg.Picture1.Picture());
    EXPECT_EQ(box.Width, width * zoom);
    EXPECT_EQ(box.Height, height * zoom);
    EXPECT_TRUE(box.Visible);
    EXPECT_EQ(app.WPaper2.Pointer, MousePointer::Default);
    EXPECT_EQ(app.CurrentImagePath, DisplayText(number));
    EXPECT_EQ(app.WPaper2.LstRight.ListIndex(), number);
    EXPECT_EQ(app.CurrentIndex, number + 1);
    EXPECT_EQ(PanelText(2), "P" + std::to_string(number) + ".Bmp");
    EXPECT_EQ(PanelText(3), std::to_string(20 + number) + " X " + std::to_string(10 + number) + " X 24");
  }
  static constexpr int yieldsOfADisplay = 8;
};

TEST_F(Displays, Six_thousand_queued_steps_end_on_the_last_with_a_flat_stack) {
  const std::ptrdiff_t sixteen = StackOf([&] {
    for (int i = 0; i < 40; ++i) platform.events.Post([this] { PressNext(); });
    platform.events.Yield();
  });
  ExpectShown(0);
  const std::ptrdiff_t many = StackOf([&] {
    for (int i = 0; i < 6003; ++i) platform.events.Post([this] { PressNext(); });
    platform.events.Yield();
  });
  ExpectShown(3);
  EXPECT_LE(many, sixteen);
}

TEST_F(Displays, Next_held_down_ends_on_the_last_with_a_flat_stack) {
  int left = 3004;
  platform.events.OnYield = [&] {
    if (left > 0 && left-- % 2 == 0) platform.events.Post([this] { PressNext(); });
  };
  const std::ptrdiff_t stack = StackOf([&] { PressNext(); });
  EXPECT_EQ(left, 0);
  ExpectShown((1502 + 1) % 10);
  const std::ptrdiff_t sixteen = StackOf([&] {
    for (int i = 0; i < 40; ++i) platform.events.Post([this] { PressNext(); });
    platform.events.Yield();
  });
  // The first display is called from elsewhere: one level of the sixteen is its leeway.
  EXPECT_LE(stack, sixteen + sixteen / 16);
}

TEST_F(Displays, Missing_entries_are_stepped_over_with_a_flat_stack) {
  for (int i = 0; i < 10; ++i) platform.files.Remove(DisplayText(i));
  const auto steps = [&](int count) {
    return StackOf([&] {
      for (int i = 0; i < count; ++i) platform.events.Post([this] { PressNext(); });
      platform.events.Yield();
    });
  };
  const std::ptrdiff_t few = steps(40);
  EXPECT_LE(steps(6004), few);
  EXPECT_EQ(PanelText(2), "P4.Bmp - Not Available");
  EXPECT_EQ(app.CurrentIndex, 5);
}

TEST_F(Displays, Remove_One_pressed_in_the_midst_of_another_is_dropped_with_a_flat_stack) {
  for (int i = 10; i < 3000; ++i) app.WPaper2.LstRight.AddItem(DisplayText(i % 10));
  app.WPaper2.lblCount.Caption = "3000";
  const auto remove = [&](int count) {
    return StackOf([&] {
      for (int i = 0; i < count; ++i) platform.events.Post([this] { app.WPaper2.cmdLeftOne.UserClick(); });
      platform.events.Yield();
    });
  };
  const std::ptrdiff_t few = remove(100);
  EXPECT_EQ(app.WPaper2.LstRight.ListCount(), 2999);
  EXPECT_LE(remove(2890), few + few / 4);
  EXPECT_EQ(app.WPaper2.LstRight.ListCount(), 2998);
  EXPECT_EQ(app.WPaper2.lblCount.Caption.Get(), "2998");
}

TEST_F(Displays, A_step_in_the_midst_of_a_display_has_its_picture_when_it_goes_on) {
  for (int yield = 1; yield <= yieldsOfADisplay; ++yield) {
    app.WPaper2.LstRight.UserSelect(0);
    AtYield(yield, [&] {
      NextImage(app);
      SavePicture(app, app.WPaper2.Image1.Picture, "C:\\wallpaper.bmp");
    });
    app.WPaper2.LstRight.UserSelect(4);
    ExpectShown(5);
    EXPECT_EQ(OpenPicture(platform.files, "C:\\wallpaper.bmp").GetSize().width, 25) << yield;
  }
}

TEST_F(Displays, A_zoom_chosen_at_any_yield_of_a_display_shows_the_new_picture_so) {
  for (int yield = 1; yield <= yieldsOfADisplay; ++yield) {
    SCOPED_TRACE(yield);
    app.WPaper2.LstRight.UserSelect(0);
    SelectZoomLevel(app, 4);
    bool chosen = false;
    AtYield(yield, [&] {
      chosen = true;
      SelectZoomLevel(app, 8);
    });
    app.WPaper2.LstRight.UserSelect(4);
    EXPECT_TRUE(chosen);
    ExpectShown(4, 2.0F);
    EXPECT_EQ(PanelText(4), "200%");
  }
}

TEST_F(Displays, Stretch_ticked_at_any_yield_of_a_display_stretches_the_new_picture) {
  for (int yield = 1; yield <= yieldsOfADisplay; ++yield) {
    SCOPED_TRACE(yield);
    app.frmPreferences.chkStretch.Value = 0;
    app.WPaper2.LstRight.UserSelect(0);
    bool ticked = false;
    AtYield(yield, [&] {
      ticked = true;
      app.frmPreferences.chkStretch.Value = 1;
    });
    app.WPaper2.LstRight.UserSelect(4);
    EXPECT_TRUE(ticked);
    EXPECT_EQ(app.WPaper2.Image1.Picture.Get().GetSize().width, 24);
    EXPECT_EQ(app.WPaper2.Image1.Width, 400.0F);
    EXPECT_EQ(app.WPaper2.Image1.Height, 300.0F);
    EXPECT_EQ(PanelText(2), "P4.Bmp");
    EXPECT_EQ(PanelText(3), "24 X 14 X 24");
  }
}

TEST_F(Displays, Stretch_ticked_while_a_picture_is_on_its_way_does_not_bring_the_one_before_back) {
  FillSelectionList(1);
  app.WPaper2.LstLeft.UserSelect(0);
  ASSERT_EQ(PanelText(2), "F0.Bmp");
  AtYield(3, [&] { app.frmPreferences.chkStretch.Value = 1; });
  app.WPaper2.LstRight.UserSelect(4);
  EXPECT_EQ(app.WPaper2.Image1.Picture.Get().GetSize().width, 24);
  EXPECT_EQ(PanelText(2), "P4.Bmp");
}

TEST_F(Displays, A_window_resized_at_any_yield_of_a_display_has_the_new_picture_in_its_place) {
  for (int yield = 1; yield <= yieldsOfADisplay; ++yield) {
    SCOPED_TRACE(yield);
    app.WPaper2.UserResize(12000, 9000, WindowState::Normal);
    app.WPaper2.LstRight.UserSelect(0);
    bool resized = false;
    AtYield(yield, [&] {
      resized = true;
      app.WPaper2.UserResize(15000, 12000, WindowState::Normal);
    });
    app.WPaper2.LstRight.UserSelect(4);
    EXPECT_TRUE(resized);
    ExpectShown(4);
    EXPECT_EQ(app.WPaper2.Image1.Left, app.WPaper2.Picture1.ScaleWidth() / 2 - 12);
  }
}

TEST_F(Displays, A_resize_that_brings_the_selected_entry_back_leaves_nothing_of_a_preview) {
  FillSelectionList(1);
  for (int yield = 1; yield <= 5; ++yield) {
    SCOPED_TRACE(yield);
    app.WPaper2.UserResize(12000, 9000, WindowState::Normal);
    app.WPaper2.LstRight.UserSelect(4);
    AtYield(yield, [&] { app.WPaper2.UserResize(15000, 12000, WindowState::Normal); });
    app.WPaper2.LstLeft.UserSelect(0);
    ExpectShown(4);
  }
}

TEST_F(Displays, A_missing_entry_named_in_the_midst_leaves_the_picture_whole) {
  platform.files.Remove(DisplayText(5));
  for (int yield = 2; yield <= yieldsOfADisplay; ++yield) {
    SCOPED_TRACE(yield);
    app.WPaper2.LstRight.UserSelect(0);
    AtYield(yield, [&] { NextImage(app); });
    app.WPaper2.LstRight.UserSelect(4);
    const ImageBox& box = app.WPaper2.Image1;
    EXPECT_EQ(PanelText(2), "P5.Bmp - Not Available");
    EXPECT_EQ(PanelText(3), "");
    EXPECT_EQ(app.CurrentIndex, 6);
    EXPECT_EQ(static_cast<float>(box.Picture.Get().GetSize().width), box.Width.Get());
    EXPECT_TRUE(box.Visible);
  }
}

TEST_F(Displays, An_emptied_list_brings_nothing_back_that_was_kept) {
  AtTheBottom(app.displays, [&] {
    PressNext();
    ZapDisplayList(app);
  });
  EXPECT_TRUE(app.WPaper2.Image1.Picture.Get().IsEmpty());
  EXPECT_EQ(app.CurrentIndex, 0);
  EXPECT_EQ(PanelText(2), "");
}

TEST_F(Displays, The_position_follows_at_once_where_the_picture_comes_later) {
  AtTheBottom(app.displays, [&] {
    PressNext();
    PressNext();
    EXPECT_EQ(app.CurrentIndex, 3);
    EXPECT_EQ(app.WPaper2.CurrentPicture.Caption.Get(), "3");
    EXPECT_EQ(PanelText(2), "P0.Bmp");
  });
  ExpectShown(2);
}

}  // namespace
}  // namespace lumidex
