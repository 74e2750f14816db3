// The web host. The program is suspended in pageSleep, called from `wait`, and nowhere else.
#include "host/web/web_host.h"

#include <algorithm>
#include <cstdlib>
#include <memory>
#include <utility>

#include "base/utf.h"
#include "host/key_table.h"
#include "host/moment.h"
#include "host/pixel.h"

namespace web {
namespace {

using host::Event;

WebHost *theHost = nullptr;

struct Free
{
    void operator()(char *text) const { std::free(text); }
};
/// A text of the page, in UTF-8.
using Text = std::unique_ptr<char, Free>;

/// Goes on between two visits, so that moments in the stored game keep their meaning.
std::uint32_t pageTicks()
{
    return static_cast<std::uint32_t>(static_cast<std::uint64_t>(pageNow()));
}

constexpr int channels = 4;

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

WebHost::WebHost(ChangedState changedState, host::Latest latest)
    : changedState_(std::move(changedState)), timeline_(pageTicks(), std::move(latest)),
      input_(pageTicks, [this](const Event &event) { emit(event); })
{
    theHost = this;
}

WebHost::~WebHost()
{
    theHost = nullptr;
    pageEnded();
}

// Time and events --------------------------------------------------------------------------------

/// The buttons that the page draws light up, whatever holds them down.
void WebHost::emit(const Event &event)
{
    timeline_.add(event, pageTicks());
    const bool down = event.kind == Event::Kind::KeyDown;
    const std::string button(host::buttonName(event.key));
    if ((down || event.kind == Event::Kind::KeyUp) && !button.empty()) {
        pageShowButton(button.c_str(), down);
    }
}

std::optional<Event> WebHost::wait(std::optional<std::uint32_t> deadline)
{
    return timeline_.wait(deadline, pageTicks, [this](auto until) { sleep(until); });
}

void WebHost::sleep(std::optional<std::uint32_t> until)
{
    showPointer();
    if (const auto state = changedState_()) {
        pageState(state->kind, state->text.c_str());
    }
    const std::uint32_t now = pageTicks();
    int longest = -1;
    for (const auto moment : {input_.due(), until}) {
        if (moment) {
            const int left = host::remaining(now, *moment);
            longest = longest < 0 ? left : std::min(longest, left);
        }
    }
    pageSleep(longest);
    input_.advance();
}

// Screen -----------------------------------------------------------------------------------------

void WebHost::present(const host::Frame &frame, const host::Area &changed)
{
    frame_ = frame;
    input_.setScreen({frame.width, frame.height});
    picture_.resize(static_cast<std::size_t>(frame.width * frame.height * channels));
    draw(shownFrame_.update(frame, changed));
    if (pointer_) {
        draw(host::pointerArea(*pointer_, {frame.width, frame.height}));
    }
}

/// Gives the page an area of the frame, the pointer over it.
void WebHost::draw(const host::Area &area)
{
    const auto put = [&](const host::Area &part, const host::Pixel *source, int pitch) {
        for (int y = part.top; y < part.bottom; ++y) {
            convert(source + (y - part.top) * pitch,
                    picture_.data() + (y * frame_.width + part.left) * channels,
                    part.right - part.left);
        }
    };
    put(area, frame_.pixels + area.top * frame_.width + area.left, frame_.width);
    if (pointer_) {
        const host::Area pen = host::pointerArea(*pointer_, {frame_.width, frame_.height});
        put(pen, host::pointerPixels(*pointer_, frame_).data(), pen.right - pen.left);
    }
    pageDraw(picture_.data(), frame_.width, frame_.height, area.left, area.top,
             area.right - area.left, area.bottom - area.top);
}

void WebHost::showPointer()
{
    const auto look = input_.pointer().look();
    if (look == pointer_ || !frame_.pixels) {
        return;
    }
    const auto before = std::exchange(pointer_, look);
    for (const auto &each : {before, pointer_}) {
        if (each) {
            draw(host::pointerArea(*each, {frame_.width, frame_.height}));
        }
    }
}

void WebHost::describeProgram(std::u16string_view title, const host::Icon &)
{
    pageTitle(base::toUtf8(title).c_str());
}

void WebHost::wantText(bool wanted)
{
    input_.wantText(wanted);
    pageWantText(wanted);
    if (wanted) {
        pageState("name", "Type a name, then press Enter.");
    }
}

// The store --------------------------------------------------------------------------------------

std::optional<std::vector<std::byte>> WebHost::loadStore()
{
    const Text text(pageLoad());
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

// Other programs ---------------------------------------------------------------------------------

/// The page that the arguments name lies beside this one.
bool WebHost::showHelp(std::u16string_view, std::u16string_view arguments,
                       std::span<const std::byte>, std::u16string_view)
{
    return pageHelp(base::toUtf8(arguments.substr(arguments.find(u':') + 1)).c_str());
}

void WebHost::messageBoxOpened(std::u16string_view caption, std::u16string_view text)
{
    pageState("dialog", (base::toUtf8(caption) + ": " + base::toUtf8(text)).c_str());
}

// Records ----------------------------------------------------------------------------------------

void WebHost::showProgress(const std::optional<host::Progress> &progress)
{
    input_.setWatching(progress.has_value());
    if (progress) {
        pageProgress(progress->position, progress->length, progress->quarterSpeed,
                     progress->playing, progress->chapter.c_str());
    } else {
        pageTakenOver();
    }
}

void WebHost::seek(int position)
{
    emit({.kind = Event::Kind::Watch, .x = position, .watch = host::WatchCommand::Seek});
}

std::string givenRecord() { return Text(pageGivenRecord()).get(); }

void keepRecord(std::string_view lines) { pageKeepRecord(lines.data(), lines.size()); }

void restart(std::uint64_t position, int quarterSpeed, bool playing)
{
    pageRestart(static_cast<double>(position), quarterSpeed, playing);
}

} // namespace web

// What the page calls. Texts are UTF-8, allocated by the page and freed here. -------------------

namespace {

/// Nothing counts before the program runs.
template <class Act>
void withInput(Act act)
{
    if (web::theHost) {
        act(web::theHost->input());
    }
}

/// A number for a key that stays the same while it is down.
int sourceOf(std::string_view code)
{
    return static_cast<int>(std::hash<std::string_view>()(code) & 0x7FFFFFFFU);
}

/// The name of a key as host/key_table.h has it, from the two that a KeyboardEvent has. On
/// keyboards without Latin letters a key is what it would be on one with them.
std::string keyName(std::string_view code, std::string_view key)
{
    if (code.starts_with("Shift") || code.starts_with("Control")) {
        return std::string(code);
    }
    if (key.size() != 1 && code.size() == 4 && code.starts_with("Key")) {
        key = code.substr(3);
    }
    std::string name(key);
    if (name.size() == 1 && name[0] >= 'A' && name[0] <= 'Z') {
        name[0] = static_cast<char>(name[0] - 'A' + 'a');
    }
    return name;
}

} // namespace

extern "C" {

/// A key of the keyboard. Returns whether the page keeps the browser from using it as well.
bool keyDown(char *code, char *key, bool control, bool shift, bool alt, bool meta, bool altGraph,
             bool repeated)
{
    const web::Text codeOwner(code);
    const web::Text keyOwner(key);
    bool taken = false;
    withInput([&](host::InputMapper &input) {
        taken = input.keyDown(sourceOf(code), keyName(code, key),
                              {control, shift, alt, meta, altGraph}, repeated);
        const bool command = meta || (!altGraph && (control || alt));
        if (host::types(key) && !command && !std::string_view(key).starts_with("Shift")) {
            for (const char16_t unit : base::toUtf16(key)) {
                input.text(unit);
            }
        }
    });
    return taken;
}

void keyUp(char *code, char *key)
{
    const web::Text codeOwner(code);
    const web::Text keyOwner(key);
    withInput([&](auto &input) { input.keyUp(sourceOf(code), keyName(code, key)); });
}

/// A finger is on the button of that name now, or on none.
void moveFinger(int finger, char *button)
{
    const web::Text buttonOwner(button);
    withInput([&](auto &input) { input.finger(finger, host::buttonCode(button)); });
}

void stylusDown(int x, int y)
{
    withInput([&](auto &input) { input.stylusDown({x, y}); });
}

void stylusMove(int x, int y)
{
    withInput([&](auto &input) { input.stylusMove({x, y}); });
}

void stylusUp()
{
    withInput([](auto &input) { input.stylusUp(); });
}

/// A button of a controller, by the standard mapping. Returns whether it asks for full screen.
bool controllerButton(int controller, int button, bool down)
{
    return web::theHost && web::theHost->input().controllerButton(controller, button, down);
}

void controllerAxis(int controller, int axis, double value)
{
    withInput([&](auto &input) { input.controllerAxis(controller, axis, value); });
}

void controllerGone(int controller)
{
    withInput([&](auto &input) { input.controllerGone(controller); });
}

void setAway(bool away)
{
    withInput([&](auto &input) { input.setAway(away); });
}

/// Only while a record is shown: its viewer goes to a moment, in milliseconds.
void seek(int position)
{
    if (web::theHost) {
        web::theHost->seek(position);
    }
}

void askForHelp()
{
    withInput([](auto &input) { input.system(host::Event::Kind::Help); });
}
}
