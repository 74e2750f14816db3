// The page as this host calls it: functions of page.js, which hand on to the object
// `Module.page` of the page's own scripts. Texts are UTF-8, ended by a zero.
#pragma once

#include <cstddef>
#include <cstdint>

extern "C" {

/// Milliseconds by the wall clock, which goes on between two visits and never back within one.
double pageNow();
/// The one place where the program is suspended: until the page posts an event, or `milliseconds`
/// have passed; less than 0: for as long as it takes.
void pageSleep(double milliseconds);

/// Draws pixels of red, green, blue and opacity, 8 bits each; only the given area has changed.
void pageDraw(const std::uint8_t *pixels, int width, int height, int left, int top, int areaWidth,
              int areaHeight);
/// A button of the handheld's face, by name (key_table.h), went down or up.
void pageShowButton(const char *name, bool down);
void pageTitle(const char *title);
void pageRaise();
void pageWantText(bool wanted);

bool pageHasLoudspeaker();
void pagePlay(const std::uint8_t *samples, std::size_t count);
void pageSilence();
bool pagePlaying();

/// The stored text, for the caller to free; null when there is none.
char *pageLoad();
bool pageSave(const char *text, std::size_t length);
void pageSetAside();

/// What the program is at: "title", "game", "level", "paused", "over", "name" or "dialog", and a
/// sentence of it for players who cannot see the screen.
void pageState(const char *kind, const char *text);

/// The record that this instance of the program plays, for the caller to free.
char *pageGivenRecord();
/// Whole lines of the record of this instance.
void pageKeepRecord(const char *lines, std::size_t length);
/// The viewer is at `position` of `length` milliseconds; `speed`: quarters of the ordinary one.
void pageProgress(double position, double length, int speed, bool playing, const char *chapter);
/// The viewer plays on.
void pageTakenOver();
/// A fresh instance is to show the record from there.
void pageRestart(double position, int speed, bool playing);
void pageWatchKeys(const char *keys);

bool pageHelp(const char *address);
void pageReport(const char *line, std::size_t length);
void pageEnded();
}
