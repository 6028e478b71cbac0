#include "controls/control_array.h"

#include "controls/sample_form.h"

namespace lumidex {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// As a window of cells: an array with one element that is the pattern of all that come.
struct CellForm : Form {
  explicit CellForm(Platform& platform) : Form(platform, "CellForm") {
    Scale = ScaleMode::Pixels;
    cell(0).Move(1, 2, 81, 81);
    cell(0).Stretch = true;
    cell(0).ToolTipText = "a cell";
    cell(0).Visible = false;
    KeepDesign();
  }
  ControlArray<ImageBox> cell{*this, "cell", 0, 0};
  ControlArray<CommandButton> button{*this, "button", 2, 3, "caption"};
  PictureBox box{*this, "box"};
};

struct ControlArrayTest : testing::Test {
  HeadlessPlatform platform{'/'};
  CellForm form{platform.ports};
  std::vector<std::string> told;
};

TEST_F(ControlArrayTest, A_new_element_is_like_the_first_but_hidden) {
  form.button(2).Caption = "other";
  form.button(2).Enabled = false;
  const CommandButton& made = form.button.Load(7);
  EXPECT_EQ(made.Name(), "button(7)");
  EXPECT_EQ(made.Caption.Get(), "other");
  EXPECT_FALSE(made.Enabled);
  EXPECT_FALSE(made.Visible);
  EXPECT_EQ(form.cell.Load(1).Width.Get(), 81.0F);
  EXPECT_TRUE(form.cell(1).Stretch);
  EXPECT_EQ(form.cell(1).ToolTipText.Get(), "a cell");
}

TEST_F(ControlArrayTest, An_element_is_found_while_it_exists) {
  EXPECT_FALSE(form.cell.Has(5));
  form.cell.Load(5);
  EXPECT_TRUE(form.cell.Has(5));
  EXPECT_EQ(form.Find("cell(5)"), &form.cell(5));
  form.cell.Unload(5);
  EXPECT_FALSE(form.cell.Has(5));
  EXPECT_EQ(form.Find("cell(5)"), nullptr);
}

TEST_F(ControlArrayTest, Indexes_need_not_follow_one_another) {
  form.cell.Load(9);
  form.cell.Load(4);
  EXPECT_EQ(form.cell.First(), 0);
  EXPECT_EQ(form.cell.Last(), 9);
  EXPECT_EQ(form.cell.Count(), 3);
  std::vector<std::string> names;
  for (const auto& cell : form.cell) names.push_back(cell->Name());
  EXPECT_THAT(names, ElementsAre("cell(0)", "cell(4)", "cell(9)"));
  EXPECT_EQ(NumberRaisedBy([&] { form.cell(5); }), 9);
}

TEST_F(ControlArrayTest, What_does_not_exist_raises_subscript) {
  EXPECT_EQ(NumberRaisedBy([&] { form.cell(1); }), 9);
  EXPECT_EQ(NumberRaisedBy([&] { form.cell.Unload(1); }), 9);
  EXPECT_EQ(NumberRaisedBy([&] { form.cell(-1); }), 9);
}

TEST_F(ControlArrayTest, What_exists_or_counts_from_below_0_is_not_loaded) {
  form.cell.Load(1);
  EXPECT_EQ(NumberRaisedBy([&] { form.cell.Load(1); }), 5);
  EXPECT_EQ(NumberRaisedBy([&] { form.cell.Load(0); }), 5);
  EXPECT_EQ(NumberRaisedBy([&] { form.cell.Load(-1); }), 5);
  EXPECT_EQ(form.cell.Count(), 2);
}

TEST_F(ControlArrayTest, Elements_of_the_design_stay) {
  EXPECT_EQ(NumberRaisedBy([&] { form.button.Unload(3); }), 5);
  EXPECT_TRUE(form.button.Has(3));
}

TEST_F(ControlArrayTest, Unloading_the_form_takes_what_came_at_run_time) {
  form.Load();
  form.cell.Load(1);
  form.cell.Load(2);
  form.button.Load(1);
  form.button.Load(8);
  form.Unload();
  EXPECT_EQ(form.cell.Count(), 1);
  EXPECT_EQ(form.button.Count(), 2);
  EXPECT_EQ(form.Controls().size(), 4U);
}

TEST_F(ControlArrayTest, The_form_tells_who_comes_and_who_goes) {
  const Connection comings = form.ControlAdded.Connect([&](Control& control) {
    told.push_back("+" + control.Name());
    // It is whole and in its place when it is told of.
    EXPECT_EQ(&control, form.Find(control.Name()));
    EXPECT_EQ(control.Kind(), "Image");
  });
  const Connection goings = form.ControlRemoved.Connect([&](Control& control) {
    told.push_back("-" + control.Name());
    EXPECT_EQ(form.Find(control.Name()), nullptr);
  });
  form.cell.Load(1);
  form.cell.Load(2);
  form.cell.Unload(1);
  EXPECT_THAT(told, ElementsAre("+cell(1)", "+cell(2)", "-cell(1)"));
}

TEST_F(ControlArrayTest, Every_element_gets_the_handlers_also_one_that_comes_later) {
  form.cell.Wire([&](ImageBox& cell, int index) {
    cell.OnClick = [&, index] { told.push_back(std::to_string(index)); };
  });
  form.cell.Load(3);
  form.cell(3).UserClick();
  form.cell(0).UserClick();
  EXPECT_THAT(told, ElementsAre("3", "0"));
}

TEST_F(ControlArrayTest, An_element_may_be_destroyed_inside_its_own_events) {
  form.button.Wire([&](CommandButton& button, int index) {
    button.OnClick = [&, index, long_enough = std::string(100, 'x')] {
      form.button.Unload(index);
      told.push_back(long_enough.substr(0, 1) + std::to_string(index));
    };
    button.OnKeyDown = [&, index](int) { form.button.Unload(index); };
    button.OnKeyPress = [&](int) { told.push_back("press"); };
  });
  form.button.Load(5);
  form.button(5).UserClick();
  form.button.Load(6);
  form.button(6).UserKey(13);
  form.button.Load(7).OnGotFocus = [&] { form.button.Unload(7); };
  form.button(7).UserClick();
  EXPECT_THAT(told, ElementsAre("x5"));
  EXPECT_EQ(form.button.Count(), 2);
}

TEST_F(ControlArrayTest, The_keyboard_leaves_an_element_that_goes) {
  form.Show();
  CommandButton& button = form.button.Load(5);
  button.Visible = true;
  button.SetFocus();
  form.button.Unload(5);
  EXPECT_EQ(form.ActiveControl(), nullptr);
}

TEST_F(ControlArrayTest, A_control_knows_what_it_stands_in) {
  ImageBox& cell = form.cell(0);
  EXPECT_EQ(cell.ReadProperty("Container"), "CellForm");
  EXPECT_EQ(cell.TwipsPerOuterUnit(), 15.0F);
  cell.Container = &form.box;
  EXPECT_EQ(cell.ReadProperty("Container"), "box");
  EXPECT_EQ(cell.TwipsPerOuterUnit(), 1.0F);
  form.box.Scale = ScaleMode::Pixels;
  EXPECT_EQ(cell.TwipsPerOuterUnit(), 15.0F);
  EXPECT_EQ(&*form.cell.Load(1).Container.Get(), &form.box);
}

TEST_F(ControlArrayTest, What_stands_in_a_control_that_goes_comes_out_of_it) {
  form.box.Container = &form.cell.Load(1);
  form.cell.Unload(1);
  EXPECT_EQ(form.box.Container.Get(), nullptr);
}

TEST_F(ControlArrayTest, A_picture_box_measures_its_inside_in_its_own_unit) {
  form.box.Move(0, 0, 102, 52);  // in the pixels of the form
  EXPECT_EQ(form.box.ScaleWidth(), 1500.0F);
  form.box.Scale = ScaleMode::Pixels;
  EXPECT_EQ(form.box.ScaleWidth(), 100.0F);
  EXPECT_EQ(form.box.ReadProperty("ScaleHeight"), "50");
}

TEST_F(ControlArrayTest, A_unit_that_the_form_measures_in_for_a_while_moves_nothing) {
  form.box.Move(0, 0, 102, 52);
  form.Scale = ScaleMode::Twips;
  EXPECT_EQ(form.box.TwipsPerOuterUnit(), 15.0F);
  EXPECT_EQ(form.box.ScaleWidth(), 1500.0F);
}

TEST_F(Controls, Properties_are_known_by_name_in_the_order_of_their_declaration) {
  std::vector<std::string_view> names;
  for (const PropertyBase* each = form.check.FirstProperty(); each; each = each->Next()) {
    names.push_back(each->Name());
  }
  EXPECT_THAT(names, ElementsAre("Container", "ContainerPage", "Left", "Top", "Width", "Height", "Enabled",
                                 "Visible", "ToolTipText", "Order", "Caption", "Value", "BackColor"));
  EXPECT_EQ(form.check.FindProperty("Value"), &form.check.Value);
  EXPECT_EQ(form.check.FindProperty("value"), nullptr);
}

TEST_F(Controls, Texts_that_a_list_gave_stay_when_the_list_has_changed) {
  form.list.AddItem("an entry that is too long to lie inside the string");
  form.list.SetListIndex(0);
  const std::string& entry = form.list.List(0);
  const std::string& text = form.list.Text();
  form.list.Clear();
  EXPECT_EQ(entry, "an entry that is too long to lie inside the string");
  EXPECT_EQ(text, entry);
}

}  // namespace
}  // namespace lumidex
