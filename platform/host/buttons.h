// The handheld's buttons by their virtual-key codes.
#pragma once

#include <cstdint>

namespace host {

constexpr std::uint16_t padCentre = 13;
constexpr std::uint16_t padLeft = 37;
constexpr std::uint16_t padUp = 38;
constexpr std::uint16_t padRight = 39;
constexpr std::uint16_t padDown = 40;
constexpr std::uint16_t buttonA = 193;
constexpr std::uint16_t buttonB = 194;
constexpr std::uint16_t buttonC = 195;
constexpr std::uint16_t buttonD = 196;

} // namespace host
