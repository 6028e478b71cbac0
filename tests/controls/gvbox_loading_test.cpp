// Loading files: what failed, what changed on the disk, what was opened before.

#include "controls/gvbox_world.h"
#include "gallery/encoders/cut_encoder.h"

namespace lumidex {
namespace {

using testing::ElementsAre;

TEST_F(GvboxTest, A_load_gives_the_files_size_and_depth_and_fires_image_changed) {
  box.SetFileName(path);
  EXPECT_EQ(box.FileName(), path);
  EXPECT_EQ(box.PictureWidth(), 4);
  EXPECT_EQ(box.PictureHeight(), 3);
  EXPECT_EQ(box.BitsPerPixel(), 24);
  EXPECT_EQ(box.Picture().Type(), PictureType::Bitmap);
  EXPECT_THAT(told, ElementsAre("changed"));
}

TEST_F(GvboxTest, A_form_that_is_unloaded_forgets_the_image) {
  form.Load();
  LoadMarks();
  box.Rotate(1);
  box.ThumbnailSize = 2;
  form.Unload();
  EXPECT_EQ(box.FileName(), "");
  EXPECT_TRUE(box.Picture().IsEmpty());
  EXPECT_EQ(box.ThumbnailSize, 0);
}

TEST_F(GvboxTest, The_empty_path_releases_the_image) {
  LoadMarks();
  box.SetFileName("");
  EXPECT_TRUE(box.Picture().IsEmpty());
  EXPECT_EQ(box.FileName(), "");
  EXPECT_EQ(box.PictureWidth(), 0);
}

TEST_F(GvboxTest, The_file_opened_last_is_kept_until_the_empty_path) {
  LoadMarks();
  const Picture first = box.Picture();
  box.SetFileName(path);
  EXPECT_EQ(box.Picture(), first);
  box.SetFileName("");
  box.SetFileName(path);
  EXPECT_FALSE(box.Picture() == first);
}

TEST_F(GvboxTest, A_load_that_fails_leaves_nothing_usable_but_the_path) {
  LoadMarks();
  EXPECT_EQ(NumberRaisedBy([&] { box.SetFileName("/bad.bmp"); }), 481);
  EXPECT_EQ(box.FileName(), "/bad.bmp");
  EXPECT_EQ(NumberRaisedBy([&] { box.SetFileName("/none.bmp"); }), 53);
  EXPECT_EQ(NumberRaisedBy([&] { box.Picture(); }), 481);
  EXPECT_EQ(NumberRaisedBy([&] { box.PictureWidth(); }), 481);
  EXPECT_EQ(NumberRaisedBy([&] { box.BitsPerPixel(); }), 481);
  EXPECT_EQ(NumberRaisedBy([&] { box.ScaleHeight(); }), 481);
  EXPECT_EQ(NumberRaisedBy([&] { box.Rotate(1); }), 481);
  EXPECT_EQ(NumberRaisedBy([&] { box.Brightness(1); }), 481);
  EXPECT_EQ(NumberRaisedBy([&] { box.PixelColor(0, 0); }), 481);
  EXPECT_EQ(NumberRaisedBy([&] { box.SaveJPEG("/out.jpg"); }), 481);
  EXPECT_EQ(NumberRaisedBy([&] { box.PaintPicture({}, 0, 0, 1, 1, 0, 0, 1, 1); }), 481);
}

TEST_F(GvboxTest, The_next_load_makes_it_usable_again) {
  LoadFails();
  LoadMarks();
  EXPECT_EQ(box.PictureWidth(), 4);
}

TEST_F(GvboxTest, A_picture_that_is_put_makes_it_usable_again) {
  LoadFails();
  const Picture picture = Picture::FromPixels(Marks({5, 2}), 24);
  box.SetPicture(picture);
  EXPECT_EQ(box.Picture(), picture);
  EXPECT_EQ(box.PictureWidth(), 5);
  EXPECT_EQ(box.FileName(), "/bad.bmp");
}

TEST_F(GvboxTest, The_empty_path_makes_an_empty_control_of_one_that_failed) {
  LoadFails();
  box.SetFileName("");
  EXPECT_TRUE(box.Picture().IsEmpty());
  EXPECT_EQ(box.BitsPerPixel(), 0);
}

TEST_F(GvboxTest, Neither_a_load_that_fails_nor_a_zoom_after_it_changes_an_image) {
  LoadFails();
  box.ZoomLevel = 2.0F;
  EXPECT_TRUE(told.empty());
  EXPECT_EQ(box.ScrollMaxX(), 0);
}

TEST_F(GvboxTest, A_directory_in_the_place_of_the_file_fails_at_the_next_load) {
  LoadMarks();
  platform.files.Remove(path);
  platform.files.AddDirectory(path);
  EXPECT_EQ(NumberRaisedBy([&] { box.SetFileName(path); }), 75);
  EXPECT_EQ(NumberRaisedBy([&] { box.Picture(); }), 481);
}

TEST_F(GvboxTest, The_same_path_again_decodes_the_file_afresh) {
  LoadMarks();
  box.Rotate(1);
  box.Brightness(100);
  box.SetFileName(box.FileName());
  EXPECT_EQ(box.PictureWidth(), 4);
  EXPECT_EQ(At(1, 2), Marked(1, 2));
}

TEST_F(GvboxTest, A_file_that_changed_is_seen_at_the_next_load) {
  LoadMarks();
  platform.files.AddFile(path, AsText(EncodeBmp(Marks({6, 2}))));
  box.SetFileName(path);
  EXPECT_EQ(box.PictureWidth(), 6);
}

TEST_F(GvboxTest, A_file_that_is_gone_fails_at_the_next_load) {
  LoadMarks();
  platform.files.Remove(path);
  EXPECT_EQ(NumberRaisedBy([&] { box.SetFileName(path); }), 53);
}

TEST_F(GvboxTest, What_was_read_ahead_is_taken_as_long_as_the_file_stands) {
  box.ReadFilesAhead(DecodingPriority::Neighbours, {path}, DecodingExtent::Full);
  EXPECT_TRUE(platform.decoding.RunNext());
  const Picture read = platform.decoding.Find(path, PictureStamp(platform.files, path), {});
  ASSERT_FALSE(read.IsEmpty());
  box.SetFileName(path);
  EXPECT_EQ(box.Picture(), read);
  box.SetFileName("");
  platform.files.AddFile(path, AsText(EncodeBmp(Marks({6, 2}))));
  box.SetFileName(path);
  EXPECT_EQ(box.PictureWidth(), 6);
}

TEST_F(GvboxTest, Errors_are_the_same_after_reading_ahead) {
  platform.files.AddFile("/gone.bmp", AsText(EncodeBmp(Marks())));
  platform.files.AddFile("/folder.bmp", AsText(EncodeBmp(Marks())));
  platform.files.AddFile("/spoilt.bmp", AsText(EncodeBmp(Marks())));
  platform.files.AddFile("/locked.bmp", AsText(EncodeBmp(Marks())));
  box.ReadFilesAhead(DecodingPriority::Batch,
                     {"/bad.bmp", "/gone.bmp", "/folder.bmp", "/spoilt.bmp", "/locked.bmp"},
                     DecodingExtent::Header);
  while (platform.decoding.RunNext()) {
  }
  platform.files.Remove("/gone.bmp");
  platform.files.Remove("/folder.bmp");
  platform.files.AddDirectory("/folder.bmp");
  platform.files.AddFile("/spoilt.bmp", "no picture");
  platform.files.AddFile("/locked.bmp", "secret");
  platform.files.SetLocked("/locked.bmp", true);
  EXPECT_EQ(NumberRaisedBy([&] { box.SetFileName("/bad.bmp"); }), 481);
  EXPECT_EQ(NumberRaisedBy([&] { box.SetFileName("/gone.bmp"); }), 53);
  EXPECT_EQ(NumberRaisedBy([&] { box.SetFileName("/folder.bmp"); }), 75);
  EXPECT_EQ(NumberRaisedBy([&] { box.SetFileName("/spoilt.bmp"); }), 481);
  EXPECT_EQ(NumberRaisedBy([&] { box.SetFileName("/locked.bmp"); }), 70);
}

TEST_F(GvboxTest, What_is_read_ahead_has_the_controls_own_decoder_options) {
  box.DCTMethod = 1;
  box.ReadFilesAhead(DecodingPriority::Batch, {path}, DecodingExtent::Header);
  EXPECT_TRUE(platform.decoding.RunNext());
  DecoderOptions options;
  EXPECT_TRUE(platform.decoding.Find(path, PictureStamp(platform.files, path), options).IsEmpty());
  box.ReadFilesAhead(DecodingPriority::Batch, {path}, DecodingExtent::Header);
  EXPECT_TRUE(platform.decoding.RunNext());
  options.dct = DctMethod::FastInteger;
  EXPECT_FALSE(platform.decoding.Find(path, PictureStamp(platform.files, path), options).IsEmpty());
}

TEST_F(GvboxTest, A_palette_file_that_changed_is_seen_at_the_next_load) {
  const auto writePalette = [&](std::uint32_t first) {
    platform.files.AddFile("/halo.pal", AsText(EncodeCutPalette({first, 0xFFFFFFFFU})));
  };
  platform.files.AddFile("/halo.cut", AsText(EncodeCut({{1, 1}, {}, {0}})));
  writePalette(0xFFFF0000);
  box.SetFileName("/halo.cut");
  EXPECT_EQ(At(0, 0), 0xFFFF0000U);
  writePalette(0xFF0000FF);
  box.SetFileName("/halo.cut");
  EXPECT_EQ(At(0, 0), 0xFF0000FFU);
  platform.files.Remove("/halo.pal");
  box.SetFileName("/halo.cut");
  EXPECT_EQ(At(0, 0), 0xFF000000U);
}

}  // namespace
}  // namespace lumidex
