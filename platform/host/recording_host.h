// Tells a game exactly: a host around another one that writes what the user does, and when, as a
// script for the pilot, on which the program then does the same again.
#pragma once

#include <filesystem>
#include <fstream>
#include <string>

#include "host/host.h"

namespace host {

class RecordingHost final : public Host
{
public:
    /// Records what happens on `inner` from its present moment on. `file` must not exist yet. It
    /// begins with the clock, and with the display when that is turned, as comments that the pilot
    /// reads; the store as the program found it goes to the same name with ".reg" behind it. The
    /// file is whole at every moment at which the program works, so also when it crashes.
    RecordingHost(Host &inner, std::filesystem::path file, bool turned);

    /// Why nothing is recorded, or an empty text.
    const std::string &problem() const { return problem_; }

    std::uint32_t ticks() const override { return inner_.ticks(); }
    /// Events come only when the program has done all it could, as they do on the pilot: a look
    /// for one that is there already finds none.
    std::optional<Event> wait(std::optional<std::uint32_t> deadline) override;
    std::optional<std::vector<std::byte>> loadStore() override;

    void present(const Frame &frame, const Area &changed) override
    {
        inner_.present(frame, changed);
    }
    void describeProgram(std::u16string_view title, const Icon &icon) override
    {
        inner_.describeProgram(title, icon);
    }
    void raise() override { inner_.raise(); }
    void wantText(bool wanted) override { inner_.wantText(wanted); }
    bool hasLoudspeaker() override { return inner_.hasLoudspeaker(); }
    bool openLoudspeaker() override { return inner_.openLoudspeaker(); }
    void closeLoudspeaker() override { inner_.closeLoudspeaker(); }
    void playSamples(std::span<const std::uint8_t> samples) override
    {
        inner_.playSamples(samples);
    }
    void dropSamples() override { inner_.dropSamples(); }
    bool samplesQueued() override { return inner_.samplesQueued(); }
    bool saveStore(std::span<const std::byte> bytes) override { return inner_.saveStore(bytes); }
    void setStoreAside() override { inner_.setStoreAside(); }
    bool runsElsewhere() override { return inner_.runsElsewhere(); }
    void raiseOther() override { inner_.raiseOther(); }
    bool showHelp(std::u16string_view program, std::u16string_view arguments,
                  std::span<const std::byte> document, std::u16string_view anchor) override
    {
        return inner_.showHelp(program, arguments, document, anchor);
    }
    void report(std::string_view line) override { inner_.report(line); }
    void messageBoxOpened(std::u16string_view caption, std::u16string_view text) override
    {
        inner_.messageBoxOpened(caption, text);
    }
    void timerHandled() override { inner_.timerHandled(); }

private:
    void tellTime(std::uint32_t moment);
    void tell(const std::string &command);
    void finishWriting();

    Host &inner_;
    std::filesystem::path name_;
    std::ofstream file_;
    std::string problem_;
    std::streampos end_; ///< of the lines that will not change any more
    std::uint32_t told_; ///< the moment up to which they tell
    bool storeCopied_ = false;
};

} // namespace host
