#include "controls/list_box.h"

#include <algorithm>
#include <random>

#include "base/text.h"
#include "controls/sample_form.h"

namespace lumidex {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

struct ListBoxTest : Controls {
  ListBox& list = form.list;
  void SetUp() override {
    for (const char* text : {"a", "b", "c"}) list.AddItem(text);
    list.OnClick = Tell("click");
  }
  std::vector<std::string> Texts(const ListBox& box) {
    std::vector<std::string> texts;
    for (int i = 0; i < box.ListCount(); ++i) texts.push_back(box.List(i));
    return texts;
  }
};

TEST_F(ListBoxTest, Writing_the_position_fires_click_only_when_the_selection_changes) {
  list.SetListIndex(1);
  EXPECT_THAT(told, ElementsAre("click"));
  list.SetListIndex(1);
  EXPECT_THAT(told, ElementsAre("click"));
  list.SetListIndex(-1);
  EXPECT_THAT(told, ElementsAre("click", "click"));
}

TEST_F(ListBoxTest, Writing_the_flag_fires_click_only_when_the_selection_changes) {
  list.SetSelected(2, true);
  EXPECT_EQ(list.ListIndex(), 2);
  list.SetSelected(2, true);
  list.SetSelected(0, false);
  EXPECT_EQ(told.size(), 1U);
  list.SetSelected(2, false);
  EXPECT_EQ(list.ListIndex(), -1);
  EXPECT_EQ(told.size(), 2U);
}

TEST_F(ListBoxTest, Selecting_the_same_entry_inside_its_click_ends_the_recursion) {
  list.OnClick = [this] {
    told.push_back("click");
    list.SetListIndex(list.ListIndex());
    list.SetSelected(list.ListIndex(), true);
  };
  list.SetListIndex(0);
  EXPECT_THAT(told, ElementsAre("click"));
}

TEST_F(ListBoxTest, A_click_of_the_user_always_fires) {
  form.Load();
  list.UserSelect(0);
  list.UserSelect(0);
  EXPECT_THAT(told, ElementsAre("click", "click"));
}

TEST_F(ListBoxTest, A_click_on_a_disabled_list_or_below_its_end_does_nothing) {
  list.UserSelect(3);
  list.Enabled = false;
  list.UserSelect(0);
  EXPECT_THAT(told, IsEmpty());
  EXPECT_EQ(list.ListIndex(), -1);
}

TEST_F(ListBoxTest, Removing_the_selected_entry_leaves_no_selection_and_no_event) {
  list.SetListIndex(1);
  told.clear();
  list.RemoveItem(1);
  EXPECT_EQ(list.ListIndex(), -1);
  EXPECT_EQ(list.Text(), "");
  EXPECT_THAT(told, IsEmpty());
  EXPECT_THAT(Texts(list), ElementsAre("a", "c"));
}

TEST_F(ListBoxTest, Inserting_above_the_selection_moves_it_along) {
  list.SetListIndex(1);
  told.clear();
  list.AddItem("x", 1);
  EXPECT_EQ(list.ListIndex(), 2);
  EXPECT_EQ(list.Text(), "b");
  list.AddItem("y", 3);
  EXPECT_EQ(list.ListIndex(), 2);
  EXPECT_THAT(told, IsEmpty());
}

TEST_F(ListBoxTest, Removing_above_the_selection_moves_it_along) {
  list.SetListIndex(2);
  told.clear();
  list.RemoveItem(0);
  EXPECT_EQ(list.ListIndex(), 1);
  EXPECT_EQ(list.Text(), "c");
  EXPECT_THAT(told, IsEmpty());
}

TEST_F(ListBoxTest, Positions_outside_raise_their_numbers) {
  EXPECT_EQ(NumberRaisedBy([&] { list.SetListIndex(3); }), 380);
  EXPECT_EQ(NumberRaisedBy([&] { list.SetListIndex(-2); }), 380);
  EXPECT_EQ(NumberRaisedBy([&] { list.SetSelected(3, true); }), 5);
  EXPECT_EQ(NumberRaisedBy([&] { list.RemoveItem(3); }), 5);
  EXPECT_EQ(NumberRaisedBy([&] { list.RemoveItem(-1); }), 5);
  EXPECT_EQ(NumberRaisedBy([&] { list.AddItem("x", 4); }), 5);
  EXPECT_EQ(list.List(3), "");
  EXPECT_EQ(list.List(-1), "");
}

TEST_F(ListBoxTest, The_32768th_entry_is_out_of_memory) {
  list.Clear();
  for (int i = 0; i < 32767; ++i) list.AddItem("x");
  EXPECT_EQ(list.ListCount(), 32767);
  EXPECT_EQ(NumberRaisedBy([&] { list.AddItem("one more"); }), 7);
  EXPECT_EQ(list.ListCount(), 32767);
}

TEST_F(ListBoxTest, The_32768th_entry_of_a_sorted_list_is_out_of_memory) {
  for (int i = 0; i < 32767; ++i) form.sorted.AddItem("x" + Number(i % 1000));
  EXPECT_EQ(NumberRaisedBy([&] { form.sorted.AddItem("one more"); }), 7);
  EXPECT_EQ(form.sorted.List(0), "x0");
}

TEST_F(ListBoxTest, A_sorted_list_is_ascending_without_regard_to_case) {
  for (const char* text : {"b", "C", "a", "B", "A"}) form.sorted.AddItem(text);
  EXPECT_THAT(Texts(form.sorted), ElementsAre("A", "a", "B", "b", "C"));
}

TEST_F(ListBoxTest, A_sorted_list_agrees_with_plain_sorting_however_it_was_filled) {
  std::minstd_rand random(7);
  std::vector<std::string> expected;
  for (int i = 0; i < 2000; ++i) {
    std::string text = (i % 2 == 0 ? "C:\\Pics\\" : "c:\\pics\\") + Number(static_cast<int>(random() % 500));
    expected.push_back(text);
    form.sorted.AddItem(text);
    // Looking in between must not change what comes out.
    if (i % 97 == 0) {
      ASSERT_EQ(form.sorted.ListCount(), i + 1);
      form.sorted.List(i / 2);
    }
  }
  std::ranges::sort(expected, [](const auto& a, const auto& b) { return CompareText(a, b) < 0; });
  EXPECT_EQ(Texts(form.sorted), expected);
}

// As a search fills it: folder by folder, the last one first, with files that lie between those of folders.
TEST_F(ListBoxTest, A_sorted_list_agrees_with_plain_sorting_when_it_comes_in_stretches) {
  for (const int files : {1, 2, 7, 30}) {
    form.sorted.Clear();
    std::vector<std::string> expected;
    for (int folder = 40; folder >= 0; --folder) {
      // Every third one holds what belongs between the files of the one before.
      const std::string path = "/Pictures/" + Number(folder - folder % 3) + (folder % 3 == 2 ? "/5/" : "/");
      for (int file = 0; file < files; ++file) expected.push_back(path + Number(10 + file) + ".jpg");
      for (int file = 0; file < files; ++file)
        form.sorted.AddItem(expected[expected.size() - 1 - static_cast<std::size_t>(file)]);
      for (int file = 0; file < files; ++file) {
        expected.push_back(path + "a" + Number(10 + file) + ".JPG");
        form.sorted.AddItem(expected.back());
      }
    }
    std::ranges::sort(expected, [](const auto& a, const auto& b) { return CompareText(a, b) < 0; });
    EXPECT_EQ(Texts(form.sorted), expected) << files;
  }
}

TEST_F(ListBoxTest, The_selection_of_a_sorted_list_stays_on_its_entry) {
  for (const char* text : {"b", "d"}) form.sorted.AddItem(text);
  form.sorted.SetListIndex(1);
  form.sorted.AddItem("a");
  form.sorted.AddItem("c");
  EXPECT_EQ(form.sorted.ListIndex(), 3);
  EXPECT_EQ(form.sorted.Text(), "d");
}

TEST_F(ListBoxTest, Ticks_are_flags_of_the_entries_and_no_selection) {
  ListBox& ticks = form.ticks;
  ticks.AddItem("a");
  ticks.AddItem("b");
  ticks.OnClick = Tell("click");
  ticks.OnItemCheck = [this](int index) { told.push_back("tick " + Number(index)); };
  ticks.SetSelected(1, true);
  ticks.SetSelected(1, true);
  EXPECT_TRUE(ticks.Selected(1));
  EXPECT_FALSE(ticks.Selected(0));
  EXPECT_EQ(ticks.ListIndex(), -1);
  EXPECT_THAT(told, ElementsAre("tick 1"));
}

TEST_F(ListBoxTest, An_error_of_the_handler_goes_up_to_the_code_that_selected) {
  list.OnClick = [] { throw RunTimeError(ErrorNumber::FileNotFound); };
  EXPECT_EQ(NumberRaisedBy([&] { list.SetListIndex(0); }), 53);
  EXPECT_EQ(list.ListIndex(), 0);
}

TEST_F(ListBoxTest, Its_state_is_read_by_name) {
  list.SetListIndex(1);
  EXPECT_EQ(list.ReadProperty("ListCount"), "3");
  EXPECT_EQ(list.ReadProperty("ListIndex"), "1");
  EXPECT_EQ(list.ReadProperty("Text"), "b");
  EXPECT_EQ(list.ReadProperty("List(2)"), "c");
  EXPECT_EQ(list.ReadProperty("Selected(1)"), "True");
  EXPECT_EQ(list.ReadProperty("Nonsense"), std::nullopt);
}

}  // namespace
}  // namespace lumidex
