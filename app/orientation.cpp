// Reads and sets the orientation through a function that older systems do not have, so it is
// looked up at run time.
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
    const HMODULE library = LoadLibraryW(u"coredll.dll");
    if (!library) {
        return 0;
    }
    const ChangeDisplaySettingsExProc change = displayFunction(library);
    if (change == nullptr) {
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
    if (!library) {
        return;
    }
    const ChangeDisplaySettingsExProc change = displayFunction(library);
    if (change != nullptr && orientation != 0) {
        const int answer =
            MessageBoxW(HWND{}, u"Would you like to return to your previous orientation settings?",
                        u"Glimra", MB_YESNO | MB_ICONQUESTION | MB_TOPMOST);
        if (answer == IDYES) {
            turnDisplay(change, orientation); // and ask again at the next minimising
        } else {
            savedOrientation = 0;
        }
    }
    FreeLibrary(library);
}
