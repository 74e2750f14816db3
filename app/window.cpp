// The program's frame: entry point and message loop, the single instance, the window and its
// procedure. It keeps no state of the game: events that concern the game go to GameApp.
#include "app/window.h"

#include <aygshell.h>

#include "app/game_app.h"
#include "app/menu_bar.h"
#include "app/orientation.h"
#include "render/graphics.h"
#include "resources/module.h"
#include "resources/resource.h"

HWND mainWindow{};

namespace {

/// Posted by the window to itself whenever it gets the focus.
constexpr UINT WM_CHECK_ORIENTATION = WM_USER + 123;
constexpr int menuBarHeight = 26; ///< pixels

SHACTIVATEINFO activateInfo{};
/// The portrait check has turned the display: the first message brings the window to the front.
bool bringToFront = false;
/// A timer message's tick is running, perhaps waiting in a dialog: further timer messages are
/// dropped.
bool tickBusy = false;

/// The system's form for "this window and those it owns".
HWND withOwned(HWND window) { return HWND{window.value | 1U}; }

void create(HWND window)
{
    menuBar = createMenuBar(window);
    activateInfo = {};
    activateInfo.cbSize = sizeof activateInfo;
    windowDC = GetDC(window);
}

void destroy(HWND window)
{
    gameApp.destroy(window);
    DestroyWindow(menuBar);
    ReleaseDC(window, windowDC);
    PostQuitMessage(0);
}

void activate(HWND window, WPARAM wParam, LPARAM lParam)
{
    SHHandleWMActivate(window, wParam, lParam, &activateInfo, 0);
    if (window == mainWindow) {
        gameApp.activate(window, wParam == WA_ACTIVE || wParam == WA_CLICKACTIVE);
    }
}

void paint(HWND window)
{
    PAINTSTRUCT paint{};
    const HDC dc = BeginPaint(window, &paint);
    gameApp.paint(window, dc);
    EndPaint(window, &paint);
}

void timer(HWND window)
{
    if (tickBusy) {
        return;
    }
    tickBusy = true;
    gameApp.tick(window);
    tickBusy = false;
}

/// Opening a menu pauses the game, and the paused game shows behind the menu.
void menuOpens(HWND window)
{
    gameApp.activate(window, false);
    gameApp.paint(window, HDC{});
}

void showHelp()
{
    CreateProcessW(u"peghelp.exe", u"file:glimra.htm#Main_Contents", nullptr, nullptr, FALSE, 0,
                   nullptr, nullptr, nullptr, nullptr);
}

LRESULT command(HWND window, WPARAM wParam, LPARAM lParam)
{
    const int id = LOWORD(wParam);
    if (gameApp.command(window, id)) {
        return 0;
    }
    if (id == IDOK) { // Ctrl+Q: pause and save, then close
        SendMessageW(window, WM_ACTIVATE, WA_INACTIVE, static_cast<LPARAM>(window.value));
        SendMessageW(window, WM_CLOSE, 0, 0);
        return 0;
    }
    return DefWindowProcW(window, WM_COMMAND, wParam, lParam);
}

void size(HWND window, WPARAM wParam, LPARAM lParam)
{
    if (wParam == SIZE_MINIMIZED) {
        offerOrientationRestore(savedOrientation);
    }
    DefWindowProcW(window, WM_SIZE, wParam, lParam);
}

void checkOrientation()
{
    if (checkPortrait() == portraitDeclined) {
        PostQuitMessage(0);
    }
}

/// The messages of keys, stylus and menus.
LRESULT handleInput(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message) {
    case WM_KEYDOWN:
    case WM_KEYUP:
        return 0; // the game polls its buttons
    case WM_COMMAND:
        return command(window, wParam, lParam);
    case WM_INITMENUPOPUP:
        menuOpens(window);
        return 0;
    case WM_LBUTTONUP:
        gameApp.tap(window, LOWORD(static_cast<WPARAM>(lParam)),
                    HIWORD(static_cast<WPARAM>(lParam)));
        return 0;
    case WM_HELP:
        showHelp();
        return 0;
    default:
        return DefWindowProcW(window, message, wParam, lParam);
    }
}

LRESULT CALLBACK windowProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message) {
    case WM_CREATE:
        create(window);
        return 0;
    case WM_DESTROY:
        destroy(window);
        return 0;
    case WM_SIZE:
        size(window, wParam, lParam);
        return 0;
    case WM_ACTIVATE:
        activate(window, wParam, lParam);
        return 0;
    case WM_SETFOCUS:
        PostMessageW(window, WM_CHECK_ORIENTATION, 0, 0);
        DefWindowProcW(window, message, wParam, lParam);
        return 0;
    case WM_CHECK_ORIENTATION:
        checkOrientation();
        return 0;
    case WM_PAINT:
        paint(window);
        return 0;
    case WM_SETTINGCHANGE:
        SHHandleWMSettingChange(window, wParam, lParam, &activateInfo);
        return 0;
    case WM_TIMER:
        timer(window);
        return 0;
    case WM_HIBERNATE: // the system is short of memory: save and shut down
        SendMessageW(window, WM_DESTROY, 0, 0);
        return 0;
    default:
        return handleInput(window, message, wParam, lParam);
    }
}

void registerWindowClass(HINSTANCE instance, LPCWSTR className)
{
    WNDCLASSW description{};
    description.style = CS_HREDRAW | CS_VREDRAW;
    description.lpfnWndProc = windowProcedure;
    description.hInstance = instance;
    description.hIcon = LoadIconW(instance, MAKEINTRESOURCEW(IDI_GLIMRA));
    description.hbrBackground = HBRUSH{GetStockObject(WHITE_BRUSH)};
    description.lpszClassName = className;
    RegisterClassW(&description);
}

/// Takes the menu bar's height off the bottom of the window. The bottom edge is passed as the
/// height, so the window still ends under the menu bar; the screens do not reach that far.
void makeRoomForMenuBar(HWND window)
{
    RECT rect{};
    GetWindowRect(window, &rect);
    rect.bottom -= menuBarHeight;
    if (menuBar) {
        MoveWindow(window, rect.left, rect.top, rect.right, rect.bottom, FALSE);
    }
}

/// Makes the window and starts the program in it. False when another copy runs already, which is
/// brought to the front, or when the window cannot be made.
bool initInstance(HINSTANCE instance, int showCommand)
{
    moduleInstance = instance;
    const std::u16string className = loadText(IDS_WINDOW_CLASS);
    const std::u16string title = loadText(IDS_TITLE);
    if (const HWND other = FindWindowW(className.c_str(), title.c_str())) {
        SetForegroundWindow(withOwned(other));
        return false;
    }
    registerWindowClass(instance, className.c_str());
    const HWND window = CreateWindowExW(0, className.c_str(), title.c_str(), WS_VISIBLE,
                                        CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT,
                                        HWND{}, HMENU{}, instance, nullptr);
    if (!window) {
        return false;
    }
    mainWindow = window;
    makeRoomForMenuBar(window);
    if (!gameApp.init(window)) {
        return false;
    }
    ShowWindow(window, showCommand);
    UpdateWindow(window);
    return true;
}

} // namespace

int WINAPI WinMain(HINSTANCE instance, HINSTANCE, LPWSTR, int showCommand)
{
    if (checkPortrait() == portraitDeclined) {
        return 0;
    }
    bringToFront = savedOrientation != 0;
    if (!initInstance(instance, showCommand)) {
        return 0;
    }
    const HACCEL accelerators = LoadAcceleratorsW(instance, MAKEINTRESOURCEW(IDR_ACCELERATORS));
    MSG message{};
    while (GetMessageW(&message, HWND{}, 0, 0) != FALSE) {
        if (bringToFront) {
            SetForegroundWindow(withOwned(message.hwnd));
            bringToFront = false;
        }
        if (TranslateAcceleratorW(message.hwnd, accelerators, &message) == 0) {
            TranslateMessage(&message);
            DispatchMessageW(&message);
        }
    }
    return static_cast<int>(message.wParam);
}
