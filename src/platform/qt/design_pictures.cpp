#include "platform/qt/design_pictures.h"

#include <stdexcept>

#include "controls/picture_controls.h"
#include "platform/qt/artwork.h"

namespace lumidex {
namespace {

struct Place {
  const char* form;
  const char* image;
  const char* artwork;
};

constexpr Place places[] = {{"frmBackground", "Image1", "splash/backdrop.png"},
                            {"checkjpg", "imgEmpty", "thumbnails/empty.png"},
                            {"checkjpg", "imgerror", "thumbnails/error.png"}};

}  // namespace

void SetDesignPictures(const std::vector<Form*>& forms) {
  for (Form* form : forms) {
    for (const Place& place : places) {
      if (form->Name() != place.form) continue;
      auto* image = dynamic_cast<ImageBox*>(form->Find(place.image));
      if (!image) throw std::logic_error(std::string(place.form) + " has no image " + place.image);
      image->Picture = ArtworkPicture(place.artwork);
      image->KeepDesign();
    }
  }
}

}  // namespace lumidex
