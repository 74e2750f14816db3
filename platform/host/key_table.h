// The keys of a keyboard and what each is on the handheld. Keys have the names that browsers give
// them: the `key` of a KeyboardEvent ("ArrowLeft", "p", "F1"), for the Shift and Ctrl keys its
// `code`
// ("ShiftLeft"). Letters are small.
#pragma once

#include <cstdint>
#include <string_view>

namespace host {

// The handheld's buttons by their virtual-key codes.
constexpr std::uint16_t padCentre = 13;
constexpr std::uint16_t padLeft = 37;
constexpr std::uint16_t padUp = 38;
constexpr std::uint16_t padRight = 39;
constexpr std::uint16_t padDown = 40;
constexpr std::uint16_t buttonA = 193;
constexpr std::uint16_t buttonB = 194;
constexpr std::uint16_t buttonC = 195;
constexpr std::uint16_t buttonD = 196;

/// The virtual-key code that a key stands for; 0 for a key that the handheld does not have.
std::uint16_t virtualKey(std::string_view key);
/// The code of a button on the handheld's face: "Left", "Up", "Right", "Down", "Centre", "A" to
/// "D"; 0 for another name.
std::uint16_t buttonCode(std::string_view name);
/// The other way round; empty for a code that is none of the face's.
std::string_view buttonName(std::uint16_t code);
/// Whether a key shows the stylus pointer while it is held: the right Ctrl or the menu key. Most
/// keyboards have one of them, and neither types anything.
bool isPointerKey(std::string_view key);
/// Whether a key types a character when no Ctrl, Alt or Meta key is held, or helps to: Shift.
bool types(std::string_view key);

} // namespace host
