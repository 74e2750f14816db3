// The web host as a class: what the page posts becomes the handheld's events.
#pragma once

#include <vector>

#include "host/host.h"
#include "host/input_mapper.h"
#include "host/pointer_picture.h"
#include "host/timeline.h"
#include "host/web/web.h"

namespace web {

class WebHost final : public host::Host
{
public:
    explicit WebHost(Program program);
    WebHost(const WebHost &) = delete;
    WebHost &operator=(const WebHost &) = delete;
    ~WebHost() override;

    /// What happens on the page goes here. The page wakes the program afterwards.
    host::InputMapper &input() { return input_; }

    std::uint32_t ticks() const override { return timeline_.ticks(); }
    std::optional<host::Event> wait(std::optional<std::uint32_t> deadline) override;
    void present(const host::Frame &frame, const host::Area &changed) override;
    void describeProgram(std::u16string_view title, const host::Icon &icon) override;
    void raise() override;
    void wantText(bool wanted) override;
    bool hasLoudspeaker() override;
    bool openLoudspeaker() override { return true; }
    void closeLoudspeaker() override { dropSamples(); }
    void playSamples(std::span<const std::uint8_t> samples) override;
    void dropSamples() override;
    bool samplesQueued() override;
    std::optional<std::vector<std::byte>> loadStore() override;
    bool saveStore(std::span<const std::byte> bytes) override;
    void setStoreAside() override;
    /// Pages settle among themselves which of them runs the program, before it starts.
    bool runsElsewhere() override { return false; }
    void raiseOther() override {}
    bool showHelp(std::u16string_view program, std::u16string_view arguments,
                  std::span<const std::byte> document, std::u16string_view anchor) override;
    void report(std::string_view line) override;
    void showProgress(const std::optional<host::Progress> &progress) override;
    void showWatchKeys() override;
    /// The viewer asks for a moment of the record, in milliseconds.
    void seek(int position);
    void messageBoxOpened(std::u16string_view caption, std::u16string_view text) override;

private:
    void emit(const host::Event &event);
    void sleep(std::optional<std::uint32_t> deadline);
    void draw(const host::Area &area);
    void showPointer();

    Program program_;
    bool alert_ = true; ///< something has happened since the program last woke by the clock
    host::Timeline timeline_;
    host::InputMapper input_;
    host::Frame frame_;
    std::vector<std::uint8_t> picture_; ///< red, green, blue and opacity
    std::optional<host::PointerLook> pointer_;
};

} // namespace web
