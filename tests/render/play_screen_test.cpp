// The play screen by its pixels: what is drawn where, and what is left alone.
#include <gtest/gtest.h>

#include "engine/game_session.h"
#include "render/graphics.h"
#include "resources/program_resources.h"
#include "support/fake_host.h"
#include "support/pixel.h"

namespace {

using enum TetrominoType;

/// A session whose window is the whole display.
struct PlayScreen : testing::Test
{
    PlayScreen()
    {
        windowDC = GetDC(HWND{});
        screenSurface = new Surface(windowDC, screenWidth, screenHeight);
        session.create(HWND{});
        session.newGame(HWND{});
        put(T, 3, 5, 2);
    }
    ~PlayScreen() override
    {
        session.destroy(HWND{});
        deleteSurface(screenSurface);
        ReleaseDC(HWND{}, windowDC);
        windowDC = {};
    }

    void put(TetrominoType type, int x, int y, int rotation)
    {
        ActivePiece &piece = session.playfield.piece;
        piece.type = type;
        piece.x = x;
        piece.y = y;
        piece.rotation = rotation;
        session.updateGhost();
    }
    void paint(std::uint32_t dirty)
    {
        session.dirty = dirty;
        session.paint(HWND{}, HDC{});
    }

    static COLORREF shown(int x, int y) { return getPixel(windowDC, x, y); }
    /// A pixel of a surface, as the display shows it.
    static COLORREF pixelOf(const Surface *surface, int x, int y)
    {
        const HDC dc = CreateCompatibleDC(windowDC);
        const HGDIOBJ previous = SelectObject(dc, surface->bitmap);
        const COLORREF colour = getPixel(dc, x, y);
        SelectObject(dc, previous);
        DeleteDC(dc);
        return colour;
    }
    /// Whether a tile of this kind and look has its corner at a point.
    static bool tileAt(int x, int y, TetrominoType type, int look)
    {
        for (int i = 0; i < 11; ++i) {
            if (shown(x + i, y + i) !=
                pixelOf(tileSheet, 11 * static_cast<int>(type) + i, 11 * look + i)) {
                return false;
            }
        }
        return true;
    }
    static bool tileInCell(int column, int row, TetrominoType type, int look)
    {
        return tileAt(22 + 11 * column, 11 + 11 * row, type, look);
    }
    static int differences(const RECT &rect, const Surface *picture)
    {
        int count = 0;
        for (int y = rect.top; y < rect.bottom; ++y) {
            for (int x = rect.left; x < rect.right; ++x) {
                count += shown(x, y) != pixelOf(picture, x, y);
            }
        }
        return count;
    }
    static bool isBackdrop(const RECT &rect) { return differences(rect, backdrops[0]) == 0; }
    static bool cellEmpty(int column, int row)
    {
        const LONG x = 22 + 11 * column;
        const LONG y = 11 + 11 * row;
        return isBackdrop({x, y, x + 11, y + 11});
    }

    SwitchedOn handheld{programResources()};
    GameSession session;
};

TEST_F(PlayScreen, ShowsBlocksPieceAndGhost)
{
    session.playfield.setCell(0, 19, I);
    session.playfield.setCell(9, 0, S);
    paint(dirty::everything);
    EXPECT_TRUE(tileInCell(0, 19, I, 0));
    EXPECT_TRUE(tileInCell(9, 0, S, 0));
    EXPECT_TRUE(tileInCell(4, 7, T, 0)); // the T's foot
    EXPECT_TRUE(cellEmpty(3, 7));
    // The ghost is a ring with the backdrop inside.
    EXPECT_EQ(shown(22 + 44, 11 + 19 * 11), pixelOf(tileSheet, 55, 55));
    EXPECT_EQ(shown(22 + 49, 11 + 19 * 11 + 5), pixelOf(backdrops[0], 22 + 49, 11 + 19 * 11 + 5));
    EXPECT_EQ(session.dirty, 0U);
    session.ghostEnabled = 0;
    paint(dirty::well);
    EXPECT_TRUE(cellEmpty(4, 19));
}

TEST_F(PlayScreen, MovesThePieceWithoutTouchingTheRest)
{
    paint(dirty::everything);
    InputState input;
    session.tick(HWND{}, input);         // which remembers where the piece was drawn
    session.playfield.setCell(0, 19, I); // not marked: must not show
    put(T, 4, 6, 1);
    paint(dirty::movedPiece);
    EXPECT_TRUE(cellEmpty(3, 6));
    EXPECT_TRUE(cellEmpty(4, 19)); // the old ghost
    EXPECT_TRUE(tileInCell(5, 7, T, 0));
    EXPECT_TRUE(cellEmpty(0, 19));
    paint(dirty::well | dirty::movedPiece);
    EXPECT_TRUE(tileInCell(0, 19, I, 0));
}

TEST_F(PlayScreen, HidesTheGameWhilePaused)
{
    for (int row = 4; row < 20; ++row) {
        session.playfield.setCell(0, row, I);
    }
    session.holdType = 3;
    paint(dirty::everything);
    session.pause();
    paint(dirty::everything);
    EXPECT_TRUE(cellEmpty(0, 4));
    EXPECT_TRUE(isBackdrop({154, 11, 228, 161}) && isBackdrop({154, 185, 228, 209}));
    EXPECT_GT(differences({22, 100, 132, 142}, backdrops[0]), 300); // PAUSED
    EXPECT_TRUE(isBackdrop({22, 11, 132, 100}));
    EXPECT_GT(differences({60, 250, 80, 267}, backdrops[0]), 10); // the score stays
}

TEST_F(PlayScreen, RestoresTheWholeBackdropOnlyWhenEverythingIsDirty)
{
    paint(dirty::everything);
    session.backdrop = 1;
    paint(dirty::everything - 1);
    EXPECT_EQ(shown(236, 200), pixelOf(backdrops[0], 236, 200));
    EXPECT_NE(pixelOf(backdrops[0], 236, 100), pixelOf(backdrops[1], 236, 100));
    paint(dirty::everything);
    EXPECT_EQ(differences({229, 0, 240, 268}, backdrops[1]), 0);
}

} // namespace
