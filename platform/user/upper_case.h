// Capital letters of the scripts that the handheld's fonts have: Latin, Greek, Cyrillic.
#pragma once

namespace user {

/// The capital of a small letter; anything else as it is.
constexpr char16_t upperCase(char16_t unit)
{
    const auto within = [unit](char16_t first, char16_t last) {
        return unit >= first && unit <= last;
    };
    const auto shifted = [unit](int distance) { return static_cast<char16_t>(unit - distance); };
    if (within(u'a', u'z') || (within(0xE0, 0xFE) && unit != 0xF7) ||
        (within(0x3B1, 0x3CB) && unit != 0x3C2) || within(0x430, 0x44F))
    {
        return shifted(32);
    }
    if (within(0x450, 0x45F)) {
        return shifted(80);
    }
    const bool oddIsSmall =
        (within(0x100, 0x137) && unit != 0x131) || within(0x14A, 0x177) || within(0x460, 0x481);
    const bool evenIsSmall = within(0x139, 0x148) || within(0x179, 0x17E);
    if ((oddIsSmall && unit % 2 != 0) || (evenIsSmall && unit % 2 == 0)) {
        return shifted(1);
    }
    switch (unit) {
    case 0xFF:
        return 0x178;
    case 0x131:
        return u'I';
    case 0x3AC:
        return 0x386;
    case 0x3AD:
    case 0x3AE:
    case 0x3AF:
        return shifted(37);
    case 0x3C2:
        return 0x3A3;
    case 0x3CC:
        return 0x38C;
    case 0x3CD:
    case 0x3CE:
        return shifted(63);
    default:
        return unit;
    }
}

} // namespace user
