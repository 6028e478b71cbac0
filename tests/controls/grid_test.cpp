#include "controls/grid.h"

#include "controls/sample_form.h"

namespace lumidex {
namespace {

struct GridForm : Form {
  explicit GridForm(Platform& platform) : Form(platform, "GridForm") {
    grid.SetRows(1);
    grid.SetCols(3);
    grid.SetTextMatrix(0, 1, "Drive:");
    grid.SetColWidth(0, 250);
    KeepDesign();
  }
  Grid grid{*this, "grid"};
};

struct GridTest : testing::Test {
  HeadlessPlatform platform{'/'};
  GridForm form{platform.ports};
  Grid& grid = form.grid;
};

TEST_F(GridTest, AddItem_puts_the_cells_between_tabs_behind_the_last_row) {
  grid.AddItem("\tC:\t\\Pics\\");
  EXPECT_EQ(grid.Rows(), 2);
  EXPECT_EQ(grid.TextMatrix(1, 0), "");
  EXPECT_EQ(grid.TextMatrix(1, 1), "C:");
  EXPECT_EQ(grid.TextMatrix(1, 2), "\\Pics\\");
}

TEST_F(GridTest, AddItem_leaves_cells_without_a_text_empty_and_those_without_a_column_out) {
  grid.AddItem("one");
  grid.AddItem("1\t2\t3\t4");
  EXPECT_EQ(grid.TextMatrix(1, 0), "one");
  EXPECT_EQ(grid.TextMatrix(1, 2), "");
  EXPECT_EQ(grid.TextMatrix(2, 2), "3");
}

TEST_F(GridTest, AddItem_puts_a_row_before_another_one) {
  grid.AddItem("last");
  grid.AddItem("first", 1);
  EXPECT_EQ(grid.TextMatrix(1, 0), "first");
  EXPECT_EQ(grid.TextMatrix(2, 0), "last");
  EXPECT_EQ(NumberRaisedBy([&] { grid.AddItem("", 4); }), 5);
  EXPECT_EQ(NumberRaisedBy([&] { grid.AddItem("", -2); }), 5);
}

TEST_F(GridTest, Text_is_that_of_the_cell_at_Row_and_Col) {
  grid.SetRow(0);
  grid.SetCol(1);
  EXPECT_EQ(grid.Text(), "Drive:");
  grid.SetText("other");
  EXPECT_EQ(grid.TextMatrix(0, 1), "other");
  EXPECT_EQ(grid.ReadProperty("Text"), "other");
  EXPECT_EQ(grid.ReadProperty("Col"), "1");
}

TEST_F(GridTest, A_position_outside_is_refused) {
  EXPECT_EQ(NumberRaisedBy([&] { grid.SetRow(1); }), 380);
  EXPECT_EQ(NumberRaisedBy([&] { grid.SetCol(3); }), 380);
  EXPECT_EQ(NumberRaisedBy([&] { grid.SetCol(-1); }), 380);
  EXPECT_EQ(NumberRaisedBy([&] { grid.TextMatrix(1, 0); }), 9);
  EXPECT_EQ(NumberRaisedBy([&] { grid.SetTextMatrix(0, 3, ""); }), 9);
  EXPECT_EQ(NumberRaisedBy([&] { grid.SetRows(-1); }), 380);
}

TEST_F(GridTest, A_column_is_as_wide_as_it_was_made) {
  EXPECT_EQ(grid.ColWidth(0), 250);
  EXPECT_EQ(grid.ColWidth(1), -1);
  grid.SetColWidth(2, 3000);
  EXPECT_EQ(grid.ReadProperty("ColWidth(2)"), "3000");
  EXPECT_EQ(NumberRaisedBy([&] { grid.SetColWidth(3, 10); }), 9);
  EXPECT_EQ(NumberRaisedBy([&] { grid.ColWidth(-1); }), 9);
  EXPECT_EQ(NumberRaisedBy([&] { grid.SetColWidth(0, -2); }), 380);
}

TEST_F(GridTest, The_current_cell_stays_inside_when_the_grid_shrinks) {
  grid.SetRows(5);
  grid.SetRow(4);
  grid.SetRows(2);
  EXPECT_EQ(grid.Row(), 1);
  grid.SetRows(0);
  EXPECT_EQ(grid.Row(), 0);
  EXPECT_EQ(NumberRaisedBy([&] { grid.Text(); }), 9);
}

TEST_F(GridTest, Clear_empties_the_cells_and_keeps_rows_and_widths) {
  grid.AddItem("a\tb\tc");
  grid.Clear();
  EXPECT_EQ(grid.Rows(), 2);
  EXPECT_EQ(grid.TextMatrix(1, 1), "");
  EXPECT_EQ(grid.ColWidth(0), 250);
}

TEST_F(GridTest, Unloading_the_form_brings_back_the_grid_of_the_design) {
  form.Load();
  grid.AddItem("a\tb\tc");
  grid.SetColWidth(0, 99);
  grid.SetTextMatrix(0, 1, "changed");
  form.Unload();
  EXPECT_EQ(grid.Rows(), 1);
  EXPECT_EQ(grid.Cols(), 3);
  EXPECT_EQ(grid.ColWidth(0), 250);
  EXPECT_EQ(grid.TextMatrix(0, 1), "Drive:");
}

}  // namespace
}  // namespace lumidex
