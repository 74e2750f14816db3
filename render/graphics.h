// The graphic objects that live as long as the program's window, and how they are made.
#pragma once

#include <array>

#include <windows.h>

#include "render/surface.h"

/// Every screen is this large, in pixels.
constexpr int screenWidth = 240;
constexpr int screenHeight = 268;

/// The main window's own device context, from WM_CREATE to WM_DESTROY. Owned by the window.
extern HDC windowDC;
/// The back buffer of every screen, 240 by 268. Owned by the controller.
extern Surface *screenSurface;
/// The play screen's three pictures and its block tiles. Owned by GameSession::create/destroy.
extern std::array<Surface *, 3> backdrops;
extern Surface *tileSheet;
/// Arial bold, 16 pixels high: the values of the play screen. Owned by GameSession::create/destroy.
extern HFONT statsFont;

/// A new surface with a bitmap resource, or a black one of this size when that cannot be loaded.
/// The caller deletes it.
[[nodiscard]] Surface *loadPicture(HDC reference, UINT resource, int width, int height);
/// Releases and deletes a surface, if there is one, and sets the pointer to null.
void deleteSurface(Surface *&surface);
