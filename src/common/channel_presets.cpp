#include "common/channel_presets.h"

namespace common {
namespace {

constexpr PresetRow kRows[] = {
    {0, false, kFadeableType, ";E>;3;61;Pan;1;N;100;128;0;0;default"},
    {1, true, kFadeableType, ";E>;3;61;Pan;1;N;100;128;0;0;default"},
    {2, false, kFadeableType, ";F>;3;1;Tilt;1;N;100;128;0;0;default"},
    {3, true, kFadeableType, ";F>;3;1;Tilt;1;N;100;128;0;0;default"},
    {4, false, kIndexedType, ";A>;4;1;Color1;1;N;100;0;0;0;default"},
    {5, false, kIndexedType, ";A>;4;61;Color2;1;N;100;0;0;0;default"},
    {6, false, kFadeableType, ";B>;10;1;Cyan;1;N;100;0;0;255;default"},
    {6, false, kFadeableType, ";C>;10;61;Magenta;1;N;100;0;0;255;default"},
    {6, false, kFadeableType, ";D>;9;61;Yellow;1;N;100;0;255;51;default"},
    {7, false, kFadeableType, ";T>;10;1;Red;1;N;100;255;255;0;default"},
    {7, false, kFadeableType, ";U>;10;61;Green;1;N;100;255;255;0;default"},
    {7, false, kFadeableType, ";V>;9;61;Blue;1;N;100;255;0;229;default"},
    {8, false, kIndexedType, ";0>;9;1;CTO;1;N;100;0;0;0;default"},
    {9, false, kFadeableType, ";G>;2;1;Iris;1;N;100;255;0;0;default"},
    {10, false, kFadeableType, ";L>;5;61;Focus;1;N;100;128;0;0;default"},
    {11, false, kFadeableType, ";Q>;5;1;Zoom;1;N;100;127;0;0;default"},
    {12, false, kHtpType, ";H>;1;1;Dimmer;1;N;100;128;0;0;default"},
    {13, false, kFadeableType, ";O>;2;61;Shutter;1;N;100;128;0;0;default"},
    {14, false, kIndexedType, ";I>;6;61;Gobo1;1;N;100;0;0;0;default"},
    {15, false, kIndexedType, ";J>;6;1;Gobo2;1;N;100;0;0;0;default"},
    {16, false, kFadeableType, ";K>;7;61;Gobo1 Rot;1;N;100;0;0;0;default"},
    {17, false, kFadeableType, ";M>;7;1;Gobo2 Rot;1;N;100;0;0;0;default"},
    {18, false, kFadeableType, ";0>;8;61;Speed;1;N;100;0;0;0;default"},
    {19, false, kFadeableType, ";0>;19;61;Effect...;1;N;100;0;0;0;default"},
    {20, false, kIndexedType, ";0>;18;61;Control;1;N;100;0;0;0;default"},
    {21, false, kIndexedType, ";P>;17;61;Prism;1;N;100;0;0;0;default"},
    {22, false, kFadeableType, ";R>;17;1;Prism Rot;1;N;100;0;0;0;default"},
    {23, false, kIndexedType, ";S>;16;61;Frost;1;N;100;0;0;0;default"},
    {24, false, kIndexedType, ";0>;8;1;Macro;1;N;100;0;0;0;default"},
};

}  // namespace

std::span<const PresetRow> PresetRows() {
    return kRows;
}

}  // namespace common
