#pragma once
// From a path to a picture: opens the file, hands its bytes to the decoders, adds the palette file that some
// formats keep beside the picture.

#include "pictures/decoder_options.h"
#include "pictures/picture.h"
#include "ports/file_system.h"

namespace lumidex {

// The file as decoders want it. Raises what FileSystem::Open raises.
PictureData OpenPictureData(const FileSystem& files, const std::string& path);

// Raises what FileSystem::Open raises, and InvalidPicture when the file is no picture.
Picture OpenPicture(const FileSystem& files, const std::string& path);
Picture OpenPicture(const FileSystem& files, const std::string& path, const OpenOptions& options);

// The loader that the platform has beside the image control. It decodes as that does.
class PictureLoader {
 public:
  explicit PictureLoader(const FileSystem& files) : files_(files) {}
  virtual ~PictureLoader() = default;
  // Raises as OpenPicture.
  virtual Picture LoadPicture(const std::string& path) { return OpenPicture(files_, path); }

 private:
  const FileSystem& files_;
};

// Tells one state of a picture on the disk from another: that of its file, and of its palette file where the
// format has one. 0 when there is no such file or it can't be told.
std::uint64_t PictureStamp(const FileSystem& files, const std::string& path);

// A picture as it was opened, with all that tells whether opening it again would give the same.
struct OpenedPicture {
  std::string path;
  std::uint64_t stamp = 0;  // taken before it was opened: what changed in between is found out later
  DecoderOptions decoder;
  Picture picture;

  bool IsFor(const std::string& itsPath, std::uint64_t itsStamp, const DecoderOptions& itsDecoder) const {
    return itsStamp != 0 && stamp == itsStamp && path == itsPath && decoder == itsDecoder;
  }
};

}  // namespace lumidex
