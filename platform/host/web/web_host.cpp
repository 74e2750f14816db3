// The web host. The program is suspended in pageSleep, called from `wait`, and nowhere else.
#include "host/web/web_host.h"

#include <algorithm>
#include <cstdlib>
#include <string>

#include "base/utf.h"
#include "host/pixel.h"
#include "host/web/page.h"
#include "host/web/web.h"

namespace web {
namespace {

using host::Event;

WebHost *theHost = nullptr;

/// Goes on between two visits, so that moments in the stored game keep their meaning.
std::uint32_t pageTicks()
{
    return static_cast<std::uint32_t>(static_cast<std::uint64_t>(pageNow()));
}

void convert(const host::Pixel *source, std::uint8_t *target, int count)
{
    for (int i = 0; i < count; ++i) {
        const auto [red, green, blue] = host::unpack(*source++);
        *target++ = red;
        *target++ = green;
        *target++ = blue;
        *target++ = 255;
    }
}

} // namespace

std::unique_ptr<host::Host> open() { return std::make_unique<WebHost>(); }

WebHost::WebHost() : timeline_(pageTicks()) { theHost = this; }

WebHost::~WebHost()
{
    theHost = nullptr;
    pageEnded();
}

// Time and events --------------------------------------------------------------------------------

void WebHost::post(const Event &event) { timeline_.add(event, pageTicks()); }

std::optional<Event> WebHost::wait(std::optional<std::uint32_t> deadline)
{
    return timeline_.wait(deadline, pageTicks, [&] {
        pageSleep(deadline ? std::max(0, static_cast<int>(*deadline - pageTicks())) : -1);
    });
}

// Screen -----------------------------------------------------------------------------------------

void WebHost::present(const host::Frame &frame, const host::Area &changed)
{
    constexpr int channels = 4;
    picture_.resize(static_cast<std::size_t>(frame.width * frame.height * channels));
    const int width = changed.right - changed.left;
    for (int y = changed.top; y < changed.bottom; ++y) {
        const int first = y * frame.width + changed.left;
        convert(frame.pixels + first, picture_.data() + first * channels, width);
    }
    pageDraw(picture_.data(), frame.width, frame.height, changed.left, changed.top, width,
             changed.bottom - changed.top);
}

void WebHost::describeProgram(std::u16string_view title, const host::Icon &)
{
    pageTitle(base::toUtf8(title).c_str());
}

void WebHost::raise() { pageRaise(); }

void WebHost::wantText(bool wanted) { pageWantText(wanted); }

// Sound ------------------------------------------------------------------------------------------

bool WebHost::hasLoudspeaker() { return pageHasLoudspeaker(); }

void WebHost::playSamples(std::span<const std::uint8_t> samples)
{
    pagePlay(samples.data(), samples.size());
}

void WebHost::dropSamples() { pageSilence(); }

bool WebHost::samplesQueued() { return pagePlaying(); }

// The store --------------------------------------------------------------------------------------

std::optional<std::vector<std::byte>> WebHost::loadStore()
{
    const std::unique_ptr<char, decltype(&std::free)> text(pageLoad(), &std::free);
    if (!text) {
        return std::nullopt;
    }
    const auto bytes = std::as_bytes(std::span(std::string_view(text.get())));
    return std::vector<std::byte>(bytes.begin(), bytes.end());
}

bool WebHost::saveStore(std::span<const std::byte> bytes)
{
    return pageSave(reinterpret_cast<const char *>(bytes.data()), bytes.size());
}

void WebHost::setStoreAside() { pageSetAside(); }

// Other programs ---------------------------------------------------------------------------------

/// The page that the arguments name lies beside this one.
bool WebHost::showHelp(std::u16string_view, std::u16string_view arguments,
                       std::span<const std::byte>, std::u16string_view)
{
    return pageHelp(base::toUtf8(arguments.substr(arguments.find(u':') + 1)).c_str());
}

void WebHost::report(std::string_view line) { pageReport(line.data(), line.size()); }

} // namespace web

// What the page calls ----------------------------------------------------------------------------

/// An event: `kind` as host::Event numbers them, `a` and `b` its key and modifiers (1 Ctrl,
/// 2 Shift, 4 the keyboard's Esc), its point, or its character.
extern "C" void post(int kind, int a, int b)
{
    if (web::theHost == nullptr) {
        return;
    }
    host::Event event;
    event.kind = static_cast<host::Event::Kind>(kind);
    event.key = static_cast<std::uint16_t>(a);
    event.text = static_cast<char16_t>(a);
    event.control = (b & 1) != 0;
    event.shift = (b & 2) != 0;
    event.escape = (b & 4) != 0;
    event.x = a;
    event.y = b;
    web::theHost->post(event);
}
