// Where every bitmap of the device comes from: one row per picture, naming
// the vector sheet it is cut from, the object whose rectangle it is drawn for,
// and the elements of the sheet painted over the sheet's base there.
#pragma once

#include <cstdint>

#include "device/screen_objects.h"

namespace nautrix {

// The vector sheets, in client-area coordinates (333 x 198), embedded as
// resources. The front sheet holds the case face with the LCD's printed sea
// scene as its base ("case"), every LCD figure as its own element, and the
// keys' up and down looks; the back sheet is the back of the device.
enum class Sheet : uint8_t { Front, Back };

const char* SheetResource(Sheet sheet);  // ":/art/front.svg"
const char* SheetBase(Sheet sheet);      // element id of the sheet's base layer

// Two pictures are not cut from the sheet but put together from others:
// FrontCase is the sheet's base with the objects that are always lit (the
// body of the nautrix and the chest) pasted in from their own pictures, so
// the case and the lit segments agree to the pixel; ResetScreen is every LCD
// object lit, painted back to front from their own pictures.
inline constexpr const char* kBaseWithAlwaysLit = "+";
inline constexpr const char* kEveryLcdObject = "*";
inline constexpr Obj kAlwaysLit[] = {Obj::Nautrix2, Obj::Nautrix1, Obj::Nautrix0, Obj::Treasure};

struct PictureSource {
  Pic pic;
  Sheet sheet;
  // The picture is the base of the sheet cut at this object's rectangle, with
  // the elements painted over it. A sprite of the library is drawn for the
  // object it is shown on, so that it carries that place's background.
  Obj place;
  // Element ids, back to front, separated by blanks; empty for the base
  // alone. A segment that lies in front of others that are always lit with
  // it carries them too, so that it covers nothing that should show.
  const char* elements;
};

// The row of a picture; every Pic but None has exactly one.
const PictureSource& SourceOf(Pic pic);

// The object a segment's element belongs to, or Obj::Count. Wherever such an
// element is painted (in the case, or under a segment in front of it) it is
// clipped to its object's rectangle, just as its own picture is; so the three
// slices of the nautrix can be drawn as one body.
Obj HomeOf(const char* element);

// The resources of the leaflet's pages and of the program's icon: the large
// drawing, and the head drawn anew for 16 and for 24 pixels (whose inner
// 22 x 22 is the 22-pixel icon).
const char* PageResource(int page);  // 1..9
inline constexpr const char* kIconResource = ":/art/nautrix.svg";
inline constexpr const char* kIcon16Resource = ":/art/nautrix_16.svg";
inline constexpr const char* kIcon24Resource = ":/art/nautrix_24.svg";

}  // namespace nautrix
