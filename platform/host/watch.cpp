// The keys and buttons of a viewer.
#include "host/watch.h"

#include <algorithm>
#include <cstdio>
#include <iterator>

namespace host {
namespace {

using enum WatchCommand;

template <class Id>
struct Entry
{
    Id id;
    WatchCommand command;
};

constexpr Entry<std::string_view> keys[] = {
    {" ", Toggle},
    {".", Tick},
    {"ArrowUp", Faster},
    {"ArrowDown", Slower},
    {"ArrowLeft", Back},
    {"ArrowRight", Forward},
    {"PageDown", NextChapter},
    {"PageUp", PreviousChapter},
    {"Home", Start},
    {"Tab", TakeOver},
    {"F1", Help},
    {"Escape", End},
};

constexpr Entry<int> buttons[] = {
    {0, Toggle},      {1, End},      {2, TakeOver}, {3, Tick},    {4, PreviousChapter},
    {5, NextChapter}, {8, Help},     {9, Toggle},   {12, Faster}, {13, Slower},
    {14, Back},       {15, Forward}, {16, Start},
};

template <class Id, std::size_t size>
std::optional<WatchCommand> find(const Entry<Id> (&table)[size], Id id)
{
    const auto *found = std::find_if(std::begin(table), std::end(table),
                                     [&](const Entry<Id> &each) { return each.id == id; });
    return found == std::end(table) ? std::nullopt : std::optional(found->command);
}

/// "6:12", or "1:06:12".
std::string clockTime(std::uint32_t milliseconds)
{
    const unsigned seconds = milliseconds / 1000;
    char text[24];
    if (seconds < 3600) {
        std::snprintf(text, sizeof text, "%u:%02u", seconds / 60, seconds % 60);
    } else {
        std::snprintf(text, sizeof text, "%u:%02u:%02u", seconds / 3600, seconds / 60 % 60,
                      seconds % 60);
    }
    return text;
}

} // namespace

const char *const watchKeys = "Space: stop, go on\n"
                              ". : a tick of 25 ms\n"
                              "Up, Down: faster, slower\n"
                              "Left, Right: 5 seconds back, forth\n"
                              "Page Up, Page Down: to a game's start or end\n"
                              "Home: to the start\n"
                              "Tab: play on yourself; nothing of it is kept\n"
                              "Esc: the end";

std::string describe(const Progress &progress)
{
    std::string text = clockTime(progress.position) + " / " + clockTime(progress.length);
    if (!progress.playing) {
        text += ", stopped";
    }
    if (progress.quarterSpeed < 4) {
        text += progress.quarterSpeed == 1 ? ", x 1/4" : ", x 1/2";
    } else if (progress.quarterSpeed > 4) {
        text += ", x " + std::to_string(progress.quarterSpeed / 4);
    }
    return progress.chapter.empty() ? text : text + ", " + progress.chapter;
}

std::optional<WatchCommand> watchCommand(std::string_view key) { return find(keys, key); }

std::optional<WatchCommand> watchCommand(int button) { return find(buttons, button); }

} // namespace host
