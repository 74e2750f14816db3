// Older systems lack the function that reads and sets the orientation, so it is looked up at run
// time.
#include "app/orientation.h"

namespace {

DEVMODEW orientationRecord(DWORD orientation)
{
    DEVMODEW mode{};
    mode.dmSize = sizeof mode;
    mode.dmFields = DM_DISPLAYORIENTATION;
    mode.dmDisplayOrientation = orientation;
    return mode;
}

/// Null where the system cannot turn its display.
ChangeDisplaySettingsExProc displayFunction(HMODULE library)
{
    return reinterpret_cast<ChangeDisplaySettingsExProc>(
        GetProcAddressW(library, u"ChangeDisplaySettingsEx"));
}

void turnDisplay(ChangeDisplaySettingsExProc change, DWORD orientation)
{
    DEVMODEW mode = orientationRecord(orientation);
    change(nullptr, &mode, HWND{}, CDS_RESET, nullptr);
}

} // namespace

DWORD savedOrientation = 0;

int checkPortrait()
{
    const ChangeDisplaySettingsExProc change = displayFunction(LoadLibraryW(u"coredll.dll"));
    if (!change) {
        return 0;
    }
    DEVMODEW mode = orientationRecord(DMDO_0);
    change(nullptr, &mode, HWND{}, CDS_TEST, nullptr);
    if (mode.dmDisplayOrientation == DMDO_0) {
        return 0;
    }
    const int answer = MessageBoxW(
        HWND{},
        u"This program is designed to run in portrait mode. Tap Ok to switch to portrait mode or "
        u"Cancel to close this program.",
        u"Glimra", MB_OKCANCEL | MB_ICONINFORMATION);
    if (answer != IDOK) {
        return portraitDeclined;
    }
    savedOrientation = mode.dmDisplayOrientation;
    turnDisplay(change, DMDO_0);
    return static_cast<int>(savedOrientation);
}

void offerOrientationRestore(DWORD orientation)
{
    const HMODULE library = LoadLibraryW(u"coredll.dll");
    const ChangeDisplaySettingsExProc change = displayFunction(library);
    if (change && orientation != 0) {
        const int answer =
            MessageBoxW(HWND{}, u"Would you like to return to your previous orientation settings?",
                        u"Glimra", MB_YESNO | MB_ICONQUESTION | MB_TOPMOST);
        if (answer == IDYES) {
            turnDisplay(change, orientation); // the next minimising asks again
        } else {
            savedOrientation = 0;
        }
    }
    FreeLibrary(library);
}
