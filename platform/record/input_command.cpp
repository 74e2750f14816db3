// The table of the commands, and the other direction.
#include "record/input_command.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace record {
namespace {

using host::Event;
using Kind = Event::Kind;
using enum Argument;

constexpr InputCommand commands[] = {
    {"key", {KeyCode, UpOrDown, OptionalModifiers}, Kind::KeyDown},
    {"stylus", {StylusAction, Pixel, Pixel}, Kind::StylusDown},
    {"text", {CodeUnit}, Kind::Text},
    {"turn", {Orientation}, Kind::Turn},
    {"away", {}, Kind::Background},
    {"back", {}, Kind::Foreground},
    {"minimize", {}, Kind::Minimize},
    {"restore", {}, Kind::Restore},
    {"close", {}, Kind::Close},
    {"help", {}, Kind::Help},
    {"hibernate", {}, Kind::Hibernate},
};

std::string keyDown(const Event &event)
{
    std::string line = "key " + std::to_string(event.key) + " down";
    char joint = ' ';
    for (const auto &[isSet, name] :
         {std::pair(event.control, "ctrl"), std::pair(event.shift, "shift"),
          std::pair(event.escape, "esc")})
    {
        if (isSet) {
            line += std::exchange(joint, '+');
            line += name;
        }
    }
    return line;
}

std::string stylus(const char *action, const Event &event)
{
    return std::string("stylus ") + action + ' ' + std::to_string(event.x) + ' ' +
           std::to_string(event.y);
}

} // namespace

Event InputCommand::event(const Arguments &details) const
{
    const auto [first, second, third] = details.numbers;
    const bool down = details.text == "down";
    const unsigned modifiers = down ? static_cast<unsigned>(third) : 0;
    switch (kind) {
    case Kind::KeyDown:
        return {.kind = down ? Kind::KeyDown : Kind::KeyUp,
                .key = static_cast<std::uint16_t>(first),
                .control = (modifiers & 1U) != 0,
                .shift = (modifiers & 2U) != 0,
                .escape = (modifiers & 4U) != 0};
    case Kind::StylusDown:
        return {.kind = down                     ? Kind::StylusDown
                        : details.text == "move" ? Kind::StylusMove
                                                 : Kind::StylusUp,
                .x = second,
                .y = third};
    case Kind::Text:
        return {.kind = kind, .text = static_cast<char16_t>(first)};
    case Kind::Turn:
        return {.kind = kind, .orientation = first};
    default:
        return {.kind = kind};
    }
}

const InputCommand *findInputCommand(std::string_view name)
{
    const auto *found = std::find_if(std::begin(commands), std::end(commands),
                                     [&](const InputCommand &each) { return each.name == name; });
    return found == std::end(commands) ? nullptr : found;
}

std::string lineFor(const Event &event)
{
    switch (event.kind) {
    case Kind::KeyDown:
        return keyDown(event);
    case Kind::KeyUp:
        return "key " + std::to_string(event.key) + " up";
    case Kind::Text:
        return "text " + std::to_string(static_cast<unsigned>(event.text));
    case Kind::StylusDown:
        return stylus("down", event);
    case Kind::StylusMove:
        return stylus("move", event);
    case Kind::StylusUp:
        return stylus("up", event);
    case Kind::Turn:
        return "turn " + std::to_string(event.orientation);
    default:
        break;
    }
    const auto *found =
        std::find_if(std::begin(commands), std::end(commands),
                     [&](const InputCommand &each) { return each.kind == event.kind; });
    return found == std::end(commands) ? std::string() : std::string(found->name);
}

} // namespace record
