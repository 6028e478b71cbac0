#pragma once
// The later "plus" records inside of enhanced metafiles, and the kinds of object that they hold. Names and
// numbers are those that the format's published description gives its record types (without their EmfPlus in
// front) and object types.

#include <cstdint>

namespace lumidex::metafile::plus {

enum class PlusRecord : std::uint16_t {
  Header = 0x4001,
  EndOfFile = 0x4002,
  Comment = 0x4003,
  GetDC = 0x4004,
  MultiFormatStart = 0x4005,
  MultiFormatSection = 0x4006,
  MultiFormatEnd = 0x4007,
  Object = 0x4008,
  Clear = 0x4009,
  FillRects = 0x400A,
  DrawRects = 0x400B,
  FillPolygon = 0x400C,
  DrawLines = 0x400D,
  FillEllipse = 0x400E,
  DrawEllipse = 0x400F,
  FillPie = 0x4010,
  DrawPie = 0x4011,
  DrawArc = 0x4012,
  FillRegion = 0x4013,
  FillPath = 0x4014,
  DrawPath = 0x4015,
  FillClosedCurve = 0x4016,
  DrawClosedCurve = 0x4017,
  DrawCurve = 0x4018,
  DrawBeziers = 0x4019,
  DrawImage = 0x401A,
  DrawImagePoints = 0x401B,
  DrawString = 0x401C,
  SetRenderingOrigin = 0x401D,
  SetAntiAliasMode = 0x401E,
  SetTextRenderingHint = 0x401F,
  SetTextContrast = 0x4020,
  SetInterpolationMode = 0x4021,
  SetPixelOffsetMode = 0x4022,
  SetCompositingMode = 0x4023,
  SetCompositingQuality = 0x4024,
  Save = 0x4025,
  Restore = 0x4026,
  BeginContainer = 0x4027,
  BeginContainerNoParams = 0x4028,
  EndContainer = 0x4029,
  SetWorldTransform = 0x402A,
  ResetWorldTransform = 0x402B,
  MultiplyWorldTransform = 0x402C,
  TranslateWorldTransform = 0x402D,
  ScaleWorldTransform = 0x402E,
  RotateWorldTransform = 0x402F,
  SetPageTransform = 0x4030,
  ResetClip = 0x4031,
  SetClipRect = 0x4032,
  SetClipPath = 0x4033,
  SetClipRegion = 0x4034,
  OffsetClip = 0x4035,
  DrawDriverString = 0x4036,
  StrokeFillPath = 0x4037,
  SerializableObject = 0x4038,
  SetTSGraphics = 0x4039,
  SetTSClip = 0x403A,
};

enum class ObjectKind : unsigned {
  Brush = 1,
  Pen,
  Path,
  Region,
  Image,
  Font,
  StringFormat,
  ImageAttributes,
  CustomLineCap
};

enum class BrushKind : std::uint32_t { SolidColor, HatchFill, TextureFill, PathGradient, LinearGradient };

enum class ImageKind : std::uint32_t { Bitmap = 1, Metafile };

}  // namespace lumidex::metafile::plus
