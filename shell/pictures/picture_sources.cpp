// The one table of the device's bitmaps and their vector sources.
#include "shell/pictures/picture_sources.h"

#include <array>
#include <cstddef>
#include <cstring>

namespace nautrix {
namespace {

// Shorthands for the places a picture is drawn for.
constexpr Obj kBoat = Obj::DiverStep0;
constexpr Obj kStep1 = Obj::DiverStep1;
constexpr Obj kStep2 = Obj::DiverStep2;
constexpr Obj kStep3 = Obj::DiverStep3;
constexpr Obj kStep4 = Obj::DiverStep4;
constexpr Obj kChest = Obj::DiverStep5;  // positions 5 to 8
constexpr Sheet F = Sheet::Front;

// In the order of Pic. Each Diver row is one position: offset 0 bare, 1 with
// the tip of the tentacle above that position drawn in, 2 with the bag, 3
// with bag and tip. The tip element is the tentacle's own tip segment, which
// the diver's object covers whole.
constexpr std::array<PictureSource, kPicCount> kSources = {{
    {Pic::None, F, Obj::FrontCase, ""},
    // The case: its base is the face with the printed sea scene; the body of
    // the nautrix and the chest are segments that are always lit.
    {Pic::FrontCase, F, Obj::FrontCase, kBaseWithAlwaysLit},
    // The back sheet is cut whole; FrontCase names the 333 x 198 at 0, 0.
    {Pic::BackCase, Sheet::Back, Obj::FrontCase, ""},
    {Pic::ResetScreen, F, Obj::ResetScreen, kEveryLcdObject},
    {Pic::Am, F, Obj::am, "am"},
    {Pic::Pm, F, Obj::pm, "pm"},
    {Pic::Nautrix0, F, Obj::Nautrix0, "Nautrix0"},
    {Pic::Nautrix1, F, Obj::Nautrix1, "Nautrix1"},
    {Pic::Nautrix2, F, Obj::Nautrix2, "Nautrix2"},
    {Pic::Treasure, F, Obj::Treasure, "Treasure"},
    {Pic::Alarm0, F, Obj::Alarm0, "ring0"},
    {Pic::Alarm1, F, Obj::Alarm1, "ring1"},
    {Pic::Note, F, Obj::Note, "note"},
    {Pic::BabyNautrix, F, Obj::BabyNautrix, "baby"},
    // The caught diver hangs in the grip: items 0 and 1 of tentacles 2 and 3
    // are always lit behind him.
    {Pic::MissPic, F, Obj::MissPic, "Tentacle2_0 Tentacle2_1 Tentacle3_0 Tentacle3_1 miss"},
    {Pic::Colon, F, Obj::Colon, "colon"},
    // Tentacles: lit from the root out, so a segment carries the lit ones it
    // overlaps. Tentacle1(0) shows Tentacle0(0)'s picture.
    {Pic::Tentacle0_0, F, Obj::Tentacle0_0, "Tentacle0_0"},
    {Pic::Tentacle0_1, F, Obj::Tentacle0_1, "Tentacle0_0 Tentacle0_1"},
    {Pic::Tentacle0_2, F, Obj::Tentacle0_2, "Tentacle0_1 Tentacle0_2"},
    {Pic::Tentacle1_1, F, Obj::Tentacle1_1, "Tentacle0_0 Tentacle1_1"},
    {Pic::Tentacle1_2, F, Obj::Tentacle1_2, "Tentacle1_1 Tentacle1_2"},
    {Pic::Tentacle1_3, F, Obj::Tentacle1_3, "Tentacle1_2 Tentacle1_3"},
    {Pic::Tentacle2_0, F, Obj::Tentacle2_0, "Tentacle2_0"},
    {Pic::Tentacle2_1, F, Obj::Tentacle2_1, "Tentacle2_0 Tentacle2_1"},
    {Pic::Tentacle2_2, F, Obj::Tentacle2_2, "Tentacle2_1 Tentacle2_2"},
    {Pic::Tentacle2_3, F, Obj::Tentacle2_3, "Tentacle2_2 Tentacle2_3"},
    {Pic::Tentacle2_4, F, Obj::Tentacle2_4, "Tentacle2_3 Tentacle2_4"},
    {Pic::Tentacle3_0, F, Obj::Tentacle3_0, "Tentacle3_0"},
    {Pic::Tentacle3_1, F, Obj::Tentacle3_1, "Tentacle3_0 Tentacle3_1"},
    {Pic::Tentacle3_2, F, Obj::Tentacle3_2, "Tentacle3_1 Tentacle3_2"},
    {Pic::Tentacle3_3, F, Obj::Tentacle3_3, "Tentacle3_2 Tentacle3_3"},
    {Pic::Tentacle4_0, F, Obj::Tentacle4_0, "Tentacle4_0"},
    {Pic::Tentacle4_1, F, Obj::Tentacle4_1, "Tentacle4_0 Tentacle4_1"},
    {Pic::Tentacle4_2, F, Obj::Tentacle4_2, "Tentacle4_1 Tentacle4_2"},
    // Both spares stand on the boat's deck, whose print is the same under both.
    {Pic::Remainder, F, Obj::Remainder1, "spare"},
    {Pic::GameTypeA, F, Obj::GameType0, "game-a"},
    {Pic::GameTypeB, F, Obj::GameType1, "game-b"},
    // The digits are drawn for the last place of the readout; the sky under
    // all four places is the same.
    {Pic::Number0, F, Obj::MinuteDigit1, "digit0"},
    {Pic::Number1, F, Obj::MinuteDigit1, "digit1"},
    {Pic::Number2, F, Obj::MinuteDigit1, "digit2"},
    {Pic::Number3, F, Obj::MinuteDigit1, "digit3"},
    {Pic::Number4, F, Obj::MinuteDigit1, "digit4"},
    {Pic::Number5, F, Obj::MinuteDigit1, "digit5"},
    {Pic::Number6, F, Obj::MinuteDigit1, "digit6"},
    {Pic::Number7, F, Obj::MinuteDigit1, "digit7"},
    {Pic::Number8, F, Obj::MinuteDigit1, "digit8"},
    {Pic::Number9, F, Obj::MinuteDigit1, "digit9"},
    // Position 1: swimming down from the boat, under tentacle 0.
    {Pic::Diver0, F, kStep1, "diver1"},
    {Pic::Diver1, F, kStep1, "diver1 Tentacle0_2"},
    {Pic::Diver2, F, kStep1, "diver1-bag"},
    {Pic::Diver3, F, kStep1, "diver1-bag Tentacle0_2"},
    // Position 2: landing on the slope, under tentacle 1.
    {Pic::Diver4, F, kStep2, "diver2"},
    {Pic::Diver5, F, kStep2, "diver2 Tentacle1_3"},
    {Pic::Diver6, F, kStep2, "diver2-bag"},
    {Pic::Diver7, F, kStep2, "diver2-bag Tentacle1_3"},
    // Position 3: walking the sea floor, under tentacle 2.
    {Pic::Diver8, F, kStep3, "diver3"},
    {Pic::Diver9, F, kStep3, "diver3 Tentacle2_4"},
    {Pic::Diver10, F, kStep3, "diver3-bag"},
    {Pic::Diver11, F, kStep3, "diver3-bag Tentacle2_4"},
    // Position 4, under tentacle 3.
    {Pic::Diver12, F, kStep4, "diver4"},
    {Pic::Diver13, F, kStep4, "diver4 Tentacle3_3"},
    {Pic::Diver14, F, kStep4, "diver4-bag"},
    {Pic::Diver15, F, kStep4, "diver4-bag Tentacle3_3"},
    // Position 5: at the chest, under tentacle 4.
    {Pic::Diver16, F, kChest, "diver5"},
    {Pic::Diver17, F, kChest, "diver5 Tentacle4_2"},
    {Pic::Diver18, F, kChest, "diver5-bag"},
    {Pic::Diver19, F, kChest, "diver5-bag Tentacle4_2"},
    // Position 6: reaching into the chest.
    {Pic::Diver20, F, kChest, "diver6"},
    {Pic::Diver21, F, kChest, "diver6 Tentacle4_2"},
    {Pic::Diver22, F, kChest, "diver6-bag"},
    {Pic::Diver23, F, kChest, "diver6-bag Tentacle4_2"},
    // Position 7 looks as position 5.
    {Pic::Diver24, F, kChest, "diver5"},
    {Pic::Diver25, F, kChest, "diver5 Tentacle4_2"},
    {Pic::Diver26, F, kChest, "diver5-bag"},
    {Pic::Diver27, F, kChest, "diver5-bag Tentacle4_2"},
    // Position 8: pulling the bag out, so the bag shows in all four.
    {Pic::Diver28, F, kChest, "diver8"},
    {Pic::Diver29, F, kChest, "diver8 Tentacle4_2"},
    {Pic::Diver30, F, kChest, "diver8"},
    {Pic::Diver31, F, kChest, "diver8 Tentacle4_2"},
    {Pic::OnTheBoat0, F, kBoat, "boat-diver"},
    {Pic::OnTheBoat1, F, kBoat, "boat-diver-bag"},
    // The limbs of the caught diver: the arm lies in front of his body, the
    // legs in front of the roots of tentacle 3.
    {Pic::TempArm0, F, Obj::Arm, "miss arm0"},
    {Pic::TempArm1, F, Obj::Arm, "miss arm1"},
    {Pic::TempLegs0, F, Obj::Legs, "Tentacle3_0 Tentacle3_1 legs0"},
    {Pic::TempLegs1, F, Obj::Legs, "Tentacle3_0 Tentacle3_1 legs1"},
    // The keys, drawn for one of their places; the case around every place of
    // a kind is the same.
    {Pic::Button0Up, F, Obj::GameAButton, "key-rect-up"},
    {Pic::Button0Down, F, Obj::GameAButton, "key-rect-down"},
    {Pic::Button1Up, F, Obj::LeftButton, "key-round-up"},
    {Pic::Button1Down, F, Obj::LeftButton, "key-round-down"},
    {Pic::Button2Up, F, Obj::AlarmButton, "key-small-up"},
    {Pic::Button2Down, F, Obj::AlarmButton, "key-small-down"},
    // The logo is printed on the case; pressed, it sinks.
    {Pic::TPLogo0, F, Obj::Logo, ""},
    {Pic::TPLogo1, F, Obj::Logo, "logo-pressed"},
}};

struct ElementHome {
  const char* element;
  Obj object;
};

constexpr ElementHome kHomes[] = {
    {"Nautrix0", Obj::Nautrix0},       {"Nautrix1", Obj::Nautrix1},
    {"Nautrix2", Obj::Nautrix2},       {"Treasure", Obj::Treasure},
    {"Tentacle0_0", Obj::Tentacle0_0}, {"Tentacle0_1", Obj::Tentacle0_1},
    {"Tentacle0_2", Obj::Tentacle0_2}, {"Tentacle1_1", Obj::Tentacle1_1},
    {"Tentacle1_2", Obj::Tentacle1_2}, {"Tentacle1_3", Obj::Tentacle1_3},
    {"Tentacle2_0", Obj::Tentacle2_0}, {"Tentacle2_1", Obj::Tentacle2_1},
    {"Tentacle2_2", Obj::Tentacle2_2}, {"Tentacle2_3", Obj::Tentacle2_3},
    {"Tentacle2_4", Obj::Tentacle2_4}, {"Tentacle3_0", Obj::Tentacle3_0},
    {"Tentacle3_1", Obj::Tentacle3_1}, {"Tentacle3_2", Obj::Tentacle3_2},
    {"Tentacle3_3", Obj::Tentacle3_3}, {"Tentacle4_0", Obj::Tentacle4_0},
    {"Tentacle4_1", Obj::Tentacle4_1}, {"Tentacle4_2", Obj::Tentacle4_2},
    {"miss", Obj::MissPic},
};

constexpr bool TableInPicOrder() {
  for (std::size_t i = 0; i < kSources.size(); ++i) {
    if (static_cast<std::size_t>(kSources[i].pic) != i) return false;
  }
  return true;
}
static_assert(TableInPicOrder(), "the picture table must follow the order of Pic");

}  // namespace

const char* SheetResource(Sheet sheet) {
  return sheet == Sheet::Front ? ":/art/front.svg" : ":/art/back.svg";
}

const char* SheetBase(Sheet sheet) { return sheet == Sheet::Front ? "case" : "back"; }

const PictureSource& SourceOf(Pic pic) { return kSources[static_cast<std::size_t>(pic)]; }

Obj HomeOf(const char* element) {
  for (const ElementHome& home : kHomes) {
    if (std::strcmp(home.element, element) == 0) return home.object;
  }
  return Obj::Count;
}

const char* PageResource(int page) {
  static const char* const kPages[] = {
      ":/art/pages/page1.svg", ":/art/pages/page2.svg", ":/art/pages/page3.svg",
      ":/art/pages/page4.svg", ":/art/pages/page5.svg", ":/art/pages/page6.svg",
      ":/art/pages/page7.svg", ":/art/pages/page8.svg", ":/art/pages/page9.svg"};
  return kPages[(page < 1 ? 1 : page > 9 ? 9 : page) - 1];
}

}  // namespace nautrix
