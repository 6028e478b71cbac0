// The main window as the program lays it out, at sizes from the smallest screens to the largest.

#include <QMenuBar>

#include "qt/main_window.h"
#include "windows/WPaper2_layout.h"

namespace lumidex {
namespace {

struct MainWindowLayoutTest : MainWindowTest {
  MainWindowLayoutTest() {
    window.OnResize = [this] { WPaper2_Resize(app); };
    window.txtPrgTitle.Caption = "~~~ Korvane Lumidex ~~~\rCopyright 2001 Korvane";
    window.CurrentPicture.Caption = "32767";
    window.lblCount.Caption = "32767";
  }

  // The place in the window of each control that takes room in it.
  std::vector<std::pair<std::string, QRect>> Places() {
    std::vector<std::pair<std::string, QRect>> places;
    for (Control* control : window.Controls()) {
      QWidget* widget = View().WidgetOf(*control);
      if (!widget || widget->isHidden() || control == &window.Image1) continue;
      places.emplace_back(control->Name(), QRect(widget->mapTo(&View(), QPoint(0, 0)), widget->size()));
    }
    return places;
  }

  void ExpectAllInSight(QSize size) {
    SCOPED_TRACE(testing::Message() << size.width() << " x " << size.height());
    View().resize(size);
    Settle();
    const QRect inside(QPoint(0, View().findChild<QMenuBar*>()->geometry().bottom() + 1),
                       QPoint(View().width() - 1, View().height() - 1));
    const auto places = Places();
    for (std::size_t i = 0; i < places.size(); ++i) {
      EXPECT_TRUE(inside.contains(places[i].second)) << places[i].first << " is cut off";
      for (std::size_t other = i + 1; other < places.size(); ++other) {
        EXPECT_FALSE(places[i].second.intersects(places[other].second))
            << places[i].first << " and " << places[other].first << " cover each other";
      }
    }
  }
};

TEST_F(MainWindowLayoutTest, Nothing_is_cut_off_or_covered_from_small_screens_to_large_ones) {
  for (const QSize size : {QSize(1012, 713), QSize(1014, 560), QSize(1280, 720), QSize(1366, 700),
                           QSize(1920, 1030), QSize(2560, 1040), QSize(3840, 2100)}) {
    ExpectAllInSight(size);
  }
}

TEST_F(MainWindowLayoutTest, The_form_is_told_no_more_width_than_its_height_can_use) {
  View().resize(1920, 1030);
  Settle();
  EXPECT_FLOAT_EQ(window.Width, window.WidestFor(window.Height));
  EXPECT_EQ(View().width(), 1920);
  // Less is told as it is.
  View().resize(1000, 1030);
  Settle();
  EXPECT_NEAR(window.Width, world.views.GetUnits().Twips(1000) + 8 * 15, 0.01);
}

TEST_F(MainWindowLayoutTest, A_width_that_the_program_sets_beyond_use_stays_the_windows_own) {
  window.Width = 30000;
  Settle();
  EXPECT_EQ(View().width(), std::lround((30000 / 15.0 - 8) * world.views.GetUnits().factor));
  EXPECT_FLOAT_EQ(window.Width, window.WidestFor(window.Height));
}

TEST_F(MainWindowLayoutTest, A_tall_narrow_window_keeps_the_picture_areas_proportions_and_leaves_room_below) {
  ExpectAllInSight({1000, 1600});
  EXPECT_FLOAT_EQ(window.Picture1.Width, window.Width - 4200 - 240);
  EXPECT_FLOAT_EQ(window.Picture1.Height, window.Picture1.Width * 0.75F);
  EXPECT_FLOAT_EQ(window.txtPrgTitle.Top, window.Height - 1605);
  EXPECT_GT(window.txtPrgTitle.Top, window.cmdUp.Top + 3000);
}

}  // namespace
}  // namespace lumidex
