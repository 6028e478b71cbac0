// The pictures that are drawn into the design of hidden forms.

#include "forms/design_pictures.h"

#include <gtest/gtest.h>

#include "forms/checkjpg.h"
#include "forms/frmBackground.h"
#include "pictures/pixels.h"
#include "support/test_program.h"

namespace lumidex {
namespace {

class DesignPictures : public TestProgram {};

TEST_F(DesignPictures, The_hidden_forms_have_theirs_before_anything_runs) {
  EXPECT_EQ(app.frmBackground.Image1.Picture.Get().GetSize(), (Size{512, 384}));
  EXPECT_EQ(app.checkjpg.imgEmpty.Picture.Get().GetSize(), (Size{96, 96}));
  EXPECT_EQ(app.checkjpg.imgerror.Picture.Get().GetSize(), (Size{96, 96}));
  EXPECT_EQ(app.checkjpg.Image1.Picture.Get().GetSize(), (Size{64, 64}));
}

TEST_F(DesignPictures, They_come_back_when_their_form_is_unloaded) {
  app.checkjpg.Load();
  app.checkjpg.imgEmpty.Picture = Picture();
  app.checkjpg.Unload();
  EXPECT_FALSE(app.checkjpg.imgEmpty.Picture.Get().IsEmpty());
}

TEST(DesignPicture, Their_pixels_can_be_had) {
  for (const DesignPicture which : {DesignPicture::Backdrop, DesignPicture::EmptyThumbnail,
                                    DesignPicture::ErrorThumbnail, DesignPicture::Stock}) {
    EXPECT_GT(PictureOf(which).FullPixels().GetSize().width, 0);
  }
}

}  // namespace
}  // namespace lumidex
