// Windows that are given back while the window system is still busy with them.

#include "controls/texts.h"
#include "qt/qt_world.h"

namespace lumidex {
namespace {

struct PlainForm : Form {
  PlainForm(Platform& platform, const std::string& name) : Form(platform, name, name) { KeepDesign(); }
  TextBox first{*this, "first"};
  TextBox second{*this, "second"};
};

struct LeavingWindowsTest : testing::Test {
  LeavingWindowsTest() {
    world.views.Attach(leaving);
    world.views.Attach(staying);
    for (Form* form : {&staying, &leaving}) {
      form->Show();
      EXPECT_TRUE(QTest::qWaitForWindowExposed(View(*form)));
      View(*form)->activateWindow();
      Settle();
    }
  }
  ~LeavingWindowsTest() override { world.views.Close(); }
  FormView* View(const Form& form) const { return world.views.ViewOf(form); }

  // As a routine's yields do that has changed something.
  void ServeEvents() {
    world.events.Post([] {});
    Settle();
  }
  // As the loop of events does, which these tests are not in.
  static void LetGo() {
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    Settle();
  }

  // Here the window system still takes the one that goes for the one in front, as where it is slow to tell.
  void GoWhileNextAnswers(Event<>& answer) {
    const QPointer<FormView> window = View(leaving);
    bool wasThere = false;
    answer = [&] {
      ServeEvents();
      wasThere = !window.isNull();
    };
    leaving.Unload();
    View(staying)->activateWindow();
    Settle();
    EXPECT_TRUE(wasThere);
    LetGo();
    EXPECT_TRUE(window.isNull());
  }

  QtWorld world;
  PlainForm staying{world.platform, "frmStaying"}, leaving{world.platform, "frmLeaving"};
};

TEST_F(LeavingWindowsTest, A_window_that_goes_outlives_the_activation_of_the_next_one) {
  GoWhileNextAnswers(staying.OnActivate);
}

TEST_F(LeavingWindowsTest, A_window_that_goes_outlives_the_arrival_of_the_focus_in_the_next_one) {
  WidgetOf<QWidget>(world, staying.second).setFocus();
  GoWhileNextAnswers(staying.second.OnGotFocus);
}

TEST_F(LeavingWindowsTest, A_window_that_goes_outlives_the_dialog_that_stands_before_it) {
  const QPointer<FormView> window = View(leaving);
  bool wasThere = false;
  world.events.Post([&] {
    leaving.Unload();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    wasThere = !window.isNull();
    QWidget* const dialog = QApplication::activeModalWidget();
    ASSERT_NE(dialog, nullptr);
    EXPECT_EQ(dialog->parentWidget(), window);
    dialog->close();
  });
  Message message;
  message.text = "Some text";
  world.dialogs.MsgBox(message);
  EXPECT_TRUE(wasThere);
  LetGo();
  EXPECT_TRUE(window.isNull());
}

}  // namespace
}  // namespace lumidex
