// Clips, and areas that are combined of others.

#include <array>

#include "pictures/metafile/emf_reading.h"
#include "pictures/metafile/plus_player.h"

namespace lumidex::metafile::plus {
namespace {

constexpr double perPoint = 60;

constexpr ClipMode ModeOf(unsigned mode) {
  constexpr std::array modes = {ClipMode::Copy, ClipMode::And,        ClipMode::Or,
                                ClipMode::Xor,  ClipMode::Difference, ClipMode::Complement};
  return modes[std::min<std::size_t>(mode, modes.size() - 1)];
}

// The mode that joins the same two areas the other way round.
constexpr ClipMode Turned(ClipMode mode) {
  return mode == ClipMode::Difference   ? ClipMode::Complement
         : mode == ClipMode::Complement ? ClipMode::Difference
                                        : mode;
}

// Joins areas on the sheet. One that is a mere outline is kept as that: it needs no mask until it joins
// another.
class AreaJoiner {
 public:
  struct Area {
    const ClipNode* outline = nullptr;
    metafile::Clip clip{};  // when there is no outline
  };

  AreaJoiner(Canvas& canvas, const Matrix& toSheet, FillRule rule)
      : canvas_(canvas), toSheet_(toSheet), rule_(rule), whole_(canvas.WholeClip()) {}

  Area Of(const ClipNode& node) const { return node.everything ? Area{nullptr, whole_} : Area{&node}; }
  Area Join(const Area& first, const Area& second, ClipMode mode) {
    if (!second.outline && first.outline) return Join(second, first, Turned(mode));
    Area result{nullptr, Covered(first)};
    if (second.outline) {
      Combine(result.clip, *second.outline, mode);
    } else {
      canvas_.CombineClip(result.clip, whole_, second.clip, mode);
    }
    return result;
  }
  metafile::Clip Covered(const Area& area) {
    if (!area.outline) return area.clip;
    metafile::Clip clip = whole_;
    Combine(clip, *area.outline, ClipMode::And);
    return clip;
  }

 private:
  void Combine(metafile::Clip& clip, const ClipNode& node, ClipMode mode) {
    if (!canvas_.Budget().Spend(perPoint * static_cast<double>(node.outline.PointCount()))) return;
    canvas_.CombineClip(clip, whole_, node.outline.Transformed(toSheet_), rule_, mode);
  }

  Canvas& canvas_;
  Matrix toSheet_;
  FillRule rule_;
  metafile::Clip whole_;
};

}  // namespace

metafile::Clip Player::AreaOf(const ClipObject& area) {
  AreaJoiner joiner(drawing_.context.GetCanvas(), drawing_.context.LogicalToSheet(), State().fillRule);
  // Combinations that wait for their parts.
  struct Waiting {
    ClipMode mode = ClipMode::And;
    std::optional<AreaJoiner::Area> first{};
  };
  std::vector<Waiting> waiting;
  for (const ClipNode& node : area.nodes) {
    if (node.mode != 0) {
      waiting.push_back({ModeOf(node.mode)});
      continue;
    }
    AreaJoiner::Area value = joiner.Of(node);
    while (!waiting.empty() && waiting.back().first) {
      value = joiner.Join(*waiting.back().first, value, waiting.back().mode);
      waiting.pop_back();
    }
    if (waiting.empty()) return joiner.Covered(value);
    waiting.back().first = std::move(value);
  }
  return drawing_.context.GetCanvas().WholeClip();
}

void Player::Clip(const Path& path, unsigned mode) {
  drawing_.bracket.Begin();
  drawing_.shapes.Draw(path, false);
  drawing_.bracket.End();
  drawing_.bracket.Clip(ModeOf(mode));
}

void Player::ClipTo(const ClipObject& area, unsigned mode) {
  const ClipNode& first = area.nodes.front();
  if (first.mode == 0 && !first.everything) return Clip(first.outline, mode);
  DeviceState& state = State();
  drawing_.context.GetCanvas().CombineClip(state.clip, state.base, AreaOf(area), ModeOf(mode));
}

void Player::PlayResetClip(Record&) {
  drawing_.context.ResetClip();
}

void Player::PlaySetClipRect(Record& record) {
  Clip(Path::OfBox(ReadBox(record.reader, false)), record.ClipModeNumber());
}

void Player::PlaySetClipPath(Record& record) {
  if (const auto* path = Get<Path>(record.ObjectNumber())) Clip(*path, record.ClipModeNumber());
}

void Player::PlaySetClipRegion(Record& record) {
  if (const auto* clip = Get<ClipObject>(record.ObjectNumber())) ClipTo(*clip, record.ClipModeNumber());
}

void Player::PlayOffsetClip(Record& record) {
  const double x = ReadFloat(record.reader);
  drawing_.context.OffsetClip({x, ReadFloat(record.reader)});
}

}  // namespace lumidex::metafile::plus
