#pragma once

#include <compare>
#include <cstdint>
#include <string>
#include <vector>

#include "VantrelStreams.h"

// The values of fonts, pens, pictures and the like as the stored forms know them; nothing here draws.

/// A colour as blue, green, red in one number (0x00BBGGRR); system colours have the top bit set.
using TVantrelColor = std::int32_t;

/// A font by its name.
struct TVantrelFont {
  std::string Name;
  TVantrelColor Color = 0;
  /// In points; below 0 in pixels.
  std::int32_t Size = 0;
  /// Set of bold, italic, underline, strike-out: bits 0 to 3.
  std::uint8_t Styles = 0;

  bool operator==(const TVantrelFont&) const = default;
};

/// What areas are filled with.
struct TVantrelBrush {
  TVantrelColor Color = 0;
  std::uint8_t Styles = 0;

  bool operator==(const TVantrelBrush&) const = default;
};

/// What lines are drawn with.
struct TVantrelPen {
  TVantrelColor Color = 0;
  std::uint8_t Mode = 0;
  std::uint8_t Styles = 0;
  /// In pixels.
  std::int32_t Width = 0;

  bool operator==(const TVantrelPen&) const = default;
};

/// Bits of TVantrelShortCut::ShiftKeys.
inline constexpr std::uint8_t skShift = 1;
inline constexpr std::uint8_t skAlt = 2;
inline constexpr std::uint8_t skCtrl = 4;

/// A key with those that are held down.
struct TVantrelShortCut {
  std::uint8_t ShiftKeys = 0;
  std::uint8_t VirtualKey = 0;

  bool operator==(const TVantrelShortCut&) const = default;
};

/// A length of time, in the ticks of the stored forms.
struct TVantrelTimeSpan {
  std::int64_t Ticks = 0;

  auto operator<=>(const TVantrelTimeSpan&) const = default;
};

/// A fixed-point number with four decimals. (TVantrelCurrency is the object that holds one.)
struct TCurrency {
  /// The number times 10000.
  std::int64_t Value = 0;

  auto operator<=>(const TCurrency&) const = default;
};

/// A picture, known here by its stream form only.
class TVantrelGraphic : public TVantrelObject {
 public:
  /// Reads `size` bytes of the stream form from the position on; raises EVantrelReaderError for a short read.
  virtual void LoadFromStream(TVantrelStream& stream, std::int64_t size) = 0;
  virtual void SaveToStream(TVantrelStream& stream) const = 0;
};

/// A picture that keeps its stream form as it came.
class TStoredGraphic : public TVantrelGraphic {
 public:
  void LoadFromStream(TVantrelStream& stream, std::int64_t size) override;
  void SaveToStream(TVantrelStream& stream) const override;

  const std::vector<std::uint8_t>& Bytes() const { return FBytes; }

 private:
  std::vector<std::uint8_t> FBytes;
};

/// The two kinds of pictures that the typed values hold.
class TBitmap final : public TStoredGraphic {};
class TIcon final : public TStoredGraphic {};
