// Takes any bytes as a dialog's template, opens the dialog and does in it what a user does.
#include <vector>

#include "support/fake_host.h"
#include "winuser.h"

namespace {

INT_PTR CALLBACK leaveAll(HWND, UINT message, WPARAM, LPARAM)
{
    return message == WM_INITDIALOG ? TRUE : FALSE;
}

void useDialog(FakeHost &host)
{
    host.type(u"Ab \b");
    for (const int key : {9, 40, 32, 9, 37, 46, 9, 13}) { // Tab, down, Space, left, Del, Enter
        host.key(key, true, 20);
        host.key(key, false);
    }
    for (int y = 0; y < 320; y += 20) {
        host.tap(y * 7 % 240, y);
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const auto bytes = std::as_bytes(std::span(data, size));
    const std::vector<std::byte> image(bytes.begin(), bytes.end()); // at a multiple of four bytes
    SwitchedOn on(image);
    useDialog(on.host);
    DialogBoxIndirectParamW({}, image.data(), {}, leaveAll, 0);
    return 0;
}
