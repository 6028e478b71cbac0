#include <span>

#include "pictures/metafile/outlining.h"
#include "pictures/metafile/surfaces.h"

namespace lumidex::metafile {
namespace {

// Looking at a pixel and its neighbours and painting it.
constexpr double perFloodPixel = 24;

int Distance(std::uint32_t a, std::uint32_t b) {
  const auto apart = [&](int shift) {
    return std::abs(static_cast<int>(a >> shift & 0xFF) - static_cast<int>(b >> shift & 0xFF));
  };
  return std::max({apart(16), apart(8), apart(0)});
}

// Marks the pixels of one 4-connected part, run by run.
class Flooder {
 public:
  Flooder(const Pixels& pixels, const Box& area, cairo_surface_t* mask)
      : pixels_(pixels),
        left_(static_cast<int>(area.left)),
        top_(static_cast<int>(area.top)),
        width_(static_cast<int>(area.Width())),
        height_(static_cast<int>(area.Height())),
        data_(cairo_image_surface_get_data(mask)),
        stride_(cairo_image_surface_get_stride(mask)) {}

  template <class Passes>
  void Run(int startX, int startY, Passes passes) {
    if (!data_) return;
    const auto open = [&](int x, int y) {
      return Mark(x, y) == 0 && passes(pixels_.Row(top_ + y).data()[left_ + x]);
    };
    std::vector<std::pair<int, int>> seeds;
    if (open(startX - left_, startY - top_)) seeds.emplace_back(startX - left_, startY - top_);
    while (!seeds.empty()) {
      const auto [x, y] = seeds.back();
      seeds.pop_back();
      if (Mark(x, y) != 0) continue;
      int from = x, to = x;
      while (from > 0 && open(from - 1, y)) --from;
      while (to + 1 < width_ && open(to + 1, y)) ++to;
      for (int i = from; i <= to; ++i) Mark(i, y) = 0xFF;
      for (const int row : {y - 1, y + 1}) {
        if (row < 0 || row >= height_) continue;
        bool inRun = false;
        for (int i = from; i <= to; ++i) {
          const bool is = open(i, row);
          if (is && !inRun) seeds.emplace_back(i, row);
          inRun = is;
        }
      }
    }
  }

 private:
  unsigned char& Mark(int x, int y) { return data_[std::ptrdiff_t{stride_} * y + x]; }

  const Pixels& pixels_;
  int left_, top_, width_, height_;
  unsigned char* data_;
  int stride_;
};

}  // namespace

void Canvas::Flood(const Clip& clip, Point at, std::uint32_t colour, bool surface, const Ink& ink) {
  lookedAround_ = true;
  const Box visible = Visible(clip, clip.box);
  const bool inside =
      at.x >= visible.left && at.x < visible.right && at.y >= visible.top && at.y < visible.bottom;
  if (ink.kind == Ink::Kind::None || !inside) return;
  if (!budget_.Spend(perFloodPixel * visible.Area() + InkCost(ink, visible))) return;
  cairo_surface_flush(surface_.get());
  const int x = static_cast<int>(at.x), y = static_cast<int>(at.y);
  const std::uint32_t start = pixels_.Row(y)[static_cast<std::size_t>(x)];
  const CairoSurface mask = BlankSurface(visible, CAIRO_FORMAT_A8);
  Flooder flooder(pixels_, visible, mask.get());
  if (surface) {
    constexpr int similar = 24;
    flooder.Run(x, y, [&](std::uint32_t word) { return Distance(word, colour) <= similar; });
  } else {
    // A line between two pixels' centres colours both by half, and still is an edge.
    const int edge = Distance(start, colour) * 55 / 100;
    flooder.Run(x, y, [&](std::uint32_t word) { return Distance(word, colour) > edge; });
  }
  cairo_surface_mark_dirty(mask.get());
  Paint(clip, visible, [&](cairo_t* context) {
    SetInk(context, ink, visible);
    cairo_mask_surface(context, mask.get(), 0, 0);
  });
}

}  // namespace lumidex::metafile
