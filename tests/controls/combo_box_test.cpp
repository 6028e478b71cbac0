#include "controls/combo_box.h"

#include "controls/sample_form.h"

namespace lumidex {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

struct ComboForm : Form {
  explicit ComboForm(Platform& platform) : Form(platform, "ComboForm") {
    box.AddItem("one");
    box.AddItem("two");
    KeepDesign();
  }
  ComboBox box{*this, "box", "typed"};
};

struct ComboBoxTest : testing::Test {
  ComboBoxTest() {
    box.OnChange = [this] { told.push_back("change " + box.Text.Get()); };
    box.OnClick = [this] { told.push_back("click " + box.Text.Get()); };
  }
  HeadlessPlatform platform{'/'};
  ComboForm form{platform.ports};
  ComboBox& box = form.box;
  std::vector<std::string> told;
};

TEST_F(ComboBoxTest, A_new_text_fires_change_and_chooses_nothing) {
  box.Text = "two";
  box.Text = "two";
  box.UserType("three");
  EXPECT_THAT(told, ElementsAre("change two", "change three"));
  EXPECT_EQ(box.ListIndex(), -1);
}

TEST_F(ComboBoxTest, Choosing_an_entry_takes_its_text_and_fires_click_on_another_one_only) {
  box.SetListIndex(1);
  box.SetListIndex(1);
  EXPECT_EQ(box.Text.Get(), "two");
  EXPECT_THAT(told, ElementsAre("click two"));
  EXPECT_EQ(NumberRaisedBy([&] { box.SetListIndex(2); }), 380);
  EXPECT_EQ(NumberRaisedBy([&] { box.SetListIndex(-2); }), 380);
}

TEST_F(ComboBoxTest, A_user_who_chooses_the_same_entry_again_fires_click) {
  box.UserSelect(0);
  box.UserSelect(0);
  EXPECT_THAT(told, ElementsAre("click one", "click one"));
  box.Enabled = false;
  box.UserSelect(1);
  box.UserType("nobody");
  EXPECT_EQ(told.size(), 2U);
}

TEST_F(ComboBoxTest, The_choice_is_gone_when_another_text_stands) {
  box.SetListIndex(1);
  box.Text = "other";
  EXPECT_EQ(box.ListIndex(), -1);
}

TEST_F(ComboBoxTest, The_choice_moves_along_with_its_entry) {
  box.SetListIndex(1);
  box.AddItem("zero", 0);
  EXPECT_EQ(box.ListIndex(), 2);
  box.RemoveItem(1);
  EXPECT_EQ(box.ListIndex(), 1);
  box.RemoveItem(1);
  EXPECT_EQ(box.ListIndex(), -1);
  EXPECT_EQ(NumberRaisedBy([&] { box.RemoveItem(1); }), 5);
  EXPECT_EQ(NumberRaisedBy([&] { box.AddItem("", 2); }), 5);
}

TEST_F(ComboBoxTest, Its_entries_are_read_by_name) {
  EXPECT_EQ(box.ReadProperty("ListCount"), "2");
  EXPECT_EQ(box.ReadProperty("List(1)"), "two");
  EXPECT_EQ(box.ReadProperty("List(7)"), "");
  EXPECT_EQ(box.ReadProperty("Text"), "typed");
  EXPECT_TRUE(box.WriteProperty("ListIndex", "0"));
  EXPECT_EQ(box.ReadProperty("ListIndex"), "0");
}

TEST_F(ComboBoxTest, The_entries_of_the_design_come_back) {
  form.Load();
  box.Clear();
  EXPECT_EQ(box.ListCount(), 0);
  told.clear();
  form.Unload();
  EXPECT_EQ(box.ListCount(), 2);
  EXPECT_EQ(box.Text.Get(), "typed");
  EXPECT_THAT(told, IsEmpty());
}

}  // namespace
}  // namespace lumidex
