// Capital letters of the scripts that the handheld's fonts have: Latin, Greek, Cyrillic.
#pragma once

namespace controls {

/// A run of small letters at the same distance from their capitals; `step` 2: every other one.
struct SmallLetters
{
    char16_t first;
    char16_t last;
    int distance;
    int step = 1;
};

/// The first match counts.
inline constexpr SmallLetters smallLetters[] = {
    {u'a', u'z', 32},     {0xE0, 0xF6, 32},     {0xF8, 0xFE, 32},     {0xFF, 0xFF, -121},
    {0x131, 0x131, 232},  {0x101, 0x137, 1, 2}, {0x13A, 0x148, 1, 2}, {0x14B, 0x177, 1, 2},
    {0x17A, 0x17E, 1, 2}, {0x3AC, 0x3AC, 38},   {0x3AD, 0x3AF, 37},   {0x3C2, 0x3C2, 31},
    {0x3B1, 0x3CB, 32},   {0x3CC, 0x3CC, 64},   {0x3CD, 0x3CE, 63},   {0x430, 0x44F, 32},
    {0x450, 0x45F, 80},   {0x461, 0x481, 1, 2},
};

/// The capital of a small letter; anything else as it is.
constexpr char16_t upperCase(char16_t unit)
{
    for (const SmallLetters &run : smallLetters) {
        if (unit >= run.first && unit <= run.last && (unit - run.first) % run.step == 0) {
            return static_cast<char16_t>(unit - run.distance);
        }
    }
    return unit;
}

} // namespace controls
