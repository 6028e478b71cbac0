#include "imaging/save_picture.h"

#include "base/run_time_error.h"
#include "pictures/bmp_writer.h"

namespace lumidex {

void SavePicture(App& app, Picture picture, std::string path) {
  if (picture.IsEmpty()) throw RunTimeError(ErrorNumber::InvalidPropertyValue);
  app.platform.events.RunAside([&] {
    const Pixels pixels = picture.FullPixels();
    app.platform.files.Write(path, [&](ByteSink& sink) { WriteBmp(pixels, sink); });
  });
}

}  // namespace lumidex
