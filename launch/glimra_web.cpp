// The game in a browser page.
#include <cstdlib>
#include <cstring>
#include <span>
#include <string_view>

#include <windows.h>

#include "handheld.h"
#include "host/web/web.h"
#include "registry/text.h"
#include "resources/program_resources.h"

/// Whether `text`, which the user has opened, can be the store: why not, for the caller to free,
/// or null. The caller's text is freed, too.
extern "C" char *faultInStore(char *text)
{
    registry::Hive hive;
    const auto problem = registry::readText(std::as_bytes(std::span(std::string_view(text))), hive);
    std::free(text);
    return problem ? strdup(problem->c_str()) : nullptr;
}

int main()
{
    const auto host = web::open();
    return handheld::run(*host, {WinMain, programResources()}, 0);
}
