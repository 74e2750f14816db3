// Starting another program. There is one, the help viewer, and the host shows it.
#include <string_view>

#include "base/names.h"
#include "host/current.h"
#include "resources/image.h"
#include "winbase.h"

BOOL CreateProcessW(LPCWSTR program, LPCWSTR commandLine, SECURITY_ATTRIBUTES *,
                    SECURITY_ATTRIBUTES *, BOOL, DWORD, void *, LPWSTR, STARTUPINFOW *,
                    PROCESS_INFORMATION *)
{
    constexpr std::u16string_view scheme = u"file:";
    if (!program || !base::sameName(program, u"peghelp.exe") || !commandLine) {
        return FALSE;
    }
    const std::u16string_view arguments = commandLine;
    if (!arguments.starts_with(scheme)) {
        return FALSE;
    }
    const std::u16string_view address = arguments.substr(scheme.size());
    const auto mark = address.find(u'#');
    const std::u16string page(address.substr(0, mark));
    const std::u16string_view anchor =
        mark == std::u16string_view::npos ? std::u16string_view{} : address.substr(mark + 1);
    const auto document = resources::find(RT_HTML, page.c_str());
    if (document.empty()) {
        return FALSE;
    }
    return host::current().showHelp(program, arguments, document, anchor) ? TRUE : FALSE;
}
