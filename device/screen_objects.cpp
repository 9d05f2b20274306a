// The design-time data of the device window: Table of the client area, front
// to back, and the sprite library below it. Positions and sizes in client
// pixels.
#include "device/screen_objects.h"

#include <array>
#include <cassert>
#include <cstddef>

namespace nautrix {
namespace {

constexpr std::array<ObjectInfo, kObjectCount> kObjects = {{
    // name, {left, top, width, height}, shown, enabled, tooltip, picture
    {"BackCase", {126, 241, 333, 198}, false, true, "", Pic::BackCase},
    {"ResetScreen", {89, 51, 155, 97}, false, false, "", Pic::ResetScreen},
    {"am", {149, 52, 10, 6}, false, false, "", Pic::Am},
    {"pm", {149, 59, 10, 6}, false, false, "", Pic::Pm},
    {"Nautrix(2)", {197, 100, 37, 8}, true, true, "Nautrix", Pic::Nautrix2},
    {"Nautrix(1)", {180, 91, 59, 9}, true, true, "Nautrix", Pic::Nautrix1},
    {"Nautrix(0)", {161, 75, 64, 16}, true, true, "Nautrix", Pic::Nautrix0},
    {"Treasure", {214, 126, 30, 22}, true, true, "Treasure", Pic::Treasure},
    {"Alarm(1)", {208, 64, 11, 6}, false, true, "Musical note symbol", Pic::Alarm1},
    {"Alarm(0)", {211, 51, 9, 5}, false, true, "Musical note symbol", Pic::Alarm0},
    {"Note", {209, 56, 9, 8}, false, true, "Musical note symbol", Pic::Note},
    {"BabyNautrix", {221, 51, 23, 24}, false, true, "Baby nautrix", Pic::BabyNautrix},
    {"Legs", {178, 102, 13, 17}, false, true, "Diver", Pic::TempLegs0},
    {"Arm", {163, 110, 8, 9}, false, true, "Diver", Pic::TempArm0},
    {"MissPic", {159, 93, 16, 19}, false, true, "Diver", Pic::MissPic},
    {"MinuteDigit(1)", {197, 52, 8, 13}, false, true, "Time/Score", Pic::None},
    {"MinuteDigit(0)", {185, 52, 8, 13}, false, true, "Time/Score", Pic::None},
    {"Colon", {179, 52, 3, 13}, false, true, "Time/Score", Pic::Colon},
    {"HourDigit(1)", {169, 52, 8, 13}, false, true, "Time/Score", Pic::None},
    {"HourDigit(0)", {158, 52, 8, 13}, false, true, "Time/Score", Pic::None},
    {"DiverStep(5)", {184, 123, 30, 21}, false, true, "Diver", Pic::Diver19},
    {"Tentacle4(2)", {208, 123, 6, 10}, false, true, "Nautrix", Pic::Tentacle4_2},
    {"Tentacle4(1)", {205, 117, 9, 5}, false, true, "Nautrix", Pic::Tentacle4_1},
    {"Tentacle4(0)", {201, 110, 10, 7}, false, true, "Nautrix", Pic::Tentacle4_0},
    {"DiverStep(4)", {157, 122, 20, 22}, false, true, "Diver", Pic::Diver15},
    {"Tentacle3(3)", {172, 122, 5, 8}, false, true, "Nautrix", Pic::Tentacle3_3},
    {"Tentacle3(2)", {173, 114, 6, 9}, false, true, "Nautrix", Pic::Tentacle3_2},
    {"Tentacle3(1)", {172, 109, 7, 7}, false, true, "Nautrix", Pic::Tentacle3_1},
    {"Tentacle3(0)", {172, 103, 10, 6}, false, true, "Nautrix", Pic::Tentacle3_0},
    {"DiverStep(3)", {129, 121, 23, 21}, false, true, "Diver", Pic::Diver11},
    {"Tentacle2(4)", {145, 121, 7, 8}, false, true, "Nautrix", Pic::Tentacle2_4},
    {"Tentacle2(3)", {149, 112, 6, 10}, false, true, "Nautrix", Pic::Tentacle2_3},
    {"Tentacle2(2)", {151, 105, 6, 10}, false, true, "Nautrix", Pic::Tentacle2_2},
    {"Tentacle2(1)", {152, 99, 9, 8}, false, true, "Nautrix", Pic::Tentacle2_1},
    {"Tentacle2(0)", {154, 93, 13, 5}, false, true, "Nautrix", Pic::Tentacle2_0},
    {"DiverStep(2)", {105, 104, 24, 26}, false, true, "Diver", Pic::Diver7},
    {"Tentacle1(3)", {121, 105, 8, 10}, false, true, "Nautrix", Pic::Tentacle1_3},
    {"Tentacle1(2)", {126, 96, 11, 8}, false, true, "Nautrix", Pic::Tentacle1_2},
    {"Tentacle1(1)", {130, 90, 11, 5}, false, true, "Nautrix", Pic::Tentacle1_1},
    {"Tentacle1(0)", {136, 83, 16, 7}, false, true, "Nautrix", Pic::Tentacle0_0},
    {"DiverStep(1)", {100, 77, 26, 22}, false, true, "Diver", Pic::Diver3},
    {"Tentacle0(2)", {116, 80, 10, 7}, false, true, "Nautrix", Pic::Tentacle0_2},
    {"Tentacle0(1)", {126, 84, 11, 6}, false, true, "Nautrix", Pic::Tentacle0_1},
    {"Tentacle0(0)", {136, 83, 16, 7}, false, true, "Nautrix", Pic::Tentacle0_0},
    {"DiverStep(0)", {99, 52, 21, 15}, true, true, "Diver", Pic::OnTheBoat0},
    {"Remainder1", {120, 52, 11, 15}, true, true, "Diver", Pic::Remainder},
    {"Remainder0", {133, 52, 11, 15}, true, true, "Diver", Pic::Remainder},
    {"GameType(1)", {92, 141, 21, 5}, false, false, "About Tickplay Simulator", Pic::GameTypeB},
    {"GameType(0)", {92, 135, 22, 5}, false, false, "About Tickplay Simulator", Pic::GameTypeA},
    {"Logo", {13, 28, 42, 36}, true, true, "About Tickplay Simulator", Pic::None},
    {"ACLButton", {309, 58, 7, 7}, true, true, "ACL", Pic::None},
    {"AlarmButton", {309, 35, 7, 7}, true, true, "ALARM", Pic::None},
    {"RightButton", {283, 128, 24, 24}, true, true, "Button 2/Minute setting", Pic::None},
    {"LeftButton", {25, 127, 24, 24}, true, true, "Button 1/Hour setting", Pic::None},
    {"TimeButton", {282, 68, 15, 8}, true, true, "TIME", Pic::None},
    {"GameBButton", {282, 46, 15, 8}, true, true, "GAME B", Pic::None},
    {"GameAButton", {282, 24, 15, 8}, true, true, "GAME A", Pic::None},
    {"FrontCase", {0, 0, 333, 198}, true, true, "", Pic::FrontCase},
    // The sprite library: never shown.
    {"Number(0)", {163, 200, 8, 13}, false, true, "", Pic::Number0},
    {"Number(1)", {171, 200, 8, 13}, false, true, "", Pic::Number1},
    {"Number(2)", {179, 200, 8, 13}, false, true, "", Pic::Number2},
    {"Number(3)", {187, 200, 8, 13}, false, true, "", Pic::Number3},
    {"Number(4)", {195, 200, 8, 13}, false, true, "", Pic::Number4},
    {"Number(5)", {203, 200, 8, 13}, false, true, "", Pic::Number5},
    {"Number(6)", {211, 200, 8, 13}, false, true, "", Pic::Number6},
    {"Number(7)", {219, 200, 8, 13}, false, true, "", Pic::Number7},
    {"Number(8)", {227, 200, 8, 13}, false, true, "", Pic::Number8},
    {"Number(9)", {235, 200, 8, 13}, false, true, "", Pic::Number9},
    {"Diver(0)", {0, 245, 26, 22}, false, true, "", Pic::Diver0},
    {"Diver(1)", {26, 245, 26, 22}, false, true, "", Pic::Diver1},
    {"Diver(2)", {52, 245, 26, 22}, false, true, "", Pic::Diver2},
    {"Diver(3)", {78, 245, 26, 22}, false, true, "", Pic::Diver3},
    {"Diver(4)", {-1, 267, 24, 26}, false, true, "", Pic::Diver4},
    {"Diver(5)", {23, 267, 24, 26}, false, true, "", Pic::Diver5},
    {"Diver(6)", {47, 267, 24, 26}, false, true, "", Pic::Diver6},
    {"Diver(7)", {71, 267, 24, 26}, false, true, "", Pic::Diver7},
    {"Diver(8)", {0, 293, 23, 21}, false, true, "", Pic::Diver8},
    {"Diver(9)", {23, 293, 23, 21}, false, true, "", Pic::Diver9},
    {"Diver(10)", {46, 293, 23, 21}, false, true, "", Pic::Diver10},
    {"Diver(11)", {69, 293, 23, 21}, false, true, "", Pic::Diver11},
    {"Diver(12)", {0, 314, 20, 22}, false, true, "", Pic::Diver12},
    {"Diver(13)", {20, 314, 20, 22}, false, true, "", Pic::Diver13},
    {"Diver(14)", {40, 314, 20, 22}, false, true, "", Pic::Diver14},
    {"Diver(15)", {60, 314, 20, 22}, false, true, "", Pic::Diver15},
    {"Diver(16)", {0, 336, 30, 21}, false, true, "", Pic::Diver16},
    {"Diver(17)", {30, 336, 30, 21}, false, true, "", Pic::Diver17},
    {"Diver(18)", {60, 336, 30, 21}, false, true, "", Pic::Diver18},
    {"Diver(19)", {90, 336, 30, 21}, false, true, "", Pic::Diver19},
    {"Diver(20)", {0, 356, 30, 21}, false, true, "", Pic::Diver20},
    {"Diver(21)", {30, 356, 30, 21}, false, true, "", Pic::Diver21},
    {"Diver(22)", {60, 356, 30, 21}, false, true, "", Pic::Diver22},
    {"Diver(23)", {90, 356, 30, 21}, false, true, "", Pic::Diver23},
    {"Diver(24)", {0, 377, 30, 21}, false, true, "", Pic::Diver24},
    {"Diver(25)", {30, 377, 30, 21}, false, true, "", Pic::Diver25},
    {"Diver(26)", {60, 377, 30, 21}, false, true, "", Pic::Diver26},
    {"Diver(27)", {90, 377, 30, 21}, false, true, "", Pic::Diver27},
    {"Diver(28)", {0, 398, 30, 21}, false, true, "", Pic::Diver28},
    {"Diver(29)", {30, 398, 30, 21}, false, true, "", Pic::Diver29},
    {"Diver(30)", {60, 398, 30, 21}, false, true, "", Pic::Diver30},
    {"Diver(31)", {90, 398, 30, 21}, false, true, "", Pic::Diver31},
    {"OnTheBoat(0)", {0, 230, 21, 15}, false, true, "", Pic::OnTheBoat0},
    {"OnTheBoat(1)", {21, 230, 21, 15}, false, true, "", Pic::OnTheBoat1},
    {"TempArm(0)", {163, 217, 8, 9}, false, true, "", Pic::TempArm0},
    {"TempArm(1)", {172, 217, 8, 9}, false, true, "", Pic::TempArm1},
    {"TempLegs(0)", {201, 216, 13, 17}, false, true, "", Pic::TempLegs0},
    {"TempLegs(1)", {214, 216, 13, 17}, false, true, "", Pic::TempLegs1},
    {"Button0(0)", {0, 198, 15, 8}, false, true, "Game A", Pic::Button0Up},
    {"Button0(1)", {15, 198, 15, 8}, false, true, "Game A", Pic::Button0Down},
    {"Button1(0)", {0, 206, 24, 24}, false, true, "Left", Pic::Button1Up},
    {"Button1(1)", {24, 206, 24, 24}, false, true, "Left", Pic::Button1Down},
    {"Button2(0)", {30, 199, 7, 7}, false, false, "", Pic::Button2Up},
    {"Button2(1)", {38, 199, 7, 7}, false, false, "", Pic::Button2Down},
    {"TPLogo(0)", {77, 199, 42, 36}, false, true, "", Pic::TPLogo0},
    {"TPLogo(1)", {119, 199, 42, 36}, false, true, "", Pic::TPLogo1},
}};

// The segments of each tentacle, root first. A cell past a tentacle's length
// holds the sentinel Obj::Count, which names no object: an index there is a
// fault, stopped in debug builds, and elsewhere shows nothing (Form1 keeps
// one inert slot for it), never the back of the case over the screen.
constexpr Obj kNoObject = Obj::Count;
constexpr Obj kTentacles[5][5] = {
    {Obj::Tentacle0_0, Obj::Tentacle0_1, Obj::Tentacle0_2, kNoObject, kNoObject},
    {Obj::Tentacle1_0, Obj::Tentacle1_1, Obj::Tentacle1_2, Obj::Tentacle1_3, kNoObject},
    {Obj::Tentacle2_0, Obj::Tentacle2_1, Obj::Tentacle2_2, Obj::Tentacle2_3, Obj::Tentacle2_4},
    {Obj::Tentacle3_0, Obj::Tentacle3_1, Obj::Tentacle3_2, Obj::Tentacle3_3, kNoObject},
    {Obj::Tentacle4_0, Obj::Tentacle4_1, Obj::Tentacle4_2, kNoObject, kNoObject},
};

constexpr Obj kDiverSteps[6] = {Obj::DiverStep0, Obj::DiverStep1, Obj::DiverStep2,
                                Obj::DiverStep3, Obj::DiverStep4, Obj::DiverStep5};

// An object looked up in a table; the sentinel stops a debug build.
Obj Checked(Obj o) {
  assert(o != kNoObject && "an index past the objects of an array");
  return o;
}

}  // namespace

const ObjectInfo& Info(Obj o) { return kObjects[static_cast<std::size_t>(o)]; }

Obj Tentacle(int t, int k) {
  return Checked(t >= 0 && t < 5 && k >= 0 && k < 5 ? kTentacles[t][k] : kNoObject);
}

Obj DiverStep(int p) { return Checked(p >= 0 && p < 6 ? kDiverSteps[p] : kNoObject); }

}  // namespace nautrix
