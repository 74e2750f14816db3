// The time of the game's own work, and beside each piece of it the work it is compared with.
#include <cstring>
#include <filesystem>
#include <memory>
#include <vector>

#include <unistd.h>

#include <SDL.h>
#include <benchmark/benchmark.h>

#include "game.h"
#include "host/files.h"
#include "host/sdl/picture.h"
#include "host/shown_frame.h"
#include "launch/game_subject.h"
#include "record/recording_host.h"
#include "render/graphics.h"
#include "resources/program_resources.h"
#include "support/fake_host.h"

namespace {

using benchmark::ClobberMemory;
using benchmark::State;

constexpr int tileSide = 11;
constexpr int sheetWidth = 7 * tileSide;
constexpr int sheetHeight = 6 * tileSide;
constexpr WCHAR value[] = u"123456";
constexpr RECT valueRect{0, 249, 80, 267};

/// A black picture in a device context; both last until the handheld is switched off.
HDC makePicture(int width, int height)
{
    const HDC dc = CreateCompatibleDC({});
    SelectObject(dc, CreateCompatibleBitmap(dc, width, height));
    return dc;
}

using SdlSurface = std::unique_ptr<SDL_Surface, decltype(&SDL_FreeSurface)>;

SdlSurface makeSdlPicture(int width, int height)
{
    return {SDL_CreateRGBSurfaceWithFormat(0, width, height, 16, SDL_PIXELFORMAT_RGB565),
            SDL_FreeSurface};
}

void copyMemory(State &state)
{
    const std::vector<std::uint16_t> from(screenWidth * screenHeight, 1);
    std::vector<std::uint16_t> to(from.size());
    for (auto _ : state) {
        std::memcpy(to.data(), from.data(), from.size() * sizeof from[0]);
        ClobberMemory();
    }
}

void tickPieceMoved(State &state)
{
    Game game;
    for (auto _ : state) {
        if (!game.fall()) {
            state.SkipWithError("the piece does not move");
        }
    }
}

void repaint(State &state)
{
    Game game;
    game.settle(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        game.repaint();
    }
}

void update(State &state)
{
    Game game;
    for (auto _ : state) {
        game.update();
    }
}

void blit(State &state)
{
    const SwitchedOn on;
    const HDC from = makePicture(screenWidth, screenHeight);
    const HDC to = makePicture(screenWidth, screenHeight);
    for (auto _ : state) {
        BitBlt(to, 0, 0, screenWidth, screenHeight, from, 0, 0, SRCCOPY);
        ClobberMemory();
    }
}

void blitSdl(State &state)
{
    const SdlSurface from = makeSdlPicture(screenWidth, screenHeight);
    const SdlSurface to = makeSdlPicture(screenWidth, screenHeight);
    for (auto _ : state) {
        SDL_BlitSurface(from.get(), nullptr, to.get(), nullptr);
        ClobberMemory();
    }
}

/// Both draw the outline of a ghost's cell from a sheet of tiles, across the well.
int tileX(int &count) { return tileSide * (2 + ++count % wellColumns); }

void tile(State &state)
{
    const SwitchedOn on;
    const HDC from = makePicture(sheetWidth, sheetHeight);
    Rectangle(from, 33, 55, 33 + tileSide, 55 + tileSide);
    const HDC to = makePicture(screenWidth, screenHeight);
    int count = 0;
    for (auto _ : state) {
        TransparentImage(to, tileX(count), 100, tileSide, tileSide, from, 33, 55, tileSide,
                         tileSide, RGB(255, 255, 255));
        ClobberMemory();
    }
}

void tileSdl(State &state)
{
    const SdlSurface from = makeSdlPicture(sheetWidth, sheetHeight);
    const SDL_Rect source{33, 55, tileSide, tileSide};
    const SDL_Rect inside{34, 56, tileSide - 2, tileSide - 2};
    SDL_FillRect(from.get(), &inside, 0xFFFF);
    SDL_SetColorKey(from.get(), SDL_TRUE, 0xFFFF);
    const SdlSurface to = makeSdlPicture(screenWidth, screenHeight);
    int count = 0;
    for (auto _ : state) {
        SDL_Rect place{tileX(count), 100, 0, 0};
        SDL_BlitSurface(from.get(), &source, to.get(), &place);
        ClobberMemory();
    }
}

/// A value as the play screen draws it; one of six digits is as long as any.
void drawValue(State &state)
{
    const Game game;
    const HDC to = makePicture(screenWidth, screenHeight);
    SelectObject(to, statsFont);
    SetBkMode(to, TRANSPARENT);
    for (auto _ : state) {
        RECT place = valueRect;
        DrawTextW(to, value, -1, &place,
                  DT_RIGHT | DT_VCENTER | DT_SINGLELINE | DT_NOCLIP | DT_NOPREFIX);
        ClobberMemory();
    }
}

void blitValue(State &state)
{
    const Game game;
    const HDC to = makePicture(screenWidth, screenHeight);
    SelectObject(to, statsFont);
    SIZE size{};
    GetTextExtentPoint32W(to, value, -1, &size);
    const HDC from = makePicture(size.cx, size.cy);
    for (auto _ : state) {
        BitBlt(to, valueRect.right - size.cx, valueRect.top + 1, size.cx, size.cy, from, 0, 0,
               SRCCOPY);
        ClobberMemory();
    }
}

/// What the window does first: the game has copied its whole picture, of which a piece has moved.
void compare(State &state)
{
    constexpr int width = 240;
    constexpr int top = 26;
    std::vector<std::uint16_t> pixels(width * 320);
    host::ShownFrame shown;
    for (auto _ : state) {
        pixels[width * 48 + 99] ^= 1;
        pixels[width * 267 + 153] ^= 1;
        const host::Area differs =
            shown.update({pixels.data(), width, 320}, {0, top, screenWidth, top + screenHeight});
        benchmark::DoNotOptimize(differs);
    }
}

/// Then, if that was by a column, its cells and its ghost's are enlarged.
void enlarge(State &state)
{
    const int scale = static_cast<int>(state.range(0));
    const desktop::Size picture{240, 320};
    const desktop::Size window{picture.width * scale, picture.height * scale};
    const std::vector<std::uint16_t> pixels(240 * 320, 1);
    std::vector<std::uint32_t> target(static_cast<std::size_t>(window.width * window.height));
    const desktop::Canvas canvas{reinterpret_cast<std::byte *>(target.data()),
                                 static_cast<std::size_t>(window.width) * 4,
                                 window,
                                 16,
                                 8,
                                 0};
    for (auto _ : state) {
        desktop::drawEnlarged({pixels.data(), picture.width, picture.height}, {99, 48, 154, 268},
                              {scale, 0, 0}, canvas);
        ClobberMemory();
    }
}

/// What recording adds to a minute of play with two buttons a second. The record goes to a file.
void recordMinute(State &state)
{
    const auto file = std::filesystem::temp_directory_path() /
                      ("glimra-bench-" + std::to_string(getpid()) + ".pilot");
    gameApp.appState = AppState::Playing;
    gameApp.session.state = GameState::Running;
    SwitchedOn on;
    FakeHost &host = on.host;
    for (auto _ : state) {
        for (int i = 0; i < 240; ++i) {
            host.key(i / 2 % 2 == 0 ? VK_LEFT : VK_RIGHT, i % 2 == 0, i == 0 ? 10 : 250);
        }
        const auto [sink, problem] = host::makeFile(file);
        GameLog games;
        record::RecordingHost recorder(host);
        recorder.begin("bench", false, gameSubject(games), sink);
        std::uint32_t due = host.clock + timing::tick;
        for (int events = 0; events < 240;) {
            if (recorder.wait(due)) {
                ++events;
            } else {
                due += timing::tick;
            }
        }
        recorder.close();
        std::filesystem::remove(file);
        if (problem || !host.reports.empty()) {
            state.SkipWithError("it cannot be recorded");
        }
    }
    gameApp.appState = AppState::None;
}

BENCHMARK(copyMemory);
BENCHMARK(tickPieceMoved);
BENCHMARK(repaint)->DenseRange(0, 200, 50);
BENCHMARK(update);
BENCHMARK(blit);
BENCHMARK(blitSdl);
BENCHMARK(tile);
BENCHMARK(tileSdl);
BENCHMARK(drawValue);
BENCHMARK(blitValue);
BENCHMARK(compare);
BENCHMARK(enlarge)->Arg(3)->Arg(6);
BENCHMARK(recordMinute);

} // namespace

BENCHMARK_MAIN();
