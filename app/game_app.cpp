// The state machine of the program: what each event of the window does to the title screen or to
// the game, whichever is live.
#include "app/game_app.h"

#include <utility>

#include "app/about.h"
#include "app/menu_bar.h"
#include "app/settings.h"
#include "engine/random.h"
#include "frontend/name_entry.h"
#include "frontend/options_dialog.h"
#include "input/buttons_dialog.h"
#include "render/graphics.h"
#include "resources/resource.h"
#include "sound/sound_player.h"

GameApp gameApp;

namespace {

void createScreenSurface(HWND window)
{
    const HDC reference = GetDC(window);
    screenSurface = new Surface(reference, screenWidth, screenHeight);
    ReleaseDC(window, reference);
}

void loadSounds()
{
    using enum SoundEvent;
    constexpr std::pair<SoundEvent, UINT> sounds[] = {{Rotate, IDW_ROTATE},
                                                      {Lock, IDW_LOCK},
                                                      {RowsComplete, IDW_ROWS_COMPLETE},
                                                      {LevelUp, IDW_LEVEL_UP},
                                                      {Shift, IDW_SHIFT}};
    soundPlayer.open();
    for (const auto &[event, resource] : sounds) {
        soundPlayer.load(static_cast<int>(event), resource);
    }
}

} // namespace

// Start and end -----------------------------------------------------------------------------------

bool GameApp::init(HWND window)
{
    createScreenSurface(window);
    for (std::size_t i = 0; i < highScores.size(); ++i) {
        highScores[i].mode = static_cast<std::int32_t>(i);
        const bool fortyLines = i == static_cast<std::size_t>(GameMode::FortyLines);
        highScores[i].loadDefaults(fortyLines ? IDS_DEFAULT_SCORES_40_LINES : IDS_DEFAULT_SCORES);
    }
    seedRandom(GetTickCount());
    requestedState = AppState::Title;
    loadSettings(*this);
    appState = AppState::None;
    loadSounds();
    session.create(window);
    titleScreen.create(window);
    prepareFirstState(window);
    input.openInput();
    tick(window);
    return true;
}

/// Continues where the settings were saved: a stored game comes back paused, one that was ending
/// goes on to its end.
void GameApp::prepareFirstState(HWND window)
{
    if (requestedState < AppState::Title || requestedState > AppState::Playing) {
        requestedState = AppState::Title;
    }
    if (requestedState == AppState::Playing && session.state == GameState::Running) {
        session.pause();
    } else if (requestedState == AppState::Playing && session.state == GameState::Ending) {
        session.continueEnding(window);
    }
}

bool GameApp::destroy(HWND window)
{
    if (live()) {
        saveSettings(*this);
    }
    appState = AppState::None;
    requestedState = AppState::None;
    session.destroy(window);
    titleScreen.destroy(window);
    deleteSurface(screenSurface);
    input.closeInput();
    soundPlayer.close();
    return true;
}

// The main loop -----------------------------------------------------------------------------------

void GameApp::tick(HWND window)
{
    do {
        if (requestedState != appState) {
            enterRequestedState(window);
        }
        if (appState == AppState::Title) {
            titleScreen.tick(window);
        } else if (appState == AppState::Playing) {
            stepGame(window);
        }
    } while (appState != requestedState);
}

void GameApp::enterRequestedState(HWND window)
{
    saveSettings(*this);
    if (appState == AppState::Title) {
        titleScreen.stop(window);
    }
    appState = requestedState;
    switch (appState) {
    case AppState::Title:
        updateMenuItems(false);
        showChoices();
        titleScreen.start(window, &tableOfMode());
        break;
    case AppState::Starting:
        session.newGame(window);
        requestedState = AppState::Playing;
        break;
    case AppState::Playing:
        updateMenuItems(true);
        break;
    case AppState::None:
        break;
    }
}

void GameApp::stepGame(HWND window)
{
    session.tick(window, input);
    if (session.state == GameState::Over) {
        endGame(window);
    }
    if (session.soundEnabled != 0 && session.soundEvent != SoundEvent::None) {
        soundPlayer.play(static_cast<int>(session.soundEvent));
    }
}

void GameApp::endGame(HWND window)
{
    const std::int32_t rowsCleared =
        session.mode == GameMode::FortyLines ? 40 - session.lines : session.lines;
    session.stop(window);
    enterHighScore(tableOfMode(), window, session.score, rowsCleared, session.level);
    if (!live()) {
        return; // stored as over: the next start asks for the name again
    }
    requestedState = AppState::Title;
    session.resume(window);
}

HighScoreTable &GameApp::tableOfMode()
{
    return highScores[static_cast<std::size_t>(session.mode)];
}

/// The title screen highlights the mode and level chosen in the session.
void GameApp::showChoices()
{
    titleScreen.selectedMode = static_cast<std::int32_t>(session.mode);
    titleScreen.selectedLevel = session.startLevel;
}

// Events of the window ----------------------------------------------------------------------------

void GameApp::paint(HWND window, HDC target)
{
    if (appState == AppState::Title) {
        titleScreen.paint(window, target);
    } else if (appState == AppState::Playing) {
        session.dirty = dirty::everything;
        session.paint(window, target);
    }
}

bool GameApp::activate(HWND window, bool active)
{
    if (appState == AppState::Playing && !active && session.state == GameState::Running) {
        session.pause(); // only the player resumes it
    }
    if (appState == AppState::Title) {
        if (active) {
            titleScreen.start(window, &tableOfMode());
        } else {
            titleScreen.stop(window);
        }
    }
    if (!active && live()) {
        saveSettings(*this);
    }
    return true;
}

bool GameApp::tap(HWND window, int x, int y)
{
    if (appState == AppState::Title) {
        tapTitle(window, titleScreen.hitTest(x, y));
    } else if (appState == AppState::Playing) {
        if (session.state == GameState::Paused) {
            session.resume(window);
        } else if (session.state == GameState::Running) {
            session.pause();
            paint(window, HDC{});
        }
    }
    return true;
}

void GameApp::tapTitle(HWND window, int hit)
{
    if (hit == TitleHit::None) {
        return;
    }
    if (hit == TitleHit::Play) {
        requestedState = AppState::Starting;
        tick(window);
    } else if (hit == TitleHit::LeaveHighScores) {
        titleScreen.showTitle();
        tick(window);
    } else if (hit >= TitleHit::LevelBase) {
        session.startLevel = hit - TitleHit::LevelBase;
    } else {
        session.mode = static_cast<GameMode>(hit - TitleHit::ModeBase);
    }
    showChoices();
    titleScreen.table = &tableOfMode();
    paint(window, HDC{});
}

// Commands ----------------------------------------------------------------------------------------

bool GameApp::command(HWND window, int id)
{
    switch (id) {
    case IDM_NEW_GAME:
        saveSettings(*this);
        requestedState = AppState::Starting;
        tick(window);
        return true;
    case IDM_BUTTONS:
        showButtonsDialog(input, window);
        return false;
    case IDM_GAME_OPTIONS:
        showOptionsDialog(session, window);
        if (live()) {
            saveSettings(*this);
        }
        return false;
    case IDM_ABANDON_GAME:
        abandonGame(window);
        return true;
    case IDM_SHOW_HIGH_SCORES:
        showHighScores(window);
        return false;
    case IDM_ABOUT:
        showAboutDialog(window);
        return true;
    default:
        return false;
    }
}

void GameApp::abandonGame(HWND window)
{
    saveSettings(*this);
    const int answer =
        MessageBoxW(window, u"Do you want to abandon the current game?", u"Abandon Game", MB_YESNO);
    if (answer == IDYES) {
        requestedState = AppState::Title;
        tick(window);
    }
}

void GameApp::showHighScores(HWND window)
{
    if (appState == AppState::Title) {
        titleScreen.showHighScores(window);
    } else {
        MessageBoxW(window, u"You cannot display the high score table during a game",
                    u"Show high scores", MB_OK);
    }
}
