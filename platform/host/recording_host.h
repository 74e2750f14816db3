// Records a game exactly: a host around another one that writes what the user does, and when, as a
// script with which the pilot does the same again.
#pragma once

#include <filesystem>
#include <fstream>
#include <string>

#include "host/host.h"
#include "host/problem.h"

namespace host {

class RecordingHost final : public Host
{
public:
    explicit RecordingHost(Host &inner) : inner_(inner) {}

    /// Begins the record, before the program runs; on failure the host must not be used. `file`
    /// must not exist yet. It begins with the clock, and with the display when that is turned, as
    /// comments that the pilot reads; the store as the program first reads it goes to the same
    /// name with ".reg" behind it. The file is complete whenever the program works, so it survives
    /// a crash.
    [[nodiscard]] Problem begin(const std::filesystem::path &file, bool turned);

    std::uint32_t ticks() const override { return inner_.ticks(); }
    /// Gives an event only when the program has nothing left to do, as the pilot does: with a
    /// deadline that is not ahead it returns none.
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
    void writeTime(std::uint32_t moment);
    void writeCommand(const std::string &command);
    void finishWriting();

    Host &inner_;
    std::string name_;
    std::ofstream file_;
    std::streampos end_;        ///< of the lines that will not change any more
    std::uint32_t written_ = 0; ///< the moment that those lines reach
    bool storeCopied_ = false;
    bool failed_ = false;
};

} // namespace host
