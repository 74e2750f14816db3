// The web host: the handheld in a browser page. What the page posts becomes the handheld's events.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "host/host.h"
#include "host/input_mapper.h"
#include "host/pointer_picture.h"
#include "host/shown_frame.h"
#include "host/timeline.h"
#include "host/web/page.h"

namespace web {

/// What the program is doing: `kind` is a word that the page knows ("title", "game", "level",
/// "paused", "over"), `text` a sentence.
struct State
{
    const char *kind;
    std::string text;
};
/// The state, when it has changed since the last call.
using ChangedState = std::function<std::optional<State>()>;

class WebHost final : public host::Host
{
public:
    /// There is one page, so there may be one of these. It asks for the state, and how late the
    /// program may wake, before it sleeps.
    WebHost(ChangedState changedState, host::Latest latest);
    WebHost(const WebHost &) = delete;
    WebHost &operator=(const WebHost &) = delete;
    /// The page learns that the program has ended.
    ~WebHost() override;

    /// What happens on the page goes here. The page wakes the program afterwards.
    host::InputMapper &input() { return input_; }

    std::uint32_t ticks() const override { return timeline_.ticks(); }
    std::optional<host::Event> wait(std::optional<std::uint32_t> deadline) override;
    void present(const host::Frame &frame, const host::Area &changed) override;
    void describeProgram(std::u16string_view title, const host::Icon &icon) override;
    void raise() override { pageRaise(); }
    void wantText(bool wanted) override;
    bool hasLoudspeaker() override { return pageHasLoudspeaker(); }
    void playSamples(std::span<const std::uint8_t> samples) override
    {
        pagePlay(samples.data(), samples.size());
    }
    void dropSamples() override { pageSilence(); }
    bool samplesQueued() override { return pagePlaying(); }
    std::optional<std::vector<std::byte>> loadStore() override;
    bool saveStore(std::span<const std::byte> bytes) override;
    void setStoreAside() override { pageSetAside(); }
    bool showHelp(std::u16string_view program, std::u16string_view arguments,
                  std::span<const std::byte> document, std::u16string_view anchor) override;
    void report(std::string_view line) override { pageReport(line.data(), line.size()); }
    void showProgress(const std::optional<host::Progress> &progress) override;
    void showWatchKeys() override { pageWatchKeys(host::watchKeys); }
    void messageBoxOpened(std::u16string_view caption, std::u16string_view text) override;
    /// The viewer asks for a moment of the record, in milliseconds.
    void seek(int position);

private:
    void emit(const host::Event &event);
    void sleep(std::optional<std::uint32_t> until);
    void draw(const host::Area &area);
    void showPointer();

    ChangedState changedState_;
    host::Timeline timeline_;
    host::InputMapper input_;
    host::Frame frame_;
    host::ShownFrame shownFrame_;
    std::vector<std::uint8_t> picture_; ///< red, green, blue and opacity
    std::optional<host::PointerLook> pointer_;
};

/// The record that this instance of the program is to play.
std::string givenRecord();
/// Gives the page whole lines of the record of this instance.
void keepRecord(std::string_view lines);
/// Asks the page for a fresh instance that shows the record from there: milliseconds, quarters of
/// the ordinary speed. This one is not shown any more.
void restart(std::uint64_t position, int quarterSpeed, bool playing);

} // namespace web
