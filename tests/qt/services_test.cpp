#include <QClipboard>
#include <QInputDialog>
#include <QMessageBox>
#include <QMimeData>
#include <QPushButton>

#include "gallery/encoders/emf_encoder.h"
#include "gallery/encoders/wmf_encoder.h"
#include "number_raised.h"
#include "pictures/codec.h"
#include "pictures/pixels.h"
#include "platform/qt/clock.h"
#include "platform/qt/conversions.h"
#include "qt/qt_world.h"

namespace lumidex {
namespace {

// Runs `act` on the dialog that opens next.
template <class Dialog>
void WhenOpen(QtWorld& world, std::function<void(Dialog&)> act) {
  world.events.Post([act] {
    auto* dialog = qobject_cast<Dialog*>(QApplication::activeModalWidget());
    ASSERT_NE(dialog, nullptr);
    act(*dialog);
  });
}

TEST(QtDialogs, A_message_shows_its_text_as_it_stands) {
  QtWorld world;
  Message message;
  message.text = "<b>not bold</b> & so on";
  message.icon = MessageIcon::Critical;
  WhenOpen<QMessageBox>(world, [&](QMessageBox& box) {
    EXPECT_EQ(box.text(), "<b>not bold</b> & so on");
    EXPECT_EQ(box.textFormat(), Qt::PlainText);
    EXPECT_EQ(box.windowTitle(), "Lumidex");
    EXPECT_EQ(box.icon(), QMessageBox::Critical);
    box.button(QMessageBox::Ok)->click();
  });
  EXPECT_EQ(world.dialogs.MsgBox(message), MessageAnswer::Ok);
}

TEST(QtDialogs, Each_button_of_a_message_has_its_answer) {
  QtWorld world;
  const auto answer = [&](MessageButtons buttons, QMessageBox::StandardButton press) {
    WhenOpen<QMessageBox>(world, [&](QMessageBox& box) { box.button(press)->click(); });
    Message message;
    message.buttons = buttons;
    return world.dialogs.MsgBox(message);
  };
  EXPECT_EQ(answer(MessageButtons::YesNo, QMessageBox::Yes), MessageAnswer::Yes);
  EXPECT_EQ(answer(MessageButtons::YesNo, QMessageBox::No), MessageAnswer::No);
  EXPECT_EQ(answer(MessageButtons::YesNoCancel, QMessageBox::Cancel), MessageAnswer::Cancel);
  EXPECT_EQ(answer(MessageButtons::RetryCancel, QMessageBox::Retry), MessageAnswer::Retry);
  EXPECT_EQ(answer(MessageButtons::AbortRetryIgnore, QMessageBox::Abort), MessageAnswer::Abort);
  EXPECT_EQ(answer(MessageButtons::AbortRetryIgnore, QMessageBox::Ignore), MessageAnswer::Ignore);
  EXPECT_EQ(answer(MessageButtons::OkCancel, QMessageBox::Ok), MessageAnswer::Ok);
}

TEST(QtDialogs, A_message_left_by_escape_is_cancelled) {
  QtWorld world;
  Message message;
  message.buttons = MessageButtons::OkCancel;
  WhenOpen<QMessageBox>(world, [](QMessageBox& box) { QTest::keyClick(&box, Qt::Key_Escape); });
  EXPECT_EQ(world.dialogs.MsgBox(message), MessageAnswer::Cancel);
  message.buttons = MessageButtons::Ok;
  WhenOpen<QMessageBox>(world, [](QMessageBox& box) { QTest::keyClick(&box, Qt::Key_Escape); });
  EXPECT_EQ(world.dialogs.MsgBox(message), MessageAnswer::Ok);
}

TEST(QtDialogs, An_input_box_begins_with_its_preset_and_tells_cancelling_apart) {
  QtWorld world;
  WhenOpen<QInputDialog>(world, [](QInputDialog& dialog) {
    EXPECT_EQ(dialog.textValue(), "5");
    dialog.setTextValue("12");
    dialog.accept();
  });
  EXPECT_EQ(world.dialogs.InputBox({"Seconds", "Interval", "5"}), "12");
  WhenOpen<QInputDialog>(world, [](QInputDialog& dialog) { dialog.reject(); });
  EXPECT_EQ(world.dialogs.InputBox({"Seconds", "Interval", "5"}), std::nullopt);
}

TEST(QtDialogs, File_filters_become_Qts_own) {
  EXPECT_EQ(NameFilters("Lists (*.lst)|*.lst|Pictures|*.bmp;*.jpg|All Files|*.*"),
            (QStringList{"Lists (*.lst)", "Pictures (*.bmp *.jpg)", "All Files (*)"}));
  EXPECT_TRUE(NameFilters("").isEmpty());
}

TEST(QtClipboard, Text_goes_both_ways) {
  QtClipboard clipboard;
  clipboard.SetText("/home/ada/\xC3\xA4.jpg");
  EXPECT_EQ(clipboard.Text(), "/home/ada/\xC3\xA4.jpg");
  clipboard.Clear();
  EXPECT_EQ(clipboard.Text(), "");
}

class CountingDecoder final : public Decoder {
 public:
  explicit CountingDecoder(int& decodes) : decodes_(decodes) { facts_.size = {4, 2}; }
  Pixels Decode(const DecodeRequest&) const override {
    ++decodes_;
    return Pixels::Make({4, 2}, PixelFormat::Rgb, 0xFF00FF00);
  }

 private:
  int& decodes_;
};

TEST(QtClipboard, A_picture_is_decoded_when_it_is_pasted) {
  int decodes = 0;
  QtClipboard clipboard;
  clipboard.SetData(Picture::FromDecoder(std::make_unique<CountingDecoder>(decodes)), ClipboardFormat::Own);
  EXPECT_TRUE(QGuiApplication::clipboard()->mimeData()->hasImage());
  EXPECT_EQ(decodes, 0);
  const QImage pasted = QGuiApplication::clipboard()->image();
  EXPECT_EQ(decodes, 1);
  EXPECT_EQ(pasted.size(), QSize(4, 2));
  EXPECT_EQ(pasted.pixelColor(3, 1), QColor(Qt::green));
  clipboard.Clear();
}

TEST(QtClipboard, A_drawing_goes_as_its_own_file_and_as_pixels) {
  QtClipboard clipboard;
  WmfWriter old;
  old.Window(0, 0, 100, 50);
  const std::pair<std::vector<std::uint8_t>, QString> drawings[] = {
      {old.File(), "image/x-wmf"}, {EmfWriter(100, 50).File(), "image/x-emf"}};
  for (const auto& [file, type] : drawings) {
    const Picture drawing = Picture::Open(PictureData(std::make_shared<MemorySource>(file), std::string()));
    for (const ClipboardFormat format : {ClipboardFormat::Metafile, ClipboardFormat::Own}) {
      clipboard.SetData(drawing, format);
      const QMimeData& offer = *QGuiApplication::clipboard()->mimeData();
      EXPECT_EQ(offer.data(type),
                QByteArray(reinterpret_cast<const char*>(file.data()), static_cast<qsizetype>(file.size())));
      EXPECT_EQ(offer.formats().filter("image/").size(), 2);
      EXPECT_EQ(QGuiApplication::clipboard()->image().size(), QSize(100, 50));
    }
  }
  clipboard.Clear();
}

TEST(QtClipboard, Pixels_go_without_a_drawing) {
  QtClipboard clipboard;
  clipboard.SetData(Picture::FromPixels(Pixels::Make({2, 2}, PixelFormat::Rgb, 0xFF000000), 24),
                    ClipboardFormat::Own);
  EXPECT_TRUE(QGuiApplication::clipboard()->mimeData()->formats().filter("emf").isEmpty());
  EXPECT_TRUE(QGuiApplication::clipboard()->mimeData()->data("image/x-wmf").isEmpty());
  clipboard.Clear();
}

TEST(QtClipboard, Pixels_are_refused_as_a_drawing) {
  QtClipboard clipboard;
  const Picture pixels = Picture::FromPixels(Pixels::Make({2, 2}, PixelFormat::Rgb, 0xFF000000), 24);
  EXPECT_EQ(NumberRaisedBy([&] { clipboard.SetData(pixels, ClipboardFormat::Metafile); }), 460);
  EXPECT_TRUE(QGuiApplication::clipboard()->image().isNull());
}

TEST(QtClipboard, No_picture_is_refused) {
  QtClipboard clipboard;
  EXPECT_EQ(NumberRaisedBy([&] { clipboard.SetData(Picture(), ClipboardFormat::Own); }), 460);
}

TEST(QtClock, The_time_of_a_file_is_told_in_local_time) {
  const QByteArray before = qgetenv("TZ");
  qputenv("TZ", "TST-5:30");
  tzset();
  const DateTime moment = QtClock().LocalTime(86400);
  EXPECT_EQ(moment.day, 2);
  EXPECT_EQ(moment.hour, 5);
  EXPECT_EQ(moment.minute, 30);
  if (before.isNull()) {
    qunsetenv("TZ");
  } else {
    qputenv("TZ", before);
  }
  tzset();
}

TEST(QtClock, The_time_of_day_lies_within_the_day) {
  const QtClock clock;
  EXPECT_GE(clock.TimeOfDay(), 0);
  EXPECT_LT(clock.TimeOfDay(), 86400);
  const DateTime now = clock.Now();
  EXPECT_GE(now.year, 2024);
  EXPECT_GE(now.month, 1);
  EXPECT_LE(now.month, 12);
}

TEST(Conversions, Access_key_marks_go_and_doubled_ones_stay_once) {
  EXPECT_EQ(WithoutAccessKey("Add O&ne"), "Add One");
  EXPECT_EQ(WithoutAccessKey("Me, 2000 && NT4.0"), "Me, 2000 & NT4.0");
  EXPECT_EQ(WithoutAccessKey("at the end &"), "at the end ");
  EXPECT_EQ(WithoutAccessKey(""), "");
}

TEST(Conversions, Colours_have_red_in_the_low_byte) {
  EXPECT_EQ(ToColour(0xFFC0C0), QColor(0xC0, 0xC0, 0xFF));
  EXPECT_FALSE(ToColour(-1).isValid());
}

TEST(Conversions, Text_stays_readable_on_every_ground) {
  EXPECT_EQ(ReadableOn(QColor(0xC0, 0xC0, 0xFF)), QColor(Qt::black));
  EXPECT_EQ(ReadableOn(QColor(0x80, 0x80, 0x80)), QColor(Qt::black));
  EXPECT_EQ(ReadableOn(QColor(0x20, 0x20, 0x60)), QColor(Qt::white));
}

TEST(Conversions, Pixels_keep_their_colours_in_every_format) {
  const auto shown = [](PixelFormat format, std::uint32_t word) {
    return ToImage(Pixels::Make({2, 2}, format, word)).pixelColor(1, 1);
  };
  EXPECT_EQ(shown(PixelFormat::Rgb, 0xFF102030), QColor(0x10, 0x20, 0x30));
  EXPECT_EQ(shown(PixelFormat::Argb, 0x80FFFFFF).alpha(), 0x80);
  EXPECT_EQ(shown(PixelFormat::ArgbPremultiplied, 0x80808080), QColor(255, 255, 255, 0x80));
  EXPECT_TRUE(ToImage(Pixels()).isNull());
}

constexpr QSize largeScreen(3840, 2100);

TEST(Units, A_larger_font_makes_larger_pixels) {
  QFont small = QApplication::font();
  small.setPixelSize(8);
  QFont large = small;
  large.setPixelSize(24);
  EXPECT_EQ(Units::For(small, largeScreen).factor, 1.0);
  EXPECT_GT(Units::For(large, largeScreen).factor, 1.3);
  EXPECT_EQ(Units::For(large, largeScreen).font, large);
}

TEST(Units, The_least_main_window_fits_a_small_screen_in_any_font) {
  for (const QSize room : {QSize(1012, 550), QSize(628, 430), QSize(500, 250)}) {
    for (const int pixels : {8, 12, 16, 24, 40}) {
      SCOPED_TRACE(testing::Message() << pixels << " pixels in " << room.width() << " x " << room.height());
      QFont font = QApplication::font();
      font.setPixelSize(pixels);
      const Units units = Units::For(font, room);
      EXPECT_LE(std::lround(((9500 - Form::nominalFrameWidth) / 15.0) * units.factor), room.width());
      EXPECT_LE(std::lround(((6400 - Form::nominalFrameHeight) / 15.0) * units.factor), room.height());
      const QFontMetrics metrics(units.font);
      EXPECT_LE(metrics.horizontalAdvance("Remove One"), units.Pixels(1230));
      EXPECT_LE(metrics.ascent() + metrics.descent(), units.Pixels(255));
    }
  }
}

TEST(Units, Twips_and_pixels_are_each_others_way_back) {
  const Units units{1.25, {}};
  EXPECT_EQ(units.Pixels(1500), 125);
  EXPECT_FLOAT_EQ(units.Twips(125), 1500.0F);
}

}  // namespace
}  // namespace lumidex
