// The program's frame: entry point and message loop, the single instance, the window and its
// procedure, the menu bar. It keeps no state of the game: what concerns that goes to GameApp.
#include "app/window.h"

#include <aygshell.h>

#include "app/game_app.h"
#include "app/orientation.h"
#include "resources/resource.h"

HINSTANCE moduleInstance{};
HWND mainWindow{};
HWND menuBar{};
HDC windowDC{};

namespace {

/// Posted by the window to itself whenever it gets the focus.
constexpr UINT WM_CHECK_ORIENTATION = WM_USER + 123;
constexpr int menuBarHeight = 26;
constexpr int nameCapacity = 100;

SHACTIVATEINFO activateInfo{};
/// The portrait check has turned the display: the first message brings the window to the front.
bool bringToFront = false;
/// A timer's tick is running, perhaps waiting in a dialog: further timer messages are dropped.
bool tickBusy = false;

/// Stands for a window together with those it owns.
HWND withOwned(HWND window) { return HWND{window.value | 1U}; }

HWND createMenuBar(HWND window)
{
    SHMENUBARINFO info{};
    info.cbSize = sizeof info;
    info.hwndParent = window;
    info.nToolBarId = IDM_MENU;
    info.hInstRes = moduleInstance;
    return SHCreateMenuBar(&info) ? info.hwndMB : HWND{};
}

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

/// Opening a menu pauses the game and shows it so behind the menu.
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

/// What the user does with keys, stylus and menus.
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
    case WM_HIBERNATE: // the system is short of memory: shut down, the game is kept
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

} // namespace

bool initInstance(HINSTANCE instance, int showCommand)
{
    moduleInstance = instance;
    WCHAR className[nameCapacity];
    WCHAR title[nameCapacity];
    LoadStringW(instance, IDS_WINDOW_CLASS, className, nameCapacity);
    LoadStringW(instance, IDS_TITLE, title, nameCapacity);

    if (const HWND other = FindWindowW(className, title)) {
        SetForegroundWindow(withOwned(other));
        return false;
    }
    registerWindowClass(instance, className);
    const HWND window =
        CreateWindowExW(0, className, title, WS_VISIBLE, CW_USEDEFAULT, CW_USEDEFAULT,
                        CW_USEDEFAULT, CW_USEDEFAULT, HWND{}, HMENU{}, instance, nullptr);
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

int WINAPI WinMain(HINSTANCE instance, HINSTANCE previousInstance, LPWSTR commandLine,
                   int showCommand)
{
    (void)previousInstance;
    (void)commandLine;
    if (checkPortrait() == portraitDeclined) {
        return 0;
    }
    bringToFront = savedOrientation != 0;
    if (!initInstance(instance, showCommand)) {
        return 0;
    }
    const HACCEL accelerators = LoadAcceleratorsW(instance, MAKEINTRESOURCEW(IDR_ACCELERATORS));
    MSG message{};
    while (GetMessageW(&message, HWND{}, 0, 0)) {
        if (bringToFront) {
            SetForegroundWindow(withOwned(message.hwnd));
            bringToFront = false;
        }
        if (!TranslateAcceleratorW(message.hwnd, accelerators, &message)) {
            TranslateMessage(&message);
            DispatchMessageW(&message);
        }
    }
    return static_cast<int>(message.wParam);
}
